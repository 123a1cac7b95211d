// Scripts in the window: what they leave, what they tell, and what the operator sees and may do.
#include "shell/qt/script_player.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/qt/plot.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

// A program's folder with the shipped files, and beside it the folder of the script.
struct Place {
  Place() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(home("CNC"));
    job.path = scripts("test.lua");
    job.appfolder = home();
  }

  testing::TempFolder home;
  testing::TempFolder scripts;
  ScriptJob job;
};

class ScriptPlayerTest : public ::testing::Test {
 protected:
  ScriptPlayerTest() { applyTheme(testing::toolkit(), /*dark=*/false); }

  ExitStatus play(const std::string& text, const Pace& pace = kWithoutWaiting) {
    player = std::make_unique<ScriptPlayer>(place.job, QtPictureWriter(), pace);
    std::ostringstream outStream, errStream;
    const ExitStatus status = player->play(text, outStream, errStream);
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  // Looks at the program between two steps, as soon as `when` holds.
  void lookWhen(std::function<bool()> when, std::function<void()> look) {
    auto* timer = new QTimer(&watch_);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, when, look] {
      if (!when()) return;
      timer->stop();
      look();
    });
    timer->start(0);
  }

  Place place;
  std::unique_ptr<ScriptPlayer> player;
  std::string out;
  std::string err;

 private:
  QObject watch_;
};

// A drawing with every kind of step: tools, keys, clicks, a drag, snap, a dialog, undo, the wheel.
constexpr char kSession[] = R"(
on_form("dlgPositionCursor", function(form)
  form.txtx:change("4")
  form.txty:change("3")
  form.cmdAccept:click()
end)
on_message(function() return "Yes" end)
rightclick(0, 0)
key("R") key("E") key("Enter")
tool("miCircleC+1P") rightclick(2, 1.5) click(2.5, 1.5)
tool("miArc3P") rightclick(1, 1) click(2, 2) click(1.5, 1.875)
tool("OSnap")
key("L") rightclick(0.03, 0.04) click(3.5, 1)
tool("miUndo") tool("miRedo")
wheel(2) tool("miPan") drag(1, 1, 1.5, 1.25) tool("miZoomExtents")
tool("miSelect") drag(1.25, 0.75, 2.75, 2.25, 1)
tool("miDelete")
wait(700)
save("session")
print(store.NumSegments, state.viewspan, state.MouseX, state.prompt, beeps)
)";

TEST_F(ScriptPlayerTest, LeavesTheDrawingThatARunWithoutAWindowLeaves) {
  Place bare;
  std::ostringstream bareOut, bareErr;
  ASSERT_EQ(runScriptText(bare.job, kSession, {}, bareOut, bareErr), ExitStatus::Done)
      << bareErr.str();
  ASSERT_EQ(play(kSession), ExitStatus::Done) << err;
  EXPECT_EQ(out, bareOut.str());
  EXPECT_EQ(readFile(place.home("CNC/SESSION.CDM")), readFile(bare.home("CNC/SESSION.CDM")));
  EXPECT_GE(player->application().store.NumSegments, 5);
  testing::keepScreenshot(player->window(), "play_end");
}

TEST_F(ScriptPlayerTest, TheShippedExampleLeavesTheSameFile) {
  const std::string script = readFile(TESSIMO_SOURCE_DIR "/examples/plate_drawing.lua");
  Place bare;
  std::ostringstream bareOut, bareErr;
  ASSERT_EQ(runScriptText(bare.job, script, QtPictureWriter(), bareOut, bareErr), ExitStatus::Done)
      << bareErr.str();
  ASSERT_EQ(play(script), ExitStatus::Done) << err;
  EXPECT_EQ(out, bareOut.str());
  EXPECT_EQ(readFile(place.scripts("plate_drawing.cdm")),
            readFile(bare.scripts("plate_drawing.cdm")));
}

TEST_F(ScriptPlayerTest, TheSurfaceHasTheSizeOfARunWithoutAWindow) {
  ASSERT_EQ(play(""), ExitStatus::Done) << err;
  EXPECT_EQ(player->window().findChild<QWidget*>("picDrawing")->size(), QSize(1000, 800));
  EXPECT_TRUE(player->window().windowTitle().startsWith("Tessimo Mill - Version "));
}

TEST_F(ScriptPlayerTest, AFailureIsOneLineWithFileAndLine) {
  EXPECT_EQ(play("click(1, 1)\nclick('here', 1)"), ExitStatus::JobFailed);
  EXPECT_TRUE(err.starts_with("tessimo: " + place.job.path + ":2: ")) << err;
  EXPECT_EQ(err.find('\n'), err.size() - 1) << err;
}

TEST_F(ScriptPlayerTest, ACommandThatClosesTheProgramEndsTheScriptInOrder) {
  EXPECT_EQ(play("print('before') tool('miExit') print('after')"), ExitStatus::Done) << err;
  EXPECT_EQ(out, "before\n");
}

TEST_F(ScriptPlayerTest, TheScriptsTimeIsAsLongForTheWatcher) {
  QElapsedTimer time;
  time.start();
  Pace pace = kWithoutWaiting;
  pace.millisecond = 1;
  EXPECT_EQ(play("wait(300)", pace), ExitStatus::Done) << err;
  EXPECT_GE(time.elapsed(), 300);
}

TEST_F(ScriptPlayerTest, ThePointerGlidesToItsPlaceAndShowsThePress) {
  Pace pace = kWithoutWaiting;
  pace.glide = 60;
  DrawnPointer* arrow = nullptr;
  std::vector<QPointF> tips;
  lookWhen([&] { return player && player->window().isVisible(); },
           [&] { arrow = player->window().findChild<DrawnPointer*>("drawnPointer"); });
  lookWhen(
      [&] {
        if (arrow != nullptr && arrow->isVisible()) tips.push_back(arrow->tip());
        return false;
      },
      [] {});
  EXPECT_EQ(play("rightclick(0, 0) click(3, 2)", pace), ExitStatus::Done) << err;
  ASSERT_NE(arrow, nullptr);
  EXPECT_GT(tips.size(), 4U);
  EXPECT_NE(tips.front(), tips.back());
  EXPECT_TRUE(arrow->isHidden()) << "the script is over";
}

TEST_F(ScriptPlayerTest, ADialogIsShownWhileTheScriptWorksIt) {
  Pace pace = kWithoutWaiting;
  pace.control = 30;
  std::string shown;
  lookWhen(
      [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
          if (window->objectName() == "dlgSetGrids" && window->isVisible()) return true;
        }
        return false;
      },
      [&] { shown = "dlgSetGrids"; });
  EXPECT_EQ(play("on_form('dlgSetGrids', function(f) f.txtvgrid:change('0.75') f.cmdAccept:click() "
                 "end) tool('miGrid/SnapSelections') print(store.visualgrid)",
                 pace),
            ExitStatus::Done)
      << err;
  EXPECT_EQ(shown, "dlgSetGrids");
  EXPECT_EQ(out, "0.75\n");
}

TEST_F(ScriptPlayerTest, AMessageIsShownWithTheButtonThatTheScriptChose) {
  Pace pace = kWithoutWaiting;
  pace.dialog = 60;
  std::string text, chosen;
  const auto box = [] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* found = qobject_cast<QMessageBox*>(window); found && found->isVisible())
        return found;
    }
    return static_cast<QMessageBox*>(nullptr);
  };
  lookWhen([&] { return box() != nullptr; },
           [&] {
             text = box()->text().toStdString();
             chosen = box()->defaultButton()->text().remove('&').toStdString();
           });
  EXPECT_EQ(play("on_message(function() return 'No' end) rightclick(0, 0) key('L') click(1, 1) "
                 "tool('miNew') print(store.NumSegments)",
                 pace),
            ExitStatus::Done)
      << err;
  EXPECT_EQ(text, "Drawing not saved! Save now?");
  EXPECT_EQ(chosen, "No");
  EXPECT_EQ(out, "0\n");
}

TEST_F(ScriptPlayerTest, TheOperatorsInputIsKeptAway) {
  lookWhen([&] { return player && player->window().isVisible(); },
           [&] {
             QKeyEvent press(QEvent::KeyPress, Qt::Key_L, Qt::NoModifier, "l");
             QApplication::sendEvent(&player->window(), &press);
           });
  EXPECT_EQ(play("wait(100) print(state.DrawMode)"), ExitStatus::Done) << err;
  EXPECT_EQ(out, "0\n");
}

TEST_F(ScriptPlayerTest, ClosingTheWindowEndsTheScript) {
  lookWhen([&] { return player && player->window().isVisible(); },
           [&] { player->window().close(); });
  EXPECT_EQ(play("while true do end print('never')"), ExitStatus::JobFailed);
  EXPECT_EQ(out, "");
  EXPECT_EQ(err, "tessimo: the window was closed before the script had ended\n");
}

}  // namespace
}  // namespace tess
