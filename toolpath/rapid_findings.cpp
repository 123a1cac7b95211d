// Rapids through what is there. The moves are those of the program's own generator.
#include "toolpath/rapid_findings.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

#include "core/drawing_store.h"
#include "display/view_transform.h"
#include "toolpath/cleared_ground.h"
#include "toolpath/entry_moves.h"
#include "toolpath/row_depth.h"

namespace tess {
namespace {

// A rapid may be so much nearer to a wall, or leave so much to go through, by rounding.
constexpr double kRounding = 2e-5;
constexpr double kHairOfMaterial = 1e-4;
// Stretches that all rapids together may look at; there are programs of nothing else.
constexpr int kMaxEffort = 4000000;

PlanePoint flat(ToolPlace place) {
  return {place.x, place.y};
}

// A rapid as the generator tells it.
struct Rapid {
  int row = 0;
  MoveReason reason = MoveReason::Row;
  ToolPlace from, to;
  Curve way() const { return lineCurve(flat(from), flat(to)); }
};

// Of a lathe: what rows before a rapid have cut. A turning tool comes from outside and takes what
// lies above its way; one that works inside comes from the axis and takes what lies below.
class TurnedBefore {
 public:
  TurnedBefore(const DrawingStore& store, const std::vector<ProofGroup>& groups)
      : stock_(stockRectangle(store)), top_(store.partdimy) {
    for (const ProofGroup& group : groups) {
      const double side = group.isInside ? -1 : 1;
      for (const int ps : group.rows) {
        for (const Curve& curve : feedCurves(store, ps, JobKind::Lathe)) {
          cuts_.push_back({ps, side, curve});
          noteHole(group, std::min(curve.start.y, curve.end.y));
        }
      }
    }
  }

  // Where a rapid of the group is in the stock; the places that could tell are the ends of the cuts
  // beside it, its own, and those between.
  std::optional<PlanePoint> untaken(const Rapid& rapid, const ProofGroup& group,
                                    int& effort) const {
    const Curve way = rapid.way();
    const std::vector<double> places = placesAlong(rapid, way);
    for (const double share : places) {
      const PlanePoint at = pointAt(way, share);
      effort += static_cast<int>(cuts_.size());
      if (isInBar(at) && !isInHole(at, group) && !isTurned(at, rapid.row)) return at;
    }
    return std::nullopt;
  }

 private:
  struct Cut {
    int row;
    double side;  // -1: from the axis
    Curve curve;
    double low() const { return std::min(curve.start.x, curve.end.x); }
    double high() const { return std::max(curve.start.x, curve.end.x); }
    // How near to the other side it comes beside a place.
    double deepestAt(double x) const {
      const double start = side * curve.start.y;
      const double end = side * curve.end.y;
      const bool upright = high() - low() <= kHairOfMaterial;
      if (upright) return std::min(start, end);
      double deepest = std::max(start, end);
      const double within = std::clamp(x, low(), high());
      for (const double share : sharesOnLine(curve, {within, 0}, {0, 1})) {
        deepest = std::min(deepest, side * pointAt(curve, share).y);
      }
      return deepest;
    }
  };

  void noteHole(const ProofGroup& group, double height) {
    if (!group.isInside) return;
    const auto [at, isNew] = holes_.try_emplace(group.group, height);
    if (!isNew) at->second = std::min(at->second, height);
  }

  // A tool that works inside needs a hole to begin with, as wide as its lowest cut.
  bool isInHole(PlanePoint at, const ProofGroup& group) const {
    const auto hole = holes_.find(group.group);
    return hole != holes_.end() && at.y <= hole->second + kHairOfMaterial;
  }

  // The bar as it comes, from end to end.
  bool isInBar(PlanePoint at) const {
    const bool beside =
        at.x <= stock_.left + kHairOfMaterial || at.x >= stock_.right - kHairOfMaterial;
    return !beside && at.y < top_ - kHairOfMaterial;
  }

  std::vector<double> placesAlong(const Rapid& rapid, const Curve& way) const {
    std::vector<double> shares{0, 1};
    const double run = way.end.x - way.start.x;
    for (const Cut& cut : cuts_) {
      if (run == 0 || cut.row >= rapid.row) continue;
      for (const double x : {cut.low(), cut.high()}) {
        const double share = (x - way.start.x) / run;
        if (share > 0 && share < 1) shares.push_back(share);
      }
    }
    std::sort(shares.begin(), shares.end());
    const std::size_t ends = shares.size();
    for (std::size_t k = 0; k + 1 < ends; ++k) shares.push_back((shares[k] + shares[k + 1]) / 2);
    return shares;
  }

  // True where a cut of a row before passes at, or beyond, the place.
  bool isTurned(PlanePoint at, int row) const {
    return std::any_of(cuts_.begin(), cuts_.end(), [&](const Cut& cut) {
      if (cut.row >= row) return false;
      if (at.x < cut.low() - kHairOfMaterial || at.x > cut.high() + kHairOfMaterial) return false;
      return cut.deepestAt(at.x) <= cut.side * at.y + kHairOfMaterial;
    });
  }

  WorldRect stock_;
  double top_;
  std::vector<Cut> cuts_;
  std::map<int, double> holes_;  // by groups
};

// ---- Findings

// A tool that starts in a hole comes down there at rapid speed after its change. Where the setup
// asks for no entries holes are no matter, as before.
CycleCuts cyclesFor(const DrawingStore& store) {
  return wantsEntries(store) ? CycleCuts::Holes : CycleCuts::Nothing;
}

class RapidSearch {
 public:
  RapidSearch(const DrawingStore& store, const std::vector<ProofGroup>& groups,
              std::vector<int>& unjudged)
      : store_(store),
        groups_(groups),
        unjudged_(unjudged),
        taken_(groundCuts(store, groups, cyclesFor(store))),
        turned_(store, groups),
        groupOfRow_(static_cast<std::size_t>(store.NumPathSegments), -1) {
    for (std::size_t k = 0; k < groups.size(); ++k) {
      for (const int ps : groups[k].rows) {
        groupOfRow_[static_cast<std::size_t>(ps) - 1] = static_cast<int>(k);
      }
      searches_.emplace_back(groups[k].region, groups[k].freeSpace());
    }
  }

  // Those of a lathe by the bar.
  void judge(const Rapid& rapid, bool isLathe) {
    if (rapid.row == 0) return;
    const int at = groupOfRow_[static_cast<std::size_t>(rapid.row) - 1];
    const ProofGroup& group = groups_[static_cast<std::size_t>(at)];
    if (!isLathe && (group.kind == JobKind::None || !goesThroughMaterialLevels(rapid))) return;
    if (effort_ > kMaxEffort) {
      unjudged_.push_back(rapid.row);
      return;
    }
    DepthSearch& search = searches_[static_cast<std::size_t>(at)];
    if (const auto place =
            isLathe ? turnedInto(rapid, group, search) : findingOf(rapid, group, search)) {
      findings.push_back({rapid.row, group.group, place->x, place->y});
    }
  }

  std::vector<RapidFinding> findings;

 private:
  // Below Z 0, where the stock is; at Z 0 a move across grazes it.
  bool goesThroughMaterialLevels(const Rapid& rapid) const {
    if (rapid.reason == MoveReason::Lift) return false;
    if (rapid.reason == MoveReason::Travel) {
      return rapid.to.z <= 0 && store_.psz[rapid.row] < 0;
    }
    return rapid.to.z < 0;
  }

  std::optional<PlanePoint> findingOf(const Rapid& rapid, const ProofGroup& group,
                                      DepthSearch& search) {
    if (rapid.reason == MoveReason::Travel) return flat(rapid.to);
    const double radius = radiusOfRow(store_, rapid.row, group);
    if (const auto wall = wallInTheWay(rapid, group, search)) return wall;
    return taken_.untaken({rapid.way(), radius}, rapid.to.z, rapid.row, effort_);
  }

  std::optional<PlanePoint> wallInTheWay(const Rapid& rapid, const ProofGroup& group,
                                         DepthSearch& search) const {
    if (!group.hasWalls()) return std::nullopt;
    const auto depth =
        search.deepest(rapid.way(), radiusOfRow(store_, rapid.row, group), kRounding);
    return depth && depth->depth > kRounding ? std::optional(depth->at) : std::nullopt;
  }

  // Behind the last row the tool leaves what that row has cut.
  std::optional<PlanePoint> turnedInto(Rapid rapid, const ProofGroup& group, DepthSearch& search) {
    if (group.kind == JobKind::Lathe) {
      if (const auto wall = wallInTheWay(rapid, group, search)) return wall;
    }
    const bool leaves = rapid.reason == MoveReason::Lift || rapid.reason == MoveReason::Travel;
    if (leaves && rapid.row == store_.NumPathSegments) ++rapid.row;
    return turned_.untaken(rapid, group, effort_);
  }

  const DrawingStore& store_;
  const std::vector<ProofGroup>& groups_;
  std::vector<int>& unjudged_;
  ClearedGround taken_;
  TurnedBefore turned_;
  std::vector<int> groupOfRow_;  // places in groups_, by rows from 0
  std::vector<DepthSearch> searches_;
  int effort_ = 0;
};

}  // namespace

std::vector<RapidFinding> findRapids(const DrawingStore& store,
                                     const std::vector<ProofGroup>& groups,
                                     const std::vector<ToldMove>& moves, std::vector<int>& unjudged,
                                     const Breathing& breathing) {
  RapidSearch search(store, groups, unjudged);
  const bool isLathe = isTurned(store, groups);
  for (const ToldMove& move : moves) {
    breathe(breathing);
    if (move.rapid) search.judge({move.row, *move.rapid, move.from, move.to}, isLathe);
  }
  std::stable_sort(search.findings.begin(), search.findings.end(),
                   [](const RapidFinding& a, const RapidFinding& b) { return a.row < b.row; });
  return std::move(search.findings);
}

}  // namespace tess
