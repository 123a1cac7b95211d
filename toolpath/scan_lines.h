// Scan-line roughing: the inside of the working outlines is cut along parallel lines.
// Owns: scanPocketHorizontal, scanPocketVertical.
#pragma once

#include "toolpath/scan_run.h"

namespace tess {

// Cut between the crossings of each scan line with the working rows, taken in pairs: islands need
// no care of their own. The rows are one step of the change log. NothingToCut, after a message,
// when there are no working rows. Raise Overflow past 32767 crossings or path rows.
Clearing scanPocketHorizontal(CamContext& cam, float z, float feed);
Clearing scanPocketVertical(CamContext& cam, float z, float feed);

}  // namespace tess
