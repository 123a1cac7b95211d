// Creating entities: the drawing modes of the draw menu.
#include "drafting/entity_creation.h"

#include <optional>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "display/screen_marks.h"
#include "drafting/drafting_commands.h"
#include "drafting/rubber_band.h"
#include "geometry/entity.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"

namespace tess {
namespace {

Point secondPointOf(const DraftingContext& context) {
  return {context.command.marker2x, context.command.marker2y};
}

Rgb drawColor(const DraftingContext& context) {
  return slotColor(context.store, ColorSlot::Draw);
}

// Drawn once it appears, drawn again it is gone. In a picture that is not finished there is none.
void toggleMarkerCross(DraftingContext& context) {
  if (context.redraw.markerShown()) DrawMarkerCross(markerOf(context), context.ScreenProxy);
}

void eraseSecondCross(DraftingContext& context) {
  if (!context.command.secondCrossShown) return;
  DrawMarkerCross(secondPointOf(context), context.ScreenProxy);
  context.command.secondCrossShown = false;
}

void rememberMarker(DraftingContext& context) {
  context.command.prevmarkerx = context.store.markerx;
  context.command.prevmarkery = context.store.markery;
}

// The cross has been erased before: whatever was painted meanwhile may lie over its old place.
void putMarker(DraftingContext& context, float x, float y) {
  rememberMarker(context);
  context.store.markerx = x;
  context.store.markery = y;
  toggleMarkerCross(context);
}

// Adds ordinary rows as one step, each drawn as it comes.
void addRows(DraftingContext& context, std::span<const SegmentRow> rows, PictureBoxProxy& target,
             int undoMark) {
  SegmentPainter painter(context.renderer, target);
  Change change(context.changes);
  for (const SegmentRow& row : rows) change.segments.append(row, painter);
  change.keep({.undoMark = undoMark, .redraws = false});
}
void addRow(DraftingContext& context, const SegmentRow& row, PictureBoxProxy& target) {
  addRows(context, {&row, 1}, target, kRowsAdded);
}

// Fixed: a drawn circle is a clockwise arc that ends where it starts; only files hold kind 5.
SegmentRow circleRow(Point on, Point center) {
  return {.type = kClockwiseArc,
          .x0 = on.x,
          .y0 = on.y,
          .x1 = on.x,
          .y1 = on.y,
          .xc = center.x,
          .yc = center.y};
}

SegmentRow scratchArcRow(const ArcScratch& arc) {
  return {.type = arc.arcdir,
          .x0 = arc.arcx0,
          .y0 = arc.arcy0,
          .x1 = arc.arcx1,
          .y1 = arc.arcy1,
          .xc = arc.arccx,
          .yc = arc.arccy};
}

void drawLineMode(DraftingContext& context, PictureBoxProxy& target) {
  context.command.clickstage = 0;
  toggleMarkerCross(context);
  addRow(context, lineRow(markerOf(context), mouseOf(context)), target);
  putMarker(context, context.pointer.MouseX, context.pointer.MouseY);
}

void drawRectangleMode(DraftingContext& context, PictureBoxProxy& target) {
  const Point a = markerOf(context);
  const Point b = mouseOf(context);
  if (a.x != b.x && a.y != b.y) {
    const SegmentRow sides[] = {lineRow(a, {b.x, a.y}), lineRow({b.x, a.y}, b),
                                lineRow(b, {a.x, b.y}), lineRow({a.x, b.y}, a)};
    addShape(context, sides, target, kRectangleAdded);
  } else {
    const SegmentRow line[] = {lineRow(a, b)};
    addShape(context, line, target, kRectangleAdded);
  }
}

void drawCircleC1PMode(DraftingContext& context, PictureBoxProxy& target) {
  context.command.clickstage = 0;
  if (markerOf(context) == mouseOf(context)) return;
  addRow(context, circleRow(mouseOf(context), markerOf(context)), target);
  rememberMarker(context);
}

// One of the three commands that take the marker and two clicks: the first click is the second
// point, the second one completes the shape and hands the marker on to the second point.
template <typename Finish>
void drawThreePointMode(DraftingContext& context, Finish finish) {
  ++context.command.clickstage;
  if (context.command.clickstage == kFirstPointTaken) {
    context.command.marker2x = context.pointer.MouseX;
    context.command.marker2y = context.pointer.MouseY;
    showSecondPoint(context);
    return;
  }
  context.command.clickstage = 0;
  toggleMarkerCross(context);
  eraseSecondCross(context);
  // Fixed: the marker moves on without a shape too; what scripts draw next starts from there.
  if (!finish()) context.session.host.surroundings.beep();
  putMarker(context, context.command.marker2x, context.command.marker2y);
}

bool appendShape(DraftingContext& context, const SegmentRow& row, PictureBoxProxy& target) {
  addRow(context, row, target);
  return true;
}

template <typename Compute>
void drawArcMode(DraftingContext& context, PictureBoxProxy& target, Compute compute) {
  drawThreePointMode(context, [&] {
    const bool valid = compute(context, context.pointer.MouseX, context.pointer.MouseY);
    return valid && isArc(context.arc.arcdir) &&
           appendShape(context, scratchArcRow(context.arc), target);
  });
}

void drawArc3PMode(DraftingContext& context, PictureBoxProxy& target) {
  drawArcMode(context, target, draw_arc3p);
}

void drawArcC2PMode(DraftingContext& context, PictureBoxProxy& target) {
  drawArcMode(context, target, draw_arcc2p);
}

void drawCircle3PMode(DraftingContext& context, PictureBoxProxy& target) {
  const Point marker = markerOf(context);
  drawThreePointMode(context, [&] {
    return draw_circle3p(context, context.pointer.MouseX, context.pointer.MouseY) &&
           appendShape(context, circleRow(marker, {context.arc.arccx, context.arc.arccy}), target);
  });
}

// The sense in which the arc passes the direction of `through`. Where both senses hold,
// counter-clockwise wins.
// Fixed: where both senses hold the arc is counter-clockwise; full turns were drawn so.
int senseThrough(Point start, Point end, Point center, Point through) {
  const float a = vectorAngle(center, start);
  const float b = vectorAngle(center, end);
  const float t = vectorAngle(center, through);
  if (angleInSweep(t, a, b, kCounterClockwiseArc)) return kCounterClockwiseArc;
  return angleInSweep(t, a, b, kClockwiseArc) ? kClockwiseArc : 0;
}

ArcAngles anglesOf(const SegmentRow& arc) {
  return arcRadiusAndAngles({arc.x0, arc.y0}, {arc.x1, arc.y1}, {arc.xc, arc.yc});
}

// Paints an arc; the surface sweeps counter-clockwise only. A reversed one is its other part.
void traceArcRow(DraftingContext& context, const SegmentRow& arc, bool reversed) {
  ArcAngles angles = anglesOf(arc);
  if (arc.type == kClockwiseArc) std::swap(angles.start, angles.end);
  if (angles.start == angles.end) angles.end = static_cast<float>(angles.end + kTwoPi);
  if (reversed) std::swap(angles.start, angles.end);
  context.ScreenProxy.TraceCircle(arc.xc, arc.yc, angles.radius, drawColor(context), angles.start,
                                  angles.end, 1.0F);
}

// Settles the sense of the arc in the scratch and paints it.
void traceArc(DraftingContext& context, float x, float y, bool reversed) {
  ArcScratch& arc = context.arc;
  arc.arcdir =
      senseThrough({arc.arcx0, arc.arcy0}, {arc.arcx1, arc.arcy1}, {arc.arccx, arc.arccy}, {x, y});
  const SegmentRow row = scratchArcRow(arc);
  arc.arcradius = anglesOf(row).radius;
  traceArcRow(context, row, reversed);
}

void takeEnds(DraftingContext& context) {
  context.arc.arcx0 = context.store.markerx;
  context.arc.arcy0 = context.store.markery;
  context.arc.arcx1 = context.command.marker2x;
  context.arc.arcy1 = context.command.marker2y;
}

bool centerThrough(DraftingContext& context, Point third) {
  const std::optional<Point> center = circleFrom3Points(markerOf(context), secondPointOf(context),
                                                        third, context.store.cfg_tolerance);
  if (!center) return false;
  context.arc.arccx = center->x;
  context.arc.arccy = center->y;
  return true;
}

}  // namespace

Point markerOf(const DraftingContext& context) {
  return {context.store.markerx, context.store.markery};
}
Point mouseOf(const DraftingContext& context) {
  return {context.pointer.MouseX, context.pointer.MouseY};
}
Point hoverPoint(const DraftingContext& context) {
  return {context.pointer.MouseMoveX, context.pointer.MouseMoveY};
}

SegmentRow lineRow(Point from, Point to) {
  return {.type = kLine, .x0 = from.x, .y0 = from.y, .x1 = to.x, .y1 = to.y};
}

std::optional<Entity> arcThrough(Point start, Point end, Point third, float tolerence) {
  const std::optional<Point> center = circleFrom3Points(start, end, third, tolerence);
  if (!center) return std::nullopt;
  const int sense = senseThrough(start, end, *center, third);
  if (!isArc(sense)) return std::nullopt;
  return Entity{sense, start, end, *center};
}

void addShape(DraftingContext& context, std::span<const SegmentRow> rows, PictureBoxProxy& target,
              int undoMark) {
  context.command.clickstage = 0;
  toggleMarkerCross(context);
  if (!rows.empty()) addRows(context, rows, target, undoMark);
  toggleMarkerCross(context);
}

void traceShape(DraftingContext& context, std::span<const SegmentRow> rows) {
  for (const SegmentRow& row : rows) {
    const WorldBox ends{row.x0, row.y0, row.x1, row.y1};
    if (isRound(row.type)) {
      traceArcRow(context, row, /*reversed=*/false);
    } else if (row.type == kRectangle) {
      context.ScreenProxy.TraceLine(ends, drawColor(context), kOutlineBox);
    } else {
      context.ScreenProxy.TraceLine(ends, drawColor(context));
    }
  }
}

void startDrawing(DraftingContext& context, const DraftingCommand& command) {
  dropThreePointCommand(context);
  context.state.setDrawMode(command.mode.number);
}

void draw_Action(DraftingContext& context, PictureBoxProxy& target) {
  const Procedure here("frmMain.draw_Action(target)");
  if (const DrawingMode* const mode = modeOf(context, context.state.DrawMode())) {
    mode->draw(context, target);
  }
  context.state.RevertOSnapFeatures();
}

bool draw_circle3p(DraftingContext& context, float x, float y) {
  if (!centerThrough(context, {x, y})) return false;
  const Point center{context.arc.arccx, context.arc.arccy};
  context.arc.arcradius = distance({x, y}, center);
  context.ScreenProxy.TraceCircle(center.x, center.y, context.arc.arcradius, drawColor(context));
  return true;
}

bool draw_arc3p(DraftingContext& context, float x, float y) {
  takeEnds(context);
  if (!centerThrough(context, {x, y})) return false;
  traceArc(context, x, y, /*reversed=*/false);
  return true;
}

bool draw_arcc2p(DraftingContext& context, float x, float y) {
  takeEnds(context);
  const Point click{x, y};
  const float radius =
      (distance(markerOf(context), click) + distance(secondPointOf(context), click)) / 2;
  const std::optional<PointPair> centers =
      centersFromChord(markerOf(context), secondPointOf(context), radius);
  if (!centers) return false;
  // The click marks the side of the centre; on a tie the second one is taken.
  const bool first = distance(centers->first, click) < distance(centers->second, click);
  const Point center = first ? centers->first : centers->second;
  context.arc.arccx = center.x;
  context.arc.arccy = center.y;
  traceArc(context, x, y, context.arc.reversearc);
  return true;
}

void BatchAddLines(DraftingContext& context, std::span<const BatchLine> lines) {
  std::vector<SegmentRow> rows;
  rows.reserve(lines.size());
  for (const BatchLine& line : lines) {
    rows.push_back(lineRow({line.x0, line.y0}, {line.x1, line.y1}));
  }
  addRows(context, rows, context.ScreenProxy, kRowsAdded);
}

void moveMarker(DraftingContext& context, float x, float y) {
  toggleMarkerCross(context);
  putMarker(context, x, y);
}

void showSecondPoint(DraftingContext& context) {
  CommandRecord& command = context.command;
  if (command.clickstage != kFirstPointTaken || command.secondCrossShown) return;
  DrawMarkerCross(secondPointOf(context), context.ScreenProxy);
  command.secondCrossShown = true;
}

// A preview needs the points that are forgotten, so it goes first.
void dropThreePointCommand(DraftingContext& context) {
  if (takesThreePoints(context, context.pointer.RubberKind)) eraseRubberBand(context);
  eraseSecondCross(context);
  context.command.clickstage = 0;
}

void mnuDrawLine_Click(DraftingContext& context) {
  startDrawing(context, kLineCommand);
}
void mnuDrawRect_Click(DraftingContext& context) {
  startDrawing(context, kRectangleCommand);
}
void mnuDrawArc3P_Click(DraftingContext& context) {
  startDrawing(context, kArc3PCommand);
}
void mnuDrawArcC2P_Click(DraftingContext& context) {
  startDrawing(context, kArcC2PCommand);
}
void mnuDrawCircle3P_Click(DraftingContext& context) {
  startDrawing(context, kCircle3PCommand);
}
void mnuDrawCircleC1P_Click(DraftingContext& context) {
  startDrawing(context, kCircleC1PCommand);
}

// ---- Descriptors

namespace {

void hoverLine(DraftingContext& context) {
  const SegmentRow line[] = {lineRow(markerOf(context), hoverPoint(context))};
  traceShape(context, line);
}

void hoverBox(DraftingContext& context) {
  const Point a = markerOf(context), b = hoverPoint(context);
  context.ScreenProxy.TraceLine({a.x, a.y, b.x, b.y}, drawColor(context), kOutlineBox);
}

void hoverCircle(DraftingContext& context) {
  const Point center = markerOf(context);
  const float radius = distance(center, hoverPoint(context));
  context.ScreenProxy.TraceCircle(center.x, center.y, radius, drawColor(context));
}

template <bool (*shape)(DraftingContext&, float, float)>
void hoverShape(DraftingContext& context) {
  shape(context, hoverPoint(context).x, hoverPoint(context).y);
}

}  // namespace

constexpr DraftingCommand kLineCommand{
    .info = {.tool = "miLine",
             .caption = "&Line",
             .key = "L",
             .menu = {"miDraw", 110},
             .bar = {"barDraw", 210}},
    .run = mnuDrawLine_Click,
    .mode = {.number = 1, .left = "next point", .draw = drawLineMode, .hover = hoverLine},
};

constexpr DraftingCommand kRectangleCommand{
    .info = {.tool = "miRectangle",
             .caption = "&Rectangle",
             .key = "R",
             .menu = {"miDraw", 120},
             .bar = {"barDraw", 220}},
    .run = mnuDrawRect_Click,
    .mode = {.number = 6, .left = "opposite corner", .draw = drawRectangleMode, .hover = hoverBox},
};

constexpr DraftingCommand kArc3PCommand{
    .info = {.tool = "miArc3P",
             .caption = "&Arc, 3 Points",
             .key = "A",
             .menu = {"miDraw", 130},
             .bar = {"barDraw", 230}},
    .run = mnuDrawArc3P_Click,
    .mode = {.number = 2,
             .threePoints = true,
             .left = "end of the arc",
             .secondLeft = "a point that the arc passes",
             .draw = drawArc3PMode,
             .hover = hoverShape<draw_arc3p>},
};

constexpr DraftingCommand kArcC2PCommand{
    .info = {.tool = "miArcC+2P",
             .caption = "Arc, Center + 2 &Points",
             .menu = {"miDraw", 140},
             .bar = {"barDraw", 240}},
    .run = mnuDrawArcC2P_Click,
    .mode = {.number = 3,
             .threePoints = true,
             .left = "end of the arc",
             .secondLeft = "the side of its center",
             .draw = drawArcC2PMode,
             .hover = hoverShape<draw_arcc2p>},
};

constexpr DraftingCommand kCircle3PCommand{
    .info = {.tool = "miCircle3P",
             .caption = "&Circle, 3 Points",
             .menu = {"miDraw", 150},
             .bar = {"barDraw", 250}},
    .run = mnuDrawCircle3P_Click,
    .mode = {.number = 5,
             .threePoints = true,
             .left = "second point of the circle",
             .secondLeft = "third point of the circle",
             .draw = drawCircle3PMode,
             .hover = hoverShape<draw_circle3p>},
};

constexpr DraftingCommand kCircleC1PCommand{
    .info = {.tool = "miCircleC+1P",
             .caption = "Circle, Center + &1 Point",
             .menu = {"miDraw", 160},
             .bar = {"barDraw", 260}},
    .run = mnuDrawCircleC1P_Click,
    .mode = {.number = 7,
             .left = "a point on the circle",
             .draw = drawCircleC1PMode,
             .hover = hoverCircle},
};

}  // namespace tess
