// The mark of a field that holds a refused text: a red frame around its widget with a corner, which takes no room from
// the neighbours and lets the mouse through.
#pragma once

#include <QWidget>

namespace noldarz {

class FaultFrame : public QWidget {
 public:
  /// Around the widget, and gone with it.
  explicit FaultFrame(QWidget& marked);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow();

  QWidget& marked_;
};

}  // namespace noldarz
