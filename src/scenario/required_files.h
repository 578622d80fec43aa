// The view `reqfrm`: what the user gets in place of a program that can't open its study, a way to run the setup that
// lays the missing parts down.
#pragma once

#include <string>

#include "platform/desktop.h"
#include "platform/folders.h"
#include "platform/view.h"
#include "scenario/state.h"
#include "study/state.h"

namespace noldarz {

class RequiredFiles {
 public:
  struct Sees {
    Views& views;
    const StudyState& study;
    const Folders& folders;
    Desktop& desktop;
  };
  explicit RequiredFiles(const Sees& sees);

  /// Says that parts are missing, closes the main view, opens this one. `reason`: what the start-up met.
  void open(View& mainView, const std::string& reason);

  View& view() { return view_; }

 private:
  void runsetp_Click();
  void runSetup() const;

  Sees sees_;
  View view_;
  Field& lbl1_;
  Field& reasonlbl_;
  Field& runsetp_;
};

}  // namespace noldarz
