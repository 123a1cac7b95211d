// The parallel spiral: rings, their clean-up, and the levels below them.
#include "toolpath/parallel_spiral.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/pocketing_choices.h"
#include "core/rounding.h"
#include "display/pointer.h"
#include "drafting/change.h"
#include "drafting/pending_actions.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"
#include "toolpath/gouge_avoidance.h"
#include "toolpath/job_walls.h"
#include "toolpath/level_check.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_placement.h"
#include "toolpath/pocket_side.h"
#include "toolpath/row_barrier.h"
#include "toolpath/true_pocket.h"

namespace tess {
namespace {

constexpr char kCommand[] = "Rough Cut Pocket";

constexpr double kShortestLine = 0.67;  // in tolerances
constexpr float kSmallestArc = 0.01F;   // radius of an arc between two ends that are one point

// ---- Clean-up

using RowMarks = std::vector<bool>;  // by row number

RowMarks noneMarked(const DrawingStore& store) {
  return RowMarks(static_cast<std::size_t>(store.NumPathSegments) + 1);
}

int markedUpTo(const RowMarks& marks, int row) {
  return static_cast<int>(std::count(marks.begin(), marks.begin() + row + 1, true));
}

void dropRows(Changes& changes, int first, int last) {
  Change change(changes, Step::Continued);
  change.paths.erase(first, last, Entry::Unlogged);
  change.keep({.redraws = false});
}

void dropMarked(Changes& changes, const RowMarks& marks, FollowedRows followed) {
  for (PlacedRows& rows : followed) {
    rows.first -= markedUpTo(marks, rows.first - 1);
    rows.last -= markedUpTo(marks, rows.last);
  }
  Change change(changes, Step::Continued);
  change.paths.eraseWhere([&](int ps) { return marks[static_cast<std::size_t>(ps)]; },
                          Entry::Unlogged);
  change.keep({.redraws = false});
}

// An arc between two ends that are one point and with a real radius is a full circle.
bool isTooShort(const Entity& row, float tolerence) {
  const float length = distance(row.start, row.end);
  if (row.type == kLine) return length <= kShortestLine * tolerence;
  return isArc(row.type) && length <= tolerence && radiusOf(row) < kSmallestArc;
}

bool isThereAndBack(const Entity& there, const Entity& back, float tolerence) {
  return samePoint(there.end, back.start, tolerence) && samePoint(there.start, back.end, tolerence);
}

bool isVerifiedWall(int segattr) {
  return isVerified(segattr);
}

bool meetsAny(const std::vector<Entity>& rows, RowBarrier& walls) {
  walls.makeReadyFor(rows);
  return std::any_of(rows.begin(), rows.end(), [&](const Entity& row) { return walls.meets(row); });
}

// ---- The rings

// The tool's entry of the tool chest says the distance of a ring while the rings are made.
// Fixed: the radius is borrowed, not passed; rings and leads that ask the chest meanwhile go by it.
class BorrowedRadius {
 public:
  explicit BorrowedRadius(DrawingStore& store)
      : store_(store), tool_(store.selectedtool), radius_(store.toolradius[tool_]) {}
  ~BorrowedRadius() { store_.toolradius[tool_] = radius_; }
  BorrowedRadius(const BorrowedRadius&) = delete;
  BorrowedRadius& operator=(const BorrowedRadius&) = delete;

  float own() const { return radius_; }
  void set(float inset) { store_.toolradius[tool_] = inset; }

 private:
  DrawingStore& store_;
  int tool_;
  float radius_;
};

// The setting that a finish path on the wall changes for what comes after, unless it fails.
class KeptCuttingMode {
 public:
  explicit KeptCuttingMode(DrawingStore& store) : store_(store), before_(store.cfg_cutting_mode) {}
  ~KeptCuttingMode() {
    if (!kept_) store_.cfg_cutting_mode = before_;
  }
  KeptCuttingMode(const KeptCuttingMode&) = delete;
  KeptCuttingMode& operator=(const KeptCuttingMode&) = delete;

  void keep() { kept_ = true; }

 private:
  DrawingStore& store_;
  Int16 before_;
  bool kept_ = false;
};

// Where the first ring lies, how near to the wall roughing comes, and the way between two rings.
struct RingRange {
  float first = 0;
  float nearest = 0;
  double step = 0;
};

double ringStep(const DrawingStore& store) {
  if (stepsByDistance(store)) return store.cfg_tool_spacing_distance;
  return 2.0 * store.toolradius[store.selectedtool] * store.cfg_tool_spacing / 100;
}

RingRange ringRange(const CamContext& cam) {
  const DrawingStore& store = cam.store;
  const double halfWidth = std::min(cam.PocketXDim, cam.PocketYDim) / 2.0;
  return {narrow(halfWidth - store.cfg_pocket_dist_from_center),
          store.cfg_min_rough_clearance + store.toolradius[store.selectedtool], ringStep(store)};
}

class Spiral {
 public:
  Spiral(CamContext& cam, int sg)
      : cam_(cam), store_(cam.store), sg_(sg), walls_(cam.store, isVerifiedWall) {
    const int first = pathInsertIndex(store_, cam.pathInsertMode, cam.pathInsertGroup);
    all() = {first, first - 1};
    inside_ = pocketSideOf(store_, startOfRow(), endOfRow());
  }

  const PlacedRows& rows() const { return followed_[1]; }

  void cutRings(const RingRange& range) {
    BorrowedRadius tool(store_);
    float inset = range.first;
    bool done = false;
    while (inset >= tool.own() && !done) {
      tool.set(inset);
      cutRing();
      done = inset <= tool.own();
      if (range.nearest < inset) {
        const float next = std::max(narrow(inset - range.step), range.nearest);
        if (!(next < inset)) return;  // with a step of nothing there is one ring
        inset = next;
      } else if (store_.cfg_auto_place_finish_path) {
        // Fixed: the finish path on the wall leaves climb milling set; later commands cut so.
        store_.cfg_cutting_mode = choiceNumber(CuttingMode::Climb);
        inset = tool.own();
      } else {
        done = true;
      }
    }
  }

 private:
  PlacedRows& ring() { return followed_[0]; }
  PlacedRows& all() { return followed_[1]; }
  Point startOfRow() const { return {store_.x0[sg_], store_.y0[sg_]}; }
  Point endOfRow() const { return {store_.x1[sg_], store_.y1[sg_]}; }

  void cutRing() {
    placeRing();
    dropShortPathSegs(cam_.changes, followed_);
    dropBackTrackSegs(cam_.changes, followed_);
    if (store_.cfg_gouge_avoidance) cutFolds();
    if (meetsAny(pathEntities(store_, ring().first, ring().last), walls_)) dropRing();
  }

  // Rings are rows of their own among all rows of the spiral.
  void placeRing() {
    const int first = pathInsertIndex(store_, cam_.pathInsertMode, cam_.pathInsertGroup);
    const int rowsBefore = store_.NumPathSegments;
    offsetPathChain(cam_, ringRequest());
    const int placed = store_.NumPathSegments - rowsBefore;
    ring() = {first, first + placed - 1};
    all().last += placed;
  }

  OffsetRequest ringRequest() const {
    OffsetRequest request;
    request.sg = sg_;
    request.start = startOfRow();
    request.direction = endOfRow();
    if (runsAgainstMode()) std::swap(request.start, request.direction);
    request.click = {cam_.context.pointer.MouseX, cam_.context.pointer.MouseY};
    request.z = cam_.currentZ;
    // Fixed: the first level runs at the finishing feed, copies at the roughing one; programs do.
    request.feed = store_.cfg_finish_feedrate;
    request.pocketMode = true;
    return request;
  }

  bool runsAgainstMode() const {
    return (inside_ == Side::Right && cuttingMode(store_) == CuttingMode::Climb) ||
           (inside_ == Side::Left && cuttingMode(store_) == CuttingMode::Conventional);
  }

  void cutFolds() {
    if (ring().empty()) return;
    const int rowsBefore = store_.NumPathSegments;
    removeSelfIntersections(cam_, ring().first, ChainKind::Path);
    const int removed = rowsBefore - store_.NumPathSegments;
    ring().last -= removed;
    all().last -= removed;
  }

  void dropRing() {
    all().last -= ring().last - ring().first + 1;
    dropRows(cam_.changes, ring().first, ring().last);
  }

  CamContext& cam_;
  DrawingStore& store_;
  int sg_;
  Side inside_ = Side::On;
  RowBarrier walls_;
  std::array<PlacedRows, 2> followed_;
};

// ---- The command

int startingRow(const DrawingStore& store, int sg) {
  if (sg >= 1 && sg <= store.NumSegments) return sg;
  for (int row = 1; row <= store.NumSegments; ++row) {
    if (store.segattr[row] == kVerifiedRow) return row;
  }
  return 0;
}

// Fixed: a start depth at the floor is one level here, several with scan lines; programs differ.
float firstSpiralLevel(const CamContext& cam) {
  const DrawingStore& store = cam.store;
  const bool oneLevel = -std::abs(store.cfg_start_depth) <= cam.roughFloor;
  return oneLevel ? -std::abs(store.cfg_final_depth) : firstLevel(store, cam.roughFloor);
}

void reportNoPocket(CamContext& cam) {
  cam.context.session.host.prompts.showMessage({.text = "No Pocketing Segments have been selected.",
                                                .title = kCommand,
                                                .icon = MessageIcon::Warning});
}

Message tooBigQuestion(const CamContext& cam) {
  constexpr int kDecimals = 5;
  const DrawingStore& store = cam.store;
  return {.text =
              "The tool diameter or distance from center may be too big for the pocket selected."
              "\n\n        Tool Diameter  =  " +
              plainText(2 * store.toolradius[store.selectedtool]) +
              "\n         Pocket X-Dim  =  " + plainText(roundTo(cam.PocketXDim, kDecimals)) +
              "\n         Pocket Y-Dim  =  " + plainText(roundTo(cam.PocketYDim, kDecimals)) +
              "\n    Dist from Center  =  " + plainText(store.cfg_pocket_dist_from_center) +
              "\n\nDo you want to continue anyway ?",
          .title = "Tool Diameter",
          .icon = MessageIcon::Warning,
          .buttons = MessageButtons::YesNo};
}

// False when the pocket has no room for a ring and the operator goes no further.
bool agreesToRange(CamContext& cam, RingRange& range) {
  if (range.nearest <= range.first) return true;
  if (cam.context.session.host.prompts.showMessage(tooBigQuestion(cam)) != Answer::Yes)
    return false;
  range.first = range.nearest;
  return true;
}

// Rings that are dropped leave no rows, so the table would not end a run of millions.
bool ringsCanBeCounted(CamContext& cam, const RingRange& range) {
  constexpr double kMaxRings = std::numeric_limits<std::int16_t>::max();
  const double reach = static_cast<double>(range.first) - range.nearest;
  if (!(range.step > 0) || reach / range.step < kMaxRings) return true;
  cam.context.session.host.prompts.showMessage(
      {.text = "The Step Over Amount is " + plainText(narrow(range.step)) +
               ".  That is too small for the rings from " + plainText(range.first) + " to " +
               plainText(range.nearest) +
               ".\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.",
       .title = kCommand,
       .icon = MessageIcon::Warning});
  return false;
}

// False after the operator was told why not, or does not want to.
bool canCut(CamContext& cam, int start, RingRange& range) {
  if (start < 1) {
    reportNoPocket(cam);
    return false;
  }
  return canGoDown(cam, kCommand, cam.currentZ, cam.roughFloor) && ringsCanBeCounted(cam, range) &&
         agreesToRange(cam, range);
}

void cutSpiral(CamContext& cam, int sg, const RingRange& range) {
  const BusyPointer busy(cam.context.systemPointer);
  Change change(cam.changes, Step::PathDifference);
  Spiral spiral(cam, sg);
  spiral.cutRings(range);
  const PlacedRows rings = spiral.rows();
  const int others = cam.store.NumPathSegments - (rings.last - rings.first + 1);
  cam.currentZ = replicateLevels(cam, cam.currentZ, cam.roughFloor, others);
  if (cam.store.cfg_connect_pocketing_paths) connectPlacedRows(cam, rings, others);
  change.keep({.redraws = false});
}

}  // namespace

// Fixed: short rows go from the whole table, not the ring alone; programs of older paths lose them.
void dropShortPathSegs(Changes& changes, FollowedRows followed) {
  const DrawingStore& store = changes.store;
  RowMarks isShort = noneMarked(store);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    isShort[static_cast<std::size_t>(ps)] = isTooShort(pathEntity(store, ps), store.cfg_tolerance);
  }
  dropMarked(changes, isShort, followed);
}

// Fixed: a full circle of two arcs is such a pair and loses a half; pockets were cut without it.
void dropBackTrackSegs(Changes& changes, FollowedRows followed) {
  const DrawingStore& store = changes.store;
  RowMarks goesBack = noneMarked(store);
  const auto group = [&](int ps) { return ps < 1 ? 0 : groupRounded(store.pscode[ps]); };
  for (int ps = 1; ps < store.NumPathSegments; ++ps) {
    if (group(ps - 1) == group(ps) || group(ps) != group(ps + 1)) continue;
    goesBack[static_cast<std::size_t>(ps)] =
        isThereAndBack(pathEntity(store, ps), pathEntity(store, ps + 1), store.cfg_tolerance);
  }
  dropMarked(changes, goesBack, followed);
}

void dropCrossingPass(Changes& changes, int first) {
  const DrawingStore& store = changes.store;
  RowBarrier walls(store, isVerifiedWall);
  const int last = store.NumPathSegments;
  if (meetsAny(pathEntities(store, first, last), walls)) dropRows(changes, first, last);
}

void parallelSpiralPocket(CamContext& cam, int sg) {
  const Procedure here("frmMain.parallelSpiralPocket(sg)");
  Change change(cam.changes);
  cam.currentZ = firstSpiralLevel(cam);
  cam.store.currentpathgroup = nextPathGroup(cam.store);
  const int start = startingRow(cam.store, sg);
  RingRange range = ringRange(cam);
  const bool cuts = canCut(cam, start, range);
  KeptCuttingMode mode(cam.store);
  if (cuts) cutSpiral(cam, start, range);
  if (!change.keep({.redraws = false})) return;
  mode.keep();
  if (!cuts) return;
  noteRoughing(cam);
  showPlacedPaths(cam);
}

void clickStartRoughing(CamContext& cam) {
  const PointerRecord& pointer = cam.context.pointer;
  if (cam.store.cfg_true_paths) {
    const int rowsBefore = cam.store.NumPathSegments;
    ringTruePocket(cam, {pointer.MouseX, pointer.MouseY});
    if (cam.store.NumPathSegments > rowsBefore) noteRoughing(cam);
    return;
  }
  parallelSpiralPocket(cam, nearestSelectedSeg(cam.store, {pointer.MouseX, pointer.MouseY}));
}

}  // namespace tess
