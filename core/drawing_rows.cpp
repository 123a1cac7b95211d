// The rows of the drawing's tables: appending, growing and rounding.
#include "core/drawing_rows.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

#include "core/drawing_store.h"
#include "core/rounding.h"

namespace tess {
namespace {

constexpr int kSegmentGrowth = 20;
constexpr int kPathGrowth = 100;

}  // namespace

void AddSeg(DrawingStore& store, const SegmentRow& row, SegmentDrawing* target) {
  const Int16 sg = store.NumSegments + 1;
  ensureSegmentCapacity(store, sg);
  setSegmentRow(store, sg, row);
  store.NumSegments = sg;
  if (target != nullptr) target->DrawSegment(sg);
}

void AddSegLine(DrawingStore& store, int segtype, int segattr, float y0, float x0, float y1,
                float x1, SegmentDrawing* target) {
  AddSeg(store, {.type = segtype, .attr = segattr, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1}, target);
}

void ensureSegmentCapacity(DrawingStore& store, int n) {
  const int bound = store.segmentTablesSized ? store.x0.upperBound() : 0;
  if (n <= bound) return;
  visitSegmentColumns(store, [n](auto& column) { column.resize(n + kSegmentGrowth); });
  store.segmentTablesSized = true;
}

void ensurePathCapacity(DrawingStore& store, int n) {
  if (n <= store.psx0.upperBound()) return;
  visitPathColumns(store, [n](auto& column) { column.resize(n + kPathGrowth); });
}

void addPathSegment(DrawingStore& store, const PathRow& row) {
  const Int16 ps = store.NumPathSegments + 1;
  ensurePathCapacity(store, ps);
  PathRow placed = row;
  placed.visible = true;
  setPathRow(store, ps, placed);
  store.lastplacedgroup = groupRounded(row.code);
  store.NumPathSegments = ps;
  store.drawingsaved = false;
}

Int16 nextPathGroup(const DrawingStore& store) {
  int largest = 0;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    largest = std::max(largest, groupRounded(store.pscode[ps]));
  }
  return largest + 1;
}

void roundall(DrawingStore& store) {
  const auto rows = static_cast<std::size_t>(store.NumSegments);
  for (auto* column :
       {&store.x0, &store.y0, &store.x1, &store.y1, &store.centerx, &store.centery}) {
    for (float& value : column->rows().subspan(1, rows)) {
      value = roundTo(value, kCoordinateDecimals);
    }
  }
}

SegmentRow segmentRow(const DrawingStore& store, int sg) {
  return {.type = store.segtype[sg],
          .attr = store.segattr[sg],
          .x0 = store.x0[sg],
          .y0 = store.y0[sg],
          .x1 = store.x1[sg],
          .y1 = store.y1[sg],
          .xc = store.centerx[sg],
          .yc = store.centery[sg]};
}

void setSegmentRow(DrawingStore& store, int sg, const SegmentRow& row) {
  store.x0[sg] = row.x0;
  store.y0[sg] = row.y0;
  store.x1[sg] = row.x1;
  store.y1[sg] = row.y1;
  store.centerx[sg] = row.xc;
  store.centery[sg] = row.yc;
  store.segtype[sg] = row.type;
  store.segattr[sg] = row.attr;
}

PathRow pathRow(const DrawingStore& store, int ps) {
  return {.type = store.pstype[ps],
          .x0 = store.psx0[ps],
          .y0 = store.psy0[ps],
          .x1 = store.psx1[ps],
          .y1 = store.psy1[ps],
          .xc = store.psxc[ps],
          .yc = store.psyc[ps],
          .z = store.psz[ps],
          .feed = store.psfeed[ps],
          .code = store.pscode[ps],
          .visible = store.psvisible[ps]};
}

void setPathRow(DrawingStore& store, int ps, const PathRow& row) {
  store.pstype[ps] = row.type;
  store.pscode[ps] = row.code;
  store.psx0[ps] = row.x0;
  store.psy0[ps] = row.y0;
  store.psx1[ps] = row.x1;
  store.psy1[ps] = row.y1;
  store.psxc[ps] = row.xc;
  store.psyc[ps] = row.yc;
  store.psz[ps] = row.z;
  store.psfeed[ps] = row.feed;
  store.psvisible[ps] = row.visible;
}

int groupRounded(int pscode) {
  return roundHalfEven(withoutSelection(pscode) / double{kCodesPerGroup});
}

}  // namespace tess
