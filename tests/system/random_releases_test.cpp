// Properties that hold for any release, on thousands of random ones: what the searches find is what plain stepping
// finds, every result is a number or a mark, and lower levels go farther. NOLDARZ_RELEASES sets how many, NOLDARZ_SEED
// with which begin.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

#include "support/chance.h"
#include "support/figures.h"
#include "support/test_system.h"

namespace noldarz::test {
namespace {

int setting(const char* name, int otherwise) {
  const char* text = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return text ? std::atoi(text) : otherwise;
}

using Inputs = std::map<std::string, std::string>;

Inputs randomInputs(Chance& chance) {
  const auto number = [](double value, const char* format) { return Format(value, format); };
  Inputs inputs{{"scnrotypetxt", std::string{chance.oneOf(releaseTypes)}},
                {"QntyRelstxt", number(chance.betweenByOrders(0.01, 5000), "0.000")},
                {"molwttxt", number(chance.between(2, 250), "0.00")},
                {"vapordnstytxt", number(chance.between(0.4, 3.5), "0.00")},
                {"tempStore", number(chance.between(-120, 400), "0.0")},
                {"htreltxt", number(chance.betweenByOrders(0.1, 200), "0.0")},
                {"htsmul", number(chance.between(0, 10), "0.0")},
                {"enddisttxt", number(chance.betweenByOrders(1000, 50000), "0")},
                {"stblclscbo", std::string{chance.oneOf(stabilityClasses)}},
                {"roghwndoptcbo", std::string{chance.oneOf(terrains)}},
                {"wndveltxt", number(chance.between(0.5, 15), "0.0")},
                {"avalftl", number(chance.between(-40, 5), "0.00")},
                {"nvalftl", number(chance.between(-1, 5), "0.0")},
                {"avalinj", number(chance.between(-30, 5), "0.00")},
                {"nvalinj", number(chance.between(-1, 5), "0.0")},
                {"conclbl(1)", std::string{chance.oneOf(std::array{"LEL:", "Conc. 1"})}}};
  // Where a form ends, or one thing equals another.
  if (chance.once(8)) inputs["vapordnstytxt"] = std::string{chance.oneOf(std::array{"1", "1.5", "0.9999", "1.0001"})};
  if (chance.once(8)) inputs["htsmul"] = chance.once(2) ? inputs["htreltxt"] : number(chance.between(-5, 300), "0.0");
  if (chance.once(4)) inputs["htreltxt"] = number(chance.between(200, 1000), "0.0");
  if (chance.once(12)) inputs["tempStore"] = number(chance.between(400, 1500), "0");
  if (chance.once(12)) inputs["enddisttxt"] = number(chance.between(10, 300), "0.0");
  if (chance.once(40)) {  // a text that makes every step fail would show a box each
    inputs["enddisttxt"] = "1000";
    inputs[std::string{chance.oneOf(std::array{"tempStore", "vapordnstytxt"})}] =
        std::string{chance.oneOf(std::array{"", "1,5", "-300", "0"})};
  }
  return inputs;
}

/// Levels below the maximum in descending order, now and then one that is not.
std::vector<std::string> randomLevels(Chance& chance, const std::string& maximum) {
  std::vector<std::string> levels;
  double level = isNumeric(maximum) ? strictNumber(maximum) : 1000;
  for (int i = 0; i < levelCount; ++i) {
    level *= chance.once(60) ? 1.5 : chance.betweenByOrders(0.2, 0.95);
    levels.push_back(Format(level, "0.0000"));
  }
  return levels;
}

/// What a press leaves: every text and value of the view, every number of the run.
std::map<std::string, std::string> outcomeOf(TestSystem& system) {
  std::map<std::string, std::string> outcome;
  for (const Field& field : system.main().view.fields())
    outcome[field.name()] = field.text() + "|" + std::to_string(field.value()) + (field.enabled() ? "" : "|off");
  visitAll(system.state(), [&](std::string_view name, auto variable) {
    outcome["state " + std::string{name}] = testing::PrintToString(variable);
  });
  return outcome;
}

struct Program {
  explicit Program(bool plainly) {  // one Yes, so that a press runs inside a press
    if (plainly) system.session.system().engine().plume.stepPlainly();
    system.session.desktop().answerQuestions(
        [this](const MessageBox&) { return ++questions == 1 ? Reply::yes : Reply::no; });
  }
  void compute(const Inputs& inputs, unsigned seed) {
    system.set(inputs);
    Chance chance{seed};
    system.field("prbtoptn").setValue(chance.once(2) ? 1 : 0);
    system.press();
    system.setLevels(randomLevels(chance, system.text("constn1")));
    system.press();
    boxes = system.takeBoxes();
  }
  TestSystem system;
  std::vector<std::string> boxes;
  int questions = 0;
};

bool isComplete(TestSystem& system, int level) {
  const LevelFields& fields = system.main().level;
  for (const auto* results : {&fields.bgnpt, &fields.endpt, &fields.isoplngt, &fields.isopwdth})
    if (!(*results)[level].isNumeric() || (*results)[level].number() <= 0) return false;
  return true;
}

void expectOrder(TestSystem& system) {
  const LevelFields& level = system.main().level;
  for (int i = 0; i < levelCount; ++i) {
    if (!isComplete(system, i)) continue;
    EXPECT_GE(level.endpt[i].number(), level.bgnpt[i].number()) << "level " << i;
    if (i == 0 || !isComplete(system, i - 1)) continue;
    EXPECT_GE(level.endpt[i].number(), level.endpt[i - 1].number()) << "level " << i;
    EXPECT_GE(level.isoplngt[i].number(), level.isoplngt[i - 1].number()) << "level " << i;
    // The width is looked for every 1 m, too coarsely for a cloud of a few metres.
    if (level.isoplngt[i - 1].number() > 50) {
      EXPECT_GE(level.isopwdth[i].number(), level.isopwdth[i - 1].number()) << "level " << i;
    }
  }
}

TEST(RandomReleases, giveWhatPlainSteppingGives) {
  const int count = setting("NOLDARZ_RELEASES", 2000);
  const auto first = static_cast<unsigned>(setting("NOLDARZ_SEED", 1));
  std::uint64_t complete = 0;
  for (unsigned seed = first; seed < first + static_cast<unsigned>(count) && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("NOLDARZ_SEED=" + std::to_string(seed) + " NOLDARZ_RELEASES=1");
    Chance chance{seed};
    const Inputs inputs = randomInputs(chance);
    Program searched{false};
    Program stepped{true};
    for (Program* program : {&searched, &stepped}) {
      program->compute(inputs, seed);
      if (seed % 4 != 0) continue;  // else another run of the same program, on what the first one left
      program->system.field("redosimul").fire(Event::click);
      program->compute(inputs, seed + 1);
    }
    const auto found = outcomeOf(searched.system);
    for (const auto& [name, value] : outcomeOf(stepped.system)) EXPECT_EQ(found.at(name), value) << name;
    EXPECT_EQ(searched.boxes, stepped.boxes);
    EXPECT_EQ(faultOfFigures(searched.system.main().view), "");
    // A level that an extended press left open keeps what the press before found.
    if (searched.questions == 0) expectOrder(searched.system);
    if (isComplete(searched.system, levelCount - 1)) ++complete;
  }
  EXPECT_TRUE(count < 100 || complete > static_cast<std::uint64_t>(count) / 3) << complete;
}

}  // namespace
}  // namespace noldarz::test
