// Arcs turned over.
#include "drafting/flip_arc.h"

#include "gtest/gtest.h"

#include "tests/support/drafting_test_context.h"
#include "tests/support/edit_checks.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

struct ArcContext : RecordedDrafting {
  ArcContext() {
    addLine(0, 0, 0.5F, 0);
    add({.type = 3, .attr = 10, .x0 = 3, .y0 = 0, .x1 = 1, .y1 = 2, .xc = 1, .yc = 0});
  }
};

TEST(FlipArc, KeepsTheEndsAndCurvesToTheOtherSide) {
  ArcContext d;
  mnuEditFlipArc_Click(d.context);
  EXPECT_EQ(d.prompt(), "Click near arc to flip.");
  expectOneStep(d, [&d] { d.click(0, 0); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(0.5, 0)", "2 (3, 0)-(1, 2) c (3, 2) @10"}));
  EXPECT_EQ(d.context.changelog.changecount, 2);
  EXPECT_EQ(d.pending(), 0);
}

TEST(FlipArc, TwiceIsTheSameArc) {
  ArcContext d;
  const Texts before = segmentTexts(d.store);
  for (int n = 0; n < 2; ++n) {
    mnuEditFlipArc_Click(d.context);
    d.click(2, 2);
  }
  EXPECT_EQ(segmentTexts(d.store), before);
}

TEST(FlipArc, OfADrawnCircleTurnsItOverItsStart) {
  RecordedDrafting d;
  d.add({.type = 2, .x0 = 2, .x1 = 2});
  mnuEditFlipArc_Click(d.context);
  expectOneStep(d, [&d] { d.click(0, 3); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"3 (2, 0)-(2, 0) c (4, 0)"}));
}

TEST(ReverseArc, KeepsEndsAndCenterAndRunsTheOtherWay) {
  ArcContext d;
  mnuEditRevArc_Click(d.context);
  EXPECT_EQ(d.prompt(), "Click near arc to reverse.");
  expectOneStep(d, [&d] { d.click(0, 0); });
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(0.5, 0)", "2 (3, 0)-(1, 2) c (1, 0) @10"}));
  EXPECT_EQ(d.pending(), 0);
}

TEST(TurnedArcs, WithoutAnArcEndSilently) {
  for (const auto command : {mnuEditFlipArc_Click, mnuEditRevArc_Click}) {
    RecordedDrafting d;
    d.addLine(0, 0, 2, 0);
    d.add({.type = 5, .x0 = 2, .x1 = 2});
    command(d.context);
    expectNoStep(d, [&d] { d.click(1, 0); });
    EXPECT_EQ(d.pending(), 0);
    EXPECT_EQ(d.beeps(), 0);
  }
}

TEST(TurnedArcs, OfAPathAreThoseThatAreShown) {
  RecordedDrafting d;
  addPathSegment(d.store, {.type = 2, .x0 = -1, .x1 = 1, .z = -1, .feed = 5, .code = 100});
  addPathSegment(d.store, {.type = 3, .x0 = 3, .x1 = 1, .xc = 2, .z = -2, .feed = 6, .code = 201});
  d.store.psvisible[1] = false;
  d.context.command.EditPaths = true;
  mnuEditFlipArc_Click(d.context);
  expectOneStep(d, [&d] { d.click(0, 1); });
  EXPECT_EQ(pathTexts(d.store)[1], "2 (3, 0)-(1, 0) c (2, 0) @201 z -2 f 6");
  mnuEditRevArc_Click(d.context);
  d.click(0, 1);
  EXPECT_EQ(pathTexts(d.store)[1], "3 (3, 0)-(1, 0) c (2, 0) @201 z -2 f 6");
  EXPECT_EQ(d.store.pstype[1], 2);
}

}  // namespace
}  // namespace tess
