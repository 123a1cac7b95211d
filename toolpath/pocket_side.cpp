// The inside of an outline, by counting how often two probes cross it.
#include "toolpath/pocket_side.h"

#include <cmath>

#include "core/drawing_store.h"
#include "geometry/float_angles.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

constexpr double kProbeLength = 100;         // along its leading axis, in drawing units
constexpr double kUprightProbeSlope = 1e8;   // for an edge that is level
constexpr double kLowestTurnedAngle = -45;   // edges outside these degrees run against their
constexpr double kHighestTurnedAngle = 135;  // leading axis

// The two probes stand on the middle of the edge; the first lies left of the way along it.
struct Probes {
  Entity left, right;
};

double probeSlope(double edgeSlope) {
  return std::abs(edgeSlope) <= kFlatSlope ? kUprightProbeSlope : -1 / edgeSlope;
}

Probes probesOf(Point from, Point to) {
  const auto [middle, edgeSlope] = midpointAndSlope(from, to);
  const double degrees = polarOf(from, to).degrees;
  const bool turned = degrees < kLowestTurnedAngle || degrees > kHighestTurnedAngle;
  const double reach = turned ? -kProbeLength : kProbeLength;
  const double slope = probeSlope(edgeSlope);
  const double intercept = middle.y - slope * middle.x;
  const bool upright = std::abs(slope) >= 1;
  const auto probeTo = [&, middleOfEdge = middle](double along) {
    const double x =
        upright ? (middleOfEdge.y + along - intercept) / slope : middleOfEdge.x - along;
    const double y = upright ? middleOfEdge.y + along : x * slope + intercept;
    return lineEntity(middleOfEdge, {narrow(x), narrow(y)});
  };
  return {probeTo(reach), probeTo(-reach)};
}

int crossingsWith(const DrawingStore& store, const Entity& probe, const Entity& row) {
  if (row.type != kLine && !isArc(row.type)) return 0;
  const Crossing crossing = row.type == kLine ? intersectLines(probe, row)
                                              : intersectLineArc(probe, row, store.cfg_tolerance);
  return (crossing.first ? 1 : 0) + (crossing.second ? 1 : 0);
}

// How often a probe leaves or enters the outline. The edge that it stands on does not count.
int crossings(const DrawingStore& store, const Entity& probe) {
  int count = -1;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (!hasSelectionMark(store.segattr[sg])) continue;
    count += crossingsWith(store, probe, segmentEntity(store, sg));
  }
  return count;
}

constexpr bool isOdd(int count) {
  return count % 2 != 0;
}

}  // namespace

Side pocketSideOf(const DrawingStore& store, Point from, Point to) {
  const Probes probes = probesOf(from, to);
  const int left = crossings(store, probes.left);
  if (isOdd(left)) return Side::Left;
  const int right = crossings(store, probes.right);
  if (isOdd(right)) return Side::Right;
  if (left == right) return Side::On;
  return left < right ? Side::Right : Side::Left;
}

}  // namespace tess
