// The cutter's way along the path, by slider, buttons and time.
#include "shell/backplot.h"

#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::RunningProgram;

class BackplotTest : public ::testing::Test, public RunningProgram {
 protected:
  BackplotTest() {
    application.backplot.onCutter = [this](const std::optional<CutterPlace>& place) {
      cutter = place;
      ++told;
    };
  }

  void addRows(int count) {
    application.guarded("test", [&] {
      for (int row = 0; row < count; ++row) {
        const auto at = static_cast<float>(row);
        addPathSegment(application.store,
                       {.type = 1, .x0 = at, .x1 = at + 1, .z = -0.1F, .feed = 10, .code = 100});
      }
      context().changes.tellRewritten();
    });
  }
  void openPanel() {
    application.guarded("test", [this] { tools().openBand("barBackplot"); });
  }
  std::string place() { return panel.lblPlace.caption(); }

  class frmBackplot& panel = application.interaction.frmBackplot;
  std::optional<CutterPlace> cutter;
  int told = 0;
};

TEST_F(BackplotTest, NothingIsShownBeforeThePanelIsOpen) {
  addRows(3);
  EXPECT_FALSE(cutter);
  application.clickTool("miBackplot");
  EXPECT_TRUE(cutter);
  application.clickTool("miBackplot");
  EXPECT_FALSE(cutter);
}

TEST_F(BackplotTest, WithoutAPathItSaysSo) {
  openPanel();
  EXPECT_EQ(place(), "No path");
  EXPECT_EQ(panel.lblTime.caption(), "0:00.0 of 0:00.0");
  for (Button* button : {&panel.cmdPlay, &panel.cmdNext, &panel.cmdPrevious, &panel.cmdRow}) {
    button->click();
  }
  pass(1000);
  EXPECT_FALSE(cutter);
}

TEST_F(BackplotTest, TheSliderGoesToAnyMoment) {
  addRows(3);
  openPanel();
  panel.sldTime.slide(frmBackplot::kSteps);
  EXPECT_TRUE(place().starts_with("Row 3 of 3   Z ")) << place();
  panel.sldTime.slide(0);
  EXPECT_TRUE(place().starts_with("Row 1 of 3   Z ")) << place();
}

TEST_F(BackplotTest, ButtonsGoFromRowToRow) {
  addRows(3);
  openPanel();
  panel.cmdNext.click();
  EXPECT_TRUE(place().starts_with("Row 2 of 3")) << place();
  panel.cmdNext.click();
  EXPECT_TRUE(place().starts_with("Row 3 of 3")) << place();
  EXPECT_FLOAT_EQ(cutter->at.x, 2);
  panel.cmdPrevious.click();
  EXPECT_TRUE(place().starts_with("Row 2 of 3")) << place();
  EXPECT_FLOAT_EQ(cutter->at.x, 1);
  panel.cmdNext.click();
  panel.cmdNext.click();
  EXPECT_EQ(panel.sldTime.value(), frmBackplot::kSteps) << "behind the last row is the end";
}

TEST_F(BackplotTest, AFieldTakesTheNumberOfARow) {
  addRows(5);
  openPanel();
  for (const auto& [text, x] :
       std::vector<std::pair<const char*, float>>{{"4", 3}, {"99", 0}, {"-3", 0}, {"x", 0}}) {
    panel.txtRow.setText(text);
    panel.cmdRow.click();
    EXPECT_FLOAT_EQ(cutter->at.x, x) << text;
  }
}

TEST_F(BackplotTest, PlaysToTheEndAndFromTheBeginningAgain) {
  addRows(3);
  openPanel();
  panel.cmdPlay.click();
  EXPECT_EQ(panel.cmdPlay.caption(), "&Pause");
  pass(400);
  const double after = panel.sldTime.value();
  EXPECT_GT(after, 0);
  panel.cmdPlay.click();
  pass(400);
  EXPECT_EQ(panel.sldTime.value(), after) << "it pauses";
  panel.cmdPlay.click();
  pass(60000);
  EXPECT_EQ(panel.sldTime.value(), frmBackplot::kSteps);
  EXPECT_EQ(panel.cmdPlay.caption(), "&Play");
  panel.cmdPlay.click();
  pass(40);
  EXPECT_LT(panel.sldTime.value(), after);
}

TEST_F(BackplotTest, TheSpeedGoesRound) {
  EXPECT_EQ(panel.cmdSpeed.caption(), "&Speed: 10 x");
  panel.cmdSpeed.click();
  EXPECT_EQ(panel.cmdSpeed.caption(), "&Speed: 100 x");
  panel.cmdSpeed.click();
  EXPECT_EQ(panel.cmdSpeed.caption(), "&Speed: 1 x");
}

TEST_F(BackplotTest, ClosingThePanelEndsThePlay) {
  addRows(3);
  openPanel();
  panel.cmdPlay.click();
  application.clickTool("miBackplot");
  const int before = told;
  pass(5000);
  EXPECT_EQ(told, before);
  EXPECT_FALSE(cutter);
}

TEST_F(BackplotTest, AChangedPathIsFollowedAtOnce) {
  addRows(3);
  openPanel();
  panel.sldTime.slide(frmBackplot::kSteps);
  application.clickTool("miNew");
  EXPECT_EQ(place(), "No path");
  EXPECT_FALSE(cutter);
}

TEST_F(BackplotTest, NoLagAtThirtyThousandRows) {
  addRows(30000);
  openPanel();
  for (int moment = 0; moment <= frmBackplot::kSteps; moment += 10) {
    ASSERT_TRUE(panel.sldTime.slide(moment));
  }
  EXPECT_TRUE(place().starts_with("Row 30000 of 30000")) << place();
}

}  // namespace
}  // namespace tess
