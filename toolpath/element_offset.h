// Offsetting the rows of an outline one by one and joining what comes out: the steps that placed
// paths and working outlines share. No table is touched.
// Owns: signOf, travelledRow, otherEnd, hasDirection, SideSigns, sideOfLine, arcSense, arcSide,
//       offsetElement, OffsetChain, OffsetWalk, offsetAlong.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "geometry/entity.h"
#include "toolpath/chain_walk.h"

namespace tess {

// -1, 0 or 1.
constexpr int signOf(double value) {
  return (value > 0) - (value < 0);
}

// Row `sg` as a walk from `start` to `end` runs along it: an arc entered at its end has the other
// sense, and one that is closed on itself is clockwise.
Entity travelledRow(const DrawingStore& store, int sg, Point start, Point end);

// Where a walk that enters row `sg` at `start` leaves it; at `start` again if the row is closed on
// itself.
Point otherEnd(const DrawingStore& store, int sg, Point start);

// True when a start and a point on the way tell which way to go along row `sg`. An arc's row alone
// does.
bool hasDirection(const DrawingStore& store, int sg, Point start, Point direction);

// On which side of a row's nearest point a reference lies, along each axis.
struct SideSigns {
  int x = 0, y = 0;
};

// The side of a travelled line on which such a reference lies.
Side sideOfLine(const Entity& line, SideSigns reference);

// 1 for counter-clockwise, -1 for clockwise.
constexpr int arcSense(int type) {
  return 2 * type - 5;
}

// The side of an arc on which lies what is outside of it (1), inside (-1), or on it (0).
constexpr Side arcSide(int type, int outside) {
  return Side{arcSense(type) * outside};
}

// A travelled line or arc displaced by `radius` to `side`; nothing for an arc that would shrink to
// its centre or past it.
std::optional<Entity> offsetElement(const Entity& along, Side side, float radius);

// The displaced elements in the order of the walk, joined as they come.
class OffsetChain {
 public:
  struct Settings {
    Side side = Side::On;
    float radius = 0;
    float tolerence = 0;
  };
  explicit OffsetChain(const Settings& settings) : settings_(settings) {}

  // Appends the displaced row; false when it has collapsed and nothing was appended. A row of a
  // kind that has no rule repeats the coordinates of the element before it.
  bool append(const Entity& along);
  // Makes the last two elements meet, or the last and the first: both are trimmed to their
  // crossing, or an arc round `corner`, the vertex of the outline, is put behind the earlier one.
  void joinLast(Point corner);
  void close(Point corner);

  const std::vector<Entity>& elements() const { return elements_; }
  // Which elements are arcs round a corner, by rising place in elements().
  const std::vector<std::size_t>& bridges() const { return bridges_; }

 private:
  bool trim(std::size_t earlier, std::size_t later);
  void join(std::size_t earlier, std::size_t later, Point corner);

  Settings settings_;
  Entity last_{.type = kPoint, .start = {}, .end = {}, .center = {}};
  std::vector<Entity> elements_;
  std::vector<std::size_t> bridges_;
};

// A walk along an outline.
struct OffsetWalk {
  int sg = 0;  // the row to begin with
  Point start, end;
  bool wholeChain = true;  // or row `sg` alone
  // The row that goes on at `at` where row `from` ends; nothing ends the walk.
  std::function<std::optional<ChainStep>(int from, Point at)> next;
  std::function<void(int sg)> taken;  // told of each row that the walk has passed
};

// Appends all rows of the walk, joined. True when the walk came back to its start or to a row that
// it had passed. Rows that are appended to the table meanwhile must not come up.
bool offsetAlong(const DrawingStore& store, const OffsetWalk& walk, OffsetChain& chain);

}  // namespace tess
