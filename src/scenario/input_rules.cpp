#include "scenario/input_rules.h"

#include <utility>

#include "engine/air.h"
#include "platform/text.h"
#include "study/missing_heights.h"
#include "study/queries.h"
#include "study/row_edit.h"

namespace noldarz {

namespace {

constexpr std::string_view usersClass{"Custom"};
constexpr double farthestSimulation = 50000;  // m, of what is entered; extensions go on
constexpr double nearestSimulation = 1000;    // m

}  // namespace

InputRules::InputRules(const Sees& sees) : sees_(sees) {
  sees_.view.on(sees_.in.htreltxt, Event::lostFocus, [this] { htreltxt_LostFocus(); });
  sees_.view.on(sees_.in.htsmul, Event::lostFocus, [this] { saveHeights(); });
  sees_.view.on(sees_.in.roghwndoptcbo, Event::lostFocus, [this] { roghwndoptcbo_LostFocus(); });
  sees_.view.on(sees_.in.stblclscbo, Event::lostFocus, [this] { stblclscbo_LostFocus(); });
  sees_.view.on(sees_.in.stblclscbo, Event::click, [this] { stblclscbo_Click(); });
  sees_.view.on(sees_.in.stblclscbo, Event::change, [this] { classTyped_ = true; });
  sees_.view.on(sees_.in.stblclscbo, Event::commit, [this] { takeTypedClass(); });
  sees_.view.on(sees_.in.wndveltxt, Event::lostFocus, [this] { wndveltxt_LostFocus(); });
  sees_.view.on(sees_.project.scnrotxtlbl, Event::gotFocus, [this] {
    if (!std::exchange(nameRefused_, false)) scnrTextBefore_ = sees_.project.scnrotxtlbl.text();
  });
  sees_.view.on(sees_.project.scnrotxtlbl, Event::lostFocus, [this] { scnrotxtlbl_LostFocus(); });
  sees_.view.on(sees_.in.enddisttxt, Event::lostFocus, [this] { enddisttxt_LostFocus(); });
  for (int i = 0; i < levelCount; ++i)
    sees_.view.on(
        sees_.level.constn[i], Event::lostFocus, [this, &constn = sees_.level.constn[i]] { constn_LostFocus(constn); });
  for (int i = 0; i < sees_.in.Givnwnd.size(); ++i)
    sees_.view.on(
        sees_.in.Givnwnd[i], Event::lostFocus, [this, &share = sees_.in.Givnwnd[i]] { Givnwnd_LostFocus(share); });
  sees_.view.on(sees_.scenario.no2, Event::click, [this] { chooseLineWidth(true); });
  sees_.view.on(sees_.scenario.no4, Event::click, [this] { chooseLineWidth(false); });
}

void InputRules::refuse(Field& field, const std::string& text, std::string_view replacement) {
  refuse(field, critical(text), replacement);
}

void InputRules::refuse(Field& field, const MessageBox& box, std::string_view replacement) {
  sees_.desktop.messageBox(box);
  if (replacement.empty())
    field.setFault(box.text);
  else
    field.setText(replacement);
  sees_.status.skipping().step([&] { sees_.desktop.setFocus(field); });
}

void InputRules::refuseEntry(Field& field) {
  refuse(field, "Please select from List");
  sees_.desktop.openDropDown(field);
}

void InputRules::saveHeights() {
  sees_.status.skipping().step([&] { sees_.links.dt3.refresh(); });
  sees_.status.hold("heights", missingHeights(sees_.in));
}

void InputRules::htreltxt_LostFocus() {
  if (!sees_.in.htreltxt.isNumeric())
    refuse(sees_.in.htreltxt, "Height of release should be Numeric");
  else if (sees_.in.htreltxt.number() < leastReleaseHeight)
    refuse(sees_.in.htreltxt, "Height of release should be > or = 0.1 m", "1");
  else
    saveHeights();
}

void InputRules::enddisttxt_LostFocus() {
  Field& field = sees_.in.enddisttxt;
  const auto [outcome, distance] = field.parsed();
  if (outcome != ParsedNumber::Outcome::number)
    refuse(field, "Variable should be Numeric", outcome == ParsedNumber::Outcome::outOfRange ? "10000" : "");
  else if (distance > farthestSimulation)
    refuse(field, "Max. Distance for simulation (m) should be < 50000 m", "50000");
  else if (distance < nearestSimulation)
    refuse(field, "Min. Distance for simulation (m) should be > 1000 m", "1000");
}

void InputRules::constn_LostFocus(Field& constn) {
  if (!constn.isNumeric())
    refuse(constn, "ppm should be Numeric");
  else if (constn.number() <= 0)
    refuse(constn, "ppm should be > 0", "1");
}

void InputRules::Givnwnd_LostFocus(Field& share) {
  const bool numeric = share.isNumeric();
  if (numeric && share.number() >= 0) {
    sees_.windRoseTable();
    return;
  }
  if (!numeric) sees_.desktop.messageBox(information("Variable error."));
  refuse(share, information("Variable required."), "0");
}

void InputRules::roghwndoptcbo_LostFocus() {
  if (sees_.in.roghwndoptcbo.wordIndex(terrainEntries) < 0)
    refuseEntry(sees_.in.roghwndoptcbo);
  else
    saveHeights();
}

void InputRules::stblclscbo_LostFocus() {
  if (sees_.in.stblclscbo.wordIndex(stabilityClassEntries) < 0 && sees_.in.stblclscbo.text() != usersClass)
    return refuseEntry(sees_.in.stblclscbo);
  takeTypedClass();
  DataLink& row = sees_.links.dt2a;
  // The row of a class just chosen is looked up once this event has ended: the link stands on the one before.
  const bool awaitsRow = sees_.scenario.tmr_1.enabled() && sees_.study.scnrKeyByText == 0;
  if (awaitsRow && row.hasRow()) return;
  const std::string windBefore = sees_.in.wndveltxt.text();
  const Trap skipping = sees_.status.skipping();
  skipping.step([&] { sees_.plume.setClassWind(); });
  RowEdit{row, skipping}.set("StblClas", sees_.in.stblclscbo.text()).set("wndvel", sees_.model.classWind).store();
  skipping.step([&] { sees_.in.wndveltxt.setPlainNumber(sees_.model.classWind); });
  tellClassWind(windBefore);
}

void InputRules::tellClassWind(const std::string& before) {
  const std::string& now = sees_.in.wndveltxt.text();
  if (now == before || sees_.status.hasFault()) return;
  sees_.status.say("Wind set to " + now + " m/s, usual for class " + sees_.in.stblclscbo.text() +
                   (before.empty() ? "." : " (was " + before + ")."));
}

void InputRules::takeTypedClass() {
  if (std::exchange(classTyped_, false) && sees_.in.stblclscbo.wordIndex(stabilityClassEntries) >= 0)
    stblclscbo_Click();
}

void InputRules::stblclscbo_Click() {
  classTyped_ = false;
  sees_.study.scnrKeyByText = 0;
  askForRunRow();
  sees_.status.skipping().steps([&] { sees_.links.dt2.refresh(); }, [&] { sees_.links.dt2a.refresh(); });
}

void InputRules::wndveltxt_LostFocus() {
  if (!sees_.in.wndveltxt.isNumeric()) {
    MessageBox box = critical("Input Variable error");
    box.title = "QUENDARIS: Error";
    return refuse(sees_.in.wndveltxt, box);
  }
  const Trap skipping = sees_.status.skipping();
  RowEdit{sees_.links.dt2a, skipping}.set("wndvel", [this] { return sees_.in.wndveltxt.number(); }).store();
  skipping.step([&] { sees_.model.windAtHeight = strictNumber(sees_.result.wndvel.caption()); });
}

void InputRules::scnrotxtlbl_LostFocus() {
  const std::string name = sees_.project.scnrotxtlbl.text();
  if (name.empty()) return refuse(sees_.project.scnrotxtlbl, "Please enter scenario text");
  if (const std::string fault = faultOfName(name); !fault.empty()) {
    if (name == scnrTextBefore_)
      return sees_.status.tellFault("The name \"" + name + "\" " + fault);  // not the user's doing
    nameRefused_ = true;
    return refuse(sees_.project.scnrotxtlbl, "Scenario text should not hold a single quote (')");
  }
  sees_.study.scnrUserText = name;
  sees_.study.scnrKeyByText = 1;
  sees_.study.selectByUserText = 1;
  if (name != scnrTextBefore_) askForRunRow();
  scnrTextBefore_.clear();
}

void InputRules::chooseLineWidth(bool thin) {
  sees_.scenario.no2.setValue(thin ? 1 : 0);
  sees_.scenario.no4.setValue(thin ? 0 : 1);
  sees_.contours.choose(thin);
}

}  // namespace noldarz
