// A raster of heights.
#include "tests/support/plunge_checker.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/drawing_store.h"

namespace tess::testing {
namespace {

constexpr double kSwept = 2e-5;  // a sweep counts as so much wider
constexpr double kRim = 1e-3;    // a tool that goes down as so much smaller

struct Cut {
  Curve way;
  double radius, z;
  bool isHole;
  bool isRapid;
};

bool isDrilled(const PathRow& row) {
  return row.type >= kFirstCycle && row.type != 79;
}

std::vector<Cut> cutsOf(const DrawingStore& store) {
  std::vector<Cut> cuts;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const PathRow row = pathRow(store, ps);
    const double radius = store.toolradius[row.code % kCodesPerGroup];
    if (isDrilled(row)) {
      const Vec at{row.x1, row.y1};
      cuts.push_back({lineCurve(at, at), radius, -std::abs(row.z), true, false});
    } else {
      cuts.push_back(
          {row.type == kRapid ? lineCurve({row.x0, row.y0}, {row.x1, row.y1}) : curveOf(row),
           radius, row.z, false, row.type == kRapid});
    }
  }
  return cuts;
}

// Cells by their middles, with the height of what is left in each.
class Heights {
 public:
  Heights(const std::vector<Cut>& cuts, int cellsPerRadius) {
    double smallest = std::numeric_limits<double>::infinity();
    Vec high{-smallest, -smallest};
    low_ = {smallest, smallest};
    for (const Cut& cut : cuts) {
      smallest = std::min(smallest, cut.radius);
      constexpr int kPlaces = 16;
      for (int k = 0; k <= kPlaces; ++k) {
        const Vec at = pointOn(cut.way, static_cast<double>(k) / kPlaces);
        const double reach = 1.1 * cut.radius;
        low_ = {std::min(low_.x, at.x - reach), std::min(low_.y, at.y - reach)};
        high = {std::max(high.x, at.x + reach), std::max(high.y, at.y + reach)};
      }
    }
    cell_ = smallest / cellsPerRadius;
    columns_ = static_cast<int>((high.x - low_.x) / cell_) + 1;
    rows_ = static_cast<int>((high.y - low_.y) / cell_) + 1;
    tops_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), 0);
  }

  void take(const Cut& cut) {
    visit(cut.way, cut.radius + kSwept, [&](double& top) { top = std::min(top, cut.z); });
  }

  double highestBelow(Vec at, double radius) {
    double highest = -std::numeric_limits<double>::infinity();
    visit(lineCurve(at, at), radius - kRim, [&](double top) { highest = std::max(highest, top); });
    return highest;
  }

 private:
  template <typename Visit>
  void visit(const Curve& way, double radius, Visit visitTop) {
    Vec low = way.start;
    Vec high = way.start;
    constexpr int kPlaces = 8;
    const double beyond = radius + (way.isArc ? lengthOf(way) / kPlaces : 0);
    for (int k = 0; k <= kPlaces; ++k) {
      const Vec at = pointOn(way, static_cast<double>(k) / kPlaces);
      low = {std::min(low.x, at.x - beyond), std::min(low.y, at.y - beyond)};
      high = {std::max(high.x, at.x + beyond), std::max(high.y, at.y + beyond)};
    }
    for (int row = cellAt(low.y - low_.y, rows_); row <= cellAt(high.y - low_.y, rows_); ++row) {
      for (int column = cellAt(low.x - low_.x, columns_);
           column <= cellAt(high.x - low_.x, columns_); ++column) {
        const Vec middle = low_ + Vec{(column + 0.5) * cell_, (row + 0.5) * cell_};
        if (distanceBetween(way, middle) > radius) continue;
        visitTop(tops_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                       static_cast<std::size_t>(column)]);
      }
    }
  }

  int cellAt(double along, int count) const {
    return std::clamp(static_cast<int>(std::floor(along / cell_)), 0, count - 1);
  }

  Vec low_;
  double cell_ = 1;
  int columns_ = 1, rows_ = 1;
  std::vector<double> tops_;
};

}  // namespace

std::vector<CheckedPlunge> plungesOf(const DrawingStore& store, double least, int cellsPerRadius) {
  const std::vector<Cut> cuts = cutsOf(store);
  std::vector<CheckedPlunge> plunges;
  if (cuts.empty()) return plunges;
  Heights heights(cuts, cellsPerRadius);
  Vec here{std::numeric_limits<double>::infinity(), 0};
  double z = store.zstartpos;
  int row = 0;
  for (const Cut& cut : cuts) {
    ++row;
    const bool goesOn = lengthOf(cut.way.start - here) <= 1e-4 && cut.z >= z - 1e-9;
    if (!goesOn && !cut.isHole && !cut.isRapid && cut.z < 0) {
      const double depth = heights.highestBelow(cut.way.start, cut.radius) - cut.z;
      if (depth > least) plunges.push_back({row, cut.way.start, depth});
    }
    if (!cut.isRapid) heights.take(cut);
    here = cut.way.end;
    z = cut.isHole ? store.zstartpos : cut.z;
  }
  return plunges;
}

}  // namespace tess::testing
