// View/Edit Path Segments: what it shows, what each scope saves, and what the buttons do.
#include "toolpath/dlgEditPath.h"

#include "gtest/gtest.h"

#include "tests/support/edit_checks.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/frmPathMap.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

using testing::expectNoStep;
using testing::expectOneStep;
using testing::pathTexts;
using testing::RecordedCam;
using Texts = std::vector<std::string>;

struct EditPath : RecordedCam, ::testing::Test {
  void addRow(const PathRow& row) { addPathSegment(store, row); }
  // A line of length 1 for each code.
  void addRows(const std::vector<int>& codes) {
    for (const int code : codes) {
      const auto at = static_cast<float>(store.NumPathSegments);
      addRow({.type = kLine, .x0 = at, .x1 = at + 1, .z = -0.5F, .feed = 10, .code = code});
    }
  }
  void addArc(Point start, Point end, Point center) {
    addRow({.type = kClockwiseArc,
            .x0 = start.x,
            .y0 = start.y,
            .x1 = end.x,
            .y1 = end.y,
            .xc = center.x,
            .yc = center.y,
            .code = 100});
  }
  void addCycle(int type) {
    addRow({.type = type, .xc = 0.125F, .yc = 1.5F, .z = -1, .feed = 4, .code = 100});
  }
  void open() {
    store.drawingsaved = true;
    form.open(Modality::Modal);
  }
  void goTo(int row) {
    form.txtps.setText(std::to_string(row));
    form.txtps.onLeave();
  }
  void answer(std::deque<Answer> answers) { test.recording.prompts.answers = std::move(answers); }
  // The only message since the last call.
  Message message() {
    if (messages().size() != 1)
      return {.text = std::to_string(messages().size()) + " messages", .title = {}};
    Message shown = messages().front();
    messages().clear();
    return shown;
  }
  std::vector<float> column(const Column<float>& values) const {
    return {values.rows().begin() + 1, values.rows().begin() + 1 + store.NumPathSegments};
  }
  std::vector<int> codes() const {
    std::vector<int> codes;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) codes.push_back(store.pscode[ps]);
    return codes;
  }
  std::vector<bool> visible() const {
    std::vector<bool> rows;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) rows.push_back(store.psvisible[ps]);
    return rows;
  }
  void hide(int ps) {
    Change change(context.changes);
    change.paths.show(ps, false);
    change.keep();
  }

  dlgEditPath form{cam};
};

// ---- The command

TEST_F(EditPath, WithoutRowsThereIsNothingToEdit) {
  kEditPathCommand.run(cam);
  EXPECT_EQ(message().text, "No Path Segments To Edit");
  EXPECT_EQ(test.recording.prompts.modalForms, 0);
}

TEST_F(EditPath, TheCommandShowsTheDialog) {
  addRows({100});
  kEditPathCommand.run(cam);
  EXPECT_EQ(test.recording.prompts.formNames, Texts{"dlgEditPath"});
}

// ---- Showing

TEST_F(EditPath, HasItsCaptions) {
  EXPECT_EQ(form.lblTotalSegments.caption(), "Total # of Segments : 0");
  addRows({100});
  open();
  EXPECT_EQ(form.caption(), "View/Edit Path Segments");
  EXPECT_EQ(form.lblTotalSegments.caption(), "Total Segments : 1");
  EXPECT_EQ(form.lstType.items(), (Texts{"1 - Line", "2 - CW Arc", "3 - CCW Arc"}));
  EXPECT_EQ(form.fraCoordinates.caption(), " Coordinates: ");
  EXPECT_EQ(form.lblCenterPoint.caption(), "Center Point :");
  EXPECT_EQ(form.lblIncrDepth.caption(), "Incr Depth :");
  EXPECT_EQ(form.lblDwell.caption(), "Dwell :");
  EXPECT_EQ(form.chkVisible.caption(), "Path Segment(s) Visible ?");
  EXPECT_EQ(form.fraApplyTo.caption(), " Apply Changes To : ");
  EXPECT_EQ(form.optApplyToAll.caption(), "All Segments");
  EXPECT_EQ(form.optApplyToGroup.caption(), "Path Group");
  EXPECT_EQ(form.optApplyToSegment.caption(), "Path Segment");
  EXPECT_EQ(form.fraInsert.caption(), " Insert New Paths : ");
  EXPECT_EQ(form.chkInsertBefore.caption(), "Before Current Group");
  EXPECT_EQ(form.chkInsertAfter.caption(), "After Current Group");
  EXPECT_EQ(form.chkInsertAtEnd.caption(), "After All Groups");
  EXPECT_EQ(form.cmdSetGroup.caption(), "Set Current Group");
  EXPECT_EQ(form.cmdDel.caption(), "&Delete Segment");
  EXPECT_EQ(form.cmdDeletePathGroup.caption(), "Delete  Path &Group");
  EXPECT_EQ(form.cmdOrderPaths.caption(), "&Order Paths");
  EXPECT_EQ(form.cmdRefresh.caption(), "&Apply");
  EXPECT_EQ(form.cmdAccept.caption(), "A&ccept");
}

TEST_F(EditPath, ShowsARow) {
  addRow({.type = kClockwiseArc,
          .x0 = 1,
          .y0 = 2,
          .x1 = 3,
          .y1 = 2,
          .xc = 2,
          .yc = 1.5F,
          .z = -0.25F,
          .feed = 12.5F,
          .code = 304});
  store.pathgroupname[3] = "Outside";
  open();
  EXPECT_EQ(form.txtps.text(), "1");
  EXPECT_EQ(form.lstType.text(), "2 - CW Arc");
  EXPECT_TRUE(form.lstType.isEnabled());
  EXPECT_EQ(form.txtToolNumber.text(), "5");
  EXPECT_EQ(form.txtPathGroup.text(), "3");
  EXPECT_EQ(form.txtPathGroupName.text(), "Outside");
  EXPECT_EQ(form.txtpsx0.text(), "1.0000");
  EXPECT_EQ(form.txtpsy0.text(), "2.0000");
  EXPECT_EQ(form.txtpsx1.text(), "3.0000");
  EXPECT_EQ(form.txtpsy1.text(), "2.0000");
  EXPECT_EQ(form.txtpsxc.text(), "2.0000");
  EXPECT_EQ(form.txtpsyc.text(), "1.5000");
  EXPECT_EQ(form.txtpsz.text(), "-0.2500");
  EXPECT_EQ(form.txtpsfeed.text(), "12.5");
  EXPECT_TRUE(form.chkVisible.isChecked());
  EXPECT_TRUE(form.optApplyToSegment.value());
  EXPECT_TRUE(form.txtpsxc.isVisible());
  EXPECT_FALSE(form.txtIncrDepth.isVisible());
  EXPECT_FALSE(form.cmdPrev.isEnabled());
  EXPECT_FALSE(form.cmdNext.isEnabled());
}

TEST_F(EditPath, ToolNumber1ShowsToolIndex0) {
  addRows({300});
  open();
  EXPECT_EQ(form.txtToolNumber.text(), "1");
  form.txtToolNumber.setText("2");
  form.cmdRefresh.press();
  form.txtToolNumber.setText("1");
  form.cmdAccept.press();
  EXPECT_EQ(codes(), std::vector{300});
}

TEST_F(EditPath, CutsOffTheGroupOfATool52) {
  addRows({152, 30152});
  open();
  EXPECT_EQ(form.txtPathGroup.text(), "1");
  EXPECT_EQ(form.txtToolNumber.text(), "53");
  goTo(2);
  EXPECT_EQ(form.txtPathGroup.text(), "1");
  EXPECT_EQ(form.txtToolNumber.text(), "53");
}

TEST_F(EditPath, FillsInABlankNameOfAGroup) {
  addRows({20000});
  open();
  EXPECT_EQ(form.txtPathGroupName.text(), "Group 200");
  EXPECT_EQ(store.pathgroupname.upperBound(), 210);
  EXPECT_EQ(store.pathgroupname[200], "Group 200");
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(EditPath, ShowsACycleWithIncrementAndDwell) {
  addCycle(83);
  addRows({100});
  open();
  EXPECT_EQ(form.lstType.items(),
            (Texts{"1 - Line", "2 - CW Arc", "3 - CCW Arc", "8 - Machine Cycle"}));
  EXPECT_EQ(form.lstType.text(), "8 - Machine Cycle");
  EXPECT_FALSE(form.lstType.isEnabled());
  EXPECT_EQ(form.lblCycleCode.caption(), "Cycle Code : G83");
  EXPECT_TRUE(form.lblCycleCode.isVisible());
  EXPECT_FALSE(form.txtpsxc.isVisible());
  EXPECT_FALSE(form.txtpsyc.isVisible());
  EXPECT_EQ(form.txtIncrDepth.text(), "0.1250");
  EXPECT_EQ(form.txtDwell.text(), "1.5");
  goTo(2);
  EXPECT_EQ(form.lstType.count(), 3) << "the entry is there only while a cycle is shown";
  EXPECT_TRUE(form.txtpsxc.isVisible());
  EXPECT_FALSE(form.txtDwell.isVisible());
}

TEST_F(EditPath, EnablesWhatTheCycleUses) {
  struct Case {
    int type;
    bool increment, dwell;
  };
  constexpr Case kCases[] = {{79, true, false}, {81, false, false}, {82, false, true},
                             {83, true, false}, {84, true, true},   {85, false, true},
                             {87, true, false}, {89, false, true}};
  for (const Case& row : kCases) addCycle(row.type);
  open();
  int ps = 0;
  for (const Case& row : kCases) {
    goTo(++ps);
    EXPECT_EQ(form.txtIncrDepth.isEnabled(), row.increment) << row.type;
    EXPECT_EQ(form.txtDwell.isEnabled(), row.dwell) << row.type;
  }
}

TEST_F(EditPath, ARowOfATypeOutsideTheListKeepsIt) {
  for (const int type : {0, 4, 21, 78}) {
    addRow({.type = type, .x0 = 1, .x1 = 2, .code = 100});
  }
  open();
  for (int ps = 1; ps <= 4; ++ps) {
    goTo(ps);
    EXPECT_EQ(form.lstType.index(), -1);
    EXPECT_TRUE(form.lstType.isEnabled());
    const int type = store.pstype[ps];
    form.txtpsz.setText("-2");
    form.cmdRefresh.press();
    EXPECT_EQ(store.pstype[ps], type);
    EXPECT_EQ(store.psz[ps], -2);
  }
}

TEST_F(EditPath, AFieldThatGetsTheFocusSelectsItsText) {
  addRows({100});
  open();
  for (TextBox* const box : {&form.txtpsz, &form.txtpsx0, &form.txtps, &form.txtToolNumber}) {
    box->focus();
    EXPECT_TRUE(box->isAllSelected()) << box->name();
  }
}

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

// ---- Going from row to row

TEST_F(EditPath, NextAndPreviousSaveTheSegment) {
  addRows({100, 100, 100});
  open();
  EXPECT_TRUE(form.cmdNext.isEnabled());
  form.txtpsz.setText("-2");
  form.cmdNext.press();
  EXPECT_EQ(form.txtps.text(), "2");
  EXPECT_EQ(store.psz[1], -2);
  EXPECT_TRUE(form.cmdPrev.isEnabled());
  form.cmdNext.press();
  EXPECT_FALSE(form.cmdNext.isEnabled());
  form.txtpsz.setText("-3");
  form.cmdPrev.press();
  EXPECT_EQ(form.txtps.text(), "2");
  EXPECT_EQ(store.psz[3], -3);
}

TEST_F(EditPath, InGroupScopeNextGoesToTheFirstRowOfTheNeighbour) {
  addRows({300, 300, 100, 100, 300});
  open();
  form.optApplyToGroup.setValue(true);
  form.txtpsz.setText("-2");
  form.cmdNext.press();
  EXPECT_EQ(form.txtps.text(), "3");
  EXPECT_EQ(store.psz[1], -0.5F) << "nothing is saved";
  goTo(4);
  form.cmdNext.press();
  EXPECT_EQ(form.txtps.text(), "5");
  form.cmdPrev.press();
  EXPECT_EQ(form.txtps.text(), "3");
  form.cmdPrev.press();
  EXPECT_EQ(form.txtps.text(), "1");
}

TEST_F(EditPath, InGroupScopeTheEndsAreTold) {
  addRows({100, 100});
  open();
  form.optApplyToGroup.setValue(true);
  form.cmdNext.press();
  EXPECT_EQ(message().text, "There are no subsequent Path Groups.");
  goTo(2);
  form.cmdPrev.press();
  EXPECT_EQ(message().text, "There are no previous Path Groups.");
  EXPECT_EQ(form.txtps.text(), "2");
}

TEST_F(EditPath, InAllScopeNextSavesNothing) {
  addRows({100, 100});
  open();
  form.optApplyToAll.setValue(true);
  form.txtpsz.setText("-2");
  expectNoStep(*this, [this] { form.cmdNext.press(); });
  EXPECT_EQ(form.txtps.text(), "2");
  EXPECT_TRUE(messages().empty());
}

TEST_F(EditPath, TypingARowNumberGoesThere) {
  addRows({100, 200, 300});
  open();
  form.txtps.type("3");
  form.txtpsz.focus();
  EXPECT_EQ(form.txtPathGroup.text(), "3");
}

TEST_F(EditPath, LeavingTheRowNumberAsItIsKeepsTheEdits) {
  addRows({100, 200});
  open();
  form.txtpsz.setText("-2");
  goTo(1);
  EXPECT_EQ(form.txtpsz.text(), "-2");
  goTo(2);
  goTo(1);
  EXPECT_EQ(form.txtpsz.text(), "-0.5000") << "another row drops them";
}

TEST_F(EditPath, ARowNumberOutOfRangePutsTheOldOneBack) {
  addRows({100, 200});
  open();
  for (const char* const text : {"0", "3", "-1", "none", "", "40000", "1e99"}) {
    form.txtps.setText(text);
    form.txtps.onLeave();
    EXPECT_EQ(form.txtps.text(), "1") << text;
  }
  EXPECT_TRUE(messages().empty());
}

// ---- Inserting and deleting

TEST_F(EditPath, InsertsARowThatIsRefusedUntilItHasCoordinates) {
  addRows({100, 30206, 300});
  open();
  goTo(2);
  store.currentpathgroup = 9;
  expectOneStep(*this, [this] { form.cmdIns.press(); });
  EXPECT_EQ(pathTexts(store)[1], "1 (0, 0)-(0, 0) @206 z -0.5 f 10");
  EXPECT_EQ(pathTexts(store)[2], "1 (1, 0)-(2, 0) @30206 z -0.5 f 10");
  EXPECT_EQ(store.currentpathgroup, 2);
  EXPECT_EQ(store.lastplacedgroup, 2);
  EXPECT_EQ(form.txtps.text(), "2");
  EXPECT_EQ(form.lblTotalSegments.caption(), "Total Segments : 4");
  form.cmdAccept.press();
  EXPECT_EQ(message().text, "The Starting Point cannot be the same as the Ending Point. ");
  EXPECT_TRUE(form.isShown());
  form.txtpsx1.setText("1");
  form.cmdAccept.press();
  EXPECT_FALSE(form.isShown());
  EXPECT_TRUE(messages().empty());
}

TEST_F(EditPath, InsertingSavesTheRowFirst) {
  addRows({100});
  open();
  form.txtpsz.setText("-2");
  form.cmdIns.press();
  EXPECT_EQ(column(store.psz), (std::vector<float>{-2, -2}));
  form.txtpsx1.setText("0");
  form.cmdIns.press();
  EXPECT_EQ(store.NumPathSegments, 2) << "a row that is refused lets none come";
}

TEST_F(EditPath, AnInsertedRowThatStillLiesAtTheOriginIsPointedOut) {
  addRows({100, 100});
  open();
  goTo(2);
  form.cmdIns.press();
  form.cmdExit.press();
  EXPECT_EQ(message().text,
            "Path segment #2 still lies at 0, 0: a program would send the tool there.");
  EXPECT_FALSE(form.isShown());
  form.open(Modality::Modal);
  form.cmdExit.press();
  EXPECT_TRUE(messages().empty()) << "it was not inserted this time";
}

TEST_F(EditPath, DeletesTheRowWithoutAQuestion) {
  addRows({100, 200, 300});
  open();
  goTo(2);
  expectOneStep(*this, [this] { form.cmdDel.press(); });
  EXPECT_EQ(codes(), (std::vector{100, 300}));
  EXPECT_EQ(form.txtps.text(), "2");
  EXPECT_EQ(form.txtPathGroup.text(), "3");
  EXPECT_TRUE(messages().empty());
}

TEST_F(EditPath, DeletingTheLastRowClosesTheDialog) {
  addRows({100, 200});
  open();
  goTo(2);
  form.cmdDel.press();
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(codes(), std::vector{100});
}

TEST_F(EditPath, DeletesAGroupAfterOk) {
  addRows({100, 252, 100, 30252});
  open();
  goTo(2);
  answer({Answer::Cancel});
  expectNoStep(*this, [this] { form.cmdDeletePathGroup.press(); });
  const Message shown = message();
  EXPECT_EQ(shown.text, "Are you sure you want to delete all the segments in Path Group #2?");
  EXPECT_EQ(shown.title, "Delete Path Group");
  EXPECT_EQ(shown.icon, MessageIcon::Question);
  EXPECT_EQ(shown.buttons, MessageButtons::OkCancel);
  answer({Answer::Ok});
  expectOneStep(*this, [this] { form.cmdDeletePathGroup.press(); });
  EXPECT_EQ(codes(), (std::vector{100, 100}));
  EXPECT_EQ(form.txtps.text(), "1");
}

TEST_F(EditPath, DeletingTheOnlyGroupClosesTheDialog) {
  addRows({100, 100});
  open();
  answer({Answer::Ok});
  form.cmdDeletePathGroup.press();
  EXPECT_EQ(store.NumPathSegments, 0);
  EXPECT_FALSE(form.isShown());
}

// ---- Where new paths go

TEST_F(EditPath, OpensWithTheGroupOfTheLastRowAndAfterAllGroups) {
  addRows({100, 352});
  open();
  EXPECT_EQ(form.lblCurrGroup.caption(), "3");
  EXPECT_FALSE(form.chkInsertBefore.isChecked());
  EXPECT_FALSE(form.chkInsertAfter.isChecked());
  EXPECT_TRUE(form.chkInsertAtEnd.isChecked());
}

TEST_F(EditPath, OpensWithTheModeAndGroupOfBefore) {
  addRows({100, 300});
  cam.pathInsertGroup = 1;
  cam.pathInsertMode = PathInsertMode::BeforeGroup;
  open();
  EXPECT_EQ(form.lblCurrGroup.caption(), "1");
  EXPECT_TRUE(form.chkInsertBefore.isChecked());
  form.cmdExit.press();
  cam.pathInsertMode = PathInsertMode::AfterGroup;
  form.open(Modality::Modal);
  EXPECT_TRUE(form.chkInsertAfter.isChecked());
  EXPECT_FALSE(form.chkInsertBefore.isChecked());
}

TEST_F(EditPath, TheInsertionBoxesAreExclusiveAndAllClearedIsTheEnd) {
  addRows({100});
  open();
  form.chkInsertBefore.setChecked(true);
  EXPECT_FALSE(form.chkInsertAtEnd.isChecked());
  form.chkInsertAfter.setChecked(true);
  EXPECT_FALSE(form.chkInsertBefore.isChecked());
  form.cmdRefresh.press();
  EXPECT_EQ(cam.pathInsertMode, PathInsertMode::AfterGroup);
  EXPECT_EQ(cam.pathInsertGroup, 1);
  form.chkInsertAfter.setChecked(false);
  form.cmdAccept.press();
  EXPECT_EQ(cam.pathInsertMode, PathInsertMode::AtEnd);
}

TEST_F(EditPath, SetsTheCurrentGroup) {
  addRows({100, 200, 300});
  open();
  goTo(2);
  form.cmdSetGroup.press();
  EXPECT_EQ(form.lblCurrGroup.caption(), "2");
  form.txtPathGroup.setText("  ");
  form.cmdSetGroup.press();
  EXPECT_EQ(form.lblCurrGroup.caption(), "2");
  goTo(1);
  goTo(2);
  form.chkInsertBefore.setChecked(true);
  form.cmdAccept.press();
  EXPECT_EQ(cam.pathInsertGroup, 2);
  EXPECT_EQ(pathInsertIndex(store, cam.pathInsertMode, cam.pathInsertGroup), 2);
}

TEST_F(EditPath, ACurrentGroupThatDoesNotFitIsTold) {
  addRows({100});
  open();
  form.txtPathGroup.setText("40000");
  form.cmdSetGroup.press();
  EXPECT_EQ(message().text, "Error Saving Path Data:  Overflow");
  EXPECT_EQ(form.lblCurrGroup.caption(), "1");
}

// ---- The list of all rows

TEST_F(EditPath, ListsAllRowsUnderTheirHeadings) {
  addRows({100, 304});
  open();
  EXPECT_EQ(form.lstRows.caption(), "#\tGroup\tTool\tType\tEnd X\tEnd Y\tZ\tFeed");
  EXPECT_EQ(form.lstRows.items(), (Texts{"1\t1\t1\tLine\t1.0000\t0.0000\t-0.5000\t10",
                                         "2\t3\t5\tLine\t2.0000\t0.0000\t-0.5000\t10"}));
  EXPECT_EQ(form.lstRows.index(), 0);
}

TEST_F(EditPath, TheListFollowsTheRowAndTheRowTheList) {
  addRows({100, 200, 300});
  open();
  form.cmdNext.press();
  EXPECT_EQ(form.lstRows.index(), 1);
  EXPECT_TRUE(form.lstRows.pick(2));
  EXPECT_EQ(form.txtps.text(), "3");
  EXPECT_EQ(form.txtPathGroup.text(), "3");
  form.txtpsz.setText("-2");
  EXPECT_TRUE(form.lstRows.pick(2));
  EXPECT_EQ(form.txtpsz.text(), "-2") << "the row shown drops no edits";
  form.lstRows.setIndex(-1);
  EXPECT_EQ(form.txtps.text(), "3");
  form.lstRows.setIndex(0);
  EXPECT_EQ(form.txtps.text(), "1");
  EXPECT_EQ(store.psz[3], -0.5F) << "another row drops them";
}

TEST_F(EditPath, TheListShowsWhatWasSavedInsertedAndDeleted) {
  addRows({100, 200});
  open();
  form.txtpsz.setText("-2");
  form.cmdRefresh.press();
  EXPECT_EQ(form.lstRows.item(0), "1\t1\t1\tLine\t1.0000\t0.0000\t-2.0000\t10");
  form.cmdIns.press();
  EXPECT_EQ(form.lstRows.count(), 3);
  EXPECT_EQ(form.lstRows.text(), "1\t1\t1\tLine\t0.0000\t0.0000\t-2.0000\t10");
  form.cmdDel.press();
  EXPECT_EQ(form.lstRows.count(), 2);
  EXPECT_EQ(form.lstRows.index(), 0);
}

TEST_F(EditPath, ARowThatWentBehindItsBackIsAnEmptyLine) {
  addRows({100, 200});
  open();
  store.NumPathSegments = 1;
  EXPECT_EQ(form.lstRows.item(1), "");
  EXPECT_TRUE(form.lstRows.pick(1));
  EXPECT_EQ(form.txtps.text(), "1") << "and leads nowhere";
}

TEST_F(EditPath, ItemsThatAScriptHasPutThereDoNoHarm) {
  addRows({100, 200, 300});
  open();
  form.lstRows.setItems({"one"});
  form.cmdNext.press();
  EXPECT_EQ(form.txtps.text(), "2");
  form.lstRows.setItems({"1", "2", "3", "4"});
  form.lstRows.setIndex(3);
  EXPECT_EQ(form.txtps.text(), "2");
  form.cmbFind.setItems({"1", "2", "3", "4", "5"});
  form.cmbFind.setIndex(4);
  form.txtFind.setText("5");
  form.cmdFindNext.press();
  EXPECT_EQ(message().text, "There is no path segment with 5 5.");
}

// ---- The search

struct EditPathSearch : EditPath {
  EditPathSearch() {
    addRows({100, 204, 100});
    open();
  }
  void look(int what, const char* value) {
    form.cmbFind.setIndex(what);
    form.txtFind.setText(value);
    form.cmdFindNext.press();
  }
};

TEST_F(EditPathSearch, OffersFourValues) {
  EXPECT_EQ(form.cmbFind.items(), (Texts{"Tool #", "Path Group #", "Z Depth", "Feed Rate"}));
  EXPECT_EQ(form.cmbFind.index(), 0);
}

TEST_F(EditPathSearch, GoesFromRowToRowAndRoundTheEnd) {
  look(0, "5");
  EXPECT_EQ(form.txtps.text(), "2");
  look(1, " 1 ");
  EXPECT_EQ(form.txtps.text(), "3");
  look(1, "1");
  EXPECT_EQ(form.txtps.text(), "1");
  look(2, "-.5");
  EXPECT_EQ(form.txtps.text(), "2");
  look(3, "10");
  EXPECT_EQ(form.txtps.text(), "3");
  EXPECT_TRUE(messages().empty());
}

TEST_F(EditPathSearch, TellsThatThereIsNone) {
  look(3, "99");
  const Message shown = message();
  EXPECT_EQ(shown.text, "There is no path segment with Feed Rate 99.");
  EXPECT_EQ(shown.title, "Find Path Segment");
  EXPECT_EQ(shown.icon, MessageIcon::Information);
  EXPECT_EQ(form.txtps.text(), "1");
}

TEST_F(EditPathSearch, TellsThatThereIsNoOther) {
  look(0, "5");
  look(0, "5");
  EXPECT_EQ(message().text, "There is no other path segment with Tool # 5.");
  EXPECT_EQ(form.txtps.text(), "2");
}

TEST_F(EditPathSearch, AsksForANumber) {
  for (const char* const text : {"", "  ", "deep", "5 mm", "1,5"}) {
    look(2, text);
    EXPECT_EQ(message().text, "Type the number to look for, as 2 or -0.25.") << text;
  }
  EXPECT_EQ(form.txtps.text(), "1");
}

TEST_F(EditPathSearch, EnterInItsFieldLooks) {
  form.txtFind.type("5");
  EXPECT_TRUE(form.pressDefault());
  EXPECT_EQ(form.txtps.text(), "2");
  form.txtpsz.type("-2");
  EXPECT_TRUE(form.pressDefault());
  EXPECT_EQ(store.psz[2], -2) << "elsewhere it applies";
}

// ---- PgUp and PgDn

TEST_F(EditPath, PageKeysSaveAndGoOnInTheSameField) {
  addRows({100, 100, 100});
  open();
  form.txtpsz.type("-2");
  EXPECT_TRUE(form.pressPage(/*down=*/true));
  EXPECT_EQ(form.txtps.text(), "2");
  EXPECT_EQ(store.psz[1], -2);
  EXPECT_TRUE(form.txtpsz.hasFocus());
  EXPECT_TRUE(form.txtpsz.isAllSelected());
  EXPECT_TRUE(form.pressPage(/*down=*/true));
  EXPECT_FALSE(form.pressPage(/*down=*/true)) << "the last row";
  EXPECT_TRUE(form.txtpsz.hasFocus());
  EXPECT_TRUE(form.pressPage(/*down=*/false));
  EXPECT_EQ(form.txtps.text(), "2");
}

TEST_F(EditPath, APageKeyTakesTheTypedRowNumberFirst) {
  addRows({100, 100, 100, 100});
  open();
  form.txtps.type("3");
  EXPECT_TRUE(form.pressPage(/*down=*/true));
  EXPECT_EQ(form.txtps.text(), "4");
}

// ---- In the drawing

TEST_F(EditPath, TheRowOrItsGroupStandsOutUntilTheFormCloses) {
  addRows({100, 200, 200});
  open();
  const auto shown = [this] { return context.formPreview.rows.size(); };
  EXPECT_EQ(context.formPreview.rows, (std::vector<SegmentRow>{{.type = kLine, .x1 = 1}}));
  EXPECT_EQ(context.formPreview.width, 3);
  goTo(2);
  EXPECT_EQ(context.formPreview.rows, (std::vector<SegmentRow>{{.type = kLine, .x0 = 1, .x1 = 2}}));
  form.optApplyToGroup.setValue(true);
  EXPECT_EQ(shown(), 2U);
  form.optApplyToAll.setValue(true);
  EXPECT_EQ(shown(), 1U);
  form.cmdExit.press();
  EXPECT_EQ(shown(), 0U);
}

TEST_F(EditPath, WhatStandsOutIsThereAfterASaveToo) {
  addRows({100, 200});
  open();
  form.txtpsx1.setText("4");
  form.cmdRefresh.press();
  EXPECT_EQ(context.formPreview.rows, (std::vector<SegmentRow>{{.type = kLine, .x1 = 4}}));
  EXPECT_TRUE(context.formPreview.shown);
}

TEST_F(EditPath, ASaveThatLooksTheSamePaintsNothingAnew) {
  addRows({100, 200});
  open();
  log.take();
  form.txtpsz.setText("-2");
  form.txtpsfeed.setText("7");
  form.cmdRefresh.press();
  EXPECT_EQ(log.take().find("Cls"), std::string::npos);
  form.chkVisible.setChecked(false);
  form.cmdRefresh.press();
  EXPECT_NE(log.take().find("Cls"), std::string::npos);
}

TEST_F(EditPath, ManySavesOfOneEventPaintTheDrawingOnce) {
  addRows({100, 200, 300});
  open();
  store.showpaths = 1;
  surface.hasFrames = true;
  log.take();
  for (const char* const end : {"4", "5"}) {
    form.txtpsx1.setText(end);
    form.cmdNext.press();
  }
  EXPECT_EQ(log.count("Cls"), 0);
  EXPECT_EQ(log.count("frame requested"), 1);
  redraw.paintFrame();
  EXPECT_EQ(log.count("Cls"), 1);
  EXPECT_GT(log.count("line (0, 0)-(4, 0)"), 0);
  EXPECT_GT(log.count("line (1, 0)-(5, 0)"), 0);
  EXPECT_TRUE(context.formPreview.shown);
}

TEST_F(EditPath, AClickInTheDrawingGoesToTheRow) {
  addRows({100, 200, 300});
  open();
  form.txtpsz.setText("-2");
  expectNoStep(*this, [this] { click(2.5F, 0.25F); });
  EXPECT_EQ(form.txtps.text(), "3");
  EXPECT_EQ(form.lstRows.index(), 2);
  EXPECT_EQ(marker(), (Point{0, 0})) << "it is no click of drafting";
  rightClick(0.5F, 0.25F);
  EXPECT_EQ(form.txtps.text(), "3");
  for (int ps = 1; ps <= 3; ++ps) hide(ps);
  click(0.5F, 0.25F);
  EXPECT_EQ(beeps(), 1) << "there is no row to be seen";
  form.cmdExit.press();
  const Point before = mouse();
  click(0.5F, 0.25F);
  EXPECT_NE(mouse(), before) << "the drawing is the operator's again";
}

TEST_F(EditPath, TheReleaseOfAClickThatTheFormTookIsNoneAfterItHasClosed) {
  addRows({100, 200});
  open();
  press(kLeftButton, 1.5F, 0.25F);
  EXPECT_EQ(form.txtps.text(), "2");
  form.pressCancel();
  const Point before = mouse();
  release(kLeftButton, 3, 3);
  EXPECT_EQ(mouse(), before);
  click(3, 3);
  EXPECT_NE(mouse(), before);
}

TEST_F(EditPath, AFormThatGoesWhileItIsOpenLeavesTheDrawingAlone) {
  addRows({100, 200});
  {
    dlgEditPath gone(cam);
    gone.open(Modality::Modal);
  }
  click(1.5F, 0.25F);
  EXPECT_NE(mouse(), Point{});
}

TEST_F(EditPath, TheDrawingIsOutOfReachOfTheMap) {
  addRows({100, 200});
  open();
  test.recording.prompts.onForm = [this](Form&) { click(1.5F, 0.25F); };
  form.cmdOrderPaths.press();
  EXPECT_EQ(form.txtps.text(), "1");
  click(1.5F, 0.25F);
  EXPECT_EQ(form.txtps.text(), "2");
}

// ---- The map

TEST_F(EditPath, OrderPathsShowsTheMapAndTheRowAgain) {
  addRows({100, 200});
  open();
  test.recording.prompts.onForm = [](Form& shown) {
    auto& map = dynamic_cast<frmPathMap&>(shown);
    map.lstPathSegments.pick(2);
    map.cmdPromote.press();
    map.cmdApply.press();
  };
  expectOneStep(*this, [this] { form.cmdOrderPaths.press(); });
  EXPECT_EQ(codes(), (std::vector{200, 100}));
  EXPECT_EQ(form.txtPathGroup.text(), "2");
}

// ---- Many rows

TEST_F(EditPath, EditsReordersAndUndoes30000Rows) {
  std::vector<int> many;
  for (int ps = 0; ps < 30000; ++ps) many.push_back(100 + 100 * (ps / 200));
  addRows(many);
  open();
  std::vector<testing::TableBits> steps{testing::TableBits(store)};
  const auto step = [&](const auto& edit) {
    expectOneStep(*this, edit);
    steps.emplace_back(store);
  };
  goTo(15000);
  form.optApplyToGroup.setValue(true);
  form.txtpsz.setText("-2");
  step([this] { form.cmdRefresh.press(); });
  EXPECT_EQ(context.changelog.changecount, 400);
  test.recording.prompts.onForm = [](Form& shown) {
    auto& map = dynamic_cast<frmPathMap&>(shown);
    map.lstPathSegments.pick(201);
    map.cmdPromote.press();
    map.cmdApply.press();
  };
  step([this] { form.cmdOrderPaths.press(); });
  EXPECT_EQ(store.pscode[1], 200);
  EXPECT_EQ(store.psx0[1], 200);
  form.optApplyToSegment.setValue(true);
  step([this] { form.cmdDel.press(); });
  goTo(1);
  form.txtPathGroup.setText("299");
  step([this] { form.cmdRefresh.press(); });
  EXPECT_EQ(store.pscode[1], 29900);
  step([this] { form.cmdIns.press(); });
  EXPECT_EQ(store.NumPathSegments, 30000);
  answer({Answer::Ok});
  goTo(2);
  step([this] { form.cmdDeletePathGroup.press(); });
  EXPECT_EQ(store.NumPathSegments, 29998);
  EXPECT_EQ(form.lstRows.count(), 29998);
  for (std::size_t back = steps.size() - 1; back-- > 0;) {
    Undo_Last_Change(context);
    EXPECT_TRUE(testing::TableBits(store) == steps[back]) << back;
  }
  EXPECT_EQ(context.changelog.changecount, 0);
  for (std::size_t on = 1; on < steps.size(); ++on) {
    RedoLastChange(context);
    EXPECT_TRUE(testing::TableBits(store) == steps[on]) << on;
  }
}

}  // namespace
}  // namespace tess
