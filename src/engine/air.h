// What the air does: stability classes, terrains, the default wind of a class and the wind at the height of release
// (power law of the wind profile). Pure functions of numbers; docs/model.md tells the literature.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace noldarz {

/// Stability classes, index 0 to 11: Pasquill's letters, the half classes between them, and the user's own class.
inline constexpr std::array<std::string_view, 12> stabilityClasses{
    "A", "AB", "B", "BC", "C", "CD", "D", "DE", "E", "EF", "F", "Custom"};
/// Entries of the drop-down list; "Custom" can only be typed.
inline constexpr std::array<std::string_view, 11> stabilityClassEntries{
    "A", "AB", "B", "BC", "C", "CD", "D", "DE", "E", "EF", "F"};
inline constexpr int customClass = 11;
inline constexpr int noClass = -1;  ///< any other text

/// Terrains in the order of the wind profile table.
inline constexpr std::array<std::string_view, 5> terrains{"Urban", "Semi-Urban", "Sub-Urban", "Rural", "Level"};
/// The same in the order of the drop-down list.
inline constexpr std::array<std::string_view, 5> terrainEntries{"Level", "Urban", "Semi-Urban", "Sub-Urban", "Rural"};

/// Height of the wind measurement (m); up to here the terrain makes the profile, above it the class.
inline constexpr double windReferenceHeight = 10;

/// Default wind velocity of a class (m/s); none for "Custom" and any other text.
std::optional<double> defaultWind(int stabilityClass);

/// Wind at the height of release (m/s).
///
/// Up to 10 m, 10 m included: u * a * H^b / (a * 10^b) with a and b of the terrain. Above: u * (H / 10)^p with p of
/// the class (the mean of two for "BC" and "DE"); unchanged for "Custom" and any other text. A terrain of -1 takes
/// the first row. Fails with invalidArgument for a negative height, with overflow beyond the range of a double.
double windAtReleaseHeight(double wind, double height, int stabilityClass, int terrain);

}  // namespace noldarz
