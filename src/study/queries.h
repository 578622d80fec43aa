// The query texts of the study, to the letter. A builder joins its text from the names on the main view and opens
// nothing. No character of a name is escaped: a name with a single quote can't be looked up.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/fields.h"
#include "platform/store/data_link.h"
#include "study/fields.h"
#include "study/state.h"

namespace noldarz {

/// Why the study does not take the name, as the end of a sentence that begins with it; empty when it does.
std::string faultOfName(std::string_view name);

/// Fails with querySyntax for a name that the study does not take.
void requirePlain(std::string_view name);

class Queries {
 public:
  Queries(StudyState& state, const ScenarioInputs& in, const ProjectFields& project)
      : state_(state), in_(in), project_(project) {}

  void buildQryProject();
  void buildQryScenario();
  void buildQryDisp();
  void buildQryOrg();
  /// Also keeps the name of the chemical in `chemName`, puts ": " in front of its caption, and copies the reference
  /// number to `reftmptxt`.
  void buildQryChem();
  /// By `scnrUserText`, which is the user's name of the run or, for `selectByUserText` 0, its key text.
  void buildQryRunByText();
  /// By the key text of the scenario and class in force.
  void buildQryRunByClass();
  void buildQryRunList();
  /// The rows of the run list as built last, in its order, with class, wind, levels and where they end.
  std::string runDetails() const;
  /// All rows of all reference numbers when the check field `getfrPre` of the population view is set.
  void buildQryPopulation(const Field& getfrPre);

  /// Builds a text and makes it the record source of the link. Fails with querySyntax when a name in it holds a single
  /// quote: the link then has no record source.
  template <class Build, class... Arguments>
  void use(DataLink& link, Build buildText, const std::string& text, const Arguments&... arguments) {
    link.setRecordSource({});
    build(buildText, arguments...);
    link.setRecordSource(text);
  }

  /// Builds a text. Fails with querySyntax when a name in it holds a single quote.
  template <class Build, class... Arguments>
  void build(Build buildText, const Arguments&... arguments) {
    names_.clear();
    (this->*buildText)(arguments...);
    for (const auto& name : names_) requirePlain(name);
  }

  /// Key text of the run of the scenario and class in force: scenario text, reference number and class.
  std::string runKey() const;

 private:
  std::string quoted(std::string_view name);
  std::string runQuery(const std::string& column, std::string_view name);

  StudyState& state_;
  const ScenarioInputs& in_;
  const ProjectFields& project_;
  std::vector<std::string> names_;  // joined into the last text
};

}  // namespace noldarz
