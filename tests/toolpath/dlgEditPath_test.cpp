// View/Edit Path Segments: what it shows, the list of all rows and the search.
#include "toolpath/dlgEditPath.h"

#include "gtest/gtest.h"

#include "tests/support/edit_path_fixture.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

using testing::EditPath;
using Texts = std::vector<std::string>;

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

}  // namespace
}  // namespace tess
