#include "cli/scripted_desktop.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "cli/words.h"
#include "platform/failure.h"

namespace noldarz {

namespace {

constexpr int timerLimit = 10000;  // firings of one wait; the program's own timers are one-shot

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

Reply offeredReply(const MessageBox& box, const std::string& text) {
  for (const Reply reply : {Reply::ok, Reply::yes, Reply::no})
    if (text == replyName(reply) && (reply == Reply::ok) == (box.buttons == Buttons::ok)) return reply;
  throw ScriptError("the box \"" + box.text + "\" does not offer the reply \"" + text + "\"");
}

std::string fullName(const Field& field) { return field.view().name() + "." + field.name(); }

}  // namespace

std::optional<std::string> ScriptedDesktop::nextReply() {
  if (replies_.empty()) return {};
  std::string reply = std::move(replies_.front());
  replies_.pop_front();
  return reply;
}

Reply ScriptedDesktop::messageBox(const MessageBox& box) {
  const auto queued = nextReply();
  const Reply reply = queued ? offeredReply(box, *queued) : box.defaultReply;
  record_({{"box",
            {{"title", box.title},
             {"text", box.text},
             {"icon", iconName(box.icon)},
             {"buttons", box.buttons == Buttons::ok ? "ok" : "yesno"},
             {"default", replyName(box.defaultReply)},
             {"reply", replyName(reply)}}}});
  return reply;
}

std::filesystem::path ScriptedDesktop::fileDialog(const FileDialog& dialog) {
  const std::string reply = nextReply().value_or("cancel");
  record_({{"dialog",
            {{"kind", dialog.kind == FileDialog::Kind::open ? "open" : "save"},
             {"title", dialog.title},
             {"filter", dialog.filter},
             {"name", dialog.name},
             {"extension", dialog.extension},
             {"reply", reply}}}});
  if (reply == "cancel") fail(FailureNumber::cancelled);
  return reply;
}

void ScriptedDesktop::printerDialog() {
  const std::string reply = nextReply().value_or("cancel");
  if (reply != "ok" && reply != "cancel")
    throw ScriptError("the printer dialog does not offer the reply \"" + reply + "\"");
  record_({{"dialog", {{"kind", "printer"}, {"reply", reply}}}});
  if (reply == "cancel") fail(FailureNumber::cancelled);
}

void ScriptedDesktop::setFocus(Field& field) {
  if (!field.usable()) fail(FailureNumber::invalidArgument);
  record_({{"focus", fullName(field)}});
  moveFocus(&field);
}

bool ScriptedDesktop::moveFocus(Field* field) {
  if (field == focused_) return true;
  if (Field* left = std::exchange(focused_, nullptr)) {
    left->fire(Event::lostFocus);
    if (focused_) return focused_ == field;  // the rule took the focus back, or elsewhere
  }
  focused_ = field;
  if (field) field->fire(Event::gotFocus);
  return focused_ == field;
}

void ScriptedDesktop::openDropDown(Field& field) { record_({{"dropDown", fullName(field)}}); }

void ScriptedDesktop::clearClipboard() { record_({{"clipboard", ""}}); }

bool ScriptedDesktop::activateWindow(const std::string& title) {
  record_({{"activate", title}});
  return false;
}

void ScriptedDesktop::runProgram(const std::filesystem::path& program) { record_({{"program", program.string()}}); }

Field* ScriptedDesktop::nextTimer(Views& views) {
  std::map<Field*, double> enabled;
  Field* next = nullptr;
  for (View* view : views.open())
    for (Field& field : view->fields()) {
      if (field.kind() != FieldKind::timer || !field.enabled()) continue;
      const auto known = dues_.find(&field);
      const double due = known == dues_.end() ? now_ + field.value() : known->second;
      enabled[&field] = due;
      if (!next || due < enabled[next]) next = &field;
    }
  dues_ = std::move(enabled);
  return next;
}

void ScriptedDesktop::runTimers(Views& views, std::optional<double> milliseconds) {
  const double until = milliseconds ? now_ + *milliseconds : std::numeric_limits<double>::infinity();
  for (int fired = 0; Field* timer = nextTimer(views); ++fired) {
    if (dues_[timer] > until) break;
    if (fired == timerLimit) throw ScriptError("the timer " + fullName(*timer) + " does not come to rest");
    now_ = std::max(now_, dues_[timer]);
    dues_.erase(timer);
    timer->fire(Event::timer);
  }
  if (milliseconds) now_ = until;
}

}  // namespace noldarz
