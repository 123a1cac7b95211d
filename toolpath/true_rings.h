// Roughing by rings: offsets of the pocket, a step apart, until nothing is left, and what lies
// between two of them out of a tool's reach.
// Owns: RingRules, cutRings.
#pragma once

#include <limits>

#include "core/pocketing_choices.h"
#include "toolpath/region_offset.h"
#include "toolpath/true_links.h"

namespace tess {

struct RingRules {
  double radius = 0;         // of the tool
  double step = 0;           // at most twice that
  bool reversed = false;     // against the loops, which have free space on their left
  PlanePoint click;          // the room next to it comes first
  bool fillsBetween = true;  // rings alone leave what no tool on one of them reaches
  // No ring is made that lies farther than this inside of the outmost.
  double deepest = std::numeric_limits<double>::infinity();
};

// Cuts the rings of an offset, the inmost first, and its own loops last.
void cutRings(const PocketRegion& offset, const RingRules& rules, RoomWay& way,
              const Breathing& breathing = {});

}  // namespace tess
