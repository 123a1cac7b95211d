// The commands that change the view.
#include "display/view_commands.h"

#include <cmath>

#include "core/file_system.h"

namespace tess {

namespace {

constexpr const char* kPanTool = "miPan";
constexpr const char* kPanIcon = "pansmall.ico";
constexpr double kExtentsMargin = 0.05;

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

void ViewCommands::centreAt(double x, double y) {
  if (x == 0 && y == 0) {
    setview();
  } else {
    setview(x, y);
  }
}

void ViewCommands::Zoom_In(double x, double y) {
  const Procedure here("frmMain.Zoom_In(x,y)");
  if (parts_.armed.pendingaction() == kTextAction) return;
  if (narrow(magnification(parts_.view)) >= kLargestZoom) return;
  parts_.view.viewspan *= 0.5F;
  centreAt(x, y);
}

void ViewCommands::Zoom_out(double x, double y) {
  const Procedure here("frmMain.Zoom_out(x,y)");
  if (parts_.armed.pendingaction() == kTextAction) return;
  parts_.view.viewspan = narrow(2.0 * parts_.view.viewspan);
  centreAt(x, y);
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
  if (interrupted_.SavedPending == kPanAction) return;
  parts_.armed.setDrawMode(interrupted_.SavedDrawMode);
}

PanDrag ViewCommands::beginPan(Point pointer) const {
  const Point centre{parts_.view.viewcx, parts_.view.viewcy};
  return {pointer, centre, centre};
}

void ViewCommands::movePan(PanDrag& drag, Point pointer) {
  if (pointer == drag.grabbed) return;
  drag.centre.x = drag.grabbed.x - (pointer.x - drag.centre.x);
  drag.centre.y = drag.grabbed.y - (pointer.y - drag.centre.y);
  setview(drag.centre.x, drag.centre.y);
}

void ViewCommands::endPan(const PanDrag& drag, Point pointer) {
  setview(parts_.view.viewcx - pointer.x + drag.grabbed.x,
          parts_.view.viewcy - pointer.y + drag.grabbed.y);
}

Point ViewCommands::inPresentView(const PanDrag& drag, Point pointer) const {
  return {pointer.x + (parts_.view.viewcx - drag.pressCentre.x),
          pointer.y + (parts_.view.viewcy - drag.pressCentre.y)};
}

void ViewCommands::interrupt() {
  interrupted_ = {parts_.armed.pendingaction(), parts_.armed.DrawMode()};
}

void ViewCommands::mnuViewZoomWindow_Click() {
  interrupt();
  parts_.armed.setPendingaction(kZoomWindowAction);
}

void ViewCommands::mnuViewPan_Click() {
  if (parts_.host.toolChecked(kPanTool)) {
    stopPanning();
  } else {
    startPanning();
  }
}

void ViewCommands::startPanning() {
  interrupt();
  parts_.host.setToolChecked(kPanTool, true);
  parts_.armed.setPendingaction(kPanAction);
  showPanPointer();
}

void ViewCommands::showPanPointer() {
  const std::string icon = parts_.host.appfolder() + kPanIcon;
  if (!fileExists(icon)) return;
  parts_.pointer.setMouseIcon(icon);
  parts_.pointer.setMousePointer(kCustomShape);
}

void ViewCommands::stopPanning() {
  parts_.host.setToolChecked(kPanTool, false);
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

}  // namespace tess
