// The painting order, in its two forms.
#include "display/redraw_sequence.h"

#include "core/drawing_store.h"
#include "display/screen_marks.h"

namespace tess {

namespace {

constexpr int kTaskQueueInterval = 50;     // short, so that a stage follows its predecessor at once
constexpr int kSoiledInterval = 1;         // when the command that soils has come to its end
constexpr int kEventEnableInterval = 125;  // until the pointer events of the redraw are swallowed

enum Stage { kIdle = 0, kInit = 1, kSegments = 2, kPaths = 3, kFinal = 4 };

}  // namespace

RedrawSequence::RedrawSequence(const RedrawParts& parts)
    : parts_(parts),
      tmrTaskQueue_(parts.timers.create({"tmrTaskQueue", kTaskQueueInterval},
                                        [this] { tmrTaskQueue_Timer(); })),
      tmrEventEnable_(
          parts.timers.create({"tmrEventEnable", kEventEnableInterval, /*oneShot=*/true},
                              [this] { parts_.ScreenProxy.surface().setEnabled(true); })) {}

void RedrawSequence::redrawscreen() {
  redrawscreen(/*target=*/nullptr, /*ShowGrid=*/true, /*FillPartTemplate=*/true,
               /*DisableEvents=*/true);
}

void RedrawSequence::redrawscreen(DrawingTarget* target, Flag /*ShowGrid*/,
                                  Flag /*FillPartTemplate*/, Flag DisableEvents) {
  const Procedure here("frmMain.redrawscreen(target,ShowGrid,FillPartTemplate,DisableEvents)");
  if (target == nullptr) target = &parts_.ScreenProxy;
  if (target->screen() == nullptr) {
    paintFrame();  // paper takes the screen's picture
    parts_.listener.PrintPreviewScreenShotWorkAround(*target);
    return;
  }
  if (parts_.pointer.MousePointer() != kCustomShape) {
    parts_.pointer.setMousePointer(kHourglassShape);
  }
  parts_.ScreenProxy.surface().setEnabled(!DisableEvents);
  try {
    paintPicture(*target);
  } catch (...) {
    abandon();
    throw;
  }
}

// Whether one redraw is to come that all who ask meanwhile share.
bool RedrawSequence::frameComes() {
  if (!awaitsFrame_) awaitsFrame_ = parts_.ScreenProxy.surface().requestFrame();
  return awaitsFrame_;
}

void RedrawSequence::redrawSoon() {
  if (!frameComes()) redrawscreen();
}

// Asked for with every row of a command, and so never at once.
void RedrawSequence::soil() {
  if (frameComes()) return;
  if (!tmrSoiled_) {
    tmrSoiled_ = parts_.timers.create({"tmrSoiled", kSoiledInterval, /*oneShot=*/true},
                                      [this] { paintFrame(); });
  }
  tmrSoiled_->setEnabled(true);
  awaitsFrame_ = true;
}

void RedrawSequence::paintFrame() {
  if (awaitsFrame_) redrawscreen();
}

void RedrawSequence::paintPicture(DrawingTarget& target) {
  if (!openPicture(target)) return;
  const bool before = parts_.renderer.pathdrawing;
  if (!paintSegments(target) || !paintPaths(target)) return;
  parts_.renderer.pathdrawing = before;
  closePicture();
  isOvertaken_ = taskQueueState_ == kSegments || taskQueueState_ == kPaths;
}

// From the clearing to the grid. False when the window closes.
bool RedrawSequence::openPicture(DrawingTarget& target) {
  float span = parts_.view.homespan;
  if (PictureBoxProxy* screen = target.screen()) {
    span = parts_.view.viewspan;
    screen->surface().setRepaint(false);
    const Rgb background = parts_.renderer.look.background();
    if (screen->surface().state().backColor != background) {
      screen->surface().setBackColor(background);
    }
  }
  const WorldRect visible = visibleRectangle(parts_.view, span);
  target.Cls();
  if (target.screen() != nullptr) {
    markerShown_ = awaitsFrame_ = false;
    if (tmrSoiled_) tmrSoiled_->setEnabled(false);
    if (onCleared) onCleared();
  }
  SetScale(visible.left, visible.bottom, visible.right, visible.top, target);
  if (!servedEvents()) return false;
  if (parts_.store.parttemplate != 0) paintPartTemplate(target);
  if (parts_.store.visualgridf != 0) parts_.renderer.DisplayGrid(target);
  return true;
}

void RedrawSequence::paintPartTemplate(DrawingTarget& target) {
  const Rgb color = target.screen() != nullptr ? parts_.renderer.look.stock()
                                               : slotColor(parts_.store, ColorSlot::Stock);
  const WorldRect stock = stockRectangle(parts_.store);
  const WorldBox corners{stock.left, stock.top, stock.right, stock.bottom};
  PictureBoxProxy* screen = target.screen();
  if (screen == nullptr) {
    target.TraceLine(corners, color, kOutlineBox);
    return;
  }
  if (!isDisc(parts_.store)) {
    screen->TraceLine(corners, color, kFilledBox);
    return;
  }
  // Fixed: round stock lies about world zero whatever the origin says; drawings hold it.
  const FillMode fillStyle = screen->FillStyle();
  const Rgb fillColor = screen->FillColor();
  screen->setFillStyle(FillMode::Solid);
  screen->setFillColor(color);
  screen->TraceCircle(0, 0, parts_.store.partdimx / 2, color);
  screen->setFillStyle(fillStyle);
  screen->setFillColor(fillColor);
}

bool RedrawSequence::paintSegments(DrawingTarget& target) {
  if (parts_.store.NumSegments > 0) parts_.renderer.pathdrawing = false;
  for (int sg = 1; sg <= parts_.store.NumSegments; ++sg) {
    parts_.renderer.DrawSegment(sg, target);
    if (!servedEvents()) return false;
  }
  return true;
}

bool RedrawSequence::paintPaths(DrawingTarget& target) {
  if (parts_.store.showpaths == 0 || parts_.store.NumPathSegments == 0) return true;
  parts_.renderer.pathdrawing = true;
  for (int ps = 1; ps <= parts_.store.NumPathSegments; ++ps) {
    parts_.renderer.drawtoolpath(ps, target);
    if (!servedEvents()) return false;
  }
  if (parts_.store.pathdirection == 1) parts_.renderer.drawPathDirection(target);
  return true;
}

// A redraw at once may have been finished between the stages of another one: the marker's cross is
// in the picture by then, and drawn again it would be gone.
void RedrawSequence::closePicture() {
  PictureBoxProxy& screen = parts_.ScreenProxy;
  if (paintOver && !markerShown_) paintOver(screen);
  if (!markerShown_) DrawMarkerCross({parts_.store.markerx, parts_.store.markery}, screen);
  markerShown_ = true;
  DrawOriginArrows(parts_.renderer.look.letters(), screen);
  showPitch(screen);
  if (onPainted) onPainted();
  parts_.listener.showDrawingName();
  parts_.listener.updateStatusDisplay();
  releaseSurface();
}

// In the soft looks the grid leaves lines out, and says what is left.
void RedrawSequence::showPitch(PictureBoxProxy& screen) {
  const DrawingStore& store = parts_.store;
  if (store.visualgridf == 0 || !parts_.renderer.look.isSoft()) return;
  const double pitch = parts_.renderer.shownPitch(screen);
  if (!(pitch > 0)) return;
  DrawPitch(narrow(pitch), isMetric(store), parts_.renderer.look.letters(), screen);
}

// Shows the picture and gives the pointer back.
void RedrawSequence::releaseSurface() {
  DrawingSurface& surface = parts_.ScreenProxy.surface();
  surface.setRepaint(true);
  surface.Refresh();
  if (parts_.pointer.MousePointer() != kCustomShape) parts_.pointer.setMousePointer(kDefaultShape);
  tmrEventEnable_->setEnabled(!surface.Enabled());
}

// A failed redraw must not leave the surface frozen.
void RedrawSequence::abandon() {
  parts_.renderer.pathdrawing = false;
  releaseSurface();
}

// Serves events, in which anything may happen; false once the window is to close.
bool RedrawSequence::servedEvents() {
  parts_.surroundings.serveEvents();
  return !redrawabort;
}

void RedrawSequence::setTaskQueueState(int state) {
  ++starts_;
  taskQueueState_ = state;
  tmrTaskQueue_->setEnabled(true);
}

// A stage serves events while it paints, and with them its own timer: such a tick is passed over. A
// failure ends the sequence, or each tick would fail anew.
void RedrawSequence::tmrTaskQueue_Timer() {
  const Procedure here("frmMain.tmrTaskQueue_Timer()");
  if (inStage_) return;
  inStage_ = true;
  try {
    runStage(taskQueueState_);
  } catch (...) {
    inStage_ = false;
    taskQueueState_ = kIdle;
    abandon();
    throw;
  }
  inStage_ = false;
}

void RedrawSequence::runStage(int stage) {
  switch (stage) {
    case kInit:
      return RedrawScreen_Init();
    case kSegments:
      return RedrawScreen_Segments();
    case kPaths:
      return RedrawScreen_Paths();
    case kFinal:
      return RedrawScreen_Final();
  }
  tmrTaskQueue_->setEnabled(false);
}

// A sequence that was started anew while the stage served events goes its own way, also from this
// very stage: the surface may have another size by then.
void RedrawSequence::finishStage(const StageRun& run) {
  if (run.starts != starts_) return;
  setTaskQueueState(run.stage == kFinal ? kIdle : run.stage + 1);
}

void RedrawSequence::RedrawScreen_Init() {
  const Procedure here("frmMain.RedrawScreen_Init()");
  const StageRun run = stageRun();
  parts_.pointer.setMousePointer(kHourglassShape);
  parts_.ScreenProxy.surface().setEnabled(false);
  isOvertaken_ = false;
  if (!openPicture(parts_.ScreenProxy)) return;
  parts_.ScreenProxy.surface().Refresh();
  finishStage(run);
}

// What a redraw at once has painted since the first stage is not painted a second time: smooth
// edges would grow darker.
void RedrawSequence::RedrawScreen_Segments() {
  const Procedure here("frmMain.RedrawScreen_Segments()");
  const StageRun run = stageRun();
  if (isOvertaken_ || paintSegments(parts_.ScreenProxy)) finishStage(run);
}

void RedrawSequence::RedrawScreen_Paths() {
  const Procedure here("frmMain.RedrawScreen_Paths()");
  const StageRun run = stageRun();
  if (!isOvertaken_ && !paintPaths(parts_.ScreenProxy)) return;
  parts_.renderer.pathdrawing = false;
  finishStage(run);
}

void RedrawSequence::RedrawScreen_Final() {
  const Procedure here("frmMain.RedrawScreen_Final()");
  const StageRun run = stageRun();
  closePicture();
  isOvertaken_ = false;
  if (run.stage == kFinal) finishStage(run);
}

}  // namespace tess
