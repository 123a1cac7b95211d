// The offset chain among the path rows: which side, which rows, and where they go.
#include "toolpath/contour_offset.h"

#include <cmath>
#include <vector>

#include "core/drawing_store.h"
#include "display/view_transform.h"
#include "drafting/row_edits.h"
#include "geometry/float_nearest.h"
#include "toolpath/element_offset.h"
#include "toolpath/lead_moves.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_placement.h"
#include "toolpath/pocket_side.h"

namespace tess {
namespace {

// A click this near to the profile lies on it: less than five pixels when rounded to whole ones.
// Fixed: within five pixels a click lies on the profile; the zoom decides about the side.
constexpr double kDeadBandPixels = 4.5;

int signOnScreen(const CamContext& cam, double difference) {
  const double pixels = difference * PixelsPerInchX(cam.context.ScreenProxy);
  return std::abs(pixels) <= kDeadBandPixels ? 0 : signOf(difference);
}

// Where the click lies from the nearest point of row `sg`.
SideSigns clickFrom(const CamContext& cam, int sg, Point click) {
  const Point nearest = nearestOnSeg(cam.store, sg, click).found().value_or(click);
  return {signOnScreen(cam, static_cast<double>(click.x) - nearest.x),
          signOnScreen(cam, static_cast<double>(click.y) - nearest.y)};
}

Side sideOfArc(const CamContext& cam, const Entity& arc, SideSigns reference, Point click) {
  if (reference.x == 0 && reference.y == 0) return Side::On;
  const double outside = static_cast<double>(distance(click, arc.center)) - radiusOf(arc);
  return arcSide(arc.type, signOnScreen(cam, outside));
}

// Fixed: a pocket decides the side of a line, the click that of an arc; rings begin so.
Side sideOfPath(const CamContext& cam, const OffsetRequest& request, const Entity& first) {
  if (request.exactMode) return Side::On;
  if (isArc(first.type)) {
    return sideOfArc(cam, first, clickFrom(cam, request.sg, request.click), request.click);
  }
  if (first.type != kLine) return Side::On;
  if (request.pocketMode) return pocketSideOf(cam.store, request.start, request.direction);
  return sideOfLine(first, clickFrom(cam, request.sg, request.click));
}

std::optional<ChainStep> nextRow(ChainWalk& rows, const OffsetRequest& request, int from,
                                 Point at) {
  if (request.pocketMode) return rows.nextChainSegWithAttr(from, at, kVerifiedRow);
  if (request.exactMode) return rows.nextChainSegWithAttr(from, at, kSelectedRow);
  return rows.nextChainSeg(from, at);
}

bool walkAlong(const DrawingStore& store, const OffsetRequest& request, Point end,
               OffsetChain& chain) {
  OffsetWalk walk;
  walk.sg = request.sg;
  walk.start = request.start;
  walk.end = end;
  walk.wholeChain = request.chain;
  std::optional<ChainWalk> ownRows;
  if (request.chain && request.rows == nullptr) ownRows.emplace(store);
  ChainWalk* const rows = ownRows ? &*ownRows : request.rows;
  walk.next = [rows, &request](int from, Point at) { return nextRow(*rows, request, from, at); };
  return offsetAlong(store, walk, chain);
}

void insertElements(CamContext& cam, const OffsetRequest& request, int first,
                    const std::vector<Entity>& elements) {
  std::vector<PathInsertion> rows;
  rows.reserve(elements.size());
  for (const Entity& element : elements) {
    rows.push_back({first, pathRowOf(element, request.z, request.feed)});
  }
  insertPathSegments(cam.changes, rows, cam.store.selectedtool);
}

bool wantsLeads(const DrawingStore& store, const OffsetRequest& request, Side side) {
  return request.chain && (store.cfg_lead_in_arc || store.cfg_lead_in_path) &&
         store.cfg_lead_in_angle > 0 && store.cfg_lead_in_length > 0 && !request.pocketMode &&
         side != Side::On;
}

}  // namespace

bool isOnProfile(const CamContext& cam, int sg, Point click) {
  const SideSigns signs = clickFrom(cam, sg, click);
  return signs.x == 0 && signs.y == 0;
}

Placement::Placement(CamContext& cam, Step step)
    : cam_(cam),
      first_(pathInsertIndex(cam.store, cam.pathInsertMode, cam.pathInsertGroup)),
      rowsBefore_(cam.store.NumPathSegments),
      change_(cam.changes, step) {}

PlacedRows Placement::rows() const {
  return {first_, first_ - 1 + cam_.store.NumPathSegments - rowsBefore_};
}

void Placement::keep() {
  change_.paths.logAdded(rows().first, rows().last);
  change_.keep({.redraws = false});
}

Side placePathChain(CamContext& cam, const OffsetRequest& request, const Placement& placement) {
  DrawingStore& store = cam.store;
  if (!request.pocketMode && !request.exactMode) store.currentpathgroup = nextPathGroup(store);
  if (!hasDirection(store, request.sg, request.start, request.direction)) {
    cam.context.session.host.surroundings.beep();
    return Side::On;
  }
  const Point end = otherEnd(store, request.sg, request.start);
  const Entity first = travelledRow(store, request.sg, request.start, end);
  const Side side = sideOfPath(cam, request, first);
  const float radius = request.radius != 0 ? request.radius : store.toolradius[store.selectedtool];
  OffsetChain chain({side, radius, store.cfg_tolerance});
  const bool closed = walkAlong(store, request, end, chain);
  insertElements(cam, request, placement.first(), chain.elements());
  const PlacedRows rows = placement.rows();
  if (wantsLeads(store, request, side) && !rows.empty()) {
    addLeadInOut(cam, {closed, rows.first, rows.last, request.z, request.feed});
  }
  cam.context.state.setPendingaction(0);
  return side;
}

void offsetPathChain(CamContext& cam, const OffsetRequest& request) {
  const Procedure here(
      "frmMain.offsetPathChain(sg,xs,ys,xd,yd,z,feed,chain,pocketMode,exactMode,radius)");
  Placement placement(cam);
  placePathChain(cam, request, placement);
  placement.keep();
}

// Rows that were appended go on into their copies without a foreign row between.
void connectPlacedRows(CamContext& cam, const PlacedRows& rows, int rowsBefore) {
  const int count = cam.store.NumPathSegments;
  const bool appended = rows.first > rowsBefore;
  const int placed = rows.last - rows.first + 1;
  if (!appended) connectPathSegs(cam, rowsBefore + placed + 1, count);
  connectPathSegs(cam, rows.first, appended ? count : rows.last);
}

}  // namespace tess
