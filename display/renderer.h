// Paints single drawing rows, path rows and the grid on a target.
// Owns: lineOf, DiscSteps, discSteps, Renderer, SegmentPainter.
#pragma once

#include <optional>

#include "core/drawing_rows.h"
#include "core/host.h"
#include "display/drawing_target.h"
#include "display/grid_lines.h"
#include "display/screen_look.h"
#include "geometry/entity.h"

namespace tess {

struct DrawingStore;

// The straight way from an entity's start to its end.
inline WorldBox lineOf(const Entity& entity) {
  return {entity.start.x, entity.start.y, entity.end.x, entity.end.y};
}

// How many discs of the tool show its way along an arc, and the angle from one to the next.
struct DiscSteps {
  int count = 0;
  double step = 0;
};

// At least three; about 0.8 tool radii apart. Raises Division by zero for a tool without radius.
DiscSteps discSteps(double sweep, double radius, double toolradius);

class Renderer {
 public:
  Renderer(const DrawingStore& store, Prompts& prompts, Surroundings& surroundings)
      : look(store), store_(store), prompts_(prompts), surroundings_(surroundings) {}

  // Paints drawing row `sg`, in `color` if one is given (to blink it), else in that of its state.
  // An attribute or a type that is none gives a message, and the redraw goes on.
  void DrawSegment(int sg, DrawingTarget& target, std::optional<Rgb> color = {});

  // Paints path row `ps` unless it is hidden: its way with an arrow, the outline of the tool along
  // it, or the symbol of a hole or slot. `color` as above.
  void drawtoolpath(int ps, DrawingTarget& target, std::optional<Rgb> color = {});

  void DrawLine(const WorldBox& ends, Rgb color, DrawingTarget& target);

  // Types 2, 3 and 5. One whose start equals its end is a full circle whatever its type.
  void DrawArc(const Entity& arc, Rgb color, DrawingTarget& target);

  // The visual grid's lines through world zero and on to the edges, but no more than the surface
  // can show, and in the soft looks none closer than 8 pixels; nothing on paper. Events are served
  // after each line.
  void DisplayGrid(DrawingTarget& target);
  // From one of these lines to the next, as they are shown; 0 for none.
  double shownPitch(const DrawingTarget& target) const;

  // The ways between the rows of the path, where each group begins, and arrows along rows that are
  // too short for arrows of their own.
  void drawPathDirection(DrawingTarget& target);

  // How things look on the screen. Paper has the colours of the numbers.
  ScreenLook look;

  // True while path rows are painted; it keeps end markers off them.
  bool pathdrawing = false;

 private:
  Rgb stateColor(int sg, DrawingTarget& target);
  Rgb colorOn(DrawingTarget& target, ColorSlot slot) const;
  void rememberColor(DrawingTarget& target);
  void drawRectangle(const Entity& corners, Rgb color, DrawingTarget& target);
  void drawMove(const Entity& move, float toolradius, Rgb color, DrawingTarget& target);
  void complain(const char* text);
  bool markersShown() const;
  class ArrowWalk;
  template <typename LineAt>
  void gridLines(int direction, const GridSide& side, LineAt lineAt, DrawingTarget& target);
  double closestGrid() const;

  const DrawingStore& store_;
  Prompts& prompts_;
  Surroundings& surroundings_;
  Rgb entityColor_ = 0;      // of the entity painted last
  Rgb rememberedColor_ = 0;  // of the one before it
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
