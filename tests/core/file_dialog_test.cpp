// The two file dialogs without a window: what they list, where they go, and what they take.
#include "core/file_dialog.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using Names = std::vector<std::string>;

class FileDialogTest : public ::testing::Test {
 protected:
  FileDialogTest() {
    for (const char* name : {"beta.cdm", "Alpha.CDM", "alpha.tpm", ".hidden.cdm", "notes.txt"}) {
      folder.write(name, "");
    }
    for (const char* name : {"old", "Backup", ".git"}) {
      std::filesystem::create_directory(folder(name));
    }
    folder.write("old/first.cdm", "");
  }

  FileDialog& show(FileRequest request) {
    request.folder = folder();
    dialog = fileDialogFor(request);
    dialog->open(Modality::Modal);
    return *dialog;
  }
  FileDialog& showOpen() {
    return show({.title = "Drawing File Selector", .pattern = "*.CDM", .folder = {}, .name = {}});
  }
  FileDialog& showSave() {
    return show({.title = "Save As",
                 .pattern = "Drawing Files (*.cdm)|*.cdm|All Files (*.*)|*.*",
                 .folder = {},
                 .name = "PART.CDM",
                 .forSaving = true});
  }
  // Types a name and presses the Enter key.
  void enter(const std::string& name) {
    dialog->txtName.type(name);
    dialog->pressDefault();
  }

  testing::TempFolder folder;
  std::unique_ptr<FileDialog> dialog;
};

TEST_F(FileDialogTest, EachKindHasItsNameTitleAndButton) {
  showOpen();
  EXPECT_EQ(dialog->name(), "dlgGetFile");
  EXPECT_EQ(dialog->caption(), "Drawing File Selector");
  EXPECT_EQ(dialog->cmdOK.caption(), "&Open");
  showSave();
  EXPECT_EQ(dialog->name(), "DlgSaveFile");
  EXPECT_EQ(dialog->caption(), "Save As");
  EXPECT_EQ(dialog->cmdOK.caption(), "&Save");
  EXPECT_EQ(dialog->txtName.text(), "PART.CDM") << "the name that the program offers";
}

TEST_F(FileDialogTest, ListsWhatFitsInTheOrderOfNamesRegardlessOfCase) {
  showOpen();
  EXPECT_EQ(dialog->folder(), folder());
  EXPECT_EQ(dialog->lstFiles.items(), (Names{"Alpha.CDM", "beta.cdm"}));
  EXPECT_EQ(dialog->lstFolders.items(), (Names{"..", "Backup", "old"}));
  EXPECT_EQ(dialog->cmbFilter.items(), Names{"*.CDM"});
}

TEST_F(FileDialogTest, OffersThePlacesOfTheRequestThatAreThere) {
  testing::TempFolder other;
  show({.title = "Open",
        .pattern = "*.CDM",
        .folder = {},
        .name = {},
        .okCaption = "&Delete",
        .places = {other(), "/no/such/folder", other()}});
  const std::vector<std::string>& places = dialog->cmbFolder.items();
  EXPECT_EQ(std::count(places.begin(), places.end(), other()), 1);
  EXPECT_EQ(std::count(places.begin(), places.end(), "/no/such/folder/"), 0);
  EXPECT_EQ(dialog->cmdOK.caption(), "&Delete");
  EXPECT_FALSE(dialog->picDrawing.isVisible());
}

TEST_F(FileDialogTest, ShowsTheDrawingThatIsChosen) {
  show({.title = "Open", .pattern = "*.CDM", .folder = {}, .name = {}, .showsDrawings = true});
  EXPECT_TRUE(dialog->picDrawing.rows().rows.empty());
  std::filesystem::copy(TESSIMO_SOURCE_DIR "/examples/plate.cdm", folder("beta.cdm"),
                        std::filesystem::copy_options::overwrite_existing);
  dialog->lstFiles.setIndex(1);
  EXPECT_GT(dialog->picDrawing.rows().rows.size(), 5U);
  EXPECT_EQ(dialog->picDrawing.rows().note,
            std::to_string(dialog->picDrawing.rows().rows.size()) + " rows");
  dialog->lstFiles.setIndex(0);
  EXPECT_TRUE(dialog->picDrawing.rows().rows.empty());
  EXPECT_EQ(dialog->picDrawing.rows().note, "Input past end of file") << "Alpha.CDM is empty";
}

TEST_F(FileDialogTest, AnotherFilterShowsOtherFiles) {
  showSave();
  dialog->cmbFilter.setIndex(1);
  EXPECT_EQ(dialog->lstFiles.items(), (Names{"Alpha.CDM", "alpha.tpm", "beta.cdm", "notes.txt"}));
}

TEST_F(FileDialogTest, ASelectedFileGivesItsNameAndIsTaken) {
  showOpen();
  dialog->lstFiles.pick(1);
  EXPECT_EQ(dialog->txtName.text(), "beta.cdm");
  dialog->cmdOK.press();
  EXPECT_TRUE(dialog->accepted());
  EXPECT_EQ(dialog->chosen(), folder("beta.cdm"));
}

TEST_F(FileDialogTest, AFileIsOpenedFromTheList) {
  showOpen();
  dialog->lstFiles.pick(0);
  EXPECT_TRUE(dialog->lstFiles.open());
  EXPECT_EQ(dialog->chosen(), folder("Alpha.CDM"));
}

TEST_F(FileDialogTest, FoldersAreWalkedFromTheListByTheEnterKey) {
  showOpen();
  dialog->lstFolders.pick(2);
  EXPECT_TRUE(dialog->pressDefault());
  EXPECT_EQ(dialog->folder(), folder("old/"));
  EXPECT_EQ(dialog->lstFiles.items(), Names{"first.cdm"});
  EXPECT_TRUE(dialog->isShown());
  dialog->lstFolders.pick(0);
  dialog->lstFolders.open();
  EXPECT_EQ(dialog->folder(), folder());
}

TEST_F(FileDialogTest, TheListOfPlacesHoldsTheFoldersAroundAndTheWayBack) {
  showOpen();
  enter("old");
  const Names& places = dialog->cmbFolder.items();
  ASSERT_GE(places.size(), 3U);
  EXPECT_EQ(places[0], folder("old/"));
  EXPECT_EQ(places[1], folder());
  EXPECT_NE(std::find(places.begin(), places.end(), "/"), places.end());
  EXPECT_EQ(dialog->cmbFolder.index(), 0);
  dialog->cmbFolder.pick(
      static_cast<int>(std::find(places.begin(), places.end(), "/") - places.begin()));
  EXPECT_EQ(dialog->folder(), "/");
  EXPECT_EQ(dialog->lstFolders.indexOf(".."), -1) << "nothing is above the root";
  dialog->cmbFolder.setText(folder());
  EXPECT_EQ(dialog->folder(), folder()) << "where the dialog began stays in the list";
}

// Where the operator's own files lie, as far as they are there.
TEST_F(FileDialogTest, OffersTheFoldersOfTheOperator) {
  const testing::TempFolder home;
  std::filesystem::create_directory(home("Downloads"));
  const char* const before = std::getenv("HOME");
  const std::string own = before == nullptr ? "" : before;
  ::setenv("HOME", home().c_str(), 1);
  showOpen();
  own.empty() ? ::unsetenv("HOME") : ::setenv("HOME", own.c_str(), 1);
  const Names& places = dialog->cmbFolder.items();
  EXPECT_EQ(std::count(places.begin(), places.end(), home()), 1);
  EXPECT_EQ(std::count(places.begin(), places.end(), home("Downloads/")), 1);
  EXPECT_EQ(std::count(places.begin(), places.end(), home("Documents/")), 0);
}

TEST_F(FileDialogTest, ATypedFolderIsEntered) {
  showOpen();
  enter("OLD");
  EXPECT_EQ(dialog->folder(), folder("old/"));
  EXPECT_EQ(dialog->txtName.text(), "");
  enter("..");
  EXPECT_EQ(dialog->folder(), folder());
  enter(folder("Backup"));
  EXPECT_EQ(dialog->folder(), folder("Backup/"));
  EXPECT_TRUE(dialog->isShown());
}

TEST_F(FileDialogTest, ATypedPatternShowsItsFiles) {
  showOpen();
  enter("*.t*");
  EXPECT_EQ(dialog->lstFiles.items(), (Names{"alpha.tpm", "notes.txt"}));
  EXPECT_TRUE(dialog->isShown());
}

TEST_F(FileDialogTest, ATypedNameFindsItsFileWithoutEndingAndCase) {
  showOpen();
  enter("BETA");
  EXPECT_EQ(dialog->chosen(), folder("beta.cdm"));
}

TEST_F(FileDialogTest, ATypedPathIsTakenFromAnyFolder) {
  showOpen();
  enter("old/first.cdm");
  EXPECT_EQ(dialog->chosen(), folder("old/first.cdm"));
  showOpen();
  enter(folder("old/first.cdm"));
  EXPECT_EQ(dialog->chosen(), folder("old/first.cdm"));
}

TEST_F(FileDialogTest, AFileThatIsNotThereIsTold) {
  showOpen();
  enter("gamma");
  EXPECT_TRUE(dialog->isShown());
  EXPECT_EQ(dialog->lblNotice.caption(), "There is no such file in this folder.");
  EXPECT_TRUE(dialog->txtName.hasFocus()) << "he goes on typing";
  dialog->txtName.type("b");
  EXPECT_EQ(dialog->lblNotice.caption(), "") << "until he types on";
}

TEST_F(FileDialogTest, AFolderThatIsNotThereIsTold) {
  for (const bool saving : {false, true}) {
    saving ? showSave() : showOpen();
    enter("nowhere/part.cdm");
    EXPECT_TRUE(dialog->isShown());
    EXPECT_EQ(dialog->lblNotice.caption(), "There is no such folder.");
  }
}

TEST_F(FileDialogTest, AFolderThatWentIsTold) {
  showOpen();
  std::filesystem::remove(folder("Backup"));
  dialog->lstFolders.pick(1);
  dialog->lstFolders.open();
  EXPECT_EQ(dialog->folder(), folder());
  EXPECT_EQ(dialog->lblNotice.caption(), "There is no such folder.");
}

TEST_F(FileDialogTest, ASaveTakesANewNameAsItWasTyped) {
  showSave();
  enter("fresh");
  EXPECT_EQ(dialog->chosen(), folder("fresh")) << "the command adds the ending";
}

TEST_F(FileDialogTest, ASaveTakesTheNameOfAFileThatIsThere) {
  showSave();
  enter("beta.cdm");
  EXPECT_EQ(dialog->chosen(), folder("beta.cdm")) << "the command asks whether to replace it";
}

TEST_F(FileDialogTest, NoNameIsNoAnswer) {
  showSave();
  enter("  ");
  EXPECT_TRUE(dialog->isShown());
  EXPECT_FALSE(dialog->chosen());
}

TEST_F(FileDialogTest, CancelGivesNothingAlsoAfterAnEarlierChoice) {
  showOpen();
  enter("beta.cdm");
  dialog->open(Modality::Modal);
  dialog->pressCancel();
  EXPECT_FALSE(dialog->isShown());
  EXPECT_FALSE(dialog->accepted());
  EXPECT_FALSE(dialog->chosen());
}

TEST_F(FileDialogTest, ClosedFoldersAreNotThere) {
  dialog = fileDialogFor({.title = "", .pattern = "*.CDM", .folder = folder("old"), .name = {}});
  dialog->mayEnter = [this](const std::string& wanted) { return wanted == folder("old/"); };
  dialog->open(Modality::Modal);
  EXPECT_EQ(dialog->lstFiles.items(), Names{"first.cdm"});
  for (const std::string name : {"..", "../beta.cdm", "../nothing.cdm"}) {
    enter(name);
    EXPECT_EQ(dialog->lblNotice.caption(), "There is no such folder.") << name;
    EXPECT_EQ(dialog->folder(), folder("old/"));
  }
  dialog->mayEnter = [](const std::string&) { return false; };
  dialog->close();
  dialog->open(Modality::Modal);
  EXPECT_EQ(dialog->lstFolders.items(), Names{".."});
  EXPECT_TRUE(dialog->lstFiles.items().empty());
}

TEST(FileDialog, BeginsInTheWorkingFolderWhenNoneIsNamed) {
  const auto dialog = fileDialogFor({.title = "", .pattern = "", .folder = {}, .name = {}});
  dialog->open(Modality::Modal);
  EXPECT_EQ(dialog->folder(), withSeparator(std::filesystem::current_path().string()));
}

TEST(ListFolder, AFolderThatIsNotThereShowsNothing) {
  const FolderEntries entries = listFolder("/no/such/folder");
  EXPECT_TRUE(entries.folders.empty());
  EXPECT_TRUE(entries.files.empty());
}

}  // namespace
}  // namespace tess
