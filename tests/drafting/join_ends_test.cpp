// Joining two end points by a line or an arc.
#include "drafting/join_ends.h"

#include "gtest/gtest.h"

#include "drafting/pending_actions.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

// Two level lines with a gap between them.
struct Gap : RecordedDrafting {
  Gap() {
    addLine(-3, 0, -1, 0);
    addLine(1, 0, 3, 0);
  }
  void join(std::initializer_list<Point> clicks) {
    clicks.size() == 3 ? mnuEditJoinEndPtsArc(context) : mnuEditJoinEnd_Click(context);
    for (const Point at : clicks) click(at.x, at.y);
  }
};

TEST(Join, AddsALineBetweenTheNearestEnds) {
  Gap d;
  d.store.segattr[1] = 30008;
  mnuEditJoinEnd_Click(d.context);
  EXPECT_EQ(d.pending(), 18);
  EXPECT_EQ(d.prompt(), "Click on 1st end-point to join.");
  d.click(-0.5F, 0.5F);
  EXPECT_EQ(d.pending(), 19);
  EXPECT_EQ(d.prompt(), "Click on 2nd end-point to join.");
  expectOneStep(d, [&d] { d.click(0.5F, 0.5F); });
  EXPECT_EQ(segmentTexts(d.store),
            (Texts{"1 (-3, 0)-(-1, 0) @30008", "1 (1, 0)-(3, 0)", "1 (-1, 0)-(1, 0)"}));
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.changelog.changecount, 1);
  EXPECT_EQ(d.context.changelog.UndoMark, 1);
}

TEST(Join, OfOnePointWithItselfDoesNothing) {
  Gap d;
  expectNoStep(d, [&d] { d.join({{-1, 0}, {-0.9F, 0.2F}}); });
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.beeps(), 0);
}

TEST(Join, WhoseRowsAreGoneByTheClickEndsSilently) {
  Gap d;
  mnuEditJoinEnd_Click(d.context);
  Change change(d.context.changes);
  change.segments.erase(1, 2);
  change.keep();
  expectNoStep(d, [&d] { d.click(1, 1); });
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.beeps(), 0);
}

TEST(Join, InAFullTableAddsNothing) {
  Gap d;
  while (d.store.NumSegments < 32767) d.addLine(4, 4, 5, 5);
  EXPECT_EQ(testing::numberOfFailure([&d] { d.join({{-1, 0}, {1, 0}}); }), FailureNumber::Overflow);
  EXPECT_EQ(d.context.changelog.changecount, 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

// ---- By an arc

TEST(JoinByArc, AddsTheArcThroughTheThirdClick) {
  Gap d;
  mnuEditJoinEndPtsArc(d.context);
  EXPECT_EQ(d.pending(), 43);
  EXPECT_EQ(d.prompt(), "Click on 1st end-point to join.");
  d.click(-0.8F, 0);
  EXPECT_EQ(d.pending(), 44);
  EXPECT_EQ(d.prompt(), "Click on 2nd end-point to join.");
  d.click(0.8F, 0);
  EXPECT_EQ(d.pending(), 45);
  EXPECT_EQ(d.prompt(), "Click on 3rd point of the joining arc.");
  expectOneStep(d, [&d] { d.click(0, 1); });
  EXPECT_EQ(segmentTexts(d.store)[2], "2 (-1, 0)-(1, 0) c (0, 0)");
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.context.changelog.changecount, 1);
}

TEST(JoinByArc, BelowRunsTheOtherWay) {
  Gap d;
  d.join({{-1, 0}, {1, 0}, {0, -1}});
  EXPECT_EQ(segmentTexts(d.store)[2], "3 (-1, 0)-(1, 0) c (0, 0)");
}

TEST(JoinByArc, LeavesTheMarkerWhereItWas) {
  Gap d;
  d.rightClick(2, 3);
  d.join({{-1, 0}, {1, 0}, {0, 1}});
  EXPECT_EQ(d.marker(), (Point{2, 3}));
}

TEST(JoinByArc, ThroughAPointBetweenTheEndsBeeps) {
  Gap d;
  expectNoStep(d, [&d] { d.join({{-1, 0}, {1, 0}, {0, 0}}); });
  EXPECT_EQ(d.beeps(), 1);
  EXPECT_EQ(d.pending(), 0);
}

TEST(JoinByArc, OfOnePointWithItselfEndsAtTheSecondClick) {
  Gap d;
  mnuEditJoinEndPtsArc(d.context);
  d.click(-1, 0);
  expectNoStep(d, [&d] { d.click(-0.9F, 0.1F); });
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.beeps(), 0);
}

// ---- Path rows

struct PathGap : Gap {
  PathGap() {
    add(-3, -1, 203);
    add(1, 3, 100);
    context.command.EditPaths = true;
  }
  void add(float from, float to, int code) {
    addPathSegment(store, {.type = 1, .x0 = from, .x1 = to, .z = -0.5F, .feed = 9, .code = code});
  }
};

TEST(PathJoin, ComesBehindTheRowNearestToTheClickAndIsCutAsThatIs) {
  PathGap d;
  d.store.lastplacedgroup = 7;
  expectOneStep(d, [&d] { d.join({{1, 0}, {-1.2F, 0}}); });
  EXPECT_EQ(pathTexts(d.store),
            (Texts{"1 (-3, 0)-(-1, 0) @203 z -0.5 f 9", "1 (1, 0)-(-1, 0) @203 z -0.5 f 9",
                   "1 (1, 0)-(3, 0) @100 z -0.5 f 9"}));
  EXPECT_EQ(d.store.NumSegments, 2);
  EXPECT_EQ(d.store.lastplacedgroup, 7) << "nothing was placed";
}

TEST(PathJoin, ByAnArcKeepsItsCenter) {
  PathGap d;
  expectOneStep(d, [&d] { d.join({{-1, 0}, {1, 0}, {-0.6F, 0.8F}}); });
  ASSERT_EQ(d.store.NumPathSegments, 3);
  EXPECT_EQ(d.store.pstype[2], 2);
  EXPECT_NEAR(d.store.psxc[2], 0, 1e-6);
  EXPECT_EQ(d.store.pscode[2], 203);
}

TEST(PathJoin, PassesOverHiddenRows) {
  PathGap d;
  d.store.psvisible[2] = false;
  expectNoStep(d, [&d] { d.join({{-1, 0}, {-1.2F, 1}}); });
  EXPECT_EQ(d.context.command.PendingPt1, (Point{-1, 0}));
}

TEST(PathJoin, OfRapidsAloneHasNoRowToGoBy) {
  RecordedDrafting d;
  addPathSegment(d.store, {.type = 0, .x1 = 1, .code = 100});
  d.context.command.EditPaths = true;
  mnuEditJoinEnd_Click(d.context);
  d.click(0, 0);
  expectNoStep(d, [&d] { d.click(1, 0); });
  EXPECT_EQ(d.pending(), 0);
}

}  // namespace
}  // namespace tess
