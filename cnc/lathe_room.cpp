// Where a lathe's tool moves freely.
#include "cnc/lathe_room.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/drawing_store.h"
#include "core/turning_tools.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

constexpr float kQuarterTurn = static_cast<float>(kPi / 2);

// The face of the stock as the drawing shows it.
float faceOf(const DrawingStore& store) {
  const int side = (store.xorigin > 0) - (store.xorigin < 0);
  return store.partdimx / 2 * static_cast<float>(1 + side);
}

bool isCut(const PathRow& row) {
  return row.type < kFirstNonContour && row.z != kLatheRapidZ;
}

// How near the axis a row comes that lies on this side of it.
float lowestOf(const PathRow& row, float side) {
  const float ends = std::min(side * row.y0, side * row.y1);
  if (!isArc(row.type)) return ends;
  const ArcAngles angles = arcRadiusAndAngles({row.x0, row.y0}, {row.x1, row.y1}, {row.xc, row.yc});
  const float toAxis = side > 0 ? 3 * kQuarterTurn : kQuarterTurn;
  const bool passes = angleInSweep(toAxis, angles.start, angles.end, row.type);
  return passes ? side * row.yc - angles.radius : ends;
}

}  // namespace

LatheRoom::LatheRoom(const DrawingStore& store, float clearance)
    : store_(store),
      clearance_(clearance),
      face_(faceOf(store)),
      top_(store.partdimy),
      height_(store.partdimy + clearance) {
  noteSide();
  noteBores();
}

// Some draw below the axis, for a tool that stands in front of it.
void LatheRoom::noteSide() {
  float lowest = 0;
  float highest = 0;
  for (int ps = 1; ps <= store_.NumPathSegments; ++ps) {
    lowest = std::min({lowest, store_.psy0[ps], store_.psy1[ps]});
    highest = std::max({highest, store_.psy0[ps], store_.psy1[ps]});
  }
  if (-lowest > highest) sign_ = -1;
}

void LatheRoom::noteBores() {
  for (int ps = 1; ps <= store_.NumPathSegments; ++ps) {
    const PathRow row = pathRow(store_, ps);
    if (!isCut(row) || !worksInside(store_, row.code)) continue;
    const float bore = std::max(0.0F, lowestOf(row, sign_) - clearance_);
    const auto [at, isNew] = bores_.try_emplace(groupCutOff(row.code), bore);
    if (!isNew) at->second = std::min(at->second, bore);
  }
}

Point LatheRoom::inBore(float x, const PathRow& row) const {
  const auto at = bores_.find(groupCutOff(row.code));
  return {x, at == bores_.end() ? 0 : sign_ * at->second};
}

bool LatheRoom::isFree(Point place) const {
  return place.x >= face_ - store_.cfg_tolerance || above(place) >= top_ - store_.cfg_tolerance;
}

// Of two places outside; the way goes through the bar where it passes the face below the top.
bool LatheRoom::crossesBar(Point from, Point to) const {
  const Point& before = from.x > to.x ? from : to;
  const Point& behind = from.x > to.x ? to : from;
  const float edge = face_ - store_.cfg_tolerance;
  if (behind.x >= edge) return false;
  const float top = top_ - store_.cfg_tolerance;
  if (before.x < edge) return above(before) < top || above(behind) < top;
  const float share = (edge - behind.x) / (before.x - behind.x);
  return above(behind) + share * (above(before) - above(behind)) < top;
}

std::vector<Point> LatheRoom::wayAround(Point from, Point to) const {
  if (!crossesBar(from, to)) return {to};
  const float height = sign_ * std::max({height_, above(from), above(to)});
  return {{from.x, height}, {to.x, height}, to};
}

std::vector<Point> LatheRoom::wayOut(Point from, const PathRow& row) const {
  if (isFree(from)) return {};
  if (worksInside(store_, row.code)) return {inBore(from.x, row), inBore(face_ + clearance_, row)};
  return {atHeight(from.x)};
}

LatheWay LatheRoom::wayIn(std::optional<Point> from, const PathRow& row) const {
  const Point start{row.x0, row.y0};
  const Point corner = atHeight(face_ + clearance_);
  LatheWay way;
  if (!from) way.rapids.push_back(corner);
  const auto go = [&way, this](Point at, Point to) {
    const std::vector<Point> around = wayAround(at, to);
    way.rapids.insert(way.rapids.end(), around.begin(), around.end());
  };
  way.feedsIn = !isFree(start);
  if (!way.feedsIn) {
    go(from.value_or(corner), start);
  } else if (worksInside(store_, row.code)) {
    go(from.value_or(corner), inBore(face_ + clearance_, row));
    way.rapids.push_back(inBore(start.x, row));
  } else {
    go(from.value_or(corner), atHeight(start.x));
  }
  return way;
}

}  // namespace tess
