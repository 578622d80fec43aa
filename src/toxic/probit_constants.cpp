#include "toxic/probit_constants.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/text.h"

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

ProbitConstants::ProbitConstants(ProbitState& state, const ScenarioInputs& in, const CommandFields& command,
                                 const Field& chemical, Field& redosimul, DataLink& row, Desktop& desktop,
                                 StatusLine& status)
    : state_(state),
      in_(in),
      command_(command),
      chemical_(chemical),
      redosimul_(redosimul),
      row_(row),
      desktop_(desktop),
      status_(status) {}

void ProbitConstants::subscribe(View& view) {
  view.on(in_.prbtoptn, Event::click, [this] {
    prbtoptn_Click();
    if (row_.hasRow())
      status_.say(in_.prbtoptn.value() == 1 ? "Stored: constants by software." : "Stored: own constants.");
  });
  for (const auto& constant : constantsOf(in_)) {
    Field& field = constant.field;
    view.on(field, Event::lostFocus, [this, &field] { constant_LostFocus(field); });
  }
  view.on(in_.hudityTxt, Event::gotFocus, [this] {
    if (!std::exchange(humidityRefused_, false)) hadHumidity_ = !in_.hudityTxt.text().empty();
  });
  view.on(in_.hudityTxt, Event::lostFocus, [this] { hudityTxt_LostFocus(); });
}

void ProbitConstants::prbtLoadConstants() {
  const ProbitValues values = probitConstantsOf(chemical_.caption(), stateFallback);
  const auto constants = constantsOf(in_);
  for (std::size_t i = 0; i < values.size(); ++i) state_.*constants[i].base = strictNumber(values[i]);
}

void ProbitConstants::showChoice() {
  const bool own = in_.prbtoptn.value() != 1;
  for (const auto& constant : constantsOf(in_)) constant.field.setEnabled(own);
  in_.prbtoptn.setCaption(own ? "User input" : "Use software default");
}

void ProbitConstants::prbtFillDefaults() {
  const Trap trap{[this](const RuntimeFailure& failure) {
    desktop_.messageBox(information("Msg. No." + std::to_string(failure.number()) +
                                    "\n3. Please check Probit Equation input variables or try again."));
    if (refilling_) return;
    refilling_ = true;
    for (const int value : {0, 1}) {
      in_.prbtoptn.setValue(value);
      silently([&] { prbtoptn_Click(); });
    }
    refilling_ = false;
  }};
  trap.step([&] { showChoice(); });
  if (in_.prbtoptn.value() != 1) return;
  const ProbitValues values = probitConstantsOf(chemical_.caption(), fieldFallback);
  const auto constants = constantsOf(in_);
  for (std::size_t i = 0; i < values.size(); ++i) trap.step([&] { constants[i].field.setText(values[i]); });
}

void ProbitConstants::prbtStoreConstants() {
  bool failed = false;
  const Trap trap{[&](const RuntimeFailure& failure) {
    failed = true;
    desktop_.messageBox(information("Check Variable entered."));
    command_.comput.disable();
    redosimul_.disable();
    status_.tellFault(failure.what());
  }};
  if (row_.database())  // else no study is open
    trap.steps([&] { row_.edit(); },
               [&] {
                 for (const auto& constant : constantsOf(in_)) row_.set(constant.column, constant.field.text());
               },
               [&] { row_.update(); });
  if (row_.database() && !failed)
    status_.say("Stored: probit constants " + in_.avalftl.text() + ", " + in_.nvalftl.text() + ", " +
                in_.avalinj.text() + ", " + in_.nvalinj.text() + ".");
  trap.steps([&] { command_.comput.enable(); }, [&] { redosimul_.enable(); });
}

std::array<std::pair<std::string_view, std::string_view>, 4> ProbitConstants::softwareCells() const {
  const ProbitValues values = probitConstantsOf(chemical_.caption(), fieldFallback);
  const auto constants = constantsOf(in_);
  std::array<std::pair<std::string_view, std::string_view>, 4> cells;
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = {constants[i].column, values[i]};
  return cells;
}

void ProbitConstants::setCells(const Trap& regime) {
  for (const auto& constant : constantsOf(in_)) regime.step([&] { row_.set(constant.column, constant.field.text()); });
}

void ProbitConstants::storeChoice() {
  const bool own = in_.prbtoptn.value() != 1;
  const Trap skipping = status_.skipping();
  if (!row_.database() || (own && !row_.hasRow())) return;
  skipping.steps([&] { row_.edit(); }, [&] { row_.set("prbtoptn", truth(!own)); });
  if (!own) setCells(skipping);
  skipping.step([&] { row_.update(); });
}

void ProbitConstants::prbtoptn_Click() {
  const int choice = in_.prbtoptn.value();
  status_.skipping().step([&] { row_.prepare(); });
  in_.prbtoptn.setValue(choice);  // the row that was brought may have another one
  if (in_.prbtoptn.value() == 1)
    prbtFillDefaults();
  else
    showChoice();
  storeChoice();
  const Trap skipping = status_.skipping();
  if (row_.database()) skipping.step([&] { row_.refresh(); });
  takeBase(skipping);
}

void ProbitConstants::takeFromRow(const Trap& regime) {
  if (!row_.database()) return;
  for (const auto& constant : constantsOf(in_))
    regime.step([&] { constant.field.setText(textIn(row_, constant.column)); });
}

void ProbitConstants::chooseDefaults() {
  const bool wasOwn = in_.prbtoptn.value() != 1;
  in_.prbtoptn.setValue(1);
  prbtFillDefaults();
  if (wasOwn) takeBase(Trap::ignoring());
}

void ProbitConstants::takeChoiceFromRow(const Trap& regime) {
  bool software = in_.prbtoptn.value() == 1;
  regime.step([&] { software = isTrue(row_.value("prbtoptn")); });
  if (software) chooseDefaults();
  in_.prbtoptn.setValue(software ? 1 : 0);
  takeFromRow(regime);
  showChoice();
  // The base is that of this run, or leaving the humidity would put those of the chemical, or of another run, in its row.
  if (!software) takeBase(Trap::ignoring());
}

void ProbitConstants::takeBase(const Constant& constant, const Trap& regime) {
  regime.step([&] { state_.*constant.base = constant.field.number(); });
}

void ProbitConstants::takeBase(const Trap& regime) {
  for (const auto& constant : constantsOf(in_)) takeBase(constant, regime);
}

void ProbitConstants::constant_LostFocus(Field& left) {
  prbtStoreConstants();
  const std::string notNumeric = "Should be Numeric";
  for (const auto& constant : constantsOf(in_)) {
    const Trap trap{[&](const RuntimeFailure&) {
      desktop_.messageBox(critical(notNumeric));
      constant.field.setFault(notNumeric);
      silently([&] { desktop_.setFocus(left); });
    }};
    takeBase(constant, trap);
  }
}

void ProbitConstants::refuseHumidity(std::string_view text) {
  desktop_.messageBox(critical(std::string{text}));
  if (in_.hudityTxt.isNumeric())
    in_.hudityTxt.setText(plainText(leastHumidity));
  else
    in_.hudityTxt.setFault(text);
  humidityRefused_ = true;
  silently([&] { desktop_.setFocus(in_.hudityTxt); });
}

void ProbitConstants::hudityTxt_LostFocus() {
  if (in_.hudityTxt.text().empty() && !hadHumidity_) return;  // a new run has none, and nobody has touched it
  if (!in_.hudityTxt.isNumeric()) return refuseHumidity("Percent humidity should be Numeric");
  const double entered = in_.hudityTxt.number();
  if (entered < leastHumidity || entered > mostHumidity)
    return refuseHumidity("Percent humidity should be  between 0.1% to 100%");
  const StatusLine::Act act{status_};
  const std::string text = Format(entered, "0.00");
  in_.hudityTxt.setText(text);
  if (row_.database()) status_.skipping().step([&] { row_.refresh(); });
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
  show(in_.avalftl, state_.prbtAFtl, in_.nvalftl, state_.prbtBFtl);
  show(in_.avalinj, state_.prbtAInj, in_.nvalinj, state_.prbtBInj);
}

}  // namespace noldarz
