#include "study/layout.h"

#include <array>

namespace noldarz {

namespace {

using enum ColumnType;

constexpr std::int32_t applicationId = 0x4E4C445A;  // "NLDZ"
constexpr int layoutVersion = 1;

// clang-format off
// One row per project; the main module marks the active one.
constexpr std::array<Column, 58> projectsColumns{{
    {"OrgName", text}, {"refNo", text}, {"Flamblechemcl", text}, {"naturchem", text}, {"phyclstat", any},
    {"eqpthndl", any}, {"dykeReactoropt", any}, {"loctneqpt", any}, {"workpres", any}, {"worktemp", any},
    {"actbpt", any}, {"qntychem", any}, {"Density", any}, {"molwt", any}, {"vapordenty", any}, {"Volatilematter", any},
    {"spficHt", any}, {"SatedVapurPressure", any}, {"Heatvapor", any}, {"htcombustn", any}, {"Radius", any},
    {"pipetxt", any}, {"DnDydimen", any}, {"CrDydimen", any}, {"HtDydimen", any}, {"LEL", text}, {"UEL", text},
    {"IDLH", text}, {"TWA", text}, {"TEEL0", text}, {"TEEL1", text}, {"TEEL2", text}, {"TEEL3", text},
    {"ChkFundtn", any}, {"dspoptn", any}, {"firoptn", any}, {"expoptn", any}, {"actvproj", boolean},
    {"chemnmeTxt0", text}, {"percntcopmTxt0", number}, {"chemnmeTxt1", text}, {"percntcopmTxt1", number},
    {"chemnmeTxt2", text}, {"percntcopmTxt2", number}, {"chemnmeTxt3", text}, {"percntcopmTxt3", number},
    {"chemnmeTxt4", text}, {"percntcopmTxt4", number}, {"chemnmeTxt5", text}, {"percntcopmTxt5", number},
    {"givnwnd1", number}, {"givnwnd2", number}, {"givnwnd3", number}, {"givnwnd4", number}, {"givnwnd5", number},
    {"givnwnd6", number}, {"givnwnd7", number}, {"givnwnd8", number}}};
constexpr std::array<std::string_view, 2> projectsKey{"OrgName", "refNo"};

// The one working scenario is its first row.
constexpr std::array<Column, 11> workingScenarioColumns{{
    {"refno", text}, {"vapordnsty", number}, {"molwttxt", number}, {"scenariotxt", text}, {"scnrotype", text},
    {"QntyRels", text}, {"PoolRadiusRrsls", text}, {"expmass", number}, {"scenariotxtTmp", text},
    {"TemprturTemp", number}, {"StblCls", text}}};

// Heights (m) and terrain of a reference number.
constexpr std::array<Column, 4> heightsColumns{{
    {"refNo", text}, {"htrel", number}, {"htsmul", number}, {"terrain", text}}};
constexpr std::array<std::string_view, 1> heightsKey{"refNo"};

// Organisations, with the scale of their plan.
constexpr std::array<Column, 3> organisationsColumns{{
    {"OrgName", text}, {"baseAng", number}, {"sclenotxt", number}}};
constexpr std::array<std::string_view, 1> organisationsKey{"OrgName"};

// One row per run of a module.
constexpr std::array<Column, 59> runsColumns{{
    {"OrgName", text}, {"refNo", text}, {"scenariotxt", text}, {"scenariotxt_ac", text}, {"scnrotype", text},
    {"ScenarioOptn", text}, {"scenariotxtUser", text}, {"QntyRels", text}, {"PoolRadiusRrsls", text},
    {"expmass", number}, {"Causes", any}, {"FreqncyPerYr", any}, {"NumCase", any}, {"FtlyXcord", number},
    {"FtlyYcord", number}, {"InjXcord", number}, {"InjYcord", number}, {"CumFar", any}, {"PrcntFarTot", any},
    {"AbsltFatlHec", any}, {"SelOptn", any}, {"smothedFeqcy", any}, {"modfatltynum", any}, {"isopAngle", number},
    {"StblClas", text}, {"prbtoptn", boolean}, {"avalftl", text}, {"nvalftl", text}, {"avalinj", text},
    {"nvalinj", text}, {"wndvel", number}, {"bgnptn0", number}, {"endptn0", number}, {"bgnptn1", number},
    {"endptn1", number}, {"bgnptn2", number}, {"endptn2", number}, {"bgnptn3", number}, {"endptn3", number},
    {"bgnptn4", number}, {"endptn4", number}, {"bgnptn5", number}, {"endptn5", number}, {"constn1", number},
    {"constn2", number}, {"constn3", number}, {"constn4", number}, {"constn5", number}, {"constn6", number},
    {"constnTxt1", text}, {"constnTxt2", text}, {"constnTxt3", text}, {"constnTxt4", text}, {"constnTxt5", text},
    {"constnTxt6", text}, {"TemptureTmp", text}, {"Hmudy", number}, {"qntystor", any}, {"pipholradstor", any}}};
constexpr std::array<std::string_view, 4> runsKey{"OrgName", "refNo", "scenariotxt", "ScenarioOptn"};

// Persons per hectare, by compass sector (1 to 8, clockwise from north) and 2 km band (0 to 4).
constexpr std::array<Column, 41> densitiesColumns{{
    {"refNo", text}, {"populatndnsty_1_0", number}, {"populatndnsty_1_1", number}, {"populatndnsty_1_2", number},
    {"populatndnsty_1_3", number}, {"populatndnsty_1_4", number}, {"populatndnsty_2_0", number},
    {"populatndnsty_2_1", number}, {"populatndnsty_2_2", number}, {"populatndnsty_2_3", number},
    {"populatndnsty_2_4", number}, {"populatndnsty_3_0", number}, {"populatndnsty_3_1", number},
    {"populatndnsty_3_2", number}, {"populatndnsty_3_3", number}, {"populatndnsty_3_4", number},
    {"populatndnsty_4_0", number}, {"populatndnsty_4_1", number}, {"populatndnsty_4_2", number},
    {"populatndnsty_4_3", number}, {"populatndnsty_4_4", number}, {"populatndnsty_5_0", number},
    {"populatndnsty_5_1", number}, {"populatndnsty_5_2", number}, {"populatndnsty_5_3", number},
    {"populatndnsty_5_4", number}, {"populatndnsty_6_0", number}, {"populatndnsty_6_1", number},
    {"populatndnsty_6_2", number}, {"populatndnsty_6_3", number}, {"populatndnsty_6_4", number},
    {"populatndnsty_7_0", number}, {"populatndnsty_7_1", number}, {"populatndnsty_7_2", number},
    {"populatndnsty_7_3", number}, {"populatndnsty_7_4", number}, {"populatndnsty_8_0", number},
    {"populatndnsty_8_1", number}, {"populatndnsty_8_2", number}, {"populatndnsty_8_3", number},
    {"populatndnsty_8_4", number}}};
constexpr std::array<std::string_view, 1> densitiesKey{"refNo"};

constexpr std::array<Table, 6> tables{{
    {"dsptbl-1", projectsColumns, projectsKey},
    {"scenr1", workingScenarioColumns, {}},
    {"Disptbl", heightsColumns, heightsKey},
    {"Orgtn", organisationsColumns, organisationsKey},
    {"maimTbl4All", runsColumns, runsKey},
    {"poplatndnstytbl", densitiesColumns, densitiesKey}}};
// clang-format on

constexpr Layout layout{tables, applicationId, layoutVersion};

}  // namespace

const Layout& studyLayout() { return layout; }

}  // namespace noldarz
