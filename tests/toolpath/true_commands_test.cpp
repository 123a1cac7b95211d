// Commands with true paths: messages word for word, one step of undo, what bad parameters and bad
// outlines come to.
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/pocketing_choices.h"
#include "drafting/undo.h"
#include "tests/support/failure_of.h"
#include "tests/toolpath/pocket_job.h"

namespace tess {
namespace {

using namespace tess::testing;

std::vector<SegmentRow> rectangle(float width, float height) {
  return polygonRows({{0, 0}, {width, 0}, {width, height}, {0, height}});
}

struct TrueJob {
  explicit TrueJob(const std::vector<SegmentRow>& outline,
                   PocketingStyle style = PocketingStyle::Horizontal,
                   const std::vector<std::vector<SegmentRow>>& islands = {})
      : pocket(pocketOfRows(outline, islands)), job(pocket, settings(style)) {
    job.messages().clear();
  }
  static JobSettings settings(PocketingStyle style) {
    JobSettings settings;
    settings.style = style;
    settings.truePaths = true;
    return settings;
  }

  void expectRefusal(const std::string& text, const std::string& title = "Rough Cut Pocket") {
    const int group = job.store.currentpathgroup;
    EXPECT_TRUE(job.rough().empty());
    ASSERT_EQ(job.messages().size(), 1U);
    EXPECT_EQ(job.messages()[0].text, text);
    EXPECT_EQ(job.messages()[0].title, title);
    EXPECT_EQ(job.messages()[0].icon, MessageIcon::Warning);
    EXPECT_EQ(job.store.NumPathSegments, 0);
    EXPECT_EQ(job.store.currentpathgroup, group);
    EXPECT_TRUE(job.isVerified());
  }

  TestPocket pocket;
  PocketJob job;
};

constexpr PocketingStyle kStyles[] = {PocketingStyle::Horizontal, PocketingStyle::Vertical,
                                      PocketingStyle::ParallelSpiral};

TEST(TruePathCommands, TellThatTheToolDoesNotFit) {
  for (const PocketingStyle style : kStyles) {
    TrueJob narrow(rectangle(3, 0.45F), style);
    narrow.expectRefusal("The tool does not fit into the pocket.");
    TrueJob tight(rectangle(3, 0.6F), style);
    tight.job.store.cfg_min_rough_clearance = 0.1F;
    tight.expectRefusal("The tool does not fit into the pocket with this roughing clearance.");
    TrueJob wide(rectangle(3, 2), style);
    wide.job.store.cfg_min_rough_clearance = 5;
    wide.expectRefusal("The tool does not fit into the pocket with this roughing clearance.");
  }
}

TEST(TruePathCommands, AskForARadiusAndAStep) {
  for (const PocketingStyle style : kStyles) {
    TrueJob thin(rectangle(3, 2), style);
    thin.job.store.toolradius[0] = 0;
    thin.expectRefusal(
        "The radius of the selected tool is 0.  It must be above 0.\n\nNothing was "
        "placed.");
    TrueJob still(rectangle(3, 2), style);
    still.job.store.cfg_tool_spacing = 0;
    still.expectRefusal(
        "The Step Over Amount is 0.  It must be above 0.\n\nNothing was placed.  It "
        "is set in Pocketing & Profiling Parameters.");
    TrueJob fine(rectangle(3, 2), style);
    fine.job.store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
    fine.job.store.cfg_tool_spacing_distance = 0.00001F;
    fine.expectRefusal(
        "The Step Over Amount is 0.00001.  That is too small for the pocket.\n\n"
        "Nothing was placed.  It is set in Pocketing & Profiling Parameters.");
  }
}

TEST(TruePathCommands, NeverStepFartherThanTheToolIsWide) {
  for (const PocketingStyle style : kStyles) {
    TrueJob job(rectangle(6, 5), style);
    job.job.store.cfg_tool_spacing = 400;
    const std::vector<testing::Curve> path = job.job.rough();
    const Coverage coverage = ReachableArea(job.pocket.part, 0.25, 6).coverageOf(path);
    EXPECT_GE(coverage.share, 0.999);
  }
}

TEST(TruePathCommands, NameTheArcWithTwoRadii) {
  std::vector<SegmentRow> rows = rectangle(4, 3);
  rows[1] = {
      .type = kCounterClockwiseArc, .x0 = 4, .y0 = 0, .x1 = 4, .y1 = 3, .xc = 4, .yc = 1.75F};
  for (const PocketingStyle style : kStyles) {
    TrueJob job(rows, style);
    job.expectRefusal("An arc of the outline has two radii:  X = 4   Y = 0");
  }
}

TEST(TruePathCommands, NameThePlaceWhereAnOutlineWasOpened) {
  for (const PocketingStyle style : kStyles) {
    TrueJob job(rectangle(4, 3), style);
    job.job.store.y1[4] = 0.5F;
    job.job.store.y0[1] = 0;
    job.expectRefusal("Pocket or Island profile discontinuous at:  X = 0   Y = 0.5");
  }
}

TEST(TruePathCommands, SayThatNothingIsSelected) {
  TrueJob lines(rectangle(4, 3));
  for (int sg = 1; sg <= 4; ++sg) lines.job.store.segattr[sg] = kOrdinaryClass;
  EXPECT_TRUE(lines.job.rough().empty());
  ASSERT_EQ(lines.job.messages().size(), 1U);
  EXPECT_EQ(lines.job.messages()[0].text, "No segments selected!");
  TrueJob rings(rectangle(4, 3), PocketingStyle::ParallelSpiral);
  for (int sg = 1; sg <= 4; ++sg) rings.job.store.segattr[sg] = kOrdinaryClass;
  EXPECT_TRUE(rings.job.rough().empty());
  ASSERT_EQ(rings.job.messages().size(), 1U);
  EXPECT_EQ(rings.job.messages()[0].text, "No Pocketing Segments have been selected.");
}

TEST(TruePathCommands, AreOneStepOfUndoAndComeBackExactly) {
  for (const PocketingStyle style : kStyles) {
    TrueJob job(rectangle(4, 3), style, {polygonRows({{1, 1}, {2, 1}, {2, 2}, {1, 2}})});
    DrawingStore& store = job.job.store;
    store.cfg_final_depth = 1;
    store.cfg_z_cut_per_pass = 0.3F;
    store.cfg_connect_pocketing_paths = true;
    const std::vector<std::string> segments = segmentTexts(store);
    job.job.rough();
    const std::vector<std::string> placed = pathTexts(store);
    EXPECT_GT(placed.size(), 20U);
    Undo_Last_Change(job.job.context);
    EXPECT_EQ(store.NumPathSegments, 0);
    EXPECT_EQ(segmentTexts(store), segments);
    RedoLastChange(job.job.context);
    EXPECT_EQ(pathTexts(store), placed);
    job.job.finish();
    const std::vector<std::string> finished = pathTexts(store);
    EXPECT_GT(finished.size(), placed.size());
  }
}

TEST(TruePathCommands, LeaveNothingWhenTheTableIsFull) {
  for (const PocketingStyle style : kStyles) {
    TrueJob job(rectangle(40, 30), style);
    DrawingStore& store = job.job.store;
    store.cfg_cut_width_type = choiceNumber(StepOver::ByDistance);
    store.cfg_tool_spacing_distance = 0.01F;
    store.cfg_final_depth = 1;
    store.cfg_z_cut_per_pass = 0.01F;
    const int group = store.currentpathgroup;
    const RuntimeFailure failure = failureOf([&] { job.job.rough(); });
    EXPECT_EQ(failure.number(), FailureNumber::Overflow);
    EXPECT_EQ(store.NumPathSegments, 0);
    EXPECT_EQ(store.currentpathgroup, group);
    EXPECT_TRUE(job.job.isVerified());
    EXPECT_EQ(store.NumSegments, 4) << "no working rows in the drawing";
  }
}

TEST(TruePathCommands, CutALoopOfThirtyThousandRows) {
  constexpr int kRows = 30000;
  std::vector<Point> corners;
  for (int k = 0; k < kRows; ++k) {
    const double angle = kFullTurn * k / kRows;
    const double radius = 400 + 0.2 * std::cos(500 * angle);
    corners.push_back({static_cast<float>(radius * std::cos(angle)),
                       static_cast<float>(radius * std::sin(angle))});
  }
  const std::vector<SegmentRow> outline = polygonRows(corners);
  for (const PocketingStyle style : kStyles) {
    RecordedCam c;
    c.store.cfg_true_paths = true;
    c.store.cfg_tolerance = 0.0001F;
    c.store.toolradius[0] = 60;
    c.store.cfg_tool_spacing = 100;
    c.store.cfg_pocketing_style = choiceNumber(style);
    for (SegmentRow row : outline) {
      row.attr = kVerifiedRow;
      c.add(row);
    }
    RecordingSurroundings& operators = c.test.recording.surroundings;
    const auto rough = [&] {
      mnuCAMRoughCutPocket_Click(c.cam);
      if (style == PocketingStyle::ParallelSpiral) c.click(400, 0);
    };
    operators.cancelAt = operators.eventsServed + 20;
    rough();
    EXPECT_EQ(c.store.NumPathSegments, 0);
    EXPECT_EQ(c.prompt(), "Cancelled. Nothing was placed.");
    operators.cancelAt = std::numeric_limits<int>::max();
    rough();
    EXPECT_TRUE(c.messages().empty());
    ASSERT_GT(c.store.NumPathSegments, 10);
    for (const testing::Curve& curve : toolPath(c.store)) {
      EXPECT_LE(lengthOf(curve.start), 400.2 - 60 + 1e-3);
    }
  }
}

TEST(TruePathCommands, CutBothLobesOfAnOutlineThatCrossesItself) {
  RecordedCam c;
  c.store.cfg_true_paths = true;
  for (SegmentRow row : polygonRows({{0, 0}, {4, 4}, {4, 0}, {0, 4}})) {
    row.attr = kVerifiedRow;
    c.add(row);
  }
  mnuCAMRoughCutPocket_Click(c.cam);
  EXPECT_TRUE(c.messages().empty());
  int left = 0;
  int right = 0;
  for (const testing::Curve& curve : toolPath(c.store)) (curve.start.x < 2 ? left : right) += 1;
  EXPECT_GT(left, 3);
  EXPECT_EQ(left, right);
}

TEST(TruePathCommands, InsertAndCopyJustWhatTheyPlaced) {
  TrueJob job(rectangle(4, 3));
  DrawingStore& store = job.job.store;
  job.job.addPathLine(10, 10, 11, 10);
  store.cfg_final_depth = 1;
  store.cfg_z_cut_per_pass = 0.5F;
  job.job.cam.pathInsertMode = PathInsertMode::BeforeGroup;
  job.job.cam.pathInsertGroup = 1;
  job.job.finish();
  ASSERT_EQ(store.NumPathSegments, 9);
  EXPECT_EQ(groupRounded(store.pscode[1]), 2);
  EXPECT_EQ(groupRounded(store.pscode[5]), 1);
  for (int ps = 1; ps <= 4; ++ps) {
    EXPECT_EQ(store.psz[ps], -0.5F);
    EXPECT_EQ(store.psz[ps + 5], -1);
    EXPECT_EQ(store.psx0[ps], store.psx0[ps + 5]);
    EXPECT_EQ(store.psy1[ps], store.psy1[ps + 5]);
  }
}

TEST(TruePathCommands, KeepTheCuttingModeAfterTheFinishOnTheWall) {
  TrueJob job(rectangle(4, 3), PocketingStyle::ParallelSpiral);
  job.job.store.cfg_cutting_mode = choiceNumber(CuttingMode::Conventional);
  job.job.store.cfg_auto_place_finish_path = true;
  job.job.store.cfg_min_rough_clearance = 0.05F;
  const std::vector<testing::Curve> path = job.job.rough();
  EXPECT_EQ(job.job.store.cfg_cutting_mode, choiceNumber(CuttingMode::Conventional));
  EXPECT_EQ(job.job.store.toolradius[0], 0.25F);
  EXPECT_NEAR(deepestGouge(job.pocket.part, path, 0.25).depth, 0, 1e-5);
}

TEST(TruePathCommands, GoByTheRowsThatLeaveTheStart) {
  // Seen from the tenth of the way the island is nearer than the circle.
  RecordedCam c;
  c.store.cfg_true_paths = true;
  c.cam.numFinishPasses = 1;
  c.add({.type = kClockwiseArc, .x0 = 3, .y0 = 0, .x1 = 3, .y1 = 0, .xc = 0, .yc = 0});
  for (const SegmentRow& row : polygonRows({{2, -0.5F}, {2.3F, -0.5F}, {2.3F, 0.5F}})) c.add(row);
  mnuCAMPlaceFinishPath_Click(c.cam);
  c.cam.numFinishPasses = 1;
  c.click(3, 0);
  c.click(-3, 0);
  c.click(-2.5F, 0);
  ASSERT_EQ(c.store.NumPathSegments, 2);
  for (const testing::Curve& curve : toolPath(c.store)) EXPECT_NEAR(curve.radius, 2.75, 1e-6);
}

}  // namespace
}  // namespace tess
