// What an empty window offers, and when.
#include "shell/start_offer.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/recent_files.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

struct StartOfferTest : ::testing::Test, testing::RunningProgram {
  std::vector<std::string> tools() {
    std::vector<std::string> names;
    for (const StartOffer::Entry& entry : offer.entries()) names.push_back(entry.tool);
    return names;
  }
  StartOffer offer{application};
};

TEST_F(StartOfferTest, AnEmptyProgramOffersWhatToBeginWith) {
  EXPECT_TRUE(offer.isOpen());
  EXPECT_EQ(tools(),
            (std::vector<std::string>{"miNew", "miOpen", "miImportDXFfile", "miExamples"}));
}

TEST_F(StartOfferTest, RecentFilesFollowByName) {
  home.write("CNC/gear.cdm", "");
  addRecent(application.session, home("CNC/gear.cdm"));
  const std::vector<StartOffer::Entry> entries = offer.entries();
  ASSERT_EQ(entries.size(), 5U);
  EXPECT_EQ(entries.back().tool, "miRecentFile1");
  EXPECT_EQ(entries.back().caption, "gear.cdm");
  EXPECT_EQ(entries.back().hint, home("CNC/gear.cdm"));
}

TEST_F(StartOfferTest, AnArmedCommandEndsItForTheTime) {
  application.clickTool("miLine");
  EXPECT_FALSE(offer.isOpen());
  application.interaction.resetPendingAction();
  EXPECT_TRUE(offer.isOpen());
  application.clickTool("miPan");
  EXPECT_FALSE(offer.isOpen());
}

TEST_F(StartOfferTest, ARowEndsIt) {
  AddSeg(application.store, {.type = kLine, .x1 = 1}, nullptr);
  EXPECT_FALSE(offer.isOpen());
}

TEST_F(StartOfferTest, APathEndsIt) {
  addPathSegment(application.store, {.type = kLine, .x1 = 1, .code = 100});
  EXPECT_FALSE(offer.isOpen());
}

TEST_F(StartOfferTest, ADrawingWithANameHasNone) {
  application.store.drawingname = "empty.cdm";
  EXPECT_FALSE(offer.isOpen());
}

TEST_F(StartOfferTest, ANewDrawingWasChosenUntilThereHasBeenARow) {
  offer.choose("miNew");
  EXPECT_FALSE(offer.isOpen());
  AddSeg(application.store, {.type = kLine, .x1 = 1}, nullptr);
  EXPECT_FALSE(offer.isOpen());
  platform.prompts.answers = {Answer::No};
  application.clickTool("miNew");
  EXPECT_TRUE(offer.isOpen());
}

TEST_F(StartOfferTest, AChoiceRunsItsCommand) {
  offer.choose("miExamples");
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(platform.prompts.messages.front().text, "There are no examples. They would be here:\n");
  EXPECT_TRUE(offer.isOpen());
}

}  // namespace
}  // namespace tess
