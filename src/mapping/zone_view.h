// The zone view `zardzone`: which levels are mapped, where wind and north lie, the scale of a CAD drawing. From here
// the user goes to the plot view, and maps into a drawing. Places on it are in twips.
#pragma once

#include "platform/view.h"
#include "plot/fields.h"

namespace noldarz {

struct ZoneView {
  explicit ZoneView(Views& views);

  View view;
  ZoneFields zone;
  Field& ground;       // of the view; the pointer is told there
  Field& cirOrintn_1;  // circle of the dials
  DialFields dial;
  Field& wnddeg;  // degrees of the two sliders
  Field& rotdeg;
  Field& sclenotxt;  // units of a CAD drawing per metre
  Field& coordx;     // source point in a CAD drawing
  Field& coordy;
  Field& actdoctxt;  // name of the CAD drawing
  Field& sveflnote;  // how to save it
  Field& scalelbl;   // captions that stay as they are
  Field& setscllbl;
  Field& actdoclbl;
  Field& note1lbl;  // base angle of the drawing
  Field& Label3;
  Field& clsfrm1;      // closes the view
  Field& Drw1;         // maps into a CAD drawing
  Field& DwgOnPic;     // goes to the plot view
  Field& Image1;       // the same by a double click
  Field& opndwg2;      // opens a CAD drawing
  Field& nwdrg;        // opens an empty one
  Field& getcoords;    // picks the source there
  Field& getcoords_1;  // and locations
  Field& statuslbl;    // what could not be stored
};

}  // namespace noldarz
