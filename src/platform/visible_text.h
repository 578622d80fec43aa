// Texts of a study on a line of output: what would steer a terminal, break the line or turn the direction of writing is
// shown as what it is.
#pragma once

#include <string>
#include <string_view>

namespace noldarz {

/// The text with control characters, line breaks, marks of direction and what has no width as "\u{202E}", and bytes
/// that are no UTF-8 as "\x{FF}". `kept`: characters that stay, such as "\n" in a page.
std::string visibleText(std::string_view text, std::string_view kept = {});

/// The same characters from U+007F up as escapes, "\u202E"; other bytes stay. For a text that has its quotes already.
/// Above U+FFFF JSON has two halves, TOML "\U000E0001".
enum class Escapes : unsigned char { json, toml };
std::string escapedText(std::string_view quoted, Escapes escapes);

/// Whether the bytes are a text: UTF-8 without a NUL.
bool isPlainText(std::string_view bytes) noexcept;

}  // namespace noldarz
