// The step-over of the settings, which stands there as a percentage of the tool's diameter and as a
// distance.
// Owns: kStepByPercent, kStepByDistance, settleCutWidth.
#pragma once

namespace tess {

struct DrawingStore;

// Values of "cut width type"; 0 is read as the first.
inline constexpr int kStepByPercent = 1;
inline constexpr int kStepByDistance = 2;

// Brings the one that is not chosen into line with the tool in use. Raises Division by zero for a
// percentage of no diameter, Subscript out of range for no tool, and Overflow.
void settleCutWidth(DrawingStore& store);

}  // namespace tess
