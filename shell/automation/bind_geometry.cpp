// `geometry`: the geometry routines by name. Points are given as x and y, arcs as their kind,
// centre, start and end, circles as centre and radius. A routine that answers with a code gives
// the code first; a point it could not find comes back as 0, 0.
#include "core/rounding.h"
#include "geometry/angles.h"
#include "geometry/circles.h"
#include "geometry/intersections.h"
#include "geometry/nearest.h"
#include "geometry/nearest_scans.h"
#include "shell/automation/bindings.h"
#include "shell/automation/lua_routines.h"

namespace tess {
namespace {

using std::tuple;

float tolerenceOf(const DrawingStore& store) {
  return store.cfg_tolerance;
}

constexpr Routine kRoutines[] = {
    // Scalars.
    routine("distance",
            [](float x0, float y0, float x1, float y1) {
              return distance({x0, y0}, {x1, y1});
            }),
    routine("nonZero", [](float x) { return static_cast<float>(nonZero(x)); }),
    routine("roundTo", [](double value, Int16 places) { return roundTo(value, places); }),
    routine("swapValues",
            [](float a, float b) {
              swapValues(a, b);
              return tuple{a, b};
            }),
    routine("samePoint",
            [](DrawingStore& store, float x0, float y0, float x1, float y1) {
              return samePoint({x0, y0}, {x1, y1}, tolerenceOf(store));
            }),
    routine("pointInSegBox",
            [](float px, float py, float x0, float y0, float x1, float y1) {
              return pointInSegBox({px, py}, {x0, y0}, {x1, y1});
            }),
    routine("midpointAndSlope",
            [](float x0, float y0, float x1, float y1) {
              const MidpointSlope found = midpointAndSlope({x0, y0}, {x1, y1});
              return tuple{found.middle, found.slope};
            }),
    routine("reflectThroughMidpoint",
            [](float x0, float y0, float x1, float y1, float x, float y) {
              return reflectThroughMidpoint({x0, y0}, {x1, y1}, {x, y});
            }),

    // Angles.
    routine("vectorAngle",
            [](float x0, float y0, float x1, float y1) {
              return vectorAngle({x0, y0}, {x1, y1});
            }),
    routine("arcRadiusAndAngles",
            [](float x0, float y0, float x1, float y1, float xc, float yc) {
              const ArcAngles arc = arcRadiusAndAngles({x0, y0}, {x1, y1}, {xc, yc});
              return tuple{arc.radius, arc.start, arc.end};
            }),
    routine("angleInSweep", [](float theta, float a, float b,
                               int direction) { return angleInSweep(theta, a, b, direction); }),
    routine("polarOf",
            [](float x0, float y0, float x1, float y1) {
              const Polar polar = polarOf({x0, y0}, {x1, y1});
              return tuple{polar.degrees, polar.length};
            }),
    routine("pointAlong",
            [](float x0, float y0, float x1, float y1, float d) {
              return pointAlong({x0, y0}, {x1, y1}, d);
            }),

    // Circles.
    routine("circleFrom3Points",
            [](DrawingStore& store, float x1, float y1, float x2, float y2, float x3, float y3) {
              Point center;
              const Flag ok =
                  circleFrom3Points({x1, y1}, {x2, y2}, {x3, y3}, tolerenceOf(store), center);
              return tuple{center, ok};
            }),
    routine("perpBisector",
            [](float x1, float y1, float x2, float y2) {
              Point p1{x1, y1};
              Point p2{x2, y2};
              const Bisector line = perpBisector(p1, p2);
              return tuple{p1, p2, line.slope, line.intercept};
            }),
    routine("centersFromChord",
            [](float x1, float y1, float x2, float y2, float r) {
              PointPair centers;
              const Flag fail = !centersFromChord({x1, y1}, {x2, y2}, r, centers);
              return tuple{centers, fail};
            }),

    // The nearest point of one entity.
    routine("nearestOnLine",
            [](float x0, float y0, float x1, float y1, float px, float py) {
              return tuple{kFound, nearestOnLine({x0, y0}, {x1, y1}, {px, py})};
            }),
    routine("nearestOnArc",
            [](DrawingStore& store, int type, float xc, float yc, float x0, float y0, float x1,
               float y1, float px, float py) {
              Point nearest;
              const Entity arc{type, {x0, y0}, {x1, y1}, {xc, yc}};
              const int code = nearestOnArc(arc, {px, py}, tolerenceOf(store), nearest);
              return tuple{code, nearest};
            }),
    routine("nearestOnCircle",
            [](DrawingStore& store, float xc, float yc, float x0, float y0, float px, float py) {
              Point nearest;
              const int code =
                  nearestOnCircle({xc, yc}, {x0, y0}, {px, py}, tolerenceOf(store), nearest);
              return tuple{code, nearest};
            }),
    routine("nearestOnRect",
            [](float x0, float y0, float x1, float y1, float px, float py) {
              return tuple{kFound, nearestOnRect({x0, y0}, {x1, y1}, {px, py})};
            }),
    routine("nearestOnSeg",
            [](DrawingStore& store, int sg, float px, float py) {
              Point nearest;
              const int code = nearestOnSeg(store, sg, {px, py}, nearest);
              return tuple{code, nearest};
            }),
    routine("nearestOnPathSeg",
            [](DrawingStore& store, int ps, float px, float py) {
              Point nearest;
              const int code = nearestOnPathSeg(store, ps, {px, py}, nearest);
              return tuple{code, nearest};
            }),

    // The nearest row or end of the tables.
    routine("nearestLineSeg",
            [](DrawingStore& store, float x, float y) {
              return nearestLineSeg(store, {x, y});
            }),
    routine("nearestArcSeg",
            [](DrawingStore& store, float x, float y) {
              return nearestArcSeg(store, {x, y});
            }),
    routine("nearestRoundSeg",
            [](DrawingStore& store, float x, float y) {
              return nearestRoundSeg(store, {x, y});
            }),
    routine("nearestSegEndpoint",
            [](DrawingStore& store, float x, float y) {
              Point end;
              const int code = nearestSegEndpoint(store, {x, y}, end) ? kFound : kNoPoint;
              return tuple{code, end};
            }),
    routine("nearestPathEndpoint",
            [](DrawingStore& store, float x, float y) {
              Point end;
              const int code = nearestPathEndpoint(store, {x, y}, end) ? kFound : kNoPoint;
              return tuple{code, end};
            }),
    routine("nearestPathChord",
            [](DrawingStore& store, float x, float y) {
              return nearestPathChord(store, {x, y});
            }),
    routine("nearestPathSeg",
            [](DrawingStore& store, float x, float y, double group) {
              return nearestPathSeg(store, {x, y}, group);
            }),
    routine("nearestSeg",
            [](DrawingStore& store, float x, float y) {
              return nearestSeg(store, {x, y});
            }),
    routine("nearestSelectedSeg",
            [](DrawingStore& store, float x, float y) {
              return nearestSelectedSeg(store, {x, y});
            }),

    // Crossings.
    routine("intersectSlopes",
            [](double m1, double b1, double m2, double b2) {
              Point at;
              const int code = intersectSlopes(m1, b1, m2, b2, at);
              return tuple{code, at};
            }),
    routine(
        "intersectLines",
        [](float ax0, float ay0, float ax1, float ay1, float bx0, float by0, float bx1, float by1) {
          Point at;
          const int code = intersectLines(lineEntity({ax0, ay0}, {ax1, ay1}),
                                          lineEntity({bx0, by0}, {bx1, by1}), at);
          return tuple{code, at};
        }),
    routine("lineCircle",
            [](DrawingStore& store, float px, float py, double slope, float xc, float yc, float r) {
              PointPair hits;
              const int code = lineCircle({px, py}, slope, {{xc, yc}, r}, tolerenceOf(store), hits);
              return tuple{code, hits};
            }),
    routine("slopeLineCircle",
            [](DrawingStore& store, double slope, double intercept, float xc, float yc, float r) {
              PointPair hits;
              const int code =
                  slopeLineCircle(slope, intercept, {{xc, yc}, r}, tolerenceOf(store), hits);
              return tuple{code, hits};
            }),
    routine("horizontalCircle",
            [](DrawingStore& store, double y, float xc, float yc, float r) {
              float xa = 0;
              float xb = 0;
              const int code = horizontalCircle(y, {{xc, yc}, r}, tolerenceOf(store), xa, xb);
              return tuple{code, xa, xb};
            }),
    routine("verticalCircle",
            [](DrawingStore& store, double x, float xc, float yc, float r) {
              float ya = 0;
              float yb = 0;
              const int code = verticalCircle(x, {{xc, yc}, r}, tolerenceOf(store), ya, yb);
              return tuple{code, ya, yb};
            }),
    routine("intersectLineArc",
            [](DrawingStore& store, float lx0, float ly0, float lx1, float ly1, int type, float xc,
               float yc, float x0, float y0, float x1, float y1) {
              PointPair at;
              const int code =
                  intersectLineArc(lineEntity({lx0, ly0}, {lx1, ly1}),
                                   {type, {x0, y0}, {x1, y1}, {xc, yc}}, tolerenceOf(store), at);
              return tuple{code, at};
            }),
    routine(
        "intersectArcs",
        [](DrawingStore& store, int typeA, float axc, float ayc, float ax0, float ay0, float ax1,
           float ay1, int typeB, float bxc, float byc, float bx0, float by0, float bx1, float by1) {
          PointPair at;
          const int code =
              intersectArcs({typeA, {ax0, ay0}, {ax1, ay1}, {axc, ayc}},
                            {typeB, {bx0, by0}, {bx1, by1}, {bxc, byc}}, tolerenceOf(store), at);
          return tuple{code, at};
        }),
    routine("intersectSegs",
            [](DrawingStore& store, int sgA, int sgB) {
              PointPair at;
              const int code = intersectSegs(store, sgA, sgB, at);
              return tuple{code, at};
            }),
    routine("intersectPathSegs",
            [](DrawingStore& store, int psA, int psB) {
              PointPair at;
              const int code = intersectPathSegs(store, psA, psB, at);
              return tuple{code, at};
            }),
    routine("intersectWithSeg",
            [](DrawingStore& store, int type, float x0, float y0, float x1, float y1, float xc,
               float yc, int sg) {
              PointPair at;
              const int code =
                  intersectWithSeg(store, {type, {x0, y0}, {x1, y1}, {xc, yc}}, sg, at);
              return tuple{code, at};
            }),
};

}  // namespace

void bindGeometry(lua_State* L) {
  setRoutines(L, "geometry", kRoutines);
}

}  // namespace tess
