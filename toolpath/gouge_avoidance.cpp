// Gouge avoidance: folds of a chain that crosses itself are cut off at their roots.
//
// The rule is that each pass tries all pairs of rows in their order and cuts at the first crossing.
// Here a pass asks a CrossingIndex for the rows worth trying, and begins where the last one cut:
// rows before that place crossed nothing, and since then only the two rows that were cut are others
// than before. Rows keep one number in the index from the first pass to the last, deleted ones too.
#include "toolpath/gouge_avoidance.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "core/drawing_store.h"
#include "drafting/change.h"
#include "drafting/pending_actions.h"
#include "geometry/crossing_index.h"
#include "geometry/float_intersections.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_boxes.h"
#include "geometry/row_entity.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_placement.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

constexpr int kMaxPasses = 11;
// Fixed: the closing distance knows neither unit nor tolerance; chains would close otherwise.
constexpr double kClosingDistance = 0.001;
constexpr double kAllGroups = 0;

Entity chainEntity(const DrawingStore& store, ChainKind kind, int row) {
  return kind == ChainKind::Path ? pathEntity(store, row) : segmentEntity(store, row);
}

// Row `root` then ends at `p` and row `back` starts there; what stood between them is gone. Arcs
// keep their centre and kind and so are merely shorter.
template <class Row>
void cutRows(RowChanges<Row>& rows, int root, int back, Point p) {
  Row ending = rows.row(root);
  ending.x1 = p.x;
  ending.y1 = p.y;
  rows.replace(root, ending, Entry::Unlogged);
  Row starting = rows.row(back);
  starting.x0 = p.x;
  starting.y0 = p.y;
  rows.replace(back, starting, Entry::Unlogged);
  rows.erase(root + 1, back - 1, Entry::Unlogged);
}

int lastRowOf(const DrawingStore& store, ChainKind kind, int first) {
  if (kind == ChainKind::Segs) return store.NumSegments;
  return first > store.NumPathSegments ? 0 : lastOfPathGroup(store, first);
}

std::vector<Entity> chainEntities(const DrawingStore& store, ChainKind kind, int first) {
  const int last = lastRowOf(store, kind, first);
  return kind == ChainKind::Path ? pathEntities(store, first, last)
                                 : segmentEntities(store, first, last);
}

Point nearer(const PointPair& points, Point to) {
  return distance(points.first, to) <= distance(points.second, to) ? points.first : points.second;
}

// Where a row crosses a later one in its midst. Of two crossings the one that comes first on the
// way is meant, and where that is an end, the other does not count either.
std::optional<Point> trueCrossing(const Entity& row, const Entity& later, float tolerence) {
  const Crossing crossing = intersectEntities(row, later, tolerence);
  if (!crossing) return std::nullopt;
  const Point at = !crossing.second  ? crossing.at.first
                   : !crossing.first ? crossing.at.second
                                     : nearer(crossing.at, row.start);
  const Point ends[] = {later.start, row.start, row.end, later.end};
  const bool isEnd = std::any_of(std::begin(ends), std::end(ends),
                                 [&](Point end) { return samePoint(at, end, tolerence); });
  return isEnd ? std::nullopt : std::optional(at);
}

// A chain while its folds are cut off. Rows stand at positions from 0 along the chain.
class FoldCutter {
 public:
  FoldCutter(const DrawingStore& store, Change& change, int first, ChainKind kind)
      : store_(store),
        change_(change),
        first_(first),
        kind_(kind),
        rows_(chainEntities(store, kind, first)),
        index_(rows_, store.cfg_tolerance) {
    standing_.reserve(rows_.size());
    for (std::size_t k = 0; k < rows_.size(); ++k) standing_.push_back(static_cast<int>(k) + 1);
    stands_.assign(rows_.size() + 1, 1);
  }

  // One pass: cuts at the first crossing. False when there is none.
  bool cutFirstFold() {
    std::optional<Fold> fold = firstFoldBeforeCut();
    if (!fold) fold = firstFoldFromCut();
    if (fold) cut(*fold);
    return fold.has_value();
  }

 private:
  using Position = std::size_t;
  struct Fold {
    Position root = 0, back = 0;  // what stands between them goes
    Point at;
  };

  const Entity& row(Position at) const {
    return rows_[static_cast<std::size_t>(standing_[at]) - 1];
  }

  std::optional<Fold> foldBetween(Position at, Position later) const {
    if (later < at + 2) return std::nullopt;
    const auto point = trueCrossing(row(at), row(later), store_.cfg_tolerance);
    if (!point || isClosing(at, later, *point)) return std::nullopt;
    return Fold{at, later, *point};
  }

  // The point where a closed chain comes back to its start is none to cut at.
  bool isClosing(Position at, Position later, Point point) const {
    const bool endsMayMeet = kind_ == ChainKind::Segs || (at == 0 && later == standing_.size() - 1);
    return endsMayMeet && pointsWithin(point, row(later).end, kClosingDistance) &&
           pointsWithin(point, row(at).start, kClosingDistance);
  }

  // Among the rows before the last cut: none crosses another but perhaps the two that were cut.
  std::optional<Fold> firstFoldBeforeCut() {
    if (cut_ == 0) return std::nullopt;
    std::vector<int> before;
    for (const Position changed : {cut_, cut_ + 1}) {
      collectCandidates(standing_[changed], /*after=*/0);
      std::copy_if(found_.begin(), found_.end(), std::back_inserter(before),
                   [&](int number) { return number < standing_[cut_]; });
    }
    std::sort(before.begin(), before.end());
    before.erase(std::unique(before.begin(), before.end()), before.end());
    for (const int number : before) {
      const Position at = positionOf(number);
      for (const Position changed : {cut_, cut_ + 1})
        if (auto fold = foldBetween(at, changed)) return fold;
    }
    return std::nullopt;
  }

  std::optional<Fold> firstFoldFromCut() {
    for (Position at = cut_; at + 2 < standing_.size(); ++at) {
      collectCandidates(standing_[at], standing_[at + 1]);
      for (const int number : found_)
        if (auto fold = foldBetween(at, positionOf(number))) return fold;
    }
    return std::nullopt;
  }

  // Leaves in found_ the standing rows above `after` that may cross row `number`, ascending.
  void collectCandidates(int number, int after) {
    if (isCut(number)) {
      index_.candidates(rows_[static_cast<std::size_t>(number) - 1], after, found_);
    } else {
      index_.candidates(number, after, found_);
    }
    addCutRows(after);
    std::erase_if(
        found_, [&](int row) { return row == number || !stands_[static_cast<std::size_t>(row)]; });
  }

  bool isCut(int number) const {
    return std::binary_search(cutRows_.begin(), cutRows_.end(), number);
  }

  // The index knows cut rows as they were, so these are always tried.
  void addCutRows(int after) {
    const auto from = std::upper_bound(cutRows_.begin(), cutRows_.end(), after);
    if (from == cutRows_.end()) return;
    found_.insert(found_.end(), from, cutRows_.end());
    std::sort(found_.begin(), found_.end());
    found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
  }

  Position positionOf(int number) const {
    const auto at = std::lower_bound(standing_.begin(), standing_.end(), number);
    return static_cast<Position>(at - standing_.begin());
  }

  void cut(const Fold& fold) {
    const int root = first_ + static_cast<int>(fold.root);
    const int back = first_ + static_cast<int>(fold.back);
    kind_ == ChainKind::Path ? cutRows(change_.paths, root, back, fold.at)
                             : cutRows(change_.segments, root, back, fold.at);
    noteCut(standing_[fold.root], chainEntity(store_, kind_, root));
    noteCut(standing_[fold.back], chainEntity(store_, kind_, root + 1));
    dropStanding(fold.root + 1, fold.back);
    cut_ = fold.root;
  }

  void noteCut(int number, const Entity& shortened) {
    rows_[static_cast<std::size_t>(number) - 1] = shortened;
    const auto place = std::lower_bound(cutRows_.begin(), cutRows_.end(), number);
    if (place == cutRows_.end() || *place != number) cutRows_.insert(place, number);
  }

  void dropStanding(Position from, Position to) {
    const auto begin = standing_.begin() + static_cast<std::ptrdiff_t>(from);
    const auto end = standing_.begin() + static_cast<std::ptrdiff_t>(to);
    for (auto gone = begin; gone != end; ++gone) stands_[static_cast<std::size_t>(*gone)] = 0;
    standing_.erase(begin, end);
  }

  const DrawingStore& store_;
  Change& change_;
  int first_;
  ChainKind kind_;
  std::vector<Entity> rows_;  // by number; the rows of the chain are numbered from 1
  CrossingIndex index_;       // of the rows as they were at first
  std::vector<int> standing_;
  std::vector<char> stands_;  // by number
  std::vector<int> cutRows_;  // by number, ascending
  Position cut_ = 0;          // where the last pass cut: this row and the next were shortened
  std::vector<int> found_;
};

void reportTooManyFolds(CamContext& cam) {
  cam.context.session.host.prompts.showMessage(
      {.text = "Gouge Avoidance has completed " + std::to_string(kMaxPasses) +
               " iterations without completing!  Please check the tool path output.",
       .title = "Gouge Detection",
       .icon = MessageIcon::Error});
}

// At the click: the group of the path row nearest to it.
void clickGougeGroup(CamContext& cam) {
  const PointerRecord& pointer = cam.context.pointer;
  const int ps = nearestPathSeg(cam.store, {pointer.MouseX, pointer.MouseY}, kAllGroups);
  if (ps < 1) return;
  removeSelfIntersections(cam, firstOfPathGroup(cam.store, ps), ChainKind::Path);
  cam.context.redraw.redrawscreen();
}

}  // namespace

void removeSelfIntersections(CamContext& cam, int first, ChainKind kind) {
  Change change(cam.changes, Step::Continued);
  FoldCutter chain(cam.store, change, first, kind);
  int passCount = 0;
  while (passCount < kMaxPasses && chain.cutFirstFold()) ++passCount;
  // Fixed: eleven folds end clean and are told of all the same; operators check such paths.
  if (passCount == kMaxPasses) reportTooManyFolds(cam);
  change.keep({.redraws = false});
}

void miGougeAvoidance_Click(CamContext& cam) {
  if (cam.store.NumPathSegments < 1) return;
  const int nextGroup = nextPathGroup(cam.store);
  if (nextGroup > 2) {
    arm(cam.context, PendingAction::GougeGroup);
  } else if (nextGroup == 2) {
    removeSelfIntersections(cam, 1, ChainKind::Path);
    cam.context.redraw.redrawscreen();
  }
}

// ---- Descriptors

namespace {

constexpr Action<CamContext> kGougeAvoidanceActions[] = {
    {{.action = PendingAction::GougeGroup,
      .prompt = "Click near the desired Path Group.  ",
      .left = "takes the nearest path group"},
     clickGougeGroup},
};

}  // namespace

constexpr CamCommand kGougeAvoidanceCommand{
    .info = {.tool = "miGougeAvoidance",
             .caption = "Apply &Gouge Avoidance",
             .menu = {"miCAM", 310}},
    .run = miGougeAvoidance_Click,
    .actions = kGougeAvoidanceActions,
};

}  // namespace tess
