// Working rows for tests of the clearing styles, as if roughing had just made them.
// Owns: addWorkingPolygon, addWorkingBox, addWorkingCircle, setSpacing, pathEnds.
#pragma once

#include <string>
#include <vector>

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/working_rows.h"

namespace tess::testing {

inline void addWorkingPolygon(DrawingStore& store, const std::vector<Point>& corners,
                              int attr = kPocketOutline) {
  for (std::size_t k = 0; k < corners.size(); ++k) {
    const Point a = corners[k];
    const Point b = corners[(k + 1) % corners.size()];
    AddSeg(store, {.type = kLine, .attr = attr, .x0 = a.x, .y0 = a.y, .x1 = b.x, .y1 = b.y},
           nullptr);
  }
}

inline void addWorkingBox(DrawingStore& store, Point low, Point high, int attr = kPocketOutline) {
  addWorkingPolygon(store, {low, {high.x, low.y}, high, {low.x, high.y}}, attr);
}

// Two half circles, the lower one first.
inline void addWorkingCircle(DrawingStore& store, Point center, float radius,
                             int attr = kPocketOutline) {
  const float left = center.x - radius;
  const float right = center.x + radius;
  for (const auto& [from, to] : {std::pair{left, right}, {right, left}}) {
    AddSeg(store,
           {.type = kCounterClockwiseArc,
            .attr = attr,
            .x0 = from,
            .y0 = center.y,
            .x1 = to,
            .y1 = center.y,
            .xc = center.x,
            .yc = center.y},
           nullptr);
  }
}

inline void setSpacing(DrawingStore& store, float spacing) {
  store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
  store.cfg_tool_spacing_distance = spacing;
}

// The ends of all path rows, as in "(0, 0.5)-(10, 0.5)"; a lathe rapid is marked by " rapid".
inline std::vector<std::string> pathEnds(const DrawingStore& store) {
  std::vector<std::string> ends;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const PathRow row = pathRow(store, ps);
    ends.push_back(recordedLine({row.x0, row.y0, row.x1, row.y1}) +
                   (row.z == kLatheRapidZ ? " rapid" : ""));
  }
  return ends;
}

}  // namespace tess::testing
