// What happened while a script ran, in its order: boxes, dialogs, where the program moved the focus, what a command
// printed. The script front prints it (cli/record_json.h), `run` counts the boxes, tests read it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/desktop.h"

namespace noldarz {

struct BoxShown {
  MessageBox box;
  std::string reply;
  int times = 0;  ///< so many boxes in a row are told as this one; 0: it is one box

  bool operator==(const BoxShown&) const = default;
};

struct DialogShown {
  std::string_view kind;  ///< "open", "save", "printer", or "point" of a CAD drawing
  FileDialog dialog;
  std::string reply;
};

struct Happened {
  std::string_view what;  ///< "focus", "dropDown", "clipboard", "activate" or "program"
  std::string text;       ///< the field, the title of the window, the program
};

/// What a command printed: one JSON object.
struct Printed {
  std::string json;
};

using RecordEntry = std::variant<BoxShown, DialogShown, Happened, Printed>;
using TakeEntry = std::function<void(const RecordEntry&)>;

/// "yes", "no" or "ok".
std::string_view replyName(Reply reply);
/// "critical", "information" or "none".
std::string_view iconName(Icon icon);

}  // namespace noldarz
