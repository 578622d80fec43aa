// The wait view `aniwait1` while a press runs: its life, its growing shape, its text line and the bar of the limit
// search. Nothing of it takes part in the computation. Called by the sweeps, the width pass and the limit search.
#pragma once

#include <cstdint>
#include <random>
#include <string_view>

#include "engine/fields.h"
#include "engine/state.h"
#include "platform/desktop.h"

namespace noldarz {

class Progress {
 public:
  struct Sees {
    Views& views;
    const ModelState& model;
    SweepState& sweep;
    LevelState& passes;
    const LevelFields& level;
    Desktop& desktop;
  };
  /// Loading the view sets the hourglass and waitShown, closing it clears waitShown.
  explicit Progress(const Sees& sees);

  View& view() { return view_; }
  void show() { view_.show(); }
  void close() { view_.close(); }

  /// One step of the animation: the shape grows by one unit; past its full width the text line is renewed and the
  /// shape starts again in another colour. Fails with divisionByZero for a sweep that ends at 0.
  void showProgress();

  /// How many steps the shape grows before its next turn.
  int stepsToTurn() const;
  /// So many steps at once, all of them before the next turn.
  void skip(int steps);

  /// The limit search begins: its line takes the place of the growing shape.
  void showSearch(std::string_view line);
  /// The limit search has come so far (%).
  void showShare(double percent);

  /// Steps of all searches since the program began: each calls showProgress() once. For benchmarks.
  std::uint64_t stepCount() const { return stepCount_; }

 private:
  std::string textLine();

  Sees sees_;
  View view_;
  WaitFields wait_;
  std::minstd_rand random_;  // for the colour of the shape alone; the same at each start of the program
  std::uint64_t stepCount_ = 0;
  double shownPercent_ = -1;  // of the limit search; -1: none
};

}  // namespace noldarz
