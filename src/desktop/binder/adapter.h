// A widget that shows a field and tells what the user does there: one adapter a kind of widget, in a file of its own.
// What all kinds have in common stands here. An adapter holds no rule; the binder makes it and carries its news to the
// field.
#pragma once

#include <QObject>
#include <QPalette>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/fault_frame.h"
#include "platform/field.h"
#include "platform/pointer_event.h"

class QEvent;
class QKeyEvent;
class QLineEdit;
class QWidget;

namespace noldarz {

QString qt(const std::string& text);

/// A text that is only looked at: nothing in it turns or hides what stands beside it.
QString shown(const std::string& text);

/// The line that is typed in: of an input, or of a combo field that takes texts beside its entries. Null for others.
QLineEdit* lineOf(QWidget* widget);

bool isEnter(int key);

/// What an adapter asks of its binder.
struct UserActs {
  /// Runs the event of the field, unless the logic itself has brought the widget to report something.
  std::function<void(Field&, Event)> send;
  /// Whether the logic itself brings the widget to report something now.
  std::function<bool()> isShowing;
  /// What the user's last step has asked for is done.
  std::function<void()> settle;
  /// The user has come to the field. False when the rule of the field that he left keeps the focus.
  std::function<bool(Field&)> arrived;
  /// Whether the screen takes the focus from the widget now.
  std::function<bool(const QWidget&)> isLeaving;
  /// Run the rules of the field for the pointer and for a key.
  std::function<void(Field&, const PointerEvent&)> pointer;
  std::function<void(Field&, const KeyEvent&)> key;
};

class Adapter : public QObject {
 public:
  Adapter(Field& field, QWidget& widget, const UserActs& acts);

  QWidget& widget() const { return widget_; }
  /// Widgets whose events are those of the field: its own, and parts of it.
  virtual std::vector<QWidget*> parts() const { return {&widget_}; }

  void show(Property property);
  void showAll();
  /// Whether the widget itself paints a field that lies in its own.
  virtual bool paints(const Field&) const { return false; }
  /// A field that lies in its own has changed; null for the widget of one that it paints.
  virtual void showChild(const Field&, QWidget*) {}
  /// The logic has ended: shows what it changes without telling.
  virtual void follow() {}

  /// True when the key has done what it is for.
  virtual bool takeKey(QWidget& at, const QKeyEvent& key);
  /// Before a press of the mouse: whether what lies under it is what the user has aimed at.
  virtual bool isAimStill(const QEvent&) const { return true; }

 protected:
  virtual void showText() {}
  virtual void showValue() {}
  virtual void showEntries() {}
  virtual void showDetails() {}
  virtual void showLocked() {}
  virtual void showWidth() { showPicture(); }
  /// What is drawn, and its size.
  virtual void showPicture() {}
  /// More colours than those of the ground and the text.
  virtual void colour(QPalette&) const {}
  void showToolTip() const;

  /// The user has typed a text.
  void typed(const QString& text) const;

  Field& field_;
  const UserActs& acts_;

 private:
  void showFault();
  void showColours() const;

  QWidget& widget_;
  QString ownToolTip_;  // of the form
  QPointer<FaultFrame> frame_;
};

/// The adapter of the widget's kind.
std::unique_ptr<Adapter> adapterOf(Field& field, QWidget& widget, const UserActs& acts);

}  // namespace noldarz
