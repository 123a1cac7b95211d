// Tool-bar layouts in files: the program's own and those that the operator keeps.
// Owns: loadProgramLayout, saveProgramLayout, miLoadLayout_Click, SaveLayoutAs.
#pragma once

#include "shell/application.h"

namespace tess {

// Layout.tb3 of the program's folder. A missing one leaves the tool bars as they are.
void loadProgramLayout(Application& application);
void saveProgramLayout(Application& application);

// The same with a file that the operator names.
void miLoadLayout_Click(Application& application);
void SaveLayoutAs(Application& application);

}  // namespace tess
