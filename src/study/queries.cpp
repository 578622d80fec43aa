#include "study/queries.h"

#include <fmt/format.h>

#include <algorithm>

#include "platform/store/store_failure.h"
#include "study/layout.h"

namespace noldarz {

namespace {

constexpr std::string_view projectTable{"dsptbl-1"};
constexpr std::string_view runTable{"maimTbl4All"};
constexpr std::size_t runListColumns = 21;

/// "SELECT table.column, table.column" in the order of the layout, of the first so many columns.
std::string selectList(std::string_view table, std::string_view writtenAs, std::size_t count = std::string::npos) {
  std::string list = "SELECT ";
  const auto columns = studyLayout().find(table)->columns;
  for (std::size_t i = 0; i < std::min(columns.size(), count); ++i)
    list += (i == 0 ? "" : ", ") + std::string{writtenAs} + "." + std::string{columns[i].name};
  return list;
}

std::string selectList(std::string_view table, std::size_t count = std::string::npos) {
  return selectList(table, table, count);
}

}  // namespace

std::string faultOfName(std::string_view name) {
  return name.find('\'') == std::string_view::npos ? "" : "holds a single quote ('), which the study does not take";
}

void requirePlain(std::string_view name) {
  if (const std::string fault = faultOfName(name); !fault.empty())
    throw StoreFailure(FailureNumber::querySyntax, fmt::format("The name \"{}\" {}", name, fault));
}

std::string Queries::quoted(std::string_view name) {
  names_.emplace_back(name);
  return "'" + std::string{name} + "'";
}

std::string Queries::runKey() const { return state_.scnrText + project_.refnolbl.caption() + in_.stblclscbo.text(); }

void Queries::buildQryProject() {
  const std::string list = "[dsptbl-1].OrgName, [dsptbl-1].Flamblechemcl, [dsptbl-1].refNo, [dsptbl-1].actvproj";
  state_.qryProject = "SELECT " + list + " From [dsptbl-1] GROUP BY " + list + " HAVING ((([dsptbl-1].actvproj)=-1));";
}

void Queries::buildQryScenario() { state_.qryScenario = selectList("scenr1") + " FROM scenr1;"; }

void Queries::buildQryDisp() {
  state_.qryDisp =
      selectList("Disptbl") + " From Disptbl WHERE (((Disptbl.refNo)=" + quoted(project_.refnolbl.caption()) + "))";
}

void Queries::buildQryOrg() {
  state_.qryOrg =
      selectList("Orgtn") + " From Orgtn WHERE ((Orgtn.OrgName)=" + quoted(project_.Orglbltxt.caption()) + ")";
}

void Queries::buildQryChem() {
  state_.chemName = project_.chmnmelbl.caption();
  project_.chmnmelbl.setCaption(": " + state_.chemName);
  project_.reftmptxt.setText(project_.refnolbl.caption());
  state_.qryChem = selectList(projectTable, "[dsptbl-1]") +
                   " FROM Orgtn INNER JOIN [dsptbl-1] ON Orgtn.OrgName = [dsptbl-1].OrgName WHERE "
                   "((([dsptbl-1].OrgName)=" +
                   quoted(project_.Orglbltxt.caption()) +
                   ") AND (([dsptbl-1].refNo)=" + quoted(project_.reftmptxt.text()) + "));";
}

std::string Queries::runQuery(const std::string& column, std::string_view name) {
  state_.moduleTag = moduleName;
  return selectList(runTable) +
         " From maimTbl4All WHERE (((maimTbl4All.OrgName)=" + quoted(project_.Orglbltxt.caption()) +
         ") AND ((maimTbl4All.refNo)=" + quoted(project_.refnolbl.caption()) + ") AND ((maimTbl4All." + column +
         ")=" + quoted(name) + " ) AND ((maimTbl4All.ScenarioOptn)=" + quoted(state_.moduleTag) + "))";
}

void Queries::buildQryRunByText() {
  state_.qryRunByText = runQuery(state_.selectByUserText != 0 ? "scenariotxtUser" : "scenariotxt", state_.scnrUserText);
}

void Queries::buildQryRunByClass() { state_.qryRunByClass = runQuery("scenariotxt", runKey()); }

void Queries::buildQryRunList() {
  state_.moduleTag = moduleName;
  state_.qryRunList = selectList(runTable, runListColumns) +
                      " From maimTbl4All WHERE (((maimTbl4All.OrgName)=" + quoted(project_.Orglbltxt.caption()) +
                      ") AND ((maimTbl4All.refNo)=" + quoted(project_.refnolbl.caption()) +
                      ") AND ((maimTbl4All.ScenarioOptn)=" + quoted(state_.moduleTag) + "))";
}

std::string Queries::runDetails() const {
  std::string columns = "StblClas, wndvel";
  for (int i = 0; i < levelCount; ++i) columns += fmt::format(", constn{0}, constnTxt{0}, endptn{1}", i + 1, i);
  return "SELECT " + columns + state_.qryRunList.substr(state_.qryRunList.find(" From "));
}

void Queries::buildQryPopulation(const Field& getfrPre) {
  std::string list = selectList("poplatndnstytbl") + " ";
  // Two columns have a blank in front of their comma.
  for (const std::string_view column : {"populatndnsty_4_2", "populatndnsty_6_3"})
    list.insert(list.find(column) + column.size(), " ");
  state_.qryPopulation = list + " From poplatndnstytbl";
  if (getfrPre.value() == 0)
    state_.qryPopulation += " WHERE (((poplatndnstytbl.refNo)=" + quoted(project_.refnolbl.caption()) + "))";
}

}  // namespace noldarz
