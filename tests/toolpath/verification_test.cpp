// Verification of pockets and islands.
#include "toolpath/verification.h"

#include <cmath>
#include <utility>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "geometry/row_entity.h"
#include "tests/geometry/scenes.h"
#include "tests/support/outlines.h"
#include "tests/support/pockets.h"
#include "tests/support/recorded_cam.h"
#include "tests/support/silent_surface.h"

namespace tess {
namespace {

using testing::Dice;
using testing::RecordedCam;
using Attributes = std::vector<int>;
using Texts = std::vector<std::string>;

struct Sizes {
  float width = -1, height = -1;
  friend bool operator==(const Sizes&, const Sizes&) = default;
};

Sizes verify(CamContext& cam) {
  const OutlineSize size = verifypocket(cam);
  return {size.width, size.height};
}

Attributes attributesOf(const DrawingStore& store) {
  Attributes attributes;
  for (int sg = 1; sg <= store.NumSegments; ++sg) attributes.push_back(store.segattr[sg]);
  return attributes;
}

void addLine(RecordedCam& c, Point start, Point end, int attr = kSelectedRow) {
  c.add({kLine, attr, start.x, start.y, end.x, end.y});
}

void addArc(RecordedCam& c, int type, Point start, Point end, Point center) {
  c.add({type, kSelectedRow, start.x, start.y, end.x, end.y, center.x, center.y});
}

// Lines from corner to corner and back to the first.
void addLoop(RecordedCam& c, const std::vector<Point>& corners) {
  for (std::size_t k = 0; k < corners.size(); ++k) {
    addLine(c, corners[k], corners[(k + 1) % corners.size()]);
  }
}

const std::vector<Point> kSquare = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};

// The texts of the messages, each checked to be an information box of one button.
Texts messageTexts(RecordedCam& c) {
  Texts texts;
  for (const Message& message : c.messages()) {
    EXPECT_EQ(message.icon, MessageIcon::Information);
    EXPECT_EQ(message.buttons, MessageButtons::Ok);
    EXPECT_EQ(message.title, "Tessimo Mill");
    texts.push_back(message.text);
  }
  return texts;
}

TEST(VerifyPocket, ASingleCircleVerifiesAtOnce) {
  RecordedCam c;
  c.add({kCircle, kSelectedRow, 3, 1, 3, 1, 1, 1});
  c.log.take();
  EXPECT_EQ(verify(c.cam), (Sizes{4, 4}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108}));
  EXPECT_TRUE(c.messages().empty());
  EXPECT_EQ(c.log.count("circle"), 1);
}

TEST(VerifyPocket, AFullCircleArcVerifiesTheSameWay) {
  for (const int type : {kClockwiseArc, kCounterClockwiseArc}) {
    RecordedCam c;
    addArc(c, type, {3, 1}, {3, 1}, {1, 1});
    EXPECT_EQ(verify(c.cam), (Sizes{4, 4})) << type;
    EXPECT_EQ(attributesOf(c.store), (Attributes{30108})) << type;
  }
}

// Ends within the tolerance count as one for the measure too: radius 2 and not the sampled box.
TEST(VerifyPocket, AnAlmostFullCircleIsMeasuredAsOne) {
  RecordedCam c;
  addArc(c, kCounterClockwiseArc, {3, 1}, {3, 0.9995F}, {1, 1});
  EXPECT_EQ(verify(c.cam), (Sizes{4, 4}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108}));
}

// The first half from (2, 0) over (0, 2) is sampled at 45, 90 and 135 degrees; the second half is
// known by its ends, so that the height is that of the first alone.
TEST(VerifyPocket, OfTwoHalfCirclesTheFirstIsSampledAndTheSecondGivesItsEnds) {
  RecordedCam c;
  addArc(c, kCounterClockwiseArc, {2, 0}, {-2, 0}, {0, 0});
  addArc(c, kClockwiseArc, {2, 0}, {-2, 0}, {0, 0});
  EXPECT_EQ(verify(c.cam), (Sizes{4, 2}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108, 30108}));
  EXPECT_TRUE(c.messages().empty());
}

TEST(VerifyPocket, ASquareVerifiesAndEveryRowIsDrawnAgain) {
  RecordedCam c;
  addLoop(c, kSquare);
  addLine(c, {-1, -1}, {-2, -2}, kOrdinaryClass);
  c.log.take();
  EXPECT_EQ(verify(c.cam), (Sizes{4, 4}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108, 30108, 30108, 30108, 8}));
  EXPECT_TRUE(c.messages().empty());
  EXPECT_EQ(c.log.count("line (-1, -1)-(-2, -2)"), 2);  // a line is painted twice
  EXPECT_EQ(c.log.count("line (0, 4)-(0, 0)"), 2);
}

TEST(VerifyPocket, RowsInAnyOrderAndSenseVerify) {
  RecordedCam c;
  addLine(c, {4, 4}, {4, 0});
  addLine(c, {0, 0}, {0, 4});
  addLine(c, {4, 0}, {0, 0});
  addLine(c, {4, 4}, {0, 4});
  verify(c.cam);
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108, 30108, 30108, 30108}));
}

TEST(VerifyPocket, ALineHangingFromACornerIsListed) {
  RecordedCam c;
  addLoop(c, kSquare);
  addLine(c, {4, 4}, {5.5F, 4.25F});
  EXPECT_EQ(verify(c.cam), (Sizes{5.5F, 4.25F}));
  EXPECT_EQ(messageTexts(c),
            (Texts{"Some segments selected are not part of pocket/island profile !\n\n"
                   "Segment #5:  (X, Y) = (4, 4) - (5.5, 4.25)\n"}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30008, 30008, 30008, 30008, 30008}));
}

TEST(VerifyPocket, AllRowsLeftOverAreListed) {
  RecordedCam c;
  addLine(c, {-1, 0.5F}, {-2, 0}, kOrdinaryClass);
  addLoop(c, kSquare);
  addLoop(c, {{1, 1}, {2, 1}, {1, 2}});
  verify(c.cam);
  EXPECT_EQ(messageTexts(c),
            (Texts{"Some segments selected are not part of pocket/island profile !\n\n"
                   "Segment #6:  (X, Y) = (1, 1) - (2, 1)\n"
                   "Segment #7:  (X, Y) = (2, 1) - (1, 2)\n"
                   "Segment #8:  (X, Y) = (1, 2) - (1, 1)\n"}));
}

// With a lower number than the side that goes on it is taken instead, and the chain ends there.
TEST(VerifyPocket, AHangingLineOfLowerNumberOpensTheChain) {
  RecordedCam c;
  addLine(c, {0, 0}, {4, 0});
  addLine(c, {4, 0}, {5, -1});
  addLine(c, {4, 0}, {4, 4});
  addLine(c, {4, 4}, {0, 0});
  verify(c.cam);
  EXPECT_EQ(messageTexts(c), (Texts{"Pocket or Island profile discontinuous at:  X = 5   Y = -1"}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30008, 30008, 30008, 30008}));
}

TEST(VerifyPocket, ACornerGapWithinTheToleranceVerifies) {
  RecordedCam c;
  ASSERT_EQ(c.store.cfg_tolerance, 0.001F);
  addLine(c, {0, 0}, {4, 0});
  addLine(c, {4.0005F, 0}, {4, 4});
  addLine(c, {4, 4.0005F}, {0, 4});
  addLine(c, {0, 4}, {0.0005F, 0.0005F});
  verify(c.cam);
  EXPECT_TRUE(c.messages().empty());
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108, 30108, 30108, 30108}));
}

TEST(VerifyPocket, AWiderGapIsReportedAtTheLooseEnd) {
  RecordedCam c;
  addLine(c, {0, 0}, {4, 0});
  addLine(c, {4, 0}, {4, 4});
  addLine(c, {4, 4}, {0, 4});
  addLine(c, {0, 4}, {0, 0.002F});
  EXPECT_EQ(verify(c.cam), (Sizes{4, 4}));  // measured all the same
  EXPECT_EQ(messageTexts(c),
            (Texts{"Pocket or Island profile discontinuous at:  X = 0   Y = 0.002"}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30008, 30008, 30008, 30008}));
}

// The seed is the lowest row, in the middle of the chain; the walk leaves it by its end.
TEST(VerifyPocket, AnOpenChainIsWalkedInOneDirectionOnly) {
  RecordedCam c;
  addLine(c, {1, 0}, {2, 0});
  addLine(c, {0, 0}, {1, 0});
  addLine(c, {2, 0}, {3, 0});
  addLine(c, {3, 0}, {3.123456F, 1.000004F});
  verify(c.cam);
  EXPECT_EQ(messageTexts(c),
            (Texts{"Pocket or Island profile discontinuous at:  X = 3.12346   Y = 1"}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30008, 30008, 30008, 30008}));
}

TEST(VerifyPocket, NothingSelectedChangesNothing) {
  RecordedCam c;
  addLine(c, {0, 0}, {4, 0}, kOrdinaryClass);
  addLine(c, {4, 0}, {4, 4}, kVerifiedRow);
  addLine(c, {4, 4}, {0, 0}, 30010);
  c.log.take();
  EXPECT_EQ(verify(c.cam), (Sizes{0, 0}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{8, 30108, 30010}));
  EXPECT_TRUE(c.messages().empty());
  EXPECT_TRUE(c.log.lines.empty());
}

TEST(VerifyPocket, OneOpenRowStaysSelectedWithoutAWord) {
  RecordedCam c;
  addLine(c, {0, 1}, {4, -2});
  EXPECT_EQ(verify(c.cam), (Sizes{4, 3}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30008}));
  EXPECT_TRUE(c.messages().empty());
}

// One row of the ordinary class is accepted on its own, whatever else is selected.
TEST(VerifyPocket, ALoneCircleIgnoresSelectedRowsOfOtherClasses) {
  RecordedCam c;
  addLine(c, {0, 0}, {1, 0}, 30010);
  c.add({kCircle, kSelectedRow, 2, 0, 2, 0, 0, 0});
  EXPECT_EQ(verify(c.cam), (Sizes{4, 4}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30010, 30108}));
}

TEST(VerifyPocket, SelectedRowsOfOtherClassesAreLeftOver) {
  RecordedCam c;
  addLine(c, {5, 5}, {6, 6}, 30012);
  addLoop(c, kSquare);
  verify(c.cam);
  EXPECT_EQ(messageTexts(c),
            (Texts{"Some segments selected are not part of pocket/island profile !\n\n"
                   "Segment #1:  (X, Y) = (5, 5) - (6, 6)\n"}));
  EXPECT_EQ(attributesOf(c.store), (Attributes{30012, 30008, 30008, 30008, 30008}));
}

// Only an even attribute tells of a row that was not walked; an odd one becomes verified as well.
TEST(VerifyPocket, ARowOfOddClassPassesForWalked) {
  RecordedCam c;
  addLine(c, {5, 5}, {6, 6}, 30011);
  addLoop(c, kSquare);
  verify(c.cam);
  EXPECT_TRUE(c.messages().empty());
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108, 30108, 30108, 30108, 30108}));
}

TEST(VerifyPocket, VerifiedRowsStayAsTheyAre) {
  RecordedCam c;
  addLoop(c, kSquare);
  verify(c.cam);
  addLoop(c, {{1, 1}, {2, 1}, {1, 2}});
  EXPECT_EQ(verify(c.cam), (Sizes{1, 1}));
  EXPECT_TRUE(c.messages().empty());
  EXPECT_EQ(attributesOf(c.store), Attributes(7, 30108));
}

TEST(VerifyPocket, CopiesAreSweptFirstWhenTheOperatorAgrees) {
  RecordedCam c;
  addLoop(c, kSquare);
  addLine(c, {4, 0}, {0, 0});
  c.test.recording.prompts.answers = {Answer::Yes};
  verify(c.cam);
  ASSERT_EQ(c.messages().size(), 1U);
  EXPECT_EQ(c.messages().front().title, "Duplicate Entities");
  EXPECT_EQ(attributesOf(c.store), (Attributes{30108, 30108, 30108, 30108}));
}

// Back at its start the walk goes on over the copy of the first side.
TEST(VerifyPocket, CopiesThatStaySpoilTheWalk) {
  RecordedCam c;
  addLoop(c, kSquare);
  addLine(c, {4, 0}, {0, 0});
  c.test.recording.prompts.answers = {Answer::No};
  verify(c.cam);
  ASSERT_EQ(c.messages().size(), 2U);
  EXPECT_EQ(c.messages().back().text, "Pocket or Island profile discontinuous at:  X = 0   Y = 0");
  EXPECT_EQ(attributesOf(c.store), (Attributes{30008, 30008, 30008, 30008, 30008}));
}

TEST(VerifyPocket, EveryRowShowsAsSelectedAgainAfterAFailure) {
  RecordedCam c;
  addLoop(c, kSquare);
  addLine(c, {5, 5}, {6, 6});
  c.store.colortable[4] = 12;  // select colour
  c.log.take();
  verify(c.cam);
  ASSERT_EQ(messageTexts(c).size(), 1U);
  for (int sg = 1; sg <= 5; ++sg) {
    EXPECT_TRUE(isSelected(c.store.segattr[sg])) << sg;
    EXPECT_FALSE(isVerified(c.store.segattr[sg])) << sg;
  }
  EXPECT_EQ(c.log.count("line (0, 0)-(4, 0) #FF0000"), 2);
}

// Nobody sees a walked row, not even while the message is up.
TEST(VerifyPocket, TheWalkLeavesNoTraceInTheMessage) {
  RecordedCam c;
  addLoop(c, kSquare);
  addLine(c, {5, 5}, {6, 6});
  Attributes seen;
  c.test.recording.prompts.onMessage = [&] { seen = attributesOf(c.store); };
  verify(c.cam);
  EXPECT_EQ(seen, (Attributes{30008, 30008, 30008, 30008, 30008}));
}

TEST(VerifyAcceptPocket, KeepsTheMeasureAndDisarms) {
  RecordedCam c;
  addLoop(c, {{0, 0}, {4, 0}, {4, 3}, {0, 3}});
  c.context.state.setPendingaction(6);
  mnuCAMVerifyAcceptPocket_Click(c.cam);
  EXPECT_EQ(c.cam.PocketXDim, 4);
  EXPECT_EQ(c.cam.PocketYDim, 3);
  EXPECT_EQ(c.pending(), 0);
}

TEST(VerifyAcceptPocket, WithoutASelectionForgetsTheMeasure) {
  RecordedCam c;
  c.cam.PocketXDim = c.cam.PocketYDim = 7;
  mnuCAMVerifyAcceptPocket_Click(c.cam);
  EXPECT_EQ(c.cam.PocketXDim, 0);
  EXPECT_EQ(c.cam.PocketYDim, 0);
}

TEST(VerifyAcceptIsland, LeavesThePocketsMeasureAndTheArmedAction) {
  RecordedCam c;
  addLoop(c, kSquare);
  mnuCAMVerifyAcceptPocket_Click(c.cam);
  addLoop(c, {{1, 1}, {2, 1}, {1, 2}});
  c.context.state.setPendingaction(6);
  mnuCAMVerifyAcceptIsland_Click(c.cam);
  EXPECT_EQ(attributesOf(c.store), Attributes(7, 30108));
  EXPECT_EQ(c.cam.PocketXDim, 4);
  EXPECT_EQ(c.cam.PocketYDim, 4);
  EXPECT_EQ(c.pending(), 6);
}

// Each is an arc of radius 2 about (0, 0).
TEST(ArcBounds, SamplesTheMiddleAndTheQuartersOfTheSweep) {
  const float half = 1.4142135F;   // 2 cos 45
  const float ninth = 1.8477591F;  // 2 cos 22.5
  const struct {
    const char* name;
    int type;
    Point start, end;
    Box expected;
  } cases[] = {
      {"circle", kCircle, {2, 0}, {2, 0}, {-2, -2, 2, 2}},
      {"closed arc", kClockwiseArc, {0, 2}, {0, 2}, {-2, -2, 2, 2}},
      {"first quadrant", kCounterClockwiseArc, {2, 0}, {0, 2}, {0, 0, 2, 2}},
      {"first quadrant clockwise", kClockwiseArc, {0, 2}, {2, 0}, {0, 0, 2, 2}},
      {"upper half", kCounterClockwiseArc, {2, 0}, {-2, 0}, {-2, 0, 2, 2}},
      {"lower half clockwise", kClockwiseArc, {2, 0}, {-2, 0}, {-2, -2, 2, 0}},
      {"left half", kCounterClockwiseArc, {0, 2}, {0, -2}, {-2, -2, 0, 2}},
      {"a quarter across the left passes 180 degrees at its middle",
       kCounterClockwiseArc,
       {-half, half},
       {-half, -half},
       {-2, -half, -half, half}},
      // 270 degrees from 0 to 270: samples at 67.5, 135 and 202.5 degrees miss the top and the
      // left.
      {"three quarters", kCounterClockwiseArc, {2, 0}, {0, -2}, {-ninth, -2, 2, ninth}},
  };
  for (const auto& c : cases) {
    DrawingStore store;
    AddSeg(store, {c.type, kOrdinaryClass, c.start.x, c.start.y, c.end.x, c.end.y}, nullptr);
    const Box box = arcBounds(store, 1);
    EXPECT_NEAR(box.minX, c.expected.minX, 1e-6) << c.name;
    EXPECT_NEAR(box.minY, c.expected.minY, 1e-6) << c.name;
    EXPECT_NEAR(box.maxX, c.expected.maxX, 1e-6) << c.name;
    EXPECT_NEAR(box.maxY, c.expected.maxY, 1e-6) << c.name;
  }
}

// From 315 to 45 degrees across 0: the middle is 0 as it should be, but a quarter of the plain
// difference of the angles is 67.5 degrees, so that the samples lie beyond the ends.
TEST(ArcBounds, ASweepAcrossZeroIsSampledByThePlainDifference) {
  DrawingStore store;
  const float half = 1.4142135F;
  AddSeg(store, {kCounterClockwiseArc, kOrdinaryClass, half, -half, half, half}, nullptr);
  const Box box = arcBounds(store, 1);
  EXPECT_NEAR(box.minX, 2 * std::cos(67.5 * kPi / 180), 1e-6);
  EXPECT_NEAR(box.maxX, 2, 1e-6);
  EXPECT_NEAR(box.minY, -2 * std::sin(67.5 * kPi / 180), 1e-6);
  EXPECT_NEAR(box.maxY, 2 * std::sin(67.5 * kPi / 180), 1e-6);
}

// ---- The walk over the whole table for each step

// What is said, empty when nothing is.
std::string verifyPlainly(DrawingStore& store) {
  const int rows = store.NumSegments;
  int seed = 1;
  while (seed <= rows && store.segattr[seed] != kSelectedRow) ++seed;
  if (seed > rows) return "";
  const Point start = segmentEntity(store, seed).end;
  Point at = start;
  int current = seed;
  for (bool found = true; found;) {
    found = false;
    for (int sg = 1; sg <= rows && !found; ++sg) {
      if (store.segattr[sg] != kSelectedRow || sg == current) continue;
      const Entity row = segmentEntity(store, sg);
      const bool atStart = samePoint(at, row.start, store.cfg_tolerance);
      if (!atStart && !samePoint(at, row.end, store.cfg_tolerance)) continue;
      at = atStart ? row.end : row.start;
      current = sg;
      ++store.segattr[sg];
      found = true;
    }
  }
  std::string said;
  if (at != start) {
    said = "Pocket or Island profile discontinuous at:  X = " + plainText(roundTo(at.x, 5)) +
           "   Y = " + plainText(roundTo(at.y, 5));
  } else {
    for (int sg = 1; sg <= rows; ++sg) {
      if (store.segattr[sg] <= 30000 || store.segattr[sg] > 30099 || store.segattr[sg] % 2 != 0)
        continue;
      said += "Segment #" + std::to_string(sg) + ":  (X, Y) = (" + plainText(store.x0[sg]) + ", " +
              plainText(store.y0[sg]) + ") - (" + plainText(store.x1[sg]) + ", " +
              plainText(store.y1[sg]) + ")\n";
    }
    if (!said.empty())
      said = "Some segments selected are not part of pocket/island profile !\n\n" + said;
  }
  for (int sg = 1; sg <= rows; ++sg) {
    const int attr = store.segattr[sg];
    if (attr < 30001 || attr > 30099) continue;
    store.segattr[sg] = said.empty() ? 30108 : attr / 2 * 2;
  }
  return said;
}

// Loops of lines over few places with gaps about as wide as the tolerance, in any order and sense;
// sometimes rows of their own that branch off, and rows of other states.
DrawingStore tangledStore(Dice& dice) {
  std::vector<SegmentRow> rows;
  const auto place = [&] {
    return Point{static_cast<float>(dice.below(4)), static_cast<float>(dice.below(4))};
  };
  const auto nudged = [&](float value) {
    constexpr float kGaps[] = {0.0005F, -0.001F, 0.0015F};
    return dice.below(8) == 0 ? value + kGaps[dice.below(3)] : value;
  };
  const auto add = [&](Point a, Point b, int attr) {
    if (dice.below(2) == 0) std::swap(a, b);
    rows.push_back({kLine, attr, nudged(a.x), nudged(a.y), nudged(b.x), nudged(b.y)});
  };
  const int loops = 1 + dice.below(2);
  for (int loop = 0; loop < loops; ++loop) {
    const Point first = place();
    Point at = first;
    for (int sides = 2 + dice.below(6); sides > 0; --sides) {
      const Point next = sides == 1 ? first : place();
      add(at, next, kSelectedRow);
      at = next;
    }
  }
  for (int extra = dice.below(3) - 1; extra > 0; --extra) {
    constexpr int kStates[] = {8, 30108, 30008, 30010, 30011};
    add(place(), place(), kStates[dice.below(5)]);
  }
  for (std::size_t k = rows.size(); k > 1; --k)
    std::swap(rows[k - 1], rows[static_cast<std::size_t>(dice.below(static_cast<int>(k)))]);
  DrawingStore store;
  for (const SegmentRow& row : rows) AddSeg(store, row, nullptr);
  return store;
}

int selectedRows(const DrawingStore& store) {
  const Attributes attributes = attributesOf(store);
  return static_cast<int>(std::count(attributes.begin(), attributes.end(), kSelectedRow));
}

TEST(VerifyPocket, WalksAsTheScanOfTheWholeTableDoes) {
  RecordedCam c;
  int accepted = 0;
  int open = 0;
  int leftOver = 0;
  for (std::uint32_t seed = 1; seed <= 4000; ++seed) {
    Dice dice(seed);
    const float tolerance = dice.below(8) == 0 ? 0 : 0.001F;
    const DrawingStore tangled = tangledStore(dice);
    if (selectedRows(tangled) < 2) continue;
    static_cast<DrawingSettings&>(c.store) = tangled;
    c.store.NumSegments = 0;
    for (int sg = 1; sg <= tangled.NumSegments; ++sg) c.add(segmentRow(tangled, sg));
    c.store.cfg_tolerance = tolerance;
    c.messages().clear();
    c.test.recording.prompts.answers = {Answer::No};  // copies stay
    verify(c.cam);
    const std::string said =
        !c.messages().empty() && c.messages().back().title != "Duplicate Entities"
            ? c.messages().back().text
            : "";
    DrawingStore plain = tangled;
    plain.cfg_tolerance = tolerance;
    EXPECT_EQ(said, verifyPlainly(plain)) << seed;
    EXPECT_EQ(attributesOf(c.store), attributesOf(plain)) << seed;
    accepted += said.empty() ? 1 : 0;
    open += said.starts_with("Pocket or Island") ? 1 : 0;
    leftOver += said.starts_with("Some segments") ? 1 : 0;
  }
  EXPECT_GT(accepted, 200);
  EXPECT_GT(open, 200);
  EXPECT_GT(leftOver, 200);
}

TEST(VerifyPocket, AFullTableVerifies) {
  for (const auto kind : {testing::OutlineKind::Lines, testing::OutlineKind::LinesAndArcs}) {
    testing::SilentDrafting d;
    CamContext cam(d.context);
    testing::addOutline(d.store, testing::wavyStar({.rows = 30000, .kind = kind}), kSelectedRow);
    const Sizes sizes = verify(cam);
    EXPECT_TRUE(d.messages().empty());
    EXPECT_EQ(attributesOf(d.store), Attributes(30000, 30108));
    EXPECT_NEAR(sizes.width, 2 * (testing::starRadius(30000) + 0.5), 0.01);
    EXPECT_NEAR(sizes.height, 2 * (testing::starRadius(30000) + 0.5), 0.1);
  }
}

TEST(VerifyPocket, APocketAndItsIslandsVerifyOneByOne) {
  testing::SilentDrafting d;
  CamContext cam(d.context);
  for (const auto& outline : testing::starWithIslands(1000, testing::OutlineKind::LinesAndArcs)) {
    testing::addOutline(d.store, outline, kSelectedRow);
    verify(cam);
  }
  EXPECT_TRUE(d.messages().empty());
  EXPECT_EQ(attributesOf(d.store), Attributes(1000, 30108));
}

TEST(VerifyPocket, EveryGeneratedPocketAndItsIslandsVerify) {
  int islands = 0;
  for (int number = 0; number < 300; ++number) {
    testing::SilentDrafting d;
    CamContext cam(d.context);
    const testing::TestPocket pocket = testing::pocketOf(number);
    testing::addPocket(d.store, pocket);
    roundall(d.store);
    int first = 1;
    const auto accept = [&](std::size_t rows) {
      const int last = first + static_cast<int>(rows) - 1;
      testing::selectRows(d.store, first, last);
      verify(cam);
      first = last + 1;
    };
    accept(pocket.outline.size());
    for (const auto& island : pocket.islands) accept(island.size());
    islands += static_cast<int>(pocket.islands.size());
    EXPECT_TRUE(d.messages().empty()) << pocket.name;
    EXPECT_EQ(attributesOf(d.store), Attributes(d.store.NumSegments, 30108)) << pocket.name;
  }
  EXPECT_GT(islands, 100);
}

}  // namespace
}  // namespace tess
