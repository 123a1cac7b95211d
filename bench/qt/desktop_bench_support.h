// The whole program for benchmarks, in its window on a platform without a screen.
// Owns: kBenchWidth, kBenchHeight, BenchProgram, drawOutlines, scatterLines.
#pragma once

#include <memory>

#include "shell/qt/desktop_program.h"
#include "tests/support/temp_folder.h"

namespace tess {

inline constexpr int kBenchWidth = 1600, kBenchHeight = 1000;  // of the surface, in pixels

// A program that has come up empty, its surface of the size above.
class BenchProgram {
 public:
  BenchProgram();

  Application& application() { return program_->application(); }
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

}  // namespace tess
