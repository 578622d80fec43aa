// The constants of the two probit expressions, by chemical: a constant A and an exponent B for fatality and for injury. The
// limit search reads the four fields; the run state keeps the values before a correction for humidity.
#pragma once

#include <array>
#include <string_view>

#include "engine/fields.h"
#include "toxic/state.h"

namespace noldarz {

/// The four constants as they are spelled in fields: A and B of fatality, A and B of injury.
using ProbitValues = std::array<std::string_view, 4>;

class ProbitConstants {
 public:
  /// `chemical`: the caption with the name of the chemical.
  ProbitConstants(ProbitState& state, const ScenarioInputs& in, const Field& chemical)
      : state_(state), in_(in), chemical_(chemical) {}

  /// Sets the constants of the run state from the chemical; -10, 2, -5, 2 for one that is not in the table.
  void prbtLoadConstants();
  /// Opens or closes the four fields by `prbtoptn`, and when it is 1 fills them from the chemical; -10, 2, -6, 2 for one
  /// that is not in the table. Touches neither the run state nor the study.
  void prbtFillDefaults();
  /// The four fields are open to the user unless `prbtoptn` is 1, and its caption says so.
  void showChoice();

 private:
  ProbitState& state_;
  const ScenarioInputs& in_;
  const Field& chemical_;
};

/// The constants of the chemical, from the last row of the table whose words all stand in the name, case included; the
/// fallback for a name that matches none.
ProbitValues probitConstantsOf(std::string_view chemical, const ProbitValues& fallback);

}  // namespace noldarz
