// Choosing a CNC program to be looked at.
// Owns: mnuCAMBrowseCNCFile_Click.
#pragma once

#include "cnc/cnc_program.h"
#include "core/session.h"

namespace tess {

// The folder of the one that is chosen is where programs go from then on.
void mnuCAMBrowseCNCFile_Click(Session& session, ProgramViewer& viewer);

}  // namespace tess
