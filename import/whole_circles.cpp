// The search for the two parts of circles.
#include "import/whole_circles.h"

#include <array>
#include <map>

#include "geometry/plane.h"

namespace tess {
namespace {

// Sense, start and end.
using Key = std::array<double, 5>;

Key keyOf(const DxfRow& arc) {
  return {static_cast<double>(arc.type), arc.x0, arc.y0, arc.x1, arc.y1};
}

Key keyOfRest(const DxfRow& arc) {
  return {static_cast<double>(arc.type), arc.x1, arc.y1, arc.x0, arc.y0};
}

bool isPart(const DxfRow& row) {
  return isArc(row.type) && (row.x0 != row.x1 || row.y0 != row.y1);
}

bool haveOneCenter(const DxfRow& a, const DxfRow& b, float tolerence) {
  return lengthOf(PlanePoint{a.xc - b.xc, a.yc - b.yc}) <= tolerence;
}

DxfRow wholeCircle(const DxfRow& part) {
  return {.type = kClockwiseArc,
          .x0 = part.x0,
          .y0 = part.y0,
          .x1 = part.x0,
          .y1 = part.y0,
          .xc = part.xc,
          .yc = part.yc};
}

}  // namespace

void closeCircles(std::vector<PlacedRow>& rows, float tolerence) {
  std::map<Key, std::size_t> waiting;  // parts without their rest so far
  std::vector<PlacedRow> kept;
  for (const PlacedRow& placed : rows) {
    if (!isPart(placed.row)) {
      kept.push_back(placed);
      continue;
    }
    const auto rest = waiting.find(keyOfRest(placed.row));
    if (rest != waiting.end() && haveOneCenter(kept[rest->second].row, placed.row, tolerence)) {
      DxfRow& first = kept[rest->second].row;
      first = wholeCircle(first);
      waiting.erase(rest);
      continue;
    }
    waiting.try_emplace(keyOf(placed.row), kept.size());
    kept.push_back(placed);
  }
  rows = std::move(kept);
}

}  // namespace tess
