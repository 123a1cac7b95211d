// The field of the engagement limit: what enables it, what is stored and what is refused.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/dlgPocketingPrm.h"

namespace tess {
namespace {

struct EngagementField : testing::RecordedCam, ::testing::Test {
  EngagementField() {
    store.cfg_true_paths = true;
    store.cfg_pocketing_style = choiceNumber(PocketingStyle::ParallelSpiral);
  }
  void open() { form.open(Modality::Modal); }

  dlgPocketingPrm form{store};
};

TEST_F(EngagementField, ShowsAndStoresTheLimit) {
  store.cfg_engagement_limit = 40;
  open();
  EXPECT_EQ(form.lblEngagementLimit.caption(), "Engagement Limit :");
  EXPECT_EQ(form.txtEngagementLimit.text(), "40");
  form.txtEngagementLimit.setText("32.5");
  form.cmdAccept.press();
  EXPECT_EQ(store.cfg_engagement_limit, 32.5F);
}

TEST_F(EngagementField, IsForRingsOfTruePathsAlone) {
  open();
  EXPECT_TRUE(form.txtEngagementLimit.isEnabled());
  form.optPocketingStyle[choiceNumber(PocketingStyle::Horizontal)].setValue(true);
  EXPECT_FALSE(form.txtEngagementLimit.isEnabled());
  EXPECT_FALSE(form.lblEngagementLimit.isEnabled());
  form.optPocketingStyle[choiceNumber(PocketingStyle::ParallelSpiral)].setValue(true);
  EXPECT_TRUE(form.txtEngagementLimit.isEnabled());
  form.chkTruePaths.setChecked(false);
  EXPECT_FALSE(form.txtEngagementLimit.isEnabled());
}

TEST_F(EngagementField, ATextThatIsNoNumberIsRefusedAndNothingIsStored) {
  store.cfg_engagement_limit = 40;
  open();
  form.txtEngagementLimit.setText("much");
  form.txtstartdepth.setText("7");
  EXPECT_EQ(testing::numberOfFailure([this] { form.cmdAccept.press(); }),
            FailureNumber::TypeMismatch);
  EXPECT_EQ(store.cfg_engagement_limit, 40);
  EXPECT_NE(store.cfg_start_depth, 7);
}

}  // namespace
}  // namespace tess
