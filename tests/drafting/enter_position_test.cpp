// Enter Position, its dialog, and the arrow keys.
#include "drafting/enter_position.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/dlgPositionCursor.h"
#include "drafting/entity_creation.h"
#include "drafting/repeat_key.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;

// The dialog's next showing.
void atDialog(RecordedDrafting& d, std::function<void(dlgPositionCursor&)> work) {
  d.test.recording.prompts.onForm = [work](Form& form) {
    work(dynamic_cast<dlgPositionCursor&>(form));
  };
}

void enter(RecordedDrafting& d, const std::string& x, const std::string& y) {
  atDialog(d, [x, y](dlgPositionCursor& dialog) {
    dialog.txtx.setText(x);
    dialog.txty.setText(y);
    dialog.cmdAccept.click();
  });
  collect_Set_New_pos(d.context);
}

TEST(EnterPosition, PutsThePointerOnTheTypedPlace) {
  RecordedDrafting d;
  d.log.take();
  enter(d, "1.5", "-2 down");
  EXPECT_EQ(d.mouse(), (Point{1.5F, -2}));
  EXPECT_EQ(d.log.take(), "warp (650, 600)\n");
  EXPECT_EQ(d.panel(StatusPanel::X), "X: 1.5000");
  EXPECT_EQ(d.panel(StatusPanel::Y), "Y: -2.0000");
  EXPECT_EQ(d.context.command.LastCommand, 38);
}

TEST(EnterPosition, SurvivesTheEventOfItsOwnWarp) {
  RecordedDrafting d;
  enter(d, "1.503", "1");
  d.move(0, 1.5F, 1);
  EXPECT_EQ(d.mouse(), (Point{1.503F, 1}));
  d.move(0, 1.6F, 1);
  EXPECT_EQ(d.mouse(), (Point{1.6F, 1}));
}

TEST(EnterPosition, CancelledChangesNothing) {
  RecordedDrafting d;
  d.move(0, 1, 1);
  d.log.take();
  atDialog(d, [](dlgPositionCursor& dialog) {
    dialog.txtx.setText("3");
    dialog.cmdCancel.click();
  });
  collect_Set_New_pos(d.context);
  EXPECT_EQ(d.mouse(), (Point{1, 1}));
  EXPECT_EQ(d.log.take(), "");
  EXPECT_FALSE(d.context.typedPosition);
  EXPECT_FALSE(d.context.pointer.SkipPointerUpdate);
  atDialog(d, [](dlgPositionCursor& dialog) { EXPECT_EQ(dialog.txtx.text(), "0.0000"); });
  collect_Set_New_pos(d.context);
}

TEST(EnterPosition, OffersTheLastEnteredPlace) {
  RecordedDrafting d;
  enter(d, "1.5", "2");
  d.move(0, 3, 3);
  d.move(0, 4, 3);
  atDialog(d, [](dlgPositionCursor& dialog) {
    EXPECT_EQ(dialog.caption(), "Position Cursor");
    EXPECT_EQ(dialog.txtx.text(), "1.5000");
    EXPECT_EQ(dialog.txty.text(), "2.0000");
  });
  collect_Set_New_pos(d.context);
  EXPECT_EQ(d.test.recording.prompts.modalForms, 2);
}

TEST(EnterPosition, WithOneCoordinateKeepsTheOtherAsLastEntered) {
  RecordedDrafting d;
  enter(d, "1.5", "2");
  d.move(0, 3, 3);
  collect_Set_New_pos(d.context, -1.0F);
  EXPECT_EQ(d.mouse(), (Point{-1, 2}));
  collect_Set_New_pos(d.context, {}, 0.5F);
  EXPECT_EQ(d.mouse(), (Point{-1, 0.5F}));
  EXPECT_EQ(d.test.recording.prompts.modalForms, 1);
}

TEST(EnterPosition, IsOpenedAgainByTheRepeatKey) {
  RecordedDrafting d;
  enter(d, "1", "1");
  repeatLastCommand(d.context);
  EXPECT_EQ(d.test.recording.prompts.formNames,
            (std::vector<std::string>{"dlgPositionCursor", "dlgPositionCursor"}));
}

TEST(PositionCursor, SelectsTheWholeTextOnFocusAndTidiesItOnLeaving) {
  RecordedDrafting d;
  atDialog(d, [](dlgPositionCursor& dialog) {
    dialog.txty.focus();
    EXPECT_TRUE(dialog.txty.isAllSelected());
    dialog.txtx.focus();
    EXPECT_TRUE(dialog.txtx.isAllSelected());
    dialog.txtx.type("1.23456mm");
    dialog.txty.focus();
    EXPECT_EQ(dialog.txtx.text(), "1.2346");
    dialog.txty.type("none");
    dialog.txtx.focus();
    EXPECT_EQ(dialog.txty.text(), "0.0000");
  });
  collect_Set_New_pos(d.context);
  EXPECT_EQ(d.test.recording.prompts.modalForms, 1);
}

TEST(PositionCursor, TakesTheMarkersCoordinates) {
  RecordedDrafting d;
  d.rightClick(2, -1);
  atDialog(d, [](dlgPositionCursor& dialog) {
    dialog.cmdUseMarkerX.click();
    EXPECT_EQ(dialog.txtx.text(), "2.0000");
    EXPECT_EQ(dialog.txty.text(), "0.0000");
    dialog.cmdUseMarkerY.click();
    EXPECT_EQ(dialog.txty.text(), "-1.0000");
    dialog.cmdAccept.click();
  });
  collect_Set_New_pos(d.context);
  EXPECT_EQ(d.mouse(), (Point{2, -1}));
}

// ---- The typed position as a feature

TEST(TypedPosition, IsASnapFeatureUntilTheNextCompletedRelease) {
  RecordedDrafting d;
  mnuDrawLine_Click(d.context);
  enter(d, "1.2345", "1");
  ASSERT_TRUE(d.context.typedPosition);
  d.move(0, 1.23F, 1);
  d.press(1, 1.23F, 1);
  d.move(1, 1.24F, 1.01F);
  ASSERT_TRUE(d.context.state.FeaturePoint());
  EXPECT_EQ(d.context.state.FeaturePoint()->PointType, FeatureKind::TypedPosition);
  d.release(1, 1.24F, 1.01F);
  EXPECT_EQ(testing::segmentTexts(d.store), std::vector<std::string>{"1 (0, 0)-(1.2345, 1)"});
  EXPECT_FALSE(d.context.typedPosition);
}

TEST(TypedPosition, GivenByArgumentsIsNone) {
  RecordedDrafting d;
  collect_Set_New_pos(d.context, 1.0F, 1.0F);
  EXPECT_EQ(d.mouse(), (Point{1, 1}));
  EXPECT_FALSE(d.context.typedPosition);
}

// ---- Arrow keys

TEST(ArrowKeys, MoveThePositionByOnePixel) {
  RecordedDrafting d;
  d.move(0, 1, 1);
  d.log.take();
  nudgePointer(d.context, 1, 0);
  EXPECT_EQ(d.mouse(), (Point{1.01F, 1}));
  nudgePointer(d.context, 0, 1);
  EXPECT_EQ(d.mouse(), (Point{1.01F, 1.01F}));
  nudgePointer(d.context, -1, 0);
  nudgePointer(d.context, 0, -1);
  EXPECT_FLOAT_EQ(d.mouse().x, 1);
  EXPECT_FLOAT_EQ(d.mouse().y, 1);
  EXPECT_EQ(d.log.take(), "warp (601, 300)\nwarp (601, 299)\nwarp (600, 299)\nwarp (600, 300)\n");
}

TEST(ArrowKeys, MoveOffTheCursorGridAndSurviveTheWarp) {
  RecordedDrafting d;
  d.store.cursorgrid = 1;
  d.store.cursorgridf = 1;
  d.move(0, 1, 1);
  nudgePointer(d.context, 1, 0);
  d.move(0, 1.01F, 1);
  EXPECT_EQ(d.mouse(), (Point{1.01F, 1}));
  EXPECT_EQ(d.panel(StatusPanel::X), "X: 1.0100");
}

TEST(ArrowKeys, MoveBySmallerStepsInACloserView) {
  RecordedDrafting d;
  d.viewCommands.Zoom_In(0, 0);
  nudgePointer(d.context, 1, 0);
  EXPECT_EQ(d.mouse().x, 0.005F);
}

}  // namespace
}  // namespace tess
