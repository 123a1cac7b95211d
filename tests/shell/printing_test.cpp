// The printed page, where documents go, and the pictures of the disk.
#include "shell/printing.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/recorded_paper.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::RecordedPaper;

struct Printing : ::testing::Test {
  Printing() {
    store.drawingtitle = "Bracket";
    store.designername = "A. Turner";
    store.drawingrevision = "C";
    store.partmaterial = "6061 aluminum";
    store.creationdate = "03/09/2026";
    store.drawingname = "BRACKET.CDM";
    store.partdimx = 6;
    store.partdimy = 5;
    store.partdimz = 0.5F;
    paper.log.take();
  }

  std::string page() {
    std::string lines;
    for (const std::string& line : paper.log.lines) lines += line + "\n";
    return lines;
  }
  bool shows(const std::string& line) { return page().find(line) != std::string::npos; }

  RecordedPaper paper;
  testing::RunningProgram program{&paper};
  Application& application = program.application;
  DrawingStore& store = application.store;
};

TEST_F(Printing, ComposesBlockAndPicture) {
  paper.hasPrinter = true;
  mnuFilePrint_Click(application);
  // The block is 6.75 letters of 200 high and ends at the margins; rows are 225 apart.
  EXPECT_EQ(page(),
            "page 210 x 297 margin 12\n"
            "begin 0\n"
            "box (5460, 13930)-(11280, 15280) #000000\n"
            "at (5640, 13942.5)\ntext 'Title: ' in 1080\n"
            "at (6720, 13942.5)\ntext 'Bracket' in 4560\n"
            "at (5640, 14167.5)\ntext 'Dimensions: ' in 1080\n"
            "at (6720, 14167.5)\ntext '6.00000' in 1080\n"
            "at (7800, 14167.5)\ntext '5.00000' in 1080\n"
            "at (8880, 14167.5)\ntext '0.50000' in 2400\n"
            "at (5640, 14392.5)\ntext 'Material: ' in 1080\n"
            "at (6720, 14392.5)\ntext '6061 aluminum' in 4560\n"
            "at (5640, 14617.5)\ntext 'Filename: ' in 1080\n"
            "at (6720, 14617.5)\ntext 'BRACKET.CDM' in 4560\n"
            "at (5640, 14842.5)\ntext 'Revision: ' in 1080\n"
            "at (6720, 14842.5)\ntext 'C' in 4560\n"
            "at (5640, 15067.5)\ntext 'A. Turner' in 1080\n"
            "at (6720, 15067.5)\ntext '03/09/2026' in 4560\n"
            "picture (720, 720)-(11280, 9168)\n"
            "end\n"
            "to the printer\n");
}

TEST_F(Printing, ATallPictureStaysAboveTheBlock) {
  paper.hasPrinter = true;
  paper.pictures = {500, 1000};
  mnuFilePrint_Click(application);
  EXPECT_TRUE(shows("picture (2697.5, 720)-(9302.5, 13930)")) << page();
}

TEST_F(Printing, ZoomedInPrintsTheZoomedView) {
  paper.hasPrinter = true;
  mnuFilePrint_Click(application);
  application.interaction.viewCommands.Zoom_In(0, 0);
  mnuFilePrint_Click(application);
  ASSERT_EQ(paper.contents.size(), 2U);
  EXPECT_NE(paper.contents[0], paper.contents[1]);
}

TEST_F(Printing, TheTemporaryPictureIsGoneAfterwards) {
  paper.hasPrinter = true;
  mnuFilePrint_Click(application);
  ASSERT_EQ(paper.files.size(), 1U);
  EXPECT_TRUE(std::filesystem::path(paper.files[0]).filename().string().starts_with("TMP"));
  EXPECT_FALSE(std::filesystem::exists(paper.files[0]));
}

TEST_F(Printing, TheTemporaryPictureIsGoneAfterACancel) {
  mnuFilePrint_Click(application);  // nobody names a file
  ASSERT_EQ(paper.files.size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(paper.files[0]));
}

TEST_F(Printing, TheTemporaryPictureIsGoneAfterAFailure) {
  paper.onEnd = [] { throw RuntimeFailure(FailureNumber::DeviceInputOutput, "printer"); };
  EXPECT_THROW(mnuFilePrint_Click(application), RuntimeFailure);
  takeCallChain();
  ASSERT_EQ(paper.files.size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(paper.files[0]));
}

TEST_F(Printing, WaitsBeforeItReadsThePicture) {
  const double before = program.platform.clock.elapsed;
  mnuFilePrint_Click(application);
  EXPECT_EQ(program.platform.clock.elapsed - before, 100);
}

TEST_F(Printing, WithoutAPrinterAsksForAFile) {
  program.platform.prompts.files = {program.home("out.pdf")};
  mnuFilePrint_Click(application);
  ASSERT_EQ(program.platform.prompts.fileRequests.size(), 1U);
  const FileRequest& request = program.platform.prompts.fileRequests[0];
  EXPECT_EQ(request.title, "Print to File");
  EXPECT_EQ(request.pattern, "*.pdf");
  EXPECT_EQ(request.name, "BRACKET.pdf");
  EXPECT_TRUE(request.forSaving);
  EXPECT_EQ(program.home.read("out.pdf"), "%PDF-recorded");
}

TEST_F(Printing, ToAFileWithoutItsEndingAddsIt) {
  program.platform.prompts.files = {program.home("out")};
  mnuFilePrint_Click(application);
  EXPECT_EQ(program.home.read("out.pdf"), "%PDF-recorded");
}

TEST_F(Printing, ToAFolderRaisesItsFailure) {
  std::filesystem::create_directory(program.home("sub.pdf"));
  program.platform.prompts.files = {program.home("sub.pdf")};
  EXPECT_THROW(mnuFilePrint_Click(application), RuntimeFailure);
  takeCallChain();
}

TEST_F(Printing, ThePreviewIsShown) {
  paper.hasPreview = true;
  mnuPrintPreview_Click(application);
  EXPECT_TRUE(shows("begin 1\n"));
  EXPECT_TRUE(shows("end\non show\n"));
  EXPECT_TRUE(program.platform.prompts.formNames.empty());
}

TEST_F(Printing, WithoutAWindowThePreviewIsAForm) {
  mnuPrintPreview_Click(application);
  EXPECT_EQ(program.platform.prompts.formNames, std::vector<std::string>{"frmPrintPreview"});
  EXPECT_TRUE(program.platform.prompts.fileRequests.empty());
}

TEST_F(Printing, ThePreviewPrints) {
  program.platform.prompts.onForm = [](Form& form) { form.pressDefault(); };
  program.platform.prompts.files = {program.home("seen.pdf")};
  mnuPrintPreview_Click(application);
  EXPECT_EQ(program.home.read("seen.pdf"), "%PDF-recorded");
}

TEST_F(Printing, WithoutPaperSaysSo) {
  testing::RunningProgram bare;
  mnuFilePrint_Click(bare.application);
  mnuFilePrintToScale_Click(bare.application);
  ASSERT_EQ(bare.platform.prompts.messages.size(), 2U);
  EXPECT_EQ(bare.platform.prompts.messages[0].text, "There is nothing to print on.");
}

TEST_F(Printing, OptionsAreKeptPerUser) {
  program.platform.prompts.onForm = [](Form& form) {
    form.control("cmbPaper")->set("text", std::string("Letter"));
    form.control("optLandscape")->set("value", true);
    form.control("txtMargin")->set("text", std::string("5"));
    form.pressDefault();
  };
  mnuFilePrinterOptions_Click(application);
  EXPECT_EQ(program.home.read("print.cfg"), "paper=Letter\norientation=landscape\nmargin=5\n");
  paper.log.take();
  mnuFilePrint_Click(application);
  EXPECT_TRUE(shows("page 279.4 x 215.9 margin 5")) << page();
}

TEST_F(Printing, CancelledOptionsChangeNothing) {
  program.platform.prompts.onForm = [](Form& form) { form.pressCancel(); };
  mnuFilePrinterOptions_Click(application);
  EXPECT_FALSE(std::filesystem::exists(program.home("print.cfg")));
}

TEST_F(Printing, AMarginThatIsNoneKeepsTheOptionsOpen) {
  for (const char* const text : {"", "abc", "-1", "1000", "1e400", "nan"}) {
    program.platform.prompts.messages.clear();
    program.platform.prompts.onForm = [text](Form& form) {
      form.control("txtMargin")->set("text", std::string(text));
      form.pressDefault();
      EXPECT_TRUE(form.isShown()) << text;
    };
    mnuFilePrinterOptions_Click(application);
    ASSERT_EQ(program.platform.prompts.messages.size(), 1U) << text;
    EXPECT_EQ(program.platform.prompts.messages[0].text,
              "The margin must be a number from 0 to 52.5 mm.");
  }
}

// ---- To scale

struct ToScale : Printing {
  ToScale() {
    store.units = "M";
    AddSeg(store, {.type = 1, .x0 = 0, .y0 = 0, .x1 = 250, .y1 = 100}, nullptr);
  }
  void onForm(const std::function<void(Form&)>& work) {
    program.platform.prompts.onForm = work;
    mnuFilePrintToScale_Click(application);
  }
  static std::string sheets(Form& form) { return form.control("lblSheets")->caption(); }
};

TEST_F(ToScale, TellsTheSheetsBeforeItPrints) {
  onForm([](Form& form) {
    EXPECT_EQ(sheets(form), "One sheet");
    form.control("cmbScale")->set("text", std::string("2:1"));
    EXPECT_EQ(sheets(form), "3 sheets, 3 across and 1 down");
  });
}

TEST_F(ToScale, WrongFieldsAreToldAndPrintNothing) {
  onForm([](Form& form) {
    form.control("cmbScale")->set("text", std::string("0"));
    EXPECT_EQ(sheets(form),
              "The scale must be a number above 0 or a ratio, as 1, 0.5, 1:2 or 2:1.");
    EXPECT_FALSE(form.control("cmdPrint")->isEnabled());
    form.control("cmbScale")->set("text", std::string("1"));
    form.control("txtOverlap")->set("text", std::string("-3"));
    EXPECT_EQ(sheets(form), "The overlap must be a number of millimetres, 0 or more.");
    EXPECT_FALSE(form.control("cmdFile")->isEnabled());
    form.control("txtOverlap")->set("text", std::string("0"));
    EXPECT_TRUE(form.control("cmdFile")->isEnabled());
    form.control("cmbPaper")->set("index", -1.0);
    EXPECT_EQ(sheets(form), "Please choose a paper.");
  });
}

TEST_F(ToScale, PrintsWhatTheFieldsSay) {
  program.platform.prompts.files = {program.home("scale.pdf")};
  onForm([](Form& form) {
    form.control("cmbScale")->set("text", std::string("1:2"));
    form.control("cmbPaper")->set("text", std::string("A5"));
    form.control("cmdFile")->set("value", true);
    EXPECT_TRUE(form.isShown());
  });
  ASSERT_EQ(paper.composed.size(), 1U);
  EXPECT_DOUBLE_EQ(paper.composed[0].plan.millimetres, 0.5);
  EXPECT_DOUBLE_EQ(paper.composed[0].plan.sides.height, 148);
  EXPECT_EQ(paper.composed[0].caption, "BRACKET.CDM   1:2");
  EXPECT_EQ(program.home.read("scale.pdf"), "%PDF-recorded");
}

TEST_F(ToScale, GoesToThePrinter) {
  paper.hasPrinter = true;
  onForm([](Form& form) { form.pressDefault(); });
  EXPECT_TRUE(shows("to the printer")) << page();
}

TEST_F(ToScale, IsShownBefore) {
  paper.hasPreview = true;
  onForm([](Form& form) { form.control("cmdPreview")->set("value", true); });
  EXPECT_TRUE(shows("on show")) << page();
}

// ---- Pictures of the disk

TEST_F(Printing, PictureNumbersRollForwardThoughNothingIsWritten) {
  StatusBar& status = application.interaction.statusBar;
  PictureDisk& pictures = application.interaction.pictures;
  pictures.store_Picture(status);
  EXPECT_EQ(status.text(), "Picture saved to disk as: CAMPIC00.PCX");
  for (int i = 0; i < 12; ++i) pictures.store_Picture(status);
  EXPECT_EQ(status.text(), "Picture saved to disk as: CAMPIC12.PCX");
  EXPECT_FALSE(std::filesystem::exists(program.home("CAMPIC12.PCX")));
}

TEST_F(Printing, PictureNumbersRollOver) {
  StatusBar& status = application.interaction.statusBar;
  for (int i = 0; i < 100; ++i) application.interaction.pictures.store_Picture(status);
  EXPECT_EQ(status.text(), "Picture saved to disk as: CAMPIC99.PCX");
  application.interaction.pictures.store_Picture(status);
  EXPECT_EQ(status.text(), "Picture saved to disk as: CAMPIC00.PCX");
}

TEST_F(Printing, ViewingAPictureAsksForOne) {
  mnuFileViewPic_Click(application);
  ASSERT_EQ(program.platform.prompts.fileRequests.size(), 1U);
  EXPECT_EQ(program.platform.prompts.fileRequests[0].title, "PCX File Selector");
  EXPECT_EQ(program.platform.prompts.fileRequests[0].pattern, "*.PCX");
}

}  // namespace
}  // namespace tess
