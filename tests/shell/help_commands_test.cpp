// The manual without a window: what its form shows, and the commands that bring it up.
#include "shell/help_commands.h"

#include <filesystem>
#include <sys/stat.h>

#include "gtest/gtest.h"

#include "shell/commands.h"
#include "shell/virtual_screen.h"
#include "tests/support/recording_host.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

class Help : public ::testing::Test {
 protected:
  Help() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/tests/scripts/home", home());
    std::filesystem::create_directory(home("CNC"));
    application.start(/*drawing=*/"", home());
  }

  bool isOpen() { return application.interaction.forms.find("frmPDFHelp") == &help; }

  testing::TempFolder home;
  testing::RecordingHost platform;
  HuntERR reporting{
      platform.prompts, platform.clock, {.folder = {}, .display = ReportDisplay::None}};
  VirtualScreen screen;
  Application application{{platform.host, reporting, screen.ports}};
  frmPDFHelp& help = application.help;
};

TEST_F(Help, F1ShowsTheManualWithItsPagesInSmall) {
  home.write("tsmo_manual.pdf", "");
  application.key({.special = SpecialKey::F1});
  ASSERT_TRUE(isOpen());
  EXPECT_EQ(help.caption(), "Tessimo Mill - Manual");
  EXPECT_EQ(help.Pdf1.document(), home("tsmo_manual.pdf"));
  EXPECT_TRUE(help.Pdf1.showsThumbnails());
  EXPECT_TRUE(help.Pdf1.isVisible());
  EXPECT_FALSE(help.lblNotice.isVisible());
  EXPECT_FALSE(help.txtSearch.isVisible());
}

TEST_F(Help, F1ActsWithoutAModifierOnly) {
  application.key({.special = SpecialKey::F1, .shift = true});
  application.key({.special = SpecialKey::F1, .control = true});
  EXPECT_FALSE(isOpen());
}

TEST_F(Help, TheManualIsFoundInEitherCase) {
  home.write("TSMO_Manual.PDF", "");
  application.clickTool("miContents");
  EXPECT_EQ(help.Pdf1.document(), home("TSMO_Manual.PDF"));
}

TEST_F(Help, AMissingManualIsTold) {
  application.clickTool("miContents");
  ASSERT_TRUE(isOpen());
  EXPECT_EQ(help.lblNotice.caption(),
            "There is no manual. It would be here:\n" + home("tsmo_manual.pdf"));
  EXPECT_TRUE(help.lblNotice.isVisible());
  EXPECT_FALSE(help.Pdf1.isVisible());
  EXPECT_EQ(help.Pdf1.document(), "");
}

TEST_F(Help, AManualThatCameIsShownNextTime) {
  application.clickTool("miContents");
  help.close();
  home.write("tsmo_manual.pdf", "");
  application.clickTool("miContents");
  EXPECT_FALSE(help.lblNotice.isVisible());
  EXPECT_TRUE(help.Pdf1.isVisible());
}

TEST_F(Help, TheIndexSearchesAndTheContentsShowPages) {
  home.write("tsmo_manual.pdf", "");
  application.clickTool("miSearchforHelpon");
  EXPECT_TRUE(help.txtSearch.hasFocus());
  EXPECT_FALSE(help.Pdf1.showsThumbnails());
  application.clickTool("miContents");
  EXPECT_FALSE(help.txtSearch.isVisible());
  EXPECT_TRUE(help.Pdf1.showsThumbnails());
  application.clickTool("miSearchforHelpon");
  EXPECT_TRUE(help.lstFound.isVisible());
  EXPECT_TRUE(help.txtSearch.hasFocus());
}

TEST_F(Help, FindingsAreListedAndShown) {
  home.write("tsmo_manual.pdf", "");
  application.clickTool("miSearchforHelpon");
  help.txtSearch.type("pocket");
  EXPECT_EQ(help.Pdf1.searched(), "pocket");
  EXPECT_EQ(help.lblFound.caption(), "Nothing found");
  help.Pdf1.tellFindings({{2, "the pocket is cut"}, {7, "an open pocket"}});
  EXPECT_EQ(help.lblFound.caption(), "2 found");
  EXPECT_EQ(help.lstFound.items(),
            (std::vector<std::string>{"Page 2: the pocket is cut", "Page 7: an open pocket"}));
  help.lstFound.pick(1);
  EXPECT_EQ(help.Pdf1.shownFinding(), 1);
  help.txtSearch.type("");
  EXPECT_EQ(help.lblFound.caption(), "");
  EXPECT_TRUE(help.lstFound.items().empty());
  EXPECT_EQ(help.Pdf1.shownFinding(), -1);
}

TEST_F(Help, APipeInTheManualsPlaceIsNotOpened) {
  ASSERT_EQ(::mkfifo(home("tsmo_manual.pdf").c_str(), 0600), 0);
  application.clickTool("miContents");
  EXPECT_EQ(help.lblNotice.caption(), "The manual cannot be read:\n" + home("tsmo_manual.pdf"));
  EXPECT_EQ(help.Pdf1.document(), "");
}

TEST_F(Help, AnUnreadableManualIsTold) {
  home.write("tsmo_manual.pdf", "no document");
  application.clickTool("miContents");
  help.Pdf1.tellUnreadable();
  EXPECT_EQ(help.lblNotice.caption(), "The manual cannot be read:\n" + home("tsmo_manual.pdf"));
  EXPECT_FALSE(help.Pdf1.isVisible());
}

TEST_F(Help, AboutIsModal) {
  application.clickTool("miAboutTessimoMill");
  EXPECT_EQ(platform.prompts.formNames, std::vector<std::string>{"frmAbout"});
}

TEST_F(Help, AboutAcknowledgesTheStrokeFonts) {
  std::string told;
  platform.prompts.onForm = [&](Form& form) { told = form.control("lblHershey")->caption(); };
  application.clickTool("miAboutTessimoMill");
  EXPECT_EQ(told,
            "The Hershey Fonts were originally created by Dr. A. V. Hershey while working at the "
            "U. S. National Bureau of Standards. The format of the Font data in this distribution "
            "was originally created by James Hurt, Cognition, Inc., 900 Technology Park Drive, "
            "Billerica, MA 01821 (mit-eddie!ci-dandelion!hurt).");
}

}  // namespace
}  // namespace tess
