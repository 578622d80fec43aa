// The rules of the input fields when they are left: heights, distance, terrain, stability class, wind, levels, shares
// of the wind, name of the run. What passes is stored; what does not gives a box and, in most cases, the focus back.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "study/fields.h"
#include "study/links.h"
#include "study/state.h"

namespace noldarz {

class InputRules {
 public:
  struct Sees {
    View& view;
    ModelState& model;
    StudyState& study;
    ContourState& contours;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    const ProjectFields& project;
    const ScenarioFields& scenario;
    MainLinks& links;
    PlumeModel& plume;
    std::function<void()> windRoseTable;  // shares the wind out
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules to the events of the view.
  explicit InputRules(const Sees& sees);

  /// Asks for the run row step: it runs once this event has ended.
  void askForRunRow() { sees_.scenario.tmr_1.enable(); }

 private:
  void htreltxt_LostFocus();
  void enddisttxt_LostFocus();
  void constn_LostFocus(Field& constn);
  void Givnwnd_LostFocus(Field& share);
  void roghwndoptcbo_LostFocus();
  void stblclscbo_LostFocus();
  void stblclscbo_Click();
  /// A class typed whole acts as one chosen.
  void takeTypedClass();
  void wndveltxt_LostFocus();
  void scnrotxtlbl_LostFocus();
  /// The entry checks itself and unchecks the other.
  void chooseLineWidth(bool thin);

  /// A box with the text, and the focus goes back to the field: with the replacement in it if there is one, else with
  /// what the box says as its fault.
  void refuse(Field& field, const std::string& text, std::string_view replacement = {});
  void refuse(Field& field, const MessageBox& box, std::string_view replacement = {});
  void refuseEntry(Field& field);
  void saveHeights();
  void tellClassWind(const std::string& before);

  Sees sees_;
  std::string scnrTextBefore_;  // name of the run when its field took the focus
  bool nameRefused_ = false;    // the focus comes back to it
  bool classTyped_ = false;     // the class was typed, not picked, since its field was left last
};

}  // namespace noldarz
