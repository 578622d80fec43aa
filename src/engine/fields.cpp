#include "engine/fields.h"

#include <algorithm>

#include "engine/air.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

/// What the program writes and the user reads.
Field& result(View& view, std::string name) {
  Field& field = view.text(std::move(name), "0");
  field.setLocked(true);
  return field;
}

FieldArray<levelCount> results(View& view, const std::string& name) {
  auto fields = view.array<levelCount>(FieldKind::text, name, "0");
  for (int i = 0; i < levelCount; ++i) fields[i].setLocked(true);
  return fields;
}

template <std::size_t N>
Field& chosen(View& view, std::string name, std::string initial, const std::array<std::string_view, N>& entries) {
  Field& field = view.add(FieldKind::combo, std::move(name), std::move(initial));
  field.setEntries({entries.begin(), entries.end()});
  return field;
}

Field& check(View& view, std::string name, std::string caption, int value) {
  Field& field = view.add(FieldKind::check, std::move(name), std::move(caption));
  field.setValue(value);
  return field;
}

/// One of the four probit constants: closed to the user while the software's own are in force.
Field& constant(View& view, std::string name, std::string_view toolTip) {
  Field& field = view.text(std::move(name));
  field.setToolTip(toolTip);
  field.disable();
  return field;
}

constexpr std::array<std::string_view, levelCount> levelCaptions{
    "UEL:", "LEL:", "TEEL3/IDLH:", "TEEL2:", "TEEL1:", "TEEL0:"};

// Clockwise from the wind that blows from the north to the south.
constexpr std::array<std::string_view, 8> orientations{
    " N -> S", "NE -> SW", " E ->W", "SE -> NW", "S -> N", "SW -> NE", "W -> E", "NW -> SE"};

FieldArray<8> orientationLabels(View& view) {
  auto labels = view.array<8>(FieldKind::label, "wndlbl1");
  for (int i = 0; i < labels.size(); ++i) labels[i].setCaption(orientations.at(static_cast<std::size_t>(i)));
  return labels;
}

}  // namespace

std::string mark::beyond(double endDist) { return ">" + plainText(endDist); }

bool mark::isOpen(std::string_view text, double endDist) {
  return text == notApplicable || text == nothing || text == beyond(endDist);
}

ScenarioInputs::ScenarioInputs(View& view)
    : scnrotypetxt(view.carried("scnrotypetxt")),
      QntyRelstxt(view.carried("QntyRelstxt")),
      PoolRadiusRrslstxt(view.carried("PoolRadiusRrslstxt")),
      molwttxt(view.carried("molwttxt")),
      vapordnstytxt(view.carried("vapordnstytxt")),
      tempStore(view.carried("tempStore", "30")),
      htreltxt(view.text("htreltxt", "1")),
      htsmul(view.text("htsmul", "1.5")),
      enddisttxt(view.text("enddisttxt", "10000")),
      roghwndoptcbo(chosen(view, "roghwndoptcbo", "Level", terrainEntries)),
      stblclscbo(chosen(view, "stblclscbo", "D", stabilityClassEntries)),
      wndveltxt(view.text("wndveltxt")),
      prbtoptn(check(view, "prbtoptn", "Use software default", 1)),
      avalftl(constant(view, "avalftl", "PROBIT constant for Fatality(A)")),
      nvalftl(constant(view, "nvalftl", "PROBIT constant for Fatality(B)")),
      avalinj(constant(view, "avalinj", "PROBIT constant for Injury(A)")),
      nvalinj(constant(view, "nvalinj", "PROBIT constant for Injury(B)")),
      hudityTxt(view.text("hudityTxt", "10")),
      MaxFtlyDstOptn(
          check(view, "MaxFtlyDstOptn", "Computes Fatality and Injury dist. limit using Probit Equation.", 1)),
      Givnwnd(view.array<8>(FieldKind::text, "Givnwnd", "0")),
      wndlbl1(orientationLabels(view)) {
  hudityTxt.setToolTip("Enter only if humidity will affect toxicity");
  enddisttxt.setToolTip("Limit : 50000 m");
  stblclscbo.setToolTip("Always select Stability class from dropdown");
}

LevelFields::LevelFields(View& view)
    : constn(view.array<levelCount>(FieldKind::text, "constn", "5")),
      conclbl(view.array<levelCount>(FieldKind::check, "conclbl")),
      bgnpt(results(view, "bgnpt")),
      endpt(results(view, "endpt")),
      isoplngt(results(view, "isoplngt")),
      isopwdth(results(view, "isopwdth")),
      isopang(results(view, "isopang")),
      distmaxisop(results(view, "distmaxisop")),
      isoparea(results(view, "isoparea")) {
  for (int i = 0; i < levelCount; ++i) {
    constn[i].setToolTip("Enter concentration (ppm) as desired in descending order.");
    conclbl[i].setCaption(initialLevelCaption(i));
    conclbl[i].setToolTip("Click to edit text");
  }
}

std::string_view initialLevelCaption(int level) { return levelCaptions.at(static_cast<std::size_t>(level)); }

void LevelFields::setWidth(int level, std::string_view mark) const {
  for (const auto* results : {&isopwdth, &distmaxisop, &isopang, &isoparea}) (*results)[level].setText(mark);
}

void LevelFields::setResults(int level, std::string_view text) const {
  for (const auto* results : {&bgnpt, &endpt, &isoplngt, &isopwdth, &isopang, &distmaxisop, &isoparea})
    (*results)[level].setText(text);
}

ResultFields::ResultFields(View& view)
    : mgctxt(result(view, "mgctxt")),
      distconctxt(result(view, "distconctxt")),
      constn1(result(view, "constn1")),
      maxdistconctxt(result(view, "maxdistconctxt")),
      wndvel(view.label("wndvel")),
      nodfdwndlbl(view.label("nodfdwndlbl")),
      tmestbllbl(view.label("tmestbllbl")),
      tmestbltxt(view.label("tmestbltxt", "0")),
      tmeunitlbl(view.label("tmeunitlbl")),
      expmass(result(view, "expmass")),
      calmlbl(view.array<2>(FieldKind::label, "calmlbl")) {
  calmlbl[1].setCaption("Calm");
}

CommandFields::CommandFields(View& view)
    : comput(view.add(FieldKind::button, "comput", "&Compute maximum concentration")),
      redosimul(view.add(FieldKind::button, "redosimul", "Redo")),
      getconclvl(view.add(FieldKind::button, "getconclvl", "Get Concentration (ppm):")),
      prntprv(view.add(FieldKind::combo, "prntprv")) {
  getconclvl.setToolTip("Click to get concentration from database for the chemical selected");
  prntprv.setToolTip("Print Reoprt Preview Options");
  prntprv.disable();
}

WaitFields::WaitFields(View& view)
    : plumepic1(view.add(FieldKind::shape, "plumepic1")),
      waitlbl1(view.label("waitlbl1")),
      progPic1(view.add(FieldKind::picture, "progPic1")),
      progPic2(view.add(FieldKind::picture, "progPic2")),
      pctdsp(view.label("pctdsp")) {
  progPic1.setWidth(progressWidth);
}

double reachOf(const Field& field) { return std::min(field.number(), farthestDistance); }

double axisDistance(const Field& field) {
  const double distance = reachOf(field);
  if (distance < 0) fail(FailureNumber::invalidArgument);
  return distance;
}

}  // namespace noldarz
