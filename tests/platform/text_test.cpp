#include "platform/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <random>

#include "platform/failure.h"

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

TEST(Rounded, isWhatReadingTheFormatBackGives) {
  const char* patterns[] = {"0", "0.0", "0.00", "0.000", "0.0000", "0.00000"};
  std::mt19937 random{7};
  for (int i = 0; i < 50000; ++i) {
    const int decimals = i % 6;
    double value = std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 50) - 40);
    // Ties and their neighbours, which running sums and halves of two-decimal numbers meet all the time.
    if (i % 3 == 0) value = std::trunc(value * 1e3) / 1e3 + (random() % 2 == 0 ? 0.005 : 0.0055);
    if (i % 7 == 0) value = -value;
    EXPECT_EQ(rounded(value, decimals), strictNumber(Format(value, patterns[decimals]))) << std::hexfloat << value;
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
}

TEST(Text, isTheSameInALocaleWithADecimalComma) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "C.UTF-8"}) std::setlocale(LC_ALL, name);
  EXPECT_EQ(Format(1234.5, "0.00"), "1234.50");
  EXPECT_EQ(plainText(0.5), "0.5");
  EXPECT_EQ(strictNumber("0.5"), 0.5);
  EXPECT_FALSE(isNumeric("0,5"));
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace noldarz
