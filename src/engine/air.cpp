#include "engine/air.h"

#include <cmath>
#include <cstddef>

#include "platform/failure.h"

namespace noldarz {

namespace {

/// Profile a * z^b of a terrain, by index in `terrains`.
struct TerrainProfile {
  double a;
  double b;
};

// clang-format off
constexpr std::array<TerrainProfile, 5> terrainProfiles{{
    // a        b
    { 8.35538,  0.39675 },   // Urban
    {12.19,     0.34456 },   // Semi-Urban
    {17.35,     0.29237 },   // Sub-Urban
    {25.8,      0.234335},   // Rural
    {37.8087,   0.1763  },   // Level
}};

// Height exponents above 10 m: n / (2 - n) with n = 0.2, 0.25 and 0.5.
constexpr double w1 = 0.2 / 1.8;
constexpr double w2 = 0.25 / 1.75;
constexpr double w3 = 0.5 / 1.5;
constexpr double no = 0;

struct ClassWind {
  double defaultWind;     // m/s
  double exponent;        // above 10 m
  double secondExponent;  // of the mean of two; `no`: the first alone
};

constexpr std::array<ClassWind, 11> classWinds{{
    // wind  height law
    {2.0,    w1, no},   // A
    {3.0,    w1, no},   // AB
    {5.0,    w1, no},   // B
    {5.0,    w2, w1},   // BC
    {5.5,    w2, no},   // C
    {5.0,    w2, no},   // CD
    {6.0,    w2, no},   // D
    {5.5,    w3, w2},   // DE
    {5.0,    w3, no},   // E
    {5.0,    w3, no},   // EF
    {3.0,    w3, no},   // F
}};
// clang-format on

bool hasRow(int stabilityClass) { return stabilityClass >= 0 && stabilityClass < customClass; }

}  // namespace

std::optional<double> defaultWind(int stabilityClass) {
  if (!hasRow(stabilityClass)) return {};
  return classWinds[static_cast<std::size_t>(stabilityClass)].defaultWind;
}

double windAtReleaseHeight(double wind, double height, int stabilityClass, int terrain) {
  if (height <= windReferenceHeight) {
    const auto [a, b] = terrainProfiles.at(static_cast<std::size_t>(terrain < 0 ? 0 : terrain));
    return checked((wind * a * std::pow(height, b)) / (a * std::pow(windReferenceHeight, b)));
  }
  if (!hasRow(stabilityClass)) return wind;
  const ClassWind& row = classWinds[static_cast<std::size_t>(stabilityClass)];
  const double first = wind * std::pow(height / windReferenceHeight, row.exponent);
  if (row.secondExponent == no) return checked(first);
  return checked((first + wind * std::pow(height / windReferenceHeight, row.secondExponent)) / 2);
}

}  // namespace noldarz
