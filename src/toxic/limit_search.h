// The limit search: goes downwind through the cloud, lets a person walk out of it at each distance, and gets three
// products out of one loop: the distances past which nobody dies or is hurt, the rows of the report table, the profile
// chart. The close-out asks for the limits, the report for the table, the plot view for the chart.
#pragma once

#include <cstdint>

#include "engine/fields.h"
#include "engine/plume_model.h"
#include "engine/progress.h"
#include "engine/state.h"
#include "platform/desktop.h"
#include "toxic/crosswind_walk.h"
#include "toxic/fields.h"
#include "toxic/state.h"

namespace noldarz {

/// Takes the profile chart, in millimetres of the canvas, the origin top left.
class ProfileSink {
 public:
  ProfileSink() = default;
  ProfileSink(const ProfileSink&) = delete;
  ProfileSink& operator=(const ProfileSink&) = delete;
  virtual ~ProfileSink() = default;

  /// Before the first segment; the scales of the chart are in the run state.
  virtual void drawFrame() = 0;
  virtual void drawSegment(double x1, double y1, double x2, double y2, Colour colour) = 0;
};

class LimitSearch {
 public:
  struct Sees {
    Views& views;
    ModelState& model;
    LimitSearchState& search;
    RawLimitState& rawLimits;
    ReportTableState& table;
    const LevelState& passes;
    PlumeModel& plume;
    const ScenarioInputs& in;
    const LevelFields& level;
    const ToxicFields& toxic;
    Progress& progress;
    Desktop& desktop;
  };
  explicit LimitSearch(const Sees& sees);

  /// The progress view of what is drawn.
  ProfileProgress& profileProgress() { return profileProgress_; }

  /// The limits alone, into ftlLimitRaw and injLimitRaw: every 1 m up to 1000 m, beyond by a thousandth of the way
  /// rounded to whole metres, so at some 1500 distances at most.
  void findLimits();
  /// Whether the last findLimits() has come to its end: there was a way to walk, and no input failed.
  bool foundLimits() const { return found_; }
  /// The rows of prbtTable, whose 20 rows the caller has cleared: a twentieth of the way apart, from the begin of level
  /// 0 on.
  void fillTable() { prbtRun(Product::table, nullptr); }
  /// The profile chart, at the distances of findLimits.
  void drawProfile(ProfileSink& chart) { prbtRun(Product::profile, &chart); }

  /// axisConcentration() at distAt, at 300 K, into concPrbt (ppm), with the coefficients that the caller has refreshed.
  /// A release type outside the three leaves it as it was. Fails as the formula and the fields do.
  void prbtConcAt();

 private:
  enum class Product : std::uint8_t { limits, table, profile };

  /// The loop. Does nothing where level 4 is not applicable or reaches past the maximum distance. All products move the
  /// raw limits, to two steps past the last distance with a figure above 0. Fails for a field that holds no number:
  /// what was found before stays.
  bool prbtRun(Product product, ProfileSink* chart);
  void begin();
  /// Whether there was a distance to look at.
  bool goDownwind(ProfileSink* chart);
  void end();
  void takeFineStep();
  void beginChart(ProfileSink& chart);
  void showShare();
  void evaluate();
  void finishRow(ProfileSink* chart);
  void advance();

  /// Whether the walks at all distances have the same outcome, dead or hurt or not. Their figures count for nothing in
  /// the limits.
  bool isAlike(double from, double to);

  Walk walkIn(double conc) const;
  /// The walk at distAt.
  void prbtExposure();
  /// concAt and the half width of the outermost level at distAt. The half width stays as it was where the concentration
  /// is below the level.
  void prbtHalfWidth();

  /// Area of the cloud of the outermost level from rowFrom to one step after it (Ha), in strips of 1 m. The half width
  /// of the last strip goes on to the next band and, as halfWidthAt, beyond the search.
  void addBand();
  void drawCurves(ProfileSink& chart);
  void writeRow();

  Sees sees_;
  ProfileProgress profileProgress_;
  CrosswindWalk walk_;

  Product product_ = Product::limits;
  bool found_ = false;
  int row_ = 0;                 // of the table
  double strip_ = 0;            // m, where the next strip of a band begins
  double halfWidthBefore_ = 0;  // m, of the strip before
  double penX_ = 0;             // mm, of both curves
  double penFtl_ = 0;           // mm
  double penInj_ = 0;           // mm
};

}  // namespace noldarz
