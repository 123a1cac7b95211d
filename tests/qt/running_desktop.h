// The whole program in its window, in a folder with the shipped files: the fixture of tests that
// work it by pointer and keys.
// Owns: filledFolder, RunningDesktop.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "core/file_system.h"
#include "shell/qt/desktop_program.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_file.h"

namespace tess::testing {

// A program's folder with the shipped files.
inline std::string filledFolder(const std::string& folder) {
  std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", folder,
                        std::filesystem::copy_options::recursive);
  std::filesystem::create_directories(folder + "CNC");
  if (!fileExists(folder + "CNC/TSMO.MRU")) writeFile(folder + "CNC/TSMO.MRU", "");
  return folder;
}

class RunningDesktop : public ::testing::Test {
 protected:
  RunningDesktop() {
    applyTheme(toolkit(), /*dark=*/false);
    program = std::make_unique<DesktopProgram>(filledFolder(folder()));
  }

  void open(const std::string& drawing = {}) {
    ASSERT_TRUE(program->open(drawing));
    settle();
  }

  // Until the picture stands and the surface takes events.
  void settle() {
    EXPECT_TRUE(waitFor([&] {
      return program->application().interaction.redraw.TaskQueueState() == 0 &&
             program->surface().drawing().Enabled();
    }));
  }

  QPointF pixel(float x, float y) {
    const PixelPoint at = program->surface().drawing().toPixels(x, y);
    return {at.x, at.y};
  }

  void pointer(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPointF at) {
    QMouseEvent event(type, at, program->surface().mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(&program->surface(), &event);
  }

  void click(float x, float y) {
    settle();
    const QPointF at = pixel(x, y);
    pointer(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, at);
    pointer(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, at);
    pointer(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, at);
    settle();
  }

  void key(int key, const QString& text, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&program->surface(), &press);
  }

  // What the surface shows, without the letters of the axes and of the grid, which may smooth
  // otherwise from one redraw to the next.
  QImage pictureWithoutLetters() {
    QImage picture = program->surface().drawing().picture().copy();
    const QPointF origin = pixel(0, 0);
    QPainter painter(&picture);
    painter.fillRect(QRectF(origin - QPointF(20, 40), QSizeF(60, 60)), Qt::black);
    painter.fillRect(QRectF(0, picture.height() - 30, 200, 30), Qt::black);
    return picture;
  }

  DrawingStore& store() { return program->application().store; }

  TempFolder folder;
  std::unique_ptr<DesktopProgram> program;
};

}  // namespace tess::testing
