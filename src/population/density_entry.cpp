#include "population/density_entry.h"

#include "platform/failure.h"
#include "population/grid.h"

namespace noldarz {

namespace {

constexpr Colour pink{255, 192, 192};
constexpr const char* refusal = "Enter the value in numeric";

}  // namespace

bool acceptsDensity(Field& field, Colour ground, Desktop& desktop) {
  field.setBackColour(ground);
  if (faultOfDensity(field.text()).empty()) return true;
  desktop.messageBox(critical(refusal));
  silently([&] { desktop.setFocus(field); });
  field.setFault(refusal);
  field.setBackColour(pink);
  return false;
}

}  // namespace noldarz
