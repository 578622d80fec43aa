// What a press of Compute asks of the rooms above the engine: the probit constants, the limit search and the rows of
// the study. The rooms implement it; system/ wires it. Without it a press leaves these steps out.
#pragma once

namespace noldarz {

class Effects {
 public:
  Effects() = default;
  Effects(const Effects&) = delete;
  Effects& operator=(const Effects&) = delete;
  virtual ~Effects() = default;

  /// At the start of a press: the constants of the software when `prbtoptn` is 1 (its click), else those of the row.
  virtual void takeProbitConstants() = 0;
  /// Stores the flammable mass (lbm) with the working scenario.
  virtual void storeFlammableMass(double mass) = 0;
  /// Finds and shows the fatality and injury limits of the run; clears the report table first.
  virtual void searchLimits() = 0;
  /// Writes the results of the run into its row.
  virtual void storeRun() = 0;
};

}  // namespace noldarz
