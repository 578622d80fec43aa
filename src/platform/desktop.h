// All that the logic asks of a screen. A window (desktop/), a script (cli/) and the tests implement it. Timers are
// fields: a front fires Event::timer on an enabled timer field when its time has come.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/field.h"

namespace noldarz {

struct DrawingFile;
struct Image;

enum class Icon : std::uint8_t { none, information, critical };
enum class Buttons : std::uint8_t { ok, yesNo };
enum class Reply : std::uint8_t { ok, yes, no };
enum class Pointer : std::uint8_t { standard, hourglass, cross };

struct MessageBox {
  std::string text;
  Icon icon = Icon::none;
  Buttons buttons = Buttons::ok;
  Reply defaultReply = Reply::ok;
  std::string title = "QUENDARIS";

  bool operator==(const MessageBox&) const = default;
};

inline MessageBox information(std::string text) { return {std::move(text), Icon::information}; }
inline MessageBox critical(std::string text) { return {std::move(text), Icon::critical}; }
/// Yes or No, and No unless the user chooses.
inline MessageBox question(std::string text) { return {std::move(text), Icon::information, Buttons::yesNo, Reply::no}; }

/// The common dialog, set up before it opens. `filter` as the dialog shows it.
struct FileDialog {
  enum class Kind : std::uint8_t { open, save };
  Kind kind = Kind::open;
  std::string title;
  std::string filter;
  std::string name;       ///< default name
  std::string extension;  ///< default extension
};

struct ScreenSize {
  double width = 0;   ///< twips
  double height = 0;  ///< twips
};

class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  /// Shows the box and waits for the reply.
  virtual Reply messageBox(const MessageBox& box) = 0;
  /// Path chosen by the user. Fails with cancelled when the user cancels.
  virtual std::filesystem::path fileDialog(const FileDialog& dialog) = 0;
  /// Lets the user choose a printer. Fails with cancelled when the user cancels.
  virtual void printerDialog() = 0;

  /// Moves the focus to the field, with the lostFocus rule of the field that had it and the gotFocus rule of this
  /// one. Fails with invalidArgument when the field can't take the focus now.
  virtual void setFocus(Field& field) = 0;
  /// Opens the drop-down list of a field and waits until that is processed (key "{F4}").
  virtual void openDropDown(Field& field) = 0;
  /// Paints the field now, while a press runs.
  virtual void refresh(Field& field) = 0;
  virtual void setPointer(Pointer pointer) = 0;
  /// The screen that the window of the view is on, or will be.
  virtual ScreenSize screenSize(const View& view) = 0;

  /// The picture in a file: readPicture (platform/canvas/picture_file.h).
  virtual std::shared_ptr<const Image> loadPicture(const std::filesystem::path& file) = 0;
  /// Writes a drawing: writeDrawing (platform/canvas/drawing_file.h).
  virtual void saveDrawing(const std::filesystem::path& file, const DrawingFile& what) = 0;

  virtual void clearClipboard() = 0;
  virtual void setClipboard(const std::string& text) = 0;
  /// The text on the clipboard; empty when there is none.
  virtual std::string clipboard() = 0;
  /// Activates the top-level window with that title. Its handle; 0 when there is none.
  virtual std::uint64_t activateWindow(const std::string& title) = 0;
  /// Starts a program without waiting for it. Fails with invalidArgument when it can't be started.
  virtual void runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) = 0;
};

}  // namespace noldarz
