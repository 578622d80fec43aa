#include "platform/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <limits>

namespace noldarz {

namespace {

constexpr int significantDigits = 15;
constexpr std::string_view blanks = " \t\r\n";

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Whether a number that std::from_chars calls out of range is too small, by the power of ten of its first digit.
bool isTooSmall(std::string_view number) {
  const auto mark = std::min(number.find_first_of("eE"), number.size());
  const auto mantissa = number.substr(0, mark);
  const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
  const std::int64_t power = first < point ? point - first - 1 : point - first;
  if (mark == number.size()) return power < 0;
  auto digits = number.substr(mark + 1);
  const bool negative = digits.front() == '-';
  if (negative || digits.front() == '+') digits.remove_prefix(1);
  std::int64_t exponent = 0;
  if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc{}) return negative;
  return power + (negative ? -exponent : exponent) < 0;
}

/// Decimal form of a finite value: 0.d1d2...d15 times ten to the power of `point`.
struct Decimal {
  bool negative = false;
  std::array<char, significantDigits> digits{};
  int point = 0;

  explicit Decimal(double value) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(),
                                   buffer.data() + buffer.size(),
                                   std::fabs(value),
                                   std::chars_format::scientific,
                                   significantDigits - 1)
                         .ptr;
    negative = std::signbit(value);
    digits[0] = buffer[0];
    std::copy_n(buffer.data() + 2, significantDigits - 1, digits.begin() + 1);
    const char* exponent = buffer.data() + significantDigits + 2;  // after "d.dd...de"
    if (*exponent == '+') ++exponent;
    std::from_chars(exponent, end, point);
    ++point;
  }
};

/// Digits of |value| up to the given decimal, as one run without a point; at least one digit stands before it.
std::string roundedDigits(const Decimal& decimal, int decimals) {
  const int kept = decimal.point + decimals;
  std::string run;
  for (int i = std::min(0, decimal.point - 1); i < kept; ++i)
    run += i >= 0 && i < significantDigits ? decimal.digits[static_cast<size_t>(i)] : '0';
  const bool up = kept >= 0 && kept < significantDigits && decimal.digits[static_cast<size_t>(kept)] >= '5';
  if (up) {
    auto digit = run.rbegin();
    while (digit != run.rend() && *digit == '9') *digit++ = '0';
    if (digit != run.rend())
      ++*digit;
    else
      run.insert(run.begin(), '1');
  }
  return run;
}

constexpr std::array<double, 6> scales{1, 10, 100, 1000, 10000, 100000};

/// |value| in units of its last decimal, rounded; -1 where only the 15-digit form can tell: near a tie, for a large
/// value, for more decimals than five. Away from a tie the 15-digit form can't change the outcome.
std::int64_t roundedUnits(double value, std::size_t decimals) {
  if (decimals >= scales.size()) return -1;
  const double scaled = std::fabs(value) * scales[decimals];
  if (!(scaled < 1e10)) return -1;
  const auto whole = static_cast<std::int64_t>(scaled);
  const double rest = scaled - static_cast<double>(whole);
  if (std::fabs(rest - 0.5) <= 1e-3) return -1;
  return rest > 0.5 ? whole + 1 : whole;
}

}  // namespace

ParsedNumber parseNumber(std::string_view text) noexcept {
  std::string_view number = trimmed(text);
  const bool negative = number.starts_with('-');
  if (negative || number.starts_with('+')) number.remove_prefix(1);
  if (number.empty() || (number[0] != '.' && (number[0] < '0' || number[0] > '9'))) return {};
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (end != number.data() + number.size() || error == std::errc::invalid_argument) return {};
  if (error == std::errc::result_out_of_range) {
    if (!isTooSmall(number)) return {ParsedNumber::Outcome::outOfRange, 0};
    value = 0;
  }
  return {ParsedNumber::Outcome::number, negative ? -value : value};
}

std::optional<std::array<double, 2>> parsePoint(std::string_view text) noexcept {
  const auto comma = text.find(',');
  if (comma == std::string_view::npos) return {};
  const ParsedNumber x = parseNumber(text.substr(0, comma));
  const ParsedNumber y = parseNumber(text.substr(comma + 1));
  if (!x.isNumber() || !y.isNumber() || !std::isfinite(std::hypot(x.value, y.value))) return {};
  return std::array{x.value, y.value};
}

double strictNumber(std::string_view text) { return parseNumber(text).number(); }

bool isNumeric(std::string_view text) noexcept { return parseNumber(text).outcome == ParsedNumber::Outcome::number; }

std::string Format(double value, std::string_view pattern) {
  const auto point = pattern.find('.');
  const auto decimals = point == std::string_view::npos ? 0 : pattern.size() - point - 1;
  const std::int64_t whole = roundedUnits(checked(value), decimals);
  std::string text =
      whole >= 0 ? fmt::format_int(whole).str() : roundedDigits(Decimal{value}, static_cast<int>(decimals));
  if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
  const bool zero = text.find_first_not_of('0') == std::string::npos;
  if (decimals > 0) text.insert(text.size() - decimals, 1, '.');
  if (std::signbit(value) && !zero) text.insert(0, 1, '-');
  return text;
}

std::string Format(std::string_view text, std::string_view pattern) {
  const ParsedNumber parsed = parseNumber(text);
  return parsed.outcome == ParsedNumber::Outcome::number ? Format(parsed.value, pattern) : std::string{text};
}

double rounded(double value, int decimals) {
  static constexpr std::array<std::string_view, 6> patterns{"0", "0.0", "0.00", "0.000", "0.0000", "0.00000"};
  const auto index = static_cast<std::size_t>(decimals);
  const std::int64_t whole = roundedUnits(value, index);
  // Both are exact, so their quotient is the double nearest to the decimal text.
  if (whole > 0) return std::copysign(static_cast<double>(whole) / scales[index], value);
  return whole == 0 ? 0.0 : strictNumber(Format(value, patterns.at(index)));
}

std::string plainText(double value) {
  if (std::fabs(checked(value)) < 1e15 && std::trunc(value) == value)
    return fmt::format_int(static_cast<std::int64_t>(value)).str();
  const Decimal decimal{value};
  std::string digits{decimal.digits.begin(), decimal.digits.end()};
  digits.erase(digits.find_last_not_of('0') + 1);
  const int count = static_cast<int>(digits.size());
  std::string text;
  if (decimal.point > significantDigits || decimal.point < 1 - significantDigits) {
    text = digits.substr(0, 1);
    if (count > 1) text += "." + digits.substr(1);
    text += fmt::format("E{:+03}", decimal.point - 1);
  } else if (decimal.point <= 0) {
    text = "0." + std::string(static_cast<size_t>(-decimal.point), '0') + digits;
  } else if (count <= decimal.point) {
    text = digits + std::string(static_cast<size_t>(decimal.point - count), '0');
  } else {
    text = digits.insert(static_cast<size_t>(decimal.point), 1, '.');
  }
  return decimal.negative ? "-" + text : text;
}

int toInteger(double value) {
  const double whole = std::nearbyint(checked(value));  // the default rounding mode is half to even
  if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) fail(FailureNumber::overflow);
  return static_cast<int>(whole);
}

std::chrono::year_month_day today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return std::chrono::year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
}

std::string longDate(std::chrono::year_month_day date) {
  static constexpr std::array<std::string_view, 7> days{
      "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  static constexpr std::array<std::string_view, 12> months{"January",
                                                           "February",
                                                           "March",
                                                           "April",
                                                           "May",
                                                           "June",
                                                           "July",
                                                           "August",
                                                           "September",
                                                           "October",
                                                           "November",
                                                           "December"};
  const std::chrono::weekday day{std::chrono::sys_days{date}};
  return fmt::format("{}, {} {:02}, {}",
                     days.at(day.c_encoding()),
                     months.at(unsigned{date.month()} - 1),
                     unsigned{date.day()},
                     int{date.year()});
}

}  // namespace noldarz
