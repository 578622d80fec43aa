#include "plot/view_life.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace noldarz {

namespace {

// Places and sizes in twips.
constexpr double edge = 200;  // of an expanded canvas, and beside one of normal size
constexpr double dialSize = 1800;
constexpr double legendWidth = 3400;

}  // namespace

void layOutPlain(PlotFields& fields, const ScreenSize& screen) {
  constexpr double left = 825;
  constexpr double top = 2025;
  const double width = std::min(11385.0, screen.width - left - 310);
  const double height = std::min(8445.0, screen.height - top - 1010);
  const double side = left + width + edge;
  fields.Drw1.setPlace(left, top, width, height);
  fields.North_wndDialPic.setPlace(side, top, dialSize, dialSize);
  fields.lndFRme.setPlace(side, top + dialSize + edge, legendWidth, height - dialSize - edge);
}

void layOutExpanded(PlotFields& fields, const ScreenSize& screen) {
  constexpr double legendHeight = 3500;
  const double width = screen.width - 310;
  const double height = screen.height - 1010;
  fields.Drw1.setPlace(edge, edge, width, height);
  fields.North_wndDialPic.setPlace(edge + width - dialSize, edge + height - dialSize, dialSize, dialSize);
  fields.lndFRme.setPlace(edge + width - legendWidth, edge, legendWidth, legendHeight);
}

PlotViewLife::PlotViewLife(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  View& view = sees_.view.view;
  view.onLoad([this] { Form_Load(); });
  view.onFront([this] { Form_Activate(); });
  view.onClosing([this] { closing(); });
  view.on(menu_.exit, Event::click, [this] {
    sees_.view.view.close();
    sees_.mainView.show();
  });
  sees_.mainView.on(sees_.command.comput, Event::click, [this] {  // a chart of the run before is none of this one
    menu_.ftlinjryprofl.setTag(tag::none);
    menu_.fthiznt.setTag(tag::shown);
  });
}

void PlotViewLife::Form_Load() {
  layOutPlain(fields_, sees_.desktop.screenSize(sees_.view.view));
  menu_.reset();
  fields_.setTitle("");
  fields_.canvas.setDrawWidth(1);
  fields_.canvas.setFontTransparent(true);
  fields_.canvas.setFontBold(false);
  fields_.canvas.Cls();
  fields_.canvas.setPicture(nullptr);
  fields_.Drw1.setTag(click::none);
  for (Field* field : {&fields_.Xline.field, &fields_.GroundLvl, &fields_.mousetxt, &fields_.scleset})
    field->setVisible(false);
  for (Field* field : {&fields_.mousetxt, &fields_.sclsdspl}) field->setCaption("");
  fields_.statuslbl.setCaption("Choose a plot under \"" + menu_.insrtdwg.caption() + "\".");
  for (Field* field : {&fields_.lndFRme, &fields_.North_wndDialPic, &fields_.sclsdspl}) field->setVisible(true);
  sees_.query.drawMode = 0;
  takeLineWidth();
  fields_.scnortxt.setCaption("Scenario: " + sees_.project.scnrotxtlbl.text());
  if (!sees_.fit.findLevel()) sees_.desktop.messageBox(information(unableToPlot));
  fillLegend();
  findPipeWords();
}

void PlotViewLife::takeLineWidth() {
  const auto kept = sees_.settings.get(contourSetting::application, contourSetting::section, contourSetting::key);
  const bool thin = kept.value_or("True") != "False";
  sees_.contours.choose(thin);
  menu_.no2.setValue(thin ? 1 : 0);
  menu_.no4.setValue(thin ? 0 : 1);
}

void PlotViewLife::fillLegend() {
  for (int i = 0; i < levelCount; ++i) {
    fields_.linelbl2[i].setBackColour(levelColour(i));
    fields_.LblDsply[i].setCaption(legendText(sees_.level, i));
  }
}

void PlotViewLife::findPipeWords() {
  constexpr std::array<std::string_view, 3> words{"Pipline", "Pipe", "pipe"};
  const std::string& scenario = sees_.project.scnrotxt.text();
  bool found = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto at = scenario.find(words[i]);
    sees_.trace.pipeWords[i] = at == std::string::npos ? 0 : static_cast<std::int32_t>(at + 1);
    found = found || at != std::string::npos;
  }
  menu_.frPipeln.setEnabled(found);
}

void PlotViewLife::Form_Activate() {
  fields_.dt.setCaption("Date : " + longDate(today()));
  fields_.PrjNameTxt.setCaption("For " + sees_.project.Orglbltxt.caption());
  fields_.dial.showWind(sees_.plot.windDeg);
  fields_.dial.showNorth(sees_.plot.northDeg);
}

void PlotViewLife::closing() {
  sees_.desktop.setPointer(Pointer::standard);
  fields_.Xline.field.setVisible(false);
  sees_.pipeline.clear();
  sees_.clicks.clickX = sees_.clicks.clickY = 0;
  sees_.clicks.locationOn = sees_.clicks.locationReady = 0;
  sees_.query.drawMode = 0;
  sees_.clicks.dialReopen = false;
  sees_.outputs.close(AttachedView::ScrnCapt);
  constexpr std::string_view profile = outputEntries[static_cast<std::size_t>(Output::profile)];
  if (sees_.command.prntprv.text() != profile) sees_.outputs.show(AttachedView::zardzone);
}

}  // namespace noldarz
