// A drafting context on a screen of any kind, worked by lists of pointer events: the fixture of
// tests of the interaction.
// Owns: HeldSurface, DraftingTest, RecordedDrafting, segmentText, segmentTexts, pathText,
//       pathTexts.
#pragma once

#include <string>
#include <vector>

#include "core/drawing_store.h"
#include "core/units.h"
#include "display/display_commands.h"
#include "drafting/drafting_commands.h"
#include "drafting/drafting_context.h"
#include "drafting/draw_mode_tools.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "tests/support/recording_session.h"
#include "tests/support/recording_target.h"

namespace tess::testing {

// A surface must stand before the context that works on it.
template <class Surface>
struct HeldSurface {
  CallLog log;
  Surface surface{log};
};

// The view shows (-5, -4) to (5, 4), at 100 pixels to the unit on a surface of 1000 by 800. Pointer
// events are in drawing units. Time stands still until pass() is called.
template <class Surface>
class DraftingTest : public HeldSurface<Surface>,
                     public RedrawListener,
                     public ViewHost,
                     public DraftingListener {
 public:
  DraftingTest() {
    for (const ViewCommand* const command : displayCommands()) addTool(command->info.tool);
    for (const DraftingCommand* const command : draftingCommands()) addTool(command->info.tool);
    statusBar.onText = [this](const std::string& text) { statusLog.push_back(text); };
    set_num_formats(test.session);
    store.cfg_tolerance = 0.001F;
    store.partdimx = 10;
    store.partdimy = 8;
    for (int slot = 1; slot <= kLastColorSlot; ++slot) store.colortable[slot] = slot;
    view.viewspan = view.homespan = 4;
    view.aspectx = 1.25F;
    setPicSize(view, this->surface.area());
    context.state.resetObjectSnap();
    redraw.redrawscreen();
    pass(1000);
    store.drawingsaved = true;
    this->log.take();
    statusLog.clear();
  }

  ~DraftingTest();

  // ---- What the operator does

  void press(int button, float x, float y, int shift = 0) {
    picDrawing_MouseDown(context, {button, shift, x, y});
  }
  void move(int button, float x, float y, int shift = 0) {
    picDrawing_MouseMove(context, {button, shift, x, y});
  }
  void release(int button, float x, float y, int shift = 0) {
    picDrawing_MouseUp(context, {button, shift, x, y});
  }
  void click(float x, float y, int shift = 0) { clickWith(kLeftButton, x, y, shift); }
  void rightClick(float x, float y) { clickWith(kRightButton, x, y, 0); }
  void drag(Point from, Point to, int shift = 0) {
    move(0, from.x, from.y, shift);
    press(kLeftButton, from.x, from.y, shift);
    move(kLeftButton, (from.x + to.x) / 2, (from.y + to.y) / 2, shift);
    move(kLeftButton, to.x, to.y, shift);
    release(kLeftButton, to.x, to.y, shift);
  }
  void pass(int ms) {
    timers.advance(ms);
    test.recording.clock.elapsed += ms;
  }

  // ---- What there is

  void add(const SegmentRow& row) { AddSeg(store, row, nullptr); }
  void addLine(float x0, float y0, float x1, float y1) {
    add({.type = kLine, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1});
  }
  void addPathLine(float x0, float y0, float x1, float y1, int code = 100) {
    addPathSegment(store, {.type = kLine, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1, .code = code});
  }

  // ---- What became of it

  int pending() const { return context.state.pendingaction(); }
  int mode() const { return context.state.DrawMode(); }
  Point marker() const { return {store.markerx, store.markery}; }
  Point mouse() const { return {context.pointer.MouseX, context.pointer.MouseY}; }
  std::string prompt() const { return statusBar.text(); }
  std::string panel(StatusPanel which) const { return statusBar.panel(which); }
  int beeps() const { return test.recording.surroundings.beeps; }
  std::vector<Message>& messages() { return test.recording.prompts.messages; }
  // The tools that are pressed, of those of the drawing mode.
  std::vector<std::string> pressedTools() const {
    std::vector<std::string> pressed;
    for (const char* const tool : drawModeTools(context)) {
      if (tools.isChecked(tool)) pressed.emplace_back(tool);
    }
    return pressed;
  }

  // RedrawListener
  void showDrawingName() override {}
  void updateStatusDisplay() override { refreshStatus(context); }
  void PrintPreviewScreenShotWorkAround(DrawingTarget& /*target*/) override {}

  // ViewHost
  SurfaceArea clientArea() const override { return this->surface.area(); }
  bool toolChecked(const std::string& tool) const override { return tools.isChecked(tool); }
  void setToolChecked(const std::string& tool, bool checked) override {
    tools.setChecked(tool, checked);
  }
  void Update_menu_checks() override {}
  std::string appfolder() const override { return test.session.appfolder; }

  // DraftingListener
  void showStatistics(int segments, int paths, const std::string& zoom) override {
    statistics = std::to_string(segments) + " " + std::to_string(paths) + " " + zoom;
  }
  void UpdatePropertyWindow() override {
    ++propertyRefreshes;
    context.state.updateProperties = false;
  }
  void selectEntity(int sg) override { entitiesShown.push_back(sg); }
  void textPointerMoved(int button, int shift, float x, float y) override {
    recordTextEvent("pointer ", button, shift, x, y);
  }
  void textPointerReleased(int button, int shift, float x, float y) override {
    recordTextEvent("release ", button, shift, x, y);
  }
  void textDragReset() override { textEvents.emplace_back("drag reset"); }
  void textWheel(int steps, int shift) override {
    textEvents.push_back("wheel " + std::to_string(steps) + " " + std::to_string(shift));
  }
  void textPlacementEnded() override { textEvents.emplace_back("ended"); }

  std::string statistics;
  int propertyRefreshes = 0;
  std::vector<int> entitiesShown;
  std::vector<std::string> textEvents;
  std::vector<std::string> statusLog;  // every text that was put into the status line

  TestSession test;
  DrawingStore& store = test.store;
  VirtualTimers timers;
  ToolHost tools;
  StatusBar statusBar;
  RecordingPointer pointer{this->log};
  PictureBoxProxy ScreenProxy{this->surface};
  View view;
  Renderer renderer{store, test.recording.prompts, test.recording.surroundings};
  CState state{ScreenProxy};
  RedrawSequence redraw{
      {store, view, renderer, ScreenProxy, pointer, test.recording.surroundings, timers, *this}};
  ViewCommands viewCommands{
      {store, view, redraw, ScreenProxy, pointer, test.recording.surroundings, *this, state}};
  DraftingContext context{{test.session, view, renderer, redraw, state, viewCommands, ScreenProxy,
                           pointer, timers, tools, statusBar, *this}};

 private:
  void recordTextEvent(const char* what, int button, int shift, float x, float y) {
    textEvents.push_back(what + std::to_string(button) + " " + std::to_string(shift) + " " +
                         recordedPoint(x, y));
  }
  void addTool(const char* name) {
    Tool tool;
    tool.name = name;
    tool.caption = std::string(" ") + name;
    tools.addTool(tool);
  }

  void clickWith(int button, float x, float y, int shift) {
    move(0, x, y, shift);
    press(button, x, y, shift);
    release(button, x, y, shift);
  }
};

template <class Surface>
DraftingTest<Surface>::~DraftingTest() = default;

// Compiled once for all tests of it.
extern template class DraftingTest<RecordingSurface>;
using RecordedDrafting = DraftingTest<RecordingSurface>;

// A drawing row in one line, as in "1 (0, 0)-(1, 0)", "2 (0, 1)-(1, 0) c (0, 0)"; an attribute
// other than 8 follows as " @30008".
inline std::string segmentText(const SegmentRow& row) {
  std::string text =
      std::to_string(row.type) + " " + recordedLine({row.x0, row.y0, row.x1, row.y1});
  if (row.xc != 0 || row.yc != 0 || isArc(row.type)) text += " c " + recordedPoint(row.xc, row.yc);
  if (row.attr != kOrdinaryClass) text += " @" + std::to_string(row.attr);
  return text;
}

inline std::vector<std::string> segmentTexts(const DrawingStore& store) {
  std::vector<std::string> texts;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    texts.push_back(segmentText(segmentRow(store, sg)));
  }
  return texts;
}

// A path row with its code and depth, as in "1 (0, 0)-(1, 0) @100 z -0.5".
inline std::string pathText(const PathRow& row) {
  std::string text =
      std::to_string(row.type) + " " + recordedLine({row.x0, row.y0, row.x1, row.y1});
  if (row.xc != 0 || row.yc != 0 || isArc(row.type)) text += " c " + recordedPoint(row.xc, row.yc);
  return text + " @" + std::to_string(row.code) + " z " + recorded(row.z) +
         (row.feed != 0 ? " f " + recorded(row.feed) : "");
}

inline std::vector<std::string> pathTexts(const DrawingStore& store) {
  std::vector<std::string> texts;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    texts.push_back(pathText(pathRow(store, ps)));
  }
  return texts;
}

}  // namespace tess::testing
