#include "scenario/start_up.h"

#include <filesystem>

#include "engine/air.h"
#include "platform/text.h"
#include "scenario/level_choice.h"
#include "study/layout.h"
#include "study/missing_heights.h"
#include "toxic/distance_limits.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mainModuleTitle{"VELKORDA"};

/// The study beside the current folder, which moves one folder up on the way.
std::string studyBeside() {
  std::error_code error;
  enterFolder(fs::current_path(error).parent_path());
  return (fs::current_path(error) / "data" / "orgtn.mdb").string();
}

}  // namespace

StartUp::StartUp(const Sees& sees) : sees_(sees) {
  View& view = sees_.main.view;
  view.onFront([this] { comeToFront(); });
  view.onPaint([this] { paint(); });
  view.onClosing([this] { closeAll(); });
  view.onClose([this] { end(); });
  view.on(sees_.main.scenario.Tmr_2, Event::timer, [this] { settleFocus(); });
  for (Field* field : {&sees_.main.scenario.clsfrm1, &sees_.main.scenario.exit})
    view.on(*field, Event::click, [this] { sees_.main.view.close(); });
  const auto noSheet = [this] { sees_.status.say("The explanation sheet is not part of this version."); };
  view.on(sees_.main.scenario.helpVinf, Event::click, noSheet);
  for (int i = 0; i < sees_.main.scenario.headings.size(); ++i)
    view.on(sees_.main.scenario.headings[i], Event::dblClick, noSheet);
}

void StartUp::start() {
  sees_.main.scenario.Tmr_2.enable();
  sees_.main.view.load();
  if (!openStudy()) return;
  const Trap skipping = sees_.status.skipping();
  skipping.step([&] { sees_.links.dt3.refresh(); });
  skipping.steps([&] { sees_.queries.use(sees_.links.dt4, &Queries::buildQryChem, sees_.study.qryChem); },
                 [&] { sees_.links.dt4.refresh(); });
  openHeights(skipping);
  takeScenario(skipping);
  sees_.state.mapScale = 1.0;
  skipping.step([&] { enterFolder(sees_.folders.program); });
  sees_.probit.prbtLoadConstants();
  skipping.steps(
      [&] { takeStabilityClass(); }, [&] { sees_.main.scenario.tmr_1.enable(); }, [&] { takeLimitChoice(); });
  sees_.main.view.show();
}

bool StartUp::openStudy() {
  const ProjectFields& project = sees_.main.project;
  const ToxicFields& toxic = sees_.main.toxic;
  std::string fault;
  const auto step = [&](auto&& statement) {
    if (!fault.empty()) return;
    try {
      statement();
    } catch (const RuntimeFailure& failure) {
      if (failure.reason() != FailureNumber::listRefuses) fault = failure.what();
    }
  };
  step([&] { sees_.contours.lineWidthFlag = true; });
  step([&] { toxic.FatatyDistDsplyLbl.setCaption(""); });
  step([&] { toxic.InjuryDistDsplyLbl.setCaption(""); });
  step([&] { sees_.main.view.setTitle(mainViewTitle); });
  step([&] { sees_.study.dbPath = studyBeside(); });
  for (DataLink* link : sees_.links.all()) step([&] { link->setDatabaseName(sees_.study.dbPath); });
  step([&] { sees_.queries.use(sees_.links.dt1, &Queries::buildQryProject, sees_.study.qryProject); });
  step([&] { sees_.links.dt1.refresh(); });
  step([&] { sees_.queries.use(sees_.links.dt2, &Queries::buildQryScenario, sees_.study.qryScenario); });
  step([&] { sees_.links.dt2.refresh(); });
  // A name that can't be looked up is no missing file.
  if (fault.empty())
    sees_.status.skipping().step(
        [&] { sees_.queries.use(sees_.links.dt3, &Queries::buildQryDisp, sees_.study.qryDisp); });
  if (const auto study = sees_.links.dt2.database(); study && !study->foreign().empty())
    sees_.status.hold("schema", "The study is read only: it holds " + study->foreign() + ".");
  step([&] { project.scnrotxtlbl.setText(project.scnrotxt.text()); });
  if (!fault.empty()) sees_.requiredFiles.open(sees_.main.view, fault);
  return fault.empty();
}

void StartUp::openHeights(const Trap& skipping) {
  DataLink& heights = sees_.links.dt3;
  const ProjectFields& project = sees_.main.project;
  const bool missing = skipping.holds([&] { return heights.absolutePosition() == -1; });
  if (missing && !project.refnolbl.caption().empty()) {
    skipping.steps(
        [&] {
          heights.insert({{"refNo", project.refnolbl.caption()}});
        },
        [&] { heights.bind(project.reftmptxt, "refNo"); });
  } else if (skipping.holds([&] { return heights.text("refNo") == project.refnolbl.caption(); })) {
    skipping.step([&] { heights.moveFirst(); });
  }
  sees_.status.hold("heights", missingHeights(sees_.main.in));
}

void StartUp::takeScenario(const Trap& skipping) {
  sees_.study.scnrText = sees_.main.project.scnrotxt.text();
  sees_.study.scnrKeyByText = 0;
  skipping.step([&] {
    const Cell& asked = sees_.links.dt2.value("scenariotxtTmp");
    if (holdsNothing(asked) || textOf(asked) == noRunAsked) return;
    sees_.study.scnrKeyByText = 1;
    sees_.study.scnrUserText = textOf(asked);
  });
}

void StartUp::takeStabilityClass() {
  sees_.state.stblClassStored = sees_.links.dt2.text("StblCls");
  if (isOneOf(stabilityClassEntries, sees_.state.stblClassStored))
    sees_.main.in.stblclscbo.setText(sees_.state.stblClassStored);
}

void StartUp::takeLimitChoice() {
  const std::string choice =
      sees_.settings.get(limitChoice::application, limitChoice::section, limitChoice::key).value_or("1");
  sees_.main.in.MaxFtlyDstOptn.setValue(toInteger(strictNumber(choice)));
  sees_.main.in.MaxFtlyDstOptn.setCaption(
      sees_.main.in.MaxFtlyDstOptn.value() == 1 ? limitChoice::byProbit : limitChoice::byConcentrationAtStart);
}

void StartUp::settleFocus() {
  sees_.status.skipping().steps([&] { sees_.desktop.setFocus(sees_.main.in.stblclscbo); },
                                [&] { sees_.desktop.setFocus(sees_.main.project.scnrotxtlbl); });
  sees_.main.scenario.Tmr_2.disable();
}

void StartUp::comeToFront() {
  sees_.main.scenario.conctxt1.setVisible(false);
  if (!isFlammable(sees_.main.project)) nameUpperLevels(sees_.main.level, sees_.main.result);
}

void StartUp::paint() {
  sees_.status.skipping().step([&] { sees_.links.dt2a.refresh(); });
}

void StartUp::closeAll() {
  sees_.outputs.closeViews();
  // What was typed and not left yet is kept as if the field had been left.
  for (DataLink* link : sees_.links.all()) closeLink(*link);
}

void StartUp::closeLink(DataLink& link) {
  for (;;) try {
      return link.close();
    } catch (const RuntimeFailure& failure) {
      const std::string edits = link.pendingEdits();
      MessageBox box = critical("Not stored: " + (edits.empty() ? "the last change" : edits) + ".\n" + failure.what() +
                                "\nTry again?");
      box.buttons = Buttons::yesNo;
      box.defaultReply = Reply::no;
      if (sees_.desktop.messageBox(box) != Reply::yes) return link.abandon();
    }
}

void StartUp::end() { sees_.state.mainWnd = sees_.desktop.activateWindow(std::string{mainModuleTitle}); }

}  // namespace noldarz
