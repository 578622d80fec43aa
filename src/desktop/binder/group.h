// Widgets that a form makes a group by the dynamic property `group`: the buttons round a dial, the cells of a table.
// They lie in one parent, and arrow keys lead from one to the next as they stand on the screen.
#pragma once

#include <QList>

class QWidget;

namespace noldarz {

bool isArrow(int key);

bool isGrouped(const QWidget& widget);

/// All that are of the group of the widget, itself too.
QList<QWidget*> groupOf(const QWidget& widget);

/// The button that is down of a group of the window; null: none is.
QWidget* pressedOf(const QWidget& window, const QString& group);

/// The nearest of its group that stands in the direction of the arrow key and can be used; null: none does.
QWidget* neighbourOf(const QWidget& widget, int key);

}  // namespace noldarz
