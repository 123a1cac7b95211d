// The step-over of the settings, which stands there as a percentage of the tool's diameter and as a
// distance.
// Owns: settleCutWidth, settleByToolInUse.
#pragma once

namespace tess {

struct DrawingStore;

// Brings the one that is not chosen into line with the tool in use. Raises Division by zero for a
// percentage of no diameter, Subscript out of range for no tool, and Overflow.
void settleCutWidth(DrawingStore& store);

// The same after tools have changed; without a tool to go by, or a diameter where one is needed,
// both stay as they are.
void settleByToolInUse(DrawingStore& store);

}  // namespace tess
