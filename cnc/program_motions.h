// What the path rows of a drawing make a machine do, as a stream of motions.
// Owns: CncMode, tellMotions.
#pragma once

#include "core/motion_stream.h"

namespace tess {

struct DrawingStore;

enum class CncMode { Mill, Lathe };

// Tells the reader the whole program, from ProgramStart to ProgramEnd, or nothing without path
// rows. Raises Subscript out of range for a row without a tool; a failure, the reader's too, names
// its row as the source.
void tellMotions(const DrawingStore& store, CncMode mode, MotionReader& reader);

}  // namespace tess
