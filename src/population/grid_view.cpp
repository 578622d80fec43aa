#include "population/grid_view.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/text.h"
#include "population/grid.h"

namespace noldarz {

namespace {

constexpr double dialSize = 4200;  // twips
constexpr double centre = dialSize / 2;
constexpr double kilometre = 180;     // twips on the dial
constexpr double ringWordAngle = 22;  // degrees: between two sectors

Field& withTip(Field& field, std::string_view toolTip) {
  field.setToolTip(toolTip);
  return field;
}

double radiusOf(int band) { return bands.at(static_cast<std::size_t>(band)).outerRadius * kilometre; }

template <std::size_t N>
FieldArray<N> partsOf(Field& dial, FieldKind kind, const char* name) {
  const auto parts = dial.view().array<N>(kind, name);
  for (int i = 0; i < parts.size(); ++i) parts[i].in(dial);
  return parts;
}

FieldArray<gridBands> rings(Field& dial) {
  const auto circles = partsOf<gridBands>(dial, FieldKind::shape, "ringshp");
  for (int band = 0; band < gridBands; ++band)
    circles[band].setPlace(centre - radiusOf(band), centre - radiusOf(band), 2 * radiusOf(band), 2 * radiusOf(band));
  return circles;
}

FieldArray<gridBands> ringWords(Field& dial) {
  const auto words = partsOf<gridBands>(dial, FieldKind::label, "ringlbl");
  for (int band = 0; band < gridBands; ++band) {
    words[band].setCaption(plainText(bands.at(static_cast<std::size_t>(band)).outerRadius) + " km");
    words[band].setLeft(centre + radiusOf(band) * std::sin(ringWordAngle * dialRadian));
    words[band].setTop(centre - radiusOf(band) * std::cos(ringWordAngle * dialRadian));
  }
  return words;
}

Field& source(Field& dial) {
  Field& word = dial.view().label("srclbl", "Source").in(dial);
  word.setLeft(centre);
  word.setTop(centre);
  return word;
}

}  // namespace

GridView::GridView(Views& views)
    : view(views, "absltftlyfrm", populationTitle),
      distlbl(view.array<gridBands>(FieldKind::label, "distlbl")),
      populatndnsty(view.array<gridBands>(FieldKind::text, "populatndnsty", "0")),
      zonenumlbl(view.label("zonenumlbl")),
      popdnstycbo(withTip(view.add(FieldKind::combo, "popdnstycbo"), "Settlement class of a band")),
      convrtPBtn(withTip(view.add(FieldKind::check, "convrtPBtn", "Convert"), "Enter other units, then convert them")),
      denUnitListCbo(withTip(view.add(FieldKind::combo, "denUnitListCbo"), "What the bands hold before a conversion")),
      getfrPre(withTip(view.add(FieldKind::check, "getfrPre", "Import"), "From previous Reference number")),
      impotBtn(withTip(view.add(FieldKind::button, "impotBtn", "Import population density"),
                       "Replace the whole grid by that of the chosen reference number")),
      znePopdnsty(view.array<gridSectors>(FieldKind::check, "znePopdnsty")),
      PopdnstySector(view.add(FieldKind::picture, "PopdnstySector")),
      ringshp(rings(PopdnstySector)),
      sectorshp(partsOf<gridSectors>(PopdnstySector, FieldKind::shape, "sectorshp")),
      ringlbl(ringWords(PopdnstySector)),
      srclbl(source(PopdnstySector)),
      wind(PopdnstySector,
           {.wind = 1500, .barb = 1400, .centreX = centre, .centreY = centre, .wordRight = -180, .wordDown = 0}),
      wndsld1(withTip(view.add(FieldKind::slider, "wndsld1"), "Select Wind direction (deg)")),
      wnddeg(view.label("wnddeg", "0")),
      gridcell(view.array<gridCells>(FieldKind::text, "gridcell", "0")),
      totlbl(view.array<gridBands>(FieldKind::label, "totlbl")),
      copygrd(withTip(view.add(FieldKind::button, "copygrd", "&Copy table"), "Copy all sectors, for a spreadsheet")),
      pastegrd(withTip(view.add(FieldKind::button, "pastegrd", "Past&e table"),
                       "Paste cells from a spreadsheet, from the cell on that had the focus last")),
      prvrpt1(withTip(view.add(FieldKind::button, "prvrpt1", "&Preview Report"),
                      "Work out how many people die or are hurt, and close")),
      clsfrm1(withTip(view.add(FieldKind::button, "clsfrm1", "C&lose"), "Go back")),
      statuslbl(view.label("statuslbl")) {
  PopdnstySector.setPlace(0, 0, dialSize, dialSize);
  wndsld1.setRange(0, wholeTurn);
  for (int band = 0; band < gridBands; ++band)
    distlbl[band].setCaption(bands.at(static_cast<std::size_t>(band)).caption);
  for (int sector = 0; sector < gridSectors; ++sector) {
    znePopdnsty[sector].setCaption(plainText(sector + 1));
    znePopdnsty[sector].setToolTip("Sector to the " + std::string{sectorNames.at(static_cast<std::size_t>(sector))});
    for (int band = 0; band < gridBands; ++band) {
      const int cell = cellIndex(sector, band);
      gridcell[cell].setToolTip("Persons/Ha in " + cellName(cell));
    }
  }
}

int sectorAt(const GridView& view, double x, double y) {
  constexpr double sectorsPerRadian = gridSectors / (2 * std::numbers::pi);
  const double right = x - view.wind.size.centreX;
  const double up = view.wind.size.centreY - y;
  if (std::hypot(right, up) > radiusOf(gridBands - 1)) return -1;
  const auto turns = std::lround(std::atan2(right, up) * sectorsPerRadian);  // of a sector, from north, clockwise
  return static_cast<int>((turns + gridSectors) % gridSectors);
}

}  // namespace noldarz
