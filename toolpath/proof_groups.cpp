// What the rows of a group are judged by.
#include "toolpath/proof_groups.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <utility>

#include "core/drawing_store.h"
#include "core/turning_tools.h"
#include "geometry/row_entity.h"
#include "toolpath/connected_rows.h"
#include "toolpath/drilled_holes.h"

namespace tess {
namespace {

// ---- By record

Curve curveOf(const JobWall& wall) {
  if (wall.turn == 0) return lineCurve({wall.x0, wall.y0}, {wall.x1, wall.y1});
  return arcCurve({wall.x0, wall.y0}, {wall.x1, wall.y1}, {wall.xc, wall.yc}, wall.turn);
}

RegionLoop loopOf(std::vector<Curve> curves) {
  RegionLoop loop{.curves = std::move(curves), .sources = {}, .area = 0};
  loop.sources.resize(loop.curves.size());
  std::iota(loop.sources.begin(), loop.sources.end(), 0);
  loop.area = areaOf(loop.curves);
  return loop;
}

void judgeByRecord(ProofGroup& group, const PathJob& job) {
  group.kind = job.kind;
  group.byRecord = true;
  group.toolRadius = job.toolRadius;
  group.distance = job.distance;
  group.tabs = job.tabs;
  group.overcuts = job.overcuts;
  std::vector<RegionLoop> loops;
  for (const JobLoop& loop : job.loops) {
    std::vector<Curve> curves;
    for (const JobWall& wall : loop.walls) curves.push_back(curveOf(wall));
    if (!curves.empty()) loops.push_back(loopOf(std::move(curves)));
    group.isClosed = group.isClosed && loop.isClosed;
  }
  group.region = PocketRegion(std::move(loops), {.unbounded = job.isUnbounded});
}

// ---- By the rows

// How much of a way runs inside of a closed outline, outside, and on it.
struct Runs {
  double inside = 0, outside = 0, on = 0;
  double all() const { return inside + outside; }
};

class RunsAlong {
 public:
  explicit RunsAlong(const RegionLoop& loop) : region_({loop}, {}) {
    for (const Curve& wall : loop.curves) {
      const Box box = boxOf(wall);
      bounds_ = extended(extended(bounds_, {box.minX, box.minY}), {box.maxX, box.maxY});
    }
    bounds_ = grown(bounds_, kOnLine);
  }

  void add(const Curve& way, Runs& runs) {
    const double length = lengthOf(way);
    if (!overlaps(bounds_, boxOf(way))) {
      runs.outside += length;
      return;
    }
    runs.on += length * shareOn(way);
    double from = 0;
    for (const double to : crossings(way)) {
      const bool inside = region_.isFree(pointAt(way, (from + to) / 2));
      (inside ? runs.inside : runs.outside) += length * (to - from);
      from = to;
    }
  }

 private:
  static constexpr double kOnLine = 1e-4;  // this near a way runs on the outline
  static constexpr int kLooks = 8;         // along each way

  double shareOn(const Curve& way) const {
    int on = 0;
    for (int look = 0; look < kLooks; ++look) {
      const PlanePoint at = pointAt(way, (look + 0.5) / kLooks);
      if (region_.index().nearest(lineCurve(at, at), kOnLine)) ++on;
    }
    return static_cast<double>(on) / kLooks;
  }

  // The shares at which the way may cross the outline, and its end.
  const std::vector<double>& crossings(const Curve& way) {
    region_.index().candidates(way, 0, found_);
    shares_.clear();
    for (const int number : found_) {
      const Curve& wall = region_.walls()[static_cast<std::size_t>(number)];
      const Shares met = wall.isArc() ? sharesOnCircle(way, wall.center, wall.radius)
                                      : sharesOnLine(way, wall.start, wall.end - wall.start);
      for (const double share : met) shares_.push_back(share);
    }
    std::sort(shares_.begin(), shares_.end());
    shares_.push_back(1);
    return shares_;
  }

  PocketRegion region_;
  Box bounds_;
  std::vector<int> found_;
  std::vector<double> shares_;
};

// An outline and the side of it that is free.
struct Sided {
  const RegionLoop* outline;
  bool insideIsFree;
};

// Where the rows run on both sides, an outline is no wall for them: holes in the floor of a pocket
// are passed over on purpose.
std::optional<Sided> sideOf(const RegionLoop& outline, const Runs& runs) {
  constexpr double kOnEither = 0.1;
  if (std::min(runs.inside, runs.outside) >= kOnEither * runs.all()) return std::nullopt;
  return Sided{&outline, runs.inside > runs.outside};
}

// Of the outlines that the rows run inside of only the smallest holds them; the others lie round
// it.
PocketRegion regionBetween(const std::vector<Sided>& sides) {
  const RegionLoop* pocket = nullptr;
  std::vector<RegionLoop> loops;
  for (const Sided& side : sides) {
    if (!side.insideIsFree) loops.push_back(reversedLoop(*side.outline));
    const bool isSmaller = pocket == nullptr || side.outline->area < pocket->area;
    if (side.insideIsFree && isSmaller) pocket = side.outline;
  }
  if (pocket != nullptr) loops.push_back(*pocket);
  return PocketRegion(std::move(loops), {.unbounded = pocket == nullptr});
}

constexpr double kMostOfIt = 0.5;

double totalLength(const std::vector<Curve>& curves) {
  return std::accumulate(curves.begin(), curves.end(), 0.0,
                         [](double sum, const Curve& curve) { return sum + lengthOf(curve); });
}

void judgeByRows(ProofGroup& group, const DrawingStore& store,
                 const std::vector<RegionLoop>& outlines, const Breathing& breathing) {
  std::vector<Curve> ways;
  for (const int ps : group.rows) {
    for (const Curve& way : feedCurves(store, ps, JobKind::Contour)) ways.push_back(way);
  }
  if (ways.empty()) return;
  const double length = totalLength(ways);
  double on = 0;
  std::vector<Sided> sides;
  for (const RegionLoop& outline : outlines) {
    RunsAlong along(outline);
    Runs runs;
    for (const Curve& way : ways) {
      breathe(breathing);
      along.add(way, runs);
    }
    on += runs.on;
    if (runs.on > kMostOfIt * totalLength(outline.curves)) continue;  // engraved itself
    if (const auto side = sideOf(outline, runs)) sides.push_back(*side);
  }
  if (on > kMostOfIt * length) {
    group.kind = JobKind::OnTheLine;
  } else if (!sides.empty()) {
    group.kind = JobKind::Contour;
    group.region = regionBetween(sides);
  }
}

}  // namespace

FreeSpace ProofGroup::freeSpace() const {
  if (!isClosed) return FreeSpace::Unknown;
  if (kind != JobKind::Lathe) return FreeSpace::Inside;
  return isInside ? FreeSpace::NotAbove : FreeSpace::NotBelow;
}

std::vector<RegionLoop> closedOutlines(const DrawingStore& store) {
  std::vector<RegionLoop> outlines;
  for (const std::vector<int>& rows : connectedRows(store)) {
    const OutlineRegion region = regionOf(segmentEntities(store, rows), store.cfg_tolerance);
    if (region.fault) continue;
    for (const RegionLoop& loop : region.region.loops()) {
      outlines.push_back(loop.area >= 0 ? loop : reversedLoop(loop));
    }
  }
  return outlines;
}

std::vector<Curve> feedCurves(const DrawingStore& store, int ps, JobKind kind) {
  return feedCurves(pathRow(store, ps), kind);
}

std::vector<Curve> feedCurves(const PathRow& row, JobKind kind) {
  std::vector<Curve> curves;
  const bool feeds = (row.type == kLine || isArc(row.type)) && row.z != kLatheRapidZ;
  if (feeds && (row.z < 0 || kind == JobKind::Lathe)) {
    appendCurves({row.type, {row.x0, row.y0}, {row.x1, row.y1}, {row.xc, row.yc}}, curves);
  }
  return curves;
}

double radiusOfRow(const DrawingStore& store, int ps, const ProofGroup& group) {
  if (group.kind == JobKind::Lathe) return 0;
  const int tool = toolIndex(withoutSelection(store.pscode[ps]));
  const double radius = tool < 0 ? 0 : static_cast<double>(store.toolradius[tool]);
  return radius > 0 ? radius : group.toolRadius;
}

std::vector<ProofGroup> proofGroups(const DrawingStore& store, const PathJobs& jobs,
                                    const Breathing& breathing) {
  std::map<int, ProofGroup> groups;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const int number = groupCutOff(store.pscode[ps]);
    ProofGroup& group = groups[number];
    group.group = number;
    group.rows.push_back(ps);
  }
  for (auto& [number, group] : groups) {
    group.isInside = worksInside(store, store.pscode[group.rows.front()]);
  }
  for (const PathJob* const job : jobs.inForce(store)) judgeByRecord(groups[job->group], *job);
  std::optional<std::vector<RegionLoop>> outlines;
  std::vector<ProofGroup> all;
  for (auto& [number, group] : groups) {
    if (!group.byRecord) {
      if (!outlines) outlines = closedOutlines(store);
      judgeByRows(group, store, *outlines, breathing);
    }
    all.push_back(std::move(group));
  }
  return all;
}

std::vector<GroundCut> groundCuts(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                                  CycleCuts cycles) {
  std::vector<GroundCut> cuts(static_cast<std::size_t>(store.NumPathSegments));
  for (const ProofGroup& group : groups) {
    for (const int ps : group.rows) {
      GroundCut& cut = cuts[static_cast<std::size_t>(ps) - 1];
      cut = {.curves = feedCurves(store, ps, group.kind),
             .radius = radiusOfRow(store, ps, group),
             .z = static_cast<double>(store.psz[ps])};
      const auto hole = drilledHole(store, ps);
      if (!hole || cycles == CycleCuts::Nothing) continue;
      cut = {{lineCurve(hole->at, hole->at)}, hole->radius, hole->z};
    }
  }
  return cuts;
}

bool isTurned(const DrawingStore& store, const std::vector<ProofGroup>& groups) {
  return store.lathesetup || std::any_of(groups.begin(), groups.end(), [](const ProofGroup& group) {
           return group.kind == JobKind::Lathe;
         });
}

}  // namespace tess
