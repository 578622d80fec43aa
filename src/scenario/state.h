// The variables that the scenario handling owns: the study, the query texts, and how the row of the run in force is looked
// up.
#pragma once

#include <cstdint>
#include <string>

namespace noldarz {

struct ScenarioState {
  std::string dbPath;     ///< path of the study
  std::string moduleTag;  ///< value of `ScenarioOptn` in the rows of this module
  std::string chemName;   ///< name of the chemical

  // Query texts, as built last.
  std::string qryProject;
  std::string qryScenario;
  std::string qryRunByText;
  std::string qryRunByClass;
  std::string qryRunList;
  std::string qryDisp;
  std::string qryChem;
  std::string qryOrg;
  std::string qryPopulation;

  std::string scnrText;            ///< scenario text in force
  std::string scnrUserText;        ///< name of the run to look up
  std::string stblClassStored;     ///< stability class that the working scenario asks for
  std::int16_t scnrKeyByText = 0;  ///< 1: the row is looked up by scnrUserText; 0: by scnrText, reference number, class
  std::int16_t selectByUserText = 0;  ///< 1: scnrUserText is a `scenariotxtUser`; 0: a `scenariotxt`
  std::int32_t scnrListLast = 0;      ///< base index of the last run of the list, five slots a run

  bool lineWidthFlag = false;  ///< contours are 2 pixels wide, not 4
  std::int16_t lineWidth = 0;  ///< width of the contours (pixels), once it was chosen
  double mapScale = 0;         ///< drawing units per metre
  std::uint64_t mainWnd = 0;   ///< window of the main module, found at the end; 0: none
};

// clang-format off
template <class Each>
void visit(const ScenarioState& state, Each&& each) {
  const auto& [dbPath, moduleTag, chemName, qryProject, qryScenario, qryRunByText, qryRunByClass, qryRunList, qryDisp,
               qryChem, qryOrg, qryPopulation, scnrText, scnrUserText, stblClassStored, scnrKeyByText, selectByUserText,
               scnrListLast, lineWidthFlag, lineWidth, mapScale, mainWnd] = state;
  each("dbPath", dbPath), each("moduleTag", moduleTag), each("chemName", chemName), each("qryProject", qryProject),
  each("qryScenario", qryScenario), each("qryRunByText", qryRunByText), each("qryRunByClass", qryRunByClass),
  each("qryRunList", qryRunList), each("qryDisp", qryDisp), each("qryChem", qryChem), each("qryOrg", qryOrg),
  each("qryPopulation", qryPopulation), each("scnrText", scnrText), each("scnrUserText", scnrUserText),
  each("stblClassStored", stblClassStored), each("scnrKeyByText", scnrKeyByText),
  each("selectByUserText", selectByUserText), each("scnrListLast", scnrListLast),
  each("lineWidthFlag", lineWidthFlag), each("lineWidth", lineWidth), each("mapScale", mapScale), each("mainWnd", mainWnd);
}
// clang-format on

}  // namespace noldarz
