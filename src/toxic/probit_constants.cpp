#include "toxic/probit_constants.h"

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

}  // namespace

ProbitValues probitConstantsOf(std::string_view chemical, const ProbitValues& fallback) {
  ProbitValues constants = fallback;
  for (const auto& [words, values] : table)
    if (chemical.find(words[0]) != std::string_view::npos && chemical.find(words[1]) != std::string_view::npos)
      constants = values;
  return constants;
}

void ProbitConstants::prbtLoadConstants() {
  const ProbitValues constants = probitConstantsOf(chemical_.caption(), stateFallback);
  state_ = {
      strictNumber(constants[0]), strictNumber(constants[1]), strictNumber(constants[2]), strictNumber(constants[3])};
}

void ProbitConstants::showChoice() {
  const bool own = in_.prbtoptn.value() != 1;
  for (Field* field : {&in_.avalftl, &in_.nvalftl, &in_.avalinj, &in_.nvalinj}) field->setEnabled(own);
  in_.prbtoptn.setCaption(own ? "User input" : "Use software default");
}

void ProbitConstants::prbtFillDefaults() {
  showChoice();
  if (in_.prbtoptn.value() != 1) return;
  const ProbitValues constants = probitConstantsOf(chemical_.caption(), fieldFallback);
  in_.avalftl.setText(constants[0]);
  in_.nvalftl.setText(constants[1]);
  in_.avalinj.setText(constants[2]);
  in_.nvalinj.setText(constants[3]);
}

}  // namespace noldarz
