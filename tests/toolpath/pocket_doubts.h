// What about a pocket misleads the rules of the tool paths, by measures that are taken without the
// paths. Doubts are told in words; where there is none, the paths must be right.
// Owns: StartCorner, cornerAt, leftAt, angleOf, turningPoint, isStartFree, lowEnd, startOf, endOf,
//       LowestRow, lowestRow, neighbourOf, tellsInsideOfArc, tellsInsideOfLine, tellsInside,
//       hasFlatArc, isSmooth, startDoubt, partDoubt, lowestDoubt, roughDoubt, largestTool,
//       fitsCorners, RingSpan, spiralDoubt.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/pockets.h"
#include "tests/toolpath/pocket_job.h"

namespace tess::testing {

// Where a walk round an outline begins: `before` ends where `after` starts.
struct StartCorner {
  Curve before, after;
};

// None for an outline of one row.
inline std::optional<StartCorner> cornerAt(const Loop& loop, Vec at) {
  for (std::size_t k = 0; loop.size() > 1 && k < loop.size(); ++k) {
    const Curve& before = loop[(k + loop.size() - 1) % loop.size()];
    if (lengthOf(loop[k].start - at) < 1e-4) return StartCorner{before, loop[k]};
  }
  return std::nullopt;
}

// The unit vector square to the row, to its left.
inline Vec leftAt(const Curve& row, double share) {
  const double d = 1e-4;
  const Vec direction =
      pointOn(row, std::min(1.0, share + d)) - pointOn(row, std::max(0.0, share - d));
  return (1 / lengthOf(direction)) * leftOf(direction);
}

// The angle between the rows on their left, in degrees.
inline double angleOf(const StartCorner& corner) {
  const Vec in = -1 * leftAt(corner.before, 1);
  const Vec out = -1 * leftAt(corner.after, 0);
  return 180 - std::atan2(cross(in, out), dot(in, out)) * 360 / kFullTurn;
}

// Where between `low` and `high` a question that is answered No and then Yes turns.
template <typename Question>
double turningPoint(double low, double high, Question question) {
  for (int halving = 0; halving < 40; ++halving) {
    const double middle = (low + high) / 2;
    (question(middle) ? high : low) = middle;
  }
  return high;
}

// True when a tool on the allowed side can stand in the corner and touch both rows, not just the
// far end of one: then the path round the outline does not begin within a fold.
inline bool isStartFree(const PartShape& part, const StartCorner& corner, double radius) {
  constexpr int kSteps = 400;
  constexpr double kSlack = 1e-3;
  const Curve& row = corner.after;
  const double side = isAllowed(part, pointOn(row, 0.5) + 1e-4 * leftAt(row, 0.5)) ? 1 : -1;
  const auto tool = [&](double share) {
    return pointOn(row, share) + side * radius * leftAt(row, share);
  };
  const auto clearsBefore = [&](double share) {
    return distanceBetween(corner.before, tool(share)) >= radius - 1e-6;
  };
  for (int step = 0; step <= kSteps; ++step) {
    const double share = static_cast<double>(step) / kSteps;
    if (!clearsBefore(share)) continue;
    const double touching = turningPoint(std::max(0.0, share - 1.0 / kSteps), share, clearsBefore);
    const Vec at = tool(touching);
    const bool passesBefore = lengthOf(nearestOn(corner.before, at) - corner.before.start) < kSlack;
    return !passesBefore && clearance(part, at) >= radius - kSlack;
  }
  return false;
}

// ---- Where roughing takes hold

inline float lowEnd(const Loop& loop) {
  double low = loop.front().start.y;
  for (const Curve& row : loop) low = std::min(low, row.start.y);
  return static_cast<float>(low);
}

inline Vec startOf(const SegmentRow& row) {
  return {row.x0, row.y0};
}
inline Vec endOf(const SegmentRow& row) {
  return {row.x1, row.y1};
}

// The row that roughing begins with, and the place where it looks for the next one.
struct LowestRow {
  SegmentRow row;
  Vec at;
};

// Of rows that go equally low the first; a line is preferred to an arc if `prefersLine`, and is
// looked at from its start then.
inline LowestRow lowestRow(const std::vector<SegmentRow>& rows, bool prefersLine) {
  const auto low = [](const SegmentRow& row) { return std::min(row.y0, row.y1); };
  const auto lower = [&](const SegmentRow& a, const SegmentRow& b) { return low(a) < low(b); };
  const auto lowest = std::min_element(rows.begin(), rows.end(), lower);
  const auto line = std::find_if(lowest, rows.end(), [&](const SegmentRow& row) {
    return row.type == kLine && low(row) == low(*lowest);
  });
  if (prefersLine && lowest->type != kLine && line != rows.end()) return {*line, startOf(*line)};
  return {*lowest, lowest->y1 < lowest->y0 ? endOf(*lowest) : startOf(*lowest)};
}

inline const SegmentRow* neighbourOf(const std::vector<SegmentRow>& rows, const LowestRow& lowest) {
  for (const SegmentRow& row : rows) {
    const bool same = startOf(row) == startOf(lowest.row) && endOf(row) == endOf(lowest.row);
    if (!same && (startOf(row) == lowest.at || endOf(row) == lowest.at)) return &row;
  }
  return nullptr;
}

inline bool tellsInsideOfArc(const Loop& loop, const Curve& arc, Vec middle) {
  const Vec place = pointOn(arc, 0.5);
  const Vec inward = place + (1e-4 / arc.radius) * (arc.center - place);
  const bool within = lengthOf(middle - arc.center) < arc.radius;
  return std::abs(arc.sweep) < kFullTurn / 2 && within == encloses(loop, inward);
}

inline bool tellsInsideOfLine(const Loop& loop, const Curve& line, Vec middle) {
  const Vec direction = line.end - line.start;
  const double along = dot(middle - line.start, direction) / dot(direction, direction);
  const double off = cross(direction, middle - line.start) / lengthOf(direction);
  const Vec inward = pointOn(line, 0.5) + 1e-4 * leftAt(line, 0.5);
  return along > 0 && along < 1 && std::abs(off) > 1e-4 && (off > 0) == encloses(loop, inward);
}

// True when the middle of the four ends of the two rows lies beside the lowest one, inside the
// outline: that is how roughing tells the inside.
inline bool tellsInside(const Loop& loop, const LowestRow& lowest, const SegmentRow& next) {
  const Vec middle = 0.25 * (startOf(lowest.row) + endOf(lowest.row) + startOf(next) + endOf(next));
  const Curve row = curveOf(lowest.row);
  return row.isArc ? tellsInsideOfArc(loop, row, middle) : tellsInsideOfLine(loop, row, middle);
}

// ---- Doubts

// An arc so flat that its whole circle begins more than a thousand scan lines before the pocket.
inline bool hasFlatArc(const PartShape& part, double step) {
  const auto flat = [step](const Curve& row) { return row.isArc && 2 * row.radius > 1000 * step; };
  return std::any_of(part.pocket.begin(), part.pocket.end(), flat) ||
         std::any_of(part.islands.begin(), part.islands.end(),
                     [&](const Loop& loop) { return std::any_of(loop.begin(), loop.end(), flat); });
}

// Where a path begins: an arc that runs smoothly into its neighbour counts as crossing it.
inline bool isSmooth(const StartCorner& corner) {
  return (corner.before.isArc || corner.after.isArc) && std::abs(angleOf(corner) - 180) < 2;
}

// Why a walk that starts there need not be right; empty when it must be.
inline std::string startDoubt(const PartShape& part, const Loop& loop, Vec start, double radius) {
  const auto corner = cornerAt(loop, start);
  if (!corner) return "";
  if (isSmooth(*corner)) return "starts smoothly";
  return isStartFree(part, *corner, radius) ? "" : "starts in a fold";
}

// What spoils the paths of a part wherever they start.
inline std::string partDoubt(const TestPocket& pocket, double radius) {
  const auto twoRows = [](const Loop& loop) { return loop.size() == 2; };
  const PartShape& part = pocket.part;
  if (!pocket.islands.empty() && pocket.islandGap < 2 * radius) return "island near";
  if (twoRows(part.pocket) || std::any_of(part.islands.begin(), part.islands.end(), twoRows)) {
    return "two rows";
  }
  return toolRooms(part, radius, 6) == 1 ? "" : "neck";
}

inline std::string lowestDoubt(const PartShape& part, const Loop& loop,
                               const std::vector<SegmentRow>& rows, double radius) {
  if (loop.size() == 1) return "";
  const LowestRow lowest = lowestRow(rows, /*prefersLine=*/&loop == &part.pocket);
  const SegmentRow* const next = neighbourOf(rows, lowest);
  if (next == nullptr || !tellsInside(loop, lowest, *next)) return "lowest corner";
  return startDoubt(part, loop, startOf(lowest.row), radius);
}

inline std::string roughDoubt(const TestPocket& pocket, double radius) {
  const PartShape& part = pocket.part;
  std::string doubt = partDoubt(pocket, radius);
  if (hasFlatArc(part, pocket.toolRadius)) return "flat arc";
  if (doubt.empty()) doubt = lowestDoubt(part, part.pocket, pocket.outline, radius);
  for (std::size_t k = 0; k < part.islands.size() && doubt.empty(); ++k) {
    if (lowEnd(part.islands[k]) <= lowEnd(part.pocket)) return "island lowest";
    doubt = lowestDoubt(part, part.islands[k], pocket.islands[k], radius);
  }
  return doubt;
}

// The radius of the largest tool that can stand somewhere, or a little less.
inline double largestTool(const PartShape& part, double toolRadius) {
  double low = toolRadius;
  double high = 64 * toolRadius;
  while (high - low > 0.05 * toolRadius) {
    const double middle = (low + high) / 2;
    (toolRooms(part, middle, 24) > 0 ? low : high) = middle;
  }
  return low;
}

// True when a tool of that radius can stand in every corner of the pocket.
inline bool fitsCorners(const PartShape& part, double radius) {
  const auto free = [&](const Curve& row) {
    const auto corner = cornerAt(part.pocket, row.start);
    return !corner || isStartFree(part, *corner, radius);
  };
  return std::all_of(part.pocket.begin(), part.pocket.end(), free);
}

// Of a spiral: how far from the wall its rings stand, from the innermost to the last.
struct RingSpan {
  double first = 0, last = 0, step = 0;
};

inline std::string spiralDoubt(const TestPocket& pocket, const JobClicks& clicks, RingSpan rings) {
  const PartShape& part = pocket.part;
  if (!pocket.islands.empty()) return "island";
  if (part.pocket.size() == 2) return "two rows";
  const Vec start{clicks.start.x, clicks.start.y};
  const Vec direction = Vec{clicks.along.x, clicks.along.y} - start;
  const double turn = std::atan2(direction.y, direction.x) * 360 / kFullTurn;
  if (std::abs(turn - 135) < 0.01 || std::abs(turn + 45) < 0.01) return "135 degrees";
  const auto corner = cornerAt(part.pocket, start);
  if (corner && isSmooth(*corner)) return "starts smoothly";
  for (double inset = rings.first;; inset = std::max(rings.last, inset - rings.step)) {
    if (toolRooms(part, inset, 24) != 1) return "neck at a ring";
    if (!fitsCorners(part, inset)) return "ring misses a corner";
    if (inset <= rings.last) return "";
  }
}

}  // namespace tess::testing
