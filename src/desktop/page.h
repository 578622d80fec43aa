// The part of a window that scrolls when the window is too small for it. What lies at its side goes below the rest
// before the user has to scroll sideways.
#pragma once

#include <QScrollArea>

class QBoxLayout;

namespace noldarz {

class Page : public QScrollArea {
 public:
  explicit Page(QWidget* parent = nullptr);

  /// The size that shows everything without scrolling.
  QSize wholeSize() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// The layout of the page: the main part and its side.
  QBoxLayout* parts() const;
  void arrange();
  /// The whole of it, where the toolkit's own would do with the place of its text cursor.
  void bringIntoView(const QWidget& part);
};

}  // namespace noldarz
