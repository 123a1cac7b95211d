// True finish paths: the chain, its walls, the loops or stretches beside it, their leads.
#include "toolpath/true_finish.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "display/pointer.h"
#include "drafting/change.h"
#include "geometry/row_entity.h"
#include "toolpath/cancellable_command.h"
#include "toolpath/chain_walk.h"
#include "toolpath/element_offset.h"
#include "toolpath/entry_moves.h"
#include "toolpath/job_walls.h"
#include "toolpath/lead_gouge.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_levels.h"
#include "toolpath/path_placement.h"
#include "toolpath/region_offset.h"
#include "toolpath/region_rows.h"
#include "toolpath/true_leads.h"
#include "toolpath/true_links.h"
#include "toolpath/true_pocket.h"

namespace tess {
namespace {

constexpr char kCommand[] = "Place Finish Path";
constexpr char kStage[] = "Collecting Finish Points    ";
// Leads shorter than this share of the tool's radius are none.
constexpr double kShortestLead = 0.01;

PlanePoint placeOf(Point p) {
  return {p.x, p.y};
}

// ---- The chain

struct Chain {
  std::vector<int> rows;          // of the drawing
  std::vector<Entity> travelled;  // the same as the walk runs along them
  bool closed = false;
};

// The clicks may have found an end of one row and another row: then its own end.
Point startOn(const DrawingStore& store, const TrueFinishRequest& request) {
  const Entity row = segmentEntity(store, request.sg);
  const bool atEnd = distance(request.start, row.end) < distance(request.start, row.start);
  return atEnd ? row.end : row.start;
}

Chain chainFrom(const DrawingStore& store, int sg, Point start) {
  Chain chain;
  ChainWalk walk(store);
  std::vector<bool> passed(static_cast<std::size_t>(store.NumSegments) + 1, false);
  Point at = start;
  for (int row = sg;;) {
    const Point end = otherEnd(store, row, at);
    passed[static_cast<std::size_t>(row)] = true;
    chain.rows.push_back(row);
    chain.travelled.push_back(travelledRow(store, row, at, end));
    at = end;
    if (samePoint(at, start, store.cfg_tolerance)) {
      chain.closed = true;
      return chain;
    }
    const auto next = walk.nextChainSeg(row, at);
    if (!next || passed[static_cast<std::size_t>(next->row)]) return chain;
    row = next->row;
  }
}

// ---- What is to be cut

// A path of one pass: curves without a gap.
struct FinishWay {
  std::vector<Curve> curves;
  bool closed = false;
  bool freeLeft = true;
};

// What a pass goes along, and what it must keep clear of.
class FinishField {
 public:
  virtual ~FinishField() = default;
  virtual std::vector<FinishWay> waysAt(double distance, const Breathing& breathing) const = 0;
  virtual bool isClear(const Curve& curve, double distance) const = 0;
};

// ---- Closed chains

class ClosedField : public FinishField {
 public:
  ClosedField(PocketRegion region, std::vector<int> rowsOfWalls, const Chain& chain, Point start)
      : region_(std::move(region)),
        rowOfSource_(std::move(rowsOfWalls)),
        chain_(chain),
        chainRows_(chain.rows),
        start_(placeOf(start)) {
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

 private:
  int rowOf(int wall) const {
    const int loop = region_.loopOf(wall);
    const RegionLoop& of = region_.loops()[static_cast<std::size_t>(loop)];
    const auto at = static_cast<std::size_t>(wall - region_.firstWallOf(loop));
    return rowOfSource_[static_cast<std::size_t>(of.sources[at])];
  }

  bool isOfChain(const RegionLoop& loop) const {
    return std::any_of(loop.sources.begin(), loop.sources.end(), [this](int wall) {
      return std::binary_search(chainRows_.begin(), chainRows_.end(), rowOf(wall));
    });
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
  const Chain& chain_;
  std::vector<int> chainRows_;  // ascending
  PlanePoint start_;
};

// ---- Open chains

class OpenField : public FinishField {
 public:
  OpenField(const Chain& chain, Point reference) {
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

// ---- Leads

std::optional<LeadShape> leadShape(const DrawingStore& store) {
  const bool wanted = store.cfg_lead_in_arc || store.cfg_lead_in_path;
  if (!wanted || store.cfg_lead_in_angle <= 0 || store.cfg_lead_in_length <= 0) return {};
  return LeadShape{store.cfg_lead_in_arc, static_cast<double>(store.cfg_lead_in_angle),
                   store.cfg_lead_in_length};
}

// A closed path begins and ends in the middle of its first row, an arc in several pieces being one.
void beginInMiddle(std::vector<Curve>& curves) {
  const Curve first = curves.front();
  curves.front() = partOf(first, 0.5, 1);
  curves.push_back(partOf(first, 0, 0.5));
}

class PassMaker {
 public:
  PassMaker(CamContext& cam, const FinishField& field, const Breathing& breathing)
      : cam_(cam),
        field_(field),
        breathing_(breathing),
        radius_(cam.store.toolradius[cam.store.selectedtool]) {}

  // The rows of one pass; a gap to the pass before is linked where that is possible.
  std::vector<Entity> rowsAt(double distance, bool links) {
    RegionRows rows([this, distance](const Curve& curve) {
      breathe(breathing_);
      return noJudgement_ || field_.isClear(curve, distance - kPlacedSlack);
    });
    for (FinishWay& way : field_.waysAt(distance, breathing_)) {
      const auto leads = leadsOf(way);
      if (links) linkTo(leads ? leads->in.start : way.curves.front().start, rows);
      if (leads) addFreely(leads->in, rows);
      rows.add(way.curves);
      if (leads) addFreely(leads->out, rows);
      end_ = leads ? leads->out.end : way.curves.back().end;
    }
    refused_ |= rows.refused();
    return rows.rows();
  }

  bool refused() const { return refused_; }

 private:
  bool leadIsClear(const Curve& lead) const { return field_.isClear(lead, radius_ - kPlacedSlack); }

  // Leads and links keep the tool's radius from the walls, or what the operator has decided.
  void addFreely(const Curve& curve, RegionRows& rows) {
    noJudgement_ = true;
    rows.add({curve});
    noJudgement_ = false;
  }

  void linkTo(PlanePoint start, RegionRows& rows) {
    if (!end_) return;
    const Curve link = lineCurve(*end_, start);
    if (leadIsClear(link)) addFreely(link, rows);
  }

  std::optional<LeadPair> leadsOf(FinishWay& way) {
    auto shape = leadShape(cam_.store);
    if (!shape) return {};
    if (way.closed) beginInMiddle(way.curves);
    const Curve& first = way.curves.front();
    const Curve& last = way.curves.back();
    const double length = clearLeadLength(first, last, way.freeLeft, *shape,
                                          [this](const Curve& lead) { return leadIsClear(lead); });
    if (length < kShortestLead * radius_) return {};
    if (length < shape->length && agreesToLead(length)) shape->length = length;
    return leadsAt(first, last, way.freeLeft, *shape);
  }

  bool agreesToLead(double length) {
    constexpr double kUnits = 1e4;  // four decimals, never up
    const auto shown = static_cast<float>(std::floor(length * kUnits) / kUnits);
    return cam_.context.session.host.prompts.showMessage(leadQuestion(shown)) == Answer::Yes;
  }

  CamContext& cam_;
  const FinishField& field_;
  const Breathing& breathing_;
  double radius_;
  std::optional<PlanePoint> end_;
  bool noJudgement_ = false;
  bool refused_ = false;
};

// ---- The field of a chain

bool isVerifiedChain(const DrawingStore& store, const Chain& chain) {
  return std::all_of(chain.rows.begin(), chain.rows.end(),
                     [&](int sg) { return store.segattr[sg] == kVerifiedRow; });
}

std::vector<Entity> entitiesOf(const DrawingStore& store, const std::vector<int>& rows) {
  std::vector<Entity> entities;
  entities.reserve(rows.size());
  for (const int sg : rows) entities.push_back(segmentEntity(store, sg));
  return entities;
}

std::vector<int> verifiedRows(const DrawingStore& store) {
  std::vector<int> rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] == kVerifiedRow) rows.push_back(sg);
  }
  return rows;
}

// On which side of the chain it is free: inside for loops that run counter-clockwise.
bool isFreeInside(const PocketRegion& region, const std::vector<int>& rows, const Chain& chain) {
  for (const RegionLoop& loop : region.loops()) {
    const int row = rows[static_cast<std::size_t>(loop.sources.front())];
    if (std::find(chain.rows.begin(), chain.rows.end(), row) != chain.rows.end()) {
      return loop.area >= 0;
    }
  }
  return false;
}

std::unique_ptr<FinishField> fieldOf(CamContext& cam, const Chain& chain,
                                     const TrueFinishRequest& request) {
  const DrawingStore& store = cam.store;
  if (!chain.closed) return std::make_unique<OpenField>(chain, request.reference);
  const float tolerence = store.cfg_tolerance;
  OutlineRegion alone = regionOf(entitiesOf(store, chain.rows), tolerence);
  if (!outlineIsSound(cam, kCommand, alone)) return nullptr;
  const bool inside = alone.region.isFree(placeOf(request.reference));
  if (isVerifiedChain(store, chain)) {
    const std::vector<int> rows = verifiedRows(store);
    OutlineRegion all = regionOf(entitiesOf(store, rows), tolerence);
    if (!outlineIsSound(cam, kCommand, all)) return nullptr;
    if (isFreeInside(all.region, rows, chain) == inside) {
      return std::make_unique<ClosedField>(std::move(all.region), rows, chain, request.start);
    }
  }
  if (!inside) alone = regionOf(entitiesOf(store, chain.rows), tolerence, /*outside=*/true);
  return std::make_unique<ClosedField>(std::move(alone.region), chain.rows, chain, request.start);
}

bool pathIsPossible(CamContext& cam, const FinishField& field, const Breathing& breathing) {
  const float radius = cam.store.toolradius[cam.store.selectedtool];
  if (!(radius > 0)) {
    tellRadius(cam, kCommand, radius);
    return false;
  }
  if (!field.waysAt(radius, breathing).empty()) return true;
  cam.context.session.host.prompts.showMessage({.text = "The tool does not fit into the pocket.",
                                                .title = kCommand,
                                                .icon = MessageIcon::Warning});
  return false;
}

// ---- The passes

// The rows of a pass at its distance from the outline, at all levels, with their ways in.
struct FinishPass {
  float distance = 0;
  std::vector<LevelRows> levels;
};

// All that a command is going to place; nothing of it stands in the drawing before it is complete.
struct FinishPlan {
  std::vector<FinishPass> passes;    // in the order in which they are cut
  bool failed = false;               // a part of the path could not be placed
  std::vector<std::string> entries;  // what is to be told about these
};

// Nothing after a message.
std::optional<FinishPlan> planPasses(CamContext& cam, const TrueFinishRequest& request,
                                     const std::vector<PathLevel>& levels,
                                     const Breathing& breathing) {
  const Chain chain = chainFrom(cam.store, request.sg, request.start);
  const auto field = fieldOf(cam, chain, request);
  if (!field || !pathIsPossible(cam, *field, breathing)) return std::nullopt;
  const bool links = cam.store.cfg_connect_pocketing_paths && levels.size() == 1;
  PassMaker maker(cam, *field, breathing);
  const auto isClear = [&field](const Curve& curve, double distance) {
    return field->isClear(curve, distance);
  };
  EntryPlanner entries(cam, kCommand, {isClear, passDistance(cam.store, 1), nullptr},
                       pathInsertIndex(cam.store, cam.pathInsertMode, cam.pathInsertGroup),
                       breathing);
  FinishPlan plan;
  for (int pass = request.passes; pass >= 1; --pass) {
    // A clearance below 0 would cut into the part.
    const float distance = std::max(passDistance(cam.store, pass), passDistance(cam.store, 1));
    auto entered = entries.entered(rowsAtLevels(maker.rowsAt(distance, links), levels));
    if (!entered) return std::nullopt;
    plan.passes.push_back({distance, std::move(*entered)});
  }
  plan.entries = entries.notes();
  plan.failed = maker.refused();
  return plan;
}

void placePasses(CamContext& cam, FinishPlan& plan, const JobWalls& walls) {
  DrawingStore& store = cam.store;
  Change change(cam.changes);
  for (FinishPass& pass : plan.passes) {
    store.currentpathgroup = nextPathGroup(store);
    const int index = pathInsertIndex(store, cam.pathInsertMode, cam.pathInsertGroup);
    placeLevels(cam, change, index, std::move(pass.levels));
    noteJob(cam, JobKind::Contour, pass.distance, walls);
  }
  change.keep({.redraws = false});
}

}  // namespace

float passDistance(const DrawingStore& store, int pass) {
  const float radius = store.toolradius[store.selectedtool];
  if (pass == 1) return radius;
  const auto steps = static_cast<float>(pass - 2);
  return radius + store.cfg_min_rough_clearance + steps * store.cfg_tool_spacing_distance;
}

void placeTrueFinish(CamContext& cam, const TrueFinishRequest& request) {
  const Procedure here("placeTrueFinish()");
  const DrawingStore& store = cam.store;
  const bool several = -std::abs(store.cfg_start_depth) >= roughingFloor(store);
  if (request.passes < 1 || !levelsArePossible(cam, kCommand, several)) return;
  if (!entriesArePossible(cam, kCommand)) return;
  const BusyPointer busy(cam.context.systemPointer);
  const std::vector<PathLevel> levels = levelsOf(store, several, store.cfg_finish_feedrate);
  TrueFinishRequest begun = request;
  begun.start = startOn(store, request);
  std::optional<FinishPlan> plan;
  const bool done = unlessCancelled(cam, kStage, [&](const Breathing& breathing) {
    plan = planPasses(cam, begun, levels, breathing);
  });
  if (!done || !plan) return;
  placePasses(cam, *plan, wallsBeside(store, request.sg, request.reference));
  cam.context.state.setPendingaction(0);
  showPlacedPaths(cam);
  tellWhatFailed(cam, kCommand, plan->failed);
  tellEntries(cam, kCommand, plan->entries);
}

}  // namespace tess
