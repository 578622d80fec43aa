// The physics of a run on its state and fields: wind at the height of release, dispersion coefficients at the two
// distances that the program works at, and the Gaussian concentration formulas. Formulas of numbers alone stand in
// air.h and coefficients.h. Called by the sweeps, the width pass, the plots and the mapping.
#pragma once

#include <cstdint>
#include <limits>

#include "engine/axis_trace.h"
#include "engine/fields.h"
#include "engine/model_inputs.h"
#include "engine/state.h"

namespace noldarz {

/// Counts up with every change of a constant of the model; printed results carry it.
inline constexpr int modelRevision = 1;

/// Absolute temperature of the isopleth tests and of all point evaluations (K); only the search for the peak and the
/// maximum ground concentration take the temperature of the release.
inline constexpr double isoplethTemperature = 300;

class PlumeModel {
 public:
  PlumeModel(ModelState& model,
             const PointQueryState& query,
             const ScenarioInputs& in,
             const LevelFields& level,
             const ResultFields& result);

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

  /// Concentration on the axis (ppm) at a distance whose lateral and vertical coefficients are sy and sz (m), for an
  /// absolute temperature T (K), into `conc`. A release type outside the three leaves it as it was.
  ///
  ///   C = K * R * Y * (Q * 1000) / (6.28318 * sy * sz * u)          "PLUME", "POOL": Q in kg/s
  ///   C = K * R * Y * (Q * 1000) / (6.28318^1.5 * sy^2 * sz)        "PUFF": Q in kg
  ///   R = exp(-0.5 * ((z + H) / sz)^2) + exp(-0.5 * ((H - z) / sz)^2)   reflection at the ground
  ///   Y = exp(-0.5 * (0.00001 / sy)^2)                                  0.00001 m off the axis
  ///   K = (T / M) * 0.08205 * 1000                                      g/m3 to ppm
  ///
  /// Fails with divisionByZero for a coefficient, wind or molecular weight of 0, and as the fields do.
  void plumeConc(double sy, double sz, double T, double& conc);

  /// The concentration at distX with sigmaY and sigmaZ and the temperature of the isopleth tests (ppm).
  void isoplethConc(double& conc);

  /// While it lives, what is worked out at distX is kept and given back when the search comes there again. No input
  /// may change meanwhile.
  class Tracing {
   public:
    explicit Tracing(PlumeModel& plume) : plume_(plume) { plume_.trace_ = &trace_; }
    ~Tracing() { plume_.trace_ = nullptr; }
    Tracing(const Tracing&) = delete;
    Tracing& operator=(const Tracing&) = delete;

   private:
    PlumeModel& plume_;
    AxisTrace trace_;
  };

  /// Candidate of the maximum ground concentration (ppm) into concGround, with S = sigmaZAtMax and sy = sigmaY; a
  /// release type outside the three leaves it as it was. Fails as plumeConc does.
  ///
  ///   ((Q + Q) * 1000) / (H^2 * (u * 8.55118538)) * (S / sy) * 0.08205 * ((Tc + 273) / M) * 1000
  ///   (Q * 1000) / (6.28318^1.5 * sy^2 * S) * exp(-0.5 * (H / S)^2) * 0.08205 * ((Tc + 273) / M) * 1000   "PUFF"
  void calcConcGround();

  /// The point query at distAt: concAt, and unless drawMode is 4 the half width of level plotLevel there (or the half
  /// height when isoElevate is not 0) into halfWidthAt, halfWidthMax and halfWidthAtRounded.
  void calcHalfWidthAt();

  Release release() { return inputs_().release; }
  /// Absolute temperature of the release (K): the number in `tempStore` + 273.
  double releaseTemperature() { return inputs_().Tc.number() + 273; }

 private:
  // What does not change from step to step is kept, with all that it hangs on: the texts of the main view, by their
  // revision, and the variables of the press. The variables are compared one by one: read together as a vector they
  // would wait for the store just made by the routine before.
  struct WindKey {
    std::uint64_t texts;
    double windInput, htRelease;
    bool holds(std::uint64_t revision, const ModelState& m) const {
      return texts == revision && windInput == m.windInput && htRelease == m.htRelease;
    }
  };
  struct GroundKey {
    std::uint64_t texts;
    double htRelease, sigmaZAtMax, windAtHeight;
    bool holds(std::uint64_t revision, const ModelState& m) const {
      return texts == revision && htRelease == m.htRelease && sigmaZAtMax == m.sigmaZAtMax &&
             windAtHeight == m.windAtHeight;
    }
  };
  struct GroundTerms {
    double fixed;                // "PUFF": exp(-0.5 * (H / S)^2), else ((Q + Q) * 1000) / (H^2 * (u * 8.55118538))
    double temperatureByWeight;  // (Tc + 273) / M
  };
  double windNow();
  GroundTerms groundTerms();

  /// K of the concentration formula, kept from call to call.
  double ppmFactor(double T, double M);
  void updateSigmaZBase(double distance, AxisTrace* trace, double& base);
  void updateSigmaZ(double distance, double base, double& sigma);
  void updateSigmaY(double distance, AxisTrace* trace, double& sigma);

  ModelState& model_;
  const PointQueryState& query_;
  ModelInputReader inputs_;
  const LevelFields& level_;
  const ResultFields& result_;
  AxisTrace* trace_ = nullptr;
  WindKey windKey_{};
  double wind_ = 0;
  GroundKey groundKey_{};
  GroundTerms groundTerms_{};
  double ppmTemperature_ = std::numeric_limits<double>::quiet_NaN();  // equal to no temperature
  double ppmWeight_ = 0;
  double ppmFactor_ = 0;
};

}  // namespace noldarz
