// The choices of pocketing against the numbers that setup files hold.
#include "core/pocketing_choices.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

TEST(PocketingChoices, HaveTheNumbersOfSetupFiles) {
  EXPECT_EQ(choiceNumber(PocketingStyle::Horizontal), 1);
  EXPECT_EQ(choiceNumber(PocketingStyle::Vertical), 2);
  EXPECT_EQ(choiceNumber(PocketingStyle::ParallelSpiral), 3);
  EXPECT_EQ(choiceNumber(CuttingMode::Conventional), 1);
  EXPECT_EQ(choiceNumber(CuttingMode::Climb), 2);
  EXPECT_EQ(choiceNumber(CuttingMode::Bidirectional), 3);
  EXPECT_EQ(choiceNumber(StepOver::ByPercent), 1);
  EXPECT_EQ(choiceNumber(StepOver::ByDistance), 2);
}

TEST(PocketingChoices, AreReadFromTheirSettings) {
  DrawingSettings settings;
  settings.cfg_pocketing_style = 3;
  settings.cfg_cutting_mode = 2;
  settings.cfg_cut_width_type = 1;
  EXPECT_EQ(pocketingStyle(settings), PocketingStyle::ParallelSpiral);
  EXPECT_EQ(cuttingMode(settings), CuttingMode::Climb);
  EXPECT_EQ(stepOver(settings), StepOver::ByPercent);
}

TEST(PocketingChoices, AnotherNumberIsKeptAndIsNoneOfThem) {
  DrawingSettings settings;
  settings.cfg_cutting_mode = -7;
  for (const CuttingMode named :
       {CuttingMode::Conventional, CuttingMode::Climb, CuttingMode::Bidirectional}) {
    EXPECT_NE(cuttingMode(settings), named);
  }
  EXPECT_EQ(choiceNumber(cuttingMode(settings)), -7);
}

TEST(StepsByDistance, NeedsTheChoiceAndADistance) {
  struct StepCase {
    int type;
    float distance;
    bool expected;
  };
  constexpr StepCase kCases[] = {
      {1, 0.5F, false}, {2, 0.5F, true}, {2, 0, false}, {2, -0.5F, false}, {0, 0.5F, false}};
  for (const StepCase& row : kCases) {
    DrawingSettings settings;
    settings.cfg_cut_width_type = row.type;
    settings.cfg_tool_spacing_distance = row.distance;
    EXPECT_EQ(stepsByDistance(settings), row.expected) << row.type << " " << row.distance;
  }
}

TEST(FillStepOver, ChangesOnlyAMissingChoice) {
  for (const auto& [before, after] : {std::pair{0, 1}, {1, 1}, {2, 2}, {5, 5}}) {
    DrawingSettings settings;
    settings.cfg_cut_width_type = before;
    fillStepOver(settings);
    EXPECT_EQ(settings.cfg_cut_width_type, after);
  }
}

}  // namespace
}  // namespace tess
