#include "platform/failure.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace noldarz {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

int numberOf(const std::function<void()>& statement) {
  try {
    statement();
  } catch (const RuntimeFailure& failure) {
    return failure.number();
  }
  return 0;
}

TEST(RuntimeFailure, carriesTheNumberThatMessagesShow) {
  EXPECT_EQ(numberOf([] { checked(infinite); }), 6);
  EXPECT_EQ(numberOf([] { checked(infinite - infinite); }), 5);
  EXPECT_EQ(numberOf([] { divisor(0); }), 11);
  EXPECT_EQ(numberOf([] { divisor(-0.0); }), 11);
  EXPECT_EQ(numberOf([] { naturalLog(0); }), 5);
  EXPECT_EQ(numberOf([] { naturalLog(-1); }), 5);
  EXPECT_EQ(numberOf([] { squareRoot(-1e-300); }), 5);
  EXPECT_EQ(numberOf([] { fail(FailureNumber::cancelled); }), 32755);
  EXPECT_EQ(numberOf([] { checked(squareRoot(naturalLog(1))); }), 0);
}

TEST(Trap, goesOnBehindTheFailingStatement) {
  int target = 1;
  std::vector<int> seen;
  const Trap trap{[&](const RuntimeFailure& failure) { seen.push_back(failure.number()); }};
  trap.steps([&] { target = 2; },
             [&] { target = static_cast<int>(checked(infinite)); },  // leaves its target
             [&] { ++target; },
             [&] { fail(FailureNumber::typeMismatch); });
  EXPECT_EQ(target, 3);
  EXPECT_EQ(seen, (std::vector<int>{6, 13}));
  EXPECT_TRUE(trap.holds([] { return true; }));
  EXPECT_FALSE(trap.holds([]() -> bool { fail(FailureNumber::typeMismatch); }));
  EXPECT_EQ(seen.size(), 3U);
}

TEST(Trap, takesNothingButRuntimeFailures) {
  const Trap trap = Trap::ignoring();
  EXPECT_THROW(trap.step([] { throw std::out_of_range("index"); }), std::out_of_range);
  EXPECT_NO_THROW(silently([] { fail(FailureNumber::overflow); }));
}

}  // namespace
}  // namespace noldarz
