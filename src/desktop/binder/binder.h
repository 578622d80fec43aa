// Connects the fields of a view with the widgets of its form, both ways, by name: `constn(0)` is the widget `constn_0`.
// It holds no rule: what a user does becomes the event of the field, what the logic sets becomes what the widget shows.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>

#include "desktop/binder/adapter.h"
#include "platform/view.h"

class QAction;
class QEvent;
class QMenu;

namespace noldarz {

class Binder : public QObject {
 public:
  /// What the binder asks of the desktop.
  struct Front {
    /// The user has come to a widget. False when the rule of the field that he left keeps the focus: what he did there
    /// is void.
    std::function<bool(Field&)> focusArrived;
    /// Runs an event of the user; the screen then follows what it has changed.
    std::function<void(const std::function<void()>&)> deliver;
    /// Before what the user does at a widget that he has come to: what his last step has asked for is done.
    std::function<void()> settle;
  };

  Binder(View& view, QWidget& form, Front front);

  QWidget* widgetOf(const Field& field) const;
  /// Fields without a widget, named widgets of the form without a field, and inputs without a tool tip.
  const QStringList& faults() const { return faults_; }
  /// The theme has changed: colours that go with it are shown again.
  void followTheme();
  /// Whether the user is to point out a place on a canvas.
  void pointAt(bool places);
  /// A piece of the logic has ended: what it has drawn is shown.
  void followDrawings();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void bind(Field& field);
  void bindAction(Field& field, QAction& action);
  void bindMenu(Field& field, QMenu& menu);
  /// Of the field that the field lies in; null when it lies on the view.
  Adapter* adapterAround(const Field& field) const;
  bool isHere(Field& field, const QEvent& event) const;
  void followFieldsOver(const Field& field) const;
  void show(const Field& field, Property property);
  void showAllOf(const Field& entry);
  void showAction(const Field& field, QAction& action, Property property) const;
  void showPlace(const Field& field, QWidget& widget) const;
  void reportSpareWidgets();
  void send(Field& field, Event event) const;

  QWidget& form_;
  Front front_;
  UserActs acts_;
  std::map<const Field*, std::unique_ptr<Adapter>> adapters_;
  std::map<const Field*, QAction*> actions_;
  std::map<const QObject*, Field*> fields_;
  QStringList faults_;
  const QObject* focusLeaving_ = nullptr;  // the screen takes the focus from this widget now
  bool showing_ = false;                   // what a widget reports now comes from the logic
};

/// "constn_0" for "constn(0)".
QString widgetName(const std::string& fieldName);

}  // namespace noldarz
