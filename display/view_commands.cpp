// The commands that change the view.
#include "display/view_commands.h"

#include <cmath>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "display/display_commands.h"

namespace tess {

namespace {

constexpr const char* kPanIcon = "pansmall.ico";
constexpr double kExtentsMargin = 0.05;

bool isArmed(const ViewParts& parts, PendingAction action) {
  return parts.armed.pendingaction() == static_cast<int>(action);
}

}  // namespace

void traceRubberBox(PictureBoxProxy& ScreenProxy, PenStyle style,
                    std::initializer_list<WorldBox> boxes) {
  ScreenProxy.setDrawMode(PenMode::NotXor);
  ScreenProxy.setDrawStyle(style);
  for (const WorldBox& box : boxes) ScreenProxy.TraceLine(box, {}, kOutlineBox);
  ScreenProxy.setDrawMode(PenMode::Copy);
  ScreenProxy.setDrawStyle(PenStyle::Solid);
}

void ViewCommands::fitview(bool keepview) {
  const Procedure here("frmMain.fitview(keepview)");
  DrawingSurface& surface = parts_.ScreenProxy.surface();
  surface.Move(parts_.host.clientArea());
  setPicSize(parts_.view, surface.area());
  const FittedSide side = fitAspects(parts_.view, parts_.store);
  if (!keepview) resetToFullView(parts_.view, parts_.store, side);
  parts_.redraw.setTaskQueueState(1);
}

void ViewCommands::recover() {
  setPicSize(parts_.view, parts_.ScreenProxy.surface().area());
  parts_.view.zoomfactor = 1;
}

void ViewCommands::setview(std::optional<double> x, std::optional<double> y) {
  const Procedure here("frmMain.setview(x,y)");
  View& view = parts_.view;
  if (x) view.viewcx = narrow(*x);
  if (y) view.viewcy = narrow(*y);
  view.zoomfactor = narrow(magnification(view));
  parts_.redraw.redrawscreen();
}

void ViewCommands::showView(Point center, float span) {
  const Procedure here("frmMain.setview(x,y)");
  View& view = parts_.view;
  view.viewcx = center.x;
  view.viewcy = center.y;
  view.viewspan = span;
  view.zoomfactor = narrow(magnification(view));
  const bool takesEvents = parts_.ScreenProxy.surface().Enabled();
  parts_.redraw.redrawscreen(/*target=*/nullptr, /*ShowGrid=*/true, /*FillPartTemplate=*/true,
                             /*DisableEvents=*/!takesEvents);
}

// Fixed: (0, 0) stands for no place; zooming there keeps the view where it is.
void ViewCommands::centerAt(double x, double y) {
  if (x == 0 && y == 0) {
    setview();
  } else {
    setview(x, y);
  }
}

void ViewCommands::Zoom_In(double x, double y) {
  const Procedure here("frmMain.Zoom_In(x,y)");
  if (isArmed(parts_, PendingAction::PlaceText)) return;
  if (narrow(magnification(parts_.view)) >= kLargestZoom) return;
  parts_.view.viewspan *= 0.5F;
  centerAt(x, y);
}

void ViewCommands::Zoom_out(double x, double y) {
  const Procedure here("frmMain.Zoom_out(x,y)");
  if (isArmed(parts_, PendingAction::PlaceText)) return;
  parts_.view.viewspan = narrow(2.0 * parts_.view.viewspan);
  centerAt(x, y);
}

void ViewCommands::zoomwindow(double MouseDownX, double MouseDownY, double MouseMoveX,
                              double MouseMoveY, bool force) {
  const Procedure here("frmMain.zoomwindow(MouseDownX,MouseDownY,MouseMoveX,MouseMoveY,force)");
  const double dx = std::abs(MouseMoveX - MouseDownX);
  const double dy = std::abs(MouseMoveY - MouseDownY);
  const double fraction = spanFraction(parts_.ScreenProxy, dx, dy);
  if (fraction > 1 && !force) return;
  View& view = parts_.view;
  view.viewspan = narrow(view.viewspan * fraction);
  if (magnification(view) > kLargestZoom) {
    view.viewspan = narrow(view.homespan / kLargestZoom);
  }
  setview((MouseDownX + MouseMoveX) / 2, (MouseDownY + MouseMoveY) / 2);
}

void ViewCommands::ZoomExtents() {
  const Procedure here("frmMain.ZoomExtents()");
  const std::optional<DrawingExtents> extents = GetDrawingExtents(parts_.store);
  if (!extents) return;
  const double mx = std::abs(static_cast<double>(extents->maxx) - extents->minx) * kExtentsMargin;
  const double my = std::abs(static_cast<double>(extents->maxy) - extents->miny) * kExtentsMargin;
  zoomwindow(extents->minx - mx, extents->miny - my, extents->maxx + mx, extents->maxy + my,
             /*force=*/true);
}

void ViewCommands::dragZoomBox(const WorldBox& shown, const WorldBox& next) {
  traceRubberBox(parts_.ScreenProxy, PenStyle::Dash, {shown, next});
}

void ViewCommands::releaseZoomBox(const WorldBox& shown) {
  traceRubberBox(parts_.ScreenProxy, PenStyle::Dash, {shown});
  parts_.armed.setPendingaction(0);
  parts_.surroundings.serveEvents();
  zoomwindow(shown.x0, shown.y0, shown.x1, shown.y1, /*force=*/false);
  if (interrupted_.SavedDrawMode == 0) return;
  parts_.armed.setPendingaction(interrupted_.SavedPending);
  // Setting a mode ends panning, so an interrupted pan comes back without one.
  if (interrupted_.SavedPending == static_cast<int>(PendingAction::Pan)) return;
  parts_.armed.setDrawMode(interrupted_.SavedDrawMode);
}

PanDrag ViewCommands::beginPan(Point pointer) const {
  const Point center{parts_.view.viewcx, parts_.view.viewcy};
  return {pointer, center, center};
}

void ViewCommands::movePan(PanDrag& drag, Point pointer) {
  if (pointer == drag.grabbed) return;
  drag.center.x = drag.grabbed.x - (pointer.x - drag.center.x);
  drag.center.y = drag.grabbed.y - (pointer.y - drag.center.y);
  setview(drag.center.x, drag.center.y);
}

void ViewCommands::endPan(const PanDrag& drag, Point pointer) {
  setview(parts_.view.viewcx - pointer.x + drag.grabbed.x,
          parts_.view.viewcy - pointer.y + drag.grabbed.y);
}

Point ViewCommands::inPresentView(const PanDrag& drag, Point pointer) const {
  return {pointer.x + (parts_.view.viewcx - drag.pressCenter.x),
          pointer.y + (parts_.view.viewcy - drag.pressCenter.y)};
}

void ViewCommands::interrupt() {
  interrupted_ = {parts_.armed.pendingaction(), parts_.armed.DrawMode()};
}

void ViewCommands::mnuViewCenter_Click() {
  setview(parts_.store.markerx, parts_.store.markery);
}

void ViewCommands::mnuViewZoomWindow_Click() {
  interrupt();
  parts_.armed.setPendingaction(static_cast<int>(PendingAction::ZoomWindow));
}

void ViewCommands::mnuViewPan_Click() {
  if (parts_.host.toolChecked(kPanCommand.info.tool)) {
    stopPanning();
  } else {
    startPanning();
  }
}

void ViewCommands::startPanning() {
  interrupt();
  parts_.host.setToolChecked(kPanCommand.info.tool, true);
  parts_.armed.setPendingaction(static_cast<int>(PendingAction::Pan));
  showPanPointer();
}

void ViewCommands::showPanPointer() {
  const std::string icon = parts_.host.appfolder() + kPanIcon;
  if (!fileExists(icon)) return;
  parts_.pointer.setMouseIcon(icon);
  parts_.pointer.setMousePointer(kCustomShape);
}

void ViewCommands::stopPanning() {
  parts_.host.setToolChecked(kPanCommand.info.tool, false);
  parts_.pointer.setMousePointer(kDefaultShape);
  parts_.armed.setPendingaction(0);
  if (interrupted_.SavedDrawMode == 0) return;
  parts_.armed.setPendingaction(interrupted_.SavedPending);
  parts_.armed.setDrawMode(interrupted_.SavedDrawMode);
}

void ViewCommands::flip(Int16& flag) {
  flag = 1 - flag;
  parts_.host.Update_menu_checks();
  parts_.redraw.redrawscreen();
}

void ViewCommands::mnuViewShowPartTemp_Click() {
  flip(parts_.store.parttemplate);
}

void ViewCommands::mnuViewShowEndMark_Click() {
  flip(parts_.store.endmarkers);
}

void ViewCommands::mnuViewShowToolPath_Click() {
  flip(parts_.store.showpaths);
}

void ViewCommands::mnuViewToolRadOutline_Click() {
  flip(parts_.store.tooloutline);
}

// ---- Descriptors

namespace {

template <void (ViewCommands::*command)()>
void calls(ViewCommands& view) {
  (view.*command)();
}

constexpr Action<ViewCommands> kZoomWindowActions[] = {
    {{.action = PendingAction::ZoomWindow,
      .prompt = "Select zoom window with mouse.",
      .snaps = false,
      .escRedraws = true,
      .drags = true,
      .left = "round what is to fill the window"}},
};

constexpr Action<ViewCommands> kPanActions[] = {
    {{.action = PendingAction::Pan,
      .prompt = "Click spot to Pan to with mouse.",
      .stays = true,
      .snaps = false,
      .drags = true,
      .left = "moves the view"}},
};

}  // namespace

constexpr ViewCommand kRedrawCommand{
    .info = {.tool = "miReDraw",
             .caption = "&Redraw",
             .key = "Ctrl+R",
             .menu = {"miView", 110},
             .bar = {"barView", 180}},
    .run = calls<&ViewCommands::mnuViewReDraw_Click>,
};

constexpr ViewCommand kCenterCommand{
    .info = {.tool = "miCenter",
             .caption = "&Center on Marker",
             .menu = {"miView", 120},
             .bar = {"barView", 170}},
    .run = calls<&ViewCommands::mnuViewCenter_Click>,
};

constexpr ViewCommand kZoomInCommand{
    .info = {.tool = "miZoomIn",
             .caption = "Zoom &In",
             .key = "I",
             .menu = {"miView", 130},
             .bar = {"barView", 110}},
    .run = calls<&ViewCommands::mnuViewZoomIn_Click>,
};

constexpr ViewCommand kZoomOutCommand{
    .info = {.tool = "miZoomOut",
             .caption = "Zoom &Out",
             .key = "O",
             .menu = {"miView", 140},
             .bar = {"barView", 120}},
    .run = calls<&ViewCommands::mnuViewZoomOut_Click>,
};

constexpr ViewCommand kZoomWindowCommand{
    .info = {.tool = "miZoomWindow",
             .caption = "Zoom &Window",
             .menu = {"miView", 150},
             .bar = {"barView", 130}},
    .run = calls<&ViewCommands::mnuViewZoomWindow_Click>,
    .actions = kZoomWindowActions,
};

constexpr ViewCommand kZoomExtentsCommand{
    .info = {.tool = "miZoomExtents",
             .caption = "Zoom &Extents",
             .menu = {"miView", 160},
             .bar = {"barView", 140}},
    .run = calls<&ViewCommands::ZoomExtents>,
};

constexpr ViewCommand kFullViewCommand{
    .info = {.tool = "miFullView",
             .caption = "&Full View",
             .menu = {"miView", 170},
             .bar = {"barView", 150}},
    .run = calls<&ViewCommands::mnuViewFullView_Click>,
};

constexpr ViewCommand kPanCommand{
    .info = {.tool = "miPan", .caption = "&Pan", .menu = {"miView", 180}, .bar = {"barView", 160}},
    .run = calls<&ViewCommands::mnuViewPan_Click>,
    .actions = kPanActions,
};

constexpr ViewCommand kShowPartTemplateCommand{
    .info = {.tool = "miShowPartTemplate",
             .caption = "Show Part &Template",
             .menu = {"miView", 210},
             .bar = {"barView", 210}},
    .run = calls<&ViewCommands::mnuViewShowPartTemp_Click>,
};

constexpr ViewCommand kShowEndMarkersCommand{
    .info = {.tool = "miShowEndMarkers",
             .caption = "Show End &Markers",
             .menu = {"miView", 220},
             .bar = {"barView", 220}},
    .run = calls<&ViewCommands::mnuViewShowEndMark_Click>,
};

constexpr ViewCommand kShowToolPathsCommand{
    .info = {.tool = "miShowToolPaths",
             .caption = "Show Tool Pat&hs",
             .menu = {"miView", 230},
             .bar = {"barView", 230}},
    .run = calls<&ViewCommands::mnuViewShowToolPath_Click>,
};

constexpr ViewCommand kToolRadiusOutlineCommand{
    .info = {.tool = "miToolRadiusOutline",
             .caption = "Tool Ra&dius Outline",
             .menu = {"miView", 240},
             .bar = {"barView", 240}},
    .run = calls<&ViewCommands::mnuViewToolRadOutline_Click>,
};

}  // namespace tess
