#include "study/links.h"

#include "engine/air.h"
#include "study/queries.h"

namespace noldarz {

namespace {

std::string faultOfRunName(const std::string& name) { return name.empty() ? "is no name of a run" : faultOfName(name); }

std::string faultOfTerrain(const std::string& terrain) {
  return isOneOf(terrainEntries, terrain) ? "" : "is no terrain";
}

std::string faultOfHumidity(const std::string& humidity) {
  const ParsedNumber parsed = parseNumber(humidity);
  const bool possible = parsed.isNumber() && parsed.value >= leastHumidity && parsed.value <= mostHumidity;
  return possible ? "" : "% is no relative humidity";
}

std::string faultOfReleaseHeight(const std::string& height) {
  const ParsedNumber parsed = parseNumber(height);
  if (!parsed.isNumber()) return "is no height of release";
  return parsed.value < leastReleaseHeight ? "m is too low for a release" : "";
}

std::string faultOfWind(const std::string& wind) { return isNumeric(wind) ? "" : "is no wind velocity"; }

std::string faultOfWindShare(const std::string& share) {
  const ParsedNumber parsed = parseNumber(share);
  return parsed.outcome == ParsedNumber::Outcome::number && parsed.value >= 0 ? "" : "is no share of the wind";
}

}  // namespace

MainLinks::Told::Told(StatusLine& status)
    : refused([&status](const std::string& text) { status.tellFault(text); }),
      stored([&status](const std::string& words) { status.say("Stored: " + words + "."); }) {}

MainLinks::MainLinks(Databases& databases, const ScenarioInputs& in, const ProjectFields& project, StatusLine& status)
    : told_(status),
      dt1(databases),
      dt2(databases, told_.refused),
      dt2a(databases, told_.refused, told_.stored),
      dt3(databases, told_.refused, told_.stored),
      dt4(databases, told_.refused, told_.stored) {
  dt1.bind(project.Orglbltxt, "OrgName");
  dt1.bind(project.refnolbl, "refNo");
  dt1.bind(project.chmnmelbl, "Flamblechemcl");

  dt2.bind(project.scnrotxt, "scenariotxt");
  dt2.bind(in.scnrotypetxt, "scnrotype");
  dt2.bind(in.QntyRelstxt, "QntyRels");
  dt2.bind(in.PoolRadiusRrslstxt, "PoolRadiusRrsls");
  dt2.bind(in.molwttxt, "molwttxt");
  dt2.bind(in.vapordnstytxt, "vapordnsty");
  dt2.bind(in.tempStore, "TemprturTemp");

  dt2a.bind(project.scnrotxtlbl, "scenariotxtUser", faultOfRunName, "run name \"{}\"");
  dt2a.bind(in.wndveltxt, "wndvel", faultOfWind, "wind velocity {} m/s");
  dt2a.bind(in.hudityTxt, "Hmudy", faultOfHumidity, "relative humidity {} %");

  dt3.bind(in.htreltxt, "htrel", faultOfReleaseHeight, "height of release {} m");
  dt3.bind(in.htsmul, "htsmul", {}, "height of simulation {} m");
  dt3.bind(in.roghwndoptcbo, "terrain", faultOfTerrain, "terrain {}");

  dt4.bind(project.naturchem, "naturchem");
  for (int i = 0; i < in.Givnwnd.size(); ++i)
    dt4.bind(in.Givnwnd[i],
             "givnwnd" + std::to_string(i + 1),
             faultOfWindShare,
             "wind " + in.wndlbl1[i].caption() + " {} %");
}

}  // namespace noldarz
