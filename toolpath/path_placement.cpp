// Placing path rows.
#include "toolpath/path_placement.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "drafting/pending_actions.h"
#include "drafting/row_edits.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_entity.h"
#include "toolpath/path_groups.h"
#include "toolpath/row_barrier.h"
#include "toolpath/toolpath_commands.h"
#include "toolpath/working_rows.h"

namespace tess {
namespace {

constexpr int kAllGroups = 0;

// ---- Levels

// The first row of the last run of rows of one depth and code.
// Fixed: a run is told by depth and code; a path of two depths copies its last stretch.
int startOfLastRun(const DrawingStore& store) {
  int ps = store.NumPathSegments;
  while (ps > 1 && store.psz[ps - 1] == store.psz[ps] && store.pscode[ps - 1] == store.pscode[ps]) {
    --ps;
  }
  return ps;
}

// ---- Links

// The working outlines of islands: no link may cross one.
// Fixed: working islands alone stand in the way; finish paths and spirals link every gap.
bool isIslandWall(int segattr) {
  return segattr == kIslandOutline;
}

// The straight lines from each row `first` to `last` - 1 to the next one.
std::vector<Entity> gapsBetween(const DrawingStore& store, int first, int last) {
  std::vector<Entity> gaps;
  for (int ps = first; ps < last; ++ps) {
    gaps.push_back(lineEntity(pathEntity(store, ps).end, pathEntity(store, ps + 1).start));
  }
  return gaps;
}

PathInsertion linkAfter(const DrawingStore& store, int ps, const Entity& gap) {
  return {ps + 1, pathRowOf(gap, store.psz[ps], store.psfeed[ps])};
}

std::vector<PathInsertion> linksBetween(const DrawingStore& store, int first, int last) {
  RowBarrier islands(store, isIslandWall);
  const std::vector<Entity> gaps = gapsBetween(store, first, last);
  islands.makeReadyFor(gaps);
  std::vector<PathInsertion> links;
  int ps = first - 1;
  for (const Entity& gap : gaps) {
    ++ps;
    const bool isOpen = !samePoint(gap.start, gap.end, store.cfg_tolerance);
    if (isOpen && !islands.meets(gap)) links.push_back(linkAfter(store, ps, gap));
  }
  return links;
}

// ---- Undo of the last placement

bool appendsPaths(const CamContext& cam) {
  return cam.pathInsertMode == PathInsertMode::AtEnd || cam.pathInsertMode == PathInsertMode::Unset;
}

// Takes the rows of one code off the end of the table.
void deleteLastRun(CamContext& cam) {
  const DrawingStore& store = cam.store;
  const int last = store.NumPathSegments;
  int first = last;
  while (first > 1 && store.pscode[first - 1] == store.pscode[last]) --first;
  Change change(cam.changes);
  change.paths.erase(first, last);
  change.keep({.undoMark = kRowsDeleted, .redraws = false});
}

void clickReverse(CamContext& cam) {
  const int ps = nearestPathSeg(cam.store, {cam.context.pointer.MouseX, cam.context.pointer.MouseY},
                                kAllGroups);
  if (ps < 1) return;
  reversePathSegment(cam, ps);
  cam.context.redraw.redrawscreen();
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

void replicatePathAtZ(CamContext& cam, float z, float feed) {
  const Procedure here("replicatePathAtZ(z,feed)");
  const DrawingStore& store = cam.store;
  const int last = store.NumPathSegments;
  Change change(cam.changes);
  for (int ps = std::max(startOfLastRun(store), 1); ps <= last; ++ps) {
    PathRow copy = pathRow(store, ps);
    copy.z = z;
    copy.feed = feed;
    change.paths.append(copy);
  }
  change.keep({.redraws = false});
}

// A step that does not deepen ends the loop: with a cut of nothing per pass there is one level.
float replicateLevels(CamContext& cam, float z, float floor, int rowsBefore) {
  const DrawingStore& store = cam.store;
  if (store.NumPathSegments <= rowsBefore) return z;
  while (z > floor) {
    // Fixed: the cut per pass keeps its sign here alone; a negative one ends with one level.
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

int connectPathSegs(CamContext& cam, int first, int last) {
  const Procedure here("connectPathSegs(first,last)");
  const DrawingStore& store = cam.store;
  if (first >= last) return last;
  if (first < 1 || last > store.NumPathSegments) throw subscriptOutOfRange();
  const std::vector<PathInsertion> links = linksBetween(store, first, last);
  Change change(cam.changes, Step::Continued);
  insertPathSegments(cam.changes, links, store.selectedtool);
  int inserted = 0;
  for (const PathInsertion& link : links) {
    const int ps = link.before + inserted++;
    change.paths.logAdded(ps, ps);
  }
  change.keep({.redraws = false});
  return last + inserted;
}

void reversePathSegment(CamContext& cam, int ps) {
  if (ps < 1 || ps > cam.store.NumPathSegments) return;
  PathRow row = pathRow(cam.store, ps);
  if (row.type != kLine && !isArc(row.type)) return;
  std::swap(row.x0, row.x1);
  std::swap(row.y0, row.y1);
  if (isArc(row.type)) row.type = kClockwiseArc + kCounterClockwiseArc - row.type;
  Change change(cam.changes);
  change.paths.replace(ps, row);
  change.keep({.redraws = false});
}

// ---- Commands

// Fixed: the passes are those of the last Finishing Path Options; before it none is placed.
void mnuCAMPlace1PathSeg_Click(CamContext& cam) {
  cam.PlaceChain = 0;
  roundRows(cam.changes);
  arm(cam.context, PendingAction::FinishStart);
}

// The first call goes by the group that was placed last. It forgets that group, so that a second
// one takes what now ends the table; with a place to insert at that may be anybody's, and stays.
void mnuCAMUndoLastPlace_Click(CamContext& cam) {
  const Procedure here("frmMain.mnuCAMUndoLastPlace_Click()");
  DrawingStore& store = cam.store;
  Change change(cam.changes);
  const int group = std::exchange(store.lastplacedgroup, 0);
  const bool byCode = group < 1 && appendsPaths(cam);
  const bool takesBack = store.NumPathSegments >= 1 && (group >= 1 || byCode);
  if (takesBack) byCode ? deleteLastRun(cam) : deletePathGroup(cam.changes, group);
  change.keep({.undoMark = kRowsDeleted, .redraws = false});
  if (takesBack) showPlacedPaths(cam);
}

// Fixed: neither asked nor logged; scripts would stop at a question, and Undo leaves the rows gone.
void mnuClearAllPaths_Click(CamContext& cam) {
  Change change(cam.changes);
  change.paths.erase(1, cam.store.NumPathSegments, Entry::Unlogged);
  change.pathGroupNames().fill({});
  change.keep({.redraws = false});
  cam.context.redraw.redrawscreen();
}

void mnuRevPathDir_Click(CamContext& cam) {
  if (cam.store.NumPathSegments > 0) {
    arm(cam.context, PendingAction::ReversePath);
  } else {
    cam.context.state.setPendingaction(0);
  }
}

// ---- Descriptors

namespace {

constexpr Action<CamContext> kReversePathActions[] = {
    {{.action = PendingAction::ReversePath,
      .prompt = "Click near Path Segment to reverse.  ",
      .left = "turns the nearest path row round"},
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
