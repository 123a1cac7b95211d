// Places and measures of lines and arcs.
#include "geometry/curve.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tess {
namespace {

constexpr double kHalfTurn = std::numbers::pi;
constexpr double kFullTurn = 2 * std::numbers::pi;
// An arc of a row may turn by so much more than half a turn and stay one, in radians: the ends of
// half circles are rounded to 32 bits.
constexpr double kHalfTurnSlack = 1e-6;
// What is shorter is no row of an outline.
constexpr double kMinLength = 1e-12;
// Below this sweep a series tells what an arc adds to its chord; the difference has lost digits.
constexpr double kShortSweep = 0.1;

PlanePoint middleOf(PlanePoint a, PlanePoint b) {
  return 0.5 * (a + b);
}

PlanePoint turnedBy(PlanePoint direction, double angle) {
  return std::cos(angle) * direction + std::sin(angle) * leftOf(direction);
}

PlanePoint startDirection(const Curve& arc) {
  return (arc.turn / arc.radius) * leftOf(arc.start - arc.center);
}

// By the chord from the start and not by the centre, which may be far away.
PlanePoint pointAfter(const Curve& arc, double angle) {
  const double chord = 2 * arc.radius * std::sin(angle / 2);
  return arc.start + chord * turnedBy(startDirection(arc), arc.turn * angle / 2);
}

// The angle from the start to the direction of a point, in the arc's sense, from 0 to a full turn.
double angleTo(const Curve& arc, PlanePoint at) {
  const PlanePoint from = arc.start - arc.center;
  const PlanePoint to = at - arc.center;
  const double angle = std::atan2(arc.turn * cross(from, to), dot(from, to));
  return angle < 0 ? angle + kFullTurn : angle;
}

double shareAlong(const Curve& line, PlanePoint at) {
  const PlanePoint along = line.end - line.start;
  const double square = dot(along, along);
  return square == 0 ? 0 : dot(at - line.start, along) / square;
}

// The angle less its sine.
double lessSine(double angle) {
  if (angle > kShortSweep) return angle - std::sin(angle);
  const double square = angle * angle;
  return angle * square / 6 * (1 - square / 20 * (1 - square / 42 * (1 - square / 72)));
}

// Between the curve and its chord, positive to the right of the chord.
double areaBeyondChord(const Curve& curve) {
  if (!curve.isArc()) return 0;
  return curve.turn * curve.radius * curve.radius * lessSine(sweepOf(curve)) / 2;
}

void addWithin(Shares& shares, double share) {
  if (share >= 0 && share <= 1) shares.add(share);
}

// Of a point that lies on the arc's circle.
void addOnArc(Shares& shares, const Curve& arc, PlanePoint at) {
  addWithin(shares, angleTo(arc, at) / sweepOf(arc));
}

Shares lineOnLine(const Curve& line, PlanePoint through, PlanePoint direction) {
  Shares shares;
  const double across = cross(line.end - line.start, direction);
  if (across != 0) addWithin(shares, cross(through - line.start, direction) / across);
  return shares;
}

// The half of the chord that a circle cuts from a line at this distance from its centre; no number
// for none.
double halfChord(double radius, double distance) {
  return std::sqrt((radius - distance) * (radius + distance));
}

Shares lineOnCircle(const Curve& line, PlanePoint center, double radius) {
  Shares shares;
  const PlanePoint along = line.end - line.start;
  const double length = normOf(along);
  if (length == 0) return shares;
  const PlanePoint direction = (1 / length) * along;
  const double half = halfChord(radius, std::abs(cross(direction, center - line.start)));
  const double foot = dot(direction, center - line.start);
  if (!(half >= 0)) return shares;
  addWithin(shares, (foot - half) / length);
  if (half > 0) addWithin(shares, (foot + half) / length);
  return shares;
}

// Both places where the arc's circle is cut by the line through `foot`, which is its nearest point
// to the centre.
Shares arcOnChord(const Curve& arc, PlanePoint foot, PlanePoint direction) {
  Shares shares;
  const double half = halfChord(arc.radius, normOf(foot - arc.center));
  if (!(half >= 0)) return shares;
  addOnArc(shares, arc, foot - half * direction);
  if (half > 0) addOnArc(shares, arc, foot + half * direction);
  return shares;
}

Shares arcOnCircle(const Curve& arc, PlanePoint center, double radius) {
  const PlanePoint between = center - arc.center;
  const double apart = normOf(between);
  if (apart == 0) return {};
  const double toChord = (apart + (arc.radius - radius) * (arc.radius + radius) / apart) / 2;
  const PlanePoint direction = (1 / apart) * between;
  return arcOnChord(arc, arc.center + toChord * direction, leftOf(direction));
}

PlanePoint placeOf(Point p) {
  return {p.x, p.y};
}

void appendLine(PlanePoint start, PlanePoint end, std::vector<Curve>& curves) {
  if (normOf(end - start) >= kMinLength) curves.push_back(lineCurve(start, end));
}

void appendRectangle(const Entity& row, std::vector<Curve>& curves) {
  const PlanePoint a = placeOf(row.start);
  const PlanePoint c = placeOf(row.end);
  const PlanePoint b{c.x, a.y};
  const PlanePoint d{a.x, c.y};
  appendLine(a, b, curves);
  appendLine(b, c, curves);
  appendLine(c, d, curves);
  appendLine(d, a, curves);
}

void appendWholeCircle(PlanePoint start, PlanePoint center, int turn, std::vector<Curve>& curves) {
  const double radius = normOf(start - center);
  if (radius < kMinLength) return;
  const PlanePoint opposite = center - (start - center);
  curves.push_back({start, opposite, center, radius, turn});
  curves.push_back({opposite, start, center, radius, turn});
}

// The middle of a long arc is found before its ends are made to fit: their short chord says little
// about where its centre lies.
void appendArc(const Entity& row, int turn, std::vector<Curve>& curves) {
  const PlanePoint start = placeOf(row.start);
  const PlanePoint end = placeOf(row.end);
  const PlanePoint center = placeOf(row.center);
  if (normOf(start - center) < kMinLength || normOf(end - center) < kMinLength) return;
  const double angle = angleTo({start, end, center, 0, turn}, end);
  if (angle <= kHalfTurn + kHalfTurnSlack) {
    curves.push_back(arcCurve(start, end, center, turn));
    return;
  }
  const double radius = (normOf(start - center) + normOf(end - center)) / 2;
  const PlanePoint middle = center + radius * turnedBy(unitOf(start - center), turn * angle / 2);
  curves.push_back(arcCurve(start, middle, center, turn));
  curves.push_back(arcCurve(middle, end, center, turn));
}

}  // namespace

Curve lineCurve(PlanePoint start, PlanePoint end) {
  return {.start = start, .end = end};
}

Curve arcCurve(PlanePoint start, PlanePoint end, PlanePoint center, int turn) {
  const PlanePoint even = evenCenter(start, end, center);
  return {start, end, even, normOf(start - even), turn};
}

PlanePoint evenCenter(PlanePoint start, PlanePoint end, PlanePoint center) {
  const PlanePoint middle = middleOf(start, end);
  const PlanePoint across = unitOf(leftOf(end - start));
  return middle + dot(center - middle, across) * across;
}

Curve reversed(const Curve& curve) {
  return {curve.end, curve.start, curve.center, curve.radius, -curve.turn};
}

double sweepOf(const Curve& curve) {
  if (!curve.isArc()) return 0;
  // Half of the chord against the centre's distance from it, both multiplied by the chord.
  const PlanePoint chord = curve.end - curve.start;
  const PlanePoint toCenter = curve.center - middleOf(curve.start, curve.end);
  return 2 * std::atan2(dot(chord, chord) / 2, curve.turn * cross(chord, toCenter));
}

double lengthOf(const Curve& curve) {
  return curve.isArc() ? curve.radius * sweepOf(curve) : normOf(curve.end - curve.start);
}

PlanePoint pointAt(const Curve& curve, double share) {
  if (share <= 0) return curve.start;
  if (share >= 1) return curve.end;
  if (!curve.isArc()) return curve.start + share * (curve.end - curve.start);
  return pointAfter(curve, share * sweepOf(curve));
}

PlanePoint directionAt(const Curve& curve, double share) {
  if (!curve.isArc()) return unitOf(curve.end - curve.start);
  const double angle = std::clamp(share, 0.0, 1.0) * sweepOf(curve);
  return turnedBy(startDirection(curve), curve.turn * angle);
}

double shareOf(const Curve& curve, PlanePoint on) {
  if (!curve.isArc()) return std::clamp(shareAlong(curve, on), 0.0, 1.0);
  const double sweep = sweepOf(curve);
  const double angle = angleTo(curve, on);
  // What rounding puts in front of the start is nearer to a full turn than to the end.
  if (angle > (sweep + kFullTurn) / 2) return 0;
  return std::min(angle / sweep, 1.0);
}

bool isBeside(const Curve& curve, PlanePoint at) {
  if (!curve.isArc()) {
    const double share = shareAlong(curve, at);
    return share >= 0 && share <= 1;
  }
  const PlanePoint from = curve.start - curve.center;
  const PlanePoint to = curve.end - curve.center;
  const PlanePoint toward = at - curve.center;
  const bool behindStart = curve.turn * cross(from, toward) >= 0;
  const bool beforeEnd = curve.turn * cross(toward, to) >= 0;
  if (behindStart == beforeEnd) return behindStart;
  return curve.turn * cross(from, to) < 0;  // one of the two suffices beyond half a turn
}

Curve partOf(const Curve& curve, double from, double to) {
  return {pointAt(curve, from), pointAt(curve, to), curve.center, curve.radius, curve.turn};
}

Box boxOf(const Curve& curve) {
  PlanePoint low{std::min(curve.start.x, curve.end.x), std::min(curve.start.y, curve.end.y)};
  PlanePoint high{std::max(curve.start.x, curve.end.x), std::max(curve.start.y, curve.end.y)};
  if (curve.isArc()) {
    const PlanePoint c = curve.center;
    const double r = curve.radius;
    if (isBeside(curve, {c.x - r, c.y})) low.x = std::min(low.x, c.x - r);
    if (isBeside(curve, {c.x, c.y - r})) low.y = std::min(low.y, c.y - r);
    if (isBeside(curve, {c.x + r, c.y})) high.x = std::max(high.x, c.x + r);
    if (isBeside(curve, {c.x, c.y + r})) high.y = std::max(high.y, c.y + r);
  }
  return boxAround(low, high);
}

// Triangles with one point of the loop, so that the distance from the origin costs no digits.
double areaOf(std::span<const Curve> loop) {
  double area = 0;
  for (const Curve& curve : loop) {
    const PlanePoint origin = loop.front().start;
    area += cross(curve.start - origin, curve.end - origin) / 2 + areaBeyondChord(curve);
  }
  return area;
}

Shares sharesOnLine(const Curve& curve, PlanePoint through, PlanePoint direction) {
  if (!curve.isArc()) return lineOnLine(curve, through, direction);
  const PlanePoint along = unitOf(direction);
  if (along == PlanePoint{}) return {};
  const PlanePoint foot = through + dot(along, curve.center - through) * along;
  return arcOnChord(curve, foot, along);
}

Shares sharesOnCircle(const Curve& curve, PlanePoint center, double radius) {
  return curve.isArc() ? arcOnCircle(curve, center, radius) : lineOnCircle(curve, center, radius);
}

void appendCurves(const Entity& row, std::vector<Curve>& curves) {
  if (row.type == kLine) appendLine(placeOf(row.start), placeOf(row.end), curves);
  if (row.type == kRectangle) appendRectangle(row, curves);
  if (!isRound(row.type)) return;
  const int turn = row.type == kClockwiseArc ? -1 : 1;
  if (row.type == kCircle || row.start == row.end) {
    appendWholeCircle(placeOf(row.start), placeOf(row.center), turn, curves);
  } else {
    appendArc(row, turn, curves);
  }
}

}  // namespace tess
