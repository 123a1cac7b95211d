// Curves by their boxes.
#include "geometry/curve_index.h"

#include <utility>

namespace tess {
namespace {

std::vector<Box> boxesOf(const std::vector<Curve>& curves) {
  std::vector<Box> boxes;
  boxes.reserve(curves.size());
  for (const Curve& curve : curves) boxes.push_back(boxOf(curve));
  return boxes;
}

}  // namespace

CurveIndex::CurveIndex(std::vector<Curve> curves)
    : curves_(std::move(curves)), boxes_(boxesOf(curves_)) {}

void CurveIndex::candidates(const Curve& curve, double distance, std::vector<int>& found) const {
  candidates(boxOf(curve), distance, found);
}

void CurveIndex::candidates(const Box& box, double distance, std::vector<int>& found) const {
  boxes_.rowsOverlapping(grown(box, distance), /*after=*/0, found);
  for (int& row : found) --row;
}

std::optional<NearCurve> CurveIndex::nearest(const Curve& curve, double distance) const {
  std::vector<int> found;
  candidates(curve, distance, found);
  std::optional<NearCurve> best;
  for (const int index : found) {
    const CurveGap gap = gapBetween(curve, curves_[static_cast<std::size_t>(index)]);
    const bool isNearer = best ? gap.distance < best->gap.distance : gap.distance <= distance;
    if (isNearer) best = NearCurve{index, gap};
  }
  return best;
}

}  // namespace tess
