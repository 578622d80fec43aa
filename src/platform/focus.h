// Where the focus of the user is, and the one rule by which it moves: the field that has it is left first, and its rule
// may keep it. Every front moves its focus here.
#pragma once

#include <utility>

#include "platform/field.h"

namespace noldarz {

class Focus {
 public:
  Field* holder() const { return holder_; }

  /// Moves it; null: to nowhere. The field that had it runs its lostFocus rule first, which may keep the focus or bring
  /// it elsewhere: then it does not move. Tells whether it arrived.
  bool moveTo(Field* field) {
    if (field == holder_) return true;
    if (Field* left = std::exchange(holder_, nullptr)) {
      left->fire(Event::lostFocus);
      if (holder_) return holder_ == field;
    }
    holder_ = field;
    if (field) field->fire(Event::gotFocus);
    return holder_ == field;
  }

  /// Before the user leaves the field: what it asks for is done before he arrives elsewhere.
  void commit() const {
    if (holder_) holder_->fire(Event::commit);
  }

  /// Before its fields go: no field has the focus.
  void forget() { holder_ = nullptr; }

 private:
  Field* holder_ = nullptr;
};

}  // namespace noldarz
