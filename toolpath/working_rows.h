// The classes of the rows that roughing adds to the drawing for itself, and the state of the rows
// they were made from.
// Owns: kPocketOutline, kIslandOutline, isWorkingRow, parkedState.
#pragma once

#include "core/drawing_rows.h"

namespace tess {

// Remainders of segattr: the offset outline of the pocket, and of an island.
inline constexpr int kPocketOutline = 10;
inline constexpr int kIslandOutline = 12;

constexpr bool isWorkingRow(int segattr) {
  return entityClass(segattr) == kPocketOutline || entityClass(segattr) == kIslandOutline;
}

// The segattr of a row put aside: no walk and no scan for selected rows finds it. That of an
// ordinary row is kParkedRow.
constexpr int parkedState(int segattr) {
  return entityClass(segattr) + kParkedRow - kOrdinaryClass;
}

}  // namespace tess
