// Where the tool is at each moment of a program: its motions with their times, worked out once.
// Owns: ToolStep, ToolWalk, toolWalk.
#pragma once

#include <cstddef>
#include <vector>

#include "cnc/motion_rules.h"
#include "core/motion_stream.h"
#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// A motion at one speed. A cycle is two: down at its feed, and out.
struct ToolStep {
  int row = 0;   // the path row that it is made for, from 1
  int tool = 0;  // index from 0
  bool isRapid = false;
  int type = 1;  // kLine, or the type of an arc about `center`
  ToolPlace from, to;
  Point center;
  double begin = 0, end = 0;  // in seconds since the start
};

struct ToolWalk {
  std::vector<ToolStep> steps;  // in the order of time
  bool hasHeights = true;       // a lathe's motions have none

  double seconds() const { return steps.empty() ? 0 : steps.back().end; }
  // The index of the step at a moment; the last one for any later, 0 for any earlier. Asked of a
  // walk with steps only.
  std::size_t stepAt(double seconds) const;
  ToolPlace placeAt(double seconds) const;
  // When the first motion for a row begins, 0 for a row that has none.
  double beginOf(int row) const;
};

// Under the rules of a definition. The times add up to what reportPaths says that the machine
// takes: the time for speeding up is shared out over all motions. Where no motion has a time each
// takes a second. Raises what tellMotions raises.
ToolWalk toolWalk(const DrawingStore& store, const MotionRules& rules = {});

}  // namespace tess
