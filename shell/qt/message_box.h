// The program's messages as boxes of the toolkit.
// Owns: shownText, fillMessageBox, answerOf, buttonOf.
#pragma once

#include <QMessageBox>

#include "core/host.h"

namespace tess {

// The text as far as a screen has room for it: of many lines the first and the last, with the
// number of those between, and of a long line its beginning.
QString shownText(const std::string& text);

// Text, title, icon and buttons; the first button is the default one, and Esc gives the answer that
// changes nothing, where there is one.
void fillMessageBox(QMessageBox& box, const Message& message);

// What a button of the box says, and the button that says it.
Answer answerOf(int button);
QMessageBox::StandardButton buttonOf(Answer answer);

}  // namespace tess
