// Whole runs of two and three presses against figures worked out outside the program: every result field, every box,
// and what is enabled.

#include <gtest/gtest.h>

#include <algorithm>

#include "support/reference.h"
#include "support/test_system.h"

namespace noldarz::test {
namespace {

void checkPress(TestSystem& system, const nlohmann::json& run, const std::string& press) {
  SCOPED_TRACE(press + " press");
  system.press();
  for (const auto& [name, text] : run.at(press).items()) {
    if (name != "enabled") {
      EXPECT_EQ(system.text(name), text.get<std::string>()) << name;
      continue;
    }
    for (const char* field : {"comput",
                              "prntprv",
                              "getconclvl",
                              "constn(0)",
                              "constn(1)",
                              "constn(2)",
                              "constn(3)",
                              "constn(4)",
                              "constn(5)",
                              "htreltxt",
                              "wndveltxt"})
      EXPECT_EQ(system.field(field).enabled(), std::find(text.begin(), text.end(), field) != text.end()) << field;
  }
  auto boxes = system.takeBoxes();
  if (run.contains(press + "BoxCount")) {  // the file then holds the distinct texts in order of first appearance
    EXPECT_EQ(boxes.size(), run.at(press + "BoxCount").get<std::size_t>());
    std::vector<std::string> distinct;
    for (const auto& box : boxes)
      if (std::find(distinct.begin(), distinct.end(), box) == distinct.end()) distinct.push_back(box);
    boxes = distinct;
  }
  EXPECT_EQ(boxes, run.at(press + "Boxes").get<std::vector<std::string>>());
}

/// Replies to all boxes that will come: the next reply of the run to each question, while there is one.
void queueReplies(TestSystem& system, const nlohmann::json& boxes, std::vector<std::string>& replies) {
  if (replies.empty()) return;
  for (const std::string box : boxes) {
    const bool question = box.starts_with("Concentration in ppm");
    if (question && replies.empty()) return;
    system.reply(question ? replies.front() : "ok");
    if (question) replies.erase(replies.begin());
  }
}

void checkRun(const nlohmann::json& run) {
  SCOPED_TRACE(run.at("name").get<std::string>());
  TestSystem system;
  system.set(run.at("set"));
  if (run.contains("conclbl"))
    for (int i = 0; i < levelCount; ++i)
      system.main().level.conclbl[i].setCaption(run["conclbl"][static_cast<std::size_t>(i)].get<std::string>());
  checkPress(system, run, "first");
  system.setLevels(run.at("levels"));
  std::vector<std::string> replies = run.at("replies");
  for (const std::string press : {"second", "third"})
    if (run.contains(press)) {
      if (!run.contains(press + "BoxCount")) queueReplies(system, run.at(press + "Boxes"), replies);
      checkPress(system, run, press);
    }
}

TEST(ReferenceRuns, giveTheSameTexts) {
  const nlohmann::json runs = referenceRuns();
  EXPECT_GE(runs.size(), 80U);
  for (const auto& run : runs) checkRun(run);
}

}  // namespace
}  // namespace noldarz::test
