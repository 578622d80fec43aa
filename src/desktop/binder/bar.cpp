// A bar that grows: a shape or picture of a view that tells progress.

#include <QPalette>
#include <QProgressBar>

#include "desktop/binder/kinds.h"

namespace noldarz {

namespace {

class BarAdapter : public Adapter {
 public:
  BarAdapter(Field& field, QProgressBar& bar, const UserActs& acts) : Adapter(field, bar, acts), bar_(bar) {}

 private:
  void showWidth() override { bar_.setValue(static_cast<int>(field_.width())); }
  void colour(QPalette& palette) const override {
    if (field_.fillColour() != Colour{}) palette.setColor(QPalette::Highlight, qt(colourText(field_.fillColour())));
  }

  QProgressBar& bar_;
};

}  // namespace

std::unique_ptr<Adapter> barAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* bar = qobject_cast<QProgressBar*>(&widget);
  return bar ? std::make_unique<BarAdapter>(field, *bar, acts) : nullptr;
}

}  // namespace noldarz
