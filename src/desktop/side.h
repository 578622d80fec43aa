// The side of the main window: the stored runs and the zones of the last Compute, one above the other where there is
// room for both, else as two tabs.
#pragma once

#include <QTabBar>
#include <QWidget>
#include <initializer_list>

namespace noldarz {

class Side : public QWidget {
 public:
  explicit Side(QWidget* parent = nullptr);

  /// As large as its first part wants: the second one takes what is left.
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The two group boxes of the form; what the second one shows may be hidden.
  QWidget* part(int index) const;
  QWidget* shownIn(int index) const;
  int heightOf(std::initializer_list<const QWidget*> parts) const;
  void begin();
  void arrange();

  QTabBar* tabs_ = nullptr;
};

}  // namespace noldarz
