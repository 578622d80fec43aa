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

bool offers(const MessageBox& box, Reply reply) { return (reply == Reply::ok) == (box.buttons == Buttons::ok); }

std::optional<Reply> namedReply(const std::string& text) {
  for (const Reply reply : {Reply::ok, Reply::yes, Reply::no})
    if (text == replyName(reply)) return reply;
  return {};
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
  const std::string text = nextReply().value_or(std::string{replyName(box.defaultReply)});
  record_({{"box",
            {{"title", box.title},
             {"text", box.text},
             {"icon", iconName(box.icon)},
             {"buttons", box.buttons == Buttons::ok ? "ok" : "yesno"},
             {"default", replyName(box.defaultReply)},
             {"reply", text}}}});
  const auto reply = namedReply(text);
  if (!reply || !offers(box, *reply))
    throw ScriptError("the box \"" + box.text + "\" does not offer the reply \"" + text + "\"");
  return *reply;
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

void ScriptedDesktop::watchTimers(Views& views) {
  const auto follow = [this](const Field& timer) {
    if (timer.enabled())
      dues_[&timer] = now_ + timer.value();
    else
      dues_.erase(&timer);
  };
  for (View* view : views.all()) {
    for (const Field& field : view->fields())
      if (field.kind() == FieldKind::timer) follow(field);
    view->observe([follow](const Field& field, Property property) {
      if (field.kind() == FieldKind::timer && property == Property::enabled) follow(field);
    });
  }
}

void ScriptedDesktop::runTimers(std::optional<double> milliseconds) {
  const double until = milliseconds ? now_ + *milliseconds : std::numeric_limits<double>::infinity();
  const auto isNext = [](const auto& a, const auto& b) {
    // A timer of a view that is not loaded rests.
    if (a.first->view().loaded() != b.first->view().loaded()) return a.first->view().loaded();
    return a.second < b.second;
  };
  for (int fired = 0;; ++fired) {
    const auto next = std::min_element(dues_.begin(), dues_.end(), isNext);
    if (next == dues_.end() || !next->first->view().loaded() || next->second > until) break;
    const Field& timer = *next->first;
    if (fired == timerLimit) throw ScriptError("the timer " + fullName(timer) + " does not come to rest");
    now_ = std::max(now_, next->second);
    next->second = now_ + timer.value();  // it repeats until it is disabled
    timer.view().find(timer.name())->fire(Event::timer);
  }
  if (milliseconds) now_ = until;
}

}  // namespace noldarz
