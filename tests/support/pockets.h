// Generated pockets of every kind that an operator draws, for checks of the tool paths: convex and
// concave, with arcs and fillets, narrow necks and islands. One number gives one pocket on every
// machine.
// Owns: PocketShape, kPocketShapes, TestPocket, pocketOf, addPocket.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/drawing_rows.h"
#include "tests/support/path_checker.h"

namespace tess::testing {

enum class PocketShape {
  Rectangle,
  Triangle,
  Convex,   // three to eight corners
  Angle,    // an L
  Channel,  // a U
  Cross,
  Star,
  Comb,
  Slot,
  Round,      // a circle, or three arcs
  HalfRound,  // an arc and its chord, or two arcs of different radius
  Chamfered,  // corners cut, some by less than the tool
  Filleted,   // rectangle, L or U with round corners, some sharper than the tool
  Bulged,     // sides that are arcs, outward and inward
  Dumbbell,   // two rooms with a neck
};
inline constexpr int kPocketShapes = 15;

struct TestPocket {
  std::string name;  // shape and number
  PocketShape shape = PocketShape::Rectangle;
  float toolRadius = 0.25F;
  double neck = 0;  // width of the narrowest neck, where the shape has one by intention
  // In drawing order: half of the pockets have their rows in any order, one in four rows against
  // the way round.
  std::vector<SegmentRow> outline;
  std::vector<std::vector<SegmentRow>> islands;
  PartShape part;        // the same, in order
  double islandGap = 0;  // the least distance of an island from anything; 0 without islands
};

// All coordinates have five decimals.
TestPocket pocketOf(int number);

// Appends outline and islands as drawn rows of attribute `attr`.
void addPocket(DrawingStore& store, const TestPocket& pocket, int attr = kOrdinaryClass);

}  // namespace tess::testing
