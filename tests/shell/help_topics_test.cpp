// Places in the manual's document.
#include "shell/help_topics.h"

#include "gtest/gtest.h"

#include "shell/command_table.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

constexpr char kPages[] = "/Type /Pages\n/Kids [ 6 0 R 12 0 R ]\n/Count 2\n>>\n";
constexpr char kPlaces[] =
    "/Dests <<\n/Names [ (a_b) [ 12 0 R /XYZ 1 2 0 ] (miLine) [ 6 0 R /XYZ ] ]";

TEST(HelpTopics, NamesKeepLettersAndDigitsAlone) {
  EXPECT_EQ(helpTopic("miArcC+2P"), "miArcC_2P");
  EXPECT_EQ(helpTopic("miEditPath/Cycle"), "miEditPath_Cycle");
  EXPECT_EQ(helpTopic("dlgToolPrms"), "dlgToolPrms");
}

TEST(HelpTopics, PlacesHaveThePagesOfTheirObjects) {
  EXPECT_EQ(manualPlaces(std::string(kPages) + kPlaces), (ManualPlaces{{"a_b", 2}, {"miLine", 1}}));
}

TEST(HelpTopics, APlaceOnNoPageOfTheListIsLeftOut) {
  EXPECT_EQ(manualPlaces(std::string(kPages) + "/Dests << /Names [ (x) [ 7 0 R ] (y) [ 6 0 R ] ]"),
            (ManualPlaces{{"y", 1}}));
}

TEST(HelpTopics, WithoutAListThereAreNoPlaces) {
  EXPECT_EQ(manualPlaces(""), ManualPlaces{});
  EXPECT_EQ(manualPlaces(kPages), ManualPlaces{});
  EXPECT_EQ(manualPlaces(kPlaces), ManualPlaces{});
  EXPECT_EQ(manualPlaces("/Dests << /Names [ (x) [ 99999999999999999999 0 R ] ]"), ManualPlaces{});
}

TEST(HelpTopics, OfADocumentThatWasCutOffOnlyWholePlacesCount) {
  const std::string document = std::string(kPages) + kPlaces;
  const ManualPlaces whole = manualPlaces(document);
  for (std::size_t length = 0; length < document.size(); ++length) {
    for (const auto& [name, page] : manualPlaces(document.substr(0, length))) {
      ASSERT_EQ(whole.at(name), page) << length;
    }
  }
}

std::string armed(int pendingaction, int drawMode) {
  const CommandEntry* const command = armedCommand(pendingaction, drawMode);
  return command == nullptr ? "" : command->info->tool;
}

TEST(ArmedCommand, IsThatOfTheActionElseOfTheMode) {
  EXPECT_EQ(armed(static_cast<int>(PendingAction::TrimBy), 1), "miTrimEntity");
  EXPECT_EQ(armed(static_cast<int>(PendingAction::FinishReference), 0), "miPlaceFinishPath");
  EXPECT_EQ(armed(0, 1), "miLine");
  EXPECT_EQ(armed(0, 6), "miRectangle");
}

TEST(ArmedCommand, WithNeitherThereIsNone) {
  EXPECT_EQ(armed(0, 0), "");
  EXPECT_EQ(armed(0, 4), "");
  EXPECT_EQ(armed(static_cast<int>(PendingAction::PlaceText), 0), "");
}

}  // namespace
}  // namespace tess
