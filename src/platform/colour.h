// Colours of fields and drawings: an RGB value, or a colour that the user's desktop theme gives.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace noldarz {

/// A colour of the theme; `none` marks an RGB colour.
enum class SystemColour : std::uint8_t { none, buttonFace, windowBackground, windowText, buttonText, disabledText };

struct Colour {
  std::uint32_t rgb = 0;  ///< 0xRRGGBB; 0 for a colour of the theme
  SystemColour system = SystemColour::none;

  constexpr Colour() = default;
  constexpr Colour(SystemColour theme) : system(theme) {}  // NOLINT(google-explicit-constructor)
  constexpr Colour(unsigned red, unsigned green, unsigned blue) : rgb(red << 16 | green << 8 | blue) {}

  /// From the screen's own 0xBBGGRR order, in which colours of controls are told: red in the lowest byte.
  static constexpr Colour fromScreen(std::uint32_t bgr) { return {bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF}; }

  bool operator==(const Colour&) const = default;
};

/// "#rrggbb", or "buttonFace", "windowBackground", "windowText", "buttonText", "disabledText".
std::string colourText(Colour colour);

/// Reads what colourText writes; nothing for any other text.
std::optional<Colour> parseColour(std::string_view text);

/// The basic palette of 16 colours, by index.
// clang-format off
inline constexpr std::array<Colour, 16> basicPalette{{
    {  0,   0,   0}, {  0,   0, 128}, {  0, 128,   0}, {  0, 128, 128},   //  0 to  3
    {128,   0,   0}, {128,   0, 128}, {128, 128,   0}, {192, 192, 192},   //  4 to  7
    {128, 128, 128}, {  0,   0, 255}, {  0, 255,   0}, {  0, 255, 255},   //  8 to 11
    {255,   0,   0}, {255,   0, 255}, {255, 255,   0}, {255, 255, 255},   // 12 to 15
}};
// clang-format on

}  // namespace noldarz
