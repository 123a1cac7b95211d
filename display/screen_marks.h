// The marks that only the screen has: the marker's cross, the axes at world zero, and the pitch of
// the grid.
// Owns: DrawMarkerCross, DrawOriginArrows, DrawPitch.
#pragma once

#include "display/drawing_target.h"

namespace tess {

// The marker's cross, 5 pixels to each side. Drawn twice at one place it is gone.
void DrawMarkerCross(Point marker, PictureBoxProxy& ScreenProxy);

// The axes at world zero, 25 pixels long and in a pen of double width, with their letters.
void DrawOriginArrows(Rgb color, PictureBoxProxy& ScreenProxy);

// What the grid shows, in the lower left corner: "Grid 0.5 in".
void DrawPitch(float pitch, bool metric, Rgb color, PictureBoxProxy& ScreenProxy);

}  // namespace tess
