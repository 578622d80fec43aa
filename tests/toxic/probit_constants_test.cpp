#include "toxic/probit_constants.h"

#include <gtest/gtest.h>

namespace noldarz {
namespace {

TEST(ProbitConstants, areThoseOfTheLastRowWhoseWordsStandInTheName) {
  const ProbitValues fallback{"a", "b", "c", "d"};
  const struct {
    const char* chemical;
    ProbitValues values;
  } cases[] = {
      {"Ammonia", {"-15.85", "2.0", "-8.48", "2.0"}},
      {": Chlorine", {"-14.33", "2.3", "-5.84", "2.3"}},
      {"Ethylene Oxide", {"-6.80", "1.0", "-3.11", "1.0"}},
      {"Monoxide of Carbon", {"-7.36", "1.0", "-3.69", "1.0"}},
      {"Hydrogen sulphide", {"-11.5", "1.9", "-4.49", "1.9"}},
      {"hydrogen sulphide", fallback},
      {"Hydrogen Sulphide", fallback},
      {"Sulphur Dioxide", {"-19.19", "2.4", "-10.34", "2.4"}},
      {"Sulphur dioxide", fallback},
      {"Nitrogen dioxide", {"-18.6", "3.7", "-4.96", "3.7"}},
      {"Nitrogen Dioxide", fallback},
      {"Methyl isocyanate", {"-1.23", "0.7", "1.35", "0.7"}},
      {"Carbon Dioxide", fallback},
      {"Phosgene and Ammonia", {"-0.78", "0.9", "2.54", "0.9"}},
      {"Chlorine, Sulphur Dioxide", {"-19.19", "2.4", "-10.34", "2.4"}},
      {"", fallback},
  };
  for (const auto& [chemical, values] : cases) EXPECT_EQ(probitConstantsOf(chemical, fallback), values) << chemical;
}

TEST(ProbitConstants, fillTheStateAndTheFieldsFromTheChemical) {
  Views views;
  View view{views, "v", ""};
  const ScenarioInputs in{view};
  Field& chemical = view.label("chmnmelbl", ": Propane");
  ProbitState state;
  ProbitConstants constants{state, in, chemical};
  constants.prbtLoadConstants();
  EXPECT_EQ(state.prbtAFtl, -10);
  EXPECT_EQ(state.prbtAInj, -5);
  EXPECT_EQ(in.avalinj.text(), "");

  constants.prbtFillDefaults();
  EXPECT_EQ(in.avalftl.text() + in.nvalftl.text() + in.avalinj.text() + in.nvalinj.text(), "-10.02.0-6.02.0");
  EXPECT_FALSE(in.avalftl.enabled());
  EXPECT_EQ(in.prbtoptn.caption(), "Use software default");

  in.prbtoptn.setValue(0);
  in.avalftl.setText("-1");
  constants.prbtFillDefaults();
  EXPECT_EQ(in.avalftl.text(), "-1");
  EXPECT_TRUE(in.avalftl.enabled());
  EXPECT_EQ(in.prbtoptn.caption(), "User input");
  EXPECT_EQ(state.prbtAInj, -5);
}

}  // namespace
}  // namespace noldarz
