// A label that gives way: a text that is too long for its place ends in "…", and widens no window.
#pragma once

#include <QLabel>

namespace noldarz {

class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace noldarz
