// The commands that change the view: full view, zoom steps, zoom window, extents, centre, pan, and
// the view's four toggles.
// Owns: ViewHost, ViewParts, InterruptedCommand, PanDrag, traceRubberBox, ViewCommands.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>

#include "display/armed_action.h"
#include "display/drawing_extents.h"
#include "display/pointer.h"
#include "display/redraw_sequence.h"
#include "display/view_transform.h"

namespace tess {

struct DrawingStore;

// What the view commands ask of the main window round the surface.
class ViewHost {
 public:
  virtual ~ViewHost() = default;
  virtual SurfaceArea clientArea() const = 0;  // what the docked bars leave for the surface
  virtual bool toolChecked(const std::string& tool) const = 0;
  virtual void setToolChecked(const std::string& tool, bool checked) = 0;
  virtual void Update_menu_checks() = 0;
  virtual std::string appfolder() const = 0;  // with its last separator
};

struct ViewParts {
  DrawingStore& store;
  View& view;
  RedrawSequence& redraw;
  PictureBoxProxy& ScreenProxy;
  Pointer& pointer;
  Surroundings& surroundings;
  ViewHost& host;
  ArmedAction& armed;
};

// What zoom window and pan interrupted.
struct InterruptedCommand {
  int SavedPending = 0;
  int SavedDrawMode = 0;
};

// A drag that moves the view. The pointer's positions are in units of the view in which it moved,
// so the grabbed point stays under it.
struct PanDrag {
  Point grabbed;      // the pointer at the press
  Point center;       // the centre at the last move
  Point pressCenter;  // the centre at the press
};

// Draws boxes one after the other in the inverting pen and returns to the copying, solid one.
// An old box before a new one moves it; an old box alone erases it.
void traceRubberBox(PictureBoxProxy& ScreenProxy, PenStyle style,
                    std::initializer_list<WorldBox> boxes);

class ViewCommands {
 public:
  explicit ViewCommands(const ViewParts& parts) : parts_(parts) {}

  // Fits the surface to its container and queues a redraw. Unless `keepview`, the full view is
  // shown. Raises Division by zero for a surface without extent.
  void fitview(bool keepview);

  // Takes the surface's size anew, with a zoom factor of 1.
  void recover();

  // Moves the centre, a missing coordinate staying as it is, and redraws at once.
  void setview(std::optional<double> x = {}, std::optional<double> y = {});

  // Shows another part at another scale, at once. The surface goes on taking pointer events, since
  // the operator is in the middle of a movement.
  void showView(Point center, float span);

  // Half or double the extents, about a point; (0, 0) means about the present centre. Nothing
  // happens while text is placed, nor beyond 64 times the full view.
  void Zoom_In(double x, double y);
  void Zoom_out(double x, double y);

  // Shows the rectangle of two corners; one larger than the view only when forced.
  void zoomwindow(double MouseDownX, double MouseDownY, double MouseMoveX, double MouseMoveY,
                  bool force);

  // Shows the whole drawing with a margin of 5 per cent, if it has extents.
  void ZoomExtents();

  // Zoom window by pointer: the box while it is dragged, and the release.
  void dragZoomBox(const WorldBox& shown, const WorldBox& next);
  void releaseZoomBox(const WorldBox& shown);

  // Pan by pointer, given world positions in the view current at each event. A pointer that still
  // is on the grabbed point moves nothing.
  PanDrag beginPan(Point pointer) const;
  void movePan(PanDrag& drag, Point pointer);
  void endPan(const PanDrag& drag, Point pointer);
  // A position in units of the view at the press, as a script states a whole drag, in units of the
  // present view.
  Point inPresentView(const PanDrag& drag, Point pointer) const;

  // The pointer in the shape of panning, when its icon stands beside the program.
  void showPanPointer();

  void mnuViewReDraw_Click() { parts_.redraw.redrawscreen(); }
  void mnuViewCenter_Click();
  void mnuViewZoomIn_Click() { Zoom_In(0, 0); }
  void mnuViewZoomOut_Click() { Zoom_out(0, 0); }
  void mnuViewZoomWindow_Click();
  void mnuViewFullView_Click() { fitview(/*keepview=*/false); }
  void mnuViewPan_Click();
  void mnuViewShowPartTemp_Click();
  void mnuViewShowEndMark_Click();
  void mnuViewShowToolPath_Click();
  void mnuViewToolRadOutline_Click();
  void togglePathDirection();
  void togglePathColors();

  const ViewParts& parts() const { return parts_; }
  const InterruptedCommand& interrupted() const { return interrupted_; }

 private:
  void centerAt(double x, double y);
  void interrupt();
  void startPanning();
  void stopPanning();
  void flip(Int16& flag);

  ViewParts parts_;
  InterruptedCommand interrupted_;
};

}  // namespace tess
