// Which lines of the visual grid a view takes, in one direction from world zero.
// Owns: GridSide, GridRun, gridRun.
#pragma once

namespace tess {

// The view along one direction: the distances of its edges from zero, the nearer one first,
// negative behind zero.
struct GridSide {
  double from = 0, to = 0;
  double pixels = 1;  // of the surface between them
};

// Lines at (first + i) * step from zero, for i from 0 to count - 1.
struct GridRun {
  double first = 0;
  double step = 0;
  int count = 0;
};

// The lines from zero to the far edge. The way from zero to a view elsewhere is left out when it
// takes more lines than the side has pixels, and where lines would lie closer than `closest` pixels
// only each so many-th is taken: so there are never more than about twice as many lines as pixels.
// From two pixels on that is each 2nd, 5th, 10th, 20th and so on, so that the pitch stays a number
// that one can work with. A spacing not above 0 has none, nor has a view that lies behind zero.
GridRun gridRun(double spacing, const GridSide& side, double closest = 1);

}  // namespace tess
