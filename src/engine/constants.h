// The constants of the physics, with their units. Digits are those of the model, not more exact values: results hang on
// them. docs/model.md tells where each comes from.
#pragma once

namespace noldarz {

inline constexpr double pi = 3.14159;
inline constexpr double twoPi = 6.28318;
inline constexpr double rootOfTwo = 1.4142;         ///< H / sigma-z at the maximum ground concentration
inline constexpr double groundFactor = 8.55118538;  ///< stands for pi * e = 8.53973
inline constexpr double ellipsoidFactor = 4.1877;   ///< 4/3 pi
inline constexpr double degreesPerRadian = 57.29;

inline constexpr double gasConstant = 0.08205;      ///< l atm / (mol K)
inline constexpr double zeroCelsius = 273;          ///< K
inline constexpr double isoplethTemperature = 300;  ///< K, of the isopleth tests and of all point evaluations
inline constexpr double airDensity = 1.2928;        ///< kg/m3 at 0 deg C

inline constexpr double gramsPerKilogram = 1000;
inline constexpr double poundsPerGram = 0.002204634;
inline constexpr double hectaresPerSquareMetre = 0.0001;
inline constexpr double ppmOfLitres = 1000;  ///< 1e6 ppm / 1000 l/m3: g/m3 to ppm, with gasConstant * T / M
inline constexpr double purePpm = 1000000;   ///< a concentration can't be higher

/// Lateral distance of the point that is looked at on the axis (m).
inline constexpr double offAxis = 0.00001;

constexpr double square(double value) { return value * value; }

}  // namespace noldarz
