// The captions of the levels: a click on one opens an editor over it, and what is entered there goes into the run row.
#pragma once

#include "engine/fields.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "scenario/fields.h"
#include "study/links.h"

namespace noldarz {

class LevelCaptions {
 public:
  struct Sees {
    View& view;
    const LevelFields& level;
    const ScenarioFields& scenario;
    MainLinks& links;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules of the captions and of their editor `conctxt1`.
  explicit LevelCaptions(const Sees& sees);

 private:
  void conclbl_GotFocus(int level);
  void conclbl_Click(int level);
  void conctxt1_LostFocus();
  /// The caption stays as it was.
  void giveUp();
  /// All six go into the run row in one change.
  void storeCaptions();

  Sees sees_;
  int concEditIdx_ = 0;  // level that the editor is for
};

}  // namespace noldarz
