// Swept stretches of a level. What a line sweeps is convex; what an arc sweeps is the part of a
// ring beside it and a disc at either end.
#include "toolpath/swept_spans.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace tess {
namespace {

constexpr double kEverywhere = std::numeric_limits<double>::infinity();
constexpr Span kNothing{kEverywhere, -kEverywhere};

bool isEmpty(const Span& span) {
  return !(span.from < span.to);
}

Span common(const Span& a, const Span& b) {
  return {std::max(a.from, b.from), std::min(a.to, b.to)};
}

Span hull(const Span& a, const Span& b) {
  if (isEmpty(a)) return b;
  if (isEmpty(b)) return a;
  return {std::min(a.from, b.from), std::max(a.to, b.to)};
}

void append(const Span& span, std::vector<Span>& spans) {
  if (!isEmpty(span)) spans.push_back(span);
}

Span ofDisc(PlanePoint center, double radius, double y) {
  const double off = std::abs(y - center.y);
  if (off >= radius) return kNothing;
  const double half = std::sqrt((radius - off) * (radius + off));
  return {center.x - half, center.x + half};
}

// Where low <= at + slope * x <= high.
Span between(double at, double slope, double low, double high) {
  if (slope == 0) return at >= low && at <= high ? Span{-kEverywhere, kEverywhere} : kNothing;
  const double a = (low - at) / slope;
  const double b = (high - at) / slope;
  return {std::min(a, b), std::max(a, b)};
}

Span ofLine(const SweptCurve& swept, double y) {
  const Curve& line = swept.curve;
  const Span ends = hull(ofDisc(line.start, swept.radius, y), ofDisc(line.end, swept.radius, y));
  const PlanePoint along = line.end - line.start;
  const double length = normOf(along);
  if (length == 0) return ends;
  const PlanePoint u{along.x / length, along.y / length};
  const double up = y - line.start.y;
  Span beside = common(between(up * u.y, u.x, 0, length),
                       between(up * u.x, -u.y, -swept.radius, swept.radius));
  beside.from += line.start.x;
  beside.to += line.start.x;
  return hull(ends, beside);
}

// The places to the left of a direction, seen from the centre of an arc.
Span leftOfRay(PlanePoint direction, double up) {
  return between(direction.x * up, -direction.y, 0, kEverywhere);
}

// The places of the level that are beside an arc, seen from its centre. What turns by half a turn
// or hardly less or more has them on one side of its diameter.
Span besideArc(const Curve& arc, double up) {
  constexpr double kHalfTurnSlack = 1e-5;
  const PlanePoint from = arc.turn > 0 ? arc.start : arc.end;
  const PlanePoint to = arc.turn > 0 ? arc.end : arc.start;
  if (sweepOf(arc) > std::numbers::pi - kHalfTurnSlack) {
    const PlanePoint middle = pointAt(arc, 0.5) - arc.center;
    return leftOfRay({middle.y, -middle.x}, up);
  }
  return common(leftOfRay(from - arc.center, up), leftOfRay(arc.center - to, up));
}

void appendArc(const SweptCurve& swept, double y, std::vector<Span>& spans) {
  const Curve& arc = swept.curve;
  append(ofDisc(arc.start, swept.radius, y), spans);
  append(ofDisc(arc.end, swept.radius, y), spans);
  const Span outer = ofDisc({0, 0}, arc.radius + swept.radius, y - arc.center.y);
  if (isEmpty(outer)) return;
  const Span beside = common(outer, besideArc(arc, y - arc.center.y));
  const Span inner = ofDisc({0, 0}, arc.radius - swept.radius, y - arc.center.y);
  const auto appendPart = [&](const Span& part) {
    append({part.from + arc.center.x, part.to + arc.center.x}, spans);
  };
  if (isEmpty(inner)) {
    appendPart(beside);
  } else {
    appendPart(common(beside, {-kEverywhere, inner.from}));
    appendPart(common(beside, {inner.to, kEverywhere}));
  }
}

}  // namespace

void appendSwept(const SweptCurve& swept, double y, std::vector<Span>& spans) {
  if (swept.curve.isArc()) {
    appendArc(swept, y, spans);
  } else {
    append(ofLine(swept, y), spans);
  }
}

void unite(std::vector<Span>& spans) {
  std::sort(spans.begin(), spans.end(),
            [](const Span& a, const Span& b) { return a.from < b.from; });
  std::size_t kept = 0;
  for (const Span& span : spans) {
    if (kept > 0 && span.from <= spans[kept - 1].to) {
      spans[kept - 1].to = std::max(spans[kept - 1].to, span.to);
    } else {
      spans[kept++] = span;
    }
  }
  spans.resize(kept);
}

void rest(const std::vector<Span>& spans, const std::vector<Span>& taken, std::vector<Span>& left) {
  std::size_t next = 0;
  for (const Span& span : spans) {
    double from = span.from;
    while (next < taken.size() && taken[next].to <= from) ++next;
    for (std::size_t k = next; k < taken.size() && taken[k].from < span.to; ++k) {
      append({from, taken[k].from}, left);
      from = std::max(from, taken[k].to);
    }
    append({from, span.to}, left);
  }
}

SweepByLevel::SweepByLevel(std::vector<SweptCurve> curves) {
  ways_.reserve(curves.size());
  for (const SweptCurve& swept : curves) {
    const Box box = boxOf(swept.curve);
    ways_.push_back({swept, box.minY - swept.radius, box.maxY + swept.radius});
  }
  std::sort(ways_.begin(), ways_.end(), [](const Way& a, const Way& b) { return a.low < b.low; });
}

void SweepByLevel::spansAt(double y, std::vector<Span>& spans) {
  for (; next_ < ways_.size() && ways_[next_].low <= y; ++next_) active_.push_back(next_);
  std::erase_if(active_, [&](std::size_t way) { return ways_[way].high < y; });
  spans.clear();
  for (const std::size_t way : active_) appendSwept(ways_[way].swept, y, spans);
  unite(spans);
}

}  // namespace tess
