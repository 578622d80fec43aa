// The middle of the compass of the main view: a ring with eight arrows that blow to it, calm inside.
#pragma once

#include <QWidget>

namespace noldarz {

class CompassHub : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace noldarz
