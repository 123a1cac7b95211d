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

Point secondPointOf(const Desk& desk) {
  return {desk.command.marker2x, desk.command.marker2y};
}

Rgb drawColor(const Desk& desk) {
  return slotColor(desk.store, ColorSlot::Draw);
}

// Drawn once it appears, drawn again it is gone. In a picture that is not finished there is none.
void toggleMarkerCross(Desk& desk) {
  if (desk.redraw.markerShown()) DrawMarkerCross(markerOf(desk), desk.ScreenProxy);
}

void eraseSecondCross(Desk& desk) {
  if (!desk.command.secondCrossShown) return;
  DrawMarkerCross(secondPointOf(desk), desk.ScreenProxy);
  desk.command.secondCrossShown = false;
}

void rememberMarker(Desk& desk) {
  desk.command.prevmarkerx = desk.store.markerx;
  desk.command.prevmarkery = desk.store.markery;
}

// The cross has been erased before: whatever was painted meanwhile may lie over its old place.
void putMarker(Desk& desk, float x, float y) {
  rememberMarker(desk);
  desk.store.markerx = x;
  desk.store.markery = y;
  toggleMarkerCross(desk);
}

// Adds ordinary rows as one step, each drawn as it comes.
void addRows(Desk& desk, std::span<const SegmentRow> rows, PictureBoxProxy& target, int undoMark) {
  SegmentPainter painter(desk.renderer, target);
  Change change(desk.changes);
  for (const SegmentRow& row : rows) change.segments.append(row, painter);
  change.keep({.undoMark = undoMark, .redraws = false});
}
void addRow(Desk& desk, const SegmentRow& row, PictureBoxProxy& target) {
  addRows(desk, {&row, 1}, target, kRowsAdded);
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

void drawLineMode(Desk& desk, PictureBoxProxy& target) {
  desk.command.clickstage = 0;
  toggleMarkerCross(desk);
  addRow(desk, lineRow(markerOf(desk), mouseOf(desk)), target);
  putMarker(desk, desk.pointer.MouseX, desk.pointer.MouseY);
}

void drawRectangleMode(Desk& desk, PictureBoxProxy& target) {
  const Point a = markerOf(desk);
  const Point b = mouseOf(desk);
  if (a.x != b.x && a.y != b.y) {
    const SegmentRow sides[] = {lineRow(a, {b.x, a.y}), lineRow({b.x, a.y}, b),
                                lineRow(b, {a.x, b.y}), lineRow({a.x, b.y}, a)};
    addShape(desk, sides, target, kRectangleAdded);
  } else {
    const SegmentRow line[] = {lineRow(a, b)};
    addShape(desk, line, target, kRectangleAdded);
  }
}

void drawCircleC1PMode(Desk& desk, PictureBoxProxy& target) {
  desk.command.clickstage = 0;
  if (markerOf(desk) == mouseOf(desk)) return;
  addRow(desk, circleRow(mouseOf(desk), markerOf(desk)), target);
  rememberMarker(desk);
}

// One of the three commands that take the marker and two clicks: the first click is the second
// point, the second one completes the shape and hands the marker on to the second point.
template <typename Finish>
void drawThreePointMode(Desk& desk, Finish finish) {
  ++desk.command.clickstage;
  if (desk.command.clickstage == kFirstPointTaken) {
    desk.command.marker2x = desk.pointer.MouseX;
    desk.command.marker2y = desk.pointer.MouseY;
    showSecondPoint(desk);
    return;
  }
  desk.command.clickstage = 0;
  toggleMarkerCross(desk);
  eraseSecondCross(desk);
  // Fixed: the marker moves on without a shape too; what scripts draw next starts from there.
  if (!finish()) desk.session.host.surroundings.beep();
  putMarker(desk, desk.command.marker2x, desk.command.marker2y);
}

bool appendShape(Desk& desk, const SegmentRow& row, PictureBoxProxy& target) {
  addRow(desk, row, target);
  return true;
}

template <typename Compute>
void drawArcMode(Desk& desk, PictureBoxProxy& target, Compute compute) {
  drawThreePointMode(desk, [&] {
    const bool valid = compute(desk, desk.pointer.MouseX, desk.pointer.MouseY);
    return valid && isArc(desk.arc.arcdir) && appendShape(desk, scratchArcRow(desk.arc), target);
  });
}

void drawArc3PMode(Desk& desk, PictureBoxProxy& target) {
  drawArcMode(desk, target, draw_arc3p);
}

void drawArcC2PMode(Desk& desk, PictureBoxProxy& target) {
  drawArcMode(desk, target, draw_arcc2p);
}

void drawCircle3PMode(Desk& desk, PictureBoxProxy& target) {
  const Point marker = markerOf(desk);
  drawThreePointMode(desk, [&] {
    return draw_circle3p(desk, desk.pointer.MouseX, desk.pointer.MouseY) &&
           appendShape(desk, circleRow(marker, {desk.arc.arccx, desk.arc.arccy}), target);
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
void traceArcRow(Desk& desk, const SegmentRow& arc, bool reversed) {
  ArcAngles angles = anglesOf(arc);
  if (arc.type == kClockwiseArc) std::swap(angles.start, angles.end);
  if (angles.start == angles.end) angles.end = static_cast<float>(angles.end + kTwoPi);
  if (reversed) std::swap(angles.start, angles.end);
  desk.ScreenProxy.TraceCircle(arc.xc, arc.yc, angles.radius, drawColor(desk), angles.start,
                               angles.end, 1.0F);
}

// Settles the sense of the arc in the scratch and paints it.
void traceArc(Desk& desk, float x, float y, bool reversed) {
  ArcScratch& arc = desk.arc;
  arc.arcdir =
      senseThrough({arc.arcx0, arc.arcy0}, {arc.arcx1, arc.arcy1}, {arc.arccx, arc.arccy}, {x, y});
  const SegmentRow row = scratchArcRow(arc);
  arc.arcradius = anglesOf(row).radius;
  traceArcRow(desk, row, reversed);
}

void takeEnds(Desk& desk) {
  desk.arc.arcx0 = desk.store.markerx;
  desk.arc.arcy0 = desk.store.markery;
  desk.arc.arcx1 = desk.command.marker2x;
  desk.arc.arcy1 = desk.command.marker2y;
}

bool centerThrough(Desk& desk, Point third) {
  const std::optional<Point> center =
      circleFrom3Points(markerOf(desk), secondPointOf(desk), third, desk.store.cfg_tolerance);
  if (!center) return false;
  desk.arc.arccx = center->x;
  desk.arc.arccy = center->y;
  return true;
}

}  // namespace

Point markerOf(const Desk& desk) {
  return {desk.store.markerx, desk.store.markery};
}
Point mouseOf(const Desk& desk) {
  return {desk.pointer.MouseX, desk.pointer.MouseY};
}
Point hoverPoint(const Desk& desk) {
  return {desk.pointer.MouseMoveX, desk.pointer.MouseMoveY};
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

void addShape(Desk& desk, std::span<const SegmentRow> rows, PictureBoxProxy& target, int undoMark) {
  desk.command.clickstage = 0;
  toggleMarkerCross(desk);
  if (!rows.empty()) addRows(desk, rows, target, undoMark);
  toggleMarkerCross(desk);
}

void traceShape(Desk& desk, std::span<const SegmentRow> rows) {
  for (const SegmentRow& row : rows) {
    const WorldBox ends{row.x0, row.y0, row.x1, row.y1};
    if (isRound(row.type)) {
      traceArcRow(desk, row, /*reversed=*/false);
    } else if (row.type == kRectangle) {
      desk.ScreenProxy.TraceLine(ends, drawColor(desk), kOutlineBox);
    } else {
      desk.ScreenProxy.TraceLine(ends, drawColor(desk));
    }
  }
}

void startDrawing(Desk& desk, const DeskCommand& command) {
  dropThreePointCommand(desk);
  desk.state.setDrawMode(command.mode.number);
}

void draw_Action(Desk& desk, PictureBoxProxy& target) {
  const Procedure here("frmMain.draw_Action(target)");
  if (const DrawingMode* const mode = modeOf(desk, desk.state.DrawMode())) {
    mode->draw(desk, target);
  }
  desk.state.RevertOSnapFeatures();
}

bool draw_circle3p(Desk& desk, float x, float y) {
  if (!centerThrough(desk, {x, y})) return false;
  const Point center{desk.arc.arccx, desk.arc.arccy};
  desk.arc.arcradius = distance({x, y}, center);
  desk.ScreenProxy.TraceCircle(center.x, center.y, desk.arc.arcradius, drawColor(desk));
  return true;
}

bool draw_arc3p(Desk& desk, float x, float y) {
  takeEnds(desk);
  if (!centerThrough(desk, {x, y})) return false;
  traceArc(desk, x, y, /*reversed=*/false);
  return true;
}

bool draw_arcc2p(Desk& desk, float x, float y) {
  takeEnds(desk);
  const Point click{x, y};
  const float radius = (distance(markerOf(desk), click) + distance(secondPointOf(desk), click)) / 2;
  const std::optional<PointPair> centers =
      centersFromChord(markerOf(desk), secondPointOf(desk), radius);
  if (!centers) return false;
  // The click marks the side of the centre; on a tie the second one is taken.
  const bool first = distance(centers->first, click) < distance(centers->second, click);
  const Point center = first ? centers->first : centers->second;
  desk.arc.arccx = center.x;
  desk.arc.arccy = center.y;
  traceArc(desk, x, y, desk.arc.reversearc);
  return true;
}

void BatchAddLines(Desk& desk, std::span<const BatchLine> lines) {
  std::vector<SegmentRow> rows;
  rows.reserve(lines.size());
  for (const BatchLine& line : lines) {
    rows.push_back(lineRow({line.x0, line.y0}, {line.x1, line.y1}));
  }
  addRows(desk, rows, desk.ScreenProxy, kRowsAdded);
}

void moveMarker(Desk& desk, float x, float y) {
  toggleMarkerCross(desk);
  putMarker(desk, x, y);
}

void showSecondPoint(Desk& desk) {
  CommandRecord& command = desk.command;
  if (command.clickstage != kFirstPointTaken || command.secondCrossShown) return;
  DrawMarkerCross(secondPointOf(desk), desk.ScreenProxy);
  command.secondCrossShown = true;
}

// A preview needs the points that are forgotten, so it goes first.
void dropThreePointCommand(Desk& desk) {
  if (takesThreePoints(desk, desk.pointer.RubberKind)) eraseRubberBand(desk);
  eraseSecondCross(desk);
  desk.command.clickstage = 0;
}

void mnuDrawLine_Click(Desk& desk) {
  startDrawing(desk, kLineCommand);
}
void mnuDrawRect_Click(Desk& desk) {
  startDrawing(desk, kRectangleCommand);
}
void mnuDrawArc3P_Click(Desk& desk) {
  startDrawing(desk, kArc3PCommand);
}
void mnuDrawArcC2P_Click(Desk& desk) {
  startDrawing(desk, kArcC2PCommand);
}
void mnuDrawCircle3P_Click(Desk& desk) {
  startDrawing(desk, kCircle3PCommand);
}
void mnuDrawCircleC1P_Click(Desk& desk) {
  startDrawing(desk, kCircleC1PCommand);
}

// ---- Descriptors

namespace {

void hoverLine(Desk& desk) {
  const SegmentRow line[] = {lineRow(markerOf(desk), hoverPoint(desk))};
  traceShape(desk, line);
}

void hoverBox(Desk& desk) {
  const Point a = markerOf(desk), b = hoverPoint(desk);
  desk.ScreenProxy.TraceLine({a.x, a.y, b.x, b.y}, drawColor(desk), kOutlineBox);
}

void hoverCircle(Desk& desk) {
  const Point center = markerOf(desk);
  const float radius = distance(center, hoverPoint(desk));
  desk.ScreenProxy.TraceCircle(center.x, center.y, radius, drawColor(desk));
}

template <bool (*shape)(Desk&, float, float)>
void hoverShape(Desk& desk) {
  shape(desk, hoverPoint(desk).x, hoverPoint(desk).y);
}

}  // namespace

constexpr DeskCommand kLineCommand{
    .info = {.tool = "miLine",
             .caption = "&Line",
             .key = "L",
             .menu = {"miDraw", 110},
             .bar = {"barDraw", 210}},
    .run = mnuDrawLine_Click,
    .mode = {.number = 1, .draw = drawLineMode, .hover = hoverLine},
};

constexpr DeskCommand kRectangleCommand{
    .info = {.tool = "miRectangle",
             .caption = "&Rectangle",
             .key = "R",
             .menu = {"miDraw", 120},
             .bar = {"barDraw", 220}},
    .run = mnuDrawRect_Click,
    .mode = {.number = 6, .draw = drawRectangleMode, .hover = hoverBox},
};

constexpr DeskCommand kArc3PCommand{
    .info = {.tool = "miArc3P",
             .caption = "&Arc, 3 Points",
             .key = "A",
             .menu = {"miDraw", 130},
             .bar = {"barDraw", 230}},
    .run = mnuDrawArc3P_Click,
    .mode = {.number = 2,
             .threePoints = true,
             .draw = drawArc3PMode,
             .hover = hoverShape<draw_arc3p>},
};

constexpr DeskCommand kArcC2PCommand{
    .info = {.tool = "miArcC+2P",
             .caption = "Arc, Center + 2 &Points",
             .menu = {"miDraw", 140},
             .bar = {"barDraw", 240}},
    .run = mnuDrawArcC2P_Click,
    .mode = {.number = 3,
             .threePoints = true,
             .draw = drawArcC2PMode,
             .hover = hoverShape<draw_arcc2p>},
};

constexpr DeskCommand kCircle3PCommand{
    .info = {.tool = "miCircle3P",
             .caption = "&Circle, 3 Points",
             .menu = {"miDraw", 150},
             .bar = {"barDraw", 250}},
    .run = mnuDrawCircle3P_Click,
    .mode = {.number = 5,
             .threePoints = true,
             .draw = drawCircle3PMode,
             .hover = hoverShape<draw_circle3p>},
};

constexpr DeskCommand kCircleC1PCommand{
    .info = {.tool = "miCircleC+1P",
             .caption = "Circle, Center + &1 Point",
             .menu = {"miDraw", 160},
             .bar = {"barDraw", 260}},
    .run = mnuDrawCircleC1P_Click,
    .mode = {.number = 7, .draw = drawCircleC1PMode, .hover = hoverCircle},
};

}  // namespace tess
