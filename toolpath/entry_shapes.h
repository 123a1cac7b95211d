// Ramps and helices as stairs: flat pieces, each a little deeper than the one before, so that the
// path table and the programs need nothing new.
// Owns: EntryDrop, EntryStair, rampRows, rampStairs, helixCircle, helixRows, helixStairs.
#pragma once

#include <vector>

#include "geometry/curve.h"

namespace tess {

// From the top of the material down to the depth of the piece that is to be cut.
struct EntryDrop {
  double top = 0, bottom = 0;
  double step = 0;   // the most that a stair lies below the one before it
  double slope = 0;  // the steepest, as the tangent of its angle
  double depth() const { return top - bottom; }
};

// A flat piece of a way in.
struct EntryStair {
  double z = 0;
  std::vector<Curve> curves;
};

// To and fro along a stretch of that length, and back at its start; what is cut from there on
// clears the ramp's floor. The last stair lies a step above the bottom. The rows are told before
// they are made: there may be too many.
double rampRows(double length, const EntryDrop& drop);
std::vector<EntryStair> rampStairs(const std::vector<Curve>& stretch, const EntryDrop& drop);

// Two halves of a circle, from `start` back to it.
std::vector<Curve> helixCircle(PlanePoint start, PlanePoint center, int turn);

// Round and round, and back at the start; the last turn is flat at the bottom.
double helixRows(double radius, const EntryDrop& drop);
std::vector<EntryStair> helixStairs(PlanePoint start, PlanePoint center, int turn,
                                    const EntryDrop& drop);

}  // namespace tess
