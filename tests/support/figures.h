// What holds of the results of the main view whatever was put in. Tests and fuzzers share it.
#pragma once

#include <string>

#include "engine/fields.h"

namespace noldarz {

/// The first result that is neither a number nor a mark, in words; empty when there is none.
inline std::string faultOfFigures(View& view) {
  for (const Field& field : view.fields()) {
    const std::string& text = field.text();
    const bool known = !field.locked() || field.isNumeric() || text == mark::notApplicable ||
                       text == mark::inputError || text == "Mass = 0" ||
                       (text.starts_with('>') && isNumeric(text.substr(1)));
    if (!known) return field.name() + " holds " + text;
  }
  return "";
}

}  // namespace noldarz
