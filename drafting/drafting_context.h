// The drafting context: the state of the interaction and the parts that drafting commands work
// with. Commands are free functions on it.
// Owns: PointerRecord, CommandRecord, ArcScratch, DraftingListener, DraftingParts, DraftingContext.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "core/status_bar.h"
#include "core/timers.h"
#include "core/tool_host.h"
#include "display/redraw_sequence.h"
#include "display/view_commands.h"
#include "drafting/c_state.h"
#include "drafting/change.h"
#include "drafting/form_preview.h"
#include "drafting/hover_lines.h"
#include "drafting/known_commands.h"
#include "drafting/paste_buffer.h"
#include "geometry/entity.h"

namespace tess {

// The pointer in drawing units.
struct PointerRecord {
  float MouseX = 0, MouseY = 0;          // snapped: what commands read
  float MouseDownX = 0, MouseDownY = 0;  // at the press
  float MouseMoveX = 0, MouseMoveY = 0;  // last drawn in the rubber band
  float RawX = 0, RawY = 0;              // this event, unsnapped
  float LastRawX = 0, LastRawY = 0;      // the one before
  bool LeftDown = false, RightDown = false;
  int RubberKind = 0;               // the DrawMode that drew the band on the screen; 0 none
  int DragBand = 0;                 // the pending action that drew one; 0 none
  bool SkipPointerUpdate = false;   // the next event does not move the position
  bool MenuGuard = false;           // a menu has just closed
  double MenuGuardTime = kLongAgo;  // in milliseconds of the clock
  bool FormTookPress = false;       // until its release
  bool hovers = false;              // a band or mark is shown without a button
  bool exact = false;               // the click under way was typed: nothing snaps it
  PanDrag PanStart;

  static constexpr double kLongAgo = -1e12;
};

// What commands remember between clicks. A fresh one is the state of a fresh program.
struct CommandRecord {
  float marker2x = 0, marker2y = 0;        // second point of a three-point command
  float prevmarkerx = 0, prevmarkery = 0;  // the marker before it last moved
  int clickstage = 0;                      // points taken of a three-point command: 0, 1, 2
  bool secondCrossShown = false;           // the second point's cross is on the screen
  bool EditPaths = false;                  // editing works on path rows
  int LastCommand = 0;
  std::string closing;      // for the status line once the click under way is dealt with
  float rotateDegrees = 0;  // what was taken last; 0 until then
  int PendingSeg1 = 0, PendingSeg2 = 0;
  Entity PendingRow1;  // PendingSeg1 as it was picked: by the next click it may be another row
  Point PendingPt1, PendingPt2;
  std::optional<Point> draggedEnd;  // the end point that Move Endpoints has taken up
  float filletRadius = 0;           // of the last fillet
};

// The shape that a three-point command is making.
struct ArcScratch {
  float arcx0 = 0, arcy0 = 0, arcx1 = 0, arcy1 = 0;
  float arccx = 0, arccy = 0, arcradius = 0;
  int arcdir = 0;  // kClockwiseArc, kCounterClockwiseArc or 0
  bool reversearc = false;
};

// What rooms above the context hear. None of it has a default: who hears it says what comes of it.
class DraftingListener {
 public:
  virtual ~DraftingListener() = default;
  virtual void showStatistics(int segments, int paths, const std::string& zoom) = 0;
  virtual void UpdatePropertyWindow() = 0;
  virtual void selectEntity(int sg) = 0;  // in the property window
  // Pointer and wheel while text is being placed.
  virtual void textPointerMoved(int button, int shift, float x, float y) = 0;
  virtual void textPointerReleased(int button, int shift, float x, float y) = 0;
  virtual void textDragReset() = 0;
  virtual void textWheel(int steps, int shift) = 0;
  virtual void textPlacementEnded() = 0;  // in whichever way
};

class GridSnapTimer;

struct DraftingParts {
  Session& session;
  View& view;
  Renderer& renderer;
  RedrawSequence& redraw;
  CState& state;
  ViewCommands& viewCommands;
  PictureBoxProxy& ScreenProxy;
  Pointer& systemPointer;
  Timers& timers;
  ToolHost& tools;
  StatusBar& statusBar;
  DraftingListener& listener;
};

// It knows the commands of its own room and of the view; rooms above add theirs.
struct DraftingContext : DraftingParts, KnownCommands {
  explicit DraftingContext(const DraftingParts& parts);
  ~DraftingContext();

  DrawingStore& store;
  PointerRecord pointer;
  CommandRecord command;
  ArcScratch arc;
  PasteBuffer paste;
  std::vector<SegmentRow> hovering;        // what the armed action shows on the screen
  FormPreview formPreview;                 // and what a form does
  HoverLines hoverLines;                   // and a text that is being placed
  std::function<void(Point)> onFormClick;  // of the form that has the clicks in the drawing, if any
  ChangeLog changelog;
  std::unique_ptr<ChangeHost> changeHost;
  Changes changes;
  std::optional<Point> typedPosition;  // accepted in the position dialog, until the next release
  Point lastTypedPosition;             // what the dialog shows when it opens
  double lastWheelTime = PointerRecord::kLongAgo;  // of a wheel event passed on, in milliseconds
  std::unique_ptr<GridSnapTimer> gridSnapTimer;

 private:
  void refreshDrawMode();
  void forgetInverted();
  void endAction(int action);
};

}  // namespace tess
