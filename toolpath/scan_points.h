// Where scan lines cross the working outlines of roughing: the bound that scanning starts from, the
// crossings line by line, and their order along each line.
// Owns: ScanStyle, ScanPoint, placeOf, ScanPoints, lowestWorkingPoint, ScanProgress,
//       collectScanPoints, sortScanPoints.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// Horizontal and Lathe lay their scan lines at heights y, Vertical at abscissas x.
enum class ScanStyle { Horizontal, Vertical, Lathe };

// A point as its scan line sees it: `fixed` says which line, `along` the place on it.
struct ScanPoint {
  float fixed = 0, along = 0;
  friend bool operator==(const ScanPoint&, const ScanPoint&) = default;
};

// The same point in the drawing.
constexpr Point placeOf(ScanStyle style, ScanPoint at) {
  return style == ScanStyle::Vertical ? Point{at.fixed, at.along} : Point{at.along, at.fixed};
}

// The crossings in the order in which they were met, two by two: the cut runs from the first to the
// second of a pair.
class ScanPoints {
 public:
  // Raises Overflow at the 32768th point.
  void add(ScanPoint point);
  // An unpaired point says nothing about where the material ends.
  void dropUnpaired();

  int count() const { return static_cast<int>(points_.size()); }
  std::vector<ScanPoint>& points() { return points_; }
  const std::vector<ScanPoint>& points() const { return points_; }

 private:
  std::vector<ScanPoint> points_;
};

// The working rows' point that lies lowest across the scan lines. An arc counts as its whole
// circle, a row that is neither line nor arc not at all; nothing without any.
std::optional<ScanPoint> lowestWorkingPoint(const DrawingStore& store, ScanStyle style);

// Told after each scan line: the last working row and the number of points so far.
using ScanProgress = std::function<void(int row, int pointcount)>;

// The crossings of scan lines `spacing` apart, the first one half of that inside the bound. On each
// line the working rows are met in the order of their numbers. The run ends at the first empty line
// behind the material, or with 1000 empty lines before any.
ScanPoints collectScanPoints(const DrawingStore& store, ScanStyle style, float bound, float spacing,
                             const ScanProgress& progress);

// Brings the points of each scan line into rising order; the lines stay as they are.
void sortScanPoints(ScanPoints& points);

}  // namespace tess
