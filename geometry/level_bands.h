// Closed loops of curves by height: where a level crosses them, without looking at all of them.
//
// A curve crosses a level when one of its ends lies above it and the other does not, so that closed
// loops are crossed an even number of times at every level, through corners too.
// Owns: LevelCrossing, LevelBands.
#pragma once

#include <span>
#include <vector>

#include "geometry/curve.h"

namespace tess {

struct LevelCrossing {
  double x = 0;
  int curve = 0;  // from 0
};

class LevelBands {
 public:
  explicit LevelBands(std::span<const Curve> curves = {});

  // All crossings lie between these.
  double lowest() const { return lowY_; }
  double highest() const { return highY_; }

  // Of the level `y`, in no order. Replaces the contents of `found`.
  void crossingsAt(double y, std::vector<LevelCrossing>& found) const;

  // The curves that the level through `at` crosses to the left of it, one as often as it is
  // crossed. Replaces the contents of `curves`.
  void crossedLeftOf(PlanePoint at, std::vector<int>& curves) const;

 private:
  // A part of a curve that only rises or only falls.
  struct Part {
    double lowY, highY;
    double lowX, highX;  // at these heights
    double minX, maxX;
    PlanePoint center;  // of an arc
    double radius = 0;  // 0 for a line
    int side = 0;       // 1 the right half of the circle, -1 the left one
    int curve = 0;
    bool crosses(double y) const { return lowY <= y && y < highY; }
    double xAt(double y) const;
  };

  void addParts(const Curve& curve, int number);
  void addPart(const Curve& curve, int number, PlanePoint from, PlanePoint to);
  void build();
  int bandOf(double y) const;
  std::span<const int> partsAt(double y) const;

  std::vector<Part> parts_;
  double lowY_ = 0, highY_ = 0, bandsPerUnit_ = 0;
  int bands_ = 0;
  std::vector<int> bandStart_;  // where each band's parts begin in bandParts_
  std::vector<int> bandParts_;
};

}  // namespace tess
