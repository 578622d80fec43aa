#include "scenario/level_choice.h"

#include <array>

#include "platform/text.h"

namespace noldarz {

namespace {

// Columns of the chemical, by level.
constexpr std::array<std::string_view, levelCount> limitColumns{"UEL", "LEL", "TEEL3", "TEEL2", "TEEL1", "TEEL0"};

}  // namespace

bool isFlammable(const ProjectFields& project) { return project.naturchem.text() != "Non-Flammable"; }

void nameUpperLevels(const LevelFields& level, const ResultFields& result) {
  level.conclbl[0].setCaption("Conc. 0");
  level.conclbl[1].setCaption("Conc. 1");
  result.expmass.setText(mark::notApplicable);
}

std::string LevelChoice::limit(std::string_view column) {
  sees_.links.dt4.bind(sees_.scenario.conctemp, std::string{column});
  return sees_.links.dt4.hasRow() ? sees_.scenario.conctemp.text() : std::string{};
}

void LevelChoice::fillGaps() {
  for (int i = 0; i < levelCount; ++i)
    if (!sees_.level.constn[i].isNumeric()) sees_.level.constn[i].setText(mark::nothing);
}

void LevelChoice::getconclvl_Click() {
  const Trap skipping = sees_.status.skipping();
  for (int i = 0; i < levelCount; ++i) sees_.level.conclbl[i].setValue(0);
  for (int i = 0; i < levelCount; ++i)
    skipping.step([&] { sees_.level.constn[i].setText(limit(limitColumns.at(static_cast<std::size_t>(i)))); });
  fillGaps();
  if (sees_.links.dt4.database()) skipping.step([&] { sees_.links.dt4.refresh(); });
  for (int i = 0; i < levelCount; ++i) sees_.level.conclbl[i].setCaption(initialLevelCaption(i));
  if (isFlammable(sees_.project))
    skipping.step([&] { putInOrder(); });
  else
    nameUpperLevels(sees_.level, sees_.result);
  skipping.steps([&] { replaceMissing(2, "IDLH"); }, [&] { replaceMissing(5, "TWA"); });
}

bool LevelChoice::wishesReset() {
  MessageBox box = critical("Concentrations required in descending order. Wish to reset in order?");
  box.buttons = Buttons::yesNo;
  box.defaultReply = Reply::yes;
  return sees_.desktop.messageBox(box) == Reply::yes;
}

void LevelChoice::putInOrder() {
  const auto& constn = sees_.level.constn;
  const auto& conclbl = sees_.level.conclbl;
  const auto disordered = [&](int upper) { return constn[upper].number() < constn[upper + 1].number(); };
  const std::array<double, 3> kept{constn[0].number(), constn[1].number(), constn[2].number()};
  if (disordered(1) && wishesReset()) {
    constn[1].setText(plainText(kept[2]));
    constn[2].setText(plainText(kept[1]));
    conclbl[1].setCaption("TEEL3/IDLH:");
    conclbl[2].setCaption("LEL:");
  }
  if (disordered(0) && wishesReset()) {
    constn[0].setText(constn[1].text());
    constn[1].setText(plainText(kept[0]));
    conclbl[0].setCaption("TEEL3/IDLH:");
    conclbl[1].setCaption("UEL:");
  }
  if (disordered(2) && wishesReset())
    for (const auto* pair : {&constn, &conclbl}) {
      const std::string upper = (*pair)[2].text();
      (*pair)[2].setText((*pair)[3].text());
      (*pair)[3].setText(upper);
    }
}

void LevelChoice::replaceMissing(int level, std::string_view column) {
  if (sees_.level.constn[level].text() != mark::nothing) return;
  const std::string text = limit(column);
  sees_.level.conclbl[level].setCaption(std::string{column} + ":");
  sees_.level.constn[level].setText(text);
}

}  // namespace noldarz
