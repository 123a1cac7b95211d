// Curves in 64 bits become rows in 32: merged, tested once more, rounded.
#include "toolpath/region_rows.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace tess {
namespace {

// Rounded to 32 bits, or to the words of a program, the ends of a shorter arc may fall together or
// change places, and the machine would run a full circle.
constexpr double kShortestChord = 0.0005;
// What is shorter in both axes has no length in the words of a program.
constexpr float kWord = 2e-5F;
constexpr double kSamePlace = 1e-9;
constexpr double kHalfTurnSlack = 1e-6;

Point pointOf(PlanePoint at) {
  return {narrow(at.x), narrow(at.y)};
}

PlanePoint placeOf(Point at) {
  return {at.x, at.y};
}

// One curve for two that follow one another on one circle, if it turns by half a turn at most.
std::optional<Curve> merged(const Curve& before, const Curve& after) {
  if (!before.isArc() || before.turn != after.turn || before.end != after.start) return {};
  if (normOf(before.center - after.center) > kSamePlace ||
      std::abs(before.radius - after.radius) > kSamePlace ||
      sweepOf(before) + sweepOf(after) > std::numbers::pi + kHalfTurnSlack) {
    return {};
  }
  return Curve{before.start, after.end, before.center, before.radius, before.turn};
}

Entity rowOf(const Curve& curve) {
  const Point start = pointOf(curve.start);
  const Point end = pointOf(curve.end);
  if (!curve.isArc() || normOf(curve.end - curve.start) < kShortestChord) {
    return lineEntity(start, end);
  }
  return {curve.turn > 0 ? kCounterClockwiseArc : kClockwiseArc, start, end, pointOf(curve.center)};
}

}  // namespace

void RegionRows::add(const std::vector<Curve>& curves) {
  std::optional<Curve> held;
  for (const Curve& curve : curves) {
    const std::optional<Curve> both = held ? merged(*held, curve) : std::nullopt;
    if (held && !both) place(*held);
    held = both ? *both : curve;
  }
  if (held) place(*held);
}

// Far from the origin a row of 32 bits may lie anywhere.
bool RegionRows::mayBePlaced(const Curve& curve, const Entity& row) const {
  if (!isClear_(curve)) return false;
  const double moved =
      std::max(normOf(placeOf(row.start) - curve.start), normOf(placeOf(row.end) - curve.end));
  if (moved <= mostMoved_) return true;
  std::vector<Curve> rounded;
  appendCurves(row, rounded);
  return std::all_of(rounded.begin(), rounded.end(), isClear_);
}

void RegionRows::place(const Curve& curve) {
  const Entity row = rowOf(curve);
  if (std::abs(row.end.x - row.start.x) < kWord && std::abs(row.end.y - row.start.y) < kWord)
    return;
  if (mayBePlaced(curve, row)) {
    rows_.push_back(row);
  } else {
    refused_ = true;
  }
}

}  // namespace tess
