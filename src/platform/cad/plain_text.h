// Texts of a drawing without the codes that shape them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace noldarz {

/// A text of one line: the signs behind %% as they are, underlining left out.
std::string plainLine(std::string_view text);

/// The lines of a text of many, without fonts, sizes, colours and groups. Lines of more than `most` letters are broken
/// between words; 0: none is.
std::vector<std::string> plainLines(std::string_view text, std::size_t most);

/// Letters of a text in UTF-8.
std::size_t lettersOf(std::string_view text);

}  // namespace noldarz
