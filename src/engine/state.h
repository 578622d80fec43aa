// The variables that the engine owns, by owner. They live as long as the program, so a value stays until a routine
// writes it again. system/run_state.h joins them with the variables of the other rooms; a routine's class takes only
// the slices that it may touch.
#pragma once

#include <cstdint>

#include "platform/variables.h"

namespace noldarz {

/// Air, coefficients and concentrations of the plume model.
struct ModelState {
  double htRelease = 0;  ///< height of release of this press (m)
  double htSimul = 0;    ///< height of simulation of this press, Z axis (m)

  double classWind = 0;     ///< default wind velocity of the class just chosen (m/s)
  double windInput = 0;     ///< wind velocity selected or entered (m/s)
  double windAtHeight = 0;  ///< modified wind velocity, at the height of release (m/s)

  double distX = 0;       ///< distance at which a sweep step works: distSweep rounded to two decimals (m)
  double sigmaZBase = 0;  ///< vertical coefficient at distX from the class table (m)
  double sigmaZ = 0;      ///< vertical coefficient at distX after the vapour density rule (m)
  double sigmaY = 0;      ///< lateral coefficient at distX (m)

  double distAt = 0;        ///< distance of a point evaluation (m)
  double sigmaZBaseAt = 0;  ///< vertical coefficient at distAt from the class table (m)
  double sigmaZAt = 0;      ///< vertical coefficient at distAt after the vapour density rule (m)
  double sigmaYAt = 0;      ///< lateral coefficient at distAt (m)

  double sigmaZAtMax = 0;  ///< sigma-z of the maximum ground concentration: htRelease / 1.4142 (m)
  double concGround = 0;   ///< candidate of the maximum ground concentration (ppm)
  double concAxis = 0;     ///< centre-line concentration at distX (ppm)
  double concAxisEnd = 0;  ///< the same for the end-point test (ppm)
  double concAt = 0;       ///< centre-line concentration at distAt (ppm)
  double levelConcAt = 0;  ///< level under test at distAt, rounded to two decimals (ppm)

  double halfWidthAt = 0;         ///< half width, or half height, that the point query found (m)
  double halfWidthMax = 0;        ///< greatest half width of a level; the half width of a point query (m)
  double halfWidthAtRounded = 0;  ///< halfWidthMax of a point query, rounded to two decimals (m)

  std::int16_t mgcPass = 0;  ///< 1 during the first sweep: the wind at height is worked out anew
};

/// What a caller of the point query sets: the plots and the mapping.
struct PointQueryState {
  std::int16_t plotLevel = 0;   ///< level of the query, 0 to 5
  std::int16_t drawMode = 0;    ///< 4: the caller wants only concAt
  std::int16_t isoElevate = 0;  ///< not 0: the half height of the cloud, for the side view
};

/// Bounds, switches and finds of the sweeps along the plume axis.
struct SweepState {
  double endDist = 0;    ///< maximum distance of this press (m)
  double distSweep = 0;  ///< loop variable of the current sweep (m)
  double sweepFrom = 0;  ///< start of the next sweep (m)
  double sweepTo = 0;    ///< end of the next sweep; setting distSweep to it ends the running one (m)
  double sweepStep = 0;  ///< step of the next sweep (m)

  double mgc = 0;           ///< maximum ground concentration (ppm)
  double mgcDist = 0;       ///< sweep distance at which it was taken (m)
  double concPeak = 0;      ///< highest concAxis so far (ppm)
  double maxIsopConc = 0;   ///< concentration of the first step past the peak (ppm)
  double maxConcDist = 0;   ///< its distance (m)
  double levelConcBgn = 0;  ///< level under the begin-point test, rounded to two decimals (ppm)
  double levelConcEnd = 0;  ///< level under the end-point test, rounded to two decimals (ppm)
  double bgnPoint = 0;      ///< begin point just found (m)
  double endPoint = 0;      ///< end point just found (m)

  std::int16_t bgnIdx = 0;      ///< next level of the begin-point test; 6: off
  std::int16_t endIdx = 0;      ///< next level of the end-point test; 6: off
  std::int16_t bgnLevel = 0;    ///< copy of bgnIdx while the test runs
  double endLevel = 0;          ///< copy of endIdx while the test runs; a double in the model
  std::int16_t shownLevel = 0;  ///< level on the progress line

  std::int16_t mgcDone = 0;      ///< 1 once the maximum ground concentration is known
  std::int16_t maxConcDone = 0;  ///< 1 once the concentration peak is known
};

/// The level passes of the second press.
struct LevelState {
  double halfWidthPrev = 0;  ///< half width of the step before; runs on from level to level (m)
  double halfWidthLast = 0;  ///< halfWidthPrev when the step began (m)
  double halfWidthCur = 0;   ///< half width of the step (m)
  double maxWidthDist = 0;   ///< distance of the greatest width (m)

  std::int16_t widthIdx = 0;    ///< switch of the width pass; 6: off
  std::int16_t sweepLevel = 0;  ///< level of the end-point passes
  std::int16_t widthLevel = 0;  ///< level of the width pass
  std::int16_t levelIdx = 0;    ///< level whose results are worked out
  std::int16_t firstPass = 0;   ///< 1 from the first press until the end of the level passes
  std::int16_t waitShown = 0;   ///< 1 while the wait view is loaded
};

/// Distance limits of fatality and injury: found by the limit search, cleared when a press begins.
struct LimitState {
  double ftlLimit = 0;  ///< fatality distance limit (m)
  double injLimit = 0;  ///< injury distance limit (m)
};

/// Wind prevalence, as the close-out and the wind roses sum it.
struct WindShareState {
  double windTotal = 0;  ///< sum of the eight orientations (%)
  double calmPct = 0;    ///< what is left for calm (%)
};

NOLDARZ_VARIABLES(ModelState, htRelease, htSimul, classWind, windInput, windAtHeight, distX, sigmaZBase, sigmaZ, sigmaY,
                  distAt, sigmaZBaseAt, sigmaZAt, sigmaYAt, sigmaZAtMax, concGround, concAxis, concAxisEnd, concAt,
                  levelConcAt, halfWidthAt, halfWidthMax, halfWidthAtRounded, mgcPass);

NOLDARZ_VARIABLES(PointQueryState, plotLevel, drawMode, isoElevate);

NOLDARZ_VARIABLES(SweepState, endDist, distSweep, sweepFrom, sweepTo, sweepStep, mgc, mgcDist, concPeak, maxIsopConc,
                  maxConcDist, levelConcBgn, levelConcEnd, bgnPoint, endPoint, bgnIdx, endIdx, bgnLevel, endLevel,
                  shownLevel, mgcDone, maxConcDone);

NOLDARZ_VARIABLES(LevelState, halfWidthPrev, halfWidthLast, halfWidthCur, maxWidthDist, widthIdx, sweepLevel,
                  widthLevel, levelIdx, firstPass, waitShown);

NOLDARZ_VARIABLES(LimitState, ftlLimit, injLimit);

NOLDARZ_VARIABLES(WindShareState, windTotal, calmPct);

struct EngineState : Joined<ModelState, PointQueryState, SweepState, LevelState, LimitState, WindShareState> {};

}  // namespace noldarz
