// Geometry of the isopleths: greatest width and its distance, angle, area, and the flammable mass for a vapour cloud
// explosion. Called by the level passes and the close-out.
#pragma once

#include <initializer_list>
#include <string_view>

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "platform/failure.h"

namespace noldarz {

class Isopleth {
 public:
  struct Sees {
    ModelState& model;
    LevelState& passes;
    const SweepState& sweep;
    PlumeModel& plume;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ResultFields& result;
    Progress& progress;
  };
  explicit Isopleth(const Sees& sees) : sees_(sees) {}

  /// Marches away from the source by sweepStep, from distAt on, while the half width of level widthLevel grows:
  ///
  ///   half width = sqrt(2 * ln(concAt / levelConcAt)) * sigmaYAt        where concAt is above levelConcAt
  ///
  /// and writes `isopwdth` and `distmaxisop` of that level. distAt and halfWidthPrev run on to the next, lower level.
  /// At the maximum distance the march ends with the greatest width found before. A cloud that still widens at
  /// farthestDistance has no greatest width: the mark ">" with that distance takes its place. Does nothing when
  /// widthIdx is above 5.
  ///
  /// Statements fail under the regime of the caller, but for the concentration and the half width: their failure
  /// would repeat at every distance, so it ends the march with the fields as they were.
  void findMaxWidth(const Trap& regime);

  /// Angle and area of a level from its width W, length L and distance of the width D, in two statements under the
  /// regime of the caller; a mark in an input leaves the field as it was.
  ///
  ///   isopang = atan(W / 2 / D) * 57.29 (degrees)       isoparea = (W / 2) * 3.14159 * (L / 2) * 0.0001 (Ha)
  void calcLevelShape(int level, const Trap& regime);

  /// Flammable mass (lbm) into `expmass`, from the isopleths of the levels whose captions name the LEL and the UEL;
  /// "0" when none does. Fails when an input of its own case holds no number; the field then keeps its text.
  void calcFlammableMass();

 private:
  /// Whether the half width grows at every step from distAt to `next`, and the march meets no end on the way.
  bool isWideningTo(double next);
  /// Half width at distAt into halfWidthCur, kept where the concentration is not above the level.
  void calcHalfWidth();
  double levelVolume(int level) const;
  double levelDensity(int level) const;
  bool captionIn(int level, std::initializer_list<std::string_view> texts) const;

  Sees sees_;
};

}  // namespace noldarz
