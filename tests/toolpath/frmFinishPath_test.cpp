// Finishing Path Options: what enables what, which field follows which, and what is kept.
#include "toolpath/frmFinishPath.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/recorded_cam.h"

namespace tess {
namespace {

using testing::RecordedCam;

struct FinishPathForm : RecordedCam, ::testing::Test {
  FinishPathForm() {
    store.cfg_min_rough_clearance = 0.05F;
    store.cfg_tool_spacing_distance = 0.25F;
  }
  void SetUp() override { form.open(Modality::Modal); }

  frmFinishPath form{cam};
};

TEST_F(FinishPathForm, ShowsTheSettings) {
  EXPECT_EQ(form.caption(), "Finishing Path Options");
  EXPECT_EQ(form.txtminroughclear.text(), "0.05");
  EXPECT_EQ(form.txtToolSpacingPercent.text(), "50");
  EXPECT_EQ(form.txtToolSpacingDistance.text(), "0.25");
  EXPECT_TRUE(form.OptCutWidth[1].value());
  EXPECT_EQ(form.OptCutWidth[1].caption(), "Percentage :");
  EXPECT_EQ(form.OptCutWidth[2].caption(), "Distance :");
  EXPECT_FALSE(form.chkGougeAvoidance.isChecked());
  EXPECT_FALSE(form.chkConnectPocketPaths.isChecked());
  EXPECT_EQ(form.txtNumPasses.text(), "1");
}

TEST_F(FinishPathForm, TheNumberOfPassesEnablesTheFrames) {
  struct Case {
    const char* text;
    const char* becomes;
    bool roughCuts, stepOver;
  };
  constexpr Case kCases[] = {
      {"1", "1", false, false},   {"2", "2", true, false},     {"3", "3", true, true},
      {"99", "99", true, true},   {"100", "1", false, false},  {"0", "1", false, false},
      {"-3", "1", false, false},  {"many", "1", false, false}, {"", "1", false, false},
      {"2.6", "2.6", true, true}, {"1e12", "1", false, false},
  };
  for (const Case& row : kCases) {
    form.txtNumPasses.setText("5");
    form.txtNumPasses.setText(row.text);
    EXPECT_EQ(form.txtNumPasses.text(), row.becomes) << row.text;
    EXPECT_EQ(form.FraRoughCuts.isEnabled(), row.roughCuts) << row.text;
    EXPECT_EQ(form.FraStepOver.isEnabled(), row.stepOver) << row.text;
  }
}

TEST_F(FinishPathForm, WithAHundredPassesTheFieldIsResetAndTheFramesAreDisabled) {
  form.txtNumPasses.setText("3");
  form.txtNumPasses.setText("100");
  EXPECT_EQ(form.txtNumPasses.text(), "1");
  EXPECT_FALSE(form.FraRoughCuts.isEnabled());
  EXPECT_FALSE(form.FraStepOver.isEnabled());
  form.cmdOK.click();
  EXPECT_EQ(cam.numFinishPasses, 1);
}

TEST_F(FinishPathForm, TheChosenFieldOfTheStepOverIsTheOneToEnter) {
  EXPECT_TRUE(form.txtToolSpacingPercent.isEnabled());
  EXPECT_FALSE(form.txtToolSpacingDistance.isEnabled());
  form.OptCutWidth[2].setValue(true);
  EXPECT_FALSE(form.txtToolSpacingPercent.isEnabled());
  EXPECT_TRUE(form.txtToolSpacingDistance.isEnabled());
  form.OptCutWidth[1].setValue(true);
  EXPECT_TRUE(form.txtToolSpacingPercent.isEnabled());
}

// The tool has a diameter of 0.5.
TEST_F(FinishPathForm, EitherFieldOfTheStepOverFollowsTheOther) {
  form.txtToolSpacingPercent.setText("30");
  EXPECT_EQ(form.txtToolSpacingDistance.text(), "0.15");
  form.txtToolSpacingDistance.setText("0.4");
  EXPECT_EQ(form.txtToolSpacingPercent.text(), "80");
  form.txtToolSpacingDistance.setText("0.1666667");
  EXPECT_EQ(form.txtToolSpacingPercent.text(), "33.33");
  EXPECT_EQ(form.txtToolSpacingDistance.text(), "0.1666667");
  form.txtToolSpacingPercent.setText("33.333");
  EXPECT_EQ(form.txtToolSpacingDistance.text(), "0.1667");
}

TEST_F(FinishPathForm, AToolWithoutRadiusHasNoPercentage) {
  store.toolradius[0] = 0;
  form.txtToolSpacingDistance.setText("0.4");
  EXPECT_EQ(form.txtToolSpacingPercent.text(), "50");
  form.txtToolSpacingPercent.setText("30");
  EXPECT_EQ(form.txtToolSpacingDistance.text(), "0");
}

TEST_F(FinishPathForm, OkStoresEverything) {
  form.txtNumPasses.setText("3");
  form.txtminroughclear.setText("0.125");
  form.OptCutWidth[2].setValue(true);
  form.txtToolSpacingDistance.setText("0.2");
  form.chkGougeAvoidance.setChecked(true);
  form.chkConnectPocketPaths.setChecked(true);
  form.chkWhatIsLeft.setChecked(true);
  form.chkHoldingTabs.setChecked(true);
  form.chkCornerOvercut.setChecked(true);
  form.cmdOK.click();
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(cam.numFinishPasses, 3);
  EXPECT_EQ(store.cfg_min_rough_clearance, 0.125F);
  EXPECT_EQ(store.cfg_cut_width_type, 2);
  EXPECT_EQ(store.cfg_tool_spacing_distance, 0.2F);
  EXPECT_EQ(store.cfg_tool_spacing, 40);
  EXPECT_TRUE(store.cfg_gouge_avoidance);
  EXPECT_TRUE(store.cfg_connect_pocketing_paths);
  EXPECT_TRUE(store.cfg_finish_what_is_left);
  EXPECT_TRUE(store.cfg_holding_tabs);
  EXPECT_EQ(store.cfg_corner_overcut, 1) << "all inside corners";
}

TEST_F(FinishPathForm, CancelKeepsTheSettingsAndMeansOnePass) {
  cam.numFinishPasses = 7;
  form.txtNumPasses.setText("3");
  form.txtminroughclear.setText("0.125");
  form.chkGougeAvoidance.setChecked(true);
  form.cmdCancel.click();
  EXPECT_EQ(cam.numFinishPasses, 1);
  EXPECT_EQ(store.cfg_min_rough_clearance, 0.05F);
  EXPECT_FALSE(store.cfg_gouge_avoidance);
}

TEST_F(FinishPathForm, ClosingTheWindowMeansOnePassToo) {
  cam.numFinishPasses = 7;
  form.close(CloseReason::Operator);
  EXPECT_EQ(cam.numFinishPasses, 1);
}

struct FinishPathFormLoad : RecordedCam, ::testing::Test {};

// Only the true rules know on which side of a wall a path runs, and one row alone is no outline.
TEST_F(FinishPathFormLoad, TabsRestAndOvercutAreForWholeOutlinesByTheTrueRules) {
  for (const bool truePaths : {false, true}) {
    for (const int chain : {0, 1}) {
      store.cfg_true_paths = truePaths;
      cam.PlaceChain = chain;
      frmFinishPath form(cam);
      form.open(Modality::Modal);
      EXPECT_EQ(form.chkHoldingTabs.isEnabled(), truePaths && chain == 1);
      EXPECT_EQ(form.chkCornerOvercut.isEnabled(), truePaths && chain == 1);
      EXPECT_EQ(form.chkWhatIsLeft.isEnabled(), truePaths && chain == 1);
    }
  }
}

// How the corners were chosen last stays as long as the box does.
TEST_F(FinishPathFormLoad, TheOvercutOfPickedCornersStaysSuch) {
  struct Case {
    int before;
    bool shown;
    int kept, cleared;
  };
  constexpr Case kCases[] = {{0, false, 1, 0}, {1, true, 1, 0}, {2, true, 2, 0}, {7, false, 1, 7}};
  for (const Case& row : kCases) {
    for (const bool checked : {true, false}) {
      store.cfg_corner_overcut = static_cast<std::int16_t>(row.before);
      frmFinishPath form(cam);
      form.open(Modality::Modal);
      EXPECT_EQ(form.chkCornerOvercut.isChecked(), row.shown) << row.before;
      form.chkCornerOvercut.setChecked(checked);
      form.cmdOK.click();
      EXPECT_EQ(store.cfg_corner_overcut, checked ? row.kept : row.cleared) << row.before;
    }
  }
}

TEST_F(FinishPathFormLoad, AMissingWidthTypeBecomesThePercentage) {
  store.cfg_cut_width_type = 0;
  frmFinishPath form(cam);
  form.open(Modality::Modal);
  EXPECT_EQ(store.cfg_cut_width_type, 1);
  EXPECT_TRUE(form.OptCutWidth[1].value());
  EXPECT_FALSE(form.txtToolSpacingDistance.isEnabled());
}

TEST_F(FinishPathFormLoad, AWidthByDistanceAndTheBoxesAreShown) {
  store.cfg_cut_width_type = 2;
  store.cfg_gouge_avoidance = true;
  store.cfg_connect_pocketing_paths = true;
  frmFinishPath form(cam);
  form.open(Modality::Modal);
  EXPECT_TRUE(form.OptCutWidth[2].value());
  EXPECT_FALSE(form.txtToolSpacingPercent.isEnabled());
  EXPECT_TRUE(form.txtToolSpacingDistance.isEnabled());
  EXPECT_TRUE(form.chkGougeAvoidance.isChecked());
  EXPECT_TRUE(form.chkConnectPocketPaths.isChecked());
}

}  // namespace
}  // namespace tess
