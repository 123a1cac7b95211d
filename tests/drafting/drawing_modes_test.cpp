// Every drawing mode that a descriptor brings: what any of them must do, whatever it draws.
#include <set>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/entity_creation.h"
#include "drafting/rubber_band.h"
#include "drafting/undo.h"
#include "tests/support/drafting_desk.h"

namespace tess {
namespace {

using testing::RecordedDesk;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

std::vector<const DeskCommand*> modeCommands() {
  std::vector<const DeskCommand*> found;
  for (const DeskCommand* const command : draftingCommands()) {
    if (command->mode.number != kNoMode) found.push_back(command);
  }
  return found;
}

// The desk with the command chosen; a form that asks for something gets what it proposes.
struct ModeDesk : RecordedDesk {
  explicit ModeDesk(const DeskCommand& command) {
    test.recording.prompts.onForm = [](Form& form) { form.pressDefault(); };
    command.run(desk);
    log.take();
  }

  // The clicks of one shape, in general position.
  void draw(const DeskCommand& command) {
    click(2, 0.5F);
    if (command.mode.threePoints) click(1, 1.5F);
  }
};

class DrawingModes : public ::testing::TestWithParam<const DeskCommand*> {
 protected:
  const DeskCommand& command = *GetParam();
};

TEST(DrawingModeNumbers, AreAboveZeroAndEachStandsOnce) {
  std::set<int> numbers;
  for (const DeskCommand* const command : modeCommands()) {
    EXPECT_GT(command->mode.number, kNoMode) << command->info.tool;
    EXPECT_TRUE(numbers.insert(command->mode.number).second) << command->info.tool;
  }
  EXPECT_GE(numbers.size(), 6U);
}

TEST_P(DrawingModes, IsOnAfterItsCommandAndOnItsToolAlone) {
  ModeDesk d(command);
  EXPECT_EQ(d.mode(), command.mode.number);
  EXPECT_EQ(d.pending(), 0);
  EXPECT_EQ(d.pressedTools(), Texts{command.info.tool});
}

TEST_P(DrawingModes, DropsWhatAnotherModeHasBegun) {
  ModeDesk d(kArc3PCommand);
  d.click(2, 2);
  ASSERT_EQ(d.desk.command.clickstage, kFirstPointTaken);
  command.run(d.desk);
  EXPECT_EQ(d.desk.command.clickstage, 0);
  EXPECT_FALSE(d.desk.command.secondCrossShown);
}

TEST_P(DrawingModes, AddsOrdinaryRowsAsOneStepOfUndo) {
  ModeDesk d(command);
  d.draw(command);
  ASSERT_GT(d.store.NumSegments, 0);
  for (int sg = 1; sg <= d.store.NumSegments; ++sg) {
    EXPECT_EQ(d.store.segattr[sg], kOrdinaryClass) << sg;
  }
  EXPECT_FALSE(d.store.drawingsaved);
  EXPECT_TRUE(d.tools.isEnabled("miUndo"));
  EXPECT_FALSE(d.tools.isEnabled("miRedo"));
  const Texts drawn = segmentTexts(d.store);
  Undo_Last_Change(d.desk);
  EXPECT_EQ(d.store.NumSegments, 0);
  RedoLastChange(d.desk);
  EXPECT_EQ(segmentTexts(d.store), drawn);
  EXPECT_EQ(d.beeps(), 0);
}

TEST_P(DrawingModes, StaysOnForTheNextShape) {
  ModeDesk d(command);
  d.draw(command);
  EXPECT_EQ(d.mode(), command.mode.number);
  EXPECT_EQ(d.desk.command.clickstage, 0);
}

// The same calls in the inverting pen take away what they have drawn.
TEST_P(DrawingModes, HoversBeforeTheClickThatDrawsAndVanishesExactly) {
  ModeDesk d(command);
  if (command.mode.threePoints) {
    d.press(1, 2, 0.5F);
    EXPECT_EQ(d.desk.pointer.RubberKind, 0) << "nothing to see before the second point";
    d.release(1, 2, 0.5F);
  }
  d.press(1, 1, 1.5F);
  d.log.take();
  moveRubberBand(d.desk, {1.5F, 1});
  d.log.take();
  eraseRubberBand(d.desk);
  const std::string erased = d.log.take();
  EXPECT_NE(erased, "");
  EXPECT_EQ(d.store.NumSegments, 0);
  showRubberBand(d.desk);
  EXPECT_EQ(d.log.take(), erased);
  EXPECT_EQ(d.desk.pointer.RubberKind, command.mode.number);
}

INSTANTIATE_TEST_SUITE_P(All, DrawingModes, ::testing::ValuesIn(modeCommands()),
                         [](const auto& row) {
                           return "Mode" + std::to_string(row.param->mode.number);
                         });

}  // namespace
}  // namespace tess
