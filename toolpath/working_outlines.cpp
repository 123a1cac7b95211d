// The working outlines of roughing.
#include "toolpath/working_outlines.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "drafting/change.h"
#include "drafting/row_edits.h"
#include "geometry/float_angles.h"
#include "geometry/float_nearest.h"
#include "geometry/row_entity.h"
#include "toolpath/element_offset.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

constexpr int kSweepPlaces = 6;

// The reference point of such an arc lies across its chord, on the other side of the arc.
bool isOverHalfCircle(const DrawingStore& store, int sg) {
  const Entity arc = segmentEntity(store, sg);
  if (samePoint(arc.start, arc.end, store.cfg_tolerance)) return false;
  const ArcAngles angles = arcRadiusAndAngles(arc.start, arc.end, arc.center);
  const double sweep = std::abs(ArcSweep(angles.start, angles.end, arc.type));
  return roundTo(sweep, kSweepPlaces) > roundTo(kPi, kSweepPlaces);
}

Side sideOfArc(const DrawingStore& store, int sg, const Entity& along, Point reference) {
  const double outside = static_cast<double>(distance(reference, along.center)) - radiusOf(along);
  const int radial = signOf(outside);
  return arcSide(along.type, isOverHalfCircle(store, sg) ? -radial : radial);
}

Side sideOfFirst(const DrawingStore& store, const OutlineOffset& request, const Entity& along) {
  if (isArc(along.type)) return sideOfArc(store, request.sg, along, request.reference);
  if (along.type != kLine) return Side::On;
  const Point nearest =
      nearestOnSeg(store, request.sg, request.reference).found().value_or(request.reference);
  return sideOfLine(along, {signOf(static_cast<double>(request.reference.x) - nearest.x),
                            signOf(static_cast<double>(request.reference.y) - nearest.y)});
}

void appendRows(CamContext& cam, Change& change, const OffsetChain& chain, int attr) {
  SegmentPainter painter(cam.context.renderer, cam.context.ScreenProxy);
  const std::vector<std::size_t>& bridges = chain.bridges();
  for (std::size_t k = 0; k < chain.elements().size(); ++k) {
    const SegmentRow row = segmentRowOf(chain.elements()[k], attr);
    if (std::binary_search(bridges.begin(), bridges.end(), k)) {
      insertSegment(cam.changes, cam.store.NumSegments + 1, row);
    } else {
      change.segments.append(row, painter, Entry::Unmarked);
    }
  }
}

}  // namespace

void offsetSegChain(CamContext& cam, ChainWalk& rows, const OutlineOffset& request) {
  const Procedure here("frmMain.offsetSegChain(sg,xs,ys,xd,yd,attr,distance,target)");
  const DrawingStore& store = cam.store;
  if (!hasDirection(store, request.sg, request.start, request.direction)) {
    cam.context.session.host.surroundings.beep();
    return;
  }
  const Point end = otherEnd(store, request.sg, request.start);
  const Entity first = travelledRow(store, request.sg, request.start, end);
  OffsetChain chain({sideOfFirst(store, request, first), request.distance, store.cfg_tolerance});
  Change change(cam.changes, Step::Continued);
  OffsetWalk walk;
  walk.sg = request.sg;
  walk.start = request.start;
  walk.end = end;
  walk.next = [&](int from, Point at) -> std::optional<ChainStep> {
    const auto step = rows.nextChainSeg(from, at);
    return step && isSelected(store.segattr[step->row]) ? step : std::nullopt;
  };
  walk.taken = [&](int sg) { change.segments.mark(sg, parkedState(store.segattr[sg])); };
  offsetAlong(store, walk, chain);
  appendRows(cam, change, chain, request.attr);
  change.keep({.redraws = false});
}

void removeWorkingRows(Changes& changes) {
  const DrawingStore& store = changes.store;
  Change change(changes, Step::Continued);
  change.segments.eraseWhere(
      [&](int sg) { return entityClass(store.segattr[sg]) != kOrdinaryClass; }, Entry::Unlogged);
  change.keep({.redraws = false});
}

void restoreParkedRows(Changes& changes) {
  const DrawingStore& store = changes.store;
  Change change(changes, Step::Continued);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] == kParkedRow) change.segments.mark(sg, kVerifiedRow);
  }
  change.keep();
}

}  // namespace tess
