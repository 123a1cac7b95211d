// Paints single entities, path rows, the grid, the marker and the origin arrows on a target.
// Owns: ArrowTip, DiscSteps, discSteps, PolarLine, DrawArrowhead, DrawHalfArrowhead,
//       TraceArrowhead, DrawMarkerCross, DrawOriginArrows, Renderer, SegmentPainter.
#pragma once

#include <optional>

#include "core/drawing_store.h"
#include "core/host.h"
#include "display/drawing_target.h"
#include "geometry/entity.h"

namespace tess {

// A point and the direction of travel there, in radians.
struct ArrowTip {
  Point at;
  float angle = 0;
};

// How many discs of the tool show its way along an arc, and the angle from one to the next.
struct DiscSteps {
  int count = 0;
  double step = 0;
};

// At least three; about 0.8 tool radii apart. Raises Division by zero for a tool without radius.
DiscSteps discSteps(double sweep, double radius, double toolradius);

// A line of a length from the tip in the direction of its angle.
void PolarLine(const ArrowTip& from, float length, Color color, DrawingTarget& target);

// Two barbs of 10 pixels, 15 degrees to each side of the way back from the tip.
void DrawArrowhead(const ArrowTip& tip, Color color, DrawingTarget& target);

// The left barb for side 1, the right one for side 2.
void DrawHalfArrowhead(const ArrowTip& tip, Color color, DrawingTarget& target, int side);

// The head of a rubber-band arrow at the second point, in the inverting pen.
void TraceArrowhead(const WorldBox& ends, Color color, PictureBoxProxy& ScreenProxy);

// The marker's cross, 5 pixels to each side. Drawn twice at one place it is gone.
void DrawMarkerCross(Point marker, PictureBoxProxy& ScreenProxy);

// The axes at world zero, 25 pixels long and in a pen of double width, with their letters.
void DrawOriginArrows(Color color, PictureBoxProxy& ScreenProxy);

class Renderer {
 public:
  Renderer(const DrawingStore& store, Prompts& prompts, Surroundings& surroundings)
      : store_(store), prompts_(prompts), surroundings_(surroundings) {}

  // Paints drawing row `sg`, in `color` if one is given (to blink it), else in that of its state.
  // An attribute or a type that is none gives a message, and the redraw goes on.
  void DrawSegment(int sg, DrawingTarget& target, std::optional<Color> color = {});

  // Paints path row `ps` unless it is hidden: its way with an arrow, the outline of the tool along
  // it, or the symbol of a hole or slot. `color` as above.
  void drawtoolpath(int ps, DrawingTarget& target, std::optional<Color> color = {});

  void DrawLine(const WorldBox& ends, Color color, DrawingTarget& target);

  // Types 2, 3 and 5. One whose start equals its end is a full circle whatever its type.
  void DrawArc(const Entity& arc, Color color, DrawingTarget& target);

  // The visual grid's lines through world zero and on to the edges; nothing on paper. Events are
  // served after each line.
  void DisplayGrid(DrawingTarget& target);

  // True while path rows are painted; it keeps end markers off them.
  bool pathdrawing = false;

 private:
  Color stateColor(int sg);
  void rememberColor(DrawingTarget& target);
  void drawRectangle(const Entity& corners, Color color, DrawingTarget& target);
  void drawMove(const Entity& move, float toolradius, Color color, DrawingTarget& target);
  void complain(const char* text);
  bool markersShown() const;
  template <typename LineAt>
  void gridLines(int direction, float last, LineAt lineAt, DrawingTarget& target);

  const DrawingStore& store_;
  Prompts& prompts_;
  Surroundings& surroundings_;
  Color entityColor_ = 0;      // of the entity painted last
  Color rememberedColor_ = 0;  // of the one before it
};

// Shows freshly appended drawing rows on one target.
class SegmentPainter : public SegmentDrawing {
 public:
  SegmentPainter(Renderer& renderer, DrawingTarget& target)
      : renderer_(renderer), target_(target) {}
  void DrawSegment(int sg) override { renderer_.DrawSegment(sg, target_); }

 private:
  Renderer& renderer_;
  DrawingTarget& target_;
};

}  // namespace tess
