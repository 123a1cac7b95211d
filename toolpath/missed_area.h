// What a job leaves of what its tool could reach, level by level: at each level both are exact
// stretches, and so is their difference.
// Owns: MissedPlace, MissedArea, missedArea.
#pragma once

#include <vector>

#include "toolpath/level_strips.h"
#include "toolpath/pocket_region.h"
#include "toolpath/swept_spans.h"

namespace tess {

// Stretches of neighbouring levels that overlap.
struct MissedPlace {
  double x = 0, y = 0;           // the middle of its extent, or of its longest stretch
  double width = 0, height = 0;  // its extent
  double area = 0;
};

struct MissedArea {
  double reach = 0;                   // the area that can be reached
  double area = 0;                    // of that, what is left
  std::vector<MissedPlace> places{};  // the largest first, kMaxPlaces at most
  std::vector<LevelStrip> strips{};
  double share() const { return reach > 0 ? area / reach : 0; }

  static constexpr std::size_t kMaxPlaces = 10;
};

// `centers` is where the centre of a tool of that radius may be; `swept` is all that is cut. A
// place thinner than a 25th of the radius may stay unseen between two levels.
MissedArea missedArea(const PocketRegion& centers, double toolRadius,
                      const std::vector<SweptCurve>& swept, const Breathing& breathing = {});

}  // namespace tess
