// The drawing on one page as the screen shows it, above a title block, on the printer or in the
// preview; and the pictures of the disk.
// Owns: DrawingPrinter, PictureDisk.
#pragma once

#include <string>

#include "core/session.h"
#include "core/status_bar.h"
#include "display/print_preview.h"
#include "display/redraw_sequence.h"

namespace tess {

class DrawingPrinter {
 public:
  // `PrintPreview1` is null where nothing can be printed, and nobody tries.
  DrawingPrinter(Session& session, PictureBoxProxy& screen, PrintPreviewControl* PrintPreview1)
      : session_(session), screen_(screen), control_(PrintPreview1) {}

  // Composes the page; the part of it that is the drawing comes through `redraw`. Raises what the
  // control, the redraw and the temporary file do; the file is gone in any case.
  void PrintDrawing(RedrawSequence& redraw, PrintOutput Output);

  // A picture of the screen as it stands, by way of a temporary file, on the page that is being
  // composed.
  void PrintPreviewScreenShotWorkAround(DrawingTarget& target);

 private:
  void composeBlock();
  void composeRow(int row, float y);
  float lineHeight() const;
  float blockTop() const;
  void removeTemporary();

  Session& session_;
  PictureBoxProxy& screen_;
  PrintPreviewControl* control_;
  std::string temporary_;  // full path; empty when there is none
};

// Pictures of the disk have running numbers. Neither reading nor writing does anything.
class PictureDisk {
 public:
  // Tells that picture under the next name: CAMPIC00.PCX to CAMPIC99.PCX, and from the start.
  void store_Picture(StatusBar& status);

 private:
  int number_ = 0;
};

}  // namespace tess
