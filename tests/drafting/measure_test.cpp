// Measure Distance, by dragging.
#include "drafting/measure.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;

constexpr char kPrompt[] = "Click on start-point and drag to end-point.  ";

TEST(Measure, ReportsEndsAndDistanceBehindThePrompt) {
  RecordedDrafting d;
  miMeasureDist_Click(d.context);
  EXPECT_EQ(d.prompt(), kPrompt);
  d.press(1, 0.5F, 0.123456F);
  d.move(1, 3.5F, 4.123456F);
  EXPECT_EQ(d.prompt(), std::string(kPrompt) +
                            "  Start (X=0.5, Y=0.1235),  End (X=3.5, Y=4.1235),  Distance = 5");
}

TEST(Measure, WritesTheSameReportAtTheReleaseAndEnds) {
  RecordedDrafting d;
  miMeasureDist_Click(d.context);
  d.press(1, 0, 0);
  d.move(1, 3, 4);
  const std::string report = d.prompt();
  d.statusLog.clear();
  d.release(1, 3, 4);
  EXPECT_EQ(d.statusLog.front(), report);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.prompt(), "");
}

TEST(Measure, SnapsBothEndsToTheCursorGrid) {
  RecordedDrafting d;
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  miMeasureDist_Click(d.context);
  d.press(1, 0.2F, 0.3F);
  EXPECT_EQ((Point{d.context.pointer.MouseDownX, d.context.pointer.MouseDownY}), (Point{0, 0.5F}));
  d.move(1, 2.1F, 0.6F);
  EXPECT_EQ(d.prompt(),
            std::string(kPrompt) + "  Start (X=0, Y=0.5),  End (X=2, Y=0.5),  Distance = 2");
}

TEST(Measure, TakesFeaturesBeforeTheGrid) {
  RecordedDrafting d;
  d.addLine(0.1F, 0.1F, 2.1F, 0.1F);
  d.store.cursorgrid = 0.5F;
  d.store.cursorgridf = 1;
  OSnap_ButtonClick(d.context);
  miMeasureDist_Click(d.context);
  d.press(1, 0.2F, 0.2F);
  EXPECT_TRUE(d.context.state.FeaturePoint());
  d.move(1, 2.2F, 0.2F);
  EXPECT_EQ(d.prompt(),
            std::string(kPrompt) + "  Start (X=0.1, Y=0.1),  End (X=2.1, Y=0.1),  Distance = 2");
}

TEST(Measure, ShowsALineWithAnArrowheadAndTakesItAway) {
  RecordedDrafting d;
  miMeasureDist_Click(d.context);
  d.press(1, 0, 0);
  d.log.take();
  d.move(1, 2, 0);
  const std::string band =
      "DrawMode 10\n"
      "line (0, 0)-(2, 0) #008080\n"
      "DrawMode 10\n"
      "line (2, 0)-(1.9034, -0.0259) #008080\n"
      "line (2, 0)-(1.9034, 0.0259) #008080\n"
      "DrawMode 13\n"
      "DrawMode 13\n";
  EXPECT_EQ(d.log.take(), band + "focusSurface\n");
  d.move(1, 0, 0);
  EXPECT_EQ(d.log.take(), band + "focusSurface\n");  // without a length there is no band
}

TEST(Measure, CancelledTakesTheBandAway) {
  RecordedDrafting d;
  miMeasureDist_Click(d.context);
  d.press(1, 0, 0);
  d.move(1, 2, 0);
  d.log.take();
  Handle_esc(d.context);
  EXPECT_EQ(d.log.count("line (0, 0)-(2, 0)"), 1);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.prompt(), "");
}

}  // namespace
}  // namespace tess
