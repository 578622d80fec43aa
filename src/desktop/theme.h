// What the program adds to the theme of the desktop: texts that can't be edited, placeholders and the outlines of boxes
// and fields stay legible, in dark themes too; fields are as wide as their form says.
#pragma once

#include <QColor>
#include <QString>

class QPalette;

namespace noldarz {

/// The style and palette of the program, from the theme in force. To be called again when the theme has changed.
void followTheme();

bool isDark(const QPalette& palette);

/// `part` of the one colour and the rest of the other.
QColor mixed(const QColor& one, const QColor& other, double part);

/// A text that is told apart from one in force and can still be read.
QColor fadedText(const QPalette& palette);

/// A tool tip that shows the text as it is: markup in it is the user's.
QString plainTip(const QString& text);

}  // namespace noldarz
