// Pockets from a few dice: a contour of corners and bulges, then rows.
#include "tests/support/pockets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "tests/geometry/scenes.h"

namespace tess::testing {
namespace {

// A corner, and the side from it to the next: 0 a line, else the tangent of a quarter of the arc's
// sweep, positive counter-clockwise.
struct Corner {
  Vec at;
  double bulge = 0;
};
// Counter-clockwise.
using Contour = std::vector<Corner>;

double between(Dice& dice, double low, double high) {
  return low + (high - low) * (dice.unit() + 1) / 2;
}

double onFiveDecimals(double value) {
  return std::round(value * 1e5) / 1e5;
}

Vec onFiveDecimals(Vec p) {
  return {onFiveDecimals(p.x), onFiveDecimals(p.y)};
}

Contour straight(const std::vector<Vec>& corners) {
  Contour contour;
  for (const Vec at : corners) contour.push_back({at});
  return contour;
}

// ---- The shapes

struct ShapeMaker {
  Dice& dice;
  double radius;    // of the tool
  double neck = 0;  // told by shapes that have one

  double length() { return between(dice, 5, 22) * radius; }
  double width() { return between(dice, 2.3, 7) * radius; }

  Contour rectangle() {
    const double w = length();
    const double h = length();
    return straight({{0, 0}, {w, 0}, {w, h}, {0, h}});
  }

  Contour triangle() {
    const double w = length();
    return straight({{0, 0}, {w, 0}, {between(dice, -0.3, 1.3) * w, between(dice, 0.5, 1.2) * w}});
  }

  // Corners on an ellipse.
  Contour convex() {
    const int count = 3 + dice.below(6);
    const double a = length() / 1.5;
    const double b = length() / 1.5;
    Contour contour;
    for (int k = 0; k < count; ++k) {
      const double angle = (k + 0.35 * dice.unit()) * kFullTurn / count;
      contour.push_back({{a * std::cos(angle), b * std::sin(angle)}});
    }
    return contour;
  }

  Contour angle() {
    const double w = length();
    const double h = length();
    const double x = std::min(width(), 0.7 * w);
    const double y = std::min(width(), 0.7 * h);
    return straight({{0, 0}, {w, 0}, {w, y}, {x, y}, {x, h}, {0, h}});
  }

  Contour channel() {
    const double left = width();
    const double gap = width();
    const double right = left + gap + width();
    const double floor = width();
    const double top = floor + length();
    const double other = floor + length();
    return straight({{0, 0},
                     {right, 0},
                     {right, other},
                     {left + gap, other},
                     {left + gap, floor},
                     {left, floor},
                     {left, top},
                     {0, top}});
  }

  Contour cross() {
    const double arm = width();
    const double a = arm + width();
    const double b = arm + width();
    const double h = arm / 2;
    return straight({{-h, -b},
                     {h, -b},
                     {h, -h},
                     {a, -h},
                     {a, h},
                     {h, h},
                     {h, b},
                     {-h, b},
                     {-h, h},
                     {-a, h},
                     {-a, -h},
                     {-h, -h}});
  }

  Contour star() {
    const int points = 4 + dice.below(4);
    const double far = length() / 1.4;
    const double near = between(dice, 0.4, 0.75) * far;
    Contour contour;
    for (int k = 0; k < 2 * points; ++k) {
      const double reach = k % 2 == 0 ? far : near;
      contour.push_back({onCircle({0, 0}, reach, k * kFullTurn / (2 * points))});
    }
    return contour;
  }

  Contour comb() {
    const int teeth = 2 + dice.below(3);
    const double tooth = width();
    const double gap = width();
    const double floor = width();
    const double top = floor + width();
    Contour contour{{{0, 0}}, {{teeth * (tooth + gap) - gap, 0}}};
    for (int k = teeth - 1; k >= 0; --k) {
      const double left = k * (tooth + gap);
      contour.push_back({{left + tooth, top}});
      contour.push_back({{left, top}});
      if (k == 0) break;
      contour.push_back({{left, floor}});
      contour.push_back({{left - gap, floor}});
    }
    return contour;
  }

  Contour slot() {
    const double w = length();
    const double h = width();
    return {{{0, 0}, 0}, {{w, 0}, 1}, {{w, h}, 0}, {{0, h}, 1}};
  }

  // Three arcs: two halves of one sense would count as copies of each other.
  Contour round() {
    const double r = length() / 2;
    const double first = between(dice, 0.15, 0.6) * kFullTurn;
    const double second = between(dice, 0.3, 0.7) * (kFullTurn - first);
    return {{onCircle({0, 0}, r, 0), std::tan(first / 4)},
            {onCircle({0, 0}, r, first), std::tan(second / 4)},
            {onCircle({0, 0}, r, first + second), std::tan((kFullTurn - first - second) / 4)}};
  }

  Contour halfRound() {
    const double w = length();
    const double bulge = between(dice, 0.5, 1.6);
    const double other = dice.below(2) == 0 ? 0 : between(dice, 0.1, 0.9) * bulge;
    return {{{0, 0}, other}, {{w, 0}, bulge}};
  }

  Contour dumbbell() {
    constexpr double kNecks[] = {1.5, 1.7, 1.9, 2.1, 2.6, 4};
    neck = kNecks[dice.below(6)] * radius;
    const double room = neck + between(dice, 3, 8) * radius;
    const double other = neck + between(dice, 3, 8) * radius;
    const double run = width();
    const double low = (room - neck) * between(dice, 0.2, 0.8);
    const double otherLow = low - (other - neck) * between(dice, 0.2, 0.8);
    const double right = room + run + other;
    return straight({{0, 0},
                     {room, 0},
                     {room, low},
                     {room + run, low},
                     {room + run, otherLow},
                     {right, otherLow},
                     {right, otherLow + other},
                     {room + run, otherLow + other},
                     {room + run, low + neck},
                     {room, low + neck},
                     {room, room},
                     {0, room}});
  }

  Contour anyWithCorners() {
    switch (dice.below(3)) {
      case 0:
        return rectangle();
      case 1:
        return angle();
      default:
        return channel();
    }
  }

  Contour chamfered();
  Contour filleted();
  Contour bulged();
};

// Where a corner is cut: `cut` away from it along both of its sides.
struct CornerCut {
  Vec before, after;
  double turn;  // from one side to the next, counter-clockwise positive
};

CornerCut cutCorner(const Contour& contour, std::size_t k, double cut) {
  const std::size_t count = contour.size();
  const Vec at = contour[k].at;
  const Vec in = at - contour[(k + count - 1) % count].at;
  const Vec out = contour[(k + 1) % count].at - at;
  const double most = 0.45 * std::min(lengthOf(in), lengthOf(out));
  const double reach = std::min(cut, most);
  return {at - (reach / lengthOf(in)) * in, at + (reach / lengthOf(out)) * out,
          std::atan2(cross(in, out), dot(in, out))};
}

Contour ShapeMaker::chamfered() {
  const Contour corners = anyWithCorners();
  Contour contour;
  for (std::size_t k = 0; k < corners.size(); ++k) {
    if (dice.below(4) == 0) {
      contour.push_back(corners[k]);
      continue;
    }
    const CornerCut cut = cutCorner(corners, k, between(dice, 0.2, 2.5) * radius);
    contour.push_back({cut.before});
    contour.push_back({cut.after});
  }
  return contour;
}

Contour ShapeMaker::filleted() {
  const Contour corners = anyWithCorners();
  Contour contour;
  for (std::size_t k = 0; k < corners.size(); ++k) {
    const double sharp = cutCorner(corners, k, 1).turn;
    const double fillet = between(dice, 0.4, 3) * radius;
    const CornerCut cut = cutCorner(corners, k, fillet * std::tan(std::abs(sharp) / 2));
    contour.push_back({cut.before, std::tan(cut.turn / 4)});
    contour.push_back({cut.after});
  }
  return contour;
}

Contour ShapeMaker::bulged() {
  Contour contour = convex();
  for (Corner& corner : contour) {
    if (dice.below(4) != 0) corner.bulge = 0.35 * dice.unit();
  }
  return contour;
}

using MakeContour = Contour (ShapeMaker::*)();

constexpr struct {
  const char* name;
  MakeContour make;
  bool takesIslands;
} kShapes[kPocketShapes] = {
    {"rectangle", &ShapeMaker::rectangle, true},
    {"triangle", &ShapeMaker::triangle, false},
    {"convex", &ShapeMaker::convex, true},
    {"angle", &ShapeMaker::angle, true},
    {"channel", &ShapeMaker::channel, false},
    {"cross", &ShapeMaker::cross, true},
    {"star", &ShapeMaker::star, true},
    {"comb", &ShapeMaker::comb, false},
    {"slot", &ShapeMaker::slot, true},
    {"round", &ShapeMaker::round, true},
    {"half round", &ShapeMaker::halfRound, true},
    {"chamfered", &ShapeMaker::chamfered, true},
    {"filleted", &ShapeMaker::filleted, true},
    {"bulged", &ShapeMaker::bulged, true},
    {"dumbbell", &ShapeMaker::dumbbell, false},
};

// ---- From contours to rows

Contour placed(const Contour& contour, Vec shift, double turn) {
  Contour moved;
  for (const Corner& corner : contour) {
    const double x = corner.at.x * std::cos(turn) - corner.at.y * std::sin(turn);
    const double y = corner.at.x * std::sin(turn) + corner.at.y * std::cos(turn);
    moved.push_back({onFiveDecimals(Vec{x, y} + shift), corner.bulge});
  }
  return moved;
}

SegmentRow rowBetween(const Corner& from, Vec to) {
  SegmentRow row{.type = kLine,
                 .x0 = static_cast<float>(from.at.x),
                 .y0 = static_cast<float>(from.at.y),
                 .x1 = static_cast<float>(to.x),
                 .y1 = static_cast<float>(to.y)};
  if (from.bulge == 0) return row;
  // The sagitta is the bulge times half the chord; from it the centre's way off the chord.
  const Vec chord = to - from.at;
  const double off = (1 / from.bulge - from.bulge) / 4;
  const Vec center = onFiveDecimals(from.at + 0.5 * chord + off * leftOf(chord));
  row.type = from.bulge > 0 ? kCounterClockwiseArc : kClockwiseArc;
  row.xc = static_cast<float>(center.x);
  row.yc = static_cast<float>(center.y);
  return row;
}

std::vector<SegmentRow> rowsOf(const Contour& contour) {
  std::vector<SegmentRow> rows;
  for (std::size_t k = 0; k < contour.size(); ++k) {
    rows.push_back(rowBetween(contour[k], contour[(k + 1) % contour.size()].at));
  }
  return rows;
}

std::vector<SegmentRow> circleRows(Vec center, double radius) {
  const Vec at = onFiveDecimals(center);
  const float x = static_cast<float>(onFiveDecimals(at.x + radius));
  const float y = static_cast<float>(at.y);
  return {{.type = kCircle,
           .x0 = x,
           .y0 = y,
           .x1 = x,
           .y1 = y,
           .xc = static_cast<float>(at.x),
           .yc = y}};
}

// Half of the round pockets are one circle.
std::vector<SegmentRow> outlineRows(ShapeMaker& maker, PocketShape shape) {
  Dice& dice = maker.dice;
  const Vec shift{3 * dice.unit(), 3 * dice.unit()};
  if (shape == PocketShape::Round && dice.below(2) == 0) {
    return circleRows(shift, maker.length() / 2);
  }
  const double turn = dice.below(2) == 0 ? 0 : kFullTurn * dice.unit();
  const Contour contour = (maker.*kShapes[static_cast<int>(shape)].make)();
  return rowsOf(placed(contour, shift, turn));
}

void turnRound(SegmentRow& row) {
  std::swap(row.x0, row.x1);
  std::swap(row.y0, row.y1);
  if (isArc(row.type)) row.type = kClockwiseArc + kCounterClockwiseArc - row.type;
}

// As somebody may have drawn them.
std::vector<SegmentRow> drawn(std::vector<SegmentRow> rows, Dice& dice) {
  const auto count = static_cast<int>(rows.size());
  std::rotate(rows.begin(), rows.begin() + dice.below(count), rows.end());
  if (dice.below(2) == 0) return rows;
  for (int k = count - 1; k > 0; --k)
    std::swap(rows[static_cast<std::size_t>(k)], rows[static_cast<std::size_t>(dice.below(k + 1))]);
  for (SegmentRow& row : rows) {
    if (dice.below(4) == 0) turnRound(row);
  }
  return rows;
}

// ---- What is a good pocket

// Sides that do not meet stay apart, and sides that meet open at a real angle.
bool isSimple(const Loop& loop, double apart) {
  const std::size_t count = loop.size();
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i + 1; j < count; ++j) {
      const bool meet = j == i + 1 || (i == 0 && j == count - 1);
      const bool fine = meet ? distanceBetween(loop[j], pointOn(loop[i], 0.5)) > 0.1 * apart &&
                                   distanceBetween(loop[i], pointOn(loop[j], 0.5)) > 0.1 * apart
                             : distanceBetween(loop[i], loop[j]) > apart;
      if (!fine) return false;
    }
  }
  return true;
}

// Large arcs inward may turn a contour inside out.
bool isCounterClockwise(const Loop& loop) {
  const Vec before = pointOn(loop[0], 0.499);
  const Vec after = pointOn(loop[0], 0.501);
  const Vec left = (0.001 / lengthOf(after - before)) * leftOf(after - before);
  return windingNumber(loop, pointOn(loop[0], 0.5) + left) == 1;
}

double leastDistance(const Loop& a, const Loop& b) {
  double least = std::numeric_limits<double>::infinity();
  for (const Curve& wall : a) {
    for (const Curve& other : b) least = std::min(least, distanceBetween(wall, other));
  }
  return least;
}

// From the pocket's wall and the islands that are there already; 0 for one that lies wrong.
double gapAround(const PartShape& part, const Loop& island) {
  if (!isAllowed(part, island.front().start)) return 0;
  double gap = leastDistance(part.pocket, island);
  for (const Loop& other : part.islands) {
    if (encloses(island, other.front().start)) return 0;
    gap = std::min(gap, leastDistance(other, island));
  }
  return gap;
}

std::vector<SegmentRow> islandRows(Dice& dice, double radius, Vec center) {
  ShapeMaker maker{dice, radius};
  if (dice.below(3) == 0) return circleRows(center, between(dice, 0.5, 3) * radius);
  constexpr MakeContour kKinds[] = {&ShapeMaker::rectangle, &ShapeMaker::convex,
                                    &ShapeMaker::filleted, &ShapeMaker::halfRound};
  Contour contour = (maker.*kKinds[dice.below(4)])();
  const double scale = between(dice, 0.15, 0.45);
  for (Corner& corner : contour) corner.at = scale * corner.at;
  return rowsOf(placed(contour, center, kFullTurn * dice.unit()));
}

// One in four is closer to something than the tool is wide.
void addIsland(TestPocket& pocket, Dice& dice) {
  constexpr int kTries = 200;
  const double wanted = (dice.below(4) == 0 ? 0.6 : 2.2) * pocket.toolRadius;
  for (int attempt = 0; attempt < kTries; ++attempt) {
    const Curve& wall = pocket.part.pocket[static_cast<std::size_t>(
        dice.below(static_cast<int>(pocket.part.pocket.size())))];
    const Vec reach{20.0 * pocket.toolRadius * dice.unit(), 20.0 * pocket.toolRadius * dice.unit()};
    const auto rows = islandRows(dice, pocket.toolRadius, wall.start + reach);
    const Loop island = partOf(rows).pocket;
    const double gap = gapAround(pocket.part, island);
    if (gap < wanted || !isSimple(island, 0.02) || !isCounterClockwise(island)) continue;
    pocket.islandGap = pocket.islands.empty() ? gap : std::min(pocket.islandGap, gap);
    pocket.part.islands.push_back(island);
    pocket.islands.push_back(drawn(rows, dice));
    return;
  }
}

}  // namespace

TestPocket pocketOf(int number) {
  Dice dice(static_cast<std::uint32_t>(number) * 2654435761U + 97U);
  const auto& shape = kShapes[number % kPocketShapes];
  constexpr float kToolRadii[] = {0.125F, 0.25F, 0.375F};
  TestPocket pocket;
  pocket.name = std::string(shape.name) + " " + std::to_string(number);
  pocket.shape = static_cast<PocketShape>(number % kPocketShapes);
  pocket.toolRadius = kToolRadii[dice.below(3)];
  std::vector<SegmentRow> rows;
  do {
    ShapeMaker maker{dice, pocket.toolRadius};
    rows = outlineRows(maker, pocket.shape);
    pocket.neck = maker.neck;
    pocket.part = partOf(rows);
  } while (!isSimple(pocket.part.pocket, 0.02) || !isCounterClockwise(pocket.part.pocket));
  pocket.outline = drawn(rows, dice);
  const int islands = shape.takesIslands ? dice.below(4) : 0;
  for (int island = 0; island < islands; ++island) addIsland(pocket, dice);
  return pocket;
}

void addPocket(DrawingStore& store, const TestPocket& pocket, int attr) {
  const auto add = [&](SegmentRow row) {
    row.attr = attr;
    AddSeg(store, row, nullptr);
  };
  std::for_each(pocket.outline.begin(), pocket.outline.end(), add);
  for (const auto& island : pocket.islands) std::for_each(island.begin(), island.end(), add);
}

}  // namespace tess::testing
