// The rules of the fields that write to the study when they lose the focus: heights, terrain, stability class, wind, name of
// the run.
#pragma once

#include <string>

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "scenario/links.h"
#include "scenario/state.h"

namespace noldarz {

class InputRules {
 public:
  /// Subscribes the rules to the events of the view.
  InputRules(View& view, ModelState& model, ScenarioState& state, const ScenarioInputs& in, const ResultFields& result,
             const ScenarioFields& fields, MainLinks& links, PlumeModel& plume, Desktop& desktop, StatusLine& status);

  /// Asks for the run row step: it runs once this event has ended.
  void askForRunRow() { fields_.tmr_1.enable(); }

 private:
  void htreltxt_LostFocus();
  void roghwndoptcbo_LostFocus();
  void stblclscbo_LostFocus();
  void stblclscbo_Click();
  void wndveltxt_LostFocus();
  void scnrotxtlbl_LostFocus();
  /// The entry checks itself and unchecks the other.
  void chooseLineWidth(bool thin);

  /// A box with the text, and the focus goes back to the field.
  void refuse(Field& field, const std::string& text);
  void refuseEntry(Field& field);
  void saveHeights();

  ModelState& model_;
  ScenarioState& state_;
  const ScenarioInputs& in_;
  const ResultFields& result_;
  const ScenarioFields& fields_;
  MainLinks& links_;
  PlumeModel& plume_;
  Desktop& desktop_;
  StatusLine& status_;
  std::string scnrTextBefore_;  // name of the run when its field took the focus
};

}  // namespace noldarz
