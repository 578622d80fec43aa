// The kinds of widgets that show a field. Used by the binder through adapterOf().
#pragma once

#include <memory>

#include "desktop/binder/adapter.h"

namespace noldarz {

// Each gives an adapter when the widget is of its kind, else null.
std::unique_ptr<Adapter> textAdapter(Field& field, QWidget& widget, const UserActs& acts);
std::unique_ptr<Adapter> labelAdapter(Field& field, QWidget& widget, const UserActs& acts);
std::unique_ptr<Adapter> buttonAdapter(Field& field, QWidget& widget, const UserActs& acts);
std::unique_ptr<Adapter> comboAdapter(Field& field, QWidget& widget, const UserActs& acts);
std::unique_ptr<Adapter> listAdapter(Field& field, QWidget& widget, const UserActs& acts);
std::unique_ptr<Adapter> sliderAdapter(Field& field, QWidget& widget, const UserActs& acts);
std::unique_ptr<Adapter> drawnAdapter(Field& field, QWidget& widget, const UserActs& acts);
std::unique_ptr<Adapter> barAdapter(Field& field, QWidget& widget, const UserActs& acts);

}  // namespace noldarz
