// Which moves a program makes beyond those that the path rows ask for by themselves.
// Owns: MotionRules.
#pragma once

#include <cstddef>
#include <optional>

#include "cnc/cycle_numbers.h"

namespace tess {

// As it stands: the moves that programs have always had.
struct MotionRules {
  // The tool leaves the work before every change and comes back to it by places that are told in
  // full, never at rapid speed below the safe height.
  bool safeChange = false;
  bool changePos = false;             // it is changed at the change position; only with safeChange
  bool endLift = false;               // it leaves the work behind the last row
  bool returnsTool = true;            // the first tool comes back at the end
  std::optional<float> plungeFrom{};  // height down to which rapid speed is free of danger
  // On a lathe, how far beside the bar tools travel: they go from row to row round the work, and
  // only rows that are marked so are rapids.
  std::optional<float> latheClear{};
  CycleNumbers keptCycles = CycleNumbers().set();  // told as cycles; the others as their moves
  bool cyclesReturn = false;                       // a cycle is known to end at the safe height

  bool keeps(int cycle) const { return keptCycles.test(static_cast<std::size_t>(cycle)); }
};

}  // namespace tess
