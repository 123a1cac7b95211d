// Choosing a CNC program to be looked at.
#include "cnc/browse_program.h"

#include "gmock/gmock.h"

#include "core/drawing_store.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BrowseProgram : public testing::CncFixture {
 protected:
  void browse(const std::optional<std::string>& chosen) {
    host.prompts.files = {chosen};
    mnuCAMBrowseCNCFile_Click(session, viewer);
  }

  testing::TempFolder folder;
};

TEST_F(BrowseProgram, TheDialogShowsProgramsOfTheDrawingsFolder) {
  store.drawingpath = folder();
  browse(std::nullopt);
  ASSERT_EQ(host.prompts.fileRequests.size(), 1U);
  EXPECT_EQ(host.prompts.fileRequests[0].title, "CNC File Selector");
  EXPECT_EQ(host.prompts.fileRequests[0].pattern, "*.CNC");
  EXPECT_EQ(host.prompts.fileRequests[0].folder, folder());
}

TEST_F(BrowseProgram, CancelChangesNothing) {
  store.cncoutputpath = "c:\\nc\\";
  browse(std::nullopt);
  browse("");
  EXPECT_EQ(store.cncoutputpath, "c:\\nc\\");
  EXPECT_THAT(viewer.shown, IsEmpty());
}

TEST_F(BrowseProgram, TheFolderIsWhereProgramsGoAndTheFileIsShown) {
  folder.write("part.CNC", "");
  browse(folder("part.CNC"));
  EXPECT_EQ(store.cncoutputpath, folder());
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.CNC")));
  EXPECT_THAT(viewer.notices, ElementsAre(""));
}

TEST_F(BrowseProgram, AnyOtherExtensionBecomesThatOfPrograms) {
  browse(folder("part.nc"));
  browse(folder("part"));
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.CNC"), folder("part.CNC")));
}

TEST_F(BrowseProgram, BesideAFileOfOtherLettersTheChosenOneIsShown) {
  folder.write("part.CNC", "another");
  folder.write("part.cnc", "chosen");
  browse(folder("part.cnc"));
  EXPECT_THAT(viewer.shown, ElementsAre(folder("part.cnc")));
}

}  // namespace
}  // namespace tess
