// The status line of a view: what happened last, and what the study could not take, which nothing else tells. The rooms
// that write to the study share it.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/failure.h"
#include "platform/field.h"
#include "platform/store/store_failure.h"
#include "platform/visible_text.h"

namespace noldarz {

class StatusLine {
 public:
  explicit StatusLine(Field& field) : field_(field) {}

  /// Tells what has happened, in place of what was told before; within one act, after it.
  void say(const std::string& text) {
    said_ = acts_ > 0 ? joined(said_, text) : text;
    if (acts_ == 0) advice_.clear();
    show();
  }
  /// What the user may do next, after what has happened.
  void advise(const std::string& text) {
    advice_ = text;
    show();
  }
  /// What has happened, and what is held in front of it, without advice.
  std::string happened() const { return joined(held(), said_); }

  /// While it lives, one act: what its rooms tell is told together.
  class Act {
   public:
    explicit Act(StatusLine& line) : line_(line) {
      if (line_.acts_++ > 0) return;
      line_.said_.clear();
      line_.advice_.clear();
    }
    Act(const Act&) = delete;
    Act& operator=(const Act&) = delete;
    ~Act() { --line_.acts_; }

   private:
    StatusLine& line_;
  };

  /// The regime that skips a failing step; a failure of the store is told.
  Trap skipping() {
    return Trap{[this](const RuntimeFailure& failure) {
      if (const auto* store = dynamic_cast<const StoreFailure*>(&failure)) tellFault(store->what());
    }};
  }

  /// Tells a fault, once within an act. It is known until clearFault().
  void tellFault(const std::string& text) {
    const bool told = std::exchange(fault_, text) == text && acts_ > 0;
    if (!told) say(text);
  }
  void clearFault() { fault_.clear(); }
  bool hasFault() const { return !fault_.empty(); }
  const std::string& fault() const { return fault_; }

  /// What stands in front of all that is told, until the same keeper lets it go by an empty text.
  void hold(const std::string& keeper, const std::string& text) {
    if (held_[keeper] == text) return;
    held_[keeper] = text;
    show();
  }

 private:
  void show() { field_.setCaption(visibleText(joined(happened(), advice_))); }
  std::string held() const {
    std::string all;
    for (const auto& [keeper, text] : held_) all = joined(all, text);
    return all;
  }
  static std::string joined(const std::string& text, const std::string& next) {
    if (text.empty() || next.empty()) return text + next;
    return text + (text.ends_with('.') ? " " : "; ") + next;
  }

  Field& field_;
  std::string said_;
  std::string advice_;
  std::string fault_;
  std::map<std::string, std::string> held_;
  int acts_ = 0;
};

}  // namespace noldarz
