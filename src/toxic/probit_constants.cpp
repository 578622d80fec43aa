#include "toxic/probit_constants.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/text.h"
#include "study/row_edit.h"

namespace noldarz {

namespace {

struct ProbitRow {
  std::array<std::string_view, 2> words;  // all of them stand in the name of the chemical
  ProbitValues constants;                 // A and B of fatality, A and B of injury
};

constexpr std::array<ProbitRow, 18> table{{
    {{"Ammonia"}, {"-15.85", "2.0", "-8.48", "2.0"}},
    {{"Acrolein"}, {"-4.12", "1.0", "-0.43", "1.0"}},
    {{"Acrylonitirile"}, {"-8.59", "1.3", "-3.79", "1.3"}},
    {{"Bromine"}, {"-12.36", "2.0", "-4.98", "2.0"}},
    {{"Carbon", "Monoxide"}, {"-7.36", "1.0", "-3.69", "1.0"}},
    {{"Chlorine"}, {"-14.33", "2.3", "-5.84", "2.3"}},
    {{"Ethylene", "Oxide"}, {"-6.80", "1.0", "-3.11", "1.0"}},
    {{"Hydrochloric", "acid"}, {"-9.77", "1.0", "-2.99", "1.0"}},
    {{"Hydrogen", "cyanide"}, {"-9.77", "2.4", "-0.91", "2.4"}},
    {{"Hydrogen", "fluoride"}, {"-8.43", "1.5", "-2.9", "1.5"}},
    {{"Hydrogen", "sulphide"}, {"-11.5", "1.9", "-4.49", "1.9"}},
    {{"Methyl", "bromide"}, {"-7.26", "1.1", "-3.2", "1.1"}},
    {{"Methyl", "isocyanate"}, {"-1.23", "0.7", "1.35", "0.7"}},
    {{"Nitrogen", "dioxide"}, {"-18.6", "3.7", "-4.96", "3.7"}},
    {{"Parathion"}, {"-2.48", "1.0", "1.21", "1.0"}},
    {{"Phosgene"}, {"-0.78", "0.9", "2.54", "0.9"}},
    {{"Phosphene"}, {"-2.61", "1.0", "1.08", "1.0"}},
    {{"Sulphur", "Dioxide"}, {"-19.19", "2.4", "-10.34", "2.4"}},
}};

// The injury constant of a chemical that is not in the table differs between the run state and the fields.
constexpr ProbitValues stateFallback{"-10.0", "2.0", "-5.0", "2.0"};
constexpr ProbitValues fieldFallback{"-10.0", "2.0", "-6.0", "2.0"};

constexpr double dryHumidity = 10;     // percent; up to here nothing is corrected
constexpr double greatestEffect = 80;  // percent; a higher humidity has no more effect
constexpr double humidityDivisor = 1800;

}  // namespace

/// A constant with its field, the column of its row, and its base in the run state.
struct ProbitConstants::Constant {
  Field& field;
  const char* column;
  double ProbitState::*base;
};

std::array<ProbitConstants::Constant, 4> ProbitConstants::constantsOf(const ScenarioInputs& in) {
  return {{{in.avalftl, "avalftl", &ProbitState::prbtAFtl},
           {in.nvalftl, "nvalftl", &ProbitState::prbtBFtl},
           {in.avalinj, "avalinj", &ProbitState::prbtAInj},
           {in.nvalinj, "nvalinj", &ProbitState::prbtBInj}}};
}

ProbitValues probitConstantsOf(std::string_view chemical, const ProbitValues& fallback) {
  ProbitValues constants = fallback;
  for (const auto& [words, values] : table)
    if (chemical.find(words[0]) != std::string_view::npos && chemical.find(words[1]) != std::string_view::npos)
      constants = values;
  return constants;
}

ProbitConstants::ProbitConstants(const Sees& sees) : sees_(sees) {
  View& view = sees_.view;
  view.on(sees_.in.prbtoptn, Event::click, [this] {
    prbtoptn_Click();
    if (sees_.links.dt2a.hasRow())
      sees_.status.say(sees_.in.prbtoptn.value() == 1 ? "Stored: constants by software." : "Stored: own constants.");
  });
  for (const auto& constant : constantsOf(sees_.in)) {
    Field& field = constant.field;
    view.on(field, Event::lostFocus, [this, &field] { constant_LostFocus(field); });
  }
  view.on(sees_.in.hudityTxt, Event::gotFocus, [this] {
    if (!std::exchange(humidityRefused_, false)) hadHumidity_ = !sees_.in.hudityTxt.text().empty();
  });
  view.on(sees_.in.hudityTxt, Event::lostFocus, [this] { hudityTxt_LostFocus(); });
}

void ProbitConstants::prbtLoadConstants() {
  const ProbitValues values = probitConstantsOf(sees_.project.chmnmelbl.caption(), stateFallback);
  const auto constants = constantsOf(sees_.in);
  for (std::size_t i = 0; i < values.size(); ++i) sees_.base.*constants[i].base = strictNumber(values[i]);
}

void ProbitConstants::showChoice() {
  const bool own = sees_.in.prbtoptn.value() != 1;
  for (const auto& constant : constantsOf(sees_.in)) constant.field.setEnabled(own);
  sees_.in.prbtoptn.setCaption(own ? "User input" : "Use software default");
}

void ProbitConstants::prbtFillDefaults() {
  const Trap trap{[this](const RuntimeFailure& failure) {
    sees_.desktop.messageBox(information("Msg. No." + std::to_string(failure.number()) +
                                         "\n3. Please check Probit Equation input variables or try again."));
    if (refilling_) return;
    refilling_ = true;
    for (const int value : {0, 1}) {
      sees_.in.prbtoptn.setValue(value);
      silently([&] { prbtoptn_Click(); });
    }
    refilling_ = false;
  }};
  trap.step([&] { showChoice(); });
  if (sees_.in.prbtoptn.value() != 1) return;
  const ProbitValues values = probitConstantsOf(sees_.project.chmnmelbl.caption(), fieldFallback);
  const auto constants = constantsOf(sees_.in);
  for (std::size_t i = 0; i < values.size(); ++i) trap.step([&] { constants[i].field.setText(values[i]); });
}

void ProbitConstants::prbtStoreConstants() {
  bool failed = false;
  const Trap trap{[&](const RuntimeFailure& failure) {
    failed = true;
    sees_.desktop.messageBox(information("Check Variable entered."));
    sees_.command.comput.disable();
    sees_.command.redosimul.disable();
    sees_.status.tellFault(failure.what());
  }};
  const bool stores = sees_.links.dt2a.database() != nullptr;  // else no study is open
  if (stores) RowEdit{sees_.links.dt2a, trap}.setAll(shownCells()).store();
  if (stores && !failed)
    sees_.status.say("Stored: probit constants " + sees_.in.avalftl.text() + ", " + sees_.in.nvalftl.text() + ", " +
                     sees_.in.avalinj.text() + ", " + sees_.in.nvalinj.text() + ".");
  trap.steps([&] { sees_.command.comput.enable(); }, [&] { sees_.command.redosimul.enable(); });
}

ProbitConstants::Cells ProbitConstants::softwareCells() const {
  const ProbitValues values = probitConstantsOf(sees_.project.chmnmelbl.caption(), fieldFallback);
  const auto constants = constantsOf(sees_.in);
  Cells cells;
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = {constants[i].column, std::string{values[i]}};
  return cells;
}

ProbitConstants::Cells ProbitConstants::shownCells() const {
  const auto constants = constantsOf(sees_.in);
  Cells cells;
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = {constants[i].column, constants[i].field.text()};
  return cells;
}

void ProbitConstants::storeChoice() {
  DataLink& row = sees_.links.dt2a;
  const bool own = sees_.in.prbtoptn.value() != 1;
  if (!row.database() || (own && !row.hasRow())) return;
  RowEdit edit{row, sees_.status.skipping()};
  edit.set("prbtoptn", truth(!own));
  if (!own)
    for (const auto& [column, value] : shownCells()) edit.set(column, value);
  edit.store();
}

void ProbitConstants::prbtoptn_Click() {
  const int choice = sees_.in.prbtoptn.value();
  sees_.status.skipping().step([&] { sees_.links.dt2a.prepare(); });
  sees_.in.prbtoptn.setValue(choice);  // the row that was brought may have another one
  if (sees_.in.prbtoptn.value() == 1)
    prbtFillDefaults();
  else
    showChoice();
  storeChoice();
  const Trap skipping = sees_.status.skipping();
  if (sees_.links.dt2a.database()) skipping.step([&] { sees_.links.dt2a.refresh(); });
  takeBase(skipping);
}

void ProbitConstants::takeFromRow(const Trap& regime) {
  if (!sees_.links.dt2a.database()) return;
  for (const auto& constant : constantsOf(sees_.in))
    regime.step([&] { constant.field.setText(textIn(sees_.links.dt2a, constant.column)); });
}

void ProbitConstants::chooseDefaults() {
  const bool wasOwn = sees_.in.prbtoptn.value() != 1;
  sees_.in.prbtoptn.setValue(1);
  prbtFillDefaults();
  if (wasOwn) takeBase(Trap::ignoring());
}

void ProbitConstants::takeChoiceFromRow(const Trap& regime) {
  bool software = sees_.in.prbtoptn.value() == 1;
  regime.step([&] { software = isTrue(sees_.links.dt2a.value("prbtoptn")); });
  if (software) chooseDefaults();
  sees_.in.prbtoptn.setValue(software ? 1 : 0);
  takeFromRow(regime);
  showChoice();
  // The base is that of this run, or leaving the humidity would put those of the chemical, or of another run, in its
  // row.
  if (!software) takeBase(Trap::ignoring());
}

void ProbitConstants::takeBase(const Constant& constant, const Trap& regime) {
  regime.step([&] { sees_.base.*constant.base = constant.field.number(); });
}

void ProbitConstants::takeBase(const Trap& regime) {
  for (const auto& constant : constantsOf(sees_.in)) takeBase(constant, regime);
}

void ProbitConstants::constant_LostFocus(Field& left) {
  prbtStoreConstants();
  const std::string notNumeric = "Should be Numeric";
  for (const auto& constant : constantsOf(sees_.in)) {
    const Trap trap{[&](const RuntimeFailure&) {
      sees_.desktop.messageBox(critical(notNumeric));
      constant.field.setFault(notNumeric);
      silently([&] { sees_.desktop.setFocus(left); });
    }};
    takeBase(constant, trap);
  }
}

void ProbitConstants::refuseHumidity(std::string_view text) {
  sees_.desktop.messageBox(critical(std::string{text}));
  if (sees_.in.hudityTxt.isNumeric())
    sees_.in.hudityTxt.setText(plainText(leastHumidity));
  else
    sees_.in.hudityTxt.setFault(text);
  humidityRefused_ = true;
  silently([&] { sees_.desktop.setFocus(sees_.in.hudityTxt); });
}

void ProbitConstants::hudityTxt_LostFocus() {
  if (sees_.in.hudityTxt.text().empty() && !hadHumidity_) return;  // a new run has none, and nobody has touched it
  if (!sees_.in.hudityTxt.isNumeric()) return refuseHumidity("Percent humidity should be Numeric");
  const double entered = sees_.in.hudityTxt.number();
  if (entered < leastHumidity || entered > mostHumidity)
    return refuseHumidity("Percent humidity should be  between 0.1% to 100%");
  const StatusLine::Act act{sees_.status};
  const std::string text = Format(entered, "0.00");
  sees_.in.hudityTxt.setText(text);
  if (sees_.links.dt2a.database()) sees_.status.skipping().step([&] { sees_.links.dt2a.refresh(); });
  correctForHumidity(strictNumber(text));
  prbtStoreConstants();
}

void ProbitConstants::correctForHumidity(double h) {
  const double e = std::min(h, greatestEffect);
  const auto corrected = [&](double base, double share) {
    return h > dryHumidity ? Format(base + share, "0.00") : plainText(base);
  };
  const auto show = [&](Field& A, double a, Field& B, double b) {
    A.setText(corrected(a, e * (a / humidityDivisor)));
    B.setText(corrected(b, -e * (b / humidityDivisor)));
  };
  show(sees_.in.avalftl, sees_.base.prbtAFtl, sees_.in.nvalftl, sees_.base.prbtBFtl);
  show(sees_.in.avalinj, sees_.base.prbtAInj, sees_.in.nvalinj, sees_.base.prbtBInj);
}

}  // namespace noldarz
