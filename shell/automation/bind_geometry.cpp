// `geometry`: the geometry routines by name. Points are given as x and y, arcs as their kind,
// centre, start and end, circles as centre and radius. A routine that answers with a code gives
// the code first; a point it could not find comes back as 0, 0.
#include <optional>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"
#include "geometry/float_intersections.h"
#include "geometry/float_nearest.h"
#include "geometry/float_nearest_scans.h"
#include "shell/automation/bindings.h"
#include "shell/automation/lua_routines.h"

namespace tess {
namespace {

using std::tuple;

float tolerenceOf(const DrawingStore& store) {
  return store.cfg_tolerance;
}

// What scripts are told in numbers.
// Fixed: found is 1 and each miss has its number; scripts compare them.
constexpr int kFoundCode = 1;

int codeOf(Miss miss) {
  switch (miss) {
    case Miss::None:
      return kFoundCode;
    case Miss::Apart:
    case Miss::NoRule:
      return 0;
    case Miss::NoRadius:
    case Miss::Parallel:
    case Miss::SameRow:
      return -1;
    case Miss::NoHit:
      return -2;
  }
  return 0;
}

// 1 for a tangent, 2 for two hits.
template <typename Hits>
int hitCode(const Hits& hits) {
  if (!hits) return codeOf(hits.miss);
  return hits.tangent ? 1 : 2;
}

// Bit 1 for the first hit, bit 2 for the second.
int crossingCode(const Crossing& crossing) {
  if (!crossing) return codeOf(crossing.miss);
  return (crossing.first ? 1 : 0) + (crossing.second ? 2 : 0);
}

tuple<int, PointPair> resultOf(const Crossing& crossing) {
  return {crossingCode(crossing), crossing.at};
}
tuple<int, PointPair> resultOf(const CircleHits& hits) {
  return {hitCode(hits), hits.at};
}
tuple<int, float, float> resultOf(const AxisHits& hits) {
  return {hitCode(hits), hits.first, hits.second};
}
tuple<int, Point> resultOf(const NearestPoint& nearest) {
  return {codeOf(nearest.miss), nearest.at};
}
tuple<int, Point> resultOf(const std::optional<Point>& found) {
  return {found ? kFoundCode : 0, found.value_or(Point{})};
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
    routine(
        "circleFrom3Points",
        [](DrawingStore& store, float x1, float y1, float x2, float y2, float x3, float y3) {
          const auto center = circleFrom3Points({x1, y1}, {x2, y2}, {x3, y3}, tolerenceOf(store));
          return tuple{center.value_or(Point{}), Flag(center.has_value())};
        }),
    routine("perpBisector",
            [](float x1, float y1, float x2, float y2) {
              const Bisector line = perpBisector({x1, y1}, {x2, y2});
              return tuple{line.points, line.slope, line.intercept};
            }),
    routine("centersFromChord",
            [](float x1, float y1, float x2, float y2, float r) {
              const auto centers = centersFromChord({x1, y1}, {x2, y2}, r);
              return tuple{centers.value_or(PointPair{}), Flag(!centers.has_value())};
            }),

    // The nearest point of one entity.
    routine("nearestOnLine",
            [](float x0, float y0, float x1, float y1, float px, float py) {
              return tuple{kFoundCode, nearestOnLine({x0, y0}, {x1, y1}, {px, py})};
            }),
    routine("nearestOnArc",
            [](DrawingStore& store, int type, float xc, float yc, float x0, float y0, float x1,
               float y1, float px, float py) {
              const Entity arc{type, {x0, y0}, {x1, y1}, {xc, yc}};
              return resultOf(nearestOnArc(arc, {px, py}, tolerenceOf(store)));
            }),
    routine("nearestOnCircle",
            [](DrawingStore& store, float xc, float yc, float x0, float y0, float px, float py) {
              return resultOf(nearestOnCircle({xc, yc}, {x0, y0}, {px, py}, tolerenceOf(store)));
            }),
    routine("nearestOnRect",
            [](float x0, float y0, float x1, float y1, float px, float py) {
              return tuple{kFoundCode, nearestOnRect({x0, y0}, {x1, y1}, {px, py})};
            }),
    routine("nearestOnSeg",
            [](DrawingStore& store, int sg, float px, float py) {
              return resultOf(nearestOnSeg(store, sg, {px, py}));
            }),
    routine("nearestOnPathSeg",
            [](DrawingStore& store, int ps, float px, float py) {
              return resultOf(nearestOnPathSeg(store, ps, {px, py}));
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
              return resultOf(nearestSegEndpoint(store, {x, y}));
            }),
    routine("nearestPathEndpoint",
            [](DrawingStore& store, float x, float y) {
              return resultOf(nearestPathEndpoint(store, {x, y}));
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
              const auto at = intersectSlopes(m1, b1, m2, b2);
              return tuple{codeOf(at ? Miss::None : Miss::Parallel), at.value_or(Point{})};
            }),
    routine(
        "intersectLines",
        [](float ax0, float ay0, float ax1, float ay1, float bx0, float by0, float bx1, float by1) {
          const Crossing crossing = intersectLines(lineEntity({ax0, ay0}, {ax1, ay1}),
                                                   lineEntity({bx0, by0}, {bx1, by1}));
          return tuple{crossingCode(crossing), crossing.at.first};
        }),
    routine("lineCircle",
            [](DrawingStore& store, float px, float py, double slope, float xc, float yc, float r) {
              return resultOf(lineCircle({px, py}, slope, {{xc, yc}, r}, tolerenceOf(store)));
            }),
    routine("slopeLineCircle",
            [](DrawingStore& store, double slope, double intercept, float xc, float yc, float r) {
              return resultOf(slopeLineCircle(slope, intercept, {{xc, yc}, r}, tolerenceOf(store)));
            }),
    routine("horizontalCircle",
            [](DrawingStore& store, double y, float xc, float yc, float r) {
              return resultOf(horizontalCircle(y, {{xc, yc}, r}, tolerenceOf(store)));
            }),
    routine("verticalCircle",
            [](DrawingStore& store, double x, float xc, float yc, float r) {
              return resultOf(verticalCircle(x, {{xc, yc}, r}, tolerenceOf(store)));
            }),
    routine("intersectLineArc",
            [](DrawingStore& store, float lx0, float ly0, float lx1, float ly1, int type, float xc,
               float yc, float x0, float y0, float x1, float y1) {
              return resultOf(intersectLineArc(lineEntity({lx0, ly0}, {lx1, ly1}),
                                               {type, {x0, y0}, {x1, y1}, {xc, yc}},
                                               tolerenceOf(store)));
            }),
    routine(
        "intersectArcs",
        [](DrawingStore& store, int typeA, float axc, float ayc, float ax0, float ay0, float ax1,
           float ay1, int typeB, float bxc, float byc, float bx0, float by0, float bx1, float by1) {
          return resultOf(intersectArcs({typeA, {ax0, ay0}, {ax1, ay1}, {axc, ayc}},
                                        {typeB, {bx0, by0}, {bx1, by1}, {bxc, byc}},
                                        tolerenceOf(store)));
        }),
    routine("intersectSegs", [](DrawingStore& store, int sgA,
                                int sgB) { return resultOf(intersectSegs(store, sgA, sgB)); }),
    routine("intersectPathSegs",
            [](DrawingStore& store, int psA, int psB) {
              return resultOf(intersectPathSegs(store, psA, psB));
            }),
    routine("intersectWithSeg",
            [](DrawingStore& store, int type, float x0, float y0, float x1, float y1, float xc,
               float yc, int sg) {
              return resultOf(intersectWithSeg(store, {type, {x0, y0}, {x1, y1}, {xc, yc}}, sg));
            }),
};

}  // namespace

void bindGeometry(lua_State* L) {
  setRoutines(L, "geometry", kRoutines);
}

}  // namespace tess
