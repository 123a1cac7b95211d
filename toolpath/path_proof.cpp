// The path proof, step by step: what each group is judged by, how deep its rows are in, what its
// job leaves, and the rapids.
#include "toolpath/path_proof.h"

#include <algorithm>
#include <limits>

#include "core/drawing_store.h"
#include "toolpath/entry_moves.h"
#include "toolpath/plunge_findings.h"
#include "toolpath/proof_groups.h"
#include "toolpath/rapid_findings.h"
#include "toolpath/region_offset.h"
#include "toolpath/row_depth.h"
#include "toolpath/row_shapes.h"
#include "toolpath/swept_floor.h"

namespace tess {
namespace {

constexpr double kDepthLimitInch = 0.0001;
constexpr double kDepthLimitMm = 0.0025;
constexpr double kShareLimit = 0.001;
// The walls count so much nearer to what a tool could reach: rounding then leaves no slivers.
constexpr double kWallsNearer = 0.00002;

// ---- Gouges

bool isCycle(const DrawingStore& store, int ps) {
  return store.pstype[ps] >= kFirstCycle;
}

// Rows of a group, all against the same walls.
class GroupDepth {
 public:
  GroupDepth(const DrawingStore& store, const ProofGroup& group, bool turned, PathProof& proof)
      : store_(store),
        group_(group),
        turned_(turned),
        proof_(proof),
        search_(group.region, group.freeSpace()),
        meant_(group, radiusOfRow(store, group.rows.front(), group), proof.limits.depth),
        floor_(floorOf(store, group)) {}

  void judge(const Breathing& breathing) {
    for (const int ps : group_.rows) {
      breathe(breathing);
      if (!isJudged(ps)) {
        if (isCycle(store_, ps) || isFeedRow(store_, ps)) proof_.unjudged.push_back(ps);
      } else if (group_.hasWalls() && isFeedRow(store_, ps)) {
        if (store_.psz[ps] == floor_) measureOvercut(ps);
        if (shapes_.add(store_, ps)) judgeRow(ps);
      }
    }
  }

  // The moves that are in deeper than the limit.
  const std::vector<SweptCurve>& tooDeep() const { return tooDeep_; }

  const std::vector<OvercutFinding>& overcuts() const { return meant_.findings(); }

 private:
  bool isJudged(int ps) const {
    if (isCycle(store_, ps) || group_.kind == JobKind::None) return false;
    if (!isFeedRow(store_, ps)) return true;
    return turned_ || store_.psz[ps] < 0;
  }

  void measureOvercut(int ps) {
    if (group_.overcuts.empty()) return;
    const double radius = radiusOfRow(store_, ps, group_);
    for (const Curve& move : feedCurves(store_, ps, group_.kind)) meant_.measure(move, radius);
  }

  void judgeRow(int ps) {
    const double radius = radiusOfRow(store_, ps, group_);
    for (const Curve& move : feedCurves(store_, ps, group_.kind)) {
      const auto found = search_.deepest(move, radius, proof_.gouge.depth);
      if (!found) continue;
      const bool isIn = found->depth > proof_.limits.depth;
      if (isIn && meant_.accepts(move, radius)) continue;
      if (isIn) tooDeep_.push_back({move, radius});
      if (!(found->depth > proof_.gouge.depth)) continue;
      proof_.gouge = {found->depth, ps, group_.group, found->at.x, found->at.y};
    }
  }

  const DrawingStore& store_;
  const ProofGroup& group_;
  bool turned_;  // depths say nothing
  PathProof& proof_;
  DepthSearch search_;
  MeantDrops meant_;
  float floor_;
  RowShapes shapes_;
  std::vector<SweptCurve> tooDeep_;
};

// ---- What is left

MissedFinding missedBy(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                       const ProofGroup& job, const Breathing& breathing) {
  const float floor = floorOf(store, job);
  std::vector<SweptCurve> swept = sweptAt(store, groups, floor);
  const auto missedAt = [&](double distance) {
    const RegionOffset centers = offsetRegion(job.region, distance + kWallsNearer, breathing);
    return missedArea(centers.region, job.toolRadius, swept, breathing);
  };
  MissedFinding found{.group = job.group, .atClearance = {}, .atWall = {}};
  const std::vector<SweptCurve> byTabs = leftByTabsAt(store, groups, floor);
  if (!byTabs.empty()) {
    const double withTabs = missedAt(job.toolRadius).area;
    swept.insert(swept.end(), byTabs.begin(), byTabs.end());
    found.leftByTabs = std::max(0.0, withTabs - missedAt(job.toolRadius).area);
  }
  found.atClearance = missedAt(job.distance);
  found.atWall = job.distance > job.toolRadius ? missedAt(job.toolRadius) : found.atClearance;
  return found;
}

bool clears(const ProofGroup& group) {
  return group.kind == JobKind::Clearing && group.isClosed && group.hasWalls() &&
         group.toolRadius > 0;
}

}  // namespace

ProofLimits proofLimits(const DrawingStore& store) {
  return {isMetric(store) ? kDepthLimitMm : kDepthLimitInch, kShareLimit};
}

double PathProof::share() const {
  double largest = 0;
  for (const MissedFinding& job : missed) largest = std::max(largest, job.atClearance.share());
  return largest;
}

bool PathProof::isBeyondLimits() const {
  return isCancelled || gouge.depth > limits.depth || share() > limits.share || !rapids.empty() ||
         (forbidsPlunges && !plunges.empty());
}

PathProof provePaths(const DrawingStore& store, const PathJobs& jobs, const ProofMotions& motions,
                     const Breathing& breathing) {
  PathProof proof;
  proof.limits = proofLimits(store);
  const std::vector<ProofGroup> groups = proofGroups(store, jobs, breathing);
  const bool turned = isTurned(store, groups);
  for (const ProofGroup& group : groups) {
    proof.jobs.push_back({group.group, group.kind, group.byRecord, group.toolRadius,
                          radiusOfRow(store, group.rows.front(), group)});
    GroupDepth depth(store, group, turned, proof);
    depth.judge(breathing);
    proof.overcuts.insert(proof.overcuts.end(), depth.overcuts().begin(), depth.overcuts().end());
    if (group.isClosed) addStripsInPart(group.region, depth.tooDeep(), proof.tooDeep, breathing);
    if (clears(group)) proof.missed.push_back(missedBy(store, groups, group, breathing));
  }
  proof.tabs = findTabs(store, groups);
  const std::vector<ToldMove> moves = toldMoves(turned ? motions.lathe : motions.mill);
  proof.rapids = findRapids(store, groups, moves, proof.unjudged, breathing);
  proof.plunges = findPlunges(store, groups, moves, proof.unjudged, breathing);
  proof.forbidsPlunges = wantsEntries(store);
  const std::vector<Engagement> engagements = groupEngagements(store, groups, breathing);
  for (std::size_t k = 0; k < groups.size(); ++k) proof.jobs[k].engagement = engagements[k];
  std::sort(proof.unjudged.begin(), proof.unjudged.end());
  return proof;
}

}  // namespace tess
