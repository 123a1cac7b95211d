// What the import form remembers from one showing to the next, in a file beside the setups.
// Owns: exactGeometryRemembered, rememberExactGeometry.
#pragma once

#include "core/session.h"

namespace tess {

// False when nothing was remembered.
bool exactGeometryRemembered(const Session& session);

// A file that cannot be written is reported, and the work goes on.
void rememberExactGeometry(Session& session, bool exact);

}  // namespace tess
