// Inputs as they stood at one moment, and what the user has made of them since: a step that is repeated later must not
// undo what was typed between. The run row step uses it.
#pragma once

#include <string>
#include <vector>

#include "platform/field.h"

namespace noldarz {

class KeptInputs {
 public:
  explicit KeptInputs(const std::vector<Field*>& fields) {
    for (Field* field : fields) inputs_.push_back({field, field->text(), field->value()});
  }

  /// The inputs as they are now, of those that have changed since.
  KeptInputs changes() const {
    std::vector<Field*> changed;
    for (const auto& [field, text, value] : inputs_)
      if (field->text() != text || field->value() != value) changed.push_back(field);
    return KeptInputs{changed};
  }
  bool holds(const Field& field) const {
    for (const Input& input : inputs_)
      if (input.field == &field) return true;
    return false;
  }
  /// Gives the fields what they held.
  void bringBack() const {
    for (const auto& [field, text, value] : inputs_) {
      field->setText(text);
      field->setValue(value);
    }
  }

 private:
  struct Input {
    Field* field;
    std::string text;
    int value;
  };
  std::vector<Input> inputs_;
};

}  // namespace noldarz
