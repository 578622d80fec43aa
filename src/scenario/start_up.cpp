#include "scenario/start_up.h"

#include <filesystem>

#include "engine/air.h"
#include "platform/text.h"
#include "scenario/level_choice.h"
#include "scenario/missing_heights.h"
#include "scenario/study_layout.h"
#include "toxic/distance_limits.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mainModuleTitle{"VELKORDA"};

// Views that close with the main view, in this order.
constexpr std::array<std::string_view, 7> attachedViews{
    "chldfrm", "Drwfrm", "absltftlyfrm", "mixconcfrm", "aniwait1", "zardzone", "ScrnCapt"};

/// The study beside the current folder, which moves one folder up on the way.
std::string studyBeside() {
  std::error_code error;
  enterFolder(fs::current_path(error).parent_path());
  return (fs::current_path(error) / "data" / "orgtn.mdb").string();
}

}  // namespace

StartUp::StartUp(Views& views, MainView& main, ScenarioState& state, MainLinks& links, Queries& queries,
                 ProbitConstants& probit, RequiredFiles& requiredFiles, const Folders& folders,
                 const Settings& settings, Desktop& desktop, StatusLine& status)
    : views_(views),
      main_(main),
      state_(state),
      links_(links),
      queries_(queries),
      probit_(probit),
      requiredFiles_(requiredFiles),
      folders_(folders),
      settings_(settings),
      desktop_(desktop),
      status_(status) {
  View& view = main_.view;
  view.onFront([this] { comeToFront(); });
  view.onPaint([this] { paint(); });
  view.onClosing([this] { closeAll(); });
  view.onClose([this] { end(); });
  view.on(main_.scenario.Tmr_2, Event::timer, [this] { settleFocus(); });
  for (Field* field : {&main_.scenario.clsfrm1, &main_.scenario.exit})
    view.on(*field, Event::click, [this] { main_.view.close(); });
  const auto noSheet = [this] { status_.say("The explanation sheet is not part of this version."); };
  view.on(main_.scenario.helpVinf, Event::click, noSheet);
  for (int i = 0; i < main_.scenario.headings.size(); ++i)
    view.on(main_.scenario.headings[i], Event::dblClick, noSheet);
}

void StartUp::start() {
  main_.scenario.Tmr_2.enable();
  main_.view.load();
  if (!openStudy()) return;
  const Trap skipping = status_.skipping();
  skipping.step([&] { links_.dt3.refresh(); });
  skipping.steps([&] { queries_.use(links_.dt4, &Queries::buildQryChem, state_.qryChem); },
                 [&] { links_.dt4.refresh(); });
  openHeights(skipping);
  main_.command.prntprv.setEntries({outputEntries.begin(), outputEntries.end()});
  takeScenario(skipping);
  state_.mapScale = 1.0;
  skipping.step([&] { enterFolder(folders_.program); });
  probit_.prbtLoadConstants();
  skipping.steps([&] { takeStabilityClass(); }, [&] { main_.scenario.tmr_1.enable(); }, [&] { takeLimitChoice(); });
  main_.view.show();
}

bool StartUp::openStudy() {
  const ScenarioFields& fields = main_.scenario;
  const ToxicFields& toxic = main_.toxic;
  std::string fault;
  const auto step = [&](auto&& statement) {
    if (!fault.empty()) return;
    try {
      statement();
    } catch (const RuntimeFailure& failure) {
      if (failure.reason() != FailureNumber::listRefuses) fault = failure.what();
    }
  };
  step([&] { state_.lineWidthFlag = true; });
  step([&] { toxic.FatatyDistDsplyLbl.setCaption(""); });
  step([&] { toxic.InjuryDistDsplyLbl.setCaption(""); });
  step([&] { main_.view.setTitle(mainViewTitle); });
  step([&] { state_.dbPath = studyBeside(); });
  for (DataLink* link : links_.all()) step([&] { link->setDatabaseName(state_.dbPath); });
  step([&] { queries_.use(links_.dt1, &Queries::buildQryProject, state_.qryProject); });
  step([&] { links_.dt1.refresh(); });
  step([&] { queries_.use(links_.dt2, &Queries::buildQryScenario, state_.qryScenario); });
  step([&] { links_.dt2.refresh(); });
  // A name that can't be looked up is no missing file.
  if (fault.empty()) status_.skipping().step([&] { queries_.use(links_.dt3, &Queries::buildQryDisp, state_.qryDisp); });
  if (const auto study = links_.dt2.database(); study && !study->foreign().empty())
    status_.hold("schema", "The study is read only: it holds " + study->foreign() + ".");
  step([&] { fields.scnrotxtlbl.setText(fields.scnrotxt.text()); });
  if (!fault.empty()) requiredFiles_.open(main_.view, fault);
  return fault.empty();
}

void StartUp::openHeights(const Trap& skipping) {
  DataLink& heights = links_.dt3;
  const ScenarioFields& fields = main_.scenario;
  const bool missing = skipping.holds([&] { return heights.absolutePosition() == -1; });
  if (missing && !fields.refnolbl.caption().empty()) {
    skipping.steps(
        [&] {
          heights.insert({{"refNo", fields.refnolbl.caption()}});
        },
        [&] { heights.bind(fields.reftmptxt, "refNo"); });
  } else if (skipping.holds([&] { return heights.text("refNo") == fields.refnolbl.caption(); })) {
    skipping.step([&] { heights.moveFirst(); });
  }
  status_.hold("heights", missingHeights(main_.in));
}

void StartUp::takeScenario(const Trap& skipping) {
  state_.scnrText = main_.scenario.scnrotxt.text();
  state_.scnrKeyByText = 0;
  skipping.step([&] {
    const Cell& asked = links_.dt2.value("scenariotxtTmp");
    if (holdsNothing(asked) || textOf(asked) == noRunAsked) return;
    state_.scnrKeyByText = 1;
    state_.scnrUserText = textOf(asked);
  });
}

void StartUp::takeStabilityClass() {
  state_.stblClassStored = links_.dt2.text("StblCls");
  if (isOneOf(stabilityClassEntries, state_.stblClassStored)) main_.in.stblclscbo.setText(state_.stblClassStored);
}

void StartUp::takeLimitChoice() {
  const std::string choice =
      settings_.get(limitChoice::application, limitChoice::section, limitChoice::key).value_or("1");
  main_.in.MaxFtlyDstOptn.setValue(toInteger(strictNumber(choice)));
  main_.in.MaxFtlyDstOptn.setCaption(main_.in.MaxFtlyDstOptn.value() == 1 ? limitChoice::byProbit
                                                                          : limitChoice::byConcentrationAtStart);
}

void StartUp::settleFocus() {
  status_.skipping().steps([&] { desktop_.setFocus(main_.in.stblclscbo); },
                           [&] { desktop_.setFocus(main_.scenario.scnrotxtlbl); });
  main_.scenario.Tmr_2.disable();
}

void StartUp::comeToFront() {
  main_.scenario.conctxt1.setVisible(false);
  if (!isFlammable(main_.scenario)) nameUpperLevels(main_.level, main_.result);
}

void StartUp::paint() {
  status_.skipping().step([&] { links_.dt2a.refresh(); });
}

void StartUp::closeAll() {
  for (const auto name : attachedViews)
    if (View* view = views_.find(name)) view->close();
  // What was typed and not left yet is kept as if the field had been left.
  for (DataLink* link : links_.all()) closeLink(*link);
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
      if (desktop_.messageBox(box) != Reply::yes) return link.abandon();
    }
}

void StartUp::end() { state_.mainWnd = desktop_.activateWindow(std::string{mainModuleTitle}); }

}  // namespace noldarz
