// What the pointer and the keys do on a field that is drawn: canvas, dial. Made by a front, taken by the rules of a
// view.
#pragma once

#include <cstdint>
#include <string>

namespace noldarz {

struct PointerEvent {
  enum class Act : std::uint8_t { down, move, up, twice };
  enum class Button : std::uint8_t { none, left, right };

  Act act = Act::move;
  Button button = Button::none;
  double x = 0;  ///< in the unit of the field, from its left edge
  double y = 0;  ///< and its top edge
  bool shift = false;
  bool control = false;
};

struct KeyEvent {
  std::string name;  ///< "Enter", "Escape", "Left", "PageUp", "F4", "a"; before it "Shift+", "Ctrl+", "Alt+"
};

}  // namespace noldarz
