// Closed outlines of any number of rows: what tests and benchmarks of the tool paths go round.
// Owns: OutlineKind, StarShape, kStarRowLength, kStarRowsPerWave, starRadius, wavyStar,
//       starWithIslands, addOutline, selectRows.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/drawing_store.h"
#include "geometry/entity.h"

namespace tess::testing {

enum class OutlineKind { Lines, LinesAndArcs };

struct StarShape {
  int rows = 100;
  OutlineKind kind = OutlineKind::Lines;
  Point center{};
  double depth = 0.5;  // of a wave, from its middle
};

inline constexpr double kStarRowLength = 0.1;  // about; the size of a star grows with its rows
inline constexpr int kStarRowsPerWave = 40;    // round enough for a tool of radius 0.25

inline double starRadius(int rows) {
  return rows * kStarRowLength / 6.283185307179586;
}

// A circle with waves, counter-clockwise from its point at angle 0. Each row begins exactly where
// the one before it ends; of lines and arcs every other row is an arc that bulges outward.
inline std::vector<Entity> wavyStar(const StarShape& shape) {
  const int waves = std::max(3, shape.rows / kStarRowsPerWave);
  const auto corner = [&](int k) {
    const double angle = 6.283185307179586 * (k % shape.rows) / shape.rows;
    const double radius = starRadius(shape.rows) + shape.depth * std::cos(waves * angle);
    return Point{static_cast<float>(shape.center.x + radius * std::cos(angle)),
                 static_cast<float>(shape.center.y + radius * std::sin(angle))};
  };
  std::vector<Entity> star;
  for (int k = 0; k < shape.rows; ++k) {
    Entity row = lineEntity(corner(k), corner(k + 1));
    if (shape.kind == OutlineKind::LinesAndArcs && k % 2 != 0) {
      // The centre two chords to the left of the chord's middle.
      const float dx = row.end.x - row.start.x;
      const float dy = row.end.y - row.start.y;
      row.type = kCounterClockwiseArc;
      row.center = {(row.start.x + row.end.x) / 2 - 2 * dy, (row.start.y + row.end.y) / 2 + 2 * dx};
    }
    star.push_back(row);
  }
  return star;
}

// A star of six tenths of the rows and four of one tenth each inside it.
inline std::vector<std::vector<Entity>> starWithIslands(int rows, OutlineKind kind) {
  const int around = rows * 6 / 10;
  std::vector<std::vector<Entity>> outlines{wavyStar({.rows = around, .kind = kind})};
  const auto away = static_cast<float>(starRadius(around) * 0.4);
  for (const Point center :
       {Point{away, away}, Point{-away, away}, Point{-away, -away}, Point{away, -away}}) {
    outlines.push_back(wavyStar({.rows = rows / 10, .kind = kind, .center = center, .depth = 0.1}));
  }
  return outlines;
}

// Appends the rows; the first of them.
inline int addOutline(DrawingStore& store, const std::vector<Entity>& outline,
                      int attr = kOrdinaryClass) {
  const int first = store.NumSegments + 1;
  for (const Entity& e : outline) {
    AddSeg(store, {e.type, attr, e.start.x, e.start.y, e.end.x, e.end.y, e.center.x, e.center.y},
           nullptr);
  }
  return first;
}

// Marks rows `first` to `last` as the operator does.
inline void selectRows(DrawingStore& store, int first, int last) {
  for (int sg = first; sg <= last; ++sg) {
    store.segattr[sg] = entityClass(store.segattr[sg]) + kSelected;
  }
}

}  // namespace tess::testing
