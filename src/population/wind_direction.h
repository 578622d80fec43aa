// The wind direction of a view: a slider, the caption beside it and the arm of a dial, kept for the user. The
// population view and the zone view each have one, of one setting.
#pragma once

#include <functional>
#include <string>

#include "platform/dial.h"
#include "platform/settings.h"
#include "population/state.h"

namespace noldarz {

/// Where the wind direction is kept for the user.
namespace windSetting {
inline constexpr const char* application = "noldarz";
inline constexpr const char* section = "wnddegstr";
inline constexpr const char* key = "wnddegstr1";
}  // namespace windSetting

class WindDirection {
 public:
  struct Sees {
    WindState& state;
    const WindArm& arm;
    Field& slider;  // whole degrees
    Field& caption;
    std::function<void(const std::string&)> tell;  // that a direction is not kept
    const Settings& settings;
  };
  explicit WindDirection(const Sees& sees) : sees_(sees) {}

  /// The number that is kept, 0 without one. Fails with typeMismatch when it is no number.
  double kept() const;
  /// Turns the arm, and what tells its degrees.
  void show(int degrees) const;
  /// The user has moved the slider: it is shown, taken and kept.
  void wndsld1_Change() const;

 private:
  Sees sees_;
};

}  // namespace noldarz
