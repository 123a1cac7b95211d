// Drawing rows that hang together by their ends.
// Owns: connectedRows, rowsConnectedTo, segmentEntities.
#pragma once

#include <vector>

#include "geometry/entity.h"

namespace tess {

struct DrawingStore;

// The ordinary rows of a drawing, those that hang together as one: by the lowest row of each.
std::vector<std::vector<int>> connectedRows(const DrawingStore& store);

// Those that hang together with row `sg`, itself among them; none for a row of another class.
std::vector<int> rowsConnectedTo(const DrawingStore& store, int sg);

std::vector<Entity> segmentEntities(const DrawingStore& store, const std::vector<int>& rows);

}  // namespace tess
