// The raster: cells are taken once, and what a step takes is counted by its place across the way.
#include "tests/support/engagement_checker.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tess::testing {
namespace {

constexpr int kCellsPerRadius = 24;
constexpr int kStepsPerRadius = 8;
constexpr int kParts = 12;

class StockRaster {
 public:
  StockRaster(const std::vector<Curve>& path, double radius)
      : radius_(radius), cell_(radius / kCellsPerRadius) {
    Vec low{1e9, 1e9};
    Vec high{-1e9, -1e9};
    for (const Curve& curve : path) {
      for (int k = 0; k <= 16; ++k) {
        const Vec at = pointOn(curve, k / 16.0);
        low = {std::min(low.x, at.x), std::min(low.y, at.y)};
        high = {std::max(high.x, at.x), std::max(high.y, at.y)};
      }
    }
    low_ = low - Vec{2 * radius, 2 * radius};
    columns_ = static_cast<int>((high.x - low_.x + 2 * radius) / cell_) + 1;
    rows_ = static_cast<int>((high.y - low_.y + 2 * radius) / cell_) + 1;
    taken_.assign(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), 0);
  }

  // Takes what is below a tool; `visit` is told of each cell that was still there.
  template <typename Visit>
  void take(Vec at, Visit visit) {
    const int firstColumn = std::max(0, columnOf(at.x - radius_));
    const int lastColumn = std::min(columns_ - 1, columnOf(at.x + radius_));
    const int firstRow = std::max(0, rowOf(at.y - radius_));
    const int lastRow = std::min(rows_ - 1, rowOf(at.y + radius_));
    for (int row = firstRow; row <= lastRow; ++row) {
      for (int column = firstColumn; column <= lastColumn; ++column) {
        char& cell = taken_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                            static_cast<std::size_t>(column)];
        const Vec away = centerOf(column, row) - at;
        if (cell != 0 || dot(away, away) > radius_ * radius_) continue;
        cell = 1;
        visit(away);
      }
    }
  }

 private:
  int columnOf(double x) const { return static_cast<int>((x - low_.x) / cell_); }
  int rowOf(double y) const { return static_cast<int>((y - low_.y) / cell_); }
  Vec centerOf(int column, int row) const { return low_ + cell_ * Vec{column + 0.5, row + 0.5}; }

  double radius_, cell_;
  Vec low_;
  int columns_ = 0, rows_ = 0;
  std::vector<char> taken_;
};

// By its place across the way.
std::size_t partOf(Vec away, Vec along, double radius) {
  const double aside = dot(away, leftOf(along)) / radius;
  return static_cast<std::size_t>(std::clamp((aside + 1) / 2 * kParts, 0.0, kParts - 1.0));
}

}  // namespace

CheckedEngagement largestEngagement(const std::vector<Curve>& path, double radius,
                                    const std::vector<bool>& judged) {
  // Half of the cells before a part of the rim, as the tool goes a step.
  constexpr double kHalf = 0.5 * kCellsPerRadius * kCellsPerRadius * 2 / kParts / kStepsPerRadius;
  StockRaster stock(path, radius);
  CheckedEngagement most;
  for (std::size_t k = 0; k < path.size(); ++k) {
    const Curve& curve = path[k];
    const double step = radius / kStepsPerRadius;
    const int steps = std::max(1, static_cast<int>(lengthOf(curve) / step));
    stock.take(curve.start, [](Vec) {});
    for (int place = 1; place <= steps; ++place) {
      const Vec at = pointOn(curve, static_cast<double>(place) / steps);
      const Vec before = pointOn(curve, (place - 0.5) / steps);
      const Vec ahead = at - before;
      const Vec along = (1 / std::max(lengthOf(ahead), 1e-12)) * ahead;
      std::array<int, kParts> cells{};
      stock.take(at, [&](Vec away) { ++cells[partOf(away, along, radius)]; });
      const auto engaged =
          std::count_if(cells.begin(), cells.end(), [](int count) { return count > kHalf; });
      const double share = static_cast<double>(engaged) / kParts;
      if (judged[k] && lengthOf(curve) >= step && share > most.share) most = {share, k, at};
    }
  }
  return most;
}

}  // namespace tess::testing
