// Saves that were cut off, as they are found: what is completed, what is taken back, and what is
// better left alone.
#include "core/settle_files.h"

#include <algorithm>
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/temp_folder.h"
#include "tests/support/without_root_rights.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::Optional;
using testing::TempFolder;
using testing::WithoutRootRights;
using testing::writeFile;

// A drawing and its paths: the old ones are in their places, the journal says what shall come.
class SettleFiles : public ::testing::Test {
 protected:
  SettleFiles() {
    put("PART.CDM", "old drawing");
    put("PART.TPM", "old paths");
    put("PART.CDM~", "older drawing");
    put("PART.TPM~", "older paths");
    journal_ = {.name = "PART.CDM",
                .keepsOld = true,
                .files = {{.before = checksumOf("old drawing"), .after = checksumOf("new drawing")},
                          {.before = checksumOf("old paths"), .after = checksumOf("new paths")}}};
  }

  void put(const std::string& name, std::string_view content) { writeFile(folder_(name), content); }
  std::string stem() const { return journalStem("PART.CDM"); }
  void putJournal() { put(journalName(stem()), journalText(journal_)); }
  void putFresh() {
    put(freshName(stem(), 0), "new drawing");
    put(freshName(stem(), 1), "new paths");
  }
  void putSpares() {
    fs::create_hard_link(folder_("PART.CDM"), folder_(spareName(stem(), 0)));
    fs::create_hard_link(folder_("PART.TPM"), folder_(spareName(stem(), 1)));
  }
  void placeDrawing() { fs::rename(folder_(freshName(stem(), 0)), folder_("PART.CDM")); }

  std::optional<Settled> settle(bool mayWrite = true) {
    NoGuard nobody;
    return settleFiles(FileGroup(nobody, {folder_("PART.CDM"), folder_("PART.TPM")}), mayWrite);
  }

  // What stands in the folder, one "name: content" for each file, sorted.
  std::vector<std::string> files() const {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder_())) {
      const std::string name = entry.path().filename().string();
      found.push_back(name + ": " + folder_.read(name));
    }
    std::sort(found.begin(), found.end());
    return found;
  }
  void expectCompleted() {
    EXPECT_THAT(files(), ElementsAre("PART.CDM: new drawing", "PART.CDM~: old drawing",
                                     "PART.TPM: new paths", "PART.TPM~: old paths"));
  }
  void expectOld() {
    EXPECT_THAT(files(), ElementsAre("PART.CDM: old drawing", "PART.CDM~: older drawing",
                                     "PART.TPM: old paths", "PART.TPM~: older paths"));
  }

  TempFolder folder_;
  SaveJournal journal_;
};

TEST_F(SettleFiles, WithoutAJournalNothingHappens) {
  putFresh();
  EXPECT_FALSE(settle());
  EXPECT_EQ(files().size(), 6U);
}

TEST_F(SettleFiles, SaveIsCompletedOnceAllOfItIsOnTheDisk) {
  putJournal();
  putFresh();
  const auto settled = settle();
  ASSERT_TRUE(settled);
  EXPECT_EQ(settled->outcome, Settlement::Completed);
  EXPECT_TRUE(settled->written);
  EXPECT_THAT(settled->contents, ElementsAre("new drawing", "new paths"));
  expectCompleted();
}

TEST_F(SettleFiles, SaveThatHadPlacedOneFileIsCompleted) {
  putJournal();
  putFresh();
  putSpares();
  placeDrawing();
  EXPECT_EQ(settle()->outcome, Settlement::Completed);
  expectCompleted();
}

TEST_F(SettleFiles, SaveThatHadRenewedOneBackupIsCompleted) {
  putJournal();
  putFresh();
  putSpares();
  placeDrawing();
  fs::rename(folder_(freshName(stem(), 1)), folder_("PART.TPM"));
  fs::rename(folder_(spareName(stem(), 0)), folder_("PART.CDM~"));
  EXPECT_EQ(settle()->outcome, Settlement::Completed);
  expectCompleted();
}

TEST_F(SettleFiles, SaveThatKeepsTheBackupLeavesIt) {
  journal_.keepsOld = false;
  putJournal();
  putFresh();
  putSpares();
  EXPECT_EQ(settle()->outcome, Settlement::Completed);
  EXPECT_THAT(files(), ElementsAre("PART.CDM: new drawing", "PART.CDM~: older drawing",
                                   "PART.TPM: new paths", "PART.TPM~: older paths"));
}

TEST_F(SettleFiles, SaveWithoutPathsTakesThePathFileAway) {
  journal_.files[1].after.reset();
  putJournal();
  put(freshName(stem(), 0), "new drawing");
  const auto settled = settle();
  EXPECT_EQ(settled->outcome, Settlement::Completed);
  EXPECT_THAT(settled->contents, ElementsAre("new drawing", std::nullopt));
  EXPECT_THAT(files(), ElementsAre("PART.CDM: new drawing", "PART.CDM~: old drawing",
                                   "PART.TPM~: old paths"));
}

TEST_F(SettleFiles, NewContentThatIsNotWholeIsTakenBack) {
  putJournal();
  put(freshName(stem(), 0), "new drawing");
  put(freshName(stem(), 1), "new pa");
  const auto settled = settle();
  EXPECT_EQ(settled->outcome, Settlement::TakenBack);
  EXPECT_THAT(settled->contents, ElementsAre("old drawing", "old paths"));
  expectOld();
}

// As after a loss of power on a disk that did not keep its word.
TEST_F(SettleFiles, FileThatIsInItsPlaceGoesBackWhereTheOtherIsLost) {
  putJournal();
  putFresh();
  putSpares();
  placeDrawing();
  fs::remove(folder_(freshName(stem(), 1)));
  EXPECT_EQ(settle()->outcome, Settlement::TakenBack);
  expectOld();
}

TEST_F(SettleFiles, FileGoesBackFromItsBackupToo) {
  putJournal();
  put(freshName(stem(), 0), "new drawing");
  placeDrawing();
  put("PART.CDM~", "old drawing");
  EXPECT_EQ(settle()->outcome, Settlement::TakenBack);
  EXPECT_THAT(files(), ElementsAre("PART.CDM: old drawing", "PART.CDM~: old drawing",
                                   "PART.TPM: old paths", "PART.TPM~: older paths"));
}

TEST_F(SettleFiles, NewDrawingThatIsNotWholeLeavesNothing) {
  for (const char* name : {"PART.CDM", "PART.TPM", "PART.CDM~", "PART.TPM~"}) {
    fs::remove(folder_(name));
  }
  journal_.files[0].before.reset();
  journal_.files[1].before.reset();
  putJournal();
  put(freshName(stem(), 0), "new drawing");
  placeDrawing();
  const auto settled = settle();
  EXPECT_EQ(settled->outcome, Settlement::TakenBack);
  EXPECT_THAT(settled->contents, ElementsAre(std::nullopt, std::nullopt));
  EXPECT_TRUE(files().empty());
}

TEST_F(SettleFiles, JournalThatIsNotWholeStandsForNothing) {
  putJournal();
  const std::string text = folder_.read(journalName(stem()));
  for (const std::size_t length : {std::size_t{0}, text.size() / 2, text.size() - 1}) {
    put(journalName(stem()), text.substr(0, length));
    put(freshName(stem(), 0), "new dra");
    EXPECT_EQ(settle()->outcome, Settlement::TakenBack);
    expectOld();
  }
}

TEST_F(SettleFiles, JournalOfAnotherNumberOfFilesStandsForNothing) {
  journal_.files.pop_back();
  putJournal();
  EXPECT_EQ(settle()->outcome, Settlement::TakenBack);
  expectOld();
}

// A forged one could otherwise take the drawing away.
TEST_F(SettleFiles, JournalThatHasTheDrawingRemovedStandsForNothing) {
  journal_.files[0].after.reset();
  putJournal();
  EXPECT_EQ(settle()->outcome, Settlement::TakenBack);
  expectOld();
}

TEST_F(SettleFiles, FilesThatSomebodyHasChangedSinceStayAsTheyAre) {
  putJournal();
  putFresh();
  put("PART.CDM", "another drawing");
  const auto settled = settle();
  EXPECT_EQ(settled->outcome, Settlement::LeftAlone);
  EXPECT_THAT(settled->contents, ElementsAre("another drawing", "old paths"));
  EXPECT_THAT(files(), ElementsAre("PART.CDM: another drawing", "PART.CDM~: older drawing",
                                   "PART.TPM: old paths", "PART.TPM~: older paths"));
}

TEST_F(SettleFiles, FilesOfTwoSavesThatCannotBeMadeOneStayAsTheyAre) {
  putJournal();
  put("PART.CDM", "new drawing");
  EXPECT_EQ(settle()->outcome, Settlement::LeftAlone);
  EXPECT_THAT(files(), ElementsAre("PART.CDM: new drawing", "PART.CDM~: older drawing",
                                   "PART.TPM: old paths", "PART.TPM~: older paths"));
}

TEST_F(SettleFiles, LookingChangesNothing) {
  putJournal();
  putFresh();
  putSpares();
  placeDrawing();
  const auto before = files();
  const auto settled = settle(/*mayWrite=*/false);
  EXPECT_EQ(settled->outcome, Settlement::Completed);
  EXPECT_FALSE(settled->written);
  EXPECT_FALSE(settled->unwritten);
  EXPECT_THAT(settled->contents, ElementsAre("new drawing", "new paths"));
  EXPECT_EQ(files(), before);
}

TEST_F(SettleFiles, ReadOnlyFolderGivesTheContentsThatBelongTogether) {
  putJournal();
  putFresh();
  putSpares();
  placeDrawing();
  const auto before = files();
  fs::permissions(folder_(), static_cast<fs::perms>(0555));
  std::optional<Settled> settled;
  {
    const WithoutRootRights somebody;
    settled = settle();
  }
  fs::permissions(folder_(), fs::perms::owner_all);
  EXPECT_EQ(settled->outcome, Settlement::Completed);
  EXPECT_FALSE(settled->written);
  EXPECT_EQ(settled->unwritten->number(), FailureNumber::PermissionDenied);
  EXPECT_THAT(settled->contents, ElementsAre("new drawing", "new paths"));
  EXPECT_EQ(files(), before);
}

TEST_F(SettleFiles, FolderInThePlaceOfABackupIsNoObstacleToTakingBack) {
  fs::remove(folder_("PART.CDM~"));
  fs::create_directory(folder_("PART.CDM~"));
  putJournal();
  EXPECT_EQ(settle()->outcome, Settlement::TakenBack);
  EXPECT_FALSE(folder_.has(journalName(stem())));
}

}  // namespace
}  // namespace tess
