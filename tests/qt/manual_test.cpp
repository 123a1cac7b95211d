// The manual in its window: a document made for the test, its pages, and the search in it.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPainter>
#include <QPdfWriter>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "core/file_system.h"
#include "shell/help_topics.h"
#include "shell/program_folder.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/pdf_pane.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

constexpr int kPages = 5;

// A word on every page, and one more on the third.
void writeManual(const std::string& path) {
  QPdfWriter writer(QString::fromStdString(path));
  QPainter painter(&writer);
  painter.setFont(QFont("DejaVu Sans", 24));
  for (int page = 1; page <= kPages; ++page) {
    if (page > 1) writer.newPage();
    painter.drawText(900, 1500, QString("Chapter %1").arg(page));
    if (page == 3) painter.drawText(900, 3000, "Cut the pocket first");
  }
}

class ManualTest : public ::testing::Test {
 protected:
  ManualTest() {
    applyTheme(testing::toolkit(), /*dark=*/false);
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(home("CNC"));
    home.write("CNC/TSMO.MRU", "");
    program = std::make_unique<DesktopProgram>(home());
    program->open("");
  }

  static void press(QWidget& target, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
  }

  QWidget* window() { return program->window().findChild<QWidget*>("frmPDFHelp"); }
  PdfPane& pane() { return *dynamic_cast<PdfPane*>(window()->findChild<QWidget*>("Pdf1")); }

  // The viewer paints its pages in the background.
  void keepPicture(const char* name) {
    QElapsedTimer time;
    time.start();
    testing::waitFor([&] { return time.elapsed() > 300; });
    testing::keepScreenshot(*window(), name);
  }

  testing::TempFolder home;
  std::unique_ptr<DesktopProgram> program;
};

TEST_F(ManualTest, F1ShowsThePagesAndTheirThumbnails) {
  writeManual(home("tsmo_manual.pdf"));
  press(program->surface(), Qt::Key_F1);
  ASSERT_NE(window(), nullptr);
  EXPECT_EQ(window()->windowTitle(), "Tessimo Mill - Manual");
  EXPECT_EQ(pane().pageCount(), kPages);
  auto* thumbnails = window()->findChild<QListView*>("thumbnails");
  ASSERT_TRUE(thumbnails->isVisible());
  EXPECT_EQ(thumbnails->model()->rowCount(), kPages);
  emit thumbnails->clicked(thumbnails->model()->index(3, 0));
  EXPECT_EQ(pane().currentPage(), 3);
  EXPECT_EQ(thumbnails->currentIndex().row(), 3);
  keepPicture("manual_contents");
  press(*window(), Qt::Key_Escape);
  EXPECT_TRUE(testing::waitFor([this] { return window() == nullptr; }));
}

// The program's own document; it is there once the target manual was built.
TEST_F(ManualTest, WordsOfTheProgramsManualAreFound) {
  home.write("tsmo_manual.pdf", readFile(helpFiles("").manual));
  program->application().clickTool("miLine");
  press(program->surface(), Qt::Key_F1);
  ASSERT_NE(window(), nullptr);
  const int page = manualPlaces(readFile(helpFiles("").manual)).at("miLine");
  EXPECT_EQ(pane().currentPage() + 1, page);
  keepPicture("manual_of_line");
  program->application().clickTool("miSearchforHelpon");
  auto* words = window()->findChild<QLineEdit*>("txtSearch");
  words->setText("Draws a line from the marker");
  emit words->textEdited(words->text());
  auto* found = window()->findChild<QListWidget*>("lstFound");
  ASSERT_TRUE(testing::waitFor([found] { return found->count() > 0; }));
  EXPECT_TRUE(found->item(0)->text().startsWith(QString("Page %1:").arg(page)))
      << found->item(0)->text().toStdString();
}

TEST_F(ManualTest, F1InAFormOpensItsPageBeforeTheForm) {
  const ManualPlaces places = manualPlaces(readFile(helpFiles("").manual));
  home.write("tsmo_manual.pdf", readFile(helpFiles("").manual));
  int page = -1;
  testing::whenModal([&](QWidget& form) {
    testing::whenModal([&](QWidget& manual) {
      page = manual.findChild<PdfPane*>("Pdf1")->currentPage() + 1;
      testing::keepScreenshot(manual, "manual_of_form");
      manual.close();
    });
    press(form, Qt::Key_F1);
    form.close();
  });
  program->application().clickTool("miGrid/SnapSelections");
  EXPECT_EQ(page, places.at("dlgSetGrids"));
}

TEST_F(ManualTest, TheIndexFindsWordsAndGoesToTheirPage) {
  writeManual(home("tsmo_manual.pdf"));
  program->application().clickTool("miSearchforHelpon");
  ASSERT_NE(window(), nullptr);
  EXPECT_FALSE(window()->findChild<QListView*>("thumbnails")->isVisible());
  auto* words = window()->findChild<QLineEdit*>("txtSearch");
  EXPECT_TRUE(words->isVisible());
  for (const QChar letter : QString("pocket")) {
    QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
    QApplication::sendEvent(words, &event);
  }
  auto* found = window()->findChild<QListWidget*>("lstFound");
  ASSERT_TRUE(testing::waitFor([found] { return found->count() == 1; }));
  EXPECT_EQ(found->item(0)->text(), "Page 3: Chapter 3 Cut the pocket first");
  found->setCurrentRow(0);
  EXPECT_EQ(pane().currentPage(), 2);
  keepPicture("manual_search");
}

TEST_F(ManualTest, WithoutAManualTheWindowSaysWhereItWouldBe) {
  program->application().clickTool("miContents");
  ASSERT_NE(window(), nullptr);
  auto* notice = window()->findChild<QLabel*>("lblNotice");
  EXPECT_TRUE(notice->isVisible());
  EXPECT_EQ(notice->text().toStdString(),
            "There is no manual. It would be here:\n" + home("tsmo_manual.pdf"));
  EXPECT_FALSE(pane().isVisible());
  testing::keepScreenshot(*window(), "manual_missing");
}

TEST_F(ManualTest, ADamagedManualIsTold) {
  home.write("tsmo_manual.pdf", "no document");
  program->application().clickTool("miContents");
  ASSERT_NE(window(), nullptr);
  EXPECT_EQ(window()->findChild<QLabel*>("lblNotice")->text().toStdString(),
            "The manual cannot be read:\n" + home("tsmo_manual.pdf"));
}

TEST_F(ManualTest, TheProgramEndsWithTheManualOpen) {
  writeManual(home("tsmo_manual.pdf"));
  press(program->surface(), Qt::Key_F1);
  EXPECT_TRUE(program->window().close());
  program.reset();
}

}  // namespace
}  // namespace tess
