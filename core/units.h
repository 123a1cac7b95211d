// Inch and millimetre: the number formats in use, and the change from one to the other.
// Owns: set_num_formats, convert.
#pragma once

#include "core/session.h"

namespace tess {

// Derives coordfmt, dimfmt and cncfmt from the units of the drawing and the formats in force.
void set_num_formats(Session& session);

// Multiplies the positions, depths and grids by unitfactor and has the drawing scaled by it. Feed
// rates, tool diameters and the tolerance stay.
void convert(Session& session);

}  // namespace tess
