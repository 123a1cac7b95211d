// Leads: an approach at an angle to the path, from the side that is free of material.
#include "toolpath/lead_moves.h"

#include <cmath>

#include "core/drawing_store.h"
#include "drafting/row_edits.h"
#include "geometry/float_angles.h"
#include "geometry/float_nearest.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

constexpr double kQuarterTurn = 90;  // all angles here are in degrees

double radians(double degrees) {
  return degrees * kPi / 180;
}

Point away(Point from, double degrees, double length) {
  return {narrow(from.x + length * std::cos(radians(degrees))),
          narrow(from.y + length * std::sin(radians(degrees)))};
}

// Which way a row runs at a place of it, and what lies square to its left.
struct Heading {
  double tangent = 0, normal = 0;
};

Heading headingAt(const Entity& row, Point at) {
  if (!isArc(row.type)) {
    const double tangent = polarOf(row.start, row.end).degrees;
    return {tangent, tangent + kQuarterTurn};
  }
  const double outward = vectorAngle(row.center, at) * 180 / kPi;
  if (row.type == kClockwiseArc) return {outward - kQuarterTurn, outward};
  return {outward + kQuarterTurn, outward + 2 * kQuarterTurn};
}

// True when the profile lies to the left of the path: a probe of a tool's radius to that side comes
// nearer to it than the path itself.
bool materialIsLeft(const DrawingStore& store, Point at, double normal) {
  const int sg = nearestSeg(store, at);
  if (sg == 0) return false;
  const NearestPoint onProfile = nearestOnSeg(store, sg, at);
  if (!onProfile) return false;
  const Point probe = away(at, normal, store.toolradius[store.selectedtool]);
  return distance(onProfile.at, at) > distance(onProfile.at, probe);
}

// The direction of a lead and the direction from it to the centre of an arc.
struct LeadAngles {
  double along = 0, normal = 0;
};

// The tool comes from the free side and leaves to it.
LeadAngles leadIn(double tangent, double angle, bool materialLeft) {
  return materialLeft ? LeadAngles{tangent + angle, tangent + angle - kQuarterTurn}
                      : LeadAngles{tangent - angle, tangent - angle + kQuarterTurn};
}
LeadAngles leadOut(double tangent, double angle, bool materialLeft) {
  return materialLeft ? LeadAngles{tangent - angle, tangent - angle - kQuarterTurn}
                      : LeadAngles{tangent + angle, tangent + angle + kQuarterTurn};
}

int shorterSense(const ArcAngles& arc) {
  const float rising = std::abs(ArcSweep(arc.start, arc.end, kCounterClockwiseArc));
  const float falling = std::abs(ArcSweep(arc.start, arc.end, kClockwiseArc));
  return rising > falling ? kClockwiseArc : kCounterClockwiseArc;
}

Entity arcLead(const DrawingStore& store, Point from, Point to, double normal) {
  const Point middle = midpointAndSlope(from, to).middle;
  const double half = radians(store.cfg_lead_in_angle / 2.0);
  const Point center = away(middle, normal, std::cos(half) * store.cfg_lead_in_length);
  return {shorterSense(arcRadiusAndAngles(from, to, center)), from, to, center};
}

Entity leadMove(const DrawingStore& store, Point from, Point to, double normal) {
  return store.cfg_lead_in_arc ? arcLead(store, from, to, normal) : lineEntity(from, to);
}

void insertMove(CamContext& cam, const LeadRequest& request, int index, const Entity& move) {
  insertPathSegment(cam.changes, index, pathRowOf(move, request.z, request.feed),
                    cam.store.selectedtool);
}

// The path then begins and ends in the middle of its first line. Returns the new last row.
int beginAtMidpoint(CamContext& cam, const LeadRequest& request) {
  const Entity line = pathEntity(cam.store, request.first);
  const Point middle = midpointAndSlope(line.start, line.end).middle;
  PathRow shortened = pathRow(cam.store, request.first);
  shortened.x0 = middle.x;
  shortened.y0 = middle.y;
  Change change(cam.changes, Step::Continued);
  change.paths.replace(request.first, shortened, Entry::Unlogged);
  const Point end = pathEntity(cam.store, request.last).end;
  insertMove(cam, request, request.last + 1, lineEntity(end, middle));
  change.keep({.redraws = false});
  return request.last + 1;
}

}  // namespace

void addLeadInOut(CamContext& cam, const LeadRequest& request) {
  const DrawingStore& store = cam.store;
  const double angle = store.cfg_lead_in_angle;
  const double length = store.cfg_lead_in_length;
  const bool splits = request.closed && store.pstype[request.first] == kLine;
  const int last = splits ? beginAtMidpoint(cam, request) : request.last;

  const Entity firstRow = pathEntity(store, request.first);
  const Entity lastRow = pathEntity(store, last);
  const Heading entry = headingAt(firstRow, firstRow.start);
  const bool leftAtStart = materialIsLeft(store, firstRow.start, entry.normal);
  const LeadAngles in = leadIn(entry.tangent, angle, leftAtStart);

  // A closed path is left where it was entered.
  const Heading parting = request.closed ? entry : headingAt(lastRow, lastRow.end);
  const bool leftAtEnd =
      request.closed ? leftAtStart : materialIsLeft(store, lastRow.end, parting.normal);
  const LeadAngles out = leadOut(parting.tangent, angle, leftAtEnd);

  const Point from = away(firstRow.start, in.along, -length);
  const Point to = away(lastRow.end, out.along, length);
  insertMove(cam, request, last + 1, leadMove(store, lastRow.end, to, out.normal));
  insertMove(cam, request, request.first, leadMove(store, from, firstRow.start, in.normal));
}

}  // namespace tess
