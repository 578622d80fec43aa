// A desktop, and a CAD, without a screen: boxes, dialogs and picked points take their replies from a queue and go on
// the record, the focus moves with the events of a real screen, timers run on a clock of their own. The script front
// and the tests use it.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/record.h"
#include "platform/cad/dxf_drawing.h"
#include "platform/desktop.h"
#include "platform/focus.h"
#include "platform/timers.h"
#include "platform/view.h"

namespace noldarz {

class ScriptedDesktop : public Desktop, public CadScreen {
 public:
  explicit ScriptedDesktop(TakeEntry record)
      : record_(std::move(record)), timers_([this] { return now_; }, [](Field& timer) { timer.fire(Event::timer); }) {}

  /// Queues the reply to the next box ("yes", "no", "ok"), dialog ("ok", "cancel", a path) or pick of a point ("X,Y",
  /// "cancel").
  void queueReply(std::string reply) { replies_.push_back(std::move(reply)); }

  /// What answers a question, a box of Yes and No, for which no reply is queued.
  void answerQuestions(std::function<Reply(const MessageBox&)> answer) { answerQuestion_ = std::move(answer); }

  /// A box with no queued reply takes the answer to questions if it is one and there is such, else its default. Throws
  /// ScriptError for a reply that the box doesn't offer.
  Reply messageBox(const MessageBox& box) override;
  /// A dialog with no queued reply is cancelled.
  std::filesystem::path fileDialog(const FileDialog& dialog) override;
  void printerDialog() override;

  void setFocus(Field& field) override;
  void openDropDown(Field& field) override;
  void refresh(Field&) override {}
  void setPointer(Pointer pointer) override { pointer_ = pointer; }
  /// 1920 x 1080 pixels of 1/96 inch.
  ScreenSize screenSize(const View&) override { return {28800, 16200}; }
  void clearClipboard() override;
  void setClipboard(const std::string& text) override;
  std::string clipboard() override { return clipboard_; }
  /// Another program has put the text there.
  void takeClipboard(std::string text) { clipboard_ = std::move(text); }
  /// Goes on the record; there is no other window.
  std::uint64_t activateWindow(const std::string& title) override;
  void runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) override;
  /// Both load the module of pictures (picture_module.h).
  std::shared_ptr<const Image> loadPicture(const std::filesystem::path& file) override;
  void saveDrawing(const std::filesystem::path& file, const DrawingFile& what) override;

  void show(const std::shared_ptr<DxfDrawing>& drawing) override;
  /// A pick with no queued reply is given up.
  CadPoint pickPoint(DxfDrawing& drawing) override;
  void redraw(DxfDrawing&) override {}
  void drop(DxfDrawing& drawing) override;
  /// The question whether additions are to be saved has No as its default.
  void quit() override;

  Pointer pointer() const { return pointer_; }

  /// Moves the focus as a user does; null: to nowhere. What he has asked for before is done first (settle()), then the
  /// field that had it runs its lostFocus rule, which may keep the focus: then it does not move. Tells whether it
  /// arrived.
  bool moveFocus(Field* field);
  /// Before each act of the user: what his last one has asked for by a timer is done.
  void settle() { timers_.settle(); }
  Field* focused() const { return focus_.holder(); }
  /// Before its fields go: no field has the focus, no timer is due.
  void forgetFields();

  void watchTimers(Views& views) { timers_.watch(views); }
  /// Fires the timers in the order in which they fall due, until none is due or for so many milliseconds. No real time
  /// passes. Throws ScriptError for timers that never come to rest.
  void runTimers(std::optional<double> milliseconds);

 private:
  std::optional<std::string> nextReply();
  Reply unqueuedReply(const MessageBox& box) const;

  TakeEntry record_;
  std::deque<std::string> replies_;
  std::function<Reply(const MessageBox&)> answerQuestion_;
  std::string clipboard_;
  Pointer pointer_ = Pointer::standard;
  Focus focus_;
  double now_ = 0;  // ms
  Timers timers_;
  std::vector<std::shared_ptr<DxfDrawing>> drawings_;  // in the order in which they were shown first
};

}  // namespace noldarz
