// A way in a pocket is split so that no more than a share of the cutter's width is in material:
// stretches that would take more are cleared before by trochoidal loops.
// Owns: LimitRules, LimiterState, EngagementLimiter.
#pragma once

#include <vector>

#include "core/cancellable_work.h"
#include "toolpath/pocket_region.h"
#include "toolpath/taken_ground.h"

namespace tess {

struct LimitRules {
  double radius = 0;  // of the tool
  double share = 1;   // of its width, the most that may be in material
  int turn = 1;       // of the loops: 1 counter-clockwise
  std::size_t mostCurves = 0;
};

// What one way hands on to the next.
struct LimiterState {
  LimitRules rules;
  TakenGround ground;
  std::size_t curves = 0;  // that were made
  double lastStep = 0;     // from loop to loop
};

class EngagementLimiter {
 public:
  // `taken` is there before the first way, down to the floor.
  EngagementLimiter(const LimitRules& rules, const std::vector<SweptCurve>& taken,
                    Breathing breathing)
      : state_{rules, TakenGround(taken)}, breathing_(std::move(breathing)) {}

  // A way with its loops, and with a way to its start from cleared ground, or a loop at its start.
  // It keeps the distance from the walls. Ways are cut in the order in which they are asked for.
  std::vector<Curve> limited(const PocketRegion& region, double distance,
                             const std::vector<Curve>& way);

  // More curves than were allowed: what was made last is no whole way.
  bool isTooLong() const { return state_.curves > state_.rules.mostCurves; }

 private:
  LimiterState state_;
  Breathing breathing_;
};

}  // namespace tess
