#include "cli/scripted_desktop.h"

#include <gtest/gtest.h>

#include "cli/record_json.h"
#include "cli/script_error.h"
#include "platform/failure.h"
#include "support/record.h"

namespace noldarz {
namespace {

struct Desk {
  test::Record record;
  ScriptedDesktop desktop{record.taker()};
  Views views;
  View view{views, "v", ""};
  Field& a = view.text("a");
  Field& b = view.text("b");
  std::string events;

  Desk() {
    view.show();
    for (Field* field : {&a, &b}) {
      view.on(*field, Event::gotFocus, [this, field] { events += "+" + field->name(); });
      view.on(*field, Event::lostFocus, [this, field] { events += "-" + field->name(); });
    }
  }
};

TEST(ScriptedDesktop, focusRunsTheRulesOfBothFields) {
  Desk d;
  EXPECT_TRUE(d.desktop.moveFocus(&d.a));
  EXPECT_TRUE(d.desktop.moveFocus(&d.a));
  d.desktop.setFocus(d.b);
  EXPECT_TRUE(d.desktop.moveFocus(nullptr));
  EXPECT_EQ(d.events, "+a-a+b-b");
  ASSERT_EQ(d.record.size(), 1U);
  EXPECT_EQ(jsonLine(d.record[0]), "{\"focus\":\"v.b\"}\n");
}

TEST(ScriptedDesktop, ruleMayKeepTheFocusWithoutAFight) {
  Desk d;
  for (Field* field : {&d.a, &d.b}) d.view.on(*field, Event::lostFocus, [&d, field] { d.desktop.setFocus(*field); });
  d.desktop.moveFocus(&d.a);
  EXPECT_FALSE(d.desktop.moveFocus(&d.b));
  EXPECT_EQ(d.desktop.focused(), &d.a);
  EXPECT_EQ(d.events, "+a-a+a");  // the rule of the field that was never reached does not run
}

TEST(ScriptedDesktop, focusNeedsAFieldThatCanTakeIt) {
  Desk d;
  d.a.disable();
  EXPECT_THROW(d.desktop.setFocus(d.a), RuntimeFailure);
  d.view.hide();
  EXPECT_THROW(d.desktop.setFocus(d.b), RuntimeFailure);
  EXPECT_TRUE(d.record.empty());
}

TEST(ScriptedDesktop, repliesComeFromTheQueueOrAreTheDefault) {
  Desk d;
  MessageBox question = information("go on?");
  question.buttons = Buttons::yesNo;
  question.defaultReply = Reply::no;
  EXPECT_EQ(d.desktop.messageBox(question), Reply::no);
  d.desktop.queueReply("yes");
  EXPECT_EQ(d.desktop.messageBox(question), Reply::yes);
  EXPECT_EQ(jsonLine(d.record[1]),
            R"({"box":{"title":"QUENDARIS","text":"go on?","icon":"information","buttons":"yesno",)"
            R"("default":"no","reply":"yes"}})"
            "\n");
  d.desktop.queueReply("ok");
  EXPECT_THROW(d.desktop.messageBox(question), ScriptError);
  EXPECT_EQ(std::get<BoxShown>(d.record[2]).reply, "ok");  // on the record all the same
  d.desktop.queueReply("yes");
  EXPECT_THROW(d.desktop.messageBox(critical("stop")), ScriptError);
}

TEST(ScriptedDesktop, dialogsTakeAPathOrAreCancelled) {
  Desk d;
  const FileDialog dialog{FileDialog::Kind::save, "Save", "*.bmp", "Picture", "bmp"};
  EXPECT_THROW(d.desktop.fileDialog(dialog), RuntimeFailure);
  d.desktop.queueReply("a b.bmp");
  EXPECT_EQ(d.desktop.fileDialog(dialog), "a b.bmp");
  EXPECT_EQ(jsonLine(d.record[1]),
            R"({"dialog":{"kind":"save","title":"Save","filter":"*.bmp","name":"Picture","extension":"bmp",)"
            R"("reply":"a b.bmp"}})"
            "\n");
  EXPECT_THROW(d.desktop.printerDialog(), RuntimeFailure);
  d.desktop.queueReply("ok");
  EXPECT_NO_THROW(d.desktop.printerDialog());
  EXPECT_EQ(jsonLine(d.record.back()), "{\"dialog\":{\"kind\":\"printer\",\"reply\":\"ok\"}}\n");
}

TEST(ScriptedDesktop, timersFireInOrderOfTheirDueTime) {
  Desk d;
  Field& late = d.view.add(FieldKind::timer, "late");
  Field& soon = d.view.add(FieldKind::timer, "soon");
  Field& off = d.view.add(FieldKind::timer, "off");
  late.setValue(700);
  soon.setValue(200);
  off.disable();
  d.view.on(off, Event::timer, [] { ADD_FAILURE(); });
  d.view.on(late, Event::timer, [&] {
    d.events += "late ";
    late.disable();
  });
  int ticks = 0;
  d.view.on(soon, Event::timer, [&] {
    d.events += "soon ";
    if (++ticks == 2) soon.disable();
  });
  d.desktop.watchTimers(d.views);
  d.desktop.runTimers(199);
  EXPECT_EQ(d.events, "");
  d.desktop.runTimers(1);
  EXPECT_EQ(d.events, "soon ");
  d.desktop.runTimers({});
  EXPECT_EQ(d.events, "soon soon late ");
  soon.enable();
  d.desktop.runTimers(150);
  soon.disable();
  soon.enable();  // its interval begins anew
  d.desktop.runTimers(150);
  EXPECT_EQ(d.events, "soon soon late ");
  d.view.close();  // timers rest with their view
  d.desktop.runTimers({});
  EXPECT_EQ(d.events, "soon soon late ");
}

TEST(ScriptedDesktop, timersThatNeverRestAreAnError) {
  Desk d;
  d.view.add(FieldKind::timer, "t");
  d.desktop.watchTimers(d.views);
  EXPECT_THROW(d.desktop.runTimers({}), ScriptError);
}

}  // namespace
}  // namespace noldarz
