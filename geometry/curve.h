// Lines and arcs in 64 bits, for outlines and tool paths that are reckoned with exactly.
//
// An arc turns by half a turn at most, or what rounding adds to it; what turns farther is several
// curves. Its centre is as far from its start as from its end. Shares run along a curve from 0 at
// its start to 1 at its end; what is asked at a share below or above gets the end.
// Owns: Curve, lineCurve, arcCurve, evenCenter, reversed, sweepOf, lengthOf, pointAt, directionAt,
//       shareOf, isBeside, partOf, boxOf, areaOf, Shares, sharesOnLine, sharesOnCircle,
//       appendCurves.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "geometry/box_index.h"
#include "geometry/entity.h"
#include "geometry/plane.h"

namespace tess {

struct Curve {
  PlanePoint start, end;
  PlanePoint center{};  // this and the radius of an arc only
  double radius = 0;
  int turn = 0;  // 0 a line, 1 an arc counter-clockwise, -1 one clockwise

  bool isArc() const { return turn != 0; }
  friend bool operator==(const Curve&, const Curve&) = default;
};

Curve lineCurve(PlanePoint start, PlanePoint end);

// The ends stay, and the centre goes to evenCenter: files round it, and so do the tables.
Curve arcCurve(PlanePoint start, PlanePoint end, PlanePoint center, int turn);

// The nearest place to `center` that is as far from both ends, which differ.
PlanePoint evenCenter(PlanePoint start, PlanePoint end, PlanePoint center);

Curve reversed(const Curve& curve);

// How far an arc turns, in radians, always positive; 0 for a line.
double sweepOf(const Curve& curve);
double lengthOf(const Curve& curve);

PlanePoint pointAt(const Curve& curve, double share);
// Of length 1; (0, 0) for a line without length.
PlanePoint directionAt(const Curve& curve, double share);
// Of a point that lies on the curve.
double shareOf(const Curve& curve, PlanePoint on);

// True when the nearest point of the whole line or circle lies on the curve itself.
bool isBeside(const Curve& curve, PlanePoint at);

// From one share to a later one.
Curve partOf(const Curve& curve, double from, double to);

// Rounded outward, so that nothing of the curve lies beyond it.
Box boxOf(const Curve& curve);

// Inside a closed loop, positive when it runs counter-clockwise.
double areaOf(std::span<const Curve> loop);

// The shares of a curve at which something happens, two at most.
class Shares {
 public:
  void add(double share) { values_[count_++] = share; }
  int count() const { return static_cast<int>(count_); }
  const double* begin() const { return values_.data(); }
  const double* end() const { return values_.data() + count_; }

 private:
  std::array<double, 2> values_{};
  std::size_t count_ = 0;
};

// Where the curve meets the whole line through a point, or a whole circle. A curve that lies along
// the line or circle does not meet it.
Shares sharesOnLine(const Curve& curve, PlanePoint through, PlanePoint direction);
Shares sharesOnCircle(const Curve& curve, PlanePoint center, double radius);

// Appends a row of the tables: a rectangle as four lines, a circle or an arc with equal ends as two
// half circles, a longer arc than half a turn as two arcs. What has no length gives nothing, and so
// do other kinds of rows.
void appendCurves(const Entity& row, std::vector<Curve>& curves);

}  // namespace tess
