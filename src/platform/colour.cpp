#include "platform/colour.h"

#include <fmt/format.h>

#include <charconv>

namespace noldarz {

namespace {
// In the order of SystemColour, from its second value on.
constexpr std::array<std::string_view, 5> systemNames{
    "buttonFace", "windowBackground", "windowText", "buttonText", "disabledText"};
}  // namespace

std::string colourText(Colour colour) {
  if (colour.system == SystemColour::none) return fmt::format("#{:06x}", colour.rgb);
  return std::string{systemNames.at(static_cast<size_t>(colour.system) - 1)};
}

std::optional<Colour> parseColour(std::string_view text) {
  for (size_t i = 0; i < systemNames.size(); ++i)
    if (text == systemNames[i]) return Colour{static_cast<SystemColour>(i + 1)};
  if (text.size() != 7 || text[0] != '#') return {};
  std::uint32_t rgb = 0;
  const auto [end, error] = std::from_chars(text.data() + 1, text.data() + text.size(), rgb, 16);
  if (error != std::errc{} || end != text.data() + text.size()) return {};
  return Colour{rgb >> 16, rgb >> 8 & 0xFF, rgb & 0xFF};
}

}  // namespace noldarz
