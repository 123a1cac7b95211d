// Where a tool goes straight down into material: the rows of a path are cut into a raster of
// heights, one after the other, by means that share nothing with the program.
// Owns: CheckedPlunge, plungesOf.
#pragma once

#include <vector>

#include "tests/support/curves.h"

namespace tess {
struct DrawingStore;
}

namespace tess::testing {

struct CheckedPlunge {
  int row = 0;  // before which the tool goes down, from 1
  Vec place;
  double depth = 0;  // of the material below the tool
};

// Deeper than `least`. Stock is everywhere below Z 0. The tool goes down where a row does not begin
// where the one before it ended, or lies deeper. Holes of machine cycles are there. A place of
// material smaller than a cell, which is `cellsPerRadius` to the smallest tool, may stay unseen.
std::vector<CheckedPlunge> plungesOf(const DrawingStore& store, double least,
                                     int cellsPerRadius = 8);

}  // namespace tess::testing
