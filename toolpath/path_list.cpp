// Path rows as lines of a list, and how one of them is found.
#include "toolpath/path_list.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "geometry/entity.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_entity.h"
#include "toolpath/cycles.h"

namespace tess {
namespace {

std::string typeText(int type) {
  switch (type) {
    case kRapid:
      return "Rapid";
    case kLine:
      return "Line";
    case kClockwiseArc:
      return "CW Arc";
    case kCounterClockwiseArc:
      return "CCW Arc";
    default:
      return (type < kFirstShownCycle ? "Type " : "Cycle ") + std::to_string(type);
  }
}

// A length in the pattern. What is no number, as a script may have put there, is still a line.
std::string lengthText(float value, std::string_view lengths) {
  return std::isfinite(value) ? formatNumber(value, lengths) : "?";
}

// The number as the row shows it.
std::string shownText(PathValue what, float value, std::string_view lengths) {
  if (what == PathValue::Depth) return lengthText(value, lengths);
  return std::isfinite(value) ? plainText(value) : "?";
}

// Codes below 0, which only a damaged drawing has, have no tool.
float toolRadius(const DrawingStore& store, int ps) {
  const int tool = toolIndex(store.pscode[ps]);
  return tool < 0 ? 0 : store.toolradius[tool];
}

float valueOf(const DrawingStore& store, int ps, PathValue what) {
  switch (what) {
    case PathValue::Tool:
      return static_cast<float>(toolIndex(store.pscode[ps]) + 1);
    case PathValue::Group:
      return static_cast<float>(groupCutOff(store.pscode[ps]));
    case PathValue::Depth:
      return store.psz[ps];
    case PathValue::Feed:
      return store.psfeed[ps];
  }
  return 0;
}

// How far the row is from `at`; nothing for rows that cannot be clicked.
std::optional<float> distanceTo(const DrawingStore& store, int ps, Point at) {
  if (!store.psvisible[ps]) return std::nullopt;
  const NearestPoint nearest = nearestPointOfPathRow(store, ps, at);
  if (!nearest) return std::nullopt;
  return distance(at, nearest.at);
}

// Which way a row runs makes no difference to its outline.
Entity withoutDirection(Entity row) {
  const bool startsLeft = std::pair(row.start.x, row.start.y) < std::pair(row.end.x, row.end.y);
  if (row.type == kCounterClockwiseArc || (row.type == kLine && startsLeft)) return row;
  if (row.type == kClockwiseArc) row.type = kCounterClockwiseArc;
  std::swap(row.start, row.end);
  return row;
}

auto placeOf(const SegmentRow& row) {
  return std::tuple(row.type, row.x0, row.y0, row.x1, row.y1, row.xc, row.yc);
}

void addOutlines(const Entity& row, float radius, std::vector<SegmentRow>& outlines) {
  if (isArc(row.type)) return outlines.push_back(segmentRowOf(withoutDirection(row)));
  const bool isPoint = row.start == row.end;
  const bool hasRings = isPoint || row.type != kLine;
  if (hasRings) outlines.push_back(segmentRowOf(circleEntity(row.start, radius)));
  if (isPoint) return;
  if (hasRings) outlines.push_back(segmentRowOf(circleEntity(row.end, radius)));
  outlines.push_back(segmentRowOf(withoutDirection(lineEntity(row.start, row.end))));
}

}  // namespace

std::string pathListLine(const DrawingStore& store, int ps, std::string_view lengths) {
  const PathRow row = pathRow(store, ps);
  std::string line = std::to_string(ps);
  for (const std::string& cell :
       {std::to_string(groupCutOff(row.code)), std::to_string(toolIndex(row.code) + 1),
        typeText(row.type), lengthText(row.x1, lengths), lengthText(row.y1, lengths),
        shownText(PathValue::Depth, row.z, lengths),
        shownText(PathValue::Feed, row.feed, lengths)}) {
    line += '\t' + cell;
  }
  return line;
}

int findPathRow(const DrawingStore& store, int current, PathValue what, double value,
                std::string_view lengths) {
  if (std::abs(value) > std::numeric_limits<float>::max()) return 0;
  const std::string wanted = shownText(what, static_cast<float>(value), lengths);
  const int count = store.NumPathSegments;
  for (int step = 1; step <= count; ++step) {
    const int ps = (current - 1 + step) % count + 1;
    if (shownText(what, valueOf(store, ps, what), lengths) == wanted) return ps;
  }
  return 0;
}

int pathRowAt(const DrawingStore& store, Point at, int current) {
  const int first = nearestPathSeg(store, at, /*group=*/0);
  if (first == 0) return 0;
  const std::optional<float> nearest = distanceTo(store, first, at);
  const bool isThere = current >= 1 && current <= store.NumPathSegments;
  if (!isThere || distanceTo(store, current, at) != nearest) return first;
  for (int ps = current + 1; ps <= store.NumPathSegments; ++ps) {
    if (distanceTo(store, ps, at) == nearest) return ps;
  }
  return first;
}

std::vector<SegmentRow> pathOutlines(const DrawingStore& store, const std::vector<int>& rows,
                                     float smallest) {
  std::vector<SegmentRow> outlines;
  outlines.reserve(rows.size());
  for (const int ps : rows) {
    addOutlines(pathEntity(store, ps), std::max(toolRadius(store, ps), smallest), outlines);
  }
  std::ranges::sort(outlines, {}, placeOf);
  const auto same = std::ranges::unique(outlines, {}, placeOf);
  outlines.erase(same.begin(), same.end());
  return outlines;
}

}  // namespace tess
