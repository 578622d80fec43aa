// A desktop that shows nothing and asks nobody: for what is drawn apart from all views. What a box would say is kept.
#pragma once

#include <string>

#include "platform/desktop.h"
#include "platform/failure.h"

namespace noldarz {

class QuietDesktop : public Desktop {
 public:
  /// The text of the last box; empty: there was none since forget().
  const std::string& said() const { return said_; }
  void forget() { said_.clear(); }

  Reply messageBox(const MessageBox& box) override {
    said_ = box.text;
    return box.defaultReply;
  }
  std::filesystem::path fileDialog(const FileDialog&) override { fail(FailureNumber::cancelled); }
  void printerDialog() override { fail(FailureNumber::cancelled); }
  void setFocus(Field&) override {}
  void openDropDown(Field&) override {}
  void refresh(Field&) override {}
  void setPointer(Pointer) override {}
  ScreenSize screenSize(const View&) override { return {}; }
  std::shared_ptr<const Image> loadPicture(const std::filesystem::path&) override { fail(FailureNumber::noSuchFile); }
  void saveDrawing(const std::filesystem::path&, const DrawingFile&) override { fail(FailureNumber::noSuchFile); }
  void clearClipboard() override {}
  void setClipboard(const std::string&) override {}
  std::string clipboard() override { return {}; }
  std::uint64_t activateWindow(const std::string&) override { return 0; }
  void runProgram(const std::filesystem::path&, const std::vector<std::string>&) override {
    fail(FailureNumber::invalidArgument);
  }

 private:
  std::string said_;
};

}  // namespace noldarz
