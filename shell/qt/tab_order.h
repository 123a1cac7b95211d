// The order in which the Tab key visits the controls of a form: that in which the eye reads them.
// Owns: readingOrder, arrangeTabOrder.
#pragma once

#include <QWidget>
#include <vector>

namespace tess {

// All widgets below `root` as its layouts place them: rows from left to right, columns and boxes
// each to their end before the next. Those whose property `tabLater` is set come last.
std::vector<QWidget*> readingOrder(const QWidget& root);

// Makes that the order of the keyboard for all that take it by Tab.
void arrangeTabOrder(const QWidget& root);

}  // namespace tess
