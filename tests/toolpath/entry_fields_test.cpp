// The fields of the entry in both dialogs: captions, what enables what, what is stored and what is
// refused.
#include "toolpath/entry_fields.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/failure_of.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/dlgPocketingPrm.h"
#include "toolpath/frmFinishPath.h"

namespace tess {
namespace {

using testing::RecordedCam;

dlgPocketingPrm formOf(RecordedCam& c, dlgPocketingPrm* /*kind*/) {
  return dlgPocketingPrm(c.store);
}
frmFinishPath formOf(RecordedCam& c, frmFinishPath* /*kind*/) {
  return frmFinishPath(c.cam);
}
void press(dlgPocketingPrm& form) {
  form.cmdAccept.press();
}
void press(frmFinishPath& form) {
  form.cmdOK.press();
}

template <typename Kind>
struct EntryInDialog : RecordedCam, ::testing::Test {
  EntryInDialog() { store.cfg_true_paths = true; }
  void open() { form.open(Modality::Modal); }

  Kind form = formOf(*this, static_cast<Kind*>(nullptr));
};

using Dialogs = ::testing::Types<dlgPocketingPrm, frmFinishPath>;
TYPED_TEST_SUITE(EntryInDialog, Dialogs);

TYPED_TEST(EntryInDialog, CaptionsStandAsTheOperatorReadsThem) {
  const auto& shown = this->form;
  EXPECT_EQ(shown.fraEntry.caption(), " Entry into Material ");
  const char* const kinds[] = {"Plunge", "Ramp", "Helix", "Nearest Drilled Hole",
                               "Drilled Hole at Marker"};
  for (int kind = 0; kind < 5; ++kind) EXPECT_EQ(shown.optEntry[kind].caption(), kinds[kind]);
  EXPECT_EQ(shown.lblEntryAngle.caption(), "Ramp Angle :");
  EXPECT_EQ(shown.lblEntryRadius.caption(), "Helix Radius :");
  EXPECT_EQ(shown.lblEntryFeed.caption(), "Entry Feed Rate :");
}

TYPED_TEST(EntryInDialog, WithoutTheKeysNothingIsStored) {
  this->open();
  EXPECT_TRUE(this->form.optEntry[0].value());
  EXPECT_EQ(this->form.txtEntryAngle.text(), "0");
  press(this->form);
  EXPECT_EQ(this->store.cfg_entry_kind, 0);
  EXPECT_EQ(this->store.cfg_entry_angle, 0);
  EXPECT_EQ(this->store.cfg_entry_radius, 0);
  EXPECT_EQ(this->store.cfg_entry_feedrate, 0);
}

TYPED_TEST(EntryInDialog, TheKindEnablesItsNumbersAndBringsAUsualAngle) {
  this->open();
  auto& shown = this->form;
  EXPECT_FALSE(shown.txtEntryAngle.isEnabled());
  EXPECT_FALSE(shown.txtEntryRadius.isEnabled());
  EXPECT_FALSE(shown.txtEntryFeed.isEnabled());
  shown.optEntry[1].setValue(true);
  EXPECT_EQ(shown.txtEntryAngle.text(), "3");
  EXPECT_TRUE(shown.txtEntryAngle.isEnabled());
  EXPECT_FALSE(shown.txtEntryRadius.isEnabled());
  EXPECT_TRUE(shown.txtEntryFeed.isEnabled());
  shown.txtEntryAngle.setText("5");
  shown.optEntry[2].setValue(true);
  EXPECT_EQ(shown.txtEntryAngle.text(), "5");
  EXPECT_TRUE(shown.txtEntryRadius.isEnabled());
  shown.optEntry[4].setValue(true);
  EXPECT_TRUE(shown.txtEntryAngle.isEnabled());
  EXPECT_FALSE(shown.txtEntryRadius.isEnabled());
}

TYPED_TEST(EntryInDialog, IsShownAndStored) {
  this->store.cfg_entry_kind = 3;
  this->store.cfg_entry_angle = 2.5F;
  this->store.cfg_entry_radius = 0.125F;
  this->store.cfg_entry_feedrate = 6;
  this->open();
  auto& shown = this->form;
  EXPECT_TRUE(shown.optEntry[3].value());
  EXPECT_EQ(shown.txtEntryAngle.text(), "2.5");
  EXPECT_EQ(shown.txtEntryRadius.text(), "0.125");
  EXPECT_EQ(shown.txtEntryFeed.text(), "6");
  shown.optEntry[2].setValue(true);
  shown.txtEntryAngle.setText("4");
  shown.txtEntryRadius.setText("0.2");
  shown.txtEntryFeed.setText("0");
  press(shown);
  EXPECT_EQ(this->store.cfg_entry_kind, 2);
  EXPECT_EQ(this->store.cfg_entry_angle, 4);
  EXPECT_EQ(this->store.cfg_entry_radius, 0.2F);
  EXPECT_EQ(this->store.cfg_entry_feedrate, 0);
}

TYPED_TEST(EntryInDialog, AKindThatThereIsNoneOfIsThePlunge) {
  this->store.cfg_entry_kind = 17;
  this->open();
  EXPECT_TRUE(this->form.optEntry[0].value());
}

TYPED_TEST(EntryInDialog, IsForTruePathsAlone) {
  this->store.cfg_true_paths = false;
  this->open();
  EXPECT_FALSE(this->form.fraEntry.isEnabled());
}

TYPED_TEST(EntryInDialog, ATextThatIsNoNumberLeavesAllSettingsAsTheyWere) {
  this->store.cfg_min_rough_clearance = 0.5F;
  this->store.cfg_entry_angle = 2;
  this->open();
  auto& shown = this->form;
  shown.optEntry[1].setValue(true);
  shown.txtminroughclear.setText("0.25");
  shown.txtEntryAngle.setText("7");
  shown.txtEntryFeed.setText("slow");
  EXPECT_EQ(testing::numberOfFailure([&] { press(shown); }), FailureNumber::TypeMismatch);
  EXPECT_EQ(this->store.cfg_min_rough_clearance, 0.5F);
  EXPECT_EQ(this->store.cfg_entry_angle, 2);
  EXPECT_EQ(this->store.cfg_entry_kind, 0);
}

TEST(EntryInPocketingParameters, FollowsTheCheckBoxOfTruePaths) {
  RecordedCam c;
  dlgPocketingPrm form(c.store);
  form.open(Modality::Modal);
  EXPECT_FALSE(form.fraEntry.isEnabled());
  form.chkTruePaths.press();
  EXPECT_TRUE(form.fraEntry.isEnabled());
}

}  // namespace
}  // namespace tess
