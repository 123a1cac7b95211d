// Curves of a tool's way become rows of the path table.
// Owns: kPlacedSlack, RegionRows.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "core/cancellable_work.h"
#include "toolpath/pocket_region.h"

namespace tess {

// What coordinates of 32 bits may take from the distance to a wall.
inline constexpr double kPlacedSlack = 0.00003;

class RegionRows {
 public:
  // True for a curve that may be cut.
  using Test = std::function<bool(const Curve&)>;

  explicit RegionRows(Test isClear) : isClear_(std::move(isClear)) {}
  // Each curve must keep `distance` from the walls of `region`, but for kPlacedSlack.
  RegionRows(const PocketRegion& region, double distance, const Breathing& breathing = {})
      : RegionRows([&region, distance, breathing](const Curve& curve) {
          breathe(breathing);
          return region.isClear(curve, distance - kPlacedSlack);
        }) {}

  // In drawing units: what rounding moves farther is tested in its rounded form too.
  void setRoundingLimit(double most) { mostMoved_ = most; }

  // Curves one after the other. Pieces of one circle become one row, up to half a turn; what is too
  // short for the words of a program becomes a line, and what has no length nothing.
  void add(const std::vector<Curve>& curves);

  const std::vector<Entity>& rows() const { return rows_; }
  // A curve came too near to a wall and was left out.
  bool refused() const { return refused_; }

 private:
  void place(const Curve& curve);
  bool mayBePlaced(const Curve& curve, const Entity& row) const;

  Test isClear_;
  double mostMoved_ = 0.0001;
  std::vector<Entity> rows_;
  bool refused_ = false;
};

}  // namespace tess
