// Drawings that open although something is wrong with them: the operator is told, and they open as
// ever.
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "core/save_record.h"
#include "tests/support/drawing_folder.h"
#include "tests/support/failure_of.h"
#include "tests/support/without_root_rights.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::DrawingFolder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::numberOfFailure;
using testing::OtherStart;
using ::testing::SizeIs;
using testing::WithoutRootRights;

class DamagedDrawing : public ::testing::Test, protected DrawingFolder {
 protected:
  DamagedDrawing() {
    addLine(1.25F);
    addLine(2.5F);
    addPath(3.25F);
    saveAs("PART.CDM");
    drawing_ = read("PART.CDM");
    paths_ = read("PART.TPM");
  }
  std::string damaged(const std::string& what) const {
    return cnc("PART.CDM") + what +
           " is not as it was saved here last, on 03/09/2026 14:05:07. If nobody has changed it "
           "since, it is damaged.";
  }
  std::string cut(const std::string& place) const {
    return cnc(place) + ": the file ends within this line, and its last number may be cut off.";
  }
  std::string record() const { return test.home.read(kSaveRecordName); }

  std::string drawing_, paths_;
};

TEST_F(DamagedDrawing, OneThatIsAsItWasSavedIsNoMessage) {
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(DamagedDrawing, FileThatLostARowIsTold) {
  write("PART.CDM", drawing_.substr(0, drawing_.rfind("1,8,")));
  load("PART.CDM");
  EXPECT_EQ(store.NumSegments, 1);
  ASSERT_THAT(test.messages(), SizeIs(1));
  EXPECT_EQ(test.messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(test.messages()[0].buttons, MessageButtons::Ok);
  EXPECT_THAT(takeTexts(), ElementsAre(damaged("")));
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(DamagedDrawing, PathFileThatIsGoneOrChangedIsTold) {
  write("PART.TPM", paths_ + paths_);
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), ElementsAre(damaged(": its path file")));
  fs::remove(cnc("PART.TPM"));
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), ElementsAre(damaged(": its path file")));
}

TEST_F(DamagedDrawing, WhatHasBeenToldIsToldOnce) {
  write("PART.CDM", drawing_ + "1,8,0,0,5,5\r\n");
  load("PART.CDM");
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), SizeIs(1));
  write("PART.CDM", drawing_ + "1,8,0,0,6,6\r\n");
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), SizeIs(1)) << "another change is another matter";
}

TEST_F(DamagedDrawing, JobThatOnlyReadsLeavesTheTellingToTheWindow) {
  write("PART.CDM", drawing_ + "1,8,0,0,5,5\r\n");
  session.opensToRead = true;
  load("PART.CDM");
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), SizeIs(2));
}

TEST_F(DamagedDrawing, SavingMakesItTheKnownOne) {
  write("PART.CDM", drawing_ + "1,8,0,0,5,5\r\n");
  load("PART.CDM");
  takeTexts();
  addLine(7);
  save_Drawing(session);
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(DamagedDrawing, DrawingsThatWereNotSavedHereAreNotJudged) {
  write("OTHER.CDM", drawing_);
  load("OTHER.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(DamagedDrawing, LineCutInARowThatDoesNotLoadRaisesAsEver) {
  write("PART.CDM", drawing_.substr(0, drawing_.size() - 5));
  EXPECT_EQ(numberOfFailure([&] { load("PART.CDM"); }), FailureNumber::InputPastEnd);
}

TEST_F(DamagedDrawing, NumberCutByTheEndOfTheFileIsNamed) {
  write("CUT.CDM", drawing_.substr(0, drawing_.size() - 2));
  write("CUT.TPM", paths_.substr(0, paths_.size() - 2));
  load("CUT.CDM");
  EXPECT_THAT(takeTexts(),
              ElementsAre(cut("CUT.CDM line 32 field 6"), cut("CUT.TPM line 1 field 10")));
  EXPECT_EQ(store.NumSegments, 2);
  EXPECT_EQ(store.NumPathSegments, 1);
}

TEST_F(DamagedDrawing, NumberCutInTheHeaderIsNamed) {
  const std::size_t rows = drawing_.find("1,8,0,0,1.25,1");
  write("CUT.CDM", drawing_.substr(0, rows - 2));
  load("CUT.CDM");
  EXPECT_THAT(takeTexts(), ElementsAre(cut("CUT.CDM line 30 field 1")));
  EXPECT_EQ(store.NumSegments, 0);
}

TEST_F(DamagedDrawing, FileOfAnotherLineEndIsWhole) {
  std::string text = drawing_;
  std::erase(text, '\r');
  write("UNIX.CDM", text);
  load("UNIX.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
}

// The record itself.

TEST_F(DamagedDrawing, RecordIsALineForEachSave) {
  addLine(3);
  save_Drawing(session);
  const std::string name = cnc("PART.CDM");
  const auto line = [&name](const std::string& drawing, const std::string& paths) {
    return checksumText(checksumOf(drawing)) + " " + checksumText(checksumOf(paths)) +
           " 03/09/2026 14:05:07 " + name + "\r\n";
  };
  EXPECT_EQ(record(), line(drawing_, paths_) + line(read("PART.CDM"), paths_));
}

TEST_F(DamagedDrawing, RecordThatCannotBeWrittenIsNoTrouble) {
  fs::remove(test.home(kSaveRecordName));
  fs::create_directory(test.home(kSaveRecordName));
  addLine(3);
  save_Drawing(session);
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(DamagedDrawing, RecordThatIsTornOrNoRecordTellsNothing) {
  const std::string line = record();
  for (const std::string& text :
       {line.substr(0, line.size() - 2), line.substr(20), std::string("x\r\n \r\n    \r\n\r\n"),
        std::string(600 * 1024, '\n') + line}) {
    testing::writeFile(test.home(kSaveRecordName), text);
    write("PART.CDM", drawing_ + "1,8,0,0,5,5\r\n");
    load("PART.CDM");
    EXPECT_THAT(takeTexts(), IsEmpty());
  }
}

// A line of a version with checksums of another kind, the last of the drawing: nothing is known.
TEST_F(DamagedDrawing, RecordOfAnotherKindOfChecksumTellsNothing) {
  const std::string line = record() +
                           "94143189ad9a486b-1234 e554f376cec4896e-12 03/09/2026 14:05:07 " +
                           cnc("PART.CDM") + "\r\n";
  testing::writeFile(test.home(kSaveRecordName), line);
  write("PART.CDM", drawing_ + "1,8,0,0,5,5\r\n");
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), IsEmpty());
  EXPECT_EQ(record(), line);
  addLine(3);
  save_Drawing(session);
  write("PART.CDM", drawing_);
  load("PART.CDM");
  EXPECT_THAT(takeTexts(), ElementsAre(damaged("")));
}

TEST_F(DamagedDrawing, RecordStaysBelowItsBoundAndKeepsTheLatest) {
  const PairState state;
  for (int save = 0; save < 3000; ++save) {
    noteSave(session, cnc("DRAWING" + std::to_string(save % 600) + ".CDM"), state);
    ASSERT_LT(fs::file_size(test.home(kSaveRecordName)), 257 * 1024U);
  }
  EXPECT_TRUE(lastSave(session, cnc("DRAWING599.CDM")));
  EXPECT_EQ(lastSave(session, cnc("DRAWING599.CDM"))->when, "03/09/2026 14:05:07");
  EXPECT_FALSE(lastSave(session, cnc("DRAWING6000.CDM")));
}

TEST_F(DamagedDrawing, FolderByAnotherWayIsTheSameDrawing) {
  EXPECT_TRUE(lastSave(session, test.home("CNC/../CNC/PART.CDM")));
  EXPECT_TRUE(lastSave(session, cnc("part.cdm")));
  EXPECT_FALSE(lastSave(session, cnc("ART.CDM")));
}

}  // namespace
}  // namespace tess
