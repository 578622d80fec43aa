// A System on a scripted desktop whose record a test reads: the program as a script drives it, with field access.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/script.h"
#include "support/record.h"

namespace noldarz::test {

class TestSystem {
 public:
  /// Without a study, and with nothing of the user who runs the tests.
  TestSystem() : session(record.taker(), Folders{"/", "/", "/"}) {}

  Field& field(const std::string& name) {
    Field* found = session.system().mainView().view.find(name);
    if (!found) throw std::logic_error("no field " + name);
    return *found;
  }
  std::string text(const std::string& name) { return field(name).text(); }
  void set(const std::map<std::string, std::string>& texts) {
    for (const auto& [name, value] : texts) field(name).setText(value);
  }
  /// A gas of the density of air near the ground in class "D"; tests change what they are about.
  void setRelease() {
    set({{"scnrotypetxt", "PLUME"},
         {"QntyRelstxt", "5"},
         {"molwttxt", "29"},
         {"vapordnstytxt", "1"},
         {"tempStore", "27"},
         {"htreltxt", "1"},
         {"htsmul", "1"},
         {"wndveltxt", "6"}});
  }
  void setLevels(const std::vector<std::string>& levels) {
    for (int i = 0; i < levelCount; ++i) main().level.constn[i].setText(levels.at(static_cast<std::size_t>(i)));
  }
  void press() { field("comput").fire(Event::click); }
  void reply(const std::string& text) { session.desktop().queueReply(text); }

  MainView& main() { return session.system().mainView(); }
  const RunState& state() { return session.system().state(); }

  /// Texts of the boxes since the last call.
  Texts takeBoxes() {
    Texts texts = record.boxes();
    record.clear();
    return texts;
  }

  Record record;
  ScriptSession session;
};

}  // namespace noldarz::test
