// Which tool bars and panels are open, and how large the icons of the tool bars are.
// Owns: customizeWindow.
#pragma once

#include "shell/qt/gateway.h"
#include "shell/qt/main_window.h"

namespace tess {

// Shows the dialog; every choice takes effect at once.
void customizeWindow(MainWindow& window, Gateway& gateway);

}  // namespace tess
