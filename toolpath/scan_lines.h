// Scan-line roughing: the inside of the working outlines is cut along parallel lines.
// Owns: scanPocketHorizontal, scanPocketVertical, scanPocketLathe.
#pragma once

#include "toolpath/cam_desk.h"

namespace tess {

// Cut between the crossings of each scan line with the working rows, taken in pairs: islands need
// no care of their own. The rows are one step of the change log. Give kNothingCut, after a message,
// when there are no working rows, else 0. Raise Overflow past 32767 crossings or path rows.
int scanPocketHorizontal(CamDesk& cam, float z, float feed);
int scanPocketVertical(CamDesk& cam, float z, float feed);

// For turning: lines from the top down at depth 0, with retreats between them as rows at
// kLatheRapidZ.
int scanPocketLathe(CamDesk& cam, float feed);

}  // namespace tess
