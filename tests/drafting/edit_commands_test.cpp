// What the commands of the edit menu arm, and what the repeat key issues again.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/break_segment.h"
#include "drafting/change_radius.h"
#include "drafting/copy_paste.h"
#include "drafting/delete_rows.h"
#include "drafting/edit_paths.h"
#include "drafting/entity_creation.h"
#include "drafting/entity_info.h"
#include "drafting/fillet.h"
#include "drafting/flip_arc.h"
#include "drafting/join_ends.h"
#include "drafting/measure.h"
#include "drafting/move_end_points.h"
#include "drafting/move_rows.h"
#include "drafting/pending_actions.h"
#include "drafting/remove_vertex.h"
#include "drafting/repeat_key.h"
#include "drafting/selection.h"
#include "drafting/trim.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;

struct ArmingCase {
  const char* name;
  void (*command)(DraftingContext&);
  int armed;
  int mode;
};

constexpr ArmingCase kArming[] = {
    {"delete", mnuEditDelete_Click, 1, 0},
    {"flip arc", mnuEditFlipArc_Click, 2, 0},
    {"change radius", mnuChangeRad_Click, 4, 0},
    {"entity info", mnuEditEntityInfo_Click, 6, 0},
    {"move", mnuEditMoveProf_Click, 7, 0},
    {"copy", mnuEditCopy_Click, 8, 0},
    {"break", mnuEditBreakSeg_Click, 9, 0},
    {"move end point", mnuEditMoveEnd_Click, 10, 0},
    {"reverse arc", mnuEditRevArc_Click, 14, 0},
    {"trim", mnuEditTrimEntity_Click, 16, 0},
    {"join", mnuEditJoinEnd_Click, 18, 0},
    {"select", mnuDrawSelect_Click, 24, -1},
    {"unselect", mnuDrawUnselect_Click, 25, -1},
    {"select contiguous", mnuDrawSelectContiguous, 31, -1},
    {"unselect contiguous", mnuDrawUnselectContiguous, 32, -1},
    {"remove vertex", mnuDeleteVertex_Click, 34, 0},
    {"set origin", SetOrigin, 35, 0},
    {"measure", miMeasureDist_Click, 36, 0},
    {"join with arc", mnuEditJoinEndPtsArc, 43, 0},
    {"fillet", mnuAddFillet_Click, 46, 0},
};

TEST(ArmingCommands, SetActionModeAndTheRepeatKeysMemory) {
  for (const ArmingCase& row : kArming) {
    SCOPED_TRACE(row.name);
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    d.addPathLine(0, 0, 1, 0);
    d.context.state.setDrawMode(1);
    row.command(d.context);
    EXPECT_EQ(d.pending(), row.armed);
    EXPECT_EQ(d.mode(), row.mode);
    EXPECT_EQ(d.context.command.LastCommand, row.armed);
  }
}

TEST(ArmingCommands, DropAHalfDoneThreePointCommand) {
  for (const ArmingCase& row : kArming) {
    SCOPED_TRACE(row.name);
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    d.addPathLine(0, 0, 1, 0);
    mnuDrawCircle3P_Click(d.context);
    d.click(2, 2);
    ASSERT_EQ(d.context.command.clickstage, 1);
    row.command(d.context);
    EXPECT_EQ(d.context.command.clickstage, 0);
    EXPECT_FALSE(d.context.command.secondCrossShown);
  }
}

TEST(ArmingCommands, ThatNeedARowReturnSilentlyWithoutOne) {
  for (const auto command :
       {mnuEditJoinEnd_Click, mnuEditJoinEndPtsArc, mnuEditMoveEnd_Click, mnuDeleteVertex_Click}) {
    for (const bool editPaths : {false, true}) {
      RecordedDrafting d;
      d.context.command.EditPaths = editPaths;
      editPaths ? d.addLine(0, 0, 1, 0) : d.addPathLine(0, 0, 1, 0);
      d.context.state.setDrawMode(1);
      command(d.context);
      EXPECT_EQ(d.pending(), 0);
      EXPECT_EQ(d.mode(), 1);
      EXPECT_EQ(d.context.command.LastCommand, 0);
      EXPECT_EQ(d.beeps(), 0);
      EXPECT_TRUE(d.messages().empty());
      editPaths ? d.addPathLine(0, 0, 1, 0) : d.addLine(0, 0, 1, 0);
      command(d.context);
      EXPECT_NE(d.pending(), 0);
    }
  }
}

TEST(ArmingCommands, DeleteAndCopyArmNothingWithASelection) {
  for (const auto command : {mnuEditDelete_Click, mnuEditCopy_Click}) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    d.store.segattr[1] = 30008;
    command(d.context);
    EXPECT_EQ(d.pending(), 0);
  }
}

TEST(ArmingCommands, DeleteArmsNothingWithSelectedPathRows) {
  RecordedDrafting d;
  d.addPathLine(0, 0, 1, 0, 30100);
  d.context.command.EditPaths = true;
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.pending(), 0);
  d.context.command.EditPaths = false;
  mnuEditDelete_Click(d.context);
  EXPECT_EQ(d.pending(), 1);
}

TEST(ArmingCommands, PressingTheTrimTwiceArmsItOnce) {
  RecordedDrafting d;
  mnuEditTrimEntity_Click(d.context);
  mnuEditTrimEntity_Click(d.context);
  EXPECT_EQ(d.pending(), 16);
  d.click(1, 1);
  EXPECT_EQ(d.pending(), 0);
}

TEST(EditPathsTool, TurnsEditingToPathRowsAndBack) {
  RecordedDrafting d;
  toggleEditPaths(d.context);
  EXPECT_TRUE(d.context.command.EditPaths);
  EXPECT_TRUE(d.tools.isChecked("miEditSegsOrPaths"));
  toggleEditPaths(d.context);
  EXPECT_FALSE(d.context.command.EditPaths);
  EXPECT_FALSE(d.tools.isChecked("miEditSegsOrPaths"));
}

// ---- The repeat key

TEST(RepeatKey, ArmsTheLastCommandAgain) {
  for (const int last : {9, 10, 18, 43, 14, 2, 7, 16, 34, 35, 6, 4, 31, 36, 46}) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    d.addPathLine(0, 0, 1, 0);
    d.context.command.LastCommand = last;
    repeatLastCommand(d.context);
    EXPECT_EQ(d.pending(), last);
    EXPECT_EQ(d.context.command.LastCommand, last);
  }
}

TEST(RepeatKey, AfterTheSecondClickOfAFilletStartsWithTheFirst) {
  RecordedDrafting d;
  d.context.command.LastCommand = 47;
  repeatLastCommand(d.context);
  EXPECT_EQ(d.pending(), 46);
}

TEST(RepeatKey, OtherNumbersDoNothing) {
  for (const int last : {-1, 0, 1, 3, 8, 12, 17, 20, 24, 25, 29, 32, 33, 39, 41, 44, 48, 1000}) {
    RecordedDrafting d;
    d.addLine(0, 0, 1, 0);
    d.context.command.LastCommand = last;
    repeatLastCommand(d.context);
    EXPECT_EQ(d.pending(), 0) << last;
    EXPECT_EQ(d.test.recording.prompts.modalForms, 0) << last;
  }
}

TEST(RepeatKey, IssuesWhatARoomAboveAdded) {
  RecordedDrafting d;
  int issued = 0;
  d.context.repeatCommands[33] = [&issued](DraftingContext&) { ++issued; };
  d.context.command.LastCommand = 33;
  repeatLastCommand(d.context);
  EXPECT_EQ(issued, 1);
}

TEST(RepeatKey, AfterAFinishedTrimArmsItAgain) {
  RecordedDrafting d;
  mnuEditTrimEntity_Click(d.context);
  d.click(1, 1);
  ASSERT_EQ(d.pending(), 0);
  repeatLastCommand(d.context);
  EXPECT_EQ(d.pending(), 16);
}

TEST(RepeatKey, SelectsContiguousWithTheSelectingMode) {
  RecordedDrafting d;
  d.context.command.LastCommand = 31;
  repeatLastCommand(d.context);
  EXPECT_EQ(d.mode(), -1);
}

}  // namespace
}  // namespace tess
