// Creating entities: what an accepted click adds in each drawing mode, with the previews of the
// three-point commands.
// Owns: isDrawing, markerOf, mouseOf, hoverPoint, lineRow, arcThrough, addShape, traceShape,
//       startDrawing, draw_Action, draw_circle3p, draw_arc3p, draw_arcc2p, BatchLine,
//       BatchAddLines, moveMarker, kFirstPointTaken, showSecondPoint, dropThreePointCommand,
//       mnuDrawLine_Click, mnuDrawRect_Click, mnuDrawArc3P_Click, mnuDrawArcC2P_Click,
//       mnuDrawCircle3P_Click, mnuDrawCircleC1P_Click.
#pragma once

#include <optional>
#include <span>

#include "drafting/drafting_command.h"
#include "drafting/drafting_context.h"
#include "drafting/undo.h"

namespace tess {

constexpr bool isDrawing(int drawMode) {
  return drawMode > kNoMode;
}

// What drawing modes are made of: the marker, the click, and where the pointer hovers before it.
Point markerOf(const DraftingContext& context);
Point mouseOf(const DraftingContext& context);
Point hoverPoint(const DraftingContext& context);

SegmentRow lineRow(Point from, Point to);

// The arc from `start` to `end` that passes `third`; none where there is no circle through them.
std::optional<Entity> arcThrough(Point start, Point end, Point third, float tolerence);

// Adds ordinary rows as one step of undo and draws them. The marker stays where it is.
void addShape(DraftingContext& context, std::span<const SegmentRow> rows, PictureBoxProxy& target,
              int undoMark = kRowsAdded);

// Paints rows of any kind in the colour of drawing, in the pen that is set.
void traceShape(DraftingContext& context, std::span<const SegmentRow> rows);

// What a command with a drawing mode ends with: its mode is on, and a three-point command in
// progress is dropped.
void startDrawing(DraftingContext& context, const DraftingCommand& command);

// Adds what the drawing mode makes of the marker and the click at MouseX, MouseY.
void draw_Action(DraftingContext& context, PictureBoxProxy& target);

// Compute the shape through marker, second point and (x, y) into the context's scratch and paint it
// in the pen that is set. True when the geometry exists.
bool draw_circle3p(DraftingContext& context, float x, float y);
bool draw_arc3p(DraftingContext& context, float x, float y);
bool draw_arcc2p(DraftingContext& context, float x, float y);

// Adds lines as one undo step.
struct BatchLine {
  float x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};
void BatchAddLines(DraftingContext& context, std::span<const BatchLine> lines);

// Moves the marker with its cross and remembers where it was.
void moveMarker(DraftingContext& context, float x, float y);

// The stage of a three-point command that waits for its last click.
inline constexpr int kFirstPointTaken = 1;

// Marks the second point of a half-done three-point command, unless its cross is on the screen.
void showSecondPoint(DraftingContext& context);

// Forgets the points taken of a three-point command, with the second point's cross.
void dropThreePointCommand(DraftingContext& context);

void mnuDrawLine_Click(DraftingContext& context);
void mnuDrawRect_Click(DraftingContext& context);
void mnuDrawArc3P_Click(DraftingContext& context);
void mnuDrawArcC2P_Click(DraftingContext& context);
void mnuDrawCircle3P_Click(DraftingContext& context);
void mnuDrawCircleC1P_Click(DraftingContext& context);

}  // namespace tess
