#include "plot/scale_dialog.h"

#include <cmath>

#include "platform/failure.h"
#include "platform/text.h"
#include "plot/paper.h"

namespace noldarz {

namespace {

constexpr std::string_view selectSourceText{" Select Source point"};

}  // namespace

ScaleDialog::ScaleDialog(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  View& view = sees_.view.view;
  view.on(menu_.usrdef, Event::click, [this] { usrdef_Click(); });
  view.on(menu_.usrdefB, Event::click, [this] { usrdefB_Click(); });
  view.on(menu_.gvndictn, Event::click, [this] { selectSource(tag::none); });
  view.on(menu_.in8orntn, Event::click, [this] { selectSource(tag::rose); });
  view.on(fields_.eqlvalu, Event::change, [this] { fields_.clssetbox.enable(); });
  view.on(fields_.eqlvalu, Event::lostFocus, [this] { eqlvalu_LostFocus(); });
  view.on(fields_.clssetbox, Event::click, [this] { applyScale(); });
}

void ScaleDialog::prepareSource() {
  sees_.desktop.setPointer(Pointer::cross);
  fields_.Xline.field.setVisible(false);
  fields_.canvas.Cls();
  fields_.canvas.setDrawWidth(1);
  sees_.query.drawMode = 0;
  fields_.showDial(true);
  if (menu_.selctdwg.tag() == tag::none) drawGrid(fields_.canvas);
  fields_.mousetxt.setVisible(true);
  fields_.mousetxt.setCaption(selectSourceText);
  fields_.Drw1.setTag(click::source);
  fields_.statuslbl.setCaption("Click the source of the release.");
}

void ScaleDialog::selectSource(std::string_view drawing) {
  menu_.FtvertB.setTag(drawing);
  prepareSource();
}

bool ScaleDialog::takeNumber() {
  constexpr double farthest = 1e9;  // m a mm, beyond which no text of a scale would hold it
  return Trap{[this](const RuntimeFailure&) { fields_.statuslbl.setCaption("That is no scale."); }}.holds([this] {
    const double scale = fields_.eqlvalu.number() / divisor(sees_.clicks.scaleSpan);
    if (!(scale <= farthest)) fail(FailureNumber::overflow);
    sees_.plot.plotScale = scale;
    return true;
  });
}

void ScaleDialog::applyScale() {
  if (sees_.query.drawMode == drawMode::traceScale) return takeScaleOfTrace();
  const bool vertical = menu_.Ftvert.tag() == tag::shown;
  const bool rose = menu_.Ftvert.tag() == tag::roseShown;
  const bool horizontal = menu_.fthiznt.tag() == tag::shown;
  if (!vertical && !horizontal && !takeNumber()) return;
  fields_.scleset.setVisible(false);
  if (vertical || horizontal) {
    menu_.zoom1.enable();
  } else {
    menu_.Drwzns.enable();
    prepareSource();
  }
  fields_.showScale(sees_.plot.plotScale);
  fields_.mousetxt.setCaption(horizontal || vertical || rose ? "" : selectSourceText);
  fields_.canvas.Cls();
  fields_.eqlvalu.setLocked(true);
  fields_.clssetbox.disable();
  if (vertical || horizontal || rose) {
    drawFitGrid(fields_.canvas);
    drawAxes(
        fields_.canvas, sees_.plot.sourceX, sees_.plot.sourceY, horizontal ? FirstAxis::upright : FirstAxis::across);
  }
  if (menu_.selctdwg.tag() == tag::gridDue) {
    drawGrid(fields_.canvas);
    menu_.selctdwg.setTag(tag::none);
  }
  menu_.usrdef.enable();
}

void ScaleDialog::takeScaleOfTrace() {
  if (!takeNumber()) return;
  fields_.scleset.setVisible(false);
  menu_.Drwzns.enable();
  fields_.showScale(sees_.plot.plotScale);
  fields_.Xline.field.setVisible(false);
  menu_.usrdef.enable();
  fields_.statuslbl.setCaption("");
  sees_.pipeline.drawPipelineZones();
}

void ScaleDialog::askForPoints(std::string_view firstClick) {
  fields_.Drw1.setTag(firstClick);
  fields_.frstptnlbl[0].setCaption("Select First Point");
  fields_.frstptnlbl[1].setCaption("Select Second Point");
  fields_.frstptnlbl[2].setCaption("Units");
  fields_.eqlvalu.setText("0");
  fields_.eqlvalu.setLocked(true);
  fields_.scleset.setLeft(2);
  fields_.scleset.setTop(5);
  fields_.scleset.setVisible(true);
  fields_.clssetbox.disable();
  sees_.desktop.setPointer(Pointer::cross);
  fields_.statuslbl.setCaption("Click two points whose distance you know; Escape gives it up.");
}

void ScaleDialog::begin(std::string_view firstClick) {
  fields_.canvas.Cls();
  menu_.Ftvert.setTag(tag::none);
  menu_.fthiznt.setTag(tag::none);
  menu_.zoom1.disable();
  askForPoints(firstClick);
  fields_.GroundLvl.setVisible(false);
  if (menu_.selctdwg.tag() != tag::picture) menu_.selctdwg.setTag(tag::gridDue);
}

void ScaleDialog::drawBar() {
  fields_.sclsdspl.setCaption(scaleBarText(sees_.plot.plotScale));
  drawScaleBar(fields_.canvas, sees_.plot.plotScale);
}

void ScaleDialog::usrdef_Click() {
  sees_.query.drawMode = sees_.query.isoElevate = sees_.trace.traceRubber = 0;
  sees_.trace.pipeMode = false;
  menu_.FtvertB.setTag(tag::none);
  fields_.setTitle(isoplethTitle);
  menu_.sltloctn.enable();
  fields_.showDial(true);
  sees_.zone.wndsld1.setValue(toInteger(sees_.plot.windDeg));
  begin(click::firstPoint);
}

void ScaleDialog::usrdefB_Click() {
  sees_.query.drawMode = 0;
  menu_.FtvertB.setTag(tag::rose);
  menu_.sltloctn.enable();
  fields_.showDial(true);
  begin(click::firstPointOfRose);
}

void ScaleDialog::takeFirstPoint(double x, double y) {
  sees_.clicks.firstPtX = x;
  sees_.clicks.firstPtY = y;
  fields_.Xline.setEnds(x, y, x, y);
  fields_.Xline.field.setVisible(true);
  fields_.frstptnlbl[0].setCaption("First Point Selected");
  menu_.usrdef.disable();
  fields_.Drw1.setTag(click::secondPoint);
}

void ScaleDialog::takeSecondPoint(double x, double y) {
  ClickState& clicks = sees_.clicks;
  const double span = rounded(std::hypot(x - clicks.firstPtX, y - clicks.firstPtY), 2);
  if (span == 0) return fields_.statuslbl.setCaption("Both points are one: click another second point.");
  clicks.secondPtX = x;
  clicks.secondPtY = y;
  fields_.Xline.setStart(x, y);
  fields_.frstptnlbl[1].setCaption("Second Point Selected");
  clicks.scaleSpan = span;
  fields_.frstptnlbl[2].setCaption(plainText(span) + " Units = ");
  sees_.desktop.setPointer(Pointer::standard);
  fields_.eqlvalu.setLocked(false);
  fields_.Drw1.setTag(click::none);
  fields_.statuslbl.setCaption("Type the distance of the two points on the ground in metres.");
  silently([&] { sees_.desktop.setFocus(fields_.eqlvalu); });
}

void ScaleDialog::refuseUnits(const char* text) {
  sees_.desktop.messageBox(critical(text));
  fields_.eqlvalu.setFault(text);
  silently([&] { sees_.desktop.setFocus(fields_.eqlvalu); });
}

void ScaleDialog::eqlvalu_LostFocus() {
  if (fields_.eqlvalu.locked() || !fields_.eqlvalu.usable()) return;  // nothing is asked for
  if (!fields_.eqlvalu.isNumeric()) return refuseUnits("Units Required");
  if (fields_.eqlvalu.number() > 0) return menu_.slcsrc.enable();
  fields_.clssetbox.disable();
  refuseUnits("Units should be >0");
}

}  // namespace noldarz
