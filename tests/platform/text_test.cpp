#include "platform/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <random>

#include "platform/failure.h"
#include "platform/visible_text.h"

namespace noldarz {
namespace {

TEST(ParseNumber, takesNumbersOnly) {
  const struct {
    const char* text;
    double value;
  } numbers[] = {
      {"0", 0},
      {"12.5", 12.5},
      {" 7 ", 7},
      {"\t+3.25", 3.25},
      {"-0.5", -0.5},
      {".5", 0.5},
      {"5.", 5},
      {"1e3", 1000},
      {"1.5E-2", 0.015},
      {"1E+2", 100},
      {"1e-400", 0},
      {"007", 7},
      {"2147483648", 2147483648.0},
      {"0.30000000000000004", 0.30000000000000004},
  };
  for (const auto& [text, value] : numbers) EXPECT_EQ(strictNumber(text), value) << text;

  for (const char* text : {"",   " ", "N.A.", ">10000", "Input Err.", "1,5", "1 2", "inf", "-inf",  "nan", "0x10", "1e",
                           "e5", ".", "+",    "-",      "+-1",        "--1", "- 1", "1d5", "1.2.3", "5m",  "١"}) {
    EXPECT_FALSE(isNumeric(text)) << text;
    try {
      strictNumber(text);
      ADD_FAILURE() << text;
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), 13) << text;
    }
  }
  const std::string zeros(400, '0');
  EXPECT_EQ(strictNumber("0." + zeros + "1e5"), 0);
  EXPECT_EQ(strictNumber("0." + zeros + "25e402"), 25);
  EXPECT_FALSE(isNumeric("1" + zeros + "e-5"));
  EXPECT_EQ(strictNumber("1e-99999999999999999999"), 0);
  for (const char* text : {"1e999", "-1e999", "1e400", "1234567e304"}) {
    EXPECT_FALSE(isNumeric(text)) << text;
    try {
      strictNumber(text);
      ADD_FAILURE() << text;
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), 6) << text;
    }
  }
}

TEST(Format, roundsHalfAwayFromZero) {
  const struct {
    double value;
    const char* pattern;
    const char* text;
  } cases[] = {
      {6.175, "0.00", "6.18"},
      {1.005, "0.00", "1.01"},
      {-6.175, "0.00", "-6.18"},
      {2.5, "0", "3"},
      {-2.5, "0", "-3"},
      {0.5, "0", "1"},
      {0.49999, "0", "0"},
      {-0.001, "0.00", "0.00"},
      {-0.0, "0.00", "0.00"},
      {0, "0.00", "0.00"},
      {999.995, "0.00", "1000.00"},
      {0.995, "0.00", "1.00"},
      {0.0949, "0.0", "0.1"},
      {0.00005, "0.0000", "0.0001"},
      {0.0009, "0.00000", "0.00090"},
      {1234567.891, "0.00", "1234567.89"},
      {123456789012345678.0, "0", "123456789012346000"},
      {1e-20, "0.00000", "0.00000"},
      {0.1 + 0.2, "0.00000", "0.30000"},
      // The 15-digit form decides: the double nearest to 0.285 lies below it.
      {0.285, "0.00", "0.29"},
      {1.115, "0.00", "1.12"},
      {8.325, "0.00", "8.33"},
  };
  for (const auto& [value, pattern, text] : cases) EXPECT_EQ(Format(value, pattern), text) << value;
  EXPECT_EQ(Format("12.345", "0.00"), "12.35");
  for (const char* mark : {"N.A.", ">10000", "Input Err.", "", "Mass = 0"}) EXPECT_EQ(Format(mark, "0.00"), mark);
  EXPECT_THROW(Format(std::numeric_limits<double>::infinity(), "0.00"), RuntimeFailure);
}

/// |value| with so many decimals in units of the last one: 15 significant digits by printf, rounded half up as
/// integers.
std::int64_t unitsOf(double value, int decimals) {
  char text[40];
  std::snprintf(text, sizeof text, "%.14e", std::fabs(value));
  const std::string digits = std::string(1, text[0]) + std::string(text + 2, 14);
  std::int64_t units = std::stoll(digits);
  for (int shift = std::atoi(text + 17) - 14 + decimals; shift != 0; shift += shift < 0 ? 1 : -1) {
    if (shift < -1) units /= 10;  // the digit behind the last decides alone
    if (shift == -1) return (units + 5) / 10;
    if (shift > 0) units *= 10;
  }
  return units;
}

TEST(Rounding, isThatOfTheFifteenDigitForm) {
  const char* patterns[] = {"0", "0.0", "0.00", "0.000", "0.0000", "0.00000"};
  std::mt19937 random{7};
  const auto draw = [&] { return static_cast<double>(random() % 1000000007) / 1000000007; };
  for (int i = 0; i < 60000; ++i) {
    const int decimals = i % 6;
    const double unit = std::pow(10, -decimals);
    double value = draw() * std::pow(10, static_cast<int>(random() % 13) - 3);
    if (i % 2 == 0) value = (std::floor(value / unit) + 0.5) * unit;  // a tie, as near as a double comes
    if (i % 4 == 0) value = std::nextafter(value, random() % 2 == 0 ? 0 : value * 2);  // and its neighbours
    if (i % 8 == 0) value = (std::floor(value / unit) + 0.5 + (draw() - 0.5) * 4e-3) * unit;
    if (i % 7 == 0) value = -value;
    const std::int64_t units = unitsOf(value, decimals);
    const double expected = std::copysign(static_cast<double>(units) / std::pow(10, decimals), units == 0 ? 1 : value);
    ASSERT_EQ(rounded(value, decimals), expected) << std::hexfloat << value << ' ' << decimals;
    ASSERT_EQ(strictNumber(Format(value, patterns[decimals])), expected) << std::hexfloat << value << ' ' << decimals;
  }
  EXPECT_FALSE(std::signbit(rounded(-0.001, 2)));
}

TEST(PlainText, hasFifteenDigitsAndNoTrailingZeros) {
  const struct {
    double value;
    const char* text;
  } cases[] = {
      {12.5, "12.5"},
      {10000, "10000"},
      {0.1, "0.1"},
      {0, "0"},
      {-0.0, "0"},
      {-3.25, "-3.25"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2e15, "2E+15"},
      {1e14, "100000000000000"},
      {0.000012, "0.000012"},
      {1.5e-20, "1.5E-20"},
      {3.5381778726904334, "3.53817787269043"},
      {999999999999999.4, "999999999999999"},
  };
  for (const auto& [value, text] : cases) {
    EXPECT_EQ(plainText(value), text);
    EXPECT_NEAR(strictNumber(plainText(value)), value, std::fabs(value) * 1e-14);
  }
}

TEST(ToInteger, roundsHalfToEven) {
  EXPECT_EQ(toInteger(2.5), 2);
  EXPECT_EQ(toInteger(3.5), 4);
  EXPECT_EQ(toInteger(-0.5), 0);
  EXPECT_THROW(toInteger(3e9), RuntimeFailure);
}

TEST(LongDate, isEnglish) {
  using namespace std::chrono;
  EXPECT_EQ(longDate(2026y / November / 22), "Sunday, November 22, 2026");
  EXPECT_EQ(longDate(2024y / February / 29), "Thursday, February 29, 2024");
  EXPECT_EQ(longDate(2027y / May / 4), "Tuesday, May 04, 2027");
}

TEST(Text, isTheSameInALocaleWithADecimalComma) {
  const std::string folder = testing::TempDir() + "locales";
  std::filesystem::create_directories(folder);
  const std::string make = "localedef -i de_DE -f UTF-8 " + folder + "/de_DE.UTF-8";
  ASSERT_EQ(std::system(make.c_str()), 0);  // NOLINT(cert-env33-c): the one way to have such a locale everywhere
  setenv("LOCPATH", folder.c_str(), 1);
  const std::string before = std::setlocale(LC_ALL, nullptr);
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(Format(1234.5, "0.00"), "1234.50");
  EXPECT_EQ(Format(8.325, "0.00"), "8.33");
  EXPECT_EQ(plainText(0.5), "0.5");
  EXPECT_EQ(plainText(1.5e20), "1.5E+20");
  EXPECT_EQ(strictNumber("0.5"), 0.5);
  EXPECT_FALSE(isNumeric("0,5"));
  std::setlocale(LC_ALL, before.c_str());
}

TEST(VisibleText, showsWhatWouldSteerATerminalAndEscapesItInQuotes) {
  const struct {
    std::string text;
    const char* visible;
    const char* json;
  } cases[] = {{"plain ä °C", "plain ä °C", "plain ä °C"},
               {"a\x1b[2Jb", "a\\u{001B}[2Jb", "a\x1b[2Jb"},
               {"Results\nstored.\t", "Results\\u{000A}stored.\\u{0009}", "Results\nstored.\t"},
               {"\u202egnp.exe", "\\u{202E}gnp.exe", "\\u202Egnp.exe"},
               {"\u0085\u200b\x7f", "\\u{0085}\\u{200B}\\u{007F}", "\\u0085\\u200B\\u007F"},
               {"\U000e0041", "\\u{E0041}", "\\uDB40\\uDC41"},
               {"a\xff"
                "b",
                "a\\x{FF}b",
                "a\xff"
                "b"}};
  for (const auto& [text, visible, json] : cases) {
    EXPECT_EQ(visibleText(text), visible);
    EXPECT_EQ(escapedText(text, Escapes::json), json);
  }
  EXPECT_EQ(escapedText("\U000e0041", Escapes::toml), "\\U000E0041");
  EXPECT_EQ(visibleText("a\nb\r", "\n"), "a\nb\\u{000D}");
}

}  // namespace
}  // namespace noldarz
