// The run-time failure of a statement and the two regimes that take it: a trap that does something and goes on
// after the failing statement, and a mode that ignores failures. Every room expresses its regime through this
// header; where a room catches a failure itself, it is to do the statement over or to tell it in other words.
#pragma once

#include <cmath>
#include <exception>
#include <functional>
#include <utility>

namespace noldarz {

/// Run-time error numbers, as some messages show them to the user.
enum class FailureNumber : int {
  invalidArgument = 5,  ///< logarithm or root of a value that has none; a field that can't take the focus
  overflow = 6,         ///< a result outside the range of a double
  divisionByZero = 11,
  typeMismatch = 13,      ///< a text that is no number
  noSuchFolder = 76,      ///< a folder that is not there
  listRefuses = 383,      ///< a text set on a list that has no such entry
  invalidPicture = 481,   ///< a file that is no picture, a damaged or too large one
  updateUnopened = 3020,  ///< an update of a recordset with nothing open for writing
  noCurrentRow = 3021,
  duplicateKey = 3022,
  noSuchFile = 3024,
  readOnly = 3027,
  storeDamaged = 3049,
  querySyntax = 3075,
  storeLocked = 3218,
  noSuchColumn = 3265,
  notAStudy = 3343,
  storeFull = 3414,
  storeFailed = 3000,  ///< any other failure of the database engine
  cadFailed = 32000,   ///< any failure of the CAD; its text tells which
  cancelled = 32755,   ///< a file or printer dialog that the user cancelled
};

/// Failure of one statement. It is ordinary flow (a level with "N.A." in its fields), so it carries no text.
class RuntimeFailure : public std::exception {
 public:
  explicit RuntimeFailure(FailureNumber reason) noexcept : reason_(reason) {}
  FailureNumber reason() const noexcept { return reason_; }
  int number() const noexcept { return static_cast<int>(reason_); }
  const char* what() const noexcept override;

 private:
  FailureNumber reason_;
};

[[noreturn]] void fail(FailureNumber reason);

/// The value itself when it is finite. Used once per arithmetic statement, so that a statement never half-assigns.
/// Fails with overflow for an infinity, with invalidArgument for an undefined value.
inline double checked(double value) {
  if (!std::isfinite(value)) fail(std::isnan(value) ? FailureNumber::invalidArgument : FailureNumber::overflow);
  return value;
}

/// The divisor of a quotient; fails with divisionByZero for 0.
inline double divisor(double value) {
  if (value == 0) fail(FailureNumber::divisionByZero);
  return value;
}

/// Natural logarithm; fails with invalidArgument for 0 and below.
inline double naturalLog(double value) {
  if (!(value > 0)) fail(FailureNumber::invalidArgument);
  return std::log(value);
}

/// Square root; fails with invalidArgument below 0.
inline double squareRoot(double value) {
  if (!(value >= 0)) fail(FailureNumber::invalidArgument);
  return std::sqrt(value);
}

/// A regime in force: runs statements one by one; a failing one has no effect beyond what the trap does, and the
/// next one runs. Only RuntimeFailure is taken: a logic error of ours must surface.
class Trap {
 public:
  using Action = std::function<void(const RuntimeFailure&)>;

  explicit Trap(Action onFailure) : onFailure_(std::move(onFailure)) {}

  /// The regime that ignores a failure.
  static Trap ignoring() { return Trap{Action{}}; }

  template <class Statement>
  void step(Statement&& statement) const {
    try {
      statement();
    } catch (const RuntimeFailure& failure) {
      take(failure);
    }
  }

  template <class... Statements>
  void steps(Statements&&... statements) const {
    (step(statements), ...);
  }

  /// The condition of a branch: a failing one does not enter the branch.
  template <class Condition>
  [[nodiscard]] bool holds(Condition&& condition) const {
    try {
      return condition();
    } catch (const RuntimeFailure& failure) {
      take(failure);
      return false;
    }
  }

 private:
  void take(const RuntimeFailure& failure) const {
    if (onFailure_) onFailure_(failure);
  }

  Action onFailure_;
};

/// Runs the statements; those that fail are passed over.
template <class... Statements>
void silently(Statements&&... statements) {
  Trap::ignoring().steps(statements...);
}

}  // namespace noldarz
