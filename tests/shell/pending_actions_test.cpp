// The pending actions of all rooms together: what each asks, whether it snaps, and which of them
// the repeat key issues.
#include "drafting/pending_actions.h"

#include <array>

#include "gtest/gtest.h"

#include "drafting/repeat_key.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::RunningProgram;

struct PromptCase {
  int number;
  const char* prompt;
};

constexpr PromptCase kPrompts[] = {
    {0, ""},
    {1, "Click near item to delete."},
    {2, "Click near arc to flip."},
    {3, "Pending Function #3"},
    {4, "Click near arc to change radius."},
    {5, "Pending Function #5"},
    {6, "Click near item to display data."},
    {7, "Click at new position to move.  All drawing and path segments will be moved."},
    {8, "Click on segment to copy."},
    {9, "Click on segment to break"},
    {10, "Click near end point to move, then drag the endpoint."},
    {11, "Click at new position."},
    {12, "Click at new start position."},
    {13, "Pending Function #13"},
    {14, "Click near arc to reverse."},
    {15, "Pending Function #15"},
    {16, "Click on end point to trim."},
    {17, "Click on trimming entity."},
    {18, "Click on 1st end-point to join."},
    {19, "Click on 2nd end-point to join."},
    {20, "Click near start point."},
    {21, "Click to indicate direction."},
    {22, "Click to indicate finish reference."},
    {23, "Pending Function #23"},
    {24, "Click on entity or drag to select.  Hold <Shift> for exclusive mode."},
    {25, "Click on entity or drag to unselect."},
    {26, "Click to select entity for pocket."},
    {27, "Click to select entity for island."},
    {28, "Select zoom window with mouse."},
    {29, "Click spot to Pan to with mouse."},
    {30, "Click spot to place text."},
    {31, "Click on entity to select contiguous entities"},
    {32, "Click on entity to unselect contiguous entities."},
    {33, "Click spot to place machine cycle."},
    {34, "Click near vertex to remove."},
    {35, "Click on new origin."},
    {36, "Click on start-point and drag to end-point.  "},
    {37, "Pending Function #37"},
    {38, "Pending Function #38"},
    {39, "Click near starting Path Segment.  "},
    {40, "Pending Function #40"},
    {41, "Click near the desired Path Group.  "},
    {42, "Click near Path Segment to reverse.  "},
    {43, "Click on 1st end-point to join."},
    {44, "Click on 2nd end-point to join."},
    {45, "Click on 3rd point of the joining arc."},
    {46, "Click near first line to fillet."},
    {47, "Click near second line to fillet."},
    {48, "Pending Function #48"},
    {-17, "Pending Function #-17"},
};

struct PendingActions : ::testing::Test, RunningProgram {};

TEST_F(PendingActions, EachPromptsWithItsOwnText) {
  for (const PromptCase& row : kPrompts) {
    context().state.setPendingaction(row.number);
    EXPECT_EQ(application.interaction.statusBar.text(), row.prompt) << row.number;
  }
}

// The press is away from all rows, the drag ends near an end point.
bool snaps(int action) {
  RunningProgram program;
  AddSeg(program.application.store, {.type = kLine, .x0 = 1, .y0 = 1, .x1 = 3, .y1 = 1}, nullptr);
  program.pass(1000);
  program.application.clickTool("OSnap");
  program.context().state.setPendingaction(action);
  program.application.press({.Button = kLeftButton, .X = 0, .Y = 0});
  program.application.move({.Button = kLeftButton, .X = 1.02F, .Y = 1.02F});
  return program.context().state.FeaturePoint().has_value();
}

TEST_F(PendingActions, TheseTakeTheClickItself) {
  std::vector<int> exact;
  for (int action = 0; action <= 47; ++action) {
    if (!snaps(action)) exact.push_back(action);
  }
  EXPECT_EQ(exact, (std::vector<int>{16, 17, 20, 21, 22, 24, 25, 28, 29}));
}

TEST_F(PendingActions, TheseAreIssuedAgainByTheRepeatKey) {
  AddSeg(application.store, {.type = kLine, .x1 = 1}, nullptr);
  addPathSegment(application.store, {.type = kLine, .x1 = 1, .code = 100});
  application.interaction.cam.selectedCycle = 1;
  std::vector<int> armed;
  for (int last = -1; last <= 48; ++last) {
    application.interaction.resetPendingAction();
    context().command.LastCommand = last;
    repeatLastCommand(context());
    if (pendingaction() == 0) continue;
    EXPECT_EQ(pendingaction(), last == 47 ? 46 : last);
    armed.push_back(last);
  }
  EXPECT_EQ(armed, (std::vector<int>{2, 4, 6, 7, 9, 10, 14, 16, 18, 20, 31, 33, 34, 35, 36, 42, 43,
                                     46, 47}));
  EXPECT_EQ(platform.prompts.formNames,
            (std::vector<std::string>{"dlgInputReal", "dlgPositionCursor"}))
      << "of 37 and 38";
}

}  // namespace
}  // namespace tess
