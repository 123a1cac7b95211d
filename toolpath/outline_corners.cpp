// Where roughing begins with an outline.
#include "toolpath/outline_corners.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "geometry/float_nearest.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

Point middleOf(Point a, Point b) {
  return {narrow((static_cast<double>(a.x) + b.x) / 2),
          narrow((static_cast<double>(a.y) + b.y) / 2)};
}

Point averageOf(const Entity& a, const Entity& b) {
  const Point corners[] = {a.start, a.end, b.start, b.end};
  double x = 0;
  double y = 0;
  for (const Point corner : corners) {
    x += corner.x;
    y += corner.y;
  }
  return {narrow(x / 4), narrow(y / 4)};
}

Point lowerEnd(const Entity& row) {
  return row.end.y < row.start.y ? row.end : row.start;
}

// A walk knows the rows that were there when it was made; working rows that came since can be a
// neighbour too, by a plain pass.
std::optional<ChainStep> neighbourOf(const DrawingStore& store, ChainWalk& rows,
                                     const OutlineCorner& corner) {
  const auto neighbour = rows.nextChainSeg(corner.sg, corner.at);
  return neighbour ? neighbour : nextChainSeg(store, corner.sg, corner.at);
}

}  // namespace

// The start of a line that replaces an arc may lie above the height that it is measured by.
// Fixed: the lowest outline is the pocket; an island that pokes out below takes its place.
std::optional<OutlineCorner> pocketCorner(const DrawingStore& store) {
  std::optional<OutlineCorner> best;
  float lowest = kFarthest;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (!isSelected(store.segattr[sg])) continue;
    const Entity row = segmentEntity(store, sg);
    if (lowerEnd(row).y < lowest) {
      best = {sg, lowerEnd(row)};
      lowest = best->at.y;
    }
    const bool endsThere = row.start.y == lowest || row.end.y == lowest;
    if (best && isArc(store.segtype[best->sg]) && row.type == kLine && endsThere) {
      best = {sg, row.start};
    }
  }
  return best;
}

std::vector<OutlineCorner> islandCorners(const DrawingStore& store) {
  std::vector<OutlineCorner> corners;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const Point low = lowerEnd(segmentEntity(store, sg));
    if (isSelected(store.segattr[sg]) && low.y < kFarthest) corners.push_back({sg, low});
  }
  std::stable_sort(corners.begin(), corners.end(),
                   [](const OutlineCorner& a, const OutlineCorner& b) { return a.at.y < b.at.y; });
  return corners;
}

std::optional<OutlineGuide> guideAt(const DrawingStore& store, ChainWalk& rows,
                                    const OutlineCorner& corner) {
  const Entity row = segmentEntity(store, corner.sg);
  if (const auto neighbour = neighbourOf(store, rows, corner)) {
    return OutlineGuide{averageOf(row, segmentEntity(store, neighbour->row)), row.end};
  }
  if (!samePoint(row.start, row.end, store.cfg_tolerance)) return std::nullopt;
  return OutlineGuide{middleOf(row.center, row.start), middleOf(row.center, row.end)};
}

Point mirroredOut(const DrawingStore& store, int sg, Point inside) {
  const Point nearest = nearestOnSeg(store, sg, inside).found().value_or(inside);
  return {narrow(nearest.x - (static_cast<double>(inside.x) - nearest.x)),
          narrow(nearest.y - (static_cast<double>(inside.y) - nearest.y))};
}

}  // namespace tess
