// Where a lathe's tool moves freely: outside the bar as it came, or for a tool that works inside,
// in the hole that its rows leave. Places are those of the drawing, x along the axis and y from it.
// Owns: LatheWay, LatheRoom.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "core/drawing_rows.h"
#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

// Rapids one after the other, and whether the rest of the way to where it leads is a feed.
struct LatheWay {
  std::vector<Point> rapids{};
  bool feedsIn = false;
};

class LatheRoom {
 public:
  // `clearance` is how far beside the bar the tool travels. The drawing must outlive the room.
  LatheRoom(const DrawingStore& store, float clearance);

  // Out of the work from where the row has left its tool; no way where that is outside.
  std::vector<Point> wayOut(Point from, const PathRow& row) const;

  // To the beginning of the row, from outside the work or from nobody knows where.
  LatheWay wayIn(std::optional<Point> from, const PathRow& row) const;

  // From outside the work to a place outside.
  std::vector<Point> wayAround(Point from, Point to) const;

 private:
  bool isFree(Point place) const;
  bool crossesBar(Point from, Point to) const;
  float above(Point place) const { return sign_ * place.y; }  // how far from the axis
  Point atHeight(float x) const { return {x, sign_ * height_}; }
  Point inBore(float x, const PathRow& row) const;
  void noteSide();
  void noteBores();

  const DrawingStore& store_;
  float clearance_;
  float face_;                  // of the bar, which lies at smaller x
  float top_;                   // its radius
  float height_;                // at which a tool outside passes it
  float sign_ = 1;              // -1 for a drawing below the axis
  std::map<int, float> bores_;  // by groups: the height at which an inside tool passes its rows
};

}  // namespace tess
