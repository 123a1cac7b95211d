// Which drawing rows have a path on them already.
#include "toolpath/placed_outlines.h"

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/drawing_store.h"
#include "geometry/row_entity.h"
#include "tests/geometry/rows.h"

namespace tess {
namespace {

using testing::addPath;
using testing::addSegment;

struct CoverCase {
  const char* name;
  Entity segment, path;
  bool covered;
};

// Tolerance 1/8.
const CoverCase kCases[] = {
    {"the same line", lineEntity({0, 0}, {1, 2}), lineEntity({0, 0}, {1, 2}), true},
    {"against its direction", lineEntity({0, 0}, {1, 2}), lineEntity({1, 2}, {0, 0}), true},
    {"less than the tolerance off", lineEntity({0, 0}, {1, 2}),
     lineEntity({0.12F, -0.12F}, {1, 2.12F}), true},
    {"the tolerance off", lineEntity({0, 0}, {1, 2}), lineEntity({0.125F, 0}, {1, 2}), false},
    {"another end", lineEntity({0, 0}, {1, 2}), lineEntity({0, 0}, {2, 2}), false},
    {"a line and an arc", lineEntity({0, 0}, {1, 2}), {2, {0, 0}, {1, 2}, {0, 0}}, false},
    {"the same arc", {2, {0, 1}, {1, 0}, {0, 0}}, {2, {0, 1}, {1, 0}, {0, 0}}, true},
    {"against its sense", {2, {0, 1}, {1, 0}, {0, 0}}, {3, {1, 0}, {0, 1}, {0, 0}}, true},
    {"the other way round the circle",
     {2, {0, 1}, {1, 0}, {0, 0}},
     {3, {0, 1}, {1, 0}, {0, 0}},
     true},
    {"another centre", {2, {0, 1}, {1, 0}, {0, 0}}, {2, {0, 1}, {1, 0}, {1, 1}}, false},
    {"a circle and an arc", {5, {1, 0}, {1, 0}, {0, 0}}, {2, {1, 0}, {1, 0}, {0, 0}}, false},
    {"a full arc", {3, {1, 0}, {1, 0}, {0, 0}}, {2, {1, 0}, {1, 0}, {0, 0}}, true},
};

TEST(PathRowExistsFor, GoesByKindEndsAndCenter) {
  for (const CoverCase& row : kCases) {
    DrawingStore store;
    store.cfg_tolerance = 0.125F;
    addPath(store, lineEntity({9, 9}, {8, 9}));
    addPath(store, row.path);
    addSegment(store, row.segment);
    EXPECT_EQ(pathRowExistsFor(store, 1), row.covered) << row.name;
    EXPECT_EQ(PlacedOutlines(store).covers(row.segment), row.covered) << row.name;
  }
}

TEST(PathRowExistsFor, WithoutPathsIsFalse) {
  DrawingStore store;
  addSegment(store, lineEntity({0, 0}, {1, 2}));
  EXPECT_FALSE(pathRowExistsFor(store, 1));
}

TEST(PlacedOutlines, HearOfRowsThatHaveCome) {
  DrawingStore store;
  store.cfg_tolerance = 0.125F;
  PlacedOutlines placed(store);
  const Entity line = lineEntity({0, 0}, {1, 2});
  EXPECT_FALSE(placed.covers(line));
  placed.add(line);
  EXPECT_TRUE(placed.covers(line));
}

Point gridPoint() {
  return {static_cast<float>(*rc::gen::inRange(0, 4)), static_cast<float>(*rc::gen::inRange(0, 4))};
}

Entity gridEntity() {
  const int type = *rc::gen::element(kLine, kClockwiseArc, kCounterClockwiseArc, kCircle);
  return {type, gridPoint(), gridPoint(), type == kLine ? Point{} : gridPoint()};
}

RC_GTEST_PROP(PlacedOutlines, AnswerAsAPlainPass, ()) {
  DrawingStore store;
  store.cfg_tolerance = *rc::gen::element(0.0F, 0.125F, 1.0F, 1.5F);
  for (int rows = *rc::gen::inRange(0, 20); rows > 0; --rows) {
    addPath(store, gridEntity());
    addSegment(store, gridEntity());
  }
  const PlacedOutlines placed(store);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    RC_ASSERT(placed.covers(segmentEntity(store, sg)) == pathRowExistsFor(store, sg));
  }
}

}  // namespace
}  // namespace tess
