// View/Edit Path Segments: going from row to row, inserting, deleting, and where new paths go.
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

}  // namespace
}  // namespace tess
