// Crossings of scan lines with the working outlines.
//
// Scan lines rise, so a row is looked at only while they pass through its extent: the work is rows
// plus crossings, where plain passes over the table would be rows times lines.
#include "toolpath/scan_points.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

constexpr int kMaxPoints = std::numeric_limits<std::int16_t>::max();  // counted in 16 bits
constexpr std::size_t kMaxEmptyScans = 1000;
// More lines cannot be needed: each adds two points, or ends the run, or stands before the first.
constexpr std::size_t kMaxLines = kMaxPoints / 2 + 1 + kMaxEmptyScans;

// Vertical and lathe lines are tested a little beside their place, off any vertex that a drawing
// may have there. Horizontal ones are not: a vertex exactly on them is missed by both its rows.
// Fixed: the nudge is 0.000073 in any unit; all cuts of both styles would move with another.
constexpr double kNudge = 0.000073;
constexpr int kNudgedPlaces = 6;

// A hit on an arc is judged by 32-bit angles, so it may lie outside the arc's extent by this share
// of the coordinates.
constexpr double kAngleSlack = 1e-5;

float fixedOf(ScanStyle style, Point p) {
  return style == ScanStyle::Vertical ? p.x : p.y;
}

float alongOf(ScanStyle style, Point p) {
  return style == ScanStyle::Vertical ? p.y : p.x;
}

double testValue(ScanStyle style, float scan) {
  return style == ScanStyle::Horizontal ? scan : roundTo(scan, kNudgedPlaces) + kNudge;
}

// ---- Scan lines

struct ScanLine {
  ScanStyle style;
  float scan = 0;   // where its points are kept
  double test = 0;  // where it is tested
  float tolerence = 0;
};

// From half a step inside the bound to the first line above `top`, which has nothing to meet.
std::vector<ScanLine> scanLines(ScanStyle style, float bound, float spacing, float tolerence,
                                double top) {
  std::vector<ScanLine> lines;
  float scan = narrow(bound - spacing / 2.0);
  do {
    scan = narrow(static_cast<double>(scan) + spacing);
    lines.push_back({style, scan, testValue(style, scan), tolerence});
  } while (lines.back().test <= top && lines.size() < kMaxLines);
  return lines;
}

// ---- The rows that scan lines may meet

struct ScanRow {
  Entity entity;
  double low = 0, high = 0;  // test values outside cannot meet the row
};

// How far outside its box an arc may still be met: the circle routines accept a line that misses
// by the tolerance, one of them by its square.
double arcSlack(const Entity& arc, float tolerence) {
  const double radius = radiusOf(arc);
  const double allowed = std::max<double>(tolerence, 0);
  const double squared = std::sqrt(radius * radius + allowed) - radius;
  return std::max(allowed, squared) + kAngleSlack * magnitudeOf(arc);
}

ScanRow scanRow(const DrawingStore& store, ScanStyle style, int sg) {
  const Entity entity = segmentEntity(store, sg);
  const Box box = entityBox(entity);
  const double slack = isArc(entity.type) ? arcSlack(entity, store.cfg_tolerance) : 0;
  const bool across = style == ScanStyle::Vertical;
  return {entity, (across ? box.minX : box.minY) - slack, (across ? box.maxX : box.maxY) + slack};
}

// The working lines and arcs in the order of their numbers.
struct ScanRows {
  std::vector<ScanRow> rows;
  double top = -std::numeric_limits<double>::infinity();
  int last = 0;  // the last working row of any kind
};

ScanRows scanRows(const DrawingStore& store, ScanStyle style) {
  ScanRows found;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (!isWorkingRow(store.segattr[sg])) continue;
    found.last = sg;
    if (store.segtype[sg] != kLine && !isArc(store.segtype[sg])) continue;
    found.rows.push_back(scanRow(store, style, sg));
    found.top = std::max(found.top, found.rows.back().high);
  }
  return found;
}

// The rows under a scan line, in the order of their numbers, while the lines pass one by one. Lines
// that do not rise may come back to a row, so they meet all rows every time.
class ActiveRows {
 public:
  ActiveRows(const std::vector<ScanRow>& rows, const std::vector<ScanLine>& lines, bool rising)
      : rows_(rows), lines_(lines), rising_(rising), firstOf_(lines.size(), kNone) {
    nextOf_.assign(rows.size(), kNone);
    for (std::size_t k = rows.size(); k-- > 0;) waitForItsLine(k);
  }

  template <typename Visit>
  void visitAt(std::size_t line, Visit visit) {
    if (rising_) leaveRowsBelow(lines_[line].test);
    admit(line);
    for (const std::size_t k : active_) visit(rows_[k].entity);
  }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // Most rows of a fine outline lie between two lines.
  void waitForItsLine(std::size_t k) {
    const std::size_t line = rising_ ? firstLineFrom(rows_[k].low) : 0;
    const bool meetsNone = line == lines_.size() || (rising_ && lines_[line].test > rows_[k].high);
    if (meetsNone) return;
    nextOf_[k] = firstOf_[line];
    firstOf_[line] = k;
  }

  std::size_t firstLineFrom(double low) const {
    const auto found =
        std::lower_bound(lines_.begin(), lines_.end(), low,
                         [](const ScanLine& line, double value) { return line.test < value; });
    return static_cast<std::size_t>(found - lines_.begin());
  }

  void leaveRowsBelow(double test) {
    std::erase_if(active_, [&](std::size_t k) { return rows_[k].high < test; });
  }

  void admit(std::size_t line) {
    const auto before = static_cast<std::ptrdiff_t>(active_.size());
    for (std::size_t k = firstOf_[line]; k != kNone; k = nextOf_[k]) active_.push_back(k);
    std::inplace_merge(active_.begin(), active_.begin() + before, active_.end());
  }

  const std::vector<ScanRow>& rows_;
  const std::vector<ScanLine>& lines_;
  bool rising_;
  std::vector<std::size_t> firstOf_;  // per line: the first row that it is the first to meet
  std::vector<std::size_t> nextOf_;   // per row: the next one of the same line
  std::vector<std::size_t> active_;   // by row number
};

// ---- One scan line

void addLineCrossing(const ScanLine& line, const Entity& edge, ScanPoints& points) {
  const auto [low, high] =
      std::minmax({fixedOf(line.style, edge.start), fixedOf(line.style, edge.end)});
  // Strictly between: an end exactly on the line does not count.
  if (line.test <= low || line.test >= high) return;
  float along = alongOf(line.style, edge.start);
  if (along != alongOf(line.style, edge.end)) {
    const double m = chordSlope(edge.start, edge.end);
    const double b = edge.start.y - m * edge.start.x;
    const bool vertical = line.style == ScanStyle::Vertical;
    along = narrow(vertical ? m * line.scan + b : (line.scan - b) / nonZero(m));
  }
  points.add({line.scan, along});
}

AxisHits circleHits(const ScanLine& line, const Circle& circle) {
  return line.style == ScanStyle::Vertical ? verticalCircle(line.test, circle, line.tolerence)
                                           : horizontalCircle(line.test, circle, line.tolerence);
}

bool isOnSweep(const Entity& arc, Point hit) {
  return angleInSweep(vectorAngle(arc.center, hit), vectorAngle(arc.center, arc.start),
                      vectorAngle(arc.center, arc.end), arc.type);
}

// Both hits lie on the arc. A tangent touch is no crossing.
// Fixed: the vertical style alone adds one point for a touch; its line then loses its last point.
void addBothHits(const ScanLine& line, const Entity& arc, float first, float second,
                 ScanPoints& points) {
  const bool touches =
      std::abs(static_cast<double>(first) - second) <= static_cast<double>(line.tolerence);
  if (touches && line.style != ScanStyle::Vertical) return;
  const float height = narrow(line.test);
  const Point firstHit = placeOf(line.style, {height, first});
  const Point secondHit = placeOf(line.style, {height, second});
  if (distance(arc.start, secondHit) < distance(arc.start, firstHit)) std::swap(first, second);
  points.add({line.scan, first});
  if (!touches) points.add({line.scan, second});
}

void addArcCrossings(const ScanLine& line, const Entity& arc, ScanPoints& points) {
  const AxisHits hits = circleHits(line, {arc.center, radiusOf(arc)});
  if (!hits) return;
  const float height = narrow(line.test);
  const bool firstOn = isOnSweep(arc, placeOf(line.style, {height, hits.first}));
  const bool secondOn = isOnSweep(arc, placeOf(line.style, {height, hits.second}));
  if (firstOn && secondOn) {
    addBothHits(line, arc, hits.first, hits.second, points);
  } else if (firstOn || secondOn) {
    points.add({line.scan, firstOn ? hits.first : hits.second});
  }
}

void addCrossings(const ScanLine& line, const Entity& row, ScanPoints& points) {
  if (row.type == kLine) {
    addLineCrossing(line, row, points);
  } else {
    addArcCrossings(line, row, points);
  }
}

// ---- The bound

void lower(std::optional<ScanPoint>& best, ScanPoint candidate) {
  const float limit = best ? best->fixed : kFarthest;
  if (candidate.fixed < limit) best = candidate;
}

ScanPoint seenFrom(ScanStyle style, Point p) {
  return {fixedOf(style, p), alongOf(style, p)};
}

}  // namespace

void ScanPoints::add(ScanPoint point) {
  if (count() == kMaxPoints) throw overflow();
  points_.push_back(point);
}

// Fixed: the last of an odd number goes; the cut there is missing and not repaired.
void ScanPoints::dropUnpaired() {
  if (points_.size() % 2 != 0) points_.pop_back();
}

std::optional<ScanPoint> lowestWorkingPoint(const DrawingStore& store, ScanStyle style) {
  std::optional<ScanPoint> best;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (!isWorkingRow(store.segattr[sg])) continue;
    const Entity row = segmentEntity(store, sg);
    if (row.type == kLine) {
      lower(best, seenFrom(style, row.start));
      lower(best, seenFrom(style, row.end));
    } else if (isArc(row.type)) {
      // Fixed: an arc reaches as far as its circle; the lines of all such pockets start there.
      ScanPoint bottom = seenFrom(style, row.center);
      bottom.fixed = narrow(static_cast<double>(bottom.fixed) - radiusOf(row));
      lower(best, bottom);
    }
  }
  return best;
}

ScanPoints collectScanPoints(const DrawingStore& store, ScanStyle style, float bound, float spacing,
                             const ScanProgress& progress) {
  ScanPoints points;
  const ScanRows found = scanRows(store, style);
  const std::vector<ScanLine> lines =
      scanLines(style, bound, spacing, store.cfg_tolerance, found.top);
  ActiveRows active(found.rows, lines, /*rising=*/spacing > 0);
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const int before = points.count();
    active.visitAt(line, [&](const Entity& row) { addCrossings(lines[line], row, points); });
    progress(found.last, points.count());
    points.dropUnpaired();
    const bool added = points.count() > before;
    // Fixed: the first empty line after the material ends the run; what lies above stays.
    if (!added && (points.count() > 0 || line + 1 >= kMaxEmptyScans)) break;
  }
  return points;
}

void sortScanPoints(ScanPoints& points) {
  const auto end = points.points().end();
  for (auto first = points.points().begin(); first != end;) {
    const auto last = std::find_if(
        first, end, [line = first->fixed](const ScanPoint& p) { return p.fixed != line; });
    std::stable_sort(first, last,
                     [](const ScanPoint& a, const ScanPoint& b) { return a.along < b.along; });
    first = last;
  }
}

}  // namespace tess
