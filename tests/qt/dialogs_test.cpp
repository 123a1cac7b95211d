// The program's own dialogs in their windows, worked by keys: what Enter and Esc come to, and how
// they look in light and dark.
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "core/drawing_store.h"
#include "shell/frmAbout.h"
#include "shell/frmShowError.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/support/recording_session.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::whenModal;

class DialogsTest : public ::testing::Test {
 protected:
  DialogsTest() {
    applyTheme(testing::toolkit(), /*dark=*/false);
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(home("CNC"));
    for (const char* name : {"bracket.cdm", "Plate.cdm", "flange 4.cdm", "plate.tpm"}) {
      home.write(std::string("CNC/") + name, "");
    }
    home.write("CNC/TSMO.MRU", "");
    for (const char* name : {"CNC/old", "CNC/Fixtures"})
      std::filesystem::create_directory(home(name));
  }

  void type(QWidget& dialog, const std::string& text) {
    for (const char letter : text) press(dialog, 0, QString(QChar::fromLatin1(letter)));
  }

  // A key for whatever has the keyboard.
  static void press(QWidget& dialog, int key, const QString& text = {}) {
    QWidget* target = dialog.focusWidget() != nullptr ? dialog.focusWidget() : &dialog;
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &event);
  }
  static void enter(QWidget& dialog) { press(dialog, Qt::Key_Return, "\r"); }
  static void escape(QWidget& dialog) { press(dialog, Qt::Key_Escape, "\x1b"); }

  std::optional<std::string> choose(bool forSaving, const std::function<void(QWidget&)>& act) {
    whenModal(act);
    return prompts.chooseFile({.title = forSaving ? "Save As" : "Drawing File Selector",
                               .pattern = "Drawing Files (*.cdm)|*.cdm|All Files (*.*)|*.*",
                               .folder = home("CNC"),
                               .name = forSaving ? "part.cdm" : "",
                               .forSaving = forSaving});
  }

  testing::TempFolder home;
  Gateway gateway{testing::passThrough()};
  DesktopPrompts prompts{gateway};
};

TEST_F(DialogsTest, TheReportOfAFailureClosesByEitherKey) {
  for (const auto& key : {enter, escape}) {
    std::string shown;
    whenModal([&](QWidget& dialog) {
      shown = dialog.findChild<QPlainTextEdit*>("txtError")->toPlainText().toStdString();
      testing::keepScreenshot(dialog, "show_error");
      key(dialog);
    });
    frmShowError(prompts).ErrorReport("Overflow \r\n  Number: 6");
    EXPECT_EQ(shown, "Overflow \n  Number: 6");
  }
}

TEST_F(DialogsTest, AboutClosesByEitherKey) {
  testing::TestSession recorded;
  for (const auto& key : {enter, escape}) {
    frmAbout about(recorded.session, "");
    whenModal([&](QWidget& dialog) { key(dialog); });
    prompts.showModal(about);
    EXPECT_FALSE(about.isShown());
  }
}

// The splash goes by itself after two seconds.
TEST_F(DialogsTest, AReportOutlivesTheSplash) {
  std::filesystem::remove(home("CNC/TSMO.MRU"));
  DesktopProgram program(home());
  std::string shown;
  QTimer::singleShot(2300, [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    shown = dialog->objectName().toStdString();
    enter(*dialog);
  });
  EXPECT_TRUE(program.open(""));
  EXPECT_EQ(shown, "frmShowError") << "the list of recent files is missing";
}

TEST_F(DialogsTest, AFileIsChosenByItsNameAndEnter) {
  EXPECT_EQ(choose(/*forSaving=*/false,
                   [&](QWidget& dialog) {
                     EXPECT_EQ(dialog.windowTitle(), "Drawing File Selector");
                     testing::keepScreenshot(dialog, "get_file");
                     type(dialog, "plate");
                     enter(dialog);
                   }),
            home("CNC/Plate.cdm"));
}

TEST_F(DialogsTest, AFileIsChosenInTheListByKeys) {
  EXPECT_EQ(choose(/*forSaving=*/false,
                   [&](QWidget& dialog) {
                     auto* files = dialog.findChild<QListWidget*>("lstFiles");
                     EXPECT_EQ(files->item(0)->text(), "bracket.cdm");
                     EXPECT_EQ(files->item(1)->text(), "flange 4.cdm");
                     EXPECT_EQ(files->item(2)->text(), "Plate.cdm");
                     EXPECT_FALSE(files->item(0)->icon().isNull());
                     files->setFocus();
                     EXPECT_EQ(dialog.findChild<QLineEdit*>("txtName")->text(), "");
                     press(dialog, Qt::Key_Down);
                     EXPECT_EQ(dialog.findChild<QLineEdit*>("txtName")->text(), "flange 4.cdm");
                     enter(dialog);
                   }),
            home("CNC/flange 4.cdm"));
}

TEST_F(DialogsTest, FoldersAreWalkedByKeys) {
  EXPECT_EQ(choose(/*forSaving=*/true,
                   [&](QWidget& dialog) {
                     auto* folders = dialog.findChild<QListWidget*>("lstFolders");
                     folders->setFocus();
                     folders->setCurrentRow(2);
                     enter(dialog);
                     EXPECT_TRUE(dialog.isVisible());
                     EXPECT_EQ(dialog.findChild<QComboBox*>("cmbFolder")->currentText(),
                               QString::fromStdString(home("CNC/old/")));
                     testing::keepScreenshot(dialog, "save_file");
                     dialog.findChild<QPushButton*>("cmdOK")->click();
                   }),
            home("CNC/old/part.cdm"));
}

TEST_F(DialogsTest, EscCancelsTheChoice) {
  for (const bool forSaving : {false, true}) {
    EXPECT_EQ(choose(forSaving, [&](QWidget& dialog) { escape(dialog); }), std::nullopt);
  }
}

TEST_F(DialogsTest, AMissingFileIsToldInTheDialog) {
  EXPECT_EQ(choose(/*forSaving=*/false,
                   [&](QWidget& dialog) {
                     applyTheme(testing::toolkit(), /*dark=*/true);
                     type(dialog, "none");
                     enter(dialog);
                     EXPECT_EQ(dialog.findChild<QLabel*>("lblNotice")->text(),
                               "There is no such file in this folder.");
                     testing::keepScreenshot(dialog, "get_file_dark");
                     escape(dialog);
                   }),
            std::nullopt);
}

// Dialogs of commands, in the program.
class ProgramDialogsTest : public DialogsTest {
 protected:
  // The pointer is put to a place in the picture, so that has to stand.
  ProgramDialogsTest() : program(home()) {
    program.open("");
    EXPECT_TRUE(testing::waitFor(
        [this] { return program.application().interaction.redraw.TaskQueueState() == 0; }));
  }

  void tool(const char* name) { program.application().clickTool(name); }
  DrawingStore& store() { return program.application().store; }

  DesktopProgram program;
};

TEST_F(ProgramDialogsTest, TheGridDialogAcceptsByEnterAndCancelsByEsc) {
  const float before = store().visualgrid;
  const auto change = [&](QWidget& dialog) {
    auto* field = dialog.findChild<QLineEdit*>("txtvgrid");
    field->setFocus();
    field->clear();
    type(dialog, "0.75");
  };
  whenModal([&](QWidget& dialog) {
    change(dialog);
    escape(dialog);
  });
  tool("miGrid/SnapSelections");
  EXPECT_FLOAT_EQ(store().visualgrid, before);
  whenModal([&](QWidget& dialog) {
    change(dialog);
    enter(dialog);
  });
  tool("miGrid/SnapSelections");
  EXPECT_FLOAT_EQ(store().visualgrid, 0.75F);
}

TEST_F(ProgramDialogsTest, TabLeadsThroughThePositionDialogFigureByFigure) {
  whenModal([&](QWidget& dialog) {
    QStringList way{"txtx"};
    auto* at = dialog.findChild<QWidget*>("txtx");
    while (way.size() < 6) {
      do {
        at = at->nextInFocusChain();
      } while ((at->focusPolicy() & Qt::TabFocus) == 0 || !at->isVisible());
      way << at->objectName();
    }
    EXPECT_EQ(way.join(" ").toStdString(),
              "txtx txty cmdAccept cmdCancel cmdUseMarkerX cmdUseMarkerY");
    escape(dialog);
  });
  tool("miEnterPosition");
}

TEST_F(ProgramDialogsTest, ThePositionDialogAcceptsByEnterAndCancelsByEsc) {
  const PointerRecord& pointer = program.application().interaction.context.pointer;
  const auto change = [&](QWidget& dialog) {
    auto* field = dialog.findChild<QLineEdit*>("txtx");
    field->setFocus();
    field->clear();
    type(dialog, "1.25");
  };
  const float before = pointer.MouseX;
  whenModal([&](QWidget& dialog) {
    change(dialog);
    escape(dialog);
  });
  tool("miEnterPosition");
  EXPECT_FLOAT_EQ(pointer.MouseX, before);
  whenModal([&](QWidget& dialog) {
    change(dialog);
    enter(dialog);
  });
  tool("miEnterPosition");
  EXPECT_FLOAT_EQ(pointer.MouseX, 1.25F);
}

}  // namespace
}  // namespace tess
