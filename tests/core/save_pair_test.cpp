// Saves that meet something: files that others have changed, another process at work, names without
// a path file, and backups that are worth more than what is there.
#include "core/save_pair.h"

#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "tests/support/drawing_folder.h"
#include "tests/support/failure_of.h"
#include "tests/support/other_process.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::DrawingFolder;
using ::testing::ElementsAre;
using testing::failureOf;
using ::testing::IsEmpty;
using testing::OtherProcess;
using testing::OtherStart;
using ::testing::SizeIs;

// Files that were changed since.

class ChangedOnDisk : public ::testing::Test, protected DrawingFolder {
 protected:
  ChangedOnDisk() {
    addLine(1);
    addPath(1);
    saveAs("PART.CDM");
    load("PART.CDM");
    addLine(2);
  }
  void answer(Answer answer) { test.recording.prompts.answers = {answer}; }
  // Another process saves the drawing with one more row.
  void saveElsewhere() {
    OtherStart other(test.home());
    other.load("PART.CDM");
    AddSeg(other.store, {.type = kLine, .x1 = 9}, nullptr);
    save_Drawing(other.session);
    theirs_ = read("PART.CDM");
  }
  std::string question() const {
    return cnc("PART.CDM") +
           " has been changed on the disk since it was opened.\n\nSave under another name? No "
           "replaces it, and what is there now becomes the backup.";
  }

  std::string theirs_;
};

TEST_F(ChangedOnDisk, NobodyIsAskedWhileTheFilesAreThose) {
  save_Drawing(session);
  addLine(3);
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(ChangedOnDisk, SaveAsksAndCancelSavesNothing) {
  saveElsewhere();
  for (int attempt = 0; attempt < 2; ++attempt) {
    answer(Answer::Cancel);
    save_Drawing(session);
    ASSERT_THAT(test.messages(), SizeIs(1));
    EXPECT_EQ(test.messages()[0].buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(test.messages()[0].icon, MessageIcon::Question);
    EXPECT_THAT(takeTexts(), ElementsAre(question()));
    EXPECT_EQ(read("PART.CDM"), theirs_);
    EXPECT_FALSE(store.drawingsaved);
  }
}

TEST_F(ChangedOnDisk, YesAsksForAnotherName) {
  saveElsewhere();
  answer(Answer::Yes);
  test.recording.prompts.files = {cnc("MINE")};
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), ElementsAre(question()));
  EXPECT_EQ(read("PART.CDM"), theirs_);
  EXPECT_TRUE(has("MINE.CDM"));
  EXPECT_EQ(store.drawingname, "MINE.CDM");
  EXPECT_TRUE(store.drawingsaved);
}

// What a script without handlers does: nothing that another did is lost.
TEST_F(ChangedOnDisk, WithoutAnAnswerNothingIsReplaced) {
  saveElsewhere();
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM"), theirs_);
  EXPECT_EQ(store.drawingname, "PART.CDM");
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(ChangedOnDisk, NoReplacesItAndKeepsTheirsAsTheBackup) {
  saveElsewhere();
  answer(Answer::No);
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), ElementsAre(question()));
  EXPECT_EQ(read("PART.CDM~"), theirs_);
  EXPECT_NE(read("PART.CDM"), theirs_);
  EXPECT_TRUE(store.drawingsaved);
  addLine(3);
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), IsEmpty()) << "now it is known";
}

TEST_F(ChangedOnDisk, TheirRowsAreABackupAlsoForADrawingWithout) {
  store.NumSegments = 0;
  store.NumPathSegments = 0;
  save_Drawing(session);
  saveElsewhere();
  store.drawingtitle = "empty still";
  answer(Answer::No);
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM~"), theirs_);
}

TEST_F(ChangedOnDisk, AnotherChangeDuringTheQuestionIsAskedAboutAgain) {
  saveElsewhere();
  test.recording.prompts.answers = {Answer::No, Answer::Cancel};
  test.recording.prompts.onMessage = [this] { write("PART.CDM", theirs_ + "1,8,0,0,5,5\r\n"); };
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), ElementsAre(question(), question()));
  EXPECT_EQ(read("PART.CDM"), theirs_ + "1,8,0,0,5,5\r\n");
}

TEST_F(ChangedOnDisk, AnswerThatOpensAnotherDrawingSavesNeither) {
  saveElsewhere();
  write("OTHER.CDM", theirs_);
  answer(Answer::No);
  test.recording.prompts.onMessage = [this] {
    test.recording.prompts.onMessage = nullptr;
    load("OTHER.CDM");
  };
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM"), theirs_);
  EXPECT_EQ(read("OTHER.CDM"), theirs_);
  EXPECT_EQ(store.drawingname, "OTHER.CDM");
}

TEST_F(ChangedOnDisk, PathFileCountsToo) {
  write("PART.TPM", "1,102,0,0,7,0,0,0,-.5,8\r\n");
  answer(Answer::Cancel);
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), ElementsAre(question()));
}

TEST_F(ChangedOnDisk, NewPathFileCountsToo) {
  store.NumPathSegments = 0;
  save_Drawing(session);
  write("PART.TPM", "1,102,0,0,7,0,0,0,-.5,8\r\n");
  addLine(3);
  answer(Answer::Cancel);
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), ElementsAre(question()));
}

TEST_F(ChangedOnDisk, SameContentAnewIsNoChange) {
  write("PART.CDM", read("PART.CDM"));
  fs::last_write_time(cnc("PART.CDM"), fs::file_time_type::clock::now());
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), IsEmpty());
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(ChangedOnDisk, FileThatIsGoneCannotBeReplaced) {
  fs::remove(cnc("PART.CDM"));
  fs::remove(cnc("PART.TPM"));
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), IsEmpty());
  EXPECT_TRUE(has("PART.CDM"));
  EXPECT_TRUE(has("PART.TPM"));
}

TEST_F(ChangedOnDisk, ContentThatIsThereAlreadyIsNoQuestion) {
  OtherStart other(test.home());
  other.load("PART.CDM");
  AddSeg(other.store, {.type = kLine, .x1 = 2, .y1 = 1}, nullptr);
  save_Drawing(other.session);
  save_Drawing(session);
  EXPECT_THAT(takeTexts(), IsEmpty());
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(ChangedOnDisk, OverwritingThatWasAgreedToIsNotAskedAboutAgain) {
  saveElsewhere();
  test.recording.prompts.files = {cnc("PART")};
  answer(Answer::Yes);
  save_file_As(session);
  EXPECT_THAT(takeTexts(), ElementsAre("File already exists! Overwrite?"));
  EXPECT_NE(read("PART.CDM"), theirs_);
}

TEST_F(ChangedOnDisk, ANewDrawingUnderThatNameKnowsNothingOfIt) {
  saveElsewhere();
  new_drawing(session);
  addLine(4);
  saveAs("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
  EXPECT_EQ(read("PART.CDM~"), theirs_);
}

TEST_F(ChangedOnDisk, NameInOtherCaseIsTheSameDrawing) {
  saveElsewhere();
  answer(Answer::Cancel);
  saveAs("part.cdm");
  EXPECT_THAT(takeTexts(), SizeIs(1));
  EXPECT_EQ(read("PART.CDM"), theirs_);
}

// Other processes.

class OtherProcesses : public ::testing::Test, protected DrawingFolder {
 protected:
  OtherProcesses() {
    addLine(1);
    saveAs("PART.CDM");
  }
};

TEST_F(OtherProcesses, DrawingThatIsOpenElsewhereIsToldAtOpening) {
  OtherStart theirs(test.home());
  OtherProcess other([&] { theirs.load("PART.CDM"); });
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), ElementsAre(cnc("PART.CDM") + " is open in another process (" +
                                       std::to_string(other.number()) +
                                       "): what is not saved there is missing here."));
  other.kill();
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(OtherProcesses, DrawingStaysOpenThroughItsSaves) {
  OtherStart theirs(test.home());
  const OtherProcess other([&] {
    theirs.load("PART.CDM");
    AddSeg(theirs.store, {.type = kLine, .x1 = 5}, nullptr);
    save_Drawing(theirs.session);
    write("PART.CDM", read("PART.CDM") + "1,8,0,0,5,5\r\n");
    theirs.recording.prompts.answers = {Answer::Cancel};
    AddSeg(theirs.store, {.type = kLine, .x1 = 6}, nullptr);
    save_Drawing(theirs.session);  // reads the file that is there, and replaces nothing
  });
  load("PART.CDM");
  EXPECT_EQ(store.NumSegments, 3);
  EXPECT_EQ(takeTexts().back().find(cnc("PART.CDM") + " is open in another process"), 0U);
}

TEST_F(OtherProcesses, DrawingThatWasLeftIsOpenNoMore) {
  OtherStart theirs(test.home());
  const OtherProcess other([&] {
    theirs.load("PART.CDM");
    new_drawing(theirs.session);
  });
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(OtherProcesses, JobThatOnlyReadsIsToldButShowsNoPresence) {
  OtherStart theirs(test.home());
  theirs.session.opensToRead = true;
  OtherProcess other([&] { theirs.load("PART.CDM"); });
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
  other.kill();
  OtherStart window(test.home());
  const OtherProcess open([&] { window.load("PART.CDM"); });
  session.opensToRead = true;
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), SizeIs(1));
}

TEST_F(OtherProcesses, SaveWhileAnotherIsSavingFailsClearlyAndKeepsTheWork) {
  std::optional<FolderLock> theirs;
  OtherProcess other([&] { theirs.emplace(cnc("")); });
  addLine(2);
  const RuntimeFailure failure = failureOf([&] { save_Drawing(session); });
  EXPECT_EQ(failure.number(), FailureNumber::PermissionDenied);
  EXPECT_EQ(failure.source(), cnc("PART.CDM"));
  EXPECT_EQ(failure.description(),
            "Another process is saving in this folder. Save again when it is done");
  EXPECT_FALSE(store.drawingsaved);
  other.kill();
  save_Drawing(session);
  EXPECT_TRUE(store.drawingsaved);
}

// A process that was stopped in the middle of its save.
TEST_F(OtherProcesses, OpeningWhileAnotherHangsInItsSaveShowsWhatBelongsTogether) {
  const std::string stem = journalStem("PART.CDM");
  const std::string drawing = read("PART.CDM");
  const std::string more = drawing + "1,8,0,0,5,5\r\n";
  std::optional<FolderLock> theirs;
  const OtherProcess other([&] {
    theirs.emplace(cnc(""));
    const SaveJournal journal{
        .name = "PART.CDM",
        .keepsOld = true,
        .files = {{.before = checksumOf(drawing), .after = checksumOf(more)},
                  {.before = std::nullopt, .after = checksumOf("1,102,0,0,7,0,0,0,-.5,8\r\n")}}};
    write(journalName(stem), journalText(journal));
    write(freshName(stem, 1), "1,102,0,0,7,0,0,0,-.5,8\r\n");
    write("PART.CDM", more);
  });
  const auto before = entries();
  load("PART.CDM");
  EXPECT_EQ(store.NumSegments, 2);
  EXPECT_EQ(store.NumPathSegments, 1);
  EXPECT_EQ(entries(), before) << "the folder is theirs";
}

// Names that have no path file.

class OtherNames : public ::testing::Test, protected DrawingFolder {
 protected:
  std::string question(const std::string& rows) const {
    return "PART.OLD will be saved without its tool path of " + rows +
           ": only drawings named *.cdm keep one.\n\nSave it all the same? No asks for another "
           "name.";
  }
};

TEST_F(OtherNames, LossOfThePathIsAskedAboutBefore) {
  addLine(1);
  addPath();
  test.recording.prompts.answers = {Answer::Cancel};
  saveAs("PART.OLD");
  ASSERT_THAT(test.messages(), SizeIs(1));
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::YesNoCancel);
  EXPECT_THAT(takeTexts(), ElementsAre(question("1 row")));
  EXPECT_THAT(entries(), IsEmpty());
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(OtherNames, YesSavesWithoutThePath) {
  addPath();
  addPath();
  saveAs("PART.OLD");
  EXPECT_THAT(takeTexts(), ElementsAre(question("2 rows")));
  EXPECT_THAT(entries(), ElementsAre("PART.OLD"));
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(OtherNames, NoAsksForAnotherName) {
  addPath();
  test.recording.prompts.answers = {Answer::No, Answer::No};
  test.recording.prompts.files = {cnc("AGAIN.OLD"), cnc("PART")};
  saveAs("PART.OLD");
  EXPECT_THAT(takeTexts(), SizeIs(2)) << "the other name had none either";
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPM"));
  EXPECT_EQ(store.drawingname, "PART.CDM");
}

TEST_F(OtherNames, DrawingThatIsNotSavedUnderTheNewNameKeepsItsOwn) {
  addPath();
  saveAs("PART.CDM");
  addPath();
  test.recording.prompts.answers = {Answer::Cancel};
  test.recording.prompts.files = {cnc("PART.OLD")};
  save_file_As(session);
  EXPECT_EQ(store.drawingname, "PART.CDM");
  EXPECT_EQ(store.drawingpath, cnc(""));
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPM"));
}

TEST_F(OtherNames, WithoutAPathThereIsNothingToAsk) {
  addLine(1);
  saveAs("PART.OLD");
  EXPECT_THAT(takeTexts(), IsEmpty());
  EXPECT_THAT(entries(), ElementsAre("PART.OLD"));
}

// Backups.

class Backups : public ::testing::Test, protected DrawingFolder {};

TEST_F(Backups, SavingTheSameTwiceKeepsTheBackup) {
  addLine(1);
  saveAs("PART.CDM");
  const std::string first = read("PART.CDM");
  addLine(2);
  save_Drawing(session);
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM~"), first);
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(Backups, BackupWithRowsOutlivesADrawingWithout) {
  addLine(1);
  addPath();
  saveAs("PART.CDM");
  const std::string drawing = read("PART.CDM");
  const std::string paths = read("PART.TPM");
  store.NumSegments = 0;
  store.NumPathSegments = 0;
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM~"), drawing);
  store.drawingtitle = "empty still";
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM~"), drawing);
  EXPECT_EQ(read("PART.TPM~"), paths);
  addLine(3);
  save_Drawing(session);
  EXPECT_EQ(read("PART.CDM~"), drawing) << "what was replaced had no rows";
  addLine(4);
  save_Drawing(session);
  EXPECT_NE(read("PART.CDM~"), drawing);
  EXPECT_FALSE(has("PART.TPM~"));
}

TEST_F(Backups, DrawingThatOtherSessionsEmptiedIsNoBackupEither) {
  addLine(1);
  saveAs("PART.CDM");
  const std::string good = read("PART.CDM");
  addLine(2);
  save_Drawing(session);
  write("PART.CDM", "no drawing at all");
  new_drawing(session);
  addLine(3);
  saveAs("PART.CDM");
  EXPECT_EQ(read("PART.CDM~"), good);
}

TEST_F(Backups, BackupOfADeletedDrawingStays) {
  addLine(1);
  saveAs("PART.CDM");
  addLine(2);
  save_Drawing(session);
  const std::string backup = read("PART.CDM~");
  fs::remove(cnc("PART.CDM"));
  new_drawing(session);
  addLine(3);
  saveAs("PART.CDM");
  EXPECT_EQ(read("PART.CDM~"), backup);
}

TEST_F(Backups, BackupOfPathsAloneHasRowsToo) {
  addPath();
  saveAs("PART.CDM");
  const std::string paths = read("PART.TPM");
  store.NumPathSegments = 0;
  save_Drawing(session);
  store.drawingtitle = "empty still";
  save_Drawing(session);
  EXPECT_EQ(read("PART.TPM~"), paths);
}

}  // namespace
}  // namespace tess
