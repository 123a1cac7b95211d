// Drawings whose last save was cut off, as they are opened and saved next: what is put in order and
// what the operator is told.
#include "core/drawing_recovery.h"

#include <csignal>
#include <filesystem>
#include <functional>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "tests/support/drawing_folder.h"
#include "tests/support/interrupted_process.h"
#include "tests/support/without_root_rights.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::DrawingFolder;
using ::testing::ElementsAre;
using testing::interruptedAt;
using testing::Interruption;
using testing::OtherStart;
using testing::WithoutRootRights;

class CutOffSave : public ::testing::Test, protected DrawingFolder {
 protected:
  CutOffSave() {
    fs::create_directories(test.home("files/CNC"));
    fs::remove(cnc(""));
    fs::create_directory_symlink("files/CNC", test.home("CNC"));
    addLine(1);
    addPath(1);
    saveAs("PART.CDM");
    oldDrawing_ = read("PART.CDM");
    oldPaths_ = read("PART.TPM");
    addLine(2);
    addPath(2);
  }

  // A save that dies as soon as the folder is as wanted.
  void cutOffWhen(const std::function<bool()>& folderIs) {
    const fs::path before = test.home("before");
    const auto options = fs::copy_options::recursive | fs::copy_options::copy_symlinks;
    fs::copy(test.home("files"), before, options);
    for (int call = 1; !folderIs(); ++call) {
      fs::remove_all(test.home("files"));
      fs::copy(before, test.home("files"), options);
      ASSERT_TRUE(interruptedAt(call, Interruption::Killed, [this] { save_Drawing(session); }))
          << "the save has come through";
    }
    fs::remove_all(before);
  }
  bool hasJournal() const { return has(journalName(journalStem("PART.CDM"))); }
  // One file is new and one is old.
  void tear() {
    cutOffWhen([this] {
      return hasJournal() && read("PART.CDM") != oldDrawing_ && read("PART.TPM") == oldPaths_;
    });
  }
  // Nothing is there yet but the journal.
  void cutOffEarly() {
    cutOffWhen([this] { return hasJournal() && entries().size() == 3; });
  }
  std::string told(const std::string& what) const {
    return "The last save of " + cnc("PART.CDM") + " was cut off." + what;
  }

  std::string oldDrawing_, oldPaths_;
};

TEST_F(CutOffSave, TornPairIsCompletedAtTheNextOpenAndTheOperatorIsTold) {
  tear();
  OtherStart next(test.home());
  next.load("PART.CDM");
  EXPECT_THAT(next.texts(), ElementsAre(told(" It has now been completed.")));
  EXPECT_EQ(next.store.NumSegments, 2);
  EXPECT_EQ(next.store.NumPathSegments, 2);
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.CDM~", "PART.TPM", "PART.TPM~"));
  EXPECT_EQ(read("PART.CDM~"), oldDrawing_);
  next.recording.prompts.messages.clear();
  next.load("PART.CDM");
  EXPECT_TRUE(next.texts().empty()) << "once is enough";
}

TEST_F(CutOffSave, SaveThatHadJustBegunIsTakenBack) {
  cutOffEarly();
  OtherStart next(test.home());
  next.load("PART.CDM");
  EXPECT_THAT(next.texts(), ElementsAre(told(" All is as it was before that save.")));
  EXPECT_EQ(next.store.NumSegments, 1);
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPM"));
}

TEST_F(CutOffSave, AnswerThatOpensAnotherDrawingDoesNotMixTheTwo) {
  write("OTHER.CDM", oldDrawing_);
  tear();
  OtherStart next(test.home());
  next.recording.prompts.onMessage = [&next] {
    next.recording.prompts.onMessage = nullptr;
    next.load("OTHER.CDM");
  };
  next.load("PART.CDM");
  EXPECT_EQ(next.store.drawingname, "PART.CDM");
  EXPECT_EQ(next.store.NumSegments, 2);
}

TEST_F(CutOffSave, NameInOtherCaseIsTheSameDrawing) {
  tear();
  OtherStart next(test.home());
  next.load("part.Cdm");
  EXPECT_EQ(next.texts().size(), 1U);
  EXPECT_EQ(next.store.NumPathSegments, 2);
  EXPECT_EQ(entries().size(), 4U);
}

TEST_F(CutOffSave, OpeningAnotherDrawingOfTheFolderPutsItInOrderToo) {
  tear();
  write("OTHER.CDM", oldDrawing_);
  OtherStart next(test.home());
  next.load("OTHER.CDM");
  EXPECT_THAT(next.texts(), ElementsAre(told(" It has now been completed.")));
  EXPECT_THAT(entries(),
              ElementsAre("OTHER.CDM", "PART.CDM", "PART.CDM~", "PART.TPM", "PART.TPM~"));
}

// The file that was to come is not there yet, so nobody can open it by its name.
TEST_F(CutOffSave, NewDrawingIsCompletedWhenTheFolderIsOpenedNext) {
  test.name("NEW.CDM");
  cutOffWhen([this] { return has("NEW.CDM"); });
  fs::rename(cnc("NEW.CDM"), cnc(freshName(journalStem("NEW.CDM"), 0)));
  OtherStart next(test.home());
  next.load("PART.CDM");
  EXPECT_EQ(next.texts().size(), 1U);
  EXPECT_THAT(entries(), ElementsAre("NEW.CDM", "NEW.TPM", "PART.CDM", "PART.TPM"));
}

TEST_F(CutOffSave, FilesChangedSinceStayAndTheOperatorIsTold) {
  tear();
  write("PART.TPM", "1,102,0,0,7,0,0,0,-.5,8\r\n");
  OtherStart next(test.home());
  next.load("PART.CDM");
  EXPECT_EQ(
      next.texts().front(),
      told(" Its files have been changed since and stay as they are: drawing and tool path may "
           "not belong together."));
  EXPECT_EQ(read("PART.TPM"), "1,102,0,0,7,0,0,0,-.5,8\r\n");
  EXPECT_EQ(next.store.psx1[1], 7);
}

TEST_F(CutOffSave, ReadOnlyFolderShowsTheDrawingCompleteAllTheSame) {
  tear();
  const auto before = entries();
  fs::permissions(cnc(""), static_cast<fs::perms>(0555));
  fs::permissions(test.home(), static_cast<fs::perms>(0755));
  OtherStart next(test.home());
  {
    const WithoutRootRights somebody;
    next.load("PART.CDM");
  }
  fs::permissions(cnc(""), fs::perms::owner_all);
  EXPECT_THAT(next.texts(),
              ElementsAre(told(" It is shown complete, but its files cannot be put in "
                               "order here: Permission denied")));
  EXPECT_EQ(next.store.NumSegments, 2);
  EXPECT_EQ(next.store.NumPathSegments, 2);
  EXPECT_EQ(entries(), before);
}

TEST_F(CutOffSave, ReadOnlyFolderShowsTheDrawingAsItWasWhereTheSaveHadJustBegun) {
  cutOffEarly();
  fs::permissions(cnc(""), static_cast<fs::perms>(0555));
  fs::permissions(test.home(), static_cast<fs::perms>(0755));
  OtherStart next(test.home());
  {
    const WithoutRootRights somebody;
    next.load("PART.CDM");
  }
  fs::permissions(cnc(""), fs::perms::owner_all);
  EXPECT_THAT(next.texts(),
              ElementsAre(told(" It is shown as it was before that save, but its files "
                               "cannot be put in order here: Permission denied")));
  EXPECT_EQ(next.store.NumSegments, 1);
}

// The recovery may be cut off as well.
TEST_F(CutOffSave, RecoveryThatIsCutOffIsRecovered) {
  tear();
  const fs::path files = test.home("files");
  const fs::path copy = test.home("copy");
  fs::copy(files, copy, fs::copy_options::recursive);
  OtherStart next(test.home());
  int points = 0;
  for (;;) {
    fs::remove_all(files);
    fs::copy(copy, files, fs::copy_options::recursive);
    if (!interruptedAt(points + 1, Interruption::Killed, [&] { next.load("PART.CDM"); })) break;
    ++points;
    OtherStart third(test.home());
    third.load("PART.CDM");
    EXPECT_EQ(third.store.NumSegments, 2);
    EXPECT_EQ(third.store.NumPathSegments, 2);
    EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.CDM~", "PART.TPM", "PART.TPM~"));
    EXPECT_EQ(read("PART.CDM~"), oldDrawing_);
    EXPECT_EQ(read("PART.TPM~"), oldPaths_);
  }
  EXPECT_GT(points, 50);
  RecordProperty("points", points);
}

TEST_F(CutOffSave, NextSavePutsItInOrderFirst) {
  cutOffEarly();
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), ElementsAre(told(" All is as it was before that save.")));
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.CDM~", "PART.TPM", "PART.TPM~"));
  EXPECT_TRUE(store.drawingsaved);
}

// What a save of another process left complete is not what is open here.
TEST_F(CutOffSave, NextSaveAsksBeforeItReplacesWhatWasCompleted) {
  tear();
  addLine(3);
  test.recording.prompts.answers = {Answer::Ok, Answer::Cancel};
  save_Drawing(session);
  const auto texts = takeTexts();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0], told(" It has now been completed."));
  EXPECT_TRUE(texts[1].starts_with(cnc("PART.CDM") + " has been changed on the disk")) << texts[1];
  EXPECT_FALSE(store.drawingsaved);
}

// Names that others made.

// A journal as a save of that drawing leaves it, with the new content beside it.
void forgeJournal(const DrawingFolder& folder, const std::string& name, const std::string& stem) {
  const SaveJournal journal{.name = name,
                            .keepsOld = false,
                            .files = {{.before = checksumOf("mine"), .after = checksumOf("theirs")},
                                      {.before = std::nullopt, .after = std::nullopt}}};
  folder.write(journalName(stem), journalText(journal));
  folder.write(freshName(stem, 0), "theirs");
}

TEST_F(CutOffSave, JournalReachesNoFileButDrawings) {
  for (const char* name : {".bashrc", "notes.txt", ".hidden.cdm", "../PART.CDM"}) {
    const std::string file = fs::path(cnc(name)).lexically_normal().string();
    testing::writeFile(file, "mine");
    forgeJournal(*this, name, journalStem(name));
    OtherStart(test.home()).load("PART.CDM");
    EXPECT_EQ(readFile(file), "mine") << name;
    fs::remove(file);
  }
}

TEST_F(CutOffSave, JournalOfAnotherNameIsNone) {
  write("MINE.CDM", "mine");
  forgeJournal(*this, "MINE.CDM", journalStem("THEIRS.CDM"));
  OtherStart(test.home()).load("PART.CDM");
  EXPECT_EQ(read("MINE.CDM"), "mine");
}

TEST_F(CutOffSave, JournalWithoutANameGoesWithWhatBelongsToIt) {
  const std::string stem = journalStem("ANY.CDM");
  write(journalName(stem), "Tessimo sa");
  write(freshName(stem, 1), "half");
  write(spareName(stem, 0), "half");
  OtherStart next(test.home());
  next.load("PART.CDM");
  EXPECT_TRUE(next.texts().empty());
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPM"));
}

// Only the version that has written it knows what it says.
TEST_F(CutOffSave, JournalOfAnotherVersionStaysWithWhatBelongsToIt) {
  const std::string stem = ".tessimo-0123456789abcdef-8";
  write(journalName(stem), "Tessimo save 1\nPART.CDM\nrenews backup\nnone none\nno sum\n");
  write(freshName(stem, 0), "new");
  write(spareName(stem, 0), "old");
  OtherStart next(test.home());
  next.load("PART.CDM");
  EXPECT_TRUE(next.texts().empty());
  EXPECT_THAT(entries(), ElementsAre(freshName(stem, 0), spareName(stem, 0), journalName(stem),
                                     "PART.CDM", "PART.TPM"));
}

TEST_F(CutOffSave, TemporaryFilesOfDeadProcessesGoAtTheNextOpen) {
  write(".tessimo-1-0.tmp", "half");
  write(".tessimo-notes", "somebody's");
  OtherStart(test.home()).load("PART.CDM");
  EXPECT_THAT(entries(), ElementsAre(".tessimo-notes", "PART.CDM", "PART.TPM"));
}

TEST_F(CutOffSave, DrawingBehindALinkIsPutInOrderThere) {
  fs::create_directory(test.home("files/far"));
  fs::rename(cnc("PART.CDM"), test.home("files/far/REAL.CDM"));
  fs::create_symlink("../far/REAL.CDM", cnc("PART.CDM"));
  load("PART.CDM");
  addLine(2);
  addPath(2);
  tear();
  OtherStart next(test.home());
  next.load("PART.CDM");
  EXPECT_THAT(next.texts(), ElementsAre(told(" It has now been completed.")));
  EXPECT_EQ(next.store.NumSegments, 2);
  EXPECT_EQ(next.store.NumPathSegments, 2);
  EXPECT_TRUE(fs::is_symlink(cnc("PART.CDM")));
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPM", "PART.TPM~"));
  EXPECT_EQ(readFile(test.home("files/far/REAL.CDM~")), oldDrawing_);
}

}  // namespace
}  // namespace tess
