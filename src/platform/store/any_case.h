// How names are compared: by their characters without regard to case, in any script.
#pragma once

#include <string>
#include <string_view>

namespace noldarz {

/// Below 0, 0 or above 0, as `a` stands before, with or after `b`. Texts that are no UTF-8 are compared byte by byte.
int compareWithoutCase(std::string_view a, std::string_view b);

/// Texts that compare alike are the same text when folded.
std::string folded(std::string_view text);

/// The order as queries name it. No file holds this name: what stands in one is ordered by the engine's own NOCASE,
/// which knows the letters A to Z only, so that the indexes of other programs stay sound.
inline constexpr const char* anyCase = "ANYCASE";

/// The query with every comparison "= 'text'" and "= table.column" in that order.
std::string comparingAnyCase(const std::string& query);

}  // namespace noldarz
