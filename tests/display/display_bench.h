// A drawing with a recording screen round it, for the tests of this folder.
// Owns: RecordingRedrawListener, DisplayBench.
#pragma once

#include <string>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/timers.h"
#include "display/redraw_sequence.h"
#include "display/renderer.h"
#include "display/view_transform.h"
#include "tests/support/recording_target.h"

namespace tess::testing {

class RecordingRedrawListener : public RedrawListener {
 public:
  explicit RecordingRedrawListener(CallLog& log) : log_(log) {}
  void showDrawingName() override { log_.add("showDrawingName"); }
  void updateStatusDisplay() override { log_.add("updateStatusDisplay"); }
  void PrintPreviewScreenShotWorkAround(DrawingTarget& /*target*/) override {
    log_.add("PrintPreviewScreenShotWorkAround");
  }

 private:
  CallLog& log_;
};

// The surface has 1000 by 800 pixels, 100 to the unit, with world zero in its middle.
class DisplayBench : public ::testing::Test {
 protected:
  DisplayBench() {
    view.viewspan = 4;
    view.homespan = 4;
    view.aspectx = 1.25F;
    setPicSize(view, surface.area());
    SetScale(-5, -4, 5, 4, screen);
    store.colortable[1] = 15;  // bright white background
    store.colortable[2] = 7;   // white stock
    store.colortable[3] = 0;   // black drawing
    store.colortable[4] = 12;  // bright red selection
    store.colortable[5] = 2;   // green when verified
    store.colortable[6] = 8;   // grey grid
    store.colortable[7] = 1;   // blue markers
    store.cfg_tolerance = 0.001F;
    surface.setBackColor(ColorOf(15));
    surface.setForeColor(0x102030);  // told apart from every palette colour
    log.take();
  }

  int addSegment(const SegmentRow& row) {
    AddSeg(store, row, nullptr);
    return store.NumSegments;
  }
  int addPath(const PathRow& row) {
    addPathSegment(store, row);
    return store.NumPathSegments;
  }

  // What one routine asks of the target.
  std::string drawn(int sg) {
    renderer.DrawSegment(sg, screen);
    return log.take();
  }
  std::string drawnPath(int ps) {
    renderer.drawtoolpath(ps, screen);
    return log.take();
  }

  CallLog log;
  RecordingSurface surface{log};
  PictureBoxProxy screen{surface};
  RecordingPaper paper{log};
  RecordingPointer pointer{log};
  LoggingSurroundings surroundings{log};
  LoggingPrompts prompts{log};
  RecordingRedrawListener listener{log};
  VirtualTimers timers;
  DrawingStore store;
  View view;
  Renderer renderer{store, prompts, surroundings};
  RedrawSequence redraw{{store, view, renderer, screen, pointer, surroundings, timers, listener}};
};

}  // namespace tess::testing
