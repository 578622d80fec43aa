#include "platform/timers.h"

#include <gtest/gtest.h>

#include <string>

namespace noldarz::test {
namespace {

struct Clock {
  Field& timer(const std::string& name, int interval) {
    Field& timer = view.add(FieldKind::timer, name);
    timer.setValue(interval);
    timer.disable();
    return timer;
  }
  Views views;
  View view{views, "v", ""};
  double now = 0;
  std::string fired;
  Timers timers{[this] { return now; },
                [this](Field& timer) {
                  fired += timer.name();
                  timer.disable();
                }};
};

TEST(Timers, fallDueAtOneTimeInTheOrderInWhichTheyBegan) {
  Clock c;
  Field& a = c.timer("a", 100);
  Field& b = c.timer("b", 200);
  Field& d = c.timer("d", 100);
  c.view.load();
  c.timers.watch(c.views);
  b.enable();
  c.now = 100;
  d.enable();
  a.enable();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(c.timers.next()->at, 200);
    c.timers.fireNext();
  }
  EXPECT_EQ(c.fired, "bda");
  EXPECT_FALSE(c.timers.next());
}

TEST(Timers, runBeforeTheirTimeWhenTheUserActs) {
  Clock c;
  Field& late = c.timer("late ", 700);
  Field& soon = c.timer("soon ", 200);
  Field& off = c.timer("off ", 100);
  c.view.load();
  c.timers.watch(c.views);
  late.enable();
  soon.enable();
  off.enable();
  off.disable();
  c.timers.settle();
  EXPECT_EQ(c.fired, "soon late ");
  c.timers.settle();
  EXPECT_EQ(c.fired, "soon late ");
  soon.enable();
  c.view.close();  // timers rest with their view
  c.timers.settle();
  EXPECT_EQ(c.fired, "soon late ");
}

}  // namespace
}  // namespace noldarz::test
