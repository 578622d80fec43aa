#include "cli/scripted_desktop.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "cli/picture_module.h"
#include "cli/points.h"
#include "cli/script_error.h"
#include "platform/failure.h"
#include "platform/process.h"

namespace noldarz {

namespace {

constexpr int timerLimit = 10000;  // firings of one wait; the program's own timers are one-shot

bool offers(const MessageBox& box, Reply reply) { return (reply == Reply::ok) == (box.buttons == Buttons::ok); }

std::optional<Reply> namedReply(const std::string& text) {
  for (const Reply reply : {Reply::ok, Reply::yes, Reply::no})
    if (text == replyName(reply)) return reply;
  return {};
}

}  // namespace

std::string_view replyName(Reply reply) {
  switch (reply) {
    case Reply::yes: return "yes";
    case Reply::no: return "no";
    default: return "ok";
  }
}

std::string_view iconName(Icon icon) {
  switch (icon) {
    case Icon::critical: return "critical";
    case Icon::information: return "information";
    default: return "none";
  }
}

std::optional<std::string> ScriptedDesktop::nextReply() {
  if (replies_.empty()) return {};
  std::string reply = std::move(replies_.front());
  replies_.pop_front();
  return reply;
}

Reply ScriptedDesktop::unqueuedReply(const MessageBox& box) const {
  return box.buttons == Buttons::yesNo && answerQuestion_ ? answerQuestion_(box) : box.defaultReply;
}

Reply ScriptedDesktop::messageBox(const MessageBox& box) {
  const auto queued = nextReply();
  const std::string text = queued ? *queued : std::string{replyName(unqueuedReply(box))};
  record_(BoxShown{box, text});
  const auto reply = namedReply(text);
  if (!reply || !offers(box, *reply))
    throw ScriptError("the box \"" + box.text + "\" does not offer the reply \"" + text + "\"");
  return *reply;
}

std::filesystem::path ScriptedDesktop::fileDialog(const FileDialog& dialog) {
  const std::string reply = nextReply().value_or("cancel");
  record_(DialogShown{dialog.kind == FileDialog::Kind::open ? "open" : "save", dialog, reply});
  if (reply == "cancel") fail(FailureNumber::cancelled);
  return reply;
}

void ScriptedDesktop::printerDialog() {
  const std::string reply = nextReply().value_or("cancel");
  if (reply != "ok" && reply != "cancel")
    throw ScriptError("the printer dialog does not offer the reply \"" + reply + "\"");
  record_(DialogShown{"printer", {}, reply});
  if (reply == "cancel") fail(FailureNumber::cancelled);
}

void ScriptedDesktop::setFocus(Field& field) {
  if (!field.usable() || !field.takesFocus()) fail(FailureNumber::invalidArgument);
  record_(Happened{"focus", field.fullName()});
  focus_.moveTo(&field);
}

bool ScriptedDesktop::moveFocus(Field* field) {
  if (field != focus_.holder()) focus_.commit();
  settle();
  return focus_.moveTo(field);
}

void ScriptedDesktop::forgetFields() {
  focus_.forget();
  timers_.forget();
}

void ScriptedDesktop::openDropDown(Field& field) { record_(Happened{"dropDown", field.fullName()}); }

void ScriptedDesktop::clearClipboard() { setClipboard(""); }

void ScriptedDesktop::setClipboard(const std::string& text) {
  clipboard_ = text;
  record_(Happened{"clipboard", text});
}

std::uint64_t ScriptedDesktop::activateWindow(const std::string& title) {
  record_(Happened{"activate", title});
  return 0;
}

void ScriptedDesktop::runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  startProgram(program, arguments);
  record_(Happened{"program", program.string()});
}

std::shared_ptr<const Image> ScriptedDesktop::loadPicture(const std::filesystem::path& file) {
  return pictureModule().read(file);
}

void ScriptedDesktop::saveDrawing(const std::filesystem::path& file, const DrawingFile& what) {
  pictureModule().write(file, what);
}

void ScriptedDesktop::show(const std::shared_ptr<DxfDrawing>& drawing) {
  if (std::find(drawings_.begin(), drawings_.end(), drawing) == drawings_.end()) drawings_.push_back(drawing);
}

CadPoint ScriptedDesktop::pickPoint(DxfDrawing&) {
  const std::string reply = nextReply().value_or("cancel");
  record_(DialogShown{"point", {}, reply});
  if (reply == "cancel") throw CadFailure("No point was picked.", FailureNumber::cancelled);
  const auto point = pointOf(reply);
  if (!point) throw ScriptError("the pick of a point does not take the reply \"" + reply + "\"");
  return {point->x, point->y, 0};
}

void ScriptedDesktop::drop(DxfDrawing& drawing) {
  std::erase_if(drawings_, [&](const auto& shown) { return shown.get() == &drawing; });
}

void ScriptedDesktop::quit() {
  const auto drawings = std::exchange(drawings_, {});
  for (const auto& drawing : drawings) {
    drawing->close();
    if (!drawing->modified()) continue;
    MessageBox box = information("Save the changes to \"" + drawing->name() + "\"?");
    box.buttons = Buttons::yesNo;
    box.defaultReply = Reply::no;
    if (messageBox(box) != Reply::yes) continue;
    Trap{[this](const RuntimeFailure& failure) { messageBox(critical(failure.what())); }}.step(
        [&] { drawing->save(); });
  }
}

void ScriptedDesktop::runTimers(std::optional<double> milliseconds) {
  const double until = milliseconds ? now_ + *milliseconds : std::numeric_limits<double>::infinity();
  for (int fired = 0;; ++fired) {
    const auto next = timers_.next();
    if (!next || next->at > until) break;
    if (fired == timerLimit) throw ScriptError("the timer " + next->timer->fullName() + " does not come to rest");
    now_ = std::max(now_, next->at);
    timers_.fireNext();
  }
  if (milliseconds) now_ = until;
}

}  // namespace noldarz
