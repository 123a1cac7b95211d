// Trochoidal loops.
#include "toolpath/trochoid.h"

#include "toolpath/entry_shapes.h"

namespace tess {
namespace {

// What the way itself may be nearer to a wall, by rounding.
constexpr double kRounding = 1e-6;

}  // namespace

std::vector<Curve> TrochoidLoop::curves() const {
  return helixCircle(start, center, turn);
}

TrochoidLoop resized(const TrochoidLoop& loop, double factor) {
  return {loop.start, loop.start + factor * (loop.center - loop.start), loop.turn};
}

TrochoidLoop LoopRoom::loopAt(PlanePoint at, PlanePoint along, int turn) const {
  const PlanePoint side = static_cast<double>(turn) * leftOf(along);
  return {at, at + radiusToward(at, side) * side, turn};
}

// Loops that touch the way at one place lie in one another: what is too large stays so.
double LoopRoom::radiusToward(PlanePoint at, PlanePoint side) const {
  constexpr int kHalvings = 14;
  if (fits(at + largest_ * side, largest_)) return largest_;
  double small = 0;
  double large = largest_;
  for (int k = 0; k < kHalvings; ++k) {
    const double radius = (small + large) / 2;
    (fits(at + radius * side, radius) ? small : large) = radius;
  }
  return small;
}

bool LoopRoom::fits(PlanePoint center, double radius) const {
  return !region_->index().nearest(lineCurve(center, center), distance_ + radius - kRounding);
}

}  // namespace tess
