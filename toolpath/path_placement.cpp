// Placing path rows.
#include "toolpath/path_placement.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "drafting/pending_actions.h"
#include "drafting/row_edits.h"
#include "drafting/undo.h"
#include "geometry/nearest_scans.h"
#include "toolpath/path_groups.h"
#include "toolpath/row_barrier.h"
#include "toolpath/toolpath_commands.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

constexpr int kAllGroups = 0;

// ---- Levels

// The first row of the last run of rows of one depth and code.
int startOfLastRun(const DrawingStore& store) {
  int ps = store.NumPathSegments;
  while (ps > 1 && store.psz[ps - 1] == store.psz[ps] && store.pscode[ps - 1] == store.pscode[ps]) {
    --ps;
  }
  return ps;
}

// ---- Links

// The working outlines of islands: no link may cross one.
bool isIslandWall(int segattr) {
  return segattr == kIslandOutline;
}

// The straight ways from each row `first` to `last` - 1 to the next one.
std::vector<Entity> waysBetween(const DrawingStore& store, int first, int last) {
  std::vector<Entity> ways;
  for (int ps = first; ps < last; ++ps) {
    ways.push_back(lineEntity(pathEntity(store, ps).end, pathEntity(store, ps + 1).start));
  }
  return ways;
}

PathInsertion linkAfter(const DrawingStore& store, int ps, const Entity& way) {
  return {ps + 1, pathRowOf(way, store.psz[ps], store.psfeed[ps])};
}

std::vector<PathInsertion> linksBetween(const DrawingStore& store, int first, int last) {
  RowBarrier islands(store, isIslandWall);
  const std::vector<Entity> ways = waysBetween(store, first, last);
  islands.makeReadyFor(ways);
  std::vector<PathInsertion> links;
  int ps = first - 1;
  for (const Entity& way : ways) {
    ++ps;
    const bool isGap = !samePoint(way.start, way.end, store.cfg_tolerance);
    if (isGap && !islands.meets(way)) links.push_back(linkAfter(store, ps, way));
  }
  return links;
}

// ---- Undo of the last placement

bool appendsPaths(const CamDesk& cam) {
  return cam.pathInsertMode == kInsertAtEnd || cam.pathInsertMode == 0;
}

// Takes the rows of one code off the end of the table.
void deleteLastRun(CamDesk& cam) {
  DrawingStore& store = cam.store;
  const int code = store.pscode[store.NumPathSegments];
  bool startsStep = true;
  while (store.NumPathSegments >= 1 && store.pscode[store.NumPathSegments] == code) {
    logPathSegment(cam.changelog, store, store.NumPathSegments, "D", startsStep);
    deletePathSegment(store, store.NumPathSegments);
    startsStep = false;
  }
}

void clickReverse(CamDesk& cam) {
  const int ps =
      nearestPathSeg(cam.store, {cam.desk.pointer.MouseX, cam.desk.pointer.MouseY}, kAllGroups);
  if (ps < 1) return;
  reversePathSegment(cam, ps);
  cam.desk.redraw.redrawscreen();
}

}  // namespace

bool pointsWithin(Point a, Point b, double d) {
  return std::abs(static_cast<double>(a.x) - b.x) < d &&
         std::abs(static_cast<double>(a.y) - b.y) < d;
}

float roughingFloor(const DrawingStore& store) {
  return -(std::abs(store.cfg_final_depth) - std::abs(store.cfg_min_z_finish));
}

float firstLevel(const DrawingStore& store, float floor) {
  return std::max(-std::abs(store.cfg_z_cut_per_pass) - std::abs(store.cfg_start_depth), floor);
}

void replicatePathAtZ(CamDesk& cam, float z, float feed) {
  const Procedure here("replicatePathAtZ(z,feed)");
  DrawingStore& store = cam.store;
  const int last = store.NumPathSegments;
  const int first = startOfLastRun(store);
  for (int ps = std::max(first, 1); ps <= last; ++ps) {
    PathRow copy = pathRow(store, ps);
    copy.z = z;
    copy.feed = feed;
    addPathSegment(store, copy);
    logPathSegment(cam.changelog, store, store.NumPathSegments, "A", /*start=*/ps == first);
  }
}

// A step that does not deepen ends the loop: with a cut of nothing per pass there is one level.
float replicateLevels(CamDesk& cam, float z, float floor, int rowsBefore) {
  const DrawingStore& store = cam.store;
  if (store.NumPathSegments <= rowsBefore) return z;
  while (z > floor) {
    const float next = std::max(z - store.cfg_z_cut_per_pass, floor);
    if (!(next < z)) break;
    z = next;
    replicatePathAtZ(cam, z, store.cfg_rough_feedrate);
  }
  if (store.cfg_min_z_finish == 0) return z;
  z = -std::abs(store.cfg_final_depth);
  replicatePathAtZ(cam, z, store.cfg_finish_feedrate);
  return z;
}

int connectPathSegs(CamDesk& cam, int first, int last) {
  const Procedure here("connectPathSegs(first,last)");
  DrawingStore& store = cam.store;
  if (first >= last) return last;
  if (first < 1 || last > store.NumPathSegments) throw subscriptOutOfRange();
  const std::vector<PathInsertion> links = linksBetween(store, first, last);
  insertPathSegments(store, links, store.selectedtool);
  int inserted = 0;
  for (const PathInsertion& link : links) {
    logPathSegment(cam.changelog, store, link.before + inserted, "A", /*start=*/false);
    ++inserted;
  }
  return last + inserted;
}

void reversePathSegment(CamDesk& cam, int ps) {
  DrawingStore& store = cam.store;
  if (ps < 1 || ps > store.NumPathSegments) return;
  const int type = store.pstype[ps];
  if (type != kLine && !isArc(type)) return;
  logPathSegment(cam.changelog, store, ps, "D", /*start=*/true);
  std::swap(store.psx0[ps], store.psx1[ps]);
  std::swap(store.psy0[ps], store.psy1[ps]);
  if (isArc(type)) store.pstype[ps] = kClockwiseArc + kCounterClockwiseArc - type;
  logPathSegment(cam.changelog, store, ps, "A", /*start=*/false);
  enableUndo(cam.desk, kRowsAdded);
  store.drawingsaved = false;
}

// ---- Commands

void mnuCAMPlace1PathSeg_Click(CamDesk& cam) {
  cam.PlaceChain = 0;
  roundall(cam.store);
  arm(cam.desk, PendingAction::FinishStart);
}

// The first call goes by the group that was placed last. It forgets that group, so that a second
// one takes what now ends the table; with a place to insert at that may be anybody's, and stays.
void mnuCAMUndoLastPlace_Click(CamDesk& cam) {
  const Procedure here("frmMain.mnuCAMUndoLastPlace_Click()");
  DrawingStore& store = cam.store;
  const int group = std::exchange(store.lastplacedgroup, 0);
  if (store.NumPathSegments < 1) return;
  if (group >= 1) {
    deletePathGroup(store, cam.changelog, group);
  } else if (appendsPaths(cam)) {
    deleteLastRun(cam);
  } else {
    return;
  }
  showPlacedPaths(cam);
  if (cam.changelog.canUndo()) cam.changelog.UndoMark = kRowsDeleted;
}

// Neither asked nor logged.
void mnuClearAllPaths_Click(CamDesk& cam) {
  DrawingStore& store = cam.store;
  if (store.NumPathSegments > 0) store.drawingsaved = false;
  store.NumPathSegments = 0;
  store.pathgroupname.fill({});
  cam.desk.redraw.redrawscreen();
}

void mnuRevPathDir_Click(CamDesk& cam) {
  if (cam.store.NumPathSegments > 0) {
    arm(cam.desk, PendingAction::ReversePath);
  } else {
    cam.desk.state.setPendingaction(0);
  }
}

// ---- Descriptors

namespace {

constexpr Action<CamDesk> kReversePathActions[] = {
    {{.action = PendingAction::ReversePath, .prompt = "Click near Path Segment to reverse.  "},
     clickReverse},
};

}  // namespace

constexpr CamCommand kReversePathCommand{
    .info = {.tool = "miRevPath", .caption = "Reverse Path Se&gment", .menu = {"miEdit", 440}},
    .run = mnuRevPathDir_Click,
    .actions = kReversePathActions,
    .repeat = {{PendingAction::ReversePath}},
};

constexpr CamCommand kPlaceOnePathCommand{
    .info = {.tool = "miPlaceOnePathSegment",
             .caption = "Place &One Path Segment",
             .menu = {"miCAM", 250}},
    .run = mnuCAMPlace1PathSeg_Click,
};

constexpr CamCommand kUndoLastPlaceCommand{
    .info = {.tool = "miUndoLastPlace",
             .caption = "&Undo Last Place",
             .menu = {"miCAM", 280},
             .bar = {"barCAM", 260}},
    .run = mnuCAMUndoLastPlace_Click,
};

constexpr CamCommand kClearAllPathsCommand{
    .info = {.tool = "miClearAllPaths", .caption = "Clear &All Paths", .menu = {"miCAM", 360}},
    .run = mnuClearAllPaths_Click,
};

}  // namespace tess
