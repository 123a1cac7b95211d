// The program's messages as boxes of the toolkit.
// Owns: fillMessageBox, answerOf, buttonOf.
#pragma once

#include <QMessageBox>

#include "core/host.h"

namespace tess {

// Text, title, icon and buttons; the first button is the default one, and Esc gives the answer that
// changes nothing, where there is one.
void fillMessageBox(QMessageBox& box, const Message& message);

// What a button of the box says, and the button that says it.
Answer answerOf(int button);
QMessageBox::StandardButton buttonOf(Answer answer);

}  // namespace tess
