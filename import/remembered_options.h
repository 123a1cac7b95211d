// What the import form remembers from one showing to the next, in a file beside the setups.
// Owns: ImportBoxes, rememberedBoxes, rememberBoxes.
#pragma once

#include "core/session.h"

namespace tess {

struct ImportBoxes {
  bool exactGeometry = false;
  bool connectPoints = false;
  bool autoAlign = false;
  bool fitStock = false;
  bool fileUnits = false;
};

// Where nothing was remembered Exact Geometry is as the setup says, and the rest is off.
ImportBoxes rememberedBoxes(const Session& session);

// A file that cannot be written is reported, and the work goes on.
void rememberBoxes(Session& session, const ImportBoxes& boxes);

}  // namespace tess
