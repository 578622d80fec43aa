#include "platform/view.h"

#include <gtest/gtest.h>

namespace noldarz {
namespace {

TEST(View, runsTheRulesOfAnEventInOrder) {
  Views views;
  View view{views, "v", ""};
  Field& a = view.text("a");
  Field& b = view.text("b");
  std::string ran;
  view.on(a, Event::lostFocus, [&] { ran += "1"; });
  view.on(b, Event::lostFocus, [&] { ran += "b"; });
  view.on(a, Event::click, [&] { ran += "c"; });
  view.on(a, Event::lostFocus, [&] {
    ran += "2";
    view.on(a, Event::gotFocus, [&] { ran += "new"; });  // a rule may subscribe another
  });
  a.fire(Event::lostFocus);
  a.fire(Event::gotFocus);
  EXPECT_EQ(ran, "12new");
}

TEST(View, tellsThePointerAndTheKeysToTheRulesOfTheField) {
  Views views;
  View view{views, "v", ""};
  Field& canvas = view.add(FieldKind::picture, "canvas");
  Field& dial = view.add(FieldKind::picture, "dial");
  int acts = 0;
  views.onAct([&] { ++acts; });
  std::string told;
  view.onPointer(canvas, [&](const PointerEvent& p) {
    told += Format(p.x, "0.0") + (p.button == PointerEvent::Button::left ? "L" : "-");
  });
  view.onPointer(dial, [&](const PointerEvent&) { told += "dial"; });
  view.onKey(canvas, [&](const KeyEvent& key) {
    told += key.name;
    canvas.fire(Event::click);  // the same act
  });
  view.pointer(canvas, {PointerEvent::Act::down, PointerEvent::Button::left, 1.5, 2});
  view.pointer(canvas, {.x = 3});
  view.key(canvas, {"Escape"});
  EXPECT_EQ(told, "1.5L3.0-Escape");
  EXPECT_EQ(acts, 3);
}

TEST(View, livesFromShowToClose) {
  Views views;
  View main{views, "main", ""};
  View wait{views, "wait", ""};
  int loads = 0;
  int closes = 0;
  wait.onLoad([&] { ++loads; });
  wait.onClose([&] { ++closes; });

  EXPECT_EQ(views.front(), nullptr);
  wait.close();  // not loaded: nothing to end
  main.show();
  wait.show();
  wait.show();
  EXPECT_EQ(views.front(), &wait);
  wait.hide();
  EXPECT_EQ(views.front(), &main);
  EXPECT_EQ(views.open().size(), 2U);
  wait.close();
  EXPECT_EQ(views.open().size(), 1U);
  wait.show();
  EXPECT_EQ(loads, 2);
  EXPECT_EQ(closes, 1);
  EXPECT_EQ(views.find("wait"), &wait);
  EXPECT_EQ(views.find("other"), nullptr);
}

TEST(View, takesNoInputUnderAModalView) {
  Views views;
  View main{views, "main", ""};
  View report{views, "report", ""};
  View question{views, "question", ""};
  Field& button = main.add(FieldKind::button, "b");
  EXPECT_FALSE(button.usable());  // not shown yet
  main.show();
  EXPECT_TRUE(button.usable());
  button.disable();
  EXPECT_FALSE(button.usable());
  button.enable();
  report.show(true);
  EXPECT_FALSE(button.usable());
  question.show(true);
  EXPECT_FALSE(report.acceptsInput());
  EXPECT_TRUE(question.acceptsInput());
  question.close();
  EXPECT_TRUE(report.acceptsInput());
  report.hide();
  EXPECT_TRUE(button.usable());
}

}  // namespace
}  // namespace noldarz
