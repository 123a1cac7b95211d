// Zero-length lines, duplicate rows, and the window that takes them out.
#include "drafting/drawing_cleanup.h"

#include <limits>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/frmCleanupDrawing.h"
#include "geometry/row_entity.h"
#include "tests/geometry/scenes.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/outlines.h"
#include "tests/support/plain_edits.h"

namespace tess {
namespace {

using testing::deleteSegment;
using testing::Dice;
using testing::editing;
using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

SegmentRow arcRow(int type, Point start, Point end, Point center) {
  return {type, kOrdinaryClass, start.x, start.y, end.x, end.y, center.x, center.y};
}

TEST(AreDuplicates, ComparesKindCenterAndEndsExactly) {
  const SegmentRow quarter = arcRow(kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0});
  const struct {
    const char* name;
    SegmentRow other;
    bool expected;
  } cases[] = {
      {"the same", quarter, true},
      {"the same with another attribute", {3, 30108, 1, 0, 0, 1, 0, 0}, true},
      {"ends exchanged", arcRow(kCounterClockwiseArc, {0, 1}, {1, 0}, {0, 0}), true},
      {"ends exchanged, other sense", arcRow(kClockwiseArc, {0, 1}, {1, 0}, {0, 0}), false},
      {"other sense", arcRow(kClockwiseArc, {1, 0}, {0, 1}, {0, 0}), false},
      {"other centre", arcRow(kCounterClockwiseArc, {1, 0}, {0, 1}, {1, 1}), false},
      {"ends exchanged, other centre", arcRow(kCounterClockwiseArc, {0, 1}, {1, 0}, {1, 1}), false},
      {"only the x exchanged", arcRow(kCounterClockwiseArc, {0, 0}, {1, 1}, {0, 0}), false},
      {"one end in common", arcRow(kCounterClockwiseArc, {1, 0}, {0, -1}, {0, 0}), false},
      {"negative zeros", arcRow(kCounterClockwiseArc, {1, -0.0F}, {-0.0F, 1}, {0, 0}), true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(areDuplicates(quarter, c.other), c.expected) << c.name;
    EXPECT_EQ(areDuplicates(c.other, quarter), c.expected) << c.name;
  }
}

TEST(CountDuplicates, AReversedArcIsOneOnlyWithTheSameCenterAndType) {
  RecordedDrafting d;
  d.add(arcRow(kCounterClockwiseArc, {1, 0}, {0, 1}, {0, 0}));
  d.add(arcRow(kClockwiseArc, {0, 1}, {1, 0}, {0, 0}));
  EXPECT_EQ(countDuplicates(d.store), 0);
  d.add(arcRow(kCounterClockwiseArc, {0, 1}, {1, 0}, {0, 0}));
  EXPECT_EQ(countDuplicates(d.store), 1);
}

TEST(CountDuplicates, LinesThatDifferByAHairAreNone) {
  RecordedDrafting d;
  ASSERT_NE(0.5F, 0.5000001F);
  d.addLine(0, 0, 0.5F, 0);
  d.addLine(0, 0, 0.5000001F, 0);
  EXPECT_EQ(countDuplicates(d.store), 0);
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/true);
  EXPECT_EQ(d.store.NumSegments, 2);
}

// Three rows in one place are three pairs and two rows too many.
TEST(CountDuplicates, CountsTheRowsThatWouldBeRemoved) {
  RecordedDrafting d;
  for (int copy = 0; copy < 3; ++copy) d.addLine(0, 0, 1, 2);
  EXPECT_EQ(countDuplicates(d.store), 2);
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/true);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 2)"}));
}

// The other half of a circle drawn in the same sense exchanges the ends about one centre; nothing
// but the question tells it from a copy.
TEST(CountDuplicates, TakesTwoHalfCirclesOfOneSenseForCopies) {
  RecordedDrafting d;
  d.add(arcRow(kCounterClockwiseArc, {1, 0}, {-1, 0}, {0, 0}));
  d.add(arcRow(kCounterClockwiseArc, {-1, 0}, {1, 0}, {0, 0}));
  EXPECT_EQ(countDuplicates(d.store), 1);
}

TEST(CountDuplicates, AnEmptyDrawingHasNone) {
  const DrawingStore store;
  EXPECT_EQ(countDuplicates(store), 0);
  EXPECT_EQ(countZeroLength(store), 0);
}

TEST(CountDuplicates, ARowThatIsNoNumberIsNobodysCopy) {
  RecordedDrafting d;
  const float nan = std::numeric_limits<float>::quiet_NaN();
  d.addLine(nan, 0, 1, 1);
  d.addLine(nan, 0, 1, 1);
  EXPECT_EQ(countDuplicates(d.store), 0);
}

TEST(CountZeroLength, CountsLinesAlone) {
  RecordedDrafting d;
  d.addLine(1, 1, 1, 1);
  d.addLine(1, 1, 1.0001F, 1);
  d.add(arcRow(kClockwiseArc, {1, 0}, {1, 0}, {0, 0}));
  d.add({.type = kCircle, .x0 = 1, .x1 = 1});
  d.add({.type = kRectangle, .x0 = 1, .x1 = 1});
  d.addLine(-2, 0, -2, 0);
  EXPECT_EQ(countZeroLength(d.store), 2);
}

TEST(RemoveZeroLength, ReportsHowManyWent) {
  RecordedDrafting d;
  d.addLine(1, 1, 1, 1);
  d.addLine(0, 0, 1, 0);
  d.add({.type = kCircle, .x0 = 1, .x1 = 1});
  d.addLine(2, 2, 2, 2);
  EXPECT_EQ(removeZeroLength(d.context.changes), 2);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 0)", "5 (1, 0)-(1, 0)"}));
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(RemoveZeroLength, WithoutAnyTheDrawingStaysSaved) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.store.drawingsaved = true;
  EXPECT_EQ(removeZeroLength(d.context.changes), 0);
  EXPECT_TRUE(d.store.drawingsaved);
}

// Rows 2 and 4 are copies of 1, row 5 of 3.
void addCopies(RecordedDrafting& d) {
  d.addLine(0, 0, 1, 0);
  d.addLine(1, 0, 0, 0);
  d.add({.type = kCircle, .x0 = 2, .x1 = 2, .xc = 1});
  d.add({.type = kLine, .attr = 30008, .x1 = 1});
  d.add({.type = kCircle, .x0 = 2, .x1 = 2, .xc = 1});
  d.addLine(0, 0, 0, 1);
  d.store.drawingsaved = true;
}

const Texts kWithoutCopies = {"1 (0, 0)-(1, 0)", "5 (2, 0)-(2, 0) c (1, 0)", "1 (0, 0)-(0, 1)"};

TEST(RemoveDuplicates, AsksOnceAndTakesTheLaterRows) {
  RecordedDrafting d;
  addCopies(d);
  d.test.recording.prompts.answers = {Answer::Yes};
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/false);
  ASSERT_EQ(d.messages().size(), 1U);
  const Message& asked = d.messages().front();
  EXPECT_EQ(asked.text,
            "There are duplicate drawing entities.  Would you like to delete all duplicates?");
  EXPECT_EQ(asked.title, "Duplicate Entities");
  EXPECT_EQ(asked.icon, MessageIcon::Question);
  EXPECT_EQ(asked.buttons, MessageButtons::YesNo);
  EXPECT_EQ(segmentTexts(d.store), kWithoutCopies);
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(RemoveDuplicates, NoLeavesAllOfThem) {
  RecordedDrafting d;
  addCopies(d);
  const Texts before = segmentTexts(d.store);
  d.test.recording.prompts.answers = {Answer::No};
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/false);
  EXPECT_EQ(d.messages().size(), 1U);
  EXPECT_EQ(segmentTexts(d.store), before);
  EXPECT_TRUE(d.store.drawingsaved);
}

TEST(RemoveDuplicates, SilentlyDoesNotAsk) {
  RecordedDrafting d;
  addCopies(d);
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/true);
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(segmentTexts(d.store), kWithoutCopies);
}

TEST(RemoveDuplicates, KeepsTheTwoPartsOfACircleWhenTheyAreApart) {
  RecordedDrafting d;
  const SegmentRow upper{.type = kCounterClockwiseArc, .x0 = 2, .x1 = 0, .xc = 1};
  const SegmentRow lower{.type = kCounterClockwiseArc, .x0 = 0, .x1 = 2, .xc = 1};
  for (const SegmentRow& row : {upper, lower, upper}) d.add(row);
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/true,
                   ArcHalves::AreApart);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"3 (2, 0)-(0, 0) c (1, 0)", "3 (0, 0)-(2, 0) c (1, 0)"}));
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/true);
  EXPECT_EQ(segmentTexts(d.store), (Texts{"3 (2, 0)-(0, 0) c (1, 0)"}));
}

TEST(RemoveDuplicates, WithoutAnyNothingIsAsked) {
  RecordedDrafting d;
  d.addLine(0, 0, 1, 0);
  d.store.drawingsaved = true;
  removeDuplicates(d.context.changes, d.test.recording.prompts, /*deleteSilently=*/false);
  EXPECT_TRUE(d.messages().empty());
  EXPECT_TRUE(d.store.drawingsaved);
}

// The walk over all pairs, row by row.
void removeDuplicatesPlainly(DrawingStore& store) {
  for (int i = 1; i <= store.NumSegments; ++i) {
    for (int j = i + 1; j <= store.NumSegments;) {
      if (areDuplicates(segmentRow(store, i), segmentRow(store, j))) {
        deleteSegment(store, j);
      } else {
        ++j;
      }
    }
  }
}

void removeZeroLengthPlainly(DrawingStore& store) {
  for (int sg = store.NumSegments; sg >= 1; --sg) {
    const Entity row = segmentEntity(store, sg);
    if (row.type == kLine && distance(row.start, row.end) == 0) deleteSegment(store, sg);
  }
}

// Rows on a few whole coordinates: copies and null rows everywhere.
DrawingStore crowdedStore(Dice& dice) {
  constexpr int kKinds[] = {1, 1, 2, 3, 5, 6, 0};
  DrawingStore store;
  const int rows = dice.below(60);
  const auto coordinate = [&] { return static_cast<float>(dice.below(2)); };
  for (int row = 0; row < rows; ++row) {
    AddSeg(store,
           {kKinds[dice.below(7)], kOrdinaryClass, coordinate(), coordinate(), coordinate(),
            coordinate(), coordinate(), 0},
           nullptr);
    store.segattr[store.NumSegments] = store.NumSegments;  // tells the rows apart
  }
  return store;
}

TEST(RemoveDuplicates, LeavesWhatTheWalkOverAllPairsLeaves) {
  testing::RecordingPrompts prompts;
  int removed = 0;
  for (std::uint32_t seed = 1; seed <= 400; ++seed) {
    Dice dice(seed);
    DrawingStore store = crowdedStore(dice);
    DrawingStore plain = store;
    const int before = store.NumSegments;
    const int counted = countDuplicates(store);
    editing(store, [&](Changes& changes) { removeDuplicates(changes, prompts, true); });
    removeDuplicatesPlainly(plain);
    EXPECT_EQ(segmentTexts(store), segmentTexts(plain)) << seed;
    EXPECT_EQ(counted, before - store.NumSegments) << seed;
    removed += counted;
  }
  EXPECT_GT(removed, 1000);
}

TEST(RemoveZeroLength, LeavesWhatSingleDeletionsLeave) {
  int removed = 0;
  for (std::uint32_t seed = 1; seed <= 100; ++seed) {
    Dice dice(seed);
    DrawingStore store = crowdedStore(dice);
    DrawingStore plain = store;
    removed += editing(store, [](Changes& changes) { return removeZeroLength(changes); });
    removeZeroLengthPlainly(plain);
    EXPECT_EQ(segmentTexts(store), segmentTexts(plain)) << seed;
  }
  EXPECT_GT(removed, 100);
}

// Half of a full table goes at once.
TEST(RemoveDuplicates, AFullTableLosesItsSecondHalf) {
  DrawingStore store;
  testing::RecordingPrompts prompts;
  const std::vector<Entity> star = testing::wavyStar({.rows = 16383});
  testing::addOutline(store, star);
  testing::addOutline(store, star);
  EXPECT_EQ(countDuplicates(store), 16383);
  editing(store, [&](Changes& changes) { removeDuplicates(changes, prompts, true); });
  EXPECT_EQ(store.NumSegments, 16383);
  EXPECT_EQ(segmentEntity(store, 16383).end, star.back().end);
}

// Shows the window and lets the operator work it.
void workCleanup(RecordedDrafting& d, const std::function<void(frmCleanupDrawing&)>& work) {
  d.test.recording.prompts.onForm = [&](Form& form) {
    work(dynamic_cast<frmCleanupDrawing&>(form));
  };
  d.log.take();
  mnuCleanupDrawing(d.context);
}

TEST(CleanupDrawing, OpensWithBothCountsAndNothingTicked) {
  RecordedDrafting d;
  addCopies(d);
  d.addLine(3, 3, 3, 3);
  workCleanup(d, [](frmCleanupDrawing& form) {
    EXPECT_EQ(form.caption(), "Cleanup Drawing");
    EXPECT_EQ(form.lblTotalZeroLengthSegs.caption(), "1");
    EXPECT_EQ(form.lblTotalDupSegs.caption(), "3");
    EXPECT_FALSE(form.chkZeroLengthSegs.isChecked());
    EXPECT_FALSE(form.chkDuplicateSegs.isChecked());
  });
  EXPECT_EQ(d.test.recording.prompts.formNames, (Texts{"frmCleanupDrawing"}));
}

TEST(CleanupDrawing, AnEmptyDrawingShowsZeroes) {
  RecordedDrafting d;
  workCleanup(d, [](frmCleanupDrawing& form) {
    EXPECT_EQ(form.lblTotalZeroLengthSegs.caption(), "0");
    EXPECT_EQ(form.lblTotalDupSegs.caption(), "0");
  });
}

TEST(CleanupDrawing, RemovesWhatIsTickedThenRedrawsAndCloses) {
  const struct {
    const char* name;
    bool zeroLength, duplicates;
    Texts left;
  } cases[] = {
      {"neither", false, false, {"1 (0, 0)-(1, 0)", "1 (3, 3)-(3, 3)", "1 (1, 0)-(0, 0)"}},
      {"zero-length lines", true, false, {"1 (0, 0)-(1, 0)", "1 (1, 0)-(0, 0)"}},
      {"duplicates", false, true, {"1 (0, 0)-(1, 0)", "1 (3, 3)-(3, 3)"}},
      {"both", true, true, {"1 (0, 0)-(1, 0)"}},
  };
  for (const auto& c : cases) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    d.addLine(3, 3, 3, 3);
    d.addLine(1, 0, 0, 0);
    workCleanup(d, [&](frmCleanupDrawing& form) {
      form.chkZeroLengthSegs.setChecked(c.zeroLength);
      form.chkDuplicateSegs.setChecked(c.duplicates);
      form.cmdCleanup.click();
      EXPECT_FALSE(form.isShown()) << c.name;
    });
    EXPECT_EQ(segmentTexts(d.store), c.left) << c.name;
    EXPECT_EQ(d.log.count("Cls"), 1) << c.name;
    EXPECT_TRUE(d.messages().empty()) << c.name;
    EXPECT_EQ(d.context.changelog.changecount, 0) << c.name;
  }
}

TEST(CleanupDrawing, CancelChangesNothing) {
  RecordedDrafting d;
  d.addLine(3, 3, 3, 3);
  workCleanup(d, [](frmCleanupDrawing& form) {
    form.chkZeroLengthSegs.setChecked(true);
    form.cmdCancel.click();
    EXPECT_FALSE(form.isShown());
  });
  EXPECT_EQ(d.store.NumSegments, 1);
  EXPECT_EQ(d.log.count("Cls"), 0);
}

}  // namespace
}  // namespace tess
