// A slider: a move by mouse or key is a change.

#include <QSlider>

#include "desktop/binder/kinds.h"

namespace noldarz {

namespace {

class SliderAdapter : public Adapter {
 public:
  SliderAdapter(Field& field, QSlider& slider, const UserActs& acts) : Adapter(field, slider, acts), slider_(slider) {
    constexpr int page = 10;
    slider.setRange(field.range().first, field.range().second);
    slider.setPageStep(page);
    connect(&slider, &QSlider::valueChanged, this, [this](int value) {
      if (acts_.isShowing()) return;
      acts_.settle();
      field_.setValue(value);
      acts_.send(field_, Event::change);
    });
  }

 private:
  void showValue() override { slider_.setValue(field_.value()); }

  QSlider& slider_;
};

}  // namespace

std::unique_ptr<Adapter> sliderAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* slider = qobject_cast<QSlider*>(&widget);
  return slider ? std::make_unique<SliderAdapter>(field, *slider, acts) : nullptr;
}

}  // namespace noldarz
