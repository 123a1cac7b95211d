// Whether a machine that reads a program does what the path rows ask for, and nothing else: each
// row in its order, at its place, feed and depth, with its tool turning; and between the rows only
// moves that touch nothing.
// Owns: FollowRules, firstDetour.
#pragma once

#include <string>

#include "tests/support/gcode_reader.h"

namespace tess {
struct DrawingStore;
}

namespace tess::testing {

struct FollowRules {
  bool lathe = false;
  bool latheClear = false;      // its tools go round the work, and down through it at a row's feed
  double resolution = 0.00005;  // how far a place may be off
  double joints = 1e-4;         // how far a row may begin from where the row before ended
  double feedGrain = 0.001;     // of the F words
  bool radiusWords = false;     // centres are as exact as ends and radius tell them: the arc counts
};

// The first thing that the program does otherwise than the rows, with the row and the program's or
// the listing's line; empty when there is none. Cycles count as the moves that they are made of.
std::string firstDetour(const DrawingStore& store, const GcodeProgram& program,
                        const FollowRules& rules);

}  // namespace tess::testing
