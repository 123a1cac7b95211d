// Stairs of ramps and helices.
#include "toolpath/entry_shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "toolpath/true_links.h"

namespace tess {
namespace {

// How a drop is cut into stairs of equal height: so many rounds (there and back, or once round), of
// so many stairs each; one more drop leads from the last of them to the bottom.
struct Division {
  double rounds = 1, stairs = 1;
  double count() const { return rounds * stairs; }
};

// `way` is the length of a round, `least` the fewest stairs that it has.
Division divided(double way, double least, const EntryDrop& drop) {
  constexpr double kSlack = 1e-6;  // a drop of just so many steps takes no more of them
  const double rounds = std::max(1.0, std::ceil(drop.depth() / (way * drop.slope) - kSlack));
  const double steps = std::ceil(drop.depth() / drop.step - kSlack) - 1;
  return {rounds, std::max(least, std::ceil(steps / rounds))};
}

// There and back are equal legs.
Division rampDivision(double length, const EntryDrop& drop) {
  Division legs = divided(2 * length, 2, drop);
  legs.stairs = 2 * std::ceil(legs.stairs / 2);
  return legs;
}

// The part of a way between two distances from its start.
std::vector<Curve> partAlong(const std::vector<Curve>& way, double from, double to) {
  std::vector<Curve> part;
  double passed = 0;
  for (const Curve& curve : way) {
    const double length = lengthOf(curve);
    const double first = std::max(0.0, (from - passed) / length);
    const double last = std::min(1.0, (to - passed) / length);
    if (first < last) part.push_back(partOf(curve, first, last));
    passed += length;
  }
  return part;
}

// Stair `number` of `count`, from 0.
double stairZ(const EntryDrop& drop, double number, double count) {
  return drop.top - drop.depth() * (number + 1) / (count + 1);
}

PlanePoint turned(PlanePoint at, PlanePoint center, double angle) {
  const PlanePoint from = at - center;
  return {center.x + from.x * std::cos(angle) - from.y * std::sin(angle),
          center.y + from.x * std::sin(angle) + from.y * std::cos(angle)};
}

}  // namespace

double rampRows(double length, const EntryDrop& drop) {
  return rampDivision(length, drop).count();
}

std::vector<EntryStair> rampStairs(const std::vector<Curve>& stretch, const EntryDrop& drop) {
  const Division division = rampDivision(lengthOfWay(stretch), drop);
  const auto count = static_cast<int>(division.count());
  const int perLeg = static_cast<int>(division.stairs) / 2;
  const double run = drop.depth() / (count + 1) / drop.slope;
  std::vector<EntryStair> stairs;
  for (int number = 0; number < count; ++number) {
    const int inLeg = number % perLeg;
    const bool isBack = number / perLeg % 2 == 1;
    const int from = isBack ? perLeg - inLeg - 1 : inLeg;
    std::vector<Curve> part = partAlong(stretch, from * run, (from + 1) * run);
    if (isBack) part = turnedRound(std::move(part));
    stairs.push_back({stairZ(drop, number, count), std::move(part)});
  }
  return stairs;
}

std::vector<Curve> helixCircle(PlanePoint start, PlanePoint center, int turn) {
  const PlanePoint across = center + (center - start);
  return {arcCurve(start, across, center, turn), arcCurve(across, start, center, turn)};
}

double helixRows(double radius, const EntryDrop& drop) {
  return divided(2 * std::numbers::pi * radius, 2, drop).count() + 2;
}

std::vector<EntryStair> helixStairs(PlanePoint start, PlanePoint center, int turn,
                                    const EntryDrop& drop) {
  const double round = 2 * std::numbers::pi;
  const Division division = divided(round * normOf(start - center), 2, drop);
  const auto perRound = static_cast<int>(division.stairs);
  const auto count = static_cast<int>(division.count());
  const auto placeOf = [&](int number) {
    const int part = number % perRound;
    return part == 0 ? start : turned(start, center, turn * round * part / perRound);
  };
  std::vector<EntryStair> stairs;
  for (int number = 0; number < count; ++number) {
    stairs.push_back({stairZ(drop, number, count),
                      {arcCurve(placeOf(number), placeOf(number + 1), center, turn)}});
  }
  stairs.push_back({drop.bottom, helixCircle(start, center, turn)});
  return stairs;
}

}  // namespace tess
