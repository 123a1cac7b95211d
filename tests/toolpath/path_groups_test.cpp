// Groups of path rows: their reading, their bounds, and taking one out.
#include "toolpath/path_groups.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/undo.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::RecordedCam;
using Codes = std::vector<int>;

DrawingStore storeOf(const Codes& codes) {
  DrawingStore store;
  for (const int code : codes) {
    addPathSegment(store, {.type = kLine, .x1 = static_cast<float>(code), .code = code});
  }
  store.drawingsaved = true;
  return store;
}

Codes codesOf(const DrawingStore& store) {
  Codes codes;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) codes.push_back(store.pscode[ps]);
  return codes;
}

TEST(PathGroups, AreReadToTheNearestWholeNumber) {
  EXPECT_EQ(groupRounded(1249), 12);
  EXPECT_EQ(groupRounded(1250), 12);
  EXPECT_EQ(groupRounded(1260), 13);
  EXPECT_EQ(groupRounded(1350), 14);
  EXPECT_EQ(groupRounded(31250), 12);
  EXPECT_EQ(groupRounded(31260), 13);
}

TEST(PathGroups, BeginAtTheirLowestRowWhereverItIs) {
  const DrawingStore store = storeOf({100, 203, 100, 30203, 260, 301});
  EXPECT_EQ(firstOfPathGroup(store, 1), 1);
  EXPECT_EQ(firstOfPathGroup(store, 3), 1);
  EXPECT_EQ(firstOfPathGroup(store, 4), 2);
  EXPECT_EQ(firstOfPathGroup(store, 6), 5);  // a tool index above 50 reads as the next group
  EXPECT_EQ(firstOfPathGroup(storeOf({}), 1), 0);
}

TEST(PathGroups, EndWithTheirUnbrokenRun) {
  const DrawingStore store = storeOf({100, 101, 203, 100, 260, 301});
  EXPECT_EQ(lastOfPathGroup(store, 1), 2);
  EXPECT_EQ(lastOfPathGroup(store, 2), 2);
  EXPECT_EQ(lastOfPathGroup(store, 3), 3);
  EXPECT_EQ(lastOfPathGroup(store, 4), 4);
  EXPECT_EQ(lastOfPathGroup(store, 5), 6);
}

TEST(PathInsertIndex, FollowsTheMode) {
  const DrawingStore store = storeOf({100, 200, 201, 300, 200});
  struct PlaceCase {
    int mode, group, index;
  };
  constexpr PlaceCase kCases[] = {
      {0, 2, 6}, {1, 2, 2}, {2, 2, 4}, {3, 2, 6},
      {1, 1, 1}, {2, 1, 2}, {1, 3, 4}, {2, 3, 5},  // behind group 3, where group 2 goes on
      {1, 9, 6}, {2, 9, 6}, {4, 2, 6}, {-1, 2, 6},
  };
  for (const PlaceCase& row : kCases) {
    EXPECT_EQ(pathInsertIndex(store, PathInsertMode{row.mode}, row.group), row.index)
        << "mode " << row.mode << ", group " << row.group;
  }
}

TEST(PathInsertIndex, BehindTheLastGroupIsTheEnd) {
  const DrawingStore store = storeOf({100, 200, 200});
  EXPECT_EQ(pathInsertIndex(store, PathInsertMode::AfterGroup, 2), 4);
}

TEST(PathInsertIndex, WithoutRowsIsTheFirst) {
  const DrawingStore store;
  for (const int mode : {0, 1, 2, 3})
    EXPECT_EQ(pathInsertIndex(store, PathInsertMode{mode}, 1), 1) << mode;
}

TEST(DeletePathGroup, TakesItsRowsAsOneStep) {
  RecordedCam d;
  d.store = storeOf({100, 203, 100, 30203, 260, 160});
  deletePathGroup(d.context.changes, 2);
  EXPECT_EQ(codesOf(d.store), (Codes{100, 100, 260}));
  EXPECT_FALSE(d.store.drawingsaved);
  ASSERT_EQ(d.context.changelog.changecount, 3);
  const Codes logged = {160, 30203, 203};
  for (int record = 0; record < 3; ++record) {
    const clsSegment& taken = d.context.changelog.record(record);
    EXPECT_EQ(taken.SegAttr, logged[static_cast<std::size_t>(record)]);
    EXPECT_EQ(taken.AddOrDelete, "D");
    EXPECT_EQ(taken.StartOfSegment, record == 0);
  }
  Undo_Last_Change(d.context);
  EXPECT_EQ(codesOf(d.store), (Codes{100, 203, 100, 30203, 260, 160}));
  RedoLastChange(d.context);
  EXPECT_EQ(codesOf(d.store), (Codes{100, 100, 260}));
}

TEST(DeletePathGroup, OfAGroupThatIsNotThereChangesNothing) {
  RecordedCam d;
  d.store = storeOf({100, 100});
  deletePathGroup(d.context.changes, 5);
  EXPECT_EQ(codesOf(d.store), (Codes{100, 100}));
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(DeletePathGroup, InAFullLogOlderStepsGiveWay) {
  RecordedCam d;
  d.store = storeOf({100, 100, 100});
  clsSegment other;
  other.StartOfSegment = true;
  for (int count = 0; count < 32765; ++count)
    d.context.changelog.logRecord(other, /*cutRedo=*/true);
  deletePathGroup(d.context.changes, 1);
  EXPECT_EQ(codesOf(d.store), Codes{});
  EXPECT_EQ(d.context.changelog.changecount, 32767);
  Undo_Last_Change(d.context);
  EXPECT_EQ(codesOf(d.store), (Codes{100, 100, 100}));
}

}  // namespace
}  // namespace tess
