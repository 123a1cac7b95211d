// Rows, lengths and times of the path.
#include "toolpath/path_report.h"

#include <algorithm>
#include <cmath>

#include "geometry/angles.h"
#include "geometry/entity.h"

namespace tess {
namespace {

double arcLength(const Entity& arc) {
  const ArcAngles angles = arcRadiusAndAngles(arc.start, arc.end, arc.center);
  return std::abs(double{angles.radius} * ArcSweep(angles.start, angles.end, arc.type));
}

// Of the way that row `ps` is cut along; 0 for a rapid.
double cutLength(const DrawingStore& store, int ps) {
  const Entity row = pathEntity(store, ps);
  if (row.type >= kFirstCycle) return std::abs(store.psz[ps]);
  if (isArc(row.type)) return arcLength(row);
  const bool isCut = row.type == kLine && store.psz[ps] != kLatheRapidZ;
  return isCut ? distance(row.start, row.end) : 0;
}

ToolShare& shareOf(std::vector<ToolShare>& tools, int tool) {
  const auto found = std::find_if(tools.begin(), tools.end(),
                                  [tool](const ToolShare& share) { return share.tool == tool; });
  return found != tools.end() ? *found : tools.emplace_back(ToolShare{.tool = tool});
}

}  // namespace

PathReport reportPaths(const DrawingStore& store) {
  PathReport report;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    ToolShare& share = shareOf(report.tools, toolIndex(store.pscode[ps]));
    const double length = cutLength(store, ps);
    ++share.rows;
    share.length += length;
    if (store.psfeed[ps] > 0) share.minutes += length / store.psfeed[ps];
  }
  for (const ToolShare& share : report.tools) {
    report.rows += share.rows;
    report.length += share.length;
    report.minutes += share.minutes;
  }
  return report;
}

}  // namespace tess
