// The whole program for benchmarks, in its window on a platform without a screen.
// Owns: kBenchWidth, kBenchHeight, BenchProgram, scatterLines.
#pragma once

#include <QImage>
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

// A new drawing of `rows` lines of about `pixels` pixels, all over the view and in all directions.
void scatterLines(BenchProgram& program, int rows, double pixels);

}  // namespace tess
