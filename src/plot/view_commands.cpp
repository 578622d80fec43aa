#include "plot/view_commands.h"

#include <exception>
#include <stdexcept>

#include "platform/canvas/drawing_file.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "plot/header.h"
#include "plot/view_life.h"

namespace noldarz {

PlotViewCommands::PlotViewCommands(const Sees& sees) : sees_(sees), fields_(sees.view.fields), menu_(sees.view.menu) {
  View& view = sees_.view.view;
  view.on(menu_.frmfle, Event::click, [this] { frmfle_Click(); });
  view.on(menu_.Expscrn, Event::click, [this] { Expscrn_Click(); });
  view.on(menu_.ClrScrn, Event::click, [this] { ClrScrn_Click(); });
  view.on(menu_.hideDsply, Event::click, [this] { hideDsply_Click(); });
  view.on(menu_.no2, Event::click, [this] { chooseLineWidth(true); });
  view.on(menu_.no4, Event::click, [this] { chooseLineWidth(false); });
  view.on(menu_.sve, Event::click, [this] { sve_Click(); });
  view.on(menu_.file, Event::click, [this] {
    menu_.hideDsply.setValue(fields_.North_wndDialPic.visible() || fields_.lndFRme.visible() ? 1 : 0);
  });
  view.on(fields_.North_wndDialPic, Event::dblClick, [this] { turnDials(); });
  view.onKey(fields_.North_wndDialPic, [this](const KeyEvent& key) {
    if (key.name == "Enter") turnDials();
  });
}

void PlotViewCommands::turnDials() {
  sees_.clicks.dialReopen = true;
  sees_.outputs.show(AttachedView::zardzone);
}

void PlotViewCommands::frmfle_Click() {
  constexpr double centimetresPerTwip = 0.001763888888889;
  const auto centimetres = [](double twips) { return Format(twips * centimetresPerTwip, "0.00"); };
  menu_.zoom1.disable();
  fields_.GroundLvl.setVisible(false);
  fields_.showDial(true);
  fields_.sclsdspl.setVisible(false);
  fields_.canvas.setPicture(nullptr);
  if (menu_.selctdwg.tag() == tag::picture) menu_.selctdwg.setTag(tag::none);
  FileDialog dialog{.kind = FileDialog::Kind::open,
                    .title = "QUENDARIS: Select Drawing (" + centimetres(fields_.Drw1.width()) + "cm X " +
                             centimetres(fields_.Drw1.height()) + " cm)",
                    .filter = "All Pictures |*.gif;*.jpg;*.bmp;*.wmf",
                    .name = {},
                    .extension = "gif;jpg;wmf"};
  Trap{[this](const RuntimeFailure& failure) {
    if (failure.reason() != FailureNumber::cancelled)
      fields_.statuslbl.setCaption("\"" + sees_.clicks.drawFile + "\" can't be read as a picture.");
  }}.step([&] {
    sees_.clicks.drawFile = sees_.desktop.fileDialog(dialog).string();
    try {
      fields_.canvas.setPicture(sees_.desktop.loadPicture(sees_.clicks.drawFile));
    } catch (const std::runtime_error& fault) {  // what reads pictures is not there
      fields_.statuslbl.setCaption(fault.what());
      return;
    }
    menu_.selctdwg.setTag(tag::picture);
    sees_.desktop.refresh(fields_.Drw1);
  });
}

void PlotViewCommands::emptyCanvas() {
  menu_.slcsrc.disable();
  fields_.GroundLvl.setVisible(false);
  fields_.canvas.setPicture(nullptr);
  fields_.canvas.Cls();
  fields_.statuslbl.setCaption("");
}

void PlotViewCommands::Expscrn_Click() {
  emptyCanvas();
  const ScreenSize screen = sees_.desktop.screenSize(sees_.view.view);
  if (menu_.Expscrn.caption() == shrinkCaption) {
    layOutPlain(fields_, screen);
    menu_.Expscrn.setCaption(expandCaption);
    return;
  }
  layOutExpanded(fields_, screen);
  menu_.Expscrn.setCaption(shrinkCaption);
  printAt(fields_.canvas, 2, 2, titleLine(fields_, sees_.project));
  if (menu_.selctdwg.tag() != tag::picture) printAt(fields_.canvas, 2, 8, fields_.sclsdspl.caption());
}

void PlotViewCommands::ClrScrn_Click() {
  emptyCanvas();
  for (Field* entry : {&menu_.selctdwg, &menu_.Ftvert, &menu_.fthiznt}) entry->setTag(tag::none);
  sees_.query.drawMode = 0;
  sees_.trace.traceRubber = 0;
  fields_.Xline.field.setVisible(false);
  fields_.sclsdspl.setVisible(true);
  menu_.sltloctn.enable();
}

void PlotViewCommands::hideDsply_Click() {
  const bool shows = menu_.hideDsply.value() == 0;
  fields_.showDial(shows && menu_.fthiznt.tag() != tag::shown);
  fields_.lndFRme.setVisible(shows);
  menu_.hideDsply.setValue(shows ? 1 : 0);
}

void PlotViewCommands::chooseLineWidth(bool thin) {
  menu_.no2.setValue(thin ? 1 : 0);
  menu_.no4.setValue(thin ? 0 : 1);
  sees_.contours.choose(thin);
  try {
    sees_.settings.set(
        contourSetting::application, contourSetting::section, contourSetting::key, thin ? "True" : "False");
  } catch (const std::exception& error) {  // the width holds until the view closes
    fields_.statuslbl.setCaption(std::string{"The line width is not kept: "} + error.what());
  }
}

void PlotViewCommands::sve_Click() {
  constexpr double dotsPerInch = 200;
  const FileDialog dialog{.kind = FileDialog::Kind::save,
                          .title = "QUENDARIS: Save Drawing",
                          .filter = "Pictures |*.bmp",
                          .name = {},
                          .extension = "bmp"};
  silently([&] {  // a dialog that was cancelled
    std::filesystem::path file = sees_.desktop.fileDialog(dialog);
    if (!file.has_extension()) file += "." + dialog.extension;
    sees_.clicks.drawFile = file.string();
    try {
      sees_.desktop.saveDrawing(file,
                                {.drawing = fields_.canvas.drawing(),
                                 .width = fields_.canvas.ScaleWidth(),
                                 .height = fields_.canvas.ScaleHeight(),
                                 .picture = fields_.canvas.picture(),
                                 .legend = {},
                                 .foot = {},
                                 .lineStyles = false,
                                 .dotsPerInch = dotsPerInch});
      fields_.statuslbl.setCaption("Saved: " + file.string());
    } catch (const std::exception& error) {
      fields_.statuslbl.setCaption(error.what());
      sees_.desktop.messageBox(information("Failed to save file."));
    }
  });
}

}  // namespace noldarz
