// The two kinds of fields: beside closed chains a region of the plane, beside open ones what is
// near to nothing else of the chain.
#include "toolpath/finish_field.h"

#include <algorithm>
#include <utility>

#include "core/drawing_store.h"
#include "toolpath/connected_rows.h"
#include "toolpath/region_offset.h"
#include "toolpath/true_links.h"
#include "toolpath/true_pocket.h"

namespace tess {
namespace {

PlanePoint placeOf(Point p) {
  return {p.x, p.y};
}

std::vector<std::vector<Curve>> curvesOf(const std::vector<FinishWay>& ways) {
  std::vector<std::vector<Curve>> all;
  all.reserve(ways.size());
  for (const FinishWay& way : ways) all.push_back(way.curves);
  return all;
}

// ---- Closed chains

class ClosedField : public FinishField {
 public:
  ClosedField(PocketRegion region, std::vector<int> rowsOfWalls, const FinishChain& chain,
              Point start, bool outside)
      : region_(std::move(region)),
        rowOfSource_(std::move(rowsOfWalls)),
        chain_(chain),
        chainRows_(chain.rows),
        start_(placeOf(start)),
        outside_(outside) {
    std::sort(chainRows_.begin(), chainRows_.end());
  }

  // Loops of which a piece comes from the chain, the one nearest to the start first.
  std::vector<FinishWay> waysAt(double distance, const Breathing& breathing) const override {
    const PocketRegion offset = fittedOffset(region_, distance, breathing).region;
    std::vector<std::pair<double, FinishWay>> ways;
    for (const RegionLoop& loop : offset.loops()) {
      if (!isOfChain(loop)) continue;
      ways.emplace_back(nearestPlace(loop, start_).distance, wayRound(loop));
    }
    std::stable_sort(ways.begin(), ways.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<FinishWay> sorted;
    sorted.reserve(ways.size());
    for (auto& way : ways) sorted.push_back(std::move(way.second));
    return sorted;
  }

  bool isClear(const Curve& curve, double distance) const override {
    return region_.isClear(curve, distance);
  }

  InsideCorners cornersBeside(const std::vector<FinishWay>& ways, double radius,
                              double least) const override {
    std::vector<WallJoint> joints;
    for (int loop = 0; loop < static_cast<int>(region_.loops().size()); ++loop) {
      const RegionLoop& of = region_.loops()[static_cast<std::size_t>(loop)];
      const int first = region_.firstWallOf(loop);
      const int count = static_cast<int>(of.curves.size());
      for (int k = 0; k < count; ++k) {
        const WallJoint joint{first + k, first + (k + 1) % count};
        if (isRowOfChain(joint.before) || isRowOfChain(joint.after)) joints.push_back(joint);
      }
    }
    return insideCorners(region_.index(), joints, curvesOf(ways), radius, least);
  }

  bool runsRoundPart() const override { return outside_; }

 private:
  int rowOf(int wall) const {
    const int loop = region_.loopOf(wall);
    const RegionLoop& of = region_.loops()[static_cast<std::size_t>(loop)];
    const auto at = static_cast<std::size_t>(wall - region_.firstWallOf(loop));
    return rowOfSource_[static_cast<std::size_t>(of.sources[at])];
  }

  bool isRowOfChain(int wall) const {
    return std::binary_search(chainRows_.begin(), chainRows_.end(), rowOf(wall));
  }

  bool isOfChain(const RegionLoop& loop) const {
    return std::any_of(loop.sources.begin(), loop.sources.end(),
                       [this](int wall) { return isRowOfChain(wall); });
  }

  // The walls have free space on their left: the clicked way is theirs or the other.
  bool runsBack() const {
    std::vector<Curve> clicked;
    appendCurves(chain_.travelled.front(), clicked);
    for (std::size_t wall = 0; wall < region_.walls().size(); ++wall) {
      if (rowOf(static_cast<int>(wall)) != chain_.rows.front()) continue;
      const Curve& curve = region_.walls()[wall];
      const PlanePoint middle = pointAt(curve, 0.5);
      const auto same =
          std::min_element(clicked.begin(), clicked.end(), [&](const Curve& a, const Curve& b) {
            return distanceTo(a, middle) < distanceTo(b, middle);
          });
      const PlanePoint along = directionAt(*same, shareOf(*same, nearestOn(*same, middle).at));
      return dot(along, directionAt(curve, 0.5)) < 0;
    }
    return false;
  }

  // It begins with what lies beside the clicked row, or else next to the clicked start.
  FinishWay wayRound(const RegionLoop& drawn) const {
    const bool back = runsBack();
    const RegionLoop loop = back ? reversedLoop(drawn) : drawn;
    LoopPlace begin = nearestPlace(loop, start_);
    double longest = 0;
    for (std::size_t k = 0; k < loop.curves.size(); ++k) {
      if (rowOf(loop.sources[k]) != chain_.rows.front()) continue;
      const double length = lengthOf(loop.curves[k]);
      if (length <= longest) continue;
      longest = length;
      begin = {k, 0};
    }
    return {loopFrom(loop, begin), /*closed=*/true, !back};
  }

  PocketRegion region_;
  std::vector<int> rowOfSource_;  // the drawing row that each row of the region's outlines is
  const FinishChain& chain_;
  std::vector<int> chainRows_;  // ascending
  PlanePoint start_;
  bool outside_;
};

// ---- Open chains

class OpenField : public FinishField {
 public:
  OpenField(const FinishChain& chain, Point reference) {
    for (const Entity& row : chain.travelled) appendCurves(row, walls_);
    for (std::size_t k = 1; k < walls_.size(); ++k) {
      const Curve& wall = walls_[k];
      const PlanePoint start = walls_[k - 1].end;
      if (start == wall.start) continue;
      walls_[k] = wall.isArc() ? arcCurve(start, wall.end, wall.center, wall.turn)
                               : lineCurve(start, wall.end);
    }
    freeLeft_ = isLeft(placeOf(reference));
    if (!freeLeft_) {
      std::reverse(walls_.begin(), walls_.end());
      std::transform(walls_.begin(), walls_.end(), walls_.begin(), reversed);
    }
    index_ = CurveIndex(walls_);
  }

  std::vector<FinishWay> waysAt(double distance, const Breathing& breathing) const override {
    std::vector<FinishWay> ways;
    for (std::vector<Curve>& stretch : chainOffset(walls_, distance, breathing).stretches) {
      if (!freeLeft_) {
        std::reverse(stretch.begin(), stretch.end());
        std::transform(stretch.begin(), stretch.end(), stretch.begin(), reversed);
      }
      ways.push_back({std::move(stretch), /*closed=*/false, freeLeft_});
    }
    if (!freeLeft_) std::reverse(ways.begin(), ways.end());
    return ways;
  }

  bool isClear(const Curve& curve, double distance) const override {
    const auto nearest = index_.nearest(curve, distance);
    return !nearest || nearest->gap.distance >= distance;
  }

  InsideCorners cornersBeside(const std::vector<FinishWay>& ways, double radius,
                              double least) const override {
    std::vector<WallJoint> joints;
    for (int wall = 1; wall < static_cast<int>(walls_.size()); ++wall) {
      joints.push_back({wall - 1, wall});
    }
    return insideCorners(index_, joints, curvesOf(ways), radius, least);
  }

  bool runsRoundPart() const override { return false; }

 private:
  static bool isLeftOf(const Curve& wall, PlanePoint at) {
    if (wall.isArc()) return (normOf(at - wall.center) < wall.radius) == (wall.turn > 0);
    return cross(wall.end - wall.start, at - wall.start) > 0;
  }

  // Beside a joint that turns left, left is what is left of both rows; of either at one that turns
  // right.
  bool isLeft(PlanePoint at) const {
    std::size_t nearest = 0;
    for (std::size_t k = 1; k < walls_.size(); ++k) {
      if (distanceTo(walls_[k], at) < distanceTo(walls_[nearest], at)) nearest = k;
    }
    const Curve& wall = walls_[nearest];
    const PlanePoint foot = nearestOn(wall, at).at;
    if (foot == wall.end && nearest + 1 < walls_.size()) {
      return isLeftAtJoint(wall, walls_[nearest + 1], at);
    }
    if (foot == wall.start && nearest > 0) return isLeftAtJoint(walls_[nearest - 1], wall, at);
    return isLeftOf(wall, at);
  }

  static bool isLeftAtJoint(const Curve& before, const Curve& after, PlanePoint at) {
    const bool turnsLeft = cross(directionAt(before, 1), directionAt(after, 0)) > 0;
    const bool first = isLeftOf(before, at);
    const bool second = isLeftOf(after, at);
    return turnsLeft ? first && second : first || second;
  }

  std::vector<Curve> walls_;
  CurveIndex index_;
  bool freeLeft_ = true;
};

// ---- The field of a chain

bool isVerifiedChain(const DrawingStore& store, const FinishChain& chain) {
  return std::all_of(chain.rows.begin(), chain.rows.end(),
                     [&](int sg) { return store.segattr[sg] == kVerifiedRow; });
}

std::vector<int> verifiedRows(const DrawingStore& store) {
  std::vector<int> rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] == kVerifiedRow) rows.push_back(sg);
  }
  return rows;
}

// On which side of the chain it is free: inside for loops that run counter-clockwise.
bool isFreeInside(const PocketRegion& region, const std::vector<int>& rows,
                  const FinishChain& chain) {
  for (const RegionLoop& loop : region.loops()) {
    const int row = rows[static_cast<std::size_t>(loop.sources.front())];
    if (std::find(chain.rows.begin(), chain.rows.end(), row) != chain.rows.end()) {
      return loop.area >= 0;
    }
  }
  return false;
}

// What touches the chain is a wall as well, unless there are rows among it that lead nowhere.
std::vector<int> rowsWithChain(const DrawingStore& store, const FinishChain& chain) {
  std::vector<int> rows = rowsConnectedTo(store, chain.rows.front());
  if (rows.size() <= chain.rows.size()) return chain.rows;
  const OutlineRegion all = regionOf(segmentEntities(store, rows), store.cfg_tolerance);
  return all.fault ? chain.rows : rows;
}

}  // namespace

std::unique_ptr<FinishField> finishFieldOf(CamContext& cam, const std::string& title,
                                           const FinishChain& chain, Point start, Point reference) {
  const DrawingStore& store = cam.store;
  if (!chain.closed) return std::make_unique<OpenField>(chain, reference);
  const float tolerence = store.cfg_tolerance;
  const std::vector<int> own = rowsWithChain(store, chain);
  OutlineRegion alone = regionOf(segmentEntities(store, own), tolerence);
  if (!outlineIsSound(cam, title, alone)) return nullptr;
  const bool inside = alone.region.isFree(placeOf(reference));
  if (isVerifiedChain(store, chain)) {
    const std::vector<int> rows = verifiedRows(store);
    OutlineRegion all = regionOf(segmentEntities(store, rows), tolerence);
    if (!outlineIsSound(cam, title, all)) return nullptr;
    if (isFreeInside(all.region, rows, chain) == inside) {
      return std::make_unique<ClosedField>(std::move(all.region), rows, chain, start, !inside);
    }
  }
  if (!inside) alone = regionOf(segmentEntities(store, chain.rows), tolerence, /*outside=*/true);
  return std::make_unique<ClosedField>(std::move(alone.region), chain.rows, chain, start, !inside);
}

}  // namespace tess
