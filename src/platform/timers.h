// The timers of the views on the clock of a front, and the one rule by which a user who is faster than they are finds
// done what his last step has asked for. A timer is a field: enabled, it fires Event::timer after each of its
// intervals. Every front keeps one Timers, tells it when the user acts, and calls it when the next timer falls due.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include "platform/field.h"
#include "platform/view.h"

namespace noldarz {

class Timers {
 public:
  /// `now`: the clock of the front (ms). `fire`: brings Event::timer to the timer. `changed`: a timer has begun or
  /// stopped.
  Timers(std::function<double()> now, std::function<void(Field&)> fire, std::function<void()> changed = {})
      : now_(std::move(now)), fire_(std::move(fire)), changed_(std::move(changed)) {}

  /// Follows the timers that the views have now. The interval of one begins when its view loads and whenever it is
  /// enabled.
  void watch(Views& views);
  /// Before the fields go: no timer runs.
  void forget() { dues_.clear(); }

  struct Due {
    Field* timer;
    double at;  ///< ms, by the clock of the front
  };
  /// The timer that falls due next; of those that do so at one time the one that began first.
  std::optional<Due> next() const;
  /// Fires it, due or not. It falls due again after its interval, until it is disabled or its view closes.
  void fireNext();

  /// Before the next act of the user: fires each timer that runs, before its time, in the order in which they fall due.
  void settle();

 private:
  struct Order {
    double at;
    std::uint64_t began;
    bool operator<(const Order& other) const { return std::tie(at, began) < std::tie(other.at, other.began); }
  };

  void follow(Field& timer);
  void begin(Field& timer, double from);
  void fire(Field& timer);

  std::function<double()> now_;
  std::function<void(Field&)> fire_;
  std::function<void()> changed_;
  std::map<Field*, Order> dues_;  // enabled timers; those of a view that has closed rest
  std::uint64_t begun_ = 0;
};

}  // namespace noldarz
