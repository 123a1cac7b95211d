// View/Edit Path Segments: what each scope saves, and what is refused.
#include "gtest/gtest.h"

#include "tests/support/edit_checks.h"
#include "tests/support/edit_path_fixture.h"
#include "toolpath/dlgEditPath.h"

namespace tess {
namespace {

using testing::EditPath;
using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using Texts = std::vector<std::string>;

// ---- The scopes

TEST_F(EditPath, TheScopeEnablesTheFields) {
  addRows({100, 100});
  open();
  const auto enabled = [this] {
    return std::vector<bool>{form.lstType.isEnabled(), form.txtPathGroup.isEnabled(),
                             form.txtpsx0.isEnabled(), form.txtpsyc.isEnabled(),
                             form.txtPathGroupName.isEnabled()};
  };
  EXPECT_EQ(enabled(), (std::vector<bool>{true, true, true, true, true}));
  form.optApplyToGroup.setValue(true);
  EXPECT_EQ(enabled(), (std::vector<bool>{false, false, false, false, true}));
  form.optApplyToAll.setValue(true);
  EXPECT_EQ(enabled(), (std::vector<bool>{false, false, false, false, false}));
  EXPECT_TRUE(form.txtpsz.isEnabled());
  EXPECT_TRUE(form.txtpsfeed.isEnabled());
  EXPECT_TRUE(form.txtToolNumber.isEnabled());
  form.optApplyToSegment.setValue(true);
  EXPECT_EQ(enabled(), (std::vector<bool>{true, true, true, true, true}));
}

TEST_F(EditPath, VisibilityIsGreyWhereTheRowsOfTheScopeDisagree) {
  addRows({100, 200, 200});
  hide(3);
  open();
  form.optApplyToGroup.setValue(true);
  EXPECT_EQ(form.chkVisible.value(), 1) << "group 1 agrees";
  goTo(2);
  EXPECT_EQ(form.chkVisible.value(), 2);
  form.optApplyToAll.setValue(true);
  EXPECT_EQ(form.chkVisible.value(), 2);
  form.optApplyToSegment.setValue(true);
  EXPECT_EQ(form.chkVisible.value(), 1);
}

TEST_F(EditPath, AGreyVisibilityLeavesEachRowItsOwn) {
  addRows({100, 100});
  hide(2);
  open();
  form.optApplyToGroup.setValue(true);
  form.txtpsz.setText("-1");
  form.cmdRefresh.press();
  EXPECT_EQ(visible(), (std::vector<bool>{true, false}));
  form.optApplyToAll.setValue(true);
  answer({Answer::Yes});
  form.cmdAccept.press();
  EXPECT_EQ(visible(), (std::vector<bool>{true, false}));
}

TEST_F(EditPath, ChoosingAScopeRefillsNoField) {
  addRows({100, 100});
  open();
  form.txtpsz.setText("-2");
  form.chkVisible.setChecked(false);
  form.optApplyToGroup.setValue(true);
  EXPECT_EQ(form.txtpsz.text(), "-2");
  EXPECT_EQ(form.chkVisible.value(), 0);
  form.cmdAccept.press();
  EXPECT_EQ(column(store.psz), (std::vector<float>{-2, -2}));
  EXPECT_EQ(visible(), (std::vector<bool>{false, false}));
}

// ---- Saving a segment

TEST_F(EditPath, AcceptWithoutAnEditChangesNothing) {
  addRow({.type = kLine, .x0 = 0.123456F, .x1 = 0.12346F, .z = -0.33333F, .code = 30152});
  open();
  expectNoStep(*this, [this] { form.cmdAccept.press(); });
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(store.psx0[1], 0.123456F) << "the stored bits, not the text's";
  EXPECT_EQ(codes(), std::vector{30152}) << "selected still";
}

TEST_F(EditPath, SavesAllFieldsOfARowAsOneStep) {
  addRows({100});
  open();
  form.lstType.setIndex(2);
  form.txtToolNumber.setText("5");
  form.txtPathGroup.setText("3");
  form.txtPathGroupName.setText("Outside");
  form.txtpsx0.setText("2 in");
  form.txtpsy0.setText("1");
  form.txtpsx1.setText("0");
  form.txtpsy1.setText("1");
  form.txtpsxc.setText("1");
  form.txtpsyc.setText("1");
  form.txtpsz.setText("-.75");
  form.txtpsfeed.setText("7.5");
  expectOneStep(*this, [this] { form.cmdAccept.press(); });
  EXPECT_EQ(pathTexts(store), Texts{"3 (2, 1)-(0, 1) c (1, 1) @304 z -0.75 f 7.5"});
  EXPECT_EQ(store.pathgroupname[3], "Outside");
  EXPECT_EQ(store.pathgroupname[1], "Group 1");
  EXPECT_FALSE(form.isShown());
}

TEST_F(EditPath, ApplySavesAndStaysOpen) {
  addRows({100});
  open();
  form.txtpsz.setText("-1.25 or so");
  form.cmdRefresh.press();
  EXPECT_TRUE(form.isShown());
  EXPECT_EQ(store.psz[1], -1.25F);
  EXPECT_EQ(form.txtpsz.text(), "-1.2500");
}

TEST_F(EditPath, ExitSavesNothing) {
  addRows({100});
  open();
  form.txtpsz.setText("-2");
  form.chkInsertBefore.setChecked(true);
  expectNoStep(*this, [this] { form.cmdExit.press(); });
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(cam.pathInsertMode, PathInsertMode::Unset);
  EXPECT_EQ(cam.pathInsertGroup, 0);
}

TEST_F(EditPath, LeavingACoordinateWritesNothing) {
  addRows({100});
  open();
  form.txtpsx0.type("0.5");
  expectNoStep(*this, [this] { form.txtpsy0.focus(); });
}

TEST_F(EditPath, ALineWhoseStartIsItsEndIsRefusedAndAcceptStaysOpen) {
  addRows({100, 100, 100});
  open();
  goTo(3);
  form.txtpsx1.setText(form.txtpsx0.text());
  form.txtpsz.setText("-2");
  expectNoStep(*this, [this] { form.cmdAccept.press(); });
  EXPECT_TRUE(form.isShown());
  const Message shown = message();
  EXPECT_EQ(shown.text, "The Starting Point cannot be the same as the Ending Point. ");
  EXPECT_EQ(shown.title, "Save Path Segment #3");
  EXPECT_EQ(shown.icon, MessageIcon::Information);
  EXPECT_EQ(shown.buttons, MessageButtons::Ok);
  form.cmdPrev.press();
  EXPECT_EQ(form.txtps.text(), "3") << "nor does it go on";
  EXPECT_EQ(cam.pathInsertMode, PathInsertMode::AtEnd) << "stored before the refusal";
}

TEST_F(EditPath, AnArcWithAWrongCenterIsSavedOnlyAfterYes) {
  addArc({1, 0}, {0, -1}, {0, 0});
  open();
  form.txtpsy1.setText("-1.5");
  answer({Answer::No});
  expectNoStep(*this, [this] { form.cmdAccept.press(); });
  EXPECT_TRUE(form.isShown());
  const Message shown = message();
  EXPECT_EQ(shown.text,
            "The Center Point point is not equidistant from the two endpoints.  Do you wish to "
            "save anyway?");
  EXPECT_EQ(shown.title, "Save Path Segment #1");
  EXPECT_EQ(shown.icon, MessageIcon::Question);
  EXPECT_EQ(shown.buttons, MessageButtons::YesNo);
  answer({Answer::Yes});
  form.cmdAccept.press();
  EXPECT_EQ(store.psy1[1], -1.5F);
  EXPECT_FALSE(form.isShown());
}

TEST_F(EditPath, AnArcWhoseEndIsNearerTheCenterIsSavedSilently) {
  addArc({1, 0}, {0, -1}, {0, 0});
  open();
  form.txtpsy1.setText("-0.5");
  form.cmdAccept.press();
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(store.psy1[1], -0.5F);
}

TEST_F(EditPath, ACycleTakesIncrementAndDwellAndKeepsItsType) {
  addCycle(84);
  open();
  form.txtIncrDepth.setText(".25");
  form.txtDwell.setText("2");
  form.cmdAccept.press();
  EXPECT_TRUE(messages().empty()) << "start and end of a cycle are one point";
  EXPECT_EQ(pathTexts(store), Texts{"84 (0, 0)-(0, 0) c (0.25, 2) @100 z -1 f 4"});
}

TEST_F(EditPath, ChoosingATypeKeepsTheCenterFields) {
  addRows({100});
  open();
  form.lstType.pick(1);
  EXPECT_TRUE(form.txtpsxc.isVisible());
  EXPECT_FALSE(form.txtIncrDepth.isVisible());
}

// ---- What does not fit

TEST_F(EditPath, ACodeThatDoesNotFitStaysAndTheRestIsSaved) {
  struct Case {
    const char* tool;
    const char* group;
  };
  constexpr Case kCases[] = {{"0", "1"},    {"101", "1"},         {"-1", "1"},  {"none", "1"},
                             {"1", "300"},  {"1", "-1"},          {"1", "400"}, {"1", "40000"},
                             {"1", "1e12"}, {"99999999999", "1"}, {"101", "2"}};
  addRows({104});
  open();
  float depth = -1;
  for (const Case& row : kCases) {
    form.txtToolNumber.setText(row.tool);
    form.txtPathGroup.setText(row.group);
    form.txtpsz.setText(std::to_string(--depth));
    form.cmdRefresh.press();
    const Message shown = message();
    EXPECT_EQ(shown.text, "Error Saving Path Data:  Overflow") << row.tool << " " << row.group;
    EXPECT_EQ(codes(), std::vector{104}) << row.tool << " " << row.group;
    EXPECT_EQ(store.psz[1], depth);
    EXPECT_EQ(form.txtToolNumber.text(), "5") << "the fields show what is there";
  }
}

TEST_F(EditPath, TheLastToolAndGroupFit) {
  addRows({100});
  open();
  form.txtToolNumber.setText("100");
  form.txtPathGroup.setText("299");
  form.cmdAccept.press();
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(codes(), std::vector{29999});
}

TEST_F(EditPath, ARowNumberThatDoesNotFitIsToldAndNothingIsSaved) {
  addRows({100});
  open();
  form.txtps.setText("99999999999");
  form.txtpsz.setText("-2");
  expectNoStep(*this, [this] {
    bool ok = true;
    form.savePathFields(0, ok);
  });
  EXPECT_EQ(message().text, "Error Saving Path Data:  Overflow");
}

TEST_F(EditPath, ANumberThatIsTooLargeStaysOutAndTheRestIsSaved) {
  addRows({100});
  open();
  form.txtpsx1.setText("1e39");
  form.txtpsz.setText("-2");
  form.cmdRefresh.press();
  EXPECT_EQ(message().text, "Error Saving Path Data:  Overflow");
  EXPECT_EQ(pathTexts(store), Texts{"1 (0, 0)-(1, 0) @100 z -2 f 10"});
}

TEST_F(EditPath, ATextThatIsNoNumberIsZero) {
  addRows({100});
  open();
  form.txtpsz.setText("deep");
  form.txtpsfeed.setText("");
  form.cmdAccept.press();
  EXPECT_EQ(pathTexts(store), Texts{"1 (0, 0)-(1, 0) @100 z 0"});
}

// ---- Saving a group

TEST_F(EditPath, InGroupScopeOnlyTheFeedThatWasChangedIsApplied) {
  addRows({100, 205, 206, 30205});
  {
    Change change(context.changes);
    PathRow row = pathRow(store, 3);
    row.z = -1;
    change.paths.replace(3, row);
    change.keep();
  }
  open();
  goTo(2);
  form.optApplyToGroup.setValue(true);
  form.txtpsfeed.setText("25");
  expectOneStep(*this, [this] { form.cmdRefresh.press(); });
  EXPECT_EQ(column(store.psfeed), (std::vector<float>{10, 25, 25, 25}));
  EXPECT_EQ(column(store.psz), (std::vector<float>{-0.5F, -0.5F, -1, -0.5F}));
  EXPECT_EQ(codes(), (std::vector{100, 205, 206, 30205})) << "each row keeps its tool";
}

TEST_F(EditPath, InGroupScopeToolDepthAndNameGoToAllRowsOfTheGroup) {
  addRows({100, 205, 206});
  open();
  goTo(3);
  form.optApplyToGroup.setValue(true);
  form.txtToolNumber.setText("2");
  form.txtpsz.setText("-3");
  form.txtPathGroupName.setText("Inside");
  form.cmdAccept.press();
  EXPECT_EQ(codes(), (std::vector{100, 201, 201}));
  EXPECT_EQ(column(store.psz), (std::vector<float>{-0.5F, -3, -3}));
  EXPECT_EQ(store.pathgroupname[2], "Inside");
  EXPECT_EQ(store.pathgroupname[1], "Group 1");
}

TEST_F(EditPath, AGroupNumberTypedBeforeTheScopeRenumbersTheGroup) {
  addRows({100, 205, 206});
  open();
  goTo(2);
  form.txtPathGroup.setText("7");
  form.optApplyToGroup.setValue(true);
  form.cmdAccept.press();
  EXPECT_EQ(codes(), (std::vector{100, 705, 706}));
}

TEST_F(EditPath, ANameThatWasNotChangedDoesNotGoAlongToAnotherGroup) {
  addRows({100, 300});
  store.pathgroupname[1] = "Outside";
  store.pathgroupname[3] = "Inside";
  open();
  form.txtPathGroup.setText("3");
  form.cmdRefresh.press();
  EXPECT_EQ(codes(), (std::vector{300, 300}));
  EXPECT_EQ(store.pathgroupname[1], "Outside");
  EXPECT_EQ(store.pathgroupname[3], "Inside");
  EXPECT_EQ(form.txtPathGroupName.text(), "Inside");
}

TEST_F(EditPath, GroupScopeIsTheGroupOfTheRowShown) {
  addRows({100, 200});
  cam.pathInsertGroup = 2;
  open();
  EXPECT_EQ(form.lblCurrGroup.caption(), "2");
  form.optApplyToGroup.setValue(true);
  form.txtpsz.setText("-2");
  form.cmdAccept.press();
  EXPECT_EQ(column(store.psz), (std::vector<float>{-2, -0.5F}));
}

// ---- Saving all

TEST_F(EditPath, AllSegmentsTakeToolDepthAndFeedAfterYes) {
  addRows({100, 205, 306});
  open();
  form.optApplyToAll.setValue(true);
  form.txtToolNumber.setText("4");
  form.txtpsz.setText("-2");
  answer({Answer::Yes});
  expectOneStep(*this, [this] { form.cmdAccept.press(); });
  const Message shown = message();
  EXPECT_EQ(shown.text,
            "Are you sure you want to assign the following values to ALL path segments ?\n"
            "    Tool # = 4\n    ZDepth = -2\n    Feed Rate = 10");
  EXPECT_EQ(shown.title, "All Segments");
  EXPECT_EQ(shown.buttons, MessageButtons::YesNo);
  EXPECT_EQ(codes(), (std::vector{103, 203, 303}));
  EXPECT_EQ(column(store.psz), (std::vector<float>{-2, -2, -2}));
}

TEST_F(EditPath, AllSegmentsWithNoSetsOnlyTheVisibility) {
  addRows({100, 205});
  open();
  form.optApplyToAll.setValue(true);
  form.txtpsz.setText("-2");
  form.chkVisible.setChecked(false);
  answer({Answer::No});
  const Texts before = pathTexts(store);
  form.cmdAccept.press();
  EXPECT_EQ(pathTexts(store), before);
  EXPECT_EQ(visible(), (std::vector<bool>{false, false}));
}

TEST_F(EditPath, AllSegmentsTakeTheRestWhenTheToolDoesNotFit) {
  addRows({104, 205});
  open();
  form.optApplyToAll.setValue(true);
  form.txtToolNumber.setText("101");
  form.txtpsz.setText("-2");
  answer({Answer::Yes});
  form.cmdRefresh.press();
  ASSERT_EQ(messages().size(), 2U) << "the question, and one message for all rows";
  EXPECT_EQ(messages()[1].text, "Error Saving Path Data:  Overflow");
  EXPECT_EQ(codes(), (std::vector{104, 205}));
  EXPECT_EQ(column(store.psz), (std::vector<float>{-2, -2}));
}

TEST_F(EditPath, TheFieldsCanBeSavedIntoAnotherRow) {
  addRows({100, 205});
  open();
  bool ok = true;
  form.savePathFields(2, ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(pathTexts(store)[1], "1 (0, 0)-(1, 0) @100 z -0.5 f 10");
}

TEST_F(EditPath, ARowOutsideTheTableStoresOnlyWhereNewPathsGo) {
  addRows({100});
  open();
  form.chkInsertBefore.setChecked(true);
  form.txtpsz.setText("-2");
  expectNoStep(*this, [this] {
    bool ok = true;
    form.savePathFields(2, ok);
    EXPECT_TRUE(ok);
  });
  EXPECT_EQ(cam.pathInsertMode, PathInsertMode::BeforeGroup);
}

}  // namespace
}  // namespace tess
