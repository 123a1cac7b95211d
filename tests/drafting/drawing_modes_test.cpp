// Every drawing mode that a descriptor brings: what any of them must do, whatever it draws.
#include <set>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/rubber_band.h"
#include "drafting/undo.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::RecordedDrafting;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

std::vector<const DraftingCommand*> modeCommands() {
  std::vector<const DraftingCommand*> found;
  for (const DraftingCommand* const command : draftingCommands()) {
    if (command->mode.number != kNoMode) found.push_back(command);
  }
  return found;
}

// The context with the command chosen; a form that asks for something gets what it proposes.
struct ModeContext : RecordedDrafting {
  explicit ModeContext(const DraftingCommand& command) {
    test.recording.prompts.onForm = [](Form& form) { form.pressDefault(); };
    command.run(context);
    log.take();
  }

  // The clicks of one shape, in general position.
  void draw(const DraftingCommand& command) {
    click(2, 0.5F);
    if (command.mode.threePoints) click(1, 1.5F);
  }
};

class DrawingModes : public ::testing::TestWithParam<const DraftingCommand*> {
 protected:
  const DraftingCommand& command = *GetParam();
};

TEST(DrawingModeNumbers, AreAboveZeroAndEachStandsOnce) {
  std::set<int> numbers;
  for (const DraftingCommand* const command : modeCommands()) {
    EXPECT_GT(command->mode.number, kNoMode) << command->info.tool;
    EXPECT_TRUE(numbers.insert(command->mode.number).second) << command->info.tool;
  }
  EXPECT_GE(numbers.size(), 6U);
}

TEST_P(DrawingModes, IsOnAfterItsCommandAndOnItsToolAlone) {
  ModeContext d(command);
  EXPECT_EQ(d.mode(), command.mode.number);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.pressedTools(), Texts{command.info.tool});
}

TEST_P(DrawingModes, DropsWhatAnotherModeHasBegun) {
  ModeContext d(kArc3PCommand);
  d.click(2, 2);
  ASSERT_EQ(d.context.command.clickstage, kFirstPointTaken);
  command.run(d.context);
  EXPECT_EQ(d.context.command.clickstage, 0);
  EXPECT_FALSE(d.context.command.secondCrossShown);
}

TEST_P(DrawingModes, AddsOrdinaryRowsAsOneStepOfUndo) {
  ModeContext d(command);
  d.draw(command);
  ASSERT_GT(d.store.NumSegments, 0);
  for (int sg = 1; sg <= d.store.NumSegments; ++sg) {
    EXPECT_EQ(d.store.segattr[sg], kOrdinaryClass) << sg;
  }
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  const Texts drawn = segmentTexts(d.store);
  Undo_Last_Change(d.context);
  EXPECT_EQ(d.store.NumSegments, 0);
  RedoLastChange(d.context);
  EXPECT_EQ(segmentTexts(d.store), drawn);
  EXPECT_EQ(d.beeps(), 0);
}

TEST_P(DrawingModes, StaysOnForTheNextShape) {
  ModeContext d(command);
  d.draw(command);
  EXPECT_EQ(d.mode(), command.mode.number);
  EXPECT_EQ(d.context.command.clickstage, 0);
}

// The same calls in the inverting pen take away what they have drawn.
TEST_P(DrawingModes, HoversBeforeTheClickThatDrawsAndVanishesExactly) {
  ModeContext d(command);
  if (command.mode.threePoints) {
    d.press(1, 2, 0.5F);
    EXPECT_EQ(d.context.pointer.RubberKind, 0) << "nothing to see before the second point";
    d.release(1, 2, 0.5F);
  }
  d.press(1, 1, 1.5F);
  d.log.take();
  moveRubberBand(d.context, {1.5F, 1});
  d.log.take();
  eraseRubberBand(d.context);
  const std::string erased = d.log.take();
  EXPECT_NE(erased, "");
  EXPECT_EQ(d.store.NumSegments, 0);
  showRubberBand(d.context);
  EXPECT_EQ(d.log.take(), erased);
  EXPECT_EQ(d.context.pointer.RubberKind, command.mode.number);
}

INSTANTIATE_TEST_SUITE_P(All, DrawingModes, ::testing::ValuesIn(modeCommands()),
                         [](const auto& row) {
                           return "Mode" + std::to_string(row.param->mode.number);
                         });

}  // namespace
}  // namespace tess
