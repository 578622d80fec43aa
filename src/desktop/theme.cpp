#include "desktop/theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTextDocument>

#include "desktop/form_sizes.h"

namespace noldarz {

namespace {

/// The desktop's style. Most draw outlines darker than the window, where they vanish in a dark theme.
class OwnStyle : public QProxyStyle {
 public:
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return {widthInCharacters(widget).value_or(size.width()), size.height()};
  }
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox || element == PE_FrameLineEdit || element == PE_Frame)
      outline(*option, *painter);
    if (element == PE_PanelButtonCommand && option->state.testFlags(State_On | State_HasFocus))
      markFocus(*option, *painter);
  }
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox) outline(*option, *painter);
  }

 private:
  /// A button that is down has the colour of the style's own mark of the focus.
  static void markFocus(const QStyleOption& option, QPainter& painter) {
    constexpr double inside = 2.5;  // px
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(option.palette.color(QPalette::ButtonText));
    painter.drawRect(QRectF(option.rect).adjusted(inside, inside, -inside, -inside));
    painter.restore();
  }
  static void outline(const QStyleOption& option, QPainter& painter) {
    const bool focused = (option.state & State_HasFocus) != 0;
    if (!isDark(option.palette) || focused) return;  // the style marks the focus
    constexpr double strength = 0.35;
    constexpr double radius = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(mixed(option.palette.color(QPalette::Active, QPalette::WindowText),
                         option.palette.color(QPalette::Active, QPalette::Window),
                         strength));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
  }
};

}  // namespace

QColor mixed(const QColor& one, const QColor& other, double part) {
  const auto mix = [part](int of, int rest) { return static_cast<int>((of * part) + (rest * (1 - part))); };
  return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Active, QPalette::Window).lightness() <
         palette.color(QPalette::Active, QPalette::WindowText).lightness();
}

QColor fadedText(const QPalette& palette) {
  return mixed(
      palette.color(QPalette::Active, QPalette::Text), palette.color(QPalette::Active, QPalette::Base), 2. / 3);
}

void followTheme() {
  if (!dynamic_cast<const OwnStyle*>(QApplication::style())) QApplication::setStyle(new OwnStyle);
  QPalette palette = QApplication::palette();
  const QColor faded = fadedText(palette);
  if (palette.color(QPalette::Disabled, QPalette::Text) == faded) return;
  // An input that a press has closed is still read: its text is nearer to the plain colour than most themes have it.
  palette.setColor(QPalette::Disabled, QPalette::Text, faded);
  palette.setColor(QPalette::PlaceholderText, faded);
  QApplication::setPalette(palette);
}

QString plainTip(const QString& text) { return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text; }

}  // namespace noldarz
