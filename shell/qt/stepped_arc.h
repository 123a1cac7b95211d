// Arcs of a picture as straight steps, and lines as far as they can be seen.
// Owns: holdsLine, clipped, SteppedArc, allPoints, visibleRuns.
#pragma once

#include <QLineF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <optional>
#include <vector>

namespace tess {

// Whether no part of a segment lies outside a rectangle.
inline bool holdsLine(const QRectF& bounds, const QLineF& segment) {
  const auto holds = [&bounds](QPointF end) {
    return end.x() >= bounds.left() && end.x() <= bounds.right() && end.y() >= bounds.top() &&
           end.y() <= bounds.bottom();
  };
  return holds(segment.p1()) && holds(segment.p2());
}

// The part of a segment inside a rectangle; an end that needs no cutting stays exactly as it is.
std::optional<QLineF> clipped(const QLineF& segment, const QRectF& bounds);

// An arc in device pixels from the angle `start` on, counter-clockwise as it is seen, in steps so
// short that it looks round.
class SteppedArc {
 public:
  SteppedArc(QPointF center, QSizeF radii, double start, double sweep);

  int steps() const { return steps_; }
  QPointF point(int at) const;  // 0 to steps()
  // The box of what lies between two points, or a larger one.
  QRectF reach(int from, int to) const;

 private:
  double radius() const;

  QPointF center_;
  QSizeF radii_;
  double start_, sweep_;
  int steps_ = 0;
};

QPolygonF allPoints(const SteppedArc& arc);

// The stretches of an arc whose steps touch the rectangle. What lies outside is left out by halves:
// of a large arc only what is near the rectangle costs anything. `pointsMade`, if given, tells how
// many points were worked out on the way.
std::vector<QPolygonF> visibleRuns(const SteppedArc& arc, const QRectF& bounds,
                                   int* pointsMade = nullptr);

}  // namespace tess
