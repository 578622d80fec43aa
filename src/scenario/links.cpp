#include "scenario/links.h"

#include "engine/air.h"
#include "scenario/queries.h"
#include "toxic/probit_constants.h"

namespace noldarz {

namespace {

std::string faultOfRunName(const std::string& name) { return name.empty() ? "is no name of a run" : faultOfName(name); }

std::string faultOfTerrain(const std::string& terrain) {
  return isOneOf(terrainEntries, terrain) ? "" : "is no terrain";
}

std::string faultOfHumidity(const std::string& humidity) {
  const ParsedNumber parsed = parseNumber(humidity);
  const bool outside =
      parsed.outcome == ParsedNumber::Outcome::number && (parsed.value < leastHumidity || parsed.value > mostHumidity);
  return outside ? "% is no relative humidity" : "";
}

std::string faultOfReleaseHeight(const std::string& height) {
  const ParsedNumber parsed = parseNumber(height);
  const bool low = parsed.outcome == ParsedNumber::Outcome::number && parsed.value < leastReleaseHeight;
  return low ? "m is too low for a release" : "";
}

std::string faultOfWindShare(const std::string& share) {
  const ParsedNumber parsed = parseNumber(share);
  return parsed.outcome == ParsedNumber::Outcome::number && parsed.value >= 0 ? "" : "is no share of the wind";
}

}  // namespace

MainLinks::MainLinks(Databases& databases, const ScenarioInputs& in, const ScenarioFields& fields, StatusLine& status)
    : dt1(databases),
      dt2(databases, [&status](const std::string& text) { status.tellFault(text); }),
      dt2a(databases, [&status](const std::string& text) { status.tellFault(text); }),
      dt3(databases, [&status](const std::string& text) { status.tellFault(text); }),
      dt4(databases, [&status](const std::string& text) { status.tellFault(text); }) {
  dt1.bind(fields.Orglbltxt, "OrgName");
  dt1.bind(fields.refnolbl, "refNo");
  dt1.bind(fields.chmnmelbl, "Flamblechemcl");

  dt2.bind(fields.scnrotxt, "scenariotxt");
  dt2.bind(in.scnrotypetxt, "scnrotype");
  dt2.bind(in.QntyRelstxt, "QntyRels");
  dt2.bind(in.PoolRadiusRrslstxt, "PoolRadiusRrsls");
  dt2.bind(in.molwttxt, "molwttxt");
  dt2.bind(in.vapordnstytxt, "vapordnsty");
  dt2.bind(in.tempStore, "TemprturTemp");

  dt2a.bind(fields.scnrotxtlbl, "scenariotxtUser", faultOfRunName);
  dt2a.bind(in.wndveltxt, "wndvel");
  dt2a.bind(in.hudityTxt, "Hmudy", faultOfHumidity);

  dt3.bind(in.htreltxt, "htrel", faultOfReleaseHeight);
  dt3.bind(in.htsmul, "htsmul");
  dt3.bind(in.roghwndoptcbo, "terrain", faultOfTerrain);

  dt4.bind(fields.naturchem, "naturchem");
  for (int i = 0; i < in.Givnwnd.size(); ++i)
    dt4.bind(in.Givnwnd[i], "givnwnd" + std::to_string(i + 1), faultOfWindShare);
}

}  // namespace noldarz
