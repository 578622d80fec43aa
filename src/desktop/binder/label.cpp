// A label: a text that the program writes, in the pattern of the form when it has one.

#include <QLabel>

#include "desktop/binder/kinds.h"
#include "platform/text.h"

namespace noldarz {

namespace {

class LabelAdapter : public Adapter {
 public:
  LabelAdapter(Field& field, QLabel& label, const UserActs& acts) : Adapter(field, label, acts), label_(label) {
    label.setTextFormat(Qt::PlainText);
  }

 private:
  void showText() override {
    const QByteArray pattern = label_.property("pattern").toByteArray();  // the form rounds it for the eye
    label_.setText(pattern.isEmpty() ? shown(field_.text()) : qt(Format(field_.text(), pattern.toStdString())));
    if (!pattern.isEmpty()) showToolTip();
  }

  QLabel& label_;
};

}  // namespace

std::unique_ptr<Adapter> labelAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  auto* label = qobject_cast<QLabel*>(&widget);
  return label ? std::make_unique<LabelAdapter>(field, *label, acts) : nullptr;
}

}  // namespace noldarz
