// What the widget of a field shows: each property of the field as the screen has it. It never tells the field anything.
#pragma once

#include <QPointer>
#include <QString>

#include "desktop/fault_frame.h"
#include "platform/field.h"

class QLineEdit;
class QWidget;

namespace noldarz {

QString qt(const std::string& text);

/// A text that is only looked at: nothing in it turns or hides what stands beside it.
QString shown(const std::string& text);

/// The line that is typed in: of an input, or of a combo field that takes texts beside its entries. Null for others.
QLineEdit* lineOf(QWidget* widget);

class FieldWidget {
 public:
  FieldWidget(const Field& field, QWidget& widget);

  QWidget& widget() const { return widget_; }
  void show(Property property);
  void showAll();

 private:
  void showText() const;
  void showEntries() const;
  void showDetails() const;
  void showToolTip() const;
  void showFault();
  void showColours() const;

  const Field& field_;
  QWidget& widget_;
  QString ownToolTip_;  // of the form
  QPointer<FaultFrame> frame_;
};

}  // namespace noldarz
