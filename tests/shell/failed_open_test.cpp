// A drawing that fails to open, as the operator of the window meets it: the commands, the report
// and its question.
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "tests/support/running_program.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

using testing::RunningProgram;
using testing::writeFile;

struct FailedOpen : ::testing::Test, RunningProgram {
  FailedOpen() {
    drawAndSave(2);
    drawAndSave(3);
    writeFile(home("CNC/GARBAGE.CDM"), "this is no drawing\r\n");
  }

  DrawingStore& store() { return application.store; }
  std::string cnc(const std::string& name) const { return home("CNC/" + name); }
  // One more line and one more move, saved as GOOD.CDM.
  void drawAndSave(float x) {
    AddSeg(store(), {.type = kLine, .x1 = x, .y1 = 1}, nullptr);
    addPathSegment(store(), {.type = kLine, .x1 = x, .z = -0.5F, .feed = 8, .code = 102});
    platform.prompts.files = {cnc("GOOD")};
    application.clickTool("miSave");
    platform.prompts.files.clear();
  }
  std::vector<std::string> filesOfGood() const {
    std::vector<std::string> contents;
    for (const char* name : {"GOOD.CDM", "GOOD.TPM", "GOOD.CDM~", "GOOD.TPM~"}) {
      contents.push_back(readFile(cnc(name)));
    }
    return contents;
  }
  std::string shownName() { return application.interaction.statusBar.panel(StatusPanel::FileName); }
};

TEST_F(FailedOpen, NoToTheRetryAndTwoSavesLeaveThePairAndItsBackup) {
  const auto before = filesOfGood();
  EXPECT_EQ(shownName(), "Drawing:GOOD.CDM");
  platform.prompts.messages.clear();
  platform.prompts.files = {cnc("GARBAGE.CDM")};
  platform.prompts.answers = {Answer::No};
  application.clickTool("miOpen");
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(platform.prompts.messages[0].text, "Do you want to retry the operation in step mode?");
  EXPECT_EQ(shownName(), "Drawing:<Untitled>");
  EXPECT_EQ(store().NumSegments, 0);

  application.clickTool("miSave");
  application.clickTool("miSave");
  EXPECT_EQ(platform.prompts.fileRequests.back().title, "Save As");
  EXPECT_EQ(filesOfGood(), before);
  EXPECT_EQ(readFile(cnc("GARBAGE.CDM")), "this is no drawing\r\n");
}

TEST_F(FailedOpen, DrawingOfTheCommandLineThatFailsLeavesAnUntitledOne) {
  application.load("GARBAGE", home());
  EXPECT_EQ(shownName(), "Drawing:<Untitled>");
  EXPECT_EQ(store().drawingname, "");
  EXPECT_EQ(application.session.lastfilename, cnc("GOOD.CDM")) << "nothing else was opened";
}

}  // namespace
}  // namespace tess
