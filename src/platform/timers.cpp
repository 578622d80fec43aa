#include "platform/timers.h"

#include <algorithm>

namespace noldarz {

void Timers::watch(Views& views) {
  for (View* view : views.all()) {
    std::vector<Field*> timers;
    for (Field& field : view->fields())
      if (field.kind() == FieldKind::timer) timers.push_back(&field);
    if (timers.empty()) continue;
    const auto followAll = [this, timers] {
      for (Field* timer : timers) follow(*timer);
    };
    if (view->loaded()) followAll();
    view->onLoad(followAll);
    view->onClose(followAll);
    view->observe([this](Field& field, Property property) {
      if (field.kind() == FieldKind::timer && property == Property::enabled) follow(field);
    });
  }
}

void Timers::follow(Field& timer) {
  if (timer.enabled() && timer.view().loaded())
    begin(timer, now_());
  else
    dues_.erase(&timer);
  if (changed_) changed_();
}

void Timers::begin(Field& timer, double from) { dues_[&timer] = {from + timer.value(), ++begun_}; }

std::optional<Timers::Due> Timers::next() const {
  const auto least =
      std::min_element(dues_.begin(), dues_.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  if (least == dues_.end()) return {};
  return Due{least->first, least->second.at};
}

void Timers::fireNext() {
  if (const auto due = next()) fire(*due->timer);
}

void Timers::fire(Field& timer) {
  begin(timer, std::max(now_(), dues_.at(&timer).at));
  fire_(timer);
  if (changed_) changed_();
}

void Timers::settle() {
  std::vector<std::pair<Order, Field*>> running;
  for (const auto& [timer, order] : dues_) running.emplace_back(order, timer);
  std::sort(running.begin(), running.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [order, timer] : running)
    if (dues_.contains(timer)) fire(*timer);  // the one before may have stopped it
}

}  // namespace noldarz
