// Selection by click, by window and along chains.
#include "drafting/selection.h"

#include <algorithm>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/break_segment.h"
#include "drafting/delete_rows.h"
#include "geometry/float_intersections.h"
#include "geometry/row_entity.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using Rows = std::vector<int>;

// Rows that carry the mark.
Rows selectedRows(const DrawingStore& store) {
  Rows rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] >= 30000) rows.push_back(sg);
  }
  return rows;
}

Rows selectedPaths(const DrawingStore& store) {
  Rows rows;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (store.pscode[ps] >= 30000) rows.push_back(ps);
  }
  return rows;
}

// ---- Marks

TEST(SelectionMarks, KeepTheClassAndForgetTheHundreds) {
  struct MarkCase {
    int before, selected, unselected;
  };
  constexpr MarkCase kCases[] = {{8, 30008, 8},     {30008, 30008, 8}, {30108, 30008, 8},
                                 {29108, 30008, 8}, {10, 30010, 10},   {112, 30012, 12}};
  for (const MarkCase& row : kCases) {
    EXPECT_EQ(selectedAttribute(row.before, true), row.selected) << row.before;
    EXPECT_EQ(selectedAttribute(row.before, false), row.unselected) << row.before;
  }
}

TEST(SelectionMarks, OfPathRowsKeepGroupAndTool) {
  EXPECT_EQ(selectedCode(1203, true), 31203);
  EXPECT_EQ(selectedCode(31203, true), 31203);
  EXPECT_EQ(selectedCode(31203, false), 1203);
  EXPECT_EQ(selectedCode(1203, false), 1203);
  EXPECT_EQ(selectedCode(30001, false), 1);
  EXPECT_EQ(selectedCode(30000, true), 30000);
  EXPECT_EQ(selectedCode(30000, false), 30000);  // unselected only above the mark
}

TEST(SelectedCount, CountsPlainSelectedRowsAlone) {
  RecordedDrafting d;
  for (const int attr : {8, 30008, 30108, 30010, 30008, 29108}) {
    d.add({.type = 1, .attr = attr, .x1 = 1});
  }
  EXPECT_EQ(selectedCount(d.store), 2);
}

TEST(SelectedCount, AVerifiedRowDoesNotCountSoDeleteArmsTheClick) {
  RecordedDrafting d;
  d.add({.type = 1, .attr = 30108, .x1 = 1});
  EXPECT_EQ(selectedCount(d.store), 0);
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.pending(), 1);
}

// ---- Clicks

TEST(SelectClick, TakesTheNearestRowHoweverFar) {
  RecordedDrafting d;
  d.addLine(-5, -4, -5, -3);
  d.addLine(-4, -4, -4, -3);
  mnuDrawSelect_Click(d.context);
  d.click(5, 4);
  EXPECT_EQ(selectedRows(d.store), Rows{2});
  EXPECT_EQ(d.context.state.Selected.rows(), Rows{2});
  EXPECT_EQ(d.pending(), 24);
  d.click(-5, -3.5F);
  EXPECT_EQ(d.context.state.Selected.rows(), (Rows{2, 1}));
}

TEST(SelectClick, UnselectsWithTheOtherCommand) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addLine(0, 1, 1, 1);
  mnuDrawSelectAll_Click(d.context);
  mnuDrawUnselect_Click(d.context);
  d.click(0.5F, 0.1F);
  EXPECT_EQ(selectedRows(d.store), Rows{2});
  EXPECT_EQ(d.context.state.Selected.rows(), Rows{2});
  EXPECT_EQ(d.pending(), 25);
}

TEST(SelectClick, DrawsTheRowAtOnce) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.log.take();
  markSegment(d.context, 1, true);
  EXPECT_EQ(d.log.count("line (0, 0)-(1, 0)"), 2);
  EXPECT_EQ(d.log.count("Cls"), 0);
  EXPECT_TRUE(d.context.state.updateProperties);
}

TEST(SelectClick, OfAnEmptyDrawingDoesNothing) {
  for (const bool editPaths : {false, true}) {
    RecordedDrafting d;
    d.context.command.EditPaths = editPaths;
    for (const auto command : {mnuDrawSelect_Click, mnuDrawUnselect_Click, mnuDrawSelectContiguous,
                               mnuDrawUnselectContiguous}) {
      command(d.context);
      d.click(1, 1);
      EXPECT_EQ(d.mode(), -1);
    }
    EXPECT_EQ(d.context.state.Selected.rows(), Rows{});
    EXPECT_TRUE(d.messages().empty());
  }
}

TEST(SelectClick, WithEditPathsTakesPathRowsOfAnyGroup) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addPathLine(0, 1, 1, 1, 101);
  d.addPathLine(0, 2, 1, 2, 203);
  d.context.command.EditPaths = true;
  mnuDrawSelect_Click(d.context);
  d.click(0.5F, 2.1F);
  EXPECT_EQ(d.store.pscode[2], 30203);
  EXPECT_EQ(selectedRows(d.store), Rows{});
  mnuDrawUnselect_Click(d.context);
  d.click(0.5F, 2.2F);
  EXPECT_EQ(d.store.pscode[2], 203);
}

// ---- Windows

// Three rows: one inside, one through, one beyond a window from (0, 0) to (2, 2).
struct WindowContext : RecordedDrafting {
  WindowContext() {
    addLine(0.5F, 0.5F, 1.5F, 1.5F);
    addLine(-1, 1, 3, 1);
    addLine(3, 3, 4, 4);
    mnuDrawSelect_Click(context);
  }
};

TEST(SelectWindow, TakesWhatItTouches) {
  WindowContext d;
  d.drag({0, 0}, {2, 2});
  EXPECT_EQ(selectedRows(d.store), (Rows{1, 2}));
  EXPECT_EQ(d.context.state.Selected.rows(), (Rows{1, 2}));
}

TEST(SelectWindow, WithShiftTakesWhatHasBothEndsInside) {
  WindowContext d;
  d.drag({0, 0}, {2, 2}, kShiftKey);
  EXPECT_EQ(selectedRows(d.store), Rows{1});
}

TEST(SelectWindow, MayBeDraggedInAnyDirection) {
  constexpr std::pair<Point, Point> kDrags[] = {
      {{0, 0}, {2, 2}}, {{2, 2}, {0, 0}}, {{0, 2}, {2, 0}}, {{2, 0}, {0, 2}}};
  for (const auto& [from, to] : kDrags) {
    for (const int shift : {0, kShiftKey}) {
      WindowContext d;
      d.drag(from, to, shift);
      EXPECT_EQ(selectedRows(d.store), shift != 0 ? Rows{1} : (Rows{1, 2}));
    }
  }
}

TEST(SelectWindow, ReachesALittleBeyondItsEdges) {
  for (const float beyond : {0.0014F, 0.0016F}) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 2 + beyond);
    SelectWindow(d.context, /*select=*/true, {{-1, -1}, {2, 2}}, /*exclusive=*/true);
    EXPECT_EQ(selectedRows(d.store), beyond < 0.0015F ? Rows{1} : Rows{});
  }
}

TEST(SelectWindow, UnselectsWithTheOtherCommand) {
  WindowContext d;
  mnuDrawSelectAll_Click(d.context);
  mnuDrawUnselect_Click(d.context);
  d.drag({0, 0}, {2, 2});
  EXPECT_EQ(selectedRows(d.store), Rows{3});
  EXPECT_EQ(d.context.state.Selected.rows(), Rows{3});
}

TEST(SelectWindow, MarksASelectedRowAgainWithoutHarm) {
  WindowContext d;
  d.drag({0, 0}, {2, 2});
  d.drag({0, 0}, {2, 2});
  EXPECT_EQ(selectedRows(d.store), (Rows{1, 2}));
  EXPECT_EQ(d.context.state.Selected.rows(), (Rows{1, 2}));
}

TEST(SelectWindow, CatchesALongLineThatCrossesIt) {
  RecordedDrafting d;
  d.addLine(-5, -4, 5, 4);
  SelectWindow(d.context, /*select=*/true, {{-0.5F, -0.4F}, {0.5F, 0.5F}}, /*exclusive=*/false);
  EXPECT_EQ(selectedRows(d.store), Rows{1});
}

TEST(SelectWindow, MayMissAnArcThatOnlyGrazesIt) {
  RecordedDrafting d;
  // The lower end of this half circle's bulge dips into the window from above; the nearest points
  // of all four corners lie beside the window.
  d.add({.type = 3, .x0 = -3, .y0 = 3, .x1 = 3, .y1 = 3, .xc = 0, .yc = 3});
  SelectWindow(d.context, /*select=*/true, {{-2, -3}, {2, 0.05F}}, /*exclusive=*/false);
  EXPECT_EQ(selectedRows(d.store), Rows{});
}

TEST(SelectWindow, WithEditPathsMarksPathRows) {
  RecordedDrafting d;
  d.addLine(0.5F, 0.5F, 1.5F, 1.5F);
  d.addPathLine(0.5F, 0.5F, 1.5F, 1.5F);
  d.addPathLine(-1, 1, 3, 1, 203);
  d.addPathLine(3, 3, 4, 4);
  d.context.command.EditPaths = true;
  SelectWindow(d.context, /*select=*/true, {{0, 0}, {2, 2}}, /*exclusive=*/false);
  EXPECT_EQ(selectedPaths(d.store), (Rows{1, 2}));
  EXPECT_EQ(d.store.pscode[2], 30203);
  SelectWindow(d.context, /*select=*/false, {{0, 0}, {2, 2}}, /*exclusive=*/true);
  EXPECT_EQ(selectedPaths(d.store), Rows{2});
  EXPECT_EQ(selectedRows(d.store), Rows{});
  EXPECT_EQ(d.context.state.Selected.rows(), Rows{});
}

TEST(SelectWindow, TakesARapidByItsEndsAlone) {
  RecordedDrafting d;  // a rapid has no nearest point
  addPathSegment(d.store, {.type = 0, .x0 = 0.5F, .y0 = 0.5F, .x1 = 1, .y1 = 1, .code = 100});
  d.context.command.EditPaths = true;
  SelectWindow(d.context, /*select=*/true, {{-1, -1}, {2, 2}}, /*exclusive=*/false);
  EXPECT_EQ(selectedPaths(d.store), Rows{});
  SelectWindow(d.context, /*select=*/true, {{-1, -1}, {2, 2}}, /*exclusive=*/true);
  EXPECT_EQ(selectedPaths(d.store), Rows{1});
}

// ---- Chains

TEST(SelectContiguous, FollowsAnOpenChainBothWays) {
  RecordedDrafting d;
  d.addLine(2, 0, 3, 0);
  d.addLine(0, 0, 1, 0);
  d.addLine(2, 0, 1, 0);  // against the run of the chain
  d.addLine(0, 3, 1, 3);  // elsewhere
  mnuDrawSelectContiguous(d.context);
  d.click(1.5F, 0.1F);
  EXPECT_EQ(selectedRows(d.store), (Rows{1, 2, 3}));
  EXPECT_EQ(d.context.state.Selected.rows(), (Rows{3, 1, 2}));  // start side first
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(d.pending(), 31);
  mnuDrawUnselectContiguous(d.context);
  d.click(1.5F, 0.1F);
  EXPECT_EQ(selectedRows(d.store), Rows{});
  EXPECT_EQ(d.pending(), 32);
}

TEST(SelectContiguous, GoesRoundAClosedChainOnce) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addLine(1, 0, 1, 1);
  d.addLine(1, 1, 0, 0);
  mnuDrawSelectContiguous(d.context);
  d.click(0.5F, -0.1F);
  EXPECT_EQ(selectedRows(d.store), (Rows{1, 2, 3}));
  EXPECT_TRUE(d.messages().empty());
}

TEST(SelectContiguous, StopsAtAForkAndNamesItsPlace) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0.5F);
  d.addLine(1, 0.5F, 2, 0);
  d.addLine(1, 0.5F, 2, 1);
  mnuDrawSelectContiguous(d.context);
  d.click(0.5F, 0.2F);
  EXPECT_EQ(selectedRows(d.store), Rows{1});
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(d.messages()[0].text,
            "Branching detected. Select the correct branch at the following points: \n\n(1,0.5)");
}

TEST(SelectContiguous, NamesTheForksOfBothSidesStartFirst) {
  RecordedDrafting d;
  d.addLine(1, 0, 2, 0);  // picked
  d.addLine(2, 0, 3, 0);
  d.addLine(3, 0, 4, 1);
  d.addLine(3, 0, 4, -1);
  d.addLine(1, 0, 0, 1);
  d.addLine(1, 0, 0, -1);
  mnuDrawSelectContiguous(d.context);
  d.click(1.5F, 0.1F);
  EXPECT_EQ(selectedRows(d.store), (Rows{1, 2}));
  ASSERT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(
      d.messages()[0].text,
      "Branching detected. Select the correct branch at the following points: \n\n(1,0)\n(3,0)");
}

TEST(SelectContiguous, ARowThatEndsWhereItStartsTouchesItselfOnlyByItsTag) {
  RecordedDrafting d;
  d.add({.type = 2, .x0 = 1, .y0 = 0, .x1 = 1, .y1 = 0});
  mnuDrawSelectContiguous(d.context);
  d.click(1, 0.1F);
  EXPECT_EQ(selectedRows(d.store), Rows{1});
  EXPECT_TRUE(d.messages().empty());
}

TEST(SelectContiguous, JoinsEndsWithinTheTolerance) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addLine(1.0009F, 0, 2, 0);
  d.addLine(2.0011F, 0, 3, 0);
  mnuDrawSelectContiguous(d.context);
  d.click(0.5F, 0.1F);
  EXPECT_EQ(selectedRows(d.store), (Rows{1, 2}));
}

TEST(SelectContiguous, ShowsTheHourglassMeanwhile) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  mnuDrawSelectContiguous(d.context);
  d.press(1, 0.5F, 0.1F);
  d.log.take();
  d.release(1, 0.5F, 0.1F);
  const auto& lines = d.log.lines;
  const auto wait = std::find(lines.begin(), lines.end(), "MousePointer 11");
  const auto drawn = std::find_if(lines.begin(), lines.end(),
                                  [](const std::string& l) { return l.starts_with("line (0"); });
  EXPECT_LT(wait, drawn);
  EXPECT_EQ(d.pointer.MousePointer(), kDefaultShape);
}

TEST(SelectContiguous, WalksALongChainWithoutRecursion) {
  RecordedDrafting d;
  constexpr int kLong = 20000;
  ensureSegmentCapacity(d.store, kLong);
  for (int sg = 0; sg < kLong; ++sg) {
    const auto at = static_cast<float>(sg);
    AddSeg(d.store, {.type = 1, .x0 = at, .x1 = at + 1}, nullptr);
  }
  std::vector<bool> tagged(kLong + 1);
  std::string message;
  SelectContiguous(d.context, /*select=*/true, 1, tagged, message);
  EXPECT_EQ(selectedCount(d.store), kLong);
  d.log.take();
}

// The walk as it is told: a pass over all rows for each row, and recursion.
struct PlainWalk {
  const DrawingStore& store;
  std::vector<bool> tagged;
  Rows order;

  std::string from(int seg) {
    order.push_back(seg);
    tagged[static_cast<std::size_t>(seg)] = true;
    const Entity row = segmentEntity(store, seg);
    int startSide = 0;
    int endSide = 0;
    for (int i = 1; i <= store.NumSegments; ++i) {
      if (tagged[static_cast<std::size_t>(i)]) continue;
      const Entity other = segmentEntity(store, i);
      if (touches(row.start, other)) startSide = startSide == 0 ? i : -1;
      if (touches(row.end, other)) endSide = endSide == 0 ? i : -1;
    }
    return onward(startSide, row.start) + onward(endSide, row.end);
  }
  bool touches(Point at, const Entity& other) const {
    return samePoint(at, other.start, store.cfg_tolerance) ||
           samePoint(at, other.end, store.cfg_tolerance);
  }
  std::string onward(int neighbour, Point at) {
    if (neighbour >= 1) return from(neighbour);
    if (neighbour == 0) return {};
    return "\n(" + plainText(at.x) + "," + plainText(at.y) + ")";
  }
};

TEST(SelectContiguous, WalksAsThePlainPassDoes) {
  int branches = 0;
  for (int number = 0; number < 6 * testing::kSceneKinds; ++number) {
    RecordedDrafting d;
    for (const Entity& entity : testing::sceneOf(number).entities) {
      testing::addSegment(d.store, entity);
    }
    d.store.cfg_tolerance = number % 2 == 0 ? 0.001F : 0.6F;
    for (const int seg : {1, d.store.NumSegments / 2, int{d.store.NumSegments}}) {
      if (seg < 1 || seg > d.store.NumSegments) continue;
      SCOPED_TRACE(::testing::Message() << "scene " << number << ", row " << seg);
      const std::vector<bool> untagged(static_cast<std::size_t>(d.store.NumSegments) + 1);
      PlainWalk plain{d.store, untagged, {}};
      const std::string expected = plain.from(seg);
      std::vector<bool> tagged = untagged;
      std::string message;
      d.context.state.Selected.clear();
      SelectContiguous(d.context, /*select=*/true, seg, tagged, message);
      EXPECT_EQ(message, expected);
      EXPECT_EQ(tagged, plain.tagged);
      Rows order;  // a row that is met again keeps its place
      std::vector<bool> met = untagged;
      for (const int row : plain.order) {
        if (!met[static_cast<std::size_t>(row)]) order.push_back(row);
        met[static_cast<std::size_t>(row)] = true;
      }
      EXPECT_EQ(d.context.state.Selected.rows(), order);
      branches += message.empty() ? 0 : 1;
    }
  }
  EXPECT_GT(branches, 10);
}

TEST(SelectContiguousPaths, TakesAllRowsThatHangTogetherByTheirEnds) {
  RecordedDrafting d;
  d.addPathLine(0, 0, 1, 0, 101);
  d.addPathLine(1, 0, 2, 0, 203);
  d.addPathLine(2, 0, 3, 0, 101);
  d.addPathLine(2, 2, 1, 0, 101);   // ends where the second one starts
  d.addPathLine(0, 0, -1, 0, 101);  // starts where the first one starts
  d.addPathLine(3, 3, 3, 0, 101);   // ends where the third one ends
  d.addPathLine(4, 4, 4, 3, 101);   // touches none
  d.context.command.EditPaths = true;
  mnuDrawSelectContiguous(d.context);
  d.click(1.5F, 0.1F);
  EXPECT_EQ(selectedPaths(d.store), (Rows{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(d.store.pscode[2], 30203);
  EXPECT_TRUE(d.messages().empty());
  mnuDrawUnselectContiguous(d.context);
  d.click(1.5F, 0.1F);
  EXPECT_EQ(selectedPaths(d.store), Rows{});
  EXPECT_EQ(d.store.pscode[2], 203);
}

TEST(SelectContiguousPaths, GoesRoundAClosedPathOnce) {
  RecordedDrafting d;
  d.addPathLine(0, 0, 1, 0);
  d.addPathLine(1, 0, 1, 1);
  d.addPathLine(1, 1, 0, 0);
  selectContiguousPaths(d.context, /*select=*/true, 2);
  EXPECT_EQ(selectedPaths(d.store), (Rows{1, 2, 3}));
}

// Sweep after sweep over the table, as long as one finds a row that touches a marked one.
std::vector<bool> plainContiguous(const DrawingStore& store, int ps) {
  std::vector<bool> marked(static_cast<std::size_t>(store.NumPathSegments) + 1);
  marked[static_cast<std::size_t>(ps)] = true;
  const auto meet = [&](int a, int b) {
    const Entity one = pathEntity(store, a);
    const Entity other = pathEntity(store, b);
    const auto same = [&](Point p, Point q) { return samePoint(p, q, store.cfg_tolerance); };
    return same(one.start, other.start) || same(one.start, other.end) ||
           same(one.end, other.start) || same(one.end, other.end);
  };
  for (bool found = true; found;) {
    found = false;
    for (int row = 1; row <= store.NumPathSegments; ++row) {
      if (marked[static_cast<std::size_t>(row)]) continue;
      for (int other = 1; other <= store.NumPathSegments; ++other) {
        if (!marked[static_cast<std::size_t>(other)] || !meet(row, other)) continue;
        marked[static_cast<std::size_t>(row)] = found = true;
        break;
      }
    }
  }
  return marked;
}

TEST(SelectContiguousPaths, TakesWhatPlainSweepsTake) {
  int beyondTheFirst = 0;
  for (int number = 0; number < 3 * testing::kSceneKinds; ++number) {
    SCOPED_TRACE(::testing::Message() << "scene " << number);
    RecordedDrafting d;
    std::vector<Entity> entities = testing::sceneOf(number).entities;
    if (entities.size() > 40) entities.resize(40);
    for (const Entity& entity : entities) testing::addPath(d.store, entity);
    for (int ps = 1; ps <= d.store.NumPathSegments; ps += 7) {
      const std::vector<bool> expected = plainContiguous(d.store, ps);
      selectContiguousPaths(d.context, /*select=*/true, ps);
      std::vector<bool> marked(expected.size());
      for (const int row : selectedPaths(d.store)) marked[static_cast<std::size_t>(row)] = true;
      EXPECT_EQ(marked, expected) << "from row " << ps;
      beyondTheFirst += selectedPaths(d.store).size() > 1 ? 1 : 0;
      selectContiguousPaths(d.context, /*select=*/false, ps);
      EXPECT_EQ(selectedPaths(d.store), Rows{}) << "from row " << ps;
    }
  }
  EXPECT_GT(beyondTheFirst, 20);
}

TEST(SelectConnected, FollowsCrossings) {
  RecordedDrafting d;
  d.addLine(-2, 0, 2, 0);
  d.addLine(0, -2, 0, 2);
  d.addLine(-1, 1, 1, 1);
  d.addLine(3, 3, 4, 3);
  std::vector<bool> tagged(5);
  SelectConnected(d.context, /*select=*/true, 1, tagged);
  EXPECT_EQ(selectedRows(d.store), (Rows{1, 2, 3}));
  EXPECT_EQ(tagged, (std::vector<bool>{false, true, true, true, false}));
}

// ---- All

TEST(SelectAll, MarksEveryRowAndGoesToSelecting) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.add({.type = 1, .attr = 10, .x1 = 2});
  d.addPathLine(0, 0, 1, 0);
  mnuEditBreakSeg_Click(d.context);
  d.log.take();
  mnuDrawSelectAll_Click(d.context);
  EXPECT_EQ(d.store.segattr[1], 30008);
  EXPECT_EQ(d.store.segattr[2], 30010);
  EXPECT_EQ(selectedPaths(d.store), Rows{});
  EXPECT_EQ(d.context.state.Selected.rows(), (Rows{1, 2}));
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.mode(), -1);
  EXPECT_EQ(d.log.count("Cls"), 1);
  EXPECT_EQ(d.propertyRefreshes, 1);
}

TEST(SelectAll, AgainLeavesTheAttributesAsTheyAre) {
  RecordedDrafting d;
  d.add({.type = 1, .attr = 30008, .x1 = 1});
  d.add({.type = 1, .attr = 30108, .x1 = 2});
  mnuDrawSelectAll_Click(d.context);
  mnuDrawSelectAll_Click(d.context);
  EXPECT_EQ(d.store.segattr[1], 30008);
  EXPECT_EQ(d.store.segattr[2], 30108);
  EXPECT_EQ(d.context.state.Selected.rows(), (Rows{1, 2}));
}

TEST(SelectAll, WhileSelectingLeavesTheArmedAction) {
  RecordedDrafting d;
  mnuDrawUnselect_Click(d.context);
  mnuDrawSelectAll_Click(d.context);
  EXPECT_EQ(d.pending(), 25);
}

TEST(SelectAll, WithEditPathsMarksThePathRows) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.addPathLine(0, 0, 1, 0, 101);
  d.addPathLine(0, 0, 1, 0, 30203);
  d.context.command.EditPaths = true;
  mnuDrawSelectAll_Click(d.context);
  EXPECT_EQ(d.store.pscode[1], 30101);
  EXPECT_EQ(d.store.pscode[2], 30203);
  EXPECT_EQ(selectedRows(d.store), Rows{});
}

// A code is a 16-bit number, and the mark takes 30000 of it.
TEST(SelectPaths, WithoutRoomForTheMarkStayAndAreTold) {
  const auto clickOnTheSecond = [](RecordedDrafting& d) {
    mnuDrawSelect_Click(d.context);
    d.click(0.5F, 1.1F);
  };
  const auto chain = [](RecordedDrafting& d) {
    mnuDrawSelectContiguous(d.context);
    d.click(0.5F, 0.1F);
  };
  const auto window = [](RecordedDrafting& d) {
    SelectWindow(d.context, /*select=*/true, {{-1, -1}, {3, 3}}, /*exclusive=*/false);
  };
  const auto all = [](RecordedDrafting& d) { mnuDrawSelectAll_Click(d.context); };
  struct Case {
    const char* name;
    std::function<void(RecordedDrafting&)> select;
    Rows selected;
    int refused;
  };
  const Case cases[] = {{"click", clickOnTheSecond, {}, 1},
                        {"chain", chain, {1, 4}, 2},
                        {"window", window, {1, 4}, 2},
                        {"all", all, {1, 4}, 2}};
  for (const Case& row : cases) {
    RecordedDrafting d;
    d.addPathLine(0, 0, 1, 0, 2767);
    d.addPathLine(1, 0, 0, 1, 6001);
    d.addPathLine(0, 1, 0, 2, 2768);
    d.addPathLine(0, 2, 0, 0, 2600);
    d.context.command.EditPaths = true;
    row.select(d);
    EXPECT_EQ(selectedPaths(d.store), row.selected) << row.name;
    EXPECT_EQ(d.store.pscode[2], 6001) << row.name;
    EXPECT_EQ(d.store.pscode[3], 2768) << row.name;
    ASSERT_EQ(d.messages().size(), 1U) << row.name;
    EXPECT_EQ(d.messages()[0].text,
              "Path segments that cannot be selected: " + std::to_string(row.refused) +
                  ", the first is #2 of group 60.\nGroups up to 26 can be; the path editor gives a "
                  "group another number.");
    EXPECT_EQ(d.messages()[0].title, "Select");
    EXPECT_EQ(d.messages()[0].icon, MessageIcon::Warning);
    d.messages().clear();
    mnuDrawUnselectAll_Click(d.context);
    EXPECT_EQ(selectedPaths(d.store), Rows{}) << row.name;
    EXPECT_TRUE(d.messages().empty()) << row.name;
  }
}

TEST(UnselectAll, TakesAllMarksAndEndsTheMode) {
  RecordedDrafting d;
  d.add({.type = 1, .attr = 30108, .x1 = 1});
  d.add({.type = 1, .attr = 29108, .x1 = 2});
  d.addPathLine(0, 0, 1, 0, 30101);
  d.context.state.Selected.fill(2);
  d.context.state.setDrawMode(1);
  mnuEditBreakSeg_Click(d.context);
  mnuDrawUnselectAll_Click(d.context);
  EXPECT_EQ(d.store.segattr[1], 8);
  EXPECT_EQ(d.store.segattr[2], 29108);
  EXPECT_EQ(d.store.pscode[1], 30101);  // editing works on drawing rows
  EXPECT_EQ(d.context.state.Selected.rows(), Rows{});
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.mode(), 0);
  EXPECT_EQ(d.propertyRefreshes, 1);
}

TEST(UnselectAll, WithEditPathsTakesBothKindsOfMarks) {
  RecordedDrafting d;
  d.add({.type = 1, .attr = 30008, .x1 = 1});
  d.addPathLine(0, 0, 1, 0, 30000);
  d.addPathLine(0, 0, 1, 0, 30203);
  d.context.command.EditPaths = true;
  mnuDrawUnselectAll_Click(d.context);
  EXPECT_EQ(d.store.segattr[1], 8);
  EXPECT_EQ(d.store.pscode[1], 0);
  EXPECT_EQ(d.store.pscode[2], 203);
}

TEST(UnselectAll, WhileSelectingLeavesTheArmedAction) {
  RecordedDrafting d;
  d.add({.type = 1, .attr = 30008, .x1 = 1});
  mnuDrawSelect_Click(d.context);
  mnuDrawUnselectAll_Click(d.context);
  EXPECT_EQ(d.pending(), 24);
  EXPECT_EQ(d.mode(), -1);
}

// ---- The collection

TEST(SelectedSegments, HoldEachRowOnceInTheOrderOfItsSelection) {
  SelectedSegments selected;
  for (const int row : {3, 1, 3, 2}) selected.add(row);
  EXPECT_EQ(selected.rows(), (Rows{3, 1, 2}));
  selected.remove(1);
  selected.remove(9);
  EXPECT_EQ(selected.rows(), (Rows{3, 2}));
  EXPECT_TRUE(selected.contains(2));
  EXPECT_FALSE(selected.contains(1));
  selected.fill(3);
  EXPECT_EQ(selected.rows(), (Rows{1, 2, 3}));
  selected.clear();
  EXPECT_FALSE(selected.contains(1));
}

}  // namespace
}  // namespace tess
