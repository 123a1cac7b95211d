// Steps of arcs, and what can be seen of them.
#include "shell/qt/stepped_arc.h"

#include <algorithm>
#include <cmath>

#include "geometry/float_constants.h"

namespace tess {

namespace {

constexpr double kFlatness = 0.1;    // in device pixels
constexpr int kMaxArcSteps = 20000;  // enough for any radius at the largest zoom

class Look {
 public:
  Look(const SteppedArc& arc, const QRectF& bounds) : arc_(arc), bounds_(bounds) {}

  void at(int from, int to) {
    constexpr int kFewSteps = 64;
    if (to - from <= kFewSteps) return walk(from, to);
    pointsMade += 2;
    if (!arc_.reach(from, to).intersects(bounds_)) {
      inRun_ = false;
      return;
    }
    const int middle = from + (to - from) / 2;
    at(from, middle);
    at(middle, to);
  }

  std::vector<QPolygonF> runs;
  int pointsMade = 0;

 private:
  void walk(int from, int to) {
    QPointF before = arc_.point(from);
    for (int step = from + 1; step <= to; ++step) {
      const QPointF point = arc_.point(step);
      const bool visible = clipped({before, point}, bounds_).has_value();
      if (visible && !inRun_) runs.emplace_back(QPolygonF{before});
      if (visible) runs.back() << point;
      inRun_ = visible;
      before = point;
    }
    pointsMade += to - from + 1;
  }

  const SteppedArc& arc_;
  const QRectF& bounds_;
  bool inRun_ = false;
};

}  // namespace

// By parameter along the segment.
std::optional<QLineF> clipped(const QLineF& segment, const QRectF& bounds) {
  if (holdsLine(bounds, segment)) return segment;
  double from = 0;
  double to = 1;
  const auto cut = [&](double rate, double room) {
    if (rate == 0) return room >= 0;
    const double at = room / rate;
    if (rate > 0) to = std::min(to, at);
    if (rate < 0) from = std::max(from, at);
    return from <= to;
  };
  const bool inside = cut(-segment.dx(), segment.x1() - bounds.left()) &&
                      cut(segment.dx(), bounds.right() - segment.x1()) &&
                      cut(-segment.dy(), segment.y1() - bounds.top()) &&
                      cut(segment.dy(), bounds.bottom() - segment.y1());
  if (!inside) return {};
  // An end that needs no cutting stays exactly where it is.
  return QLineF(from > 0 ? segment.pointAt(from) : segment.p1(),
                to < 1 ? segment.pointAt(to) : segment.p2());
}

SteppedArc::SteppedArc(QPointF center, QSizeF radii, double start, double sweep)
    : center_(center), radii_(radii), start_(start), sweep_(sweep) {
  const double step = 2 * std::acos(std::max(0.0, 1 - kFlatness / radius()));
  const double wanted = std::ceil(sweep / step);
  steps_ = wanted > 3 ? static_cast<int>(std::min<double>(wanted, kMaxArcSteps)) : 3;
}

double SteppedArc::radius() const {
  return std::max({radii_.width(), radii_.height(), kFlatness});
}

QPointF SteppedArc::point(int at) const {
  const double angle = start_ + sweep_ * at / steps_;
  return center_ + QPointF(radii_.width() * std::cos(angle), -radii_.height() * std::sin(angle));
}

QRectF SteppedArc::reach(int from, int to) const {
  const double angle = sweep_ * (to - from) / steps_;
  const double rise = angle < kPi ? radius() * (1 - std::cos(angle / 2)) : 2 * radius();
  const double slack = rise + 1;
  return QRectF(point(from), point(to)).normalized().adjusted(-slack, -slack, slack, slack);
}

QPolygonF allPoints(const SteppedArc& arc) {
  QPolygonF points;
  points.reserve(arc.steps() + 1);
  for (int at = 0; at <= arc.steps(); ++at) points << arc.point(at);
  return points;
}

std::vector<QPolygonF> visibleRuns(const SteppedArc& arc, const QRectF& bounds, int* pointsMade) {
  Look look(arc, bounds);
  look.at(0, arc.steps());
  if (pointsMade != nullptr) *pointsMade = look.pointsMade;
  return look.runs;
}

}  // namespace tess
