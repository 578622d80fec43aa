#include "scenario/input_rules.h"

#include <utility>

#include "engine/air.h"
#include "platform/text.h"
#include "scenario/missing_heights.h"
#include "scenario/queries.h"

namespace noldarz {

namespace {

constexpr std::string_view usersClass{"Custom"};
constexpr double farthestSimulation = 50000;  // m, of what is entered; extensions go on
constexpr double nearestSimulation = 1000;    // m

}  // namespace

InputRules::InputRules(View& view, ModelState& model, ScenarioState& state, const ScenarioInputs& in,
                       const LevelFields& level, const ResultFields& result, const ScenarioFields& fields,
                       MainLinks& links, PlumeModel& plume, WindShare& wind, Desktop& desktop, StatusLine& status)
    : model_(model),
      state_(state),
      in_(in),
      result_(result),
      fields_(fields),
      links_(links),
      plume_(plume),
      wind_(wind),
      desktop_(desktop),
      status_(status) {
  view.on(in_.htreltxt, Event::lostFocus, [this] { htreltxt_LostFocus(); });
  view.on(in_.htsmul, Event::lostFocus, [this] { saveHeights(); });
  view.on(in_.roghwndoptcbo, Event::lostFocus, [this] { roghwndoptcbo_LostFocus(); });
  view.on(in_.stblclscbo, Event::lostFocus, [this] { stblclscbo_LostFocus(); });
  view.on(in_.stblclscbo, Event::click, [this] { stblclscbo_Click(); });
  view.on(in_.stblclscbo, Event::change, [this] { classTyped_ = true; });
  view.on(in_.stblclscbo, Event::commit, [this] { takeTypedClass(); });
  view.on(in_.wndveltxt, Event::lostFocus, [this] { wndveltxt_LostFocus(); });
  view.on(fields_.scnrotxtlbl, Event::gotFocus, [this] {
    if (!std::exchange(nameRefused_, false)) scnrTextBefore_ = fields_.scnrotxtlbl.text();
  });
  view.on(fields_.scnrotxtlbl, Event::lostFocus, [this] { scnrotxtlbl_LostFocus(); });
  view.on(in_.enddisttxt, Event::lostFocus, [this] { enddisttxt_LostFocus(); });
  for (int i = 0; i < levelCount; ++i)
    view.on(level.constn[i], Event::lostFocus, [this, &constn = level.constn[i]] { constn_LostFocus(constn); });
  for (int i = 0; i < in_.Givnwnd.size(); ++i)
    view.on(in_.Givnwnd[i], Event::lostFocus, [this, &share = in_.Givnwnd[i]] { Givnwnd_LostFocus(share); });
  view.on(fields_.no2, Event::click, [this] { chooseLineWidth(true); });
  view.on(fields_.no4, Event::click, [this] { chooseLineWidth(false); });
}

void InputRules::refuse(Field& field, const std::string& text, std::string_view replacement) {
  refuse(field, critical(text), replacement);
}

void InputRules::refuse(Field& field, const MessageBox& box, std::string_view replacement) {
  desktop_.messageBox(box);
  if (replacement.empty())
    field.setFault(box.text);
  else
    field.setText(replacement);
  status_.skipping().step([&] { desktop_.setFocus(field); });
}

void InputRules::refuseEntry(Field& field) {
  refuse(field, "Please select from List");
  desktop_.openDropDown(field);
}

void InputRules::saveHeights() {
  status_.skipping().step([&] { links_.dt3.refresh(); });
  status_.hold("heights", missingHeights(in_));
}

void InputRules::htreltxt_LostFocus() {
  if (!in_.htreltxt.isNumeric())
    refuse(in_.htreltxt, "Height of release should be Numeric");
  else if (in_.htreltxt.number() < leastReleaseHeight)
    refuse(in_.htreltxt, "Height of release should be > or = 0.1 m", "1");
  else
    saveHeights();
}

void InputRules::enddisttxt_LostFocus() {
  Field& field = in_.enddisttxt;
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
    wind_.shareOut();
    return;
  }
  if (!numeric) desktop_.messageBox(information("Variable error."));
  refuse(share, information("Variable required."), "0");
}

void InputRules::roghwndoptcbo_LostFocus() {
  if (in_.roghwndoptcbo.wordIndex(terrainEntries) < 0)
    refuseEntry(in_.roghwndoptcbo);
  else
    saveHeights();
}

void InputRules::stblclscbo_LostFocus() {
  if (in_.stblclscbo.wordIndex(stabilityClassEntries) < 0 && in_.stblclscbo.text() != usersClass)
    return refuseEntry(in_.stblclscbo);
  takeTypedClass();
  DataLink& row = links_.dt2a;
  // The row of a class just chosen is looked up once this event has ended: the link stands on the one before.
  const bool awaitsRow = fields_.tmr_1.enabled() && state_.scnrKeyByText == 0;
  if (awaitsRow && row.hasRow()) return;
  const std::string windBefore = in_.wndveltxt.text();
  status_.skipping().steps([&] { plume_.setClassWind(); },
                           [&] { row.edit(); },
                           [&] { row.set("StblClas", in_.stblclscbo.text()); },
                           [&] { row.set("wndvel", model_.classWind); },
                           [&] { row.update(); },
                           [&] { in_.wndveltxt.setPlainNumber(model_.classWind); });
  tellClassWind(windBefore);
}

void InputRules::tellClassWind(const std::string& before) {
  const std::string& now = in_.wndveltxt.text();
  if (now == before || status_.hasFault()) return;
  status_.say("Wind set to " + now + " m/s, usual for class " + in_.stblclscbo.text() +
              (before.empty() ? "." : " (was " + before + ")."));
}

void InputRules::takeTypedClass() {
  if (std::exchange(classTyped_, false) && in_.stblclscbo.wordIndex(stabilityClassEntries) >= 0) stblclscbo_Click();
}

void InputRules::stblclscbo_Click() {
  classTyped_ = false;
  state_.scnrKeyByText = 0;
  askForRunRow();
  status_.skipping().steps([&] { links_.dt2.refresh(); }, [&] { links_.dt2a.refresh(); });
}

void InputRules::wndveltxt_LostFocus() {
  if (!in_.wndveltxt.isNumeric()) {
    MessageBox box = critical("Input Variable error");
    box.title = "QUENDARIS: Error";
    return refuse(in_.wndveltxt, box);
  }
  DataLink& row = links_.dt2a;
  status_.skipping().steps([&] { row.edit(); },
                           [&] { row.set("wndvel", in_.wndveltxt.number()); },
                           [&] { row.update(); },
                           [&] { model_.windAtHeight = strictNumber(result_.wndvel.caption()); });
}

void InputRules::scnrotxtlbl_LostFocus() {
  const std::string name = fields_.scnrotxtlbl.text();
  if (name.empty()) return refuse(fields_.scnrotxtlbl, "Please enter scenario text");
  if (const std::string fault = faultOfName(name); !fault.empty()) {
    if (name == scnrTextBefore_)
      return status_.tellFault("The name \"" + name + "\" " + fault);  // not the user's doing
    nameRefused_ = true;
    return refuse(fields_.scnrotxtlbl, "Scenario text should not hold a single quote (')");
  }
  state_.scnrUserText = name;
  state_.scnrKeyByText = 1;
  state_.selectByUserText = 1;
  if (name != scnrTextBefore_) askForRunRow();
  scnrTextBefore_.clear();
}

void InputRules::chooseLineWidth(bool thin) {
  fields_.no2.setValue(thin ? 1 : 0);
  fields_.no4.setValue(thin ? 0 : 1);
  state_.lineWidthFlag = thin;
  state_.lineWidth = thin ? 2 : 4;
}

}  // namespace noldarz
