// The physics of a run on its state and fields: wind at the height of release, dispersion coefficients at the two
// distances that the program works at, and the Gaussian concentration formulas. Formulas of numbers alone stand in
// air.h and coefficients.h. Called by the sweeps, the width pass, the plots and the mapping.
#pragma once

#include <cstdint>
#include <optional>

#include "engine/axis_range.h"
#include "engine/fields.h"
#include "engine/gaussian.h"
#include "engine/model_inputs.h"
#include "engine/state.h"

namespace noldarz {

/// Counts up with every change of a constant of the model; printed results carry it.
inline constexpr int modelRevision = 1;

class PlumeModel {
 public:
  struct Sees {
    ModelState& model;
    const PointQueryState& query;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
  };
  explicit PlumeModel(const Sees& sees) : sees_(sees), inputs_(sees.in) {}

  /// classWind = the default wind of the class; unchanged for "Custom" and any other text.
  void setClassWind();

  /// windAtHeight, worked out anew while mgcPass is 1, and shown in `wndvel` at every call. Called at every step of
  /// a sweep, after calcSigmaZBase, which refreshes windInput.
  void calcWindAtHeight();

  // Coefficients at distX, for the sweeps. A class text outside the tables leaves the coefficient as it was. The
  // base coefficient comes before calcSigmaZ, which reads it, and refreshes windInput from `wndveltxt`.
  void calcSigmaZBase();
  void calcSigmaZ();
  void calcSigmaY();

  // The same at distAt, for point evaluations.
  void calcSigmaZBaseAt();
  void calcSigmaZAt();
  void calcSigmaYAt();

  /// Concentration on the axis (ppm) into `conc`: axisConcentration() of the inputs and the heights and wind of the
  /// press. A release type outside the three leaves it as it was. Fails as the formula and the fields do.
  void plumeConc(double sy, double sz, double T, double& conc);

  /// The concentration at distX with sigmaY and sigmaZ and the temperature of the isopleth tests (ppm).
  void isoplethConc(double& conc);

  /// The concentration over a stretch of the axis, at the temperature of the isopleth tests, with the inputs and the
  /// wind of the press. None where it can't be bounded, or after stepPlainly().
  std::optional<AxisRange> axisRange(double from, double to);

  /// Searches take every step from now on: for tests and benchmarks that compare with it.
  void stepPlainly() { stepsPlainly_ = true; }

  /// groundMaximum() at distX into concGround, with S = sigmaZAtMax and the temperature of the release. A release type
  /// outside the three leaves it as it was. Fails as the formula and the fields do.
  void calcConcGround();

  /// The point query at distAt: concAt, and unless drawMode is 4 the half width of level plotLevel there (or the half
  /// height when isoElevate is not 0) into halfWidthAt, halfWidthMax and halfWidthAtRounded.
  void calcHalfWidthAt();

  Release release() { return inputs_().release; }
  /// Absolute temperature of the release (K): the number in `tempStore` + 273.
  double releaseTemperature() { return inputs_().Tc.number() + zeroCelsius; }

 private:
  /// The release as the formulas take it, from the inputs and the state of the press.
  Source source();
  double windNow();
  void updateSigmaZBase(double distance, double& base);
  void updateSigmaZ(double distance, double base, double& sigma);
  void updateSigmaY(double distance, double& sigma);

  Sees sees_;
  ModelInputReader inputs_;
  bool stepsPlainly_ = false;
  // The wind that calcWindAtHeight has worked out, with all that it hangs on: the texts of the main view, by their
  // revision, the wind entered and the height. Each step of the first sweep asks for the same.
  double wind_ = 0;
  std::uint64_t windTexts_ = 0;
  double windInput_ = 0;
  double windHeight_ = 0;
};

}  // namespace noldarz
