// The viewer of CNC programs without a window.
#include "cnc/dlgMenuHelper.h"

#include <filesystem>
#include <set>
#include <sys/stat.h>

#include "gmock/gmock.h"

#include "cnc/send_program.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/cnc/hand_over_fixture.h"
#include "tests/support/failure_of.h"
#include "tests/support/stand_in_program.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::numberOfFailure;

constexpr char kMill[] = "*  Created for GantrixPro (tm) 2012\r\nG90\r\nM30\r\n";
constexpr char kLathe[] = "*  Created for Lathrix Pro (tm) 2012\r\nG90\r\nM30\r\n";

class Viewer : public testing::HandOverFixture {
 protected:
  Viewer() { form.open(Modality::Modeless); }

  // A file with that content, in the viewer.
  std::string show(const std::string& content, const std::string& name = "part.CNC") {
    const std::string file = nc.write(name, content);
    form.showFile(file);
    return file;
  }
  // A machine-control program that is there.
  void install() {
    test.home.write("gtxfw.exe", "");
    test.home.write("GTX_LOC.DAT", test.home("gtxfw.exe") + "\r\n");
  }

  testing::TempFolder nc;
  dlgMenuHelper form{handOver};
};

TEST_F(Viewer, TheControlsHaveTheirWords) {
  EXPECT_EQ(form.caption(), "View File");
  EXPECT_EQ(form.cmdAutoLoad2GTXFW.caption(), "&Transfer to GantrixPro");
  EXPECT_EQ(form.cmdAutoLoad2GTXFW.hint(),
            "Automatically loads current CNC file into GantrixPro for Windows");
  EXPECT_EQ(form.cmdExit.caption(), "&Close");
}

TEST_F(Viewer, AFileIsShownWithItsNameAndItsLines) {
  const std::string file = show(kMill);
  EXPECT_EQ(form.caption(), "View File - " + file);
  EXPECT_EQ(form.file(), file);
  EXPECT_EQ(form.txtFile.text(), "*  Created for GantrixPro (tm) 2012\r\nG90\r\nM30");
  EXPECT_EQ(form.lblPlace.caption(), "3 lines");
  EXPECT_FALSE(form.lblNotice.isVisible());
  EXPECT_EQ(form.cmdAutoLoad2GTXFW.caption(), "&Transfer to GantrixPro");
}

TEST_F(Viewer, TheFileIsFoundInEitherCase) {
  nc.write("part.CNC", kMill);
  form.showFile(nc("part.cnc"));
  EXPECT_EQ(form.caption(), "View File - " + nc("part.cnc"));
  EXPECT_EQ(form.file(), nc("part.CNC"));
}

// The file itself says what it is for, wherever it comes from.
TEST_F(Viewer, AProgramForTheLatheHasTheLathesButton) {
  show(kLathe);
  EXPECT_EQ(form.cmdAutoLoad2GTXFW.caption(), "&Transfer to Lathrix Pro");
  show("G90\r\n(for Lathrix Pro (tm))", "other.CNC");
  EXPECT_EQ(form.cmdAutoLoad2GTXFW.caption(), "&Transfer to Lathrix Pro");
  show("Lathrix Pro\r\n(tm)", "third.CNC");
  EXPECT_EQ(form.cmdAutoLoad2GTXFW.caption(), "&Transfer to GantrixPro");
}

TEST_F(Viewer, AnotherFileStartsAnew) {
  install();
  show(kLathe, "lathe.CNC");
  form.txtFile.choose(0, 1);
  const std::string file = show(kMill);
  EXPECT_EQ(form.caption(), "View File - " + file);
  EXPECT_EQ(form.cmdAutoLoad2GTXFW.caption(), "&Transfer to GantrixPro");
  EXPECT_EQ(form.txtFile.anchor(), -1);
  EXPECT_EQ(form.lblPlace.caption(), "3 lines");
}

TEST_F(Viewer, ANoticeStandsAboveTheFile) {
  nc.write("part.CNC", "G90");
  form.showFile(nc("part.CNC"), "The folder is missing.");
  EXPECT_TRUE(form.lblNotice.isVisible());
  EXPECT_EQ(form.lblNotice.caption(), "The folder is missing.\nThe last line has no line end.");
  show(kMill);
  EXPECT_FALSE(form.lblNotice.isVisible());
}

// ---- Files that are none

TEST_F(Viewer, AMissingFileIsAFailureAndNothingIsShown) {
  show(kLathe);
  EXPECT_EQ(numberOfFailure([this] { form.showFile(nc("gone.CNC")); }),
            FailureNumber::FileNotFound);
  EXPECT_EQ(form.caption(), "View File");
  EXPECT_EQ(form.txtFile.text(), "");
  EXPECT_EQ(form.file(), "");
  for (const Button* const button :
       {&form.cmdCopy, &form.cmdCopyToFolder, &form.cmdSend, &form.cmdAutoLoad2GTXFW}) {
    EXPECT_FALSE(button->isEnabled()) << button->name();
  }
}

TEST_F(Viewer, AFolderOrAPipeIsAFailure) {
  EXPECT_EQ(numberOfFailure([this] { form.showFile(nc()); }), FailureNumber::PathFileAccess);
  ASSERT_EQ(::mkfifo(nc("pipe.CNC").c_str(), 0600), 0);
  EXPECT_EQ(numberOfFailure([this] { form.showFile(nc("pipe.CNC")); }),
            FailureNumber::PathFileAccess);
}

TEST_F(Viewer, AFileTooLargeToBeReadIsAFailureThatSaysSo) {
  const std::string file = nc.write("part.CNC", "G90");
  fs::resize_file(file, kLargestProgram + 1);
  const RuntimeFailure failure = testing::failureOf([&] { form.showFile(file); });
  EXPECT_EQ(failure.description(), "The file is too large (134217729 bytes, at most 134217728)");
}

TEST_F(Viewer, AnEmptyFileSaysSo) {
  show("");
  EXPECT_EQ(form.lblNotice.caption(), "The file is empty.");
  EXPECT_EQ(form.txtFile.text(), "");
  EXPECT_EQ(form.lblPlace.caption(), "0 lines");
  EXPECT_TRUE(form.cmdCopyToFolder.isEnabled());
}

TEST_F(Viewer, BytesThatAreNoTextAreShownAndTold) {
  show(std::string("G90\0\x1B\xFF\r\n", 8));
  EXPECT_EQ(form.lblNotice.caption(), "The file holds bytes that are no text.");
  EXPECT_EQ(form.txtFile.text(), std::string("G90\0\x1B\xC3\xBF", 7));
}

TEST_F(Viewer, ALatinLetterATabAndAPageEndAreText) {
  show("\xD8\t5\f\r\n\x1A\r\n");
  EXPECT_FALSE(form.lblNotice.isVisible());
}

TEST_F(Viewer, AMissingLastLineEndIsToldAndTheLineShown) {
  show("G90\r\nM30");
  EXPECT_EQ(form.lblNotice.caption(), "The last line has no line end.");
  EXPECT_EQ(form.txtFile.text(), "G90\r\nM30");
  EXPECT_EQ(form.lblPlace.caption(), "2 lines");
}

// ---- Reading

TEST_F(Viewer, SearchTellsTheLine) {
  show(kMill);
  form.txtFind.type("m30");
  EXPECT_EQ(form.lblPlace.caption(), "Line 3 of 3");
  form.txtFind.type("m31");
  EXPECT_EQ(form.lblPlace.caption(), "Nothing found");
  form.txtFind.type("g");
  EXPECT_EQ(form.lblPlace.caption(), "Line 1 of 3");
  form.pressDefault();
  EXPECT_EQ(form.lblPlace.caption(), "Line 2 of 3");
  EXPECT_TRUE(form.txtFind.hasFocus()) << "to go on typing";
  form.cmdFindPrevious.press();
  EXPECT_EQ(form.lblPlace.caption(), "Line 1 of 3");
  form.txtFind.type("");
  EXPECT_EQ(form.lblPlace.caption(), "Line 1 of 3");
  form.txtFile.askToFind();
  EXPECT_TRUE(form.txtFind.hasFocus());
}

TEST_F(Viewer, CopyTakesTheChosenLinesOrAll) {
  std::string copied;
  show(kMill);
  form.cmdCopy.press();  // without a clipboard nothing happens
  form.onCopyText = [&](const std::string& text) { copied = text; };
  form.cmdCopy.press();
  EXPECT_EQ(copied, "*  Created for GantrixPro (tm) 2012\nG90\nM30\n");
  form.txtFile.choose(2, 1);
  form.cmdCopy.press();
  EXPECT_EQ(copied, "G90\nM30\n");
}

TEST_F(Viewer, EscClosesItAndLetsGoOfTheText) {
  show(kMill);
  form.pressCancel();
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(form.txtFile.text(), "");
  EXPECT_EQ(form.file(), "");
}

// ---- Transfer

TEST_F(Viewer, WithoutAControlProgramTransferIsDisabled) {
  show(kMill);
  EXPECT_FALSE(form.cmdAutoLoad2GTXFW.isEnabled());
  test.home.write("GTX_LOC.DAT", test.home() + "\r\n");
  show(kMill);
  EXPECT_FALSE(form.cmdAutoLoad2GTXFW.isEnabled()) << "a folder is no program";
  install();
  show(kMill);
  EXPECT_TRUE(form.cmdAutoLoad2GTXFW.isEnabled());
}

TEST_F(Viewer, TransferStartsTheControlWithTheFile) {
  install();
  const std::string file = show(kMill);
  form.cmdAutoLoad2GTXFW.press();
  EXPECT_THAT(others.started, ElementsAre(ElementsAre(test.home("gtxfw.exe"), file)));
  EXPECT_THAT(prompts().messages, IsEmpty());
}

TEST_F(Viewer, TransferOfALatheProgramGoesToTheLathe) {
  install();
  testing::RecordingWindows windows;
  windows.titles = {"GantrixPro 2010", "Lathrix Pro 2012"};
  others.found = &windows;
  const std::string file = show(kLathe);
  form.cmdAutoLoad2GTXFW.press();
  EXPECT_EQ(windows.noted.back(), "send 2 3 " + std::to_string(file.size() + 1) + " " + file);
}

TEST_F(Viewer, AControlThatHasVanishedSinceIsAFailure) {
  install();
  show(kMill);
  fs::remove(test.home("gtxfw.exe"));
  LocalPrograms local;
  others.failure = testing::failureOf([&] { local.start(test.home("gtxfw.exe"), {}); });
  EXPECT_EQ(numberOfFailure([this] { form.cmdAutoLoad2GTXFW.press(); }),
            FailureNumber::FileNotFound);
}

// ---- What is handed over is what was seen

TEST_F(Viewer, AFileThatHasChangedIsShownAnewAndNotHandedOver) {
  install();
  writeSendChoice(handOver, {"/opt/x", "/opt/x"});
  for (Button* const button : {&form.cmdAutoLoad2GTXFW, &form.cmdSend, &form.cmdCopyToFolder}) {
    const std::string file = show(kMill);
    nc.write("part.CNC", kLathe);
    button->press();
    EXPECT_EQ(onlyMessage(), file +
                                 " has changed since it was shown. It is shown as it is now: "
                                 "look at it before you hand it over.");
    EXPECT_THAT(form.txtFile.text(), HasSubstr("Lathrix"));
    EXPECT_EQ(form.cmdAutoLoad2GTXFW.caption(), "&Transfer to Lathrix Pro");
  }
  EXPECT_THAT(others.started, IsEmpty());
  EXPECT_THAT(prompts().fileRequests, IsEmpty());
}

TEST_F(Viewer, AFileThatIsGoneIsToldAndStaysInView) {
  install();
  const std::string file = show(kMill);
  fs::remove(file);
  form.cmdAutoLoad2GTXFW.press();
  EXPECT_EQ(onlyMessage(), "The file can no longer be read: File not found: " + file);
  EXPECT_THAT(form.txtFile.text(), HasSubstr("G90"));
  EXPECT_THAT(others.started, IsEmpty());
}

// ---- Sending and copying

TEST_F(Viewer, SendStartsTheOperatorsProgramWithTheFile) {
  const testing::StandInProgram program;
  writeSendChoice(handOver, {program.path(), program.path()});
  const std::string file = show(kMill, "it's a \"part\" $(touch x)\n.CNC");
  form.cmdSend.press();
  EXPECT_THAT(others.started, ElementsAre(ElementsAre(program.path(), file)));
}

TEST_F(Viewer, TheProgramToSendToIsChosenBesideIt) {
  form.cmdSendProgram.press();
  EXPECT_THAT(prompts().formNames, ElementsAre("dlgSendProgram"));
}

TEST_F(Viewer, CopyToFolderAsksForThePlaceAndRemembersTheFolder) {
  const testing::TempFolder stick;
  const std::string file = show(kMill);
  prompts().files = {stick("part.CNC"), std::nullopt};
  form.cmdCopyToFolder.press();
  EXPECT_EQ(stick.read("part.CNC"), kMill);
  form.cmdCopyToFolder.press();
  ASSERT_EQ(prompts().fileRequests.size(), 2U);
  EXPECT_EQ(prompts().fileRequests[0].title, "Copy to Folder");
  EXPECT_EQ(prompts().fileRequests[0].name, "part.CNC");
  EXPECT_EQ(prompts().fileRequests[0].folder, nc());
  EXPECT_TRUE(prompts().fileRequests[0].forSaving);
  EXPECT_EQ(prompts().fileRequests[1].folder, stick());
}

TEST_F(Viewer, TheFileIsNotCopiedOntoItself) {
  const std::string file = show(kMill);
  prompts().files = {nc("PART.cnc")};
  form.cmdCopyToFolder.press();
  EXPECT_EQ(onlyMessage(), "The copy would be the file itself. Choose another folder.");
  EXPECT_EQ(nc.read("part.CNC"), kMill);
}

// ---- Rows of the drawing

class ViewedRows : public testing::CncFixture {
 protected:
  ViewedRows() {
    for (int row = 0; row < 3; ++row) {
      const auto x = static_cast<float>(row);
      place(testing::lineRow({x, 0}, {x + 1, 0}, -0.25F, 10), row == 2 ? 2 : 1);
    }
    place(testing::lineRow({3, 0}, {3, 0}, -0.25F, 10), 2);  // it leaves no line
    state.keepsMade = true;
    text = program();
    form.open(Modality::Modeless);
    form.showFile(folder.write("part.CNC", text));
    form.linkRows(state.made.rows);
  }

  // The lines marked for a row, joined by bars.
  std::string linesFor(const std::vector<int>& rows) {
    form.markRows(rows);
    std::string lines;
    for (int line = 0; line < form.txtFile.lines().count(); ++line) {
      if (form.txtFile.isMarked(line)) lines += form.txtFile.shownLine(line) + "|";
    }
    return lines;
  }

  testing::TempFolder folder;
  testing::RecordingPrograms others;
  HandOver handOver{session, others, "", freeSpaceIn};
  dlgMenuHelper form{handOver};
  std::string text;
};

TEST_F(ViewedRows, ARowsLinesAreThoseThatItHasMade) {
  EXPECT_EQ(linesFor({2}), "G01 X2.0|");
  EXPECT_EQ(linesFor({3}), "G00 Z0.5|" + std::string(75, '-') + "|     << Tool #2 code >>|" +
                               std::string(75, '-') + "|M06 T2|G00 Z-0.25|G01 X3.0|");
  EXPECT_EQ(linesFor({4}), "");
  EXPECT_EQ(linesFor({2, 4}), "G01 X2.0|");
  EXPECT_EQ(linesFor({0, 5, -1}), "");
}

TEST_F(ViewedRows, TheReturnToTheFirstToolIsNoRows) {
  std::string all = linesFor({1, 2, 3, 4});
  EXPECT_EQ(all.find("Reset to first tool"), std::string::npos);
  EXPECT_NE(text.find("Reset to first tool"), std::string::npos);
}

// The two directions agree on every line of the program.
TEST_F(ViewedRows, APickedLineTellsItsRow) {
  int picked = 0;
  form.onPickRow = [&](int row) { picked = row; };
  std::set<int> rows;
  for (int line = 0; line < form.txtFile.lines().count(); ++line) {
    picked = 0;
    form.txtFile.pickLine(line);
    rows.insert(picked);
    form.markRows({picked});
    EXPECT_EQ(form.txtFile.isMarked(line), picked != 0) << line;
  }
  EXPECT_EQ(rows, (std::set<int>{0, 1, 2, 3}));
}

TEST_F(ViewedRows, WithoutALinkNothingIsMarkedOrPicked) {
  linesFor({2});
  form.unlinkRows();
  EXPECT_FALSE(form.hasRows());
  EXPECT_EQ(linesFor({2}), "");
  int picked = 0;
  form.onPickRow = [&](int row) { picked = row; };
  form.txtFile.pickLine(form.txtFile.lines().count() - 3);
  EXPECT_EQ(picked, 0);
}

TEST_F(ViewedRows, AnotherFileIsNoLongerOfTheRows) {
  form.showFile(folder.write("other.CNC", text));
  EXPECT_FALSE(form.hasRows());
}

TEST_F(ViewedRows, RowsAreRecordedOnlyWhenAsked) {
  state.keepsMade = false;
  program();
  EXPECT_EQ(state.made.rows.rows(), 0);
  EXPECT_EQ(state.made.text, Checksum{});
}

TEST_F(ViewedRows, AnEmptyProgramHasNoRows) {
  store.NumPathSegments = 0;
  program();
  EXPECT_EQ(state.made.rows.rows(), 0);
  EXPECT_EQ(state.made.rows.rowAt(0), 0);
}

}  // namespace
}  // namespace tess
