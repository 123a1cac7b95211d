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

// What the manual's maker writes of its pages and places.
constexpr char kDocument[] =
    "%PDF-1.7\n1 0 obj\n<<\n/Type /Pages\n/Kids [ 6 0 R 8 0 R 10 0 R ]\n/Count 3\n>>\nendobj\n"
    "3 0 obj\n<<\n/Type /Catalog\n/Names <<\n/Dests <<\n/Names [ (frmAbout) [ 10 0 R /XYZ 62 7 0 ] "
    "(miLine) [ 8 0 R /XYZ 62 7 0 ] (page_keys) [ 10 0 R /XYZ 1 7 0 ] ]\n>>\n>>\n>>\nendobj\n";

TEST_F(Help, F1OpensThePageOfTheArmedCommand) {
  home.write("tsmo_manual.pdf", kDocument);
  application.clickTool("miLine");
  application.key({.special = SpecialKey::F1});
  EXPECT_EQ(help.Pdf1.wantedPage(), 2);
}

TEST_F(Help, F1WithNothingArmedGoesToNoPage) {
  home.write("tsmo_manual.pdf", kDocument);
  application.key({.special = SpecialKey::F1});
  EXPECT_EQ(help.Pdf1.wantedPage(), 0);
}

TEST_F(Help, AnOpenManualGoesToTheNextTopic) {
  home.write("tsmo_manual.pdf", kDocument);
  application.clickTool("miContents");
  application.clickTool("miKeys");
  EXPECT_EQ(help.Pdf1.wantedPage(), 3);
  help.Pdf1.tellPageShown();
  application.clickTool("miLine");
  application.key({.special = SpecialKey::F1});
  EXPECT_EQ(help.Pdf1.wantedPage(), 2);
}

TEST_F(Help, AFormThatWaitsHasTheManualBeforeIt) {
  home.write("tsmo_manual.pdf", kDocument);
  platform.prompts.onForm = [&](Form& form) {
    if (form.name() != "frmAbout") return;
    helpOnForm(application, form);
    EXPECT_EQ(help.Pdf1.wantedPage(), 3);
  };
  application.clickTool("miContents");
  application.clickTool("miAboutTessimoMill");
  EXPECT_EQ(platform.prompts.formNames, (std::vector<std::string>{"frmAbout", "frmPDFHelp"}));
}

TEST_F(Help, AFormWithoutAPageShowsTheManual) {
  home.write("tsmo_manual.pdf", kDocument);
  helpOnForm(application, application.interaction.frmStatistics);
  EXPECT_TRUE(isOpen());
  EXPECT_EQ(help.Pdf1.wantedPage(), 0);
}

TEST_F(Help, TheShippedManualIsShownWhereTheFolderHasNone) {
  testing::TempFolder shipped;
  shipped.write("tsmo_manual.pdf", kDocument);
  frmPDFHelp form(application.session, shipped("tsmo_manual.pdf"));
  form.open(Modality::Modeless);
  EXPECT_EQ(form.Pdf1.document(), shipped("tsmo_manual.pdf"));
  form.close();
  home.write("tsmo_manual.pdf", "of the operator's own");
  form.open(Modality::Modeless);
  EXPECT_EQ(form.Pdf1.document(), home("tsmo_manual.pdf"));
}

TEST_F(Help, AboutHandsItsDetailsOn) {
  std::string copied;
  application.onCopyText = [&](const std::string& text) { copied = text; };
  application.onDescribeSystem = [] { return std::string("Qt 6, a desk"); };
  platform.prompts.onForm = [](Form& form) { form.control("cmdCopyDetails")->set("value", true); };
  application.clickTool("miAboutTessimoMill");
  for (const char* const part : {"Tessimo Mill, Version ", "Program folder: ", "\nQt 6, a desk\n",
                                 "\nLua: MIT (scripts)\n", "Dr. A. V. Hershey"}) {
    EXPECT_NE(copied.find(part), std::string::npos) << part;
  }
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
