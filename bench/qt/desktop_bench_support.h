// The whole program for benchmarks, in its window on a platform without a screen.
// Owns: kBenchWidth, TimedApplication, BenchProgram, drawOutlines, scatterLines, drawChain.
#pragma once

#include <QApplication>
#include <memory>

#include "shell/qt/desktop_program.h"
#include "tests/support/temp_folder.h"

namespace tess {

inline constexpr int kBenchWidth = 1600, kBenchHeight = 1000;  // of the surface, in pixels

// The toolkit's application; it takes the time of every event that the event loop hands out, and
// of all that its handling leads to.
class TimedApplication : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;

  // Milliseconds of processor time of the longest event since the last call.
  double takeLongest();

 private:
  int depth_ = 0;
  double longest_ = 0;
};

// A program that has come up empty, its surface of the size above.
class BenchProgram {
 public:
  BenchProgram();

  Application& application() { return program_->application(); }
  MainWindow& window() { return program_->window(); }
  SurfaceWidget& surface() { return program_->surface(); }
  DrawingStore& store() { return application().store; }
  // Serves events until no redraw is under way.
  void settle();

 private:
  testing::TempFolder folder_;
  std::unique_ptr<DesktopProgram> program_;
};

// A new drawing of `rows` lines, each of so many pixels, all over the view: outlines of 20 sides as
// they are drawn one after the other, or each line in a place of its own.
void drawOutlines(BenchProgram& program, int rows, double pixels);
void scatterLines(BenchProgram& program, int rows, double pixels);
// A new drawing of one open chain that goes to and fro over the view.
void drawChain(BenchProgram& program, int rows);

}  // namespace tess
