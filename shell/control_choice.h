// Choosing the control that programs are made for: at the first start, and at any time.
// Owns: chooseControl, askForControl.
#pragma once

namespace tess {

class Application;

// The menu's command: asks about unsaved work and then for control and units. The fitting setup is
// in force from then on, at later starts too. A drawing that is open keeps its units and settings;
// an untitled one begins anew.
void chooseControl(Application& application);

// The same at the first start, when nothing has been changed yet. A folder without a list of
// controls is left as it is.
void askForControl(Application& application);

}  // namespace tess
