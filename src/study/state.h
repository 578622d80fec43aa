// The variables of the study: where it lies, the query texts, and how the row of the run in force is looked up.
#pragma once

#include <cstdint>
#include <string>

#include "platform/variables.h"

namespace noldarz {

struct StudyState {
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
  std::int16_t scnrKeyByText = 0;  ///< 1: the row is looked up by scnrUserText; 0: by scnrText, reference number, class
  std::int16_t selectByUserText = 0;  ///< 1: scnrUserText is a `scenariotxtUser`; 0: a `scenariotxt`
};

/// How contours are drawn: the main view and the plot view choose it.
struct ContourState {
  bool lineWidthFlag = false;  ///< contours are 2 pixels wide, not 4
  std::int16_t lineWidth = 0;  ///< width of the contours (pixels), once it was chosen

  void choose(bool thin) {
    lineWidthFlag = thin;
    lineWidth = thin ? 2 : 4;
  }
};

NOLDARZ_VARIABLES(ContourState, lineWidthFlag, lineWidth);

NOLDARZ_VARIABLES(StudyState, dbPath, moduleTag, chemName, qryProject, qryScenario, qryRunByText, qryRunByClass,
                  qryRunList, qryDisp, qryChem, qryOrg, qryPopulation, scnrText, scnrUserText, scnrKeyByText,
                  selectByUserText);

}  // namespace noldarz
