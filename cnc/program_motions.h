// What the path rows of a drawing make a machine do, as a stream of motions.
// Owns: CncMode, tellMotions.
#pragma once

#include "cnc/motion_rules.h"
#include "core/motion_stream.h"

namespace tess {

struct DrawingStore;

enum class CncMode { Mill, Lathe };

// Tells the reader the whole program, from ProgramStart to ProgramEnd, or nothing without path
// rows. Raises Subscript out of range for a row without a tool and Invalid procedure call for a
// cycle that the rules do not keep and that is not to be had otherwise; a failure, the reader's
// too, names its row as the source.
void tellMotions(const DrawingStore& store, CncMode mode, MotionReader& reader,
                 const MotionRules& rules = {});

}  // namespace tess
