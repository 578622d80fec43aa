// The fields of the plot view `Drwfrm`, and those of the zone view `zardzone` that the drawings read. A group declares
// itself once on the view that joins it. Places and sizes are in twips.
#pragma once

#include <array>
#include <string_view>

#include "engine/fields.h"
#include "platform/canvas/canvas.h"
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

/// A line on a view: left and top are its start, width and height lead from there to its end and may be below 0.
struct LineField {
  Field& field;

  double x1() const { return field.left(); }
  double y1() const { return field.top(); }
  double x2() const { return field.left() + field.width(); }
  double y2() const { return field.top() + field.height(); }
  void setEnds(double x1, double y1, double x2, double y2) const;
  void setStart(double x, double y) const { setEnds(x, y, x2(), y2()); }
  void setEnd(double x, double y) const { setEnds(x1(), y1(), x, y); }
};

/// The two dials on one centre: the wind arm with its barbs, and the cross of the compass with its letters.
struct DialFields {
  /// Lengths of the arms (twips), and the centre.
  struct Size {
    double wind;
    double barb;
    double cross;
    double centreX;
    double centreY;
  };
  DialFields(View& view, const Size& size);

  /// Turns the wind arm.
  void showWind(double degrees) const;
  /// Turns the cross.
  void showNorth(double degrees) const;

  Size size;
  LineField wndarm;
  LineField wndarm_1;  // barbs
  LineField wndarm_2;
  LineField NorthArm;
  LineField axs1;
  LineField axs2;
  LineField axs3;
  Field& wndlbl;
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
};

struct PlotMenu {
  explicit PlotMenu(View& view);

  Field &file, &print, &cpyclp, &sve, &hideDsply, &lnwdth, &no2, &no4, &exit;
  Field &insrtdwg, &Expscrn, &selctdwg, &frmfle, &scrnCap, &scrncap2, &ClrScrn, &frPipeln, &pltFrPipe;
  Field &setscle, &usrdef, &Ftvert, &fthiznt, &isoelvat, &setscleB, &usrdefB, &FtvertB;
  Field &zoom1, &zoomin1, &zoomout1, &zoomall;
  Field &Drwzns, &slcsrc, &gvndictn, &in8orntn, &sltloctn;
  Field &grph, &ihrprofl, &ftlinjryprofl, &zoom2, &ftltyZoom, &restzoom;
};

/// Caption of `Expscrn` while the canvas is as large as the screen, and while it is not.
inline constexpr std::string_view shrinkCaption{"Small Screen"};
inline constexpr std::string_view expandCaption{"Expand Screen"};

/// Colour of a level, as an index in the basic palette.
inline constexpr std::array<std::int16_t, levelCount> levelColours{4, 12, 9, 11, 10, 2};
inline Colour levelColour(int level) {
  return basicPalette.at(static_cast<std::size_t>(levelColours.at(static_cast<std::size_t>(level))));
}

}  // namespace noldarz
