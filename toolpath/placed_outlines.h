// Which drawing rows have a path on them already.
// Owns: PlacedOutlines, pathRowExistsFor.
#pragma once

#include <vector>

#include "geometry/end_point_index.h"
#include "geometry/entity.h"

namespace tess {

// The path rows of a table, found by what they lie on.
class PlacedOutlines {
 public:
  explicit PlacedOutlines(const DrawingStore& store);

  // A row that has come since.
  void add(const Entity& path);
  // True when a path row of the kind of `segment`, or for an arc of either sense, has the same
  // centre and ends, in either order. Each point must differ by less than the tolerance.
  bool covers(const Entity& segment) const;

 private:
  float tolerence_;
  std::vector<Entity> paths_;  // element k is row k + 1 of the index
  EndPointIndex ends_;
};

// The same for a single question about drawing row `sg`.
bool pathRowExistsFor(const DrawingStore& store, int sg);

}  // namespace tess
