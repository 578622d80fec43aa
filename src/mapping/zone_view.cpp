#include "mapping/zone_view.h"

namespace noldarz {

namespace {

Field& button(View& view, const char* name, const char* caption, const char* toolTip) {
  Field& button = view.add(FieldKind::button, name, caption);
  button.setToolTip(toolTip);
  return button;
}

}  // namespace

ZoneView::ZoneView(Views& views)
    : view(views, "zardzone", " NOLDA-RZ- Mapping options"),
      zone(view),
      ground(view.add(FieldKind::picture, "zardzone")),
      cirOrintn_1(view.add(FieldKind::shape, "cirOrintn_1").in(ground)),
      dial(ground, {.wind = 1100, .barb = 1000, .centreX = 5610, .centreY = 1710}, 885),
      wnddeg(view.label("wnddeg")),
      rotdeg(view.label("rotdeg")),
      sclenotxt(view.text("sclenotxt")),
      coordx(view.label("coordx")),
      coordy(view.label("coordy")),
      actdoctxt(view.label("actdoctxt")),
      sveflnote(view.label("sveflnote")),
      scalelbl(view.label("scalelbl", "1 m   =")),
      setscllbl(view.label("setscllbl", "Set AutoCAD scale.")),
      actdoclbl(view.label("actdoclbl", "Document:")),
      note1lbl(view.label("note1lbl", "NOTE: Assuming under direction, Base angle option \"East = 0\" is selected.")),
      Label3(view.label("Label3", "Select Concentration Zones for Plotting.")),
      clsfrm1(button(view, "clsfrm1", "&Close", "Go back")),
      Drw1(button(view, "Drw1", "&Map Hazard Zones", "Map the zones at the source point of the drawing")),
      DwgOnPic(
          button(view, "DwgOnPic", "Map Hazard Zones on &Picture file", "Draw the zones, over a picture on request")),
      Image1(view.add(FieldKind::picture, "Image1")),
      opndwg2(button(view, "opndwg2", "&Open AutoCAD Drawing", "Map Hazard Zones on AutoCAD file")),
      nwdrg(button(view, "nwdrg", "Open &Blank Drawing", "Map Hazard Zones on a new drawing")),
      getcoords(button(view, "getcoords", "&Set source Point (Zones)",
                       "Pick the source in the drawing, and map the zones there")),
      getcoords_1(button(view, "getcoords_1", "&Set location Points (Conc.)",
                         "Pick places in the drawing, to be marked with what arrives there")),
      statuslbl(view.label("statuslbl")) {
  cirOrintn_1.setPlace(4605, 825, 1995, 1815);
  Image1.setToolTip("Double click to Map Hazard Zones on Picture file");
  sclenotxt.setToolTip("Units of the drawing for a metre");
}

}  // namespace noldarz
