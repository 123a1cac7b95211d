// The step-over of the settings, which stands there as a percentage of the tool's diameter and as a
// distance.
// Owns: settleCutWidth.
#pragma once

namespace tess {

struct DrawingStore;

// Brings the one that is not chosen into line with the tool in use. Raises Division by zero for a
// percentage of no diameter, Subscript out of range for no tool, and Overflow.
void settleCutWidth(DrawingStore& store);

}  // namespace tess
