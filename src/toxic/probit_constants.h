// The constants of the two probit expressions: a constant A and an exponent B for fatality and for injury. They come
// from a table of chemicals or from the user, shift with humidity, and are kept in the run row. The limit search reads
// the four fields; the run state keeps the values before a correction for humidity.
#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "engine/fields.h"
#include "platform/desktop.h"
#include "platform/status_line.h"
#include "study/fields.h"
#include "study/links.h"
#include "toxic/state.h"

namespace noldarz {

/// The four constants as they are spelled in fields: A and B of fatality, A and B of injury.
using ProbitValues = std::array<std::string_view, 4>;

class ProbitConstants {
 public:
  struct Sees {
    View& view;
    ProbitState& base;
    const ScenarioInputs& in;
    const CommandFields& command;
    const ProjectFields& project;
    MainLinks& links;
    Desktop& desktop;
    StatusLine& status;
  };
  /// Subscribes the rules of `prbtoptn`, the four fields and `hudityTxt`.
  explicit ProbitConstants(const Sees& sees);

  /// Sets the constants of the run state from the chemical; -10, 2, -5, 2 for one that is not in the table.
  void prbtLoadConstants();
  /// Opens or closes the four fields by `prbtoptn`, and when it is 1 fills them from the chemical; -10, 2, -6, 2 for
  /// one that is not in the table. Touches neither the run state nor the study, but for a failing step, which shows a
  /// box with its number and turns `prbtoptn` off and on again, each with its click.
  void prbtFillDefaults();
  /// Writes the four fields into the run row and opens `comput` and `redosimul`. A failing step shows a box and closes
  /// both commands before the next one runs, so that a failure of the row ends with both open.
  void prbtStoreConstants();
  using Cells = std::array<std::pair<std::string_view, Cell>, 4>;
  /// The constants of the chemical, each with its column of the run row.
  Cells softwareCells() const;

  /// Value 1: the constants of the chemical come into the fields and the run row. Else the fields keep what they show,
  /// and the row the choice. The run state takes the numbers in the fields.
  void prbtoptn_Click();
  /// `prbtoptn` becomes 1, with the constants of the chemical in the fields. The run state takes them in place of the
  /// user's, as a click does; constants that were the chemical's already stay there.
  void chooseDefaults();
  /// The four constants of the run row come into the fields, each as a statement of its own. A cell without a value
  /// leaves its field as it is.
  void takeFromRow(const Trap& regime);
  /// The same, with the choice of `prbtoptn` before them, and constants of the user's own into the run state.
  void takeChoiceFromRow(const Trap& regime);

 private:
  struct Constant;
  static std::array<Constant, 4> constantsOf(const ScenarioInputs& in);

  /// The four fields are open to the user unless `prbtoptn` is 1, and its caption says so.
  void showChoice();
  void constant_LostFocus(Field& left);
  void hudityTxt_LostFocus();
  /// Fills the four fields from the base constants at h percent humidity:
  ///
  ///   A + e * (A / 1800)      B - e * (B / 1800)      e = h, at most 80; no correction up to h = 10
  void correctForHumidity(double h);
  /// The four fields, each with its column of the run row.
  Cells shownCells() const;
  void storeChoice();
  /// The run state takes the numbers in the fields; a text that is none leaves its constant as it was.
  void takeBase(const Trap& regime);
  void takeBase(const Constant& constant, const Trap& regime);
  void refuseHumidity(std::string_view text);

  Sees sees_;
  bool hadHumidity_ = true;       // a text stood in its field when the user came to it
  bool humidityRefused_ = false;  // the focus comes back to it
  bool refilling_ = false;        // a failing step of prbtFillDefaults fills the fields again, but once
};

/// The constants of the chemical, from the last row of the table whose words all stand in the name, case included; the
/// fallback for a name that matches none.
ProbitValues probitConstantsOf(std::string_view chemical, const ProbitValues& fallback);

}  // namespace noldarz
