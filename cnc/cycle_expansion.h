// Machine cycles as the moves that they are made of, for controls that know no cycles.
// Owns: ExpandedCycle, peckClearance, isExpandable, expandCycle.
#pragma once

#include <optional>

#include "core/motion_stream.h"

namespace tess {

struct ExpandedCycle {
  CycleRun cycle;
  ToolPlace start;       // where a slot begins; its z is the safe height
  float plungerate = 0;  // down into a slot; 0: at the feed of the cycle
  std::optional<float> plungeFrom;
  int tool = 0;  // from 1
  float spindlespeed = 0;
  float clearance = 0;  // above what the peck before has drilled
};

// How far above the bottom of a drilled peck the next one begins to feed, in drawing units.
constexpr float peckClearance(bool isMetric) {
  return isMetric ? 0.25F : 0.01F;
}

// Whether the cycle of this number can be told so: tapping, and boring that moves aside or waits
// for the operator's hand, cannot.
bool isExpandable(int number);

// Tells the moves of the cycle. The tool stands anywhere at the safe height, and at the end at the
// place of the cycle. Raises Invalid procedure call for a cycle that is not expandable, that stops
// a spindle which it cannot start again, or that has more pecks than anybody drills.
void expandCycle(const ExpandedCycle& hole, MotionReader& reader);

}  // namespace tess
