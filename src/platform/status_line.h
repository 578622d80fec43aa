// The status line of a view: what happened last, and what the study could not take, which nothing else tells. The rooms
// that write to the study share it.
#pragma once

#include <string>

#include "platform/failure.h"
#include "platform/field.h"
#include "platform/store/store_failure.h"

namespace noldarz {

class StatusLine {
 public:
  explicit StatusLine(Field& field) : field_(field) {}

  void say(const std::string& text) { field_.setCaption(text); }

  /// The regime that skips a failing step; a failure of the store is told.
  Trap skipping() {
    return Trap{[this](const RuntimeFailure& failure) {
      if (const auto* store = dynamic_cast<const StoreFailure*>(&failure)) tellFault(store->what());
    }};
  }

  /// Tells a fault, which stays until clearFault().
  void tellFault(const std::string& text) {
    fault_ = true;
    say(text);
  }
  void clearFault() { fault_ = false; }
  bool hasFault() const { return fault_; }

 private:
  Field& field_;
  bool fault_ = false;
};

}  // namespace noldarz
