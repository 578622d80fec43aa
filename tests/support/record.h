// The record of a script as the tests read it.
#pragma once

#include <string>
#include <vector>

#include "cli/record.h"

namespace noldarz::test {

using Texts = std::vector<std::string>;

struct Record : std::vector<RecordEntry> {
  TakeEntry taker() {
    return [this](const RecordEntry& entry) { push_back(entry); };
  }

  /// The boxes, as a function of each tells them; their texts without one.
  template <class Tell>
  Texts boxes(Tell tell) const {
    Texts texts;
    for (const RecordEntry& entry : *this)
      if (const auto* shown = std::get_if<BoxShown>(&entry)) texts.push_back(tell(*shown));
    return texts;
  }
  Texts boxes() const {
    return boxes([](const BoxShown& shown) { return shown.box.text; });
  }
  /// "critical: text".
  Texts boxesWithIcons() const { return boxes(withIcon); }

  /// Boxes as boxesWithIcons() has them, and all else as "focus dspmnfrm.comput".
  Texts lines() const {
    Texts lines;
    for (const RecordEntry& entry : *this) {
      if (const auto* shown = std::get_if<BoxShown>(&entry)) lines.push_back(withIcon(*shown));
      if (const auto* happened = std::get_if<Happened>(&entry))
        lines.push_back(std::string{happened->what} + " " + happened->text);
    }
    return lines;
  }
  /// What the last command printed.
  std::string printed() const {
    std::string json;
    for (const RecordEntry& entry : *this)
      if (const auto* line = std::get_if<Printed>(&entry)) json = line->json;
    return json;
  }

 private:
  static std::string withIcon(const BoxShown& shown) {
    return std::string{iconName(shown.box.icon)} + ": " + shown.box.text;
  }
};

}  // namespace noldarz::test
