// The fields of the plot view `Drwfrm`, and those of the zone view `zardzone` that the drawings read. A group declares
// itself once on the view that joins it. Places and sizes are in twips.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "engine/fields.h"
#include "platform/canvas/canvas.h"
#include "platform/dial.h"
#include "platform/view.h"

namespace noldarz {

/// What is drawn and how it is turned, of the zone view.
struct ZoneFields {
  explicit ZoneFields(View& view);

  FieldArray<levelCount> zonsplot;  // 1: the level is drawn
  Field& PlotFtlyInjryLmt;          // 1: the circles of the limits are drawn
  Field& wndsld1;                   // wind direction (whole degrees, 0 to 360)
  Field& NorthSld;                  // north direction (whole degrees, 0 to 360)
};

/// The two dials on one centre: the wind arm, and the cross of the compass with its letters. They are drawn on a
/// picture, or on the ground of a view.
struct DialFields : WindArm {
  /// `cross`: length of its arms (twips).
  DialFields(Field& picture, const Size& size, double cross);

  /// Turns the cross.
  void showNorth(double degrees) const;

  double cross;
  LineField NorthArm;
  LineField axs1;
  LineField axs2;
  LineField axs3;
  Field& nlbl;
  Field& elbl;
  Field& slbl;
  Field& wlbl;
};

/// The canvas and what lies over and around it.
struct PlotFields {
  explicit PlotFields(View& view);

  Field& Drw1;               // the canvas; its tag is the click that is expected
  Field& lblman;             // title
  Field& scnortxt;           // scenario
  Field& PrjNameTxt;         // organisation
  Field& sclsdspl;           // scale
  Field& dt;                 // date
  Field& statuslbl;          // where the pointer is, what is waited for
  LineField Xline;           // over the canvas (mm): the line between two clicks
  Field& GroundLvl;          // over the canvas (mm): the ground in the side view
  Field& mousetxt;           // over the canvas (mm): follows the pointer
  Field& scleset;            // over the canvas (mm): box of the scale
  FieldArray<3> frstptnlbl;  // first point, second point, length of the line
  Field& eqlvalu;            // what the line is on the ground (m)
  Field& clssetbox;          // takes the scale
  Field& North_wndDialPic;   // picture of the dials
  DialFields dial;
  Field& lndFRme;                   // frame of the legend
  FieldArray<levelCount> linelbl2;  // its lines
  FieldArray<levelCount> LblDsply;  // and texts
  Canvas canvas;

  /// Title of what is drawn, in the window and in the header of an expanded canvas.
  void setTitle(std::string_view title) const;
  /// The scale that the canvas has now.
  void showScale(double plotScale) const;
  void showDial(bool visible) const { North_wndDialPic.setVisible(visible); }
};

struct PlotMenu {
  explicit PlotMenu(View& view);

  Field &file, &print, &cpyclp, &sve, &hideDsply, &lnwdth, &no2, &no4, &exit;
  Field &insrtdwg, &Expscrn, &selctdwg, &frmfle, &scrnCap, &scrncap2, &ClrScrn, &frPipeln, &pltFrPipe;
  Field &setscle, &usrdef, &Ftvert, &fthiznt, &isoelvat, &setscleB, &usrdefB, &FtvertB;
  Field &zoom1, &zoomin1, &zoomout1, &zoomall;
  Field &Drwzns, &slcsrc, &gvndictn, &in8orntn, &sltloctn;
  Field &grph, &ihrprofl, &ftlinjryprofl, &zoom2, &ftltyZoom, &restzoom;

  /// What the view has when it opens: nothing chosen, no scale to draw at.
  void reset() const;
};

/// The plot view `Drwfrm`.
struct PlotView {
  explicit PlotView(Views& views) : view(views, "Drwfrm", ""), fields(view), menu(view) {}

  View view;
  PlotFields fields;
  PlotMenu menu;
};

/// Tags of the canvas: the click that is expected.
namespace click {
inline constexpr std::string_view none{"0"};
inline constexpr std::string_view source{"1"};
inline constexpr std::string_view firstPoint{"2"};
inline constexpr std::string_view secondPoint{"3"};
inline constexpr std::string_view distance{"4"};
inline constexpr std::string_view firstPointOfRose{"5"};
}  // namespace click

/// What the next clicks on the canvas are for, in `drawMode`.
namespace drawMode {
inline constexpr std::int16_t location = 4;
inline constexpr std::int16_t trace = 5;
inline constexpr std::int16_t traceScale = 6;
}  // namespace drawMode

/// Tags of menu entries: what is shown, and what comes next.
namespace tag {
inline constexpr std::string_view none{"0"};
inline constexpr std::string_view shown{"1"};               // `Ftvert`, `fthiznt`: this fit is on the canvas
inline constexpr std::string_view roseShown{"3"};           // `Ftvert`: the rose is
inline constexpr std::string_view rose{"1"};                // `FtvertB`: the next source click draws a rose
inline constexpr std::string_view gridDue{"1"};             // `selctdwg`: a scale of the user's on plain paper
inline constexpr std::string_view picture{"2"};             // `selctdwg`: a picture lies behind
inline constexpr std::string_view percentChart{"1"};        // `ftlinjryprofl`
inline constexpr std::string_view concentrationChart{"2"};  // `ftlinjryprofl`
}  // namespace tag

/// What a plot says that can't be drawn.
inline constexpr const char* unableToPlot = "Unable to plot Hazard Zones.";

/// Caption of `Expscrn` while the canvas is as large as the screen, and while it is not.
inline constexpr std::string_view shrinkCaption{"Small Screen"};
inline constexpr std::string_view expandCaption{"Expand Screen"};

/// Whether the level ends somewhere: a number above 0, no mark.
inline bool hasEnd(const LevelFields& level, int i) {
  return level.endpt[i].isNumeric() && level.endpt[i].number() > 0;
}
/// Whether it has a begin and an end to draw.
inline bool isDrawable(const LevelFields& level, int i) { return level.bgnpt[i].isNumeric() && hasEnd(level, i); }

/// What the legend tells of a level.
inline std::string legendText(const LevelFields& level, int i) {
  return level.conclbl[i].caption() + " Conc. (ppm) " + level.constn[i].text() + " Dist. : " + level.endpt[i].text() +
         " m";
}

/// Colour of a level, as an index in the basic palette.
inline constexpr std::array<std::int16_t, levelCount> levelColours{4, 12, 9, 11, 10, 2};
inline Colour levelColour(int level) {
  return basicPalette.at(static_cast<std::size_t>(levelColours.at(static_cast<std::size_t>(level))));
}

}  // namespace noldarz
