// A spot in the colour in which a level is drawn; which one the form says with the property `level`.
#pragma once

#include <QWidget>

namespace noldarz {

class ColourSwatch : public QWidget {
 public:
  using QWidget::QWidget;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace noldarz
