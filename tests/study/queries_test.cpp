// The query texts against their printed form (tests/reference/queries.txt: organisation "Acme", reference number "R1",
// scenario "Leak" in class "D", run name "Night").

#include "study/queries.h"

#include <gtest/gtest.h>

#include "platform/store/any_case.h"
#include "platform/store/store_failure.h"
#include "support/reference.h"
#include "support/test_study.h"

namespace noldarz {
namespace {

class QueriesTest : public testing::Test {
 protected:
  QueriesTest() {
    fields.Orglbltxt.setCaption("Acme");
    fields.refnolbl.setCaption("R1");
    fields.chmnmelbl.setCaption("Chlorine");
    in.stblclscbo.setText("D");
    state.scnrText = "Leak";
    state.scnrUserText = "Night";
  }

  Views views;
  View view{views, "v", ""};
  ScenarioInputs in{view};
  ProjectFields fields{view};
  Field& getfrPre = view.add(FieldKind::check, "getfrPre");
  StudyState state;
  Queries queries{state, in, fields};
};

TEST_F(QueriesTest, areJoinedToTheLetter) {
  queries.buildQryProject();
  queries.buildQryScenario();
  queries.buildQryDisp();
  queries.buildQryOrg();
  queries.buildQryChem();
  queries.buildQryRunByClass();
  queries.buildQryRunList();
  std::map<std::string, std::string> built{{"qryProject", state.qryProject},
                                           {"qryScenario", state.qryScenario},
                                           {"qryDisp", state.qryDisp},
                                           {"qryOrg", state.qryOrg},
                                           {"qryChem", state.qryChem},
                                           {"qryRunByClass", state.qryRunByClass},
                                           {"qryRunList", state.qryRunList}};
  for (const int option : {0, 1}) {
    state.selectByUserText = static_cast<std::int16_t>(option);
    queries.buildQryRunByText();
    built["qryRunByText " + std::to_string(option)] = state.qryRunByText;
    getfrPre.setValue(option);
    queries.buildQryPopulation(getfrPre);
    built["qryPopulation " + std::to_string(option)] = state.qryPopulation;
  }
  auto printed = test::openReference("queries.txt");
  int count = 0;
  for (std::string name, text; std::getline(printed, name, '\t') && std::getline(printed, text); ++count)
    EXPECT_EQ(built[name], text) << name;
  EXPECT_EQ(count, 11);
  EXPECT_EQ(fields.chmnmelbl.caption(), ": Chlorine");
  EXPECT_EQ(state.chemName, "Chlorine");
  EXPECT_EQ(fields.reftmptxt.text(), "R1");
  EXPECT_EQ(state.moduleTag, "Dispersion");
}

TEST(AnyCase, comparesLettersOfAnyScriptAndNothingElse) {
  const struct {
    const char *a, *b;
    int order;
  } cases[] = {{"Zone", "zone", 0},
               {"A", "a", 0},
               {"Größe", "GRÖSSE", 0},
               {"Ж", "ж", 0},
               {"[", "{", -1},
               {"@", "`", -1},
               {"a", "B", -1},
               {"z", "A", 1},
               {"", "a", -1}};
  for (const auto& [a, b, order] : cases) {
    const int found = compareWithoutCase(a, b);
    EXPECT_EQ(found < 0 ? -1 : found > 0 ? 1 : 0, order) << a << b;
    EXPECT_EQ(folded(a) == folded(b), order == 0) << a << b;
  }
}

TEST_F(QueriesTest, takeNoNameWithASingleQuote) {
  Databases databases{studyLayout()};
  DataLink link{databases};
  // The second and third are whole statements for the engine, and mean something else.
  for (const char* name : {"O'Brien", "3'' pipe", "x' OR '1'='1"}) {
    state.scnrUserText = name;
    link.setRecordSource("SELECT 1");
    EXPECT_THROW(queries.use(link, &Queries::buildQryRunByText, state.qryRunByText), StoreFailure) << name;
    EXPECT_EQ(link.recordSource(), "");
  }
  state.scnrUserText = "a \"b\" `c` [d]; --";
  queries.use(link, &Queries::buildQryRunByText, state.qryRunByText);
  EXPECT_EQ(link.recordSource(), state.qryRunByText);
}

}  // namespace
}  // namespace noldarz
