// What the program paints itself: a canvas with what lies over it, a dial with its arms, a small picture on a button's
// place. Pointer and keys go to the rules of the field.

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <cmath>
#include <map>
#include <numbers>

#include "desktop/binder/kinds.h"
#include "desktop/canvas_widget.h"
#include "desktop/dial_widget.h"
#include "platform/view.h"
#include "plot/fields.h"

namespace noldarz {

namespace {

std::vector<const Field*> fieldsIn(const Field& parent, bool (*takes)(const Field&)) {
  std::vector<const Field*> found;
  for (const Field& field : parent.view().fields())
    if (field.parent() == &parent && takes(field)) found.push_back(&field);
  return found;
}

bool isShape(const Field& field) { return field.kind() == FieldKind::shape; }

bool isOpen(const Field& field) { return field.takesFocus() && field.usable() && !field.locked(); }

class DrawnAdapter : public Adapter {
 public:
  DrawnAdapter(Field& field, DrawnWidget& widget, const UserActs& acts) : Adapter(field, widget, acts) {
    widget.pointed = [this](const PointerEvent& event) { acts_.pointer(field_, event); };
  }

  bool takeKey(QWidget&, const QKeyEvent& key) override {
    const bool leaves = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    const bool held = key.key() >= Qt::Key_Shift && key.key() <= Qt::Key_ScrollLock;
    if (leaves || held || !field_.view().takesKeys(field_)) return false;
    acts_.key(field_, keyEventOf(key));
    return true;
  }
};

class CanvasAdapter : public DrawnAdapter {
 public:
  CanvasAdapter(Field& field, CanvasWidget& widget, const UserActs& acts)
      : DrawnAdapter(field, widget, acts), canvas_(widget) {
    canvas_.setCanvas(*field.canvas(), fieldsIn(field, isShape));
    if (canvas_.fits()) canvas_.pointed = [this](const PointerEvent& event) { press(event); };
  }

  bool paints(const Field& child) const override { return isShape(child); }
  void showChild(const Field& child, QWidget* widget) override {
    if (!widget) return canvas_.update();
    children_[&child] = widget;
    place(child, *widget);
  }
  void follow() override {
    canvas_.follow();
    for (const auto& [child, widget] : children_) {
      place(*child, *widget);  // its texts may be longer
      // What can't be used yet is not in the pointer's way.
      widget->setAttribute(Qt::WA_TransparentForMouseEvents, fieldsIn(*child, isOpen).empty());
    }
  }

 private:
  void showPicture() override {
    canvas_.follow();
    for (const auto& [child, widget] : children_) place(*child, *widget);
  }

  /// A canvas in small is a button.
  void press(const PointerEvent& event) {
    if (event.act != PointerEvent::Act::up || event.button != PointerEvent::Button::left) return;
    acts_.settle();
    acts_.send(field_, Event::click);
  }

  /// Where the field says, but whole on the canvas.
  void place(const Field& child, QWidget& widget) const {
    const QPointF size = canvas_.pixelOf(child.width(), child.height());
    widget.ensurePolished();
    QRect area(canvas_.pixelOf(child.left(), child.top()).toPoint(),
               widget.sizeHint().expandedTo(QSize(qRound(size.x()), qRound(size.y()))));
    const QRect room = canvas_.rect();
    area.moveRight(std::min(area.right(), room.right()));
    area.moveBottom(std::min(area.bottom(), room.bottom()));
    area.moveTopLeft({std::max(area.left(), 0), std::max(area.top(), 0)});
    widget.setGeometry(area);
    if (child.kind() == FieldKind::label) widget.setVisible(child.visible() && !child.caption().empty());
  }

  CanvasWidget& canvas_;
  std::map<const Field*, QWidget*> children_;
};

class DialAdapter : public DrawnAdapter {
 public:
  DialAdapter(Field& field, DialWidget& widget, const UserActs& acts) : DrawnAdapter(field, widget, acts) {
    widget.setParts(field, fieldsIn(field, [](const Field&) { return true; }));
    describe();
  }

  bool paints(const Field&) const override { return true; }
  void showChild(const Field&, QWidget*) override {
    widget().update();
    describe();
  }

 private:
  void showPicture() override { widget().update(); }

  /// For those who do not see it.
  void describe() const {
    View& view = field_.view();
    const Field* wind = view.find("wndarm");
    const Field* north = view.find("NorthArm");
    if (!wind) return;
    const auto degrees = [&](const char* slider, double right, double down) {
      const Field* exact = view.find(slider);
      return exact ? exact->value() : direction(right, down);
    };
    QString told = QString("Wind %1°").arg(degrees("wndsld1", -wind->width(), -wind->height()));
    if (north) told += QString(", north %1°").arg(degrees("NorthSld", north->width(), north->height()));
    widget().setAccessibleDescription(told);
  }
  /// Of the way from the centre of the dial to the tip of an arm, as it is seen: whole degrees, 0 up, clockwise.
  static int direction(double right, double down) {
    constexpr int wholeTurn = 360;
    constexpr double degreesPerRadian = 180 / std::numbers::pi;
    return (static_cast<int>(std::lround(std::atan2(down, right) * degreesPerRadian)) + 90 + wholeTurn) % wholeTurn;
  }
};

/// The picture of a command: zones on a map.
class PictureAdapter : public Adapter {
 public:
  PictureAdapter(Field& field, QLabel& label, const UserActs& acts) : Adapter(field, label, acts), label_(label) {}

 private:
  void colour(QPalette&) const override {
    constexpr int side = 40;  // px
    const double ratio = label_.devicePixelRatioF();
    QPixmap picture(QSize(side, side) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(label_.palette().color(QPalette::Mid));
    painter.setBrush(label_.palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(1, 1, side - 2, side - 2), 3, 3);
    painter.setBrush(Qt::NoBrush);
    for (int level = 5; level >= 0; level -= 2) {
      painter.setPen(QPen(onScreen(levelColour(level), label_.palette()), 2));
      const double length = 11 + level * 4;
      painter.drawEllipse(QRectF((side - length / 2) / 2, side - 4 - length, length / 2, length));
    }
    label_.setPixmap(picture);
  }

  QLabel& label_;
};

}  // namespace

std::unique_ptr<Adapter> drawnAdapter(Field& field, QWidget& widget, const UserActs& acts) {
  if (auto* canvas = dynamic_cast<CanvasWidget*>(&widget); canvas && field.canvas())
    return std::make_unique<CanvasAdapter>(field, *canvas, acts);
  if (auto* dial = dynamic_cast<DialWidget*>(&widget)) return std::make_unique<DialAdapter>(field, *dial, acts);
  auto* label = qobject_cast<QLabel*>(&widget);
  if (label && field.kind() == FieldKind::picture) return std::make_unique<PictureAdapter>(field, *label, acts);
  return nullptr;
}

}  // namespace noldarz
