// Examples are opened as copies.
#include "shell/examples.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "core/setup_file.h"
#include "shell/commands.h"
#include "shell/virtual_screen.h"
#include "tests/support/recording_host.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

class Examples : public ::testing::Test {
 protected:
  Examples() {
    fs::copy(TESSIMO_SOURCE_DIR "/tests/scripts/home", home());
    fs::create_directory(home("CNC"));
    fs::copy(TESSIMO_SOURCE_DIR "/examples", shipped());
    application.start(/*drawing=*/"", home());
    platform.prompts.onForm = [this](Form& form) {
      if (form.name() != "frmExamples") return;
      auto* const list = static_cast<ListBox*>(form.control("lstExamples"));
      titles = list->items();
      list->setIndex(chosen);
      form.pressDefault();
    };
  }

  TempFolder home, shipped;
  testing::RecordingHost platform;
  HuntERR reporting{
      platform.prompts, platform.clock, {.folder = {}, .display = ReportDisplay::None}};
  VirtualScreen screen;
  Application application{{.host = platform.host,
                           .reporting = reporting,
                           .screen = screen.ports,
                           .help = {.manual = "", .examples = shipped()}}};
  std::vector<std::string> titles;
  int chosen = 0;
};

TEST_F(Examples, TheListNamesDrawingsThatAreThere) {
  const std::vector<Example> examples = availableExamples(shipped());
  ASSERT_GE(examples.size(), 8U);
  EXPECT_EQ(examples.front().file, "bracket.cdm");
  EXPECT_EQ(examples.front().title,
            "L bracket: an outline with three tabs; a slot and drilled holes (inch)");
  fs::remove(shipped("bracket.cdm"));
  EXPECT_EQ(availableExamples(shipped()).size(), examples.size() - 1);
}

TEST_F(Examples, EachOpensAsACopyAndStaysAsItIs) {
  const std::string before = shipped.read("bracket.cdm");
  application.clickTool("miExamples");
  EXPECT_EQ(application.store.drawingname, "bracket.cdm");
  EXPECT_EQ(application.store.drawingpath, home("CNC/"));
  EXPECT_GT(application.store.NumSegments, 0);
  EXPECT_GT(application.store.NumPathSegments, 0);
  EXPECT_EQ(home.read("CNC/bracket.cdm"), before);
  EXPECT_EQ(home.read("CNC/BRACKET.TPM"), shipped.read("BRACKET.TPM"));
  application.clickTool("miSave");
  EXPECT_EQ(shipped.read("bracket.cdm"), before);
  EXPECT_EQ(titles.size(), availableExamples(shipped()).size());
}

// With cutters of the wrong units its paths would be nonsense.
class ExamplesOfOtherUnits : public Examples {
 protected:
  ExamplesOfOtherUnits() {
    fs::copy(TESSIMO_SOURCE_DIR "/data", home(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    changeSetup(application.session, home("mill_mm.msu"));
  }
  float secondCutter() { return 2 * application.store.toolradius[1]; }
};

TEST_F(ExamplesOfOtherUnits, ComeWithTheSetupOfTheirs) {
  platform.prompts.answers = {Answer::Yes};
  application.clickTool("miExamples");
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(platform.prompts.messages.front().text,
            "This example is in inches, and the cutters of mill_mm.msu are in millimetres.\n"
            "Should mill_inch.msu be loaded for it?");
  EXPECT_EQ(application.session.setupname, "mill_inch.msu");
  EXPECT_EQ(secondCutter(), 0.25F);
  EXPECT_EQ(application.store.drawingname, "bracket.cdm");
  application.clickTool("miExamples");
  EXPECT_EQ(platform.prompts.messages.size(), 1U) << "the setup fits by now";
}

TEST_F(ExamplesOfOtherUnits, KeepTheSetupWhenTheOperatorSaysSo) {
  platform.prompts.answers = {Answer::No};
  application.clickTool("miExamples");
  EXPECT_EQ(application.session.setupname, "mill_mm.msu");
  EXPECT_EQ(secondCutter(), 6);
  EXPECT_EQ(application.store.drawingname, "bracket.cdm");
}

TEST_F(Examples, ASecondCopyHasANumber) {
  application.clickTool("miExamples");
  application.clickTool("miExamples");
  EXPECT_EQ(application.store.drawingname, "bracket_2.cdm");
  EXPECT_TRUE(home.has("CNC/BRACKET_2.TPM"));
  EXPECT_GT(application.store.NumPathSegments, 0);
}

TEST_F(Examples, TheJobsOfThePathsComeAlong) {
  const std::vector<Example> examples = availableExamples(shipped());
  while (examples.at(static_cast<std::size_t>(chosen)).file != "text_plate.cdm") ++chosen;
  application.clickTool("miExamples");
  EXPECT_EQ(home.read("CNC/TEXT_PLATE.TPJ"), shipped.read("TEXT_PLATE.TPJ"));
}

TEST_F(Examples, UnsavedWorkIsAskedAboutAndCancelStays) {
  application.clickTool("miExamples");
  application.store.drawingsaved = false;
  platform.prompts.answers = {Answer::Cancel};
  chosen = 1;
  application.clickTool("miExamples");
  EXPECT_EQ(application.store.drawingname, "bracket.cdm");
  EXPECT_FALSE(home.has("CNC/plate.cdm"));
}

TEST_F(Examples, WithoutThemTheOperatorIsTold) {
  fs::remove(shipped("examples.txt"));
  application.clickTool("miExamples");
  ASSERT_EQ(platform.prompts.messages.size(), 1U);
  EXPECT_EQ(platform.prompts.messages.front().text,
            "There are no examples. They would be here:\n" + shipped());
}

TEST_F(Examples, AListWithoutEndIsRefused) {
  std::string endless;
  for (int line = 0; line < 500; ++line) endless += "bracket.cdm,once more\n";
  shipped.write("examples.txt", endless);
  EXPECT_THROW(availableExamples(shipped()), RuntimeFailure);
}

}  // namespace
}  // namespace tess
