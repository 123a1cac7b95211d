// What a closed outline amounts to.
// Owns: OutlineTotals, totalsOfOutline.
#pragma once

#include <optional>
#include <span>

namespace tess {

struct DrawingStore;

struct OutlineTotals {
  double length = 0, area = 0;  // drawing units, and their square
};

// Of the drawing rows with these numbers when together they are one closed outline without a
// branch, whatever their order and directions: lines and arcs whose ends meet within "tolerence",
// or one circle. Nothing for other rows.
std::optional<OutlineTotals> totalsOfOutline(const DrawingStore& store, std::span<const int> rows);

}  // namespace tess
