// Areas as strips of levels: what a picture fills, and what levels are looked at.
// Owns: LevelStrip, addStrip, HeightRange, heightsOf, Levels, addStripsInPart.
#pragma once

#include <vector>

#include "core/cancellable_work.h"
#include "toolpath/pocket_region.h"
#include "toolpath/swept_spans.h"

namespace tess {

// A stretch of a level, with the height for which it stands.
struct LevelStrip {
  Span span;
  double y = 0;
  double height = 0;
};

// Unless there are so many that a picture has no use for more.
void addStrip(const LevelStrip& strip, std::vector<LevelStrip>& strips);

struct HeightRange {
  double low = 0, high = 0;
};
// Of at least one curve.
HeightRange heightsOf(const std::vector<Curve>& curves);

struct Levels {
  double low = 0, step = 0;
  int count = 0;
  double at(int level) const { return low + (level + 0.5) * step; }
};

// Adds what these moves sweep of what is not free.
void addStripsInPart(const PocketRegion& region, const std::vector<SweptCurve>& moves,
                     std::vector<LevelStrip>& strips, const Breathing& breathing = {});

}  // namespace tess
