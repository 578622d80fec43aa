// The fields by which the engine talks to the main view and the wait view: a scenario's inputs, the six levels, the
// results and the commands. A group declares itself once on the view that joins it (scenario/main_view.h).
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/field.h"
#include "platform/view.h"

namespace noldarz {

/// A level is one index 0 to 5 of the level fields; 0 is the highest concentration.
inline constexpr int levelCount = 6;

/// Marks that stand in level fields in place of a number.
namespace mark {
inline constexpr std::string_view nothing = "0";  ///< nothing computed
inline constexpr std::string_view notApplicable = "N.A.";
inline constexpr std::string_view inputError = "Input Err.";
/// ">" followed by the maximum distance (m): the level reaches past it.
std::string beyond(double endDist);
/// Whether the text is a mark of a level that was not found or not left: "N.A.", ">" with the distance, or "0".
bool isOpen(std::string_view text, double endDist);
}  // namespace mark

/// Back colour of a level that must be entered anew.
inline constexpr Colour attentionColour = Colour::fromScreen(0xC0E0FF);

struct ScenarioInputs {
  explicit ScenarioInputs(View& view);

  Field& scnrotypetxt;        // release type: "PLUME", "POOL" or "PUFF"
  Field& QntyRelstxt;         // rate of release (kg/s) for "PLUME" and "POOL"; quantity (kg) for "PUFF"
  Field& PoolRadiusRrslstxt;  // pool radius (m); kept with the run, not computed with
  Field& molwttxt;            // molecular weight (g/mol)
  Field& vapordnstytxt;       // vapour density relative to air
  Field& tempStore;           // temperature of the release (deg C)
  Field& htreltxt;            // height of release (m)
  Field& htsmul;              // height of simulation, Z axis (m)
  Field& enddisttxt;          // maximum distance for simulation (m)
  Field& roghwndoptcbo;       // terrain
  Field& stblclscbo;          // stability class
  Field& wndveltxt;           // wind velocity selected or entered (m/s)
  Field& prbtoptn;            // 1: probit constants are the software's; else the user's
  Field& avalftl;             // probit constant A of fatality
  Field& nvalftl;             // probit exponent B of fatality
  Field& avalinj;             // probit constant A of injury
  Field& nvalinj;             // probit exponent B of injury
  Field& hudityTxt;           // relative humidity (%)
  Field& MaxFtlyDstOptn;      // 1: limits by probit equation; 0: by lethal concentration
  FieldArray<8> Givnwnd;      // wind prevalence in eight orientations (%)
  FieldArray<8> wndlbl1;      // captions of the orientations
};

struct LevelFields {
  explicit LevelFields(View& view);

  FieldArray<levelCount> constn;       // concentration of the level (ppm)
  FieldArray<levelCount> conclbl;      // caption of the level, such as "UEL:"
  FieldArray<levelCount> bgnpt;        // begin point (m), or a mark
  FieldArray<levelCount> endpt;        // end point (m), or a mark
  FieldArray<levelCount> isoplngt;     // length of the isopleth (m), or a mark
  FieldArray<levelCount> isopwdth;     // greatest width (m), or a mark
  FieldArray<levelCount> isopang;      // angle (degrees), or a mark
  FieldArray<levelCount> distmaxisop;  // distance of the greatest width (m), or a mark
  FieldArray<levelCount> isoparea;     // area (Ha), or a mark

  /// Puts a mark into the width of a level and all that comes of it: its distance, angle and area.
  void setWidth(int level, std::string_view mark) const;
  /// Puts the text into the seven result fields of a level.
  void setResults(int level, std::string_view text) const;
};

/// A run is stored when this level has a positive length.
inline constexpr int storingLevel = 2;
/// Whether it has. Fails as Field::number() does for a mark.
inline bool isStorable(const LevelFields& level) { return level.isoplngt[storingLevel].number() > 0; }

/// The caption that a level has at first, such as "UEL:".
std::string_view initialLevelCaption(int level);

struct ResultFields {
  explicit ResultFields(View& view);

  Field& mgctxt;          // maximum ground concentration (ppm)
  Field& distconctxt;     // its distance (m)
  Field& constn1;         // maximum isopleth concentration (ppm)
  Field& maxdistconctxt;  // distance of the concentration peak (m)
  Field& wndvel;          // modified wind velocity (m/s), as a plain number
  Field& nodfdwndlbl;     // the same in words
  Field& tmestbllbl;      // caption of the time of stabilization
  Field& tmestbltxt;      // time of stabilization (s, min or h by its size)
  Field& tmeunitlbl;      // its unit, empty while there is none
  Field& expmass;         // flammable mass for VCE (lbm), or "Mass = 0"
  FieldArray<2> calmlbl;  // share of calm (%), and its name
};

struct CommandFields {
  explicit CommandFields(View& view);

  Field& comput;      // the two presses
  Field& redosimul;   // clears the results for a new Compute
  Field& getconclvl;  // loads the levels from the chemical's limits
  Field& prntprv;     // list of outputs; the close-out enables it
};

struct WaitFields {
  explicit WaitFields(View& view);

  Field& plumepic1;  // shape that grows while a press runs
  Field& waitlbl1;   // text line
  Field& progPic1;   // trough of the limit search
  Field& progPic2;   // its bar
  Field& pctdsp;     // its percent
};

/// Full width of a progress bar, in units of its view.
inline constexpr double progressWidth = 5050;

/// Where a search from the source begins (m).
inline constexpr double firstDistance = 2;

/// The farthest that a search goes along the plume axis (m). The user's limit is 50000 m and grows by 10000 m an
/// extension; a distance of a thousand kilometres is beyond any use of the curves, and their logarithmic forms turn
/// over there, so that a search might never end.
inline constexpr double farthestDistance = 1e6;

/// The number in a field as a distance that a search goes to: at most farthestDistance. Fails as Field::number() does.
double reachOf(const Field& field);

/// The same as a distance that a search starts from: fails with invalidArgument below 0, too.
double axisDistance(const Field& field);

}  // namespace noldarz
