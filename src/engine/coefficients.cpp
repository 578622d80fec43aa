#include "engine/coefficients.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace noldarz {

namespace {

/// One fitted curve: factor * x^exponent, or 10^(quadratic * L^2 + linear * L + constant) with L = log10(x).
struct Curve {
  enum class Form : unsigned char { none, power, logarithmic };
  Form form = Form::none;
  double a = 0;
  double b = 0;
  double c = 0;

  double at(double x) const {
    if (form == Form::power) return a * std::pow(x, b);
    if (!(x > 0)) return std::numeric_limits<double>::quiet_NaN();
    const double L = std::log(x) / std::log(10.0);
    return std::pow(10.0, a * (L * L) + b * L + c);
  }

  /// d ln(value) / d ln(x), which goes up or down all the way.
  double exponentAt(double x) const { return form == Form::power ? b : 2 * a * std::log10(x) + b; }
};

constexpr Curve power(double factor, double exponent) { return {Curve::Form::power, factor, exponent, 0}; }

constexpr Curve logarithmic(double quadratic, double linear, double constant) {
  return {Curve::Form::logarithmic, quadratic, linear, constant};
}

/// One curve, or the mean of two.
struct Mean {
  Curve first;
  Curve second = {};

  double at(double x) const {
    if (second.form == Curve::Form::none) return first.at(x);
    return (first.at(x) + second.at(x)) / 2;
  }

  std::optional<CoefficientRange> over(double from, double to) const {
    auto [least, most] = std::minmax({first.exponentAt(from), first.exponentAt(to)});
    if (second.form != Curve::Form::none) {  // the exponent of a mean lies between those of its curves
      const auto [otherLeast, otherMost] = std::minmax({second.exponentAt(from), second.exponentAt(to)});
      least = std::min(least, otherLeast);
      most = std::max(most, otherMost);
    }
    if (!(from > 0 && least > 0)) return {};
    return CoefficientRange{at(from), at(to), least, most};
  }
};

struct BrokenCurve {
  double breakpoint;  // m; below it the first form applies, at it and beyond the second
  Mean below;
  Mean atOrAbove;
};

// clang-format off

// Vertical coefficient of the class table: six power forms and five logarithmic forms.
//                            factor  exponent
constexpr Curve PA = power(   0.087,  1.1 );
constexpr Curve PB = power(   0.135,  0.95);
constexpr Curve PC = power(   0.112,  0.91);
constexpr Curve PD = power(   0.093,  0.85);
constexpr Curve PE = power(   0.082,  0.82);
constexpr Curve PF = power(   0.057,  0.8 );
//                            L^2      L      constant
constexpr Curve QA = logarithmic( 0.181,  0.902, -1.67);
constexpr Curve QB = logarithmic( 0.0018, 1.09,  -1.25);
constexpr Curve QD = logarithmic(-0.061,  1.08,  -1.22);
constexpr Curve QE = logarithmic(-0.07,   1.04,  -1.19);
constexpr Curve QF = logarithmic(-0.119,  1.37,  -1.91);

constexpr double never = std::numeric_limits<double>::infinity();  // no breakpoint: one form at every distance

constexpr std::array<BrokenCurve, 12> sigmaZTable{{
    // breakpoint  below       at or above
    {289.614,     {PA},       {QA}    },   // A
    {303.121,     {PA, PB},   {QB, QA}},   // AB
    {never,       {PB},       {PB}    },   // B
    {424.504,     {PC, PB},   {QB, PC}},   // BC
    {never,       {PC},       {PC}    },   // C
    {368.652,     {PC, PD},   {QD, PC}},   // CD
    {368.653,     {PD},       {QD}    },   // D
    {never,       {QE, QD},   {QE, QD}},   // DE
    {366.919,     {PE},       {QE}    },   // E
    {410.429,     {PE, PF},   {QF, QE}},   // EF
    {588.084,     {PF},       {QF}    },   // F
    {289.614,     {PA},       {QA}    },   // Custom: as A
}};

// Vertical coefficient of a gas lighter than air.
//                         factor exponent
constexpr Curve LA = power(0.13,  1.01 );
constexpr Curve LB = power(0.166, 0.905);
constexpr Curve LC = power(0.132, 0.874);
constexpr Curve LD = power(0.123, 0.789);
constexpr Curve LE = power(0.11,  0.756);
constexpr Curve LF = power(0.097, 0.684);

constexpr std::array<Mean, 12> lighterThanAirTable{{
    {LA},       // A
    {LB, LA},   // AB
    {LB},       // B
    {LB, LC},   // BC
    {LC},       // C
    {LD, LC},   // CD
    {LD},       // D
    {LD, LE},   // DE
    {LE},       // E
    {LF, LE},   // EF
    {LF},       // F
    {LA},       // Custom: as A
}};

// Lateral coefficient.
//                         factor exponent
constexpr Curve YA = power(0.493, 0.8 );   // 0.8, not 0.88 as in class B
constexpr Curve YB = power(0.337, 0.88);
constexpr Curve YC = power(0.195, 0.9 );
constexpr Curve YD = power(0.128, 0.9 );
constexpr Curve YE = power(0.091, 0.91);
constexpr Curve YF = power(0.067, 0.9 );

constexpr std::array<Mean, 12> sigmaYTable{{
    {YA},       // A
    {YA, YB},   // AB
    {YB},       // B
    {YC, YB},   // BC
    {YC},       // C
    {YC, YD},   // CD
    {YD},       // D
    {YE, YD},   // DE
    {YE},       // E
    {YE, YF},   // EF
    {YF},       // F
    {YA},       // Custom: as A
}};

/// Band of relative vapour density whose vertical coefficient is lowered near the source, by distance / 100 + offset.
struct DensityBand {
  double above;  // relative density
  double reach;  // m, the distance at which the factor comes to 1
  double offset;
};

constexpr DensityBand denseBand {1.5, 80, 0.2};
constexpr DensityBand heavyBand {1.0, 60, 0.4};

// clang-format on

template <class Row>
const Row& rowOf(const std::array<Row, 12>& table, int stabilityClass) {
  return table.at(static_cast<std::size_t>(stabilityClass));
}

/// The band of a density; null for one that is not lowered.
const DensityBand* bandOf(double vapourDensity) {
  for (const DensityBand* band : {&denseBand, &heavyBand})
    if (vapourDensity > band->above) return band;
  return nullptr;
}

}  // namespace

double sigmaZFromClass(int stabilityClass, double distance) {
  const BrokenCurve& row = rowOf(sigmaZTable, stabilityClass);
  return (distance < row.breakpoint ? row.below : row.atOrAbove).at(distance);
}

double sigmaZLighterThanAir(int stabilityClass, double distance) {
  return rowOf(lighterThanAirTable, stabilityClass).at(distance);
}

double heavyGasFactor(double vapourDensity, double distance) {
  const DensityBand* band = bandOf(vapourDensity);
  return band && distance <= band->reach ? distance * 0.01 + band->offset : 1.0;
}

std::optional<CoefficientRange> sigmaYRange(int stabilityClass, double from, double to) {
  if (stabilityClass < 0) return {};
  return rowOf(sigmaYTable, stabilityClass).over(from, to);
}

std::optional<CoefficientRange> sigmaZRange(int stabilityClass, double vapourDensity, double from, double to) {
  if (stabilityClass < 0) return {};
  if (vapourDensity < 1) return rowOf(lighterThanAirTable, stabilityClass).over(from, to);
  const BrokenCurve& row = rowOf(sigmaZTable, stabilityClass);
  if (from < row.breakpoint && to >= row.breakpoint) return {};
  auto range = (from < row.breakpoint ? row.below : row.atOrAbove).over(from, to);
  const DensityBand* band = bandOf(vapourDensity);
  if (!range || !band || from > band->reach) return range;
  if (to > band->reach) return {};
  range->low *= heavyGasFactor(vapourDensity, from);
  range->high *= heavyGasFactor(vapourDensity, to);
  // d ln(x * 0.01 + offset) / d ln(x), which grows with x
  range->leastExponent += from * 0.01 / heavyGasFactor(vapourDensity, from);
  range->mostExponent += to * 0.01 / heavyGasFactor(vapourDensity, to);
  return range;
}

double sigmaYFromClass(int stabilityClass, double distance) { return rowOf(sigmaYTable, stabilityClass).at(distance); }

}  // namespace noldarz
