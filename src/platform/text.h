// Texts and numbers: the one place that turns a text of a field into a number and a number into a text. "." is the
// decimal sign in every locale. Every room uses it; it uses nothing but failure.h.
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/failure.h"

namespace noldarz {

/// Whether the text is a word of the vocabulary, compared exactly.
inline bool isOneOf(std::span<const std::string_view> vocabulary, std::string_view text) {
  return std::find(vocabulary.begin(), vocabulary.end(), text) != vocabulary.end();
}

/// What a text reads as: a number, no number, or a number beyond the range of a double.
struct ParsedNumber {
  enum class Outcome : unsigned char { number, notANumber, outOfRange };
  Outcome outcome = Outcome::notANumber;
  double value = 0;

  bool isNumber() const { return outcome == Outcome::number; }
  /// The value. Fails with typeMismatch for no number, with overflow for one beyond the range of a double.
  double number() const {
    if (outcome != Outcome::number)
      fail(outcome == Outcome::outOfRange ? FailureNumber::overflow : FailureNumber::typeMismatch);
    return value;
  }
};

/// Strict reading: blanks around it, a sign, digits with ".", an exponent. Nothing else: not "", "N.A.", "1,5",
/// "inf", "0x10". A value too small for a double reads as 0.
ParsedNumber parseNumber(std::string_view text) noexcept;

/// "X,Y", each as parseNumber() reads it; nothing for any other text, and for a place that is out of range.
std::optional<std::array<double, 2>> parsePoint(std::string_view text) noexcept;

/// The number that the text holds. Fails as ParsedNumber::number() does.
double strictNumber(std::string_view text);

bool isNumeric(std::string_view text) noexcept;

/// The value as text with the decimals of the pattern ("0", "0.00", "0.00000"): its decimal form of 15 significant
/// digits, rounded half away from zero. A result of zero carries no minus sign. Fails as checked() does.
std::string Format(double value, std::string_view pattern);

/// The same for the number that a text holds; a text that is no number (a mark) passes unchanged.
std::string Format(std::string_view text, std::string_view pattern);

/// The value rounded to so many decimals (0 to 5): what reading back its Format gives. Fails as checked() does.
double rounded(double value, int decimals);

/// Plain number text: at most 15 significant digits, no trailing zeros ("12.5", "10000", "0.1"). From 1e15 up and
/// below 1e-15 with an exponent. Fails as checked() does.
std::string plainText(double value);

/// Conversion to an integer cell or slider: half to even. Fails with overflow outside 32 bits.
int toInteger(double value);

/// "Sunday, November 22, 2026", English in every locale.
std::string longDate(std::chrono::year_month_day date);
/// Today by the user's calendar.
std::chrono::year_month_day today();

}  // namespace noldarz
