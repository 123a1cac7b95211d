// The stream of motions: what it tells of a job, whatever words a program has for it.
#include "cnc/program_motions.h"

#include <algorithm>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_rows.h"
#include "core/drawing_store.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/cnc/recorded_motions.h"
#include "tests/support/failure_of.h"

namespace tess::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ProgramMotionsTest : public CncFixture {
 protected:
  std::vector<MotionEvent> mill() { return motionsOf(store, CncMode::Mill); }
  std::vector<MotionEvent> lathe() { return motionsOf(store, CncMode::Lathe); }

  template <typename Event>
  static std::vector<Event> only(const std::vector<MotionEvent>& events) {
    std::vector<Event> found;
    for (const MotionEvent& event : events) {
      if (const auto* told = std::get_if<Event>(&event)) found.push_back(*told);
    }
    return found;
  }
};

TEST_F(ProgramMotionsTest, WithoutRowsThereIsNoProgram) {
  EXPECT_THAT(mill(), IsEmpty());
  EXPECT_THAT(lathe(), IsEmpty());
}

TEST_F(ProgramMotionsTest, AMillGoesDownToEachRowAndAcrossAtTheSafeHeight) {
  store.toolspindlespeed[0] = 900;
  place(lineRow({1, 2}, {3, 2}, -0.25F, 10));
  place(arcRow(kClockwiseArc, {4, 0}, {5, 1}, {5, 0}, -0.5F, 8));
  EXPECT_THAT(
      mill(),
      ElementsAre(ProgramStart{.isMetric = false}, RowStart{.row = 1, .tool = 1},
                  ToolChange{ToolOccasion::First, 1, 900},
                  RapidMove{{1, 2, 0.5F}, MoveReason::Lift, MovedAxes::Height},
                  RapidMove{{1, 2, 0.5F}, MoveReason::Travel, MovedAxes::Place},
                  PlungeMove{{1, 2, -0.25F}, 3}, FeedMove{{1, 2, -0.25F}, {3, 2, -0.25F}, 10},
                  RowStart{.row = 2, .tool = 1}, RapidMove{{3, 2, 0.5F}, MoveReason::Lift},
                  RapidMove{{4, 0, 0.5F}, MoveReason::Travel}, PlungeMove{{4, 0, -0.5F}, 3},
                  ArcMove{kClockwiseArc, {4, 0, -0.5F}, {5, 1, -0.5F}, 5, 0, 8}, ProgramEnd{}));
}

TEST_F(ProgramMotionsTest, UnitsAreToldAtTheStart) {
  useMetric();
  place(lineRow({1, 2}, {3, 2}, -0.25F, 10));
  EXPECT_EQ(mill().front(), MotionEvent(ProgramStart{.isMetric = true}));
}

TEST_F(ProgramMotionsTest, ARowStartsWhereItIsDrawnThoughTheToolIsOnlyNear) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(lineRow({1.0005F, 0}, {2, 0}, -0.25F, 10));
  EXPECT_THAT(only<FeedMove>(mill()),
              ElementsAre(FeedMove{{0, 0, -0.25F}, {1, 0, -0.25F}, 10},
                          FeedMove{{1.0005F, 0, -0.25F}, {2, 0, -0.25F}, 10}));
}

TEST_F(ProgramMotionsTest, AFreshToolDescendsAtRapidSpeedAndTheFirstComesBack) {
  store.toolspindlespeed[1] = 700;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10), 1);
  place(lineRow({2, 0}, {3, 0}, -0.125F, 10), 2);
  EXPECT_THAT(only<ToolChange>(mill()), ElementsAre(ToolChange{ToolOccasion::First, 1, 0},
                                                    ToolChange{ToolOccasion::Next, 2, 700},
                                                    ToolChange{ToolOccasion::Return, 1, 0}));
  EXPECT_THAT(only<RapidMove>(mill()),
              ElementsAre(RapidMove{{0, 0, 0.5F}, MoveReason::Lift, MovedAxes::Height},
                          RapidMove{{0, 0, 0.5F}, MoveReason::Travel, MovedAxes::Place},
                          RapidMove{{1, 0, 0.5F}, MoveReason::Lift},
                          RapidMove{{2, 0, 0.5F}, MoveReason::Travel},
                          RapidMove{{2, 0, -0.125F}, MoveReason::Descent}));
}

TEST_F(ProgramMotionsTest, RapidsOfRowsAreMarkedAsSuch) {
  place({.type = kRapid, .x0 = 1, .y0 = 1, .x1 = 2, .y1 = 1, .z = -0.25F, .feed = 9});
  EXPECT_EQ(only<RapidMove>(mill()).back(), (RapidMove{{2, 1, -0.25F}, MoveReason::Row}));
}

TEST_F(ProgramMotionsTest, ACycleTellsOnlyWhatItsKindHas) {
  struct Case {
    int kind, number;
    float increment, dwell;
  };
  for (const Case& c :
       {Case{79, 79, 0.125F, 0}, Case{81, 81, 0, 0}, Case{82, 82, 0, 0.5F}, Case{83, 83, 0.125F, 0},
        Case{84, 84, 0.125F, 0.5F}, Case{85, 85, 0, 0.5F}, Case{86, 86, 0.125F, 0.5F},
        Case{87, 87, 0.125F, 0}, Case{88, 88, 0.125F, 0.5F}, Case{89, 89, 0, 0.5F},
        Case{105, 5, 0.125F, 0.5F}}) {
    store.NumPathSegments = 0;
    place(cycleRow(c.kind, {1, 2}, 0.125F, 0.5F, -0.75F, 6));
    const CycleRun expected{c.number, {1, 2, 0.5F}, 0.75F, c.increment, c.dwell, 6};
    EXPECT_THAT(only<CycleRun>(mill()), ElementsAre(expected));
    EXPECT_THAT(only<CycleRun>(lathe()), ElementsAre(expected));
  }
}

TEST_F(ProgramMotionsTest, AMillIsAtTheSafeHeightBeforeACycle) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(cycleRow(81, {2, 2}, 0, 0, -0.75F, 6));
  EXPECT_EQ(only<RapidMove>(mill()).back(),
            (RapidMove{{1, 0, 0.5F}, MoveReason::Lift, MovedAxes::Height}));
}

TEST_F(ProgramMotionsTest, RowsOfOtherKindsAreToldThoughNothingIsDoneForThem) {
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  PathRow other = lineRow({1, 0}, {5, 5}, -0.25F, 10);
  other.type = 4;
  place(other, 3);
  const std::vector<MotionEvent> events = lathe();
  EXPECT_THAT(only<RowStart>(events), ElementsAre(RowStart{1, 1}, RowStart{2, 3}));
  EXPECT_EQ(only<FeedMove>(events).size(), 1U);
}

TEST_F(ProgramMotionsTest, ALatheGoesStraightToEachRow) {
  place(lineRow({1, 1}, {2, 1}, 0, 10));
  place(lineRow({3, 0.5F}, {4, 0.5F}, kLatheRapidZ, 10));
  place(lineRow({4, 0.5F}, {4, 2}, 0, 10));
  EXPECT_THAT(
      lathe(),
      ElementsAre(ProgramStart{}, RowStart{1, 1}, ToolChange{ToolOccasion::First, 1, 0},
                  RapidMove{{1, 1, 0.5F}, MoveReason::Approach}, FeedMove{{1, 1, 0}, {2, 1, 0}, 10},
                  RowStart{2, 1}, RapidMove{{3, 0.5F, 0}, MoveReason::Approach},
                  RapidMove{{4, 0.5F, kLatheRapidZ}, MoveReason::Row}, RowStart{3, 1},
                  RapidMove{{4, 2, 0}, MoveReason::Row}, ProgramEnd{}));
}

// A reader that stops at something says at which row it stood.
TEST_F(ProgramMotionsTest, AFailureOfTheReaderNamesTheRow) {
  class Fastidious : public MotionReader {
    void read(const MotionEvent& event) override {
      if (std::holds_alternative<ArcMove>(event)) throw overflow();
    }
  };
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  place(arcRow(kClockwiseArc, {4, 0}, {5, 1}, {5, 0}, -0.5F, 8));
  Fastidious reader;
  const RuntimeFailure failure = failureOf([&] { tellMotions(store, CncMode::Lathe, reader); });
  EXPECT_EQ(failure.number(), FailureNumber::Overflow);
  EXPECT_EQ(failure.source(), "path row 2");
}

}  // namespace
}  // namespace tess::testing
