// Rounding a corner.
#include "drafting/fillet.h"

#include "gtest/gtest.h"

#include "drafting/dlgEditRadius.h"
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

struct FilletContext : RecordedDrafting {
  FilletContext() {
    test.recording.prompts.onForm = [this](Form& form) {
      auto& dialog = dynamic_cast<dlgEditRadius&>(form);
      shown = {dialog.txtradius.text(), dialog.txtminradius.text()};
      if (!radius.empty()) dialog.txtradius.setText(radius);
      accepts ? dialog.cmdAccept.click() : dialog.cmdCancel.click();
    };
  }
  void fillet(Point first, Point second) {
    mnuAddFillet_Click(context);
    click(first.x, first.y);
    click(second.x, second.y);
  }
  void expectTold(const std::string& text) {
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_EQ(messages()[0].text, text);
    EXPECT_EQ(messages()[0].title, "Add Fillet");
    EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
    EXPECT_EQ(messages()[0].buttons, MessageButtons::Ok);
    EXPECT_EQ(pending(), 0);
  }
  Texts shown;
  std::string radius = "0.5";
  bool accepts = true;
};

// Rows to four places, since the rule goes by rounded angles.
Texts rounded(const DrawingStore& store) {
  Texts texts;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    SegmentRow row = segmentRow(store, sg);
    for (float* const value : {&row.x0, &row.y0, &row.x1, &row.y1, &row.xc, &row.yc}) {
      *value = std::round(*value * 1e4F) / 1e4F + 0.0F;
    }
    texts.push_back(testing::segmentText(row));
  }
  return texts;
}

// The corner of an L in the origin.
struct Corner : FilletContext {
  Corner() {
    addLine(0, 0, 4, 0);
    addLine(0, 3, 0, 0);
  }
};

// ---- Clicks and dialog

TEST(FilletClicks, AskForTwoLinesAndTheRadius) {
  Corner d;
  mnuAddFillet_Click(d.context);
  EXPECT_EQ(d.pending(), 46);
  EXPECT_EQ(d.prompt(), "Click near first line to fillet.");
  d.click(2, 0);
  EXPECT_EQ(d.pending(), 47);
  EXPECT_EQ(d.prompt(), "Click near second line to fillet.");
  EXPECT_TRUE(d.shown.empty());
  d.click(0, 2);
  EXPECT_EQ(d.shown, (Texts{"0.0000", ""}));
  EXPECT_EQ(d.pending(), 0);
}

TEST(FilletClicks, OfferTheLastRadiusAgain) {
  Corner d;
  d.test.session.formats.coordfmt = "0.00";
  d.fillet({2, 0}, {0, 2});
  d.fillet({2, 0}, {0, 2});
  EXPECT_EQ(d.shown, (Texts{"0.50", ""}));
}

TEST(FilletClicks, CancelEndsTheCommandEvenWithARadiusOffered) {
  Corner d;
  d.context.command.filletRadius = 0.5F;
  d.accepts = false;
  expectNoStep(d, [&d] { d.fillet({2, 0}, {0, 2}); });
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.beeps(), 0);
  EXPECT_TRUE(d.messages().empty());
}

TEST(FilletClicks, WithoutALineEndSilently) {
  FilletContext d;
  d.add({.type = 3, .x0 = 1, .x1 = -1});
  expectNoStep(d, [&d] { d.fillet({0, 1}, {0, 1}); });
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.beeps(), 0);
}

TEST(FilletClicks, ARadiusThatIsNoneBeeps) {
  for (const char* const radius : {"0", "-1", "nonsense", "1e30"}) {
    Corner d;
    d.radius = radius;
    expectNoStep(d, [&d] { d.fillet({2, 0}, {0, 2}); });
    EXPECT_EQ(d.beeps(), 1) << radius;
    EXPECT_TRUE(d.messages().empty());
    EXPECT_EQ(d.pending(), 0);
  }
}

// ---- The shape

TEST(Fillet, DrawsBothLinesBackAndAddsTheArc) {
  Corner d;
  expectOneStep(d, [&d] { d.fillet({2, 0}, {0, 2}); });
  EXPECT_EQ(d.context.changelog.changecount, 5);
  Corner rows;
  rows.fillet({2, 0}, {0, 2});
  EXPECT_EQ(rounded(rows.store),
            (Texts{"1 (0.5, 0)-(4, 0)", "1 (0, 0.5)-(0, 3)", "2 (0.5, 0)-(0, 0.5) c (0.5, 0.5)"}));
}

TEST(Fillet, RunsFromTheFirstLineToTheSecond) {
  Corner d;
  d.fillet({0, 2}, {2, 0});
  EXPECT_EQ(rounded(d.store),
            (Texts{"1 (0.5, 0)-(4, 0)", "1 (0, 0.5)-(0, 3)", "3 (0, 0.5)-(0.5, 0) c (0.5, 0.5)"}));
}

TEST(Fillet, KeepsTheClassOfTheLinesAndIsOrdinaryItself) {
  Corner d;
  d.store.segattr[1] = 10;
  d.store.segattr[2] = 30108;
  d.fillet({2, 0}, {0, 2});
  EXPECT_EQ(d.store.segattr[1], 10);
  EXPECT_EQ(d.store.segattr[2], 30108);
  EXPECT_EQ(d.store.segattr[3], 8);
}

TEST(Fillet, TouchesBothLinesInEveryQuadrantAndOrder) {
  for (int quarter = 0; quarter < 8; ++quarter) {
    for (const double opening : {30.0, 90.0, 150.0}) {
      FilletContext d;
      const double turn = quarter * 45 * kPi / 180 + 0.1;
      const Point a{static_cast<float>(3 * std::cos(turn)), static_cast<float>(3 * std::sin(turn))};
      const double other = turn + opening * kPi / 180;
      const Point b{static_cast<float>(3 * std::cos(other)),
                    static_cast<float>(3 * std::sin(other))};
      d.addLine(0, 0, a.x, a.y);
      d.addLine(b.x, b.y, 0, 0);
      ASSERT_EQ(addFillet(d.context.changes, 1, 2, 0.25F), FilletResult::Added);
      const double reach = 0.25 / std::tan(opening / 2 * kPi / 180);
      const Point start{d.store.x0[3], d.store.y0[3]}, end{d.store.x1[3], d.store.y1[3]};
      const Point center{d.store.centerx[3], d.store.centery[3]};
      EXPECT_NEAR(distance({}, start), reach, 2e-4);
      EXPECT_NEAR(distance({}, end), reach, 2e-4);
      EXPECT_NEAR(distance(center, start), 0.25, 2e-4);
      EXPECT_NEAR(distance(center, {}), std::hypot(reach, 0.25), 2e-3) << quarter << " " << opening;
      const double across =
          (center.x - start.x) * (end.y - start.y) - (center.y - start.y) * (end.x - start.x);
      EXPECT_EQ(d.store.segtype[3], across > 0 ? kClockwiseArc : kCounterClockwiseArc)
          << "the shorter way round";
    }
  }
}

// ---- What cannot be rounded

TEST(FilletFaults, LinesThatDoNotMeetAreTold) {
  FilletContext d;
  d.addLine(0, 0, 2, 0);
  d.addLine(0, 1, 2, 1);
  expectNoStep(d, [&d] { d.fillet({1, 0}, {1, 1}); });
  d.expectTold("The 2 line segments must intersect at exactly one point.");
}

TEST(FilletFaults, LinesThatCrossHaveNoCommonEnd) {
  FilletContext d;
  d.addLine(-1, 0, 1, 0);
  d.addLine(0, -1, 0, 1);
  expectNoStep(d, [&d] { d.fillet({0.9F, 0}, {0, 0.9F}); });
  d.expectTold("The 2 line segments must intersect at exactly one point.");
}

TEST(FilletFaults, OneLineTwiceIsTold) {
  Corner d;
  expectNoStep(d, [&d] { d.fillet({2, 0}, {3, 0}); });
  d.expectTold("You must chose 2 different line segments.");
}

TEST(FilletFaults, ALineThatIsAnotherOneByTheSecondClickIsTold) {
  Corner d;
  d.addLine(4, 0, 4, 3);
  mnuAddFillet_Click(d.context);
  d.click(2, 0);
  Change change(d.context.changes);
  change.segments.erase(1);
  change.keep();
  d.store.drawingsaved = true;
  expectNoStep(d, [&d] { d.click(0, 2); });
  d.expectTold("You must chose 2 different line segments.");
}

TEST(FilletFaults, LinesThatGoOnStraightOrLieOnOneAnotherBeep) {
  for (const float x : {-2.0F, 2.0F}) {
    FilletContext d;
    d.addLine(0, 0, 1, 0);
    d.addLine(0, 0, x, 0);
    expectNoStep(d, [&d, x] { d.fillet({0.5F, 0.5F}, {x * 0.9F, 0}); });
    EXPECT_EQ(d.beeps(), 1);
    EXPECT_TRUE(d.messages().empty());
    EXPECT_EQ(d.pending(), 0);
  }
}

TEST(FilletFaults, ALineWithoutLengthTakesPartByItsRule) {
  FilletContext d;
  d.addLine(0, 0, 0, 0);
  d.addLine(0, 0, 2, 0);
  EXPECT_EQ(addFillet(d.context.changes, 1, 2, 0.5F), FilletResult::NoCenter);
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(FilletFaults, AFullTableLeavesBothLines) {
  Corner d;
  while (d.store.NumSegments < 32767) d.addLine(4, 4, 5, 5);
  EXPECT_EQ(testing::numberOfFailure([&d] { d.fillet({2, 0}, {0, 2}); }), FailureNumber::Overflow);
  EXPECT_EQ(segmentTexts(d.store)[0], "1 (0, 0)-(4, 0)");
  EXPECT_EQ(d.context.changelog.changecount, 0);
}

TEST(AddFillet, TellsWhyItDidNot) {
  Corner d;
  d.add({.type = 3, .x0 = 4, .y0 = 0, .x1 = 4, .y1 = 2, .xc = 4, .yc = 1});
  EXPECT_EQ(addFillet(d.context.changes, 1, 2, 0), FilletResult::NoCenter);
  EXPECT_EQ(addFillet(d.context.changes, 1, 2, -0.5F), FilletResult::NoCenter);
  EXPECT_EQ(addFillet(d.context.changes, 0, 1, 0.5F), FilletResult::SameRow);
  EXPECT_EQ(addFillet(d.context.changes, 1, 4, 0.5F), FilletResult::SameRow);
  EXPECT_EQ(addFillet(d.context.changes, 1, 1, 0.5F), FilletResult::SameRow);
  EXPECT_EQ(addFillet(d.context.changes, 1, 3, 0.5F), FilletResult::NotLines);
  EXPECT_EQ(addFillet(d.context.changes, 2, 3, 0.5F), FilletResult::NoCommonEnd);
}

// ---- Path rows

struct PathContext : FilletContext {
  PathContext() { context.command.EditPaths = true; }
  void addMove(Point from, Point to, float z, int code) {
    addPathSegment(store, {.type = kLine,
                           .x0 = from.x,
                           .y0 = from.y,
                           .x1 = to.x,
                           .y1 = to.y,
                           .z = z,
                           .feed = 7,
                           .code = code});
  }
  // Kinds and ends, to four places.
  Texts moves() const {
    Texts texts;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
      PathRow row = pathRow(store, ps);
      for (float* const value : {&row.x0, &row.y0, &row.x1, &row.y1, &row.xc, &row.yc}) {
        *value = std::round(*value * 1e4F) / 1e4F + 0.0F;
      }
      texts.push_back(testing::pathText(row));
    }
    return texts;
  }
};

TEST(PathFillet, KeepsTheSenseOfTheRowsAndComesBetweenThem) {
  for (const bool firstRowFirst : {true, false}) {
    PathContext d;
    d.addMove({4, 0}, {0, 0}, -1, 203);
    d.addMove({0, 0}, {0, 3}, -2, 100);
    const Point along{2, 0}, up{0, 2};
    expectOneStep(d, [&] { d.fillet(firstRowFirst ? along : up, firstRowFirst ? up : along); });
    EXPECT_EQ(d.moves(), (Texts{"1 (4, 0)-(0.5, 0) @203 z -1 f 7",
                                "2 (0.5, 0)-(0, 0.5) c (0.5, 0.5) @203 z -1 f 7",
                                "1 (0, 0.5)-(0, 3) @100 z -2 f 7"}));
  }
}

TEST(PathFillet, OfRowsThatStandTheOtherWayRoundFollowsTheOneThatLeadsIn) {
  PathContext d;
  d.addMove({0, 0}, {0, 3}, -2, 100);
  d.addMove({4, 0}, {0, 0}, -1, 203);
  d.fillet({0, 2}, {2, 0});
  EXPECT_EQ(d.moves(), (Texts{"1 (0, 0.5)-(0, 3) @100 z -2 f 7", "1 (4, 0)-(0.5, 0) @203 z -1 f 7",
                              "2 (0.5, 0)-(0, 0.5) c (0.5, 0.5) @203 z -1 f 7"}));
}

TEST(PathFillet, OfTwoThatStartInOnePointFollowsTheFirst) {
  PathContext d;
  d.addMove({0, 0}, {4, 0}, -1, 203);
  d.addMove({0, 0}, {0, 3}, -2, 100);
  d.fillet({2, 0}, {0, 2});
  EXPECT_EQ(d.moves(), (Texts{"1 (0.5, 0)-(4, 0) @203 z -1 f 7",
                              "2 (0.5, 0)-(0, 0.5) c (0.5, 0.5) @203 z -1 f 7",
                              "1 (0, 0.5)-(0, 3) @100 z -2 f 7"}));
}

}  // namespace
}  // namespace tess
