#include "desktop/binder/kinds.h"

#include <array>

namespace noldarz {

std::unique_ptr<Adapter> adapterOf(Field& field, QWidget& widget, const UserActs& acts) {
  constexpr std::array kinds{
      drawnAdapter, textAdapter, labelAdapter, buttonAdapter, comboAdapter, listAdapter, sliderAdapter, barAdapter};
  for (const auto kind : kinds)
    if (auto adapter = kind(field, widget, acts)) return adapter;
  return std::make_unique<Adapter>(field, widget, acts);
}

}  // namespace noldarz
