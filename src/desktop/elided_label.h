// A label that gives way: a text that is too long for its place ends in "…", and widens no window.
#pragma once

#include <QLabel>

namespace noldarz {

class ElidedLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  /// The whole text shows as the tool tip when the place is too small for it.
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace noldarz
