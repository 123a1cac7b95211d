// Which of the toolkit's events are the operator's input.
// Owns: isOperatorInput.
#pragma once

#include <QEvent>

namespace tess {

// Pointer, keys, wheel, touch and what is dropped; not the closing of a window.
bool isOperatorInput(QEvent::Type type);

}  // namespace tess
