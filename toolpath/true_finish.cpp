// True finish paths: the chain, its walls, the loops or stretches beside it, their leads.
#include "toolpath/true_finish.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <vector>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/pocketing_choices.h"
#include "display/pointer.h"
#include "drafting/change.h"
#include "geometry/row_entity.h"
#include "toolpath/cancellable_command.h"
#include "toolpath/chain_walk.h"
#include "toolpath/connected_rows.h"
#include "toolpath/element_offset.h"
#include "toolpath/entry_moves.h"
#include "toolpath/frmCornerOvercut.h"
#include "toolpath/frmHoldingTabs.h"
#include "toolpath/job_walls.h"
#include "toolpath/lead_gouge.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_levels.h"
#include "toolpath/path_placement.h"
#include "toolpath/path_proof.h"
#include "toolpath/region_offset.h"
#include "toolpath/region_rows.h"
#include "toolpath/rest_region.h"
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

// The rows as the operator's clicks lead along them.
Chain walkFrom(const DrawingStore& store, int sg, Point start) {
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

// The rows of the closed outline that a row is one of, among all that hang together with it; none
// where these make no outlines.
std::vector<int> outlineOf(const DrawingStore& store, int sg) {
  const std::vector<int> rows = rowsConnectedTo(store, sg);
  const OutlineRegion outlines = regionOf(segmentEntities(store, rows), store.cfg_tolerance);
  for (const RegionLoop& loop : outlines.region.loops()) {
    std::vector<int> found;
    found.reserve(loop.sources.size());
    for (const int source : loop.sources) found.push_back(rows[static_cast<std::size_t>(source)]);
    if (std::find(found.begin(), found.end(), sg) == found.end()) continue;
    found.erase(std::unique(found.begin(), found.end()), found.end());
    std::rotate(found.begin(), std::find(found.begin(), found.end(), sg), found.end());
    return found;
  }
  return {};
}

// A walk from row to row goes astray where an outline touches itself, and at rows shorter than the
// tolerance.
Chain chainFrom(const DrawingStore& store, int sg, Point start) {
  Chain chain = walkFrom(store, sg, start);
  if (chain.closed) return chain;
  std::vector<int> outline = outlineOf(store, sg);
  if (outline.empty()) return chain;
  const Entity first = travelledRow(store, sg, start, otherEnd(store, sg, start));
  return {std::move(outline), {first}, /*closed=*/true};
}

// ---- What is to be cut

// A path of one pass: curves without a gap.
struct FinishWay {
  std::vector<Curve> curves;
  bool closed = false;
  bool freeLeft = true;
};

std::vector<std::vector<Curve>> curvesOf(const std::vector<FinishWay>& ways) {
  std::vector<std::vector<Curve>> all;
  all.reserve(ways.size());
  for (const FinishWay& way : ways) all.push_back(way.curves);
  return all;
}

// What a pass goes along, and what it must keep clear of.
class FinishField {
 public:
  virtual ~FinishField() = default;
  virtual std::vector<FinishWay> waysAt(double distance, const Breathing& breathing) const = 0;
  virtual bool isClear(const Curve& curve, double distance) const = 0;
  // Beside these ways, which keep the radius from the walls.
  virtual InsideCorners cornersBeside(const std::vector<FinishWay>& ways, double radius,
                                      double least) const = 0;
  // Its ways run round a part, which they would cut free.
  virtual bool runsRoundPart() const = 0;
};

// ---- Closed chains

class ClosedField : public FinishField {
 public:
  ClosedField(PocketRegion region, std::vector<int> rowsOfWalls, const Chain& chain, Point start,
              bool outside)
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
  const Chain& chain_;
  std::vector<int> chainRows_;  // ascending
  PlanePoint start_;
  bool outside_;
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

// Curves without a gap. What is not judged keeps the tool's radius from the walls, or what the
// operator has decided.
struct PassStretch {
  std::vector<Curve> curves;
  bool isJudged = true;
};

// What one pass cuts.
struct PassPath {
  double distance = 0;
  std::vector<PassStretch> stretches;
  std::size_t round = 0;  // the longest way among the stretches; their number for none
  double leads = 0;       // how long its leads are
  bool freeLeft = true;
  bool isWhole = false;  // that way is closed
};

// What the ways of passes are made from.
struct PassGround {
  const FinishField& field;
  const std::vector<FinishWay>& finished;  // the ways at the finished size
  const CornerDrops& overcut;              // and their drops
};

class PassMaker {
 public:
  // Of what was `taken` before nothing is cut again.
  PassMaker(CamContext& cam, const PassGround& ground, std::vector<SweptCurve> taken,
            const Breathing& breathing)
      : cam_(cam),
        field_(ground.field),
        finished_(ground.finished),
        overcut_(ground.overcut),
        taken_(std::move(taken)),
        breathing_(breathing),
        radius_(cam.store.toolradius[cam.store.selectedtool]) {}

  // A gap to the pass before is linked where that is possible.
  PassPath pathAt(double distance, bool links) {
    PassPath path;
    path.distance = distance;
    double longest = 0;
    for (FinishWay& way : waysLeftAt(distance)) {
      const auto leads = leadsOf(way);
      if (links) linkTo(leads ? leads->in.start : way.curves.front().start, path);
      if (leads) path.stretches.push_back({{leads->in}, false});
      if (const double length = lengthOfAll(way.curves); length > longest) {
        longest = length;
        path.round = path.stretches.size();
        path.leads = leads ? leadLength_ : 0;
        path.freeLeft = way.freeLeft;
        path.isWhole = way.closed;
      }
      path.stretches.push_back({std::move(way.curves), true});
      if (leads) path.stretches.push_back({{leads->out}, false});
      end_ = path.stretches.back().curves.back().end;
    }
    return path;
  }

  // A curve that comes too near to a wall is left out.
  std::vector<Entity> rowsOf(const PassPath& path) {
    bool isJudged = true;
    const double limit = proofLimits(cam_.store).depth;
    RegionRows rows([&](const Curve& curve) {
      breathe(breathing_);
      return !isJudged || field_.isClear(curve, path.distance - kPlacedSlack) ||
             overcut_.around(curve, limit) >= 0;
    });
    rows.setRoundingLimit(limit);
    for (const PassStretch& stretch : path.stretches) {
      isJudged = stretch.isJudged;
      rows.add(stretch.curves);
    }
    refused_ |= rows.refused();
    return rows.rows();
  }

  bool refused() const { return refused_; }

 private:
  // Only the finished size has drops.
  std::vector<FinishWay> waysAt(double distance) const {
    if (distance != radius_) return field_.waysAt(distance, breathing_);
    std::vector<FinishWay> ways = finished_;
    for (FinishWay& way : ways) way.curves = overcut_.putInto(way.curves);
    return ways;
  }

  std::vector<FinishWay> waysLeftAt(double distance) const {
    std::vector<FinishWay> ways = waysAt(distance);
    if (taken_.empty()) return ways;
    std::vector<Curve> all;
    for (const FinishWay& way : ways) all.insert(all.end(), way.curves.begin(), way.curves.end());
    const RestPlaces rest = restOfWays(all, radius_, taken_, breathing_);
    constexpr double kWhole = 1e-6;
    std::vector<FinishWay> left;
    for (const FinishWay& way : ways) {
      for (std::vector<Curve>& part : rest.partsOf(way.curves)) {
        overcut_.completeEnds(part);
        const bool isWhole = lengthOfAll(part) > lengthOfAll(way.curves) - kWhole;
        left.push_back({std::move(part), way.closed && isWhole, way.freeLeft});
      }
    }
    return left;
  }

  static double lengthOfAll(const std::vector<Curve>& curves) {
    return std::accumulate(curves.begin(), curves.end(), 0.0,
                           [](double sum, const Curve& curve) { return sum + lengthOf(curve); });
  }

  bool leadIsClear(const Curve& lead) const { return field_.isClear(lead, radius_ - kPlacedSlack); }

  void linkTo(PlanePoint start, PassPath& path) {
    if (!end_) return;
    const Curve link = lineCurve(*end_, start);
    if (leadIsClear(link)) path.stretches.push_back({{link}, false});
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
    leadLength_ = shape->length;
    return leadsAt(first, last, way.freeLeft, *shape);
  }

  bool agreesToLead(double length) {
    constexpr double kUnits = 1e4;  // four decimals, never up
    const auto shown = static_cast<float>(std::floor(length * kUnits) / kUnits);
    return cam_.context.session.host.prompts.showMessage(leadQuestion(shown)) == Answer::Yes;
  }

  CamContext& cam_;
  const FinishField& field_;
  const std::vector<FinishWay>& finished_;
  const CornerDrops& overcut_;
  const std::vector<SweptCurve> taken_;
  const Breathing& breathing_;
  double radius_;
  double leadLength_ = 0;  // of the leads last made
  std::optional<PlanePoint> end_;
  bool refused_ = false;
};

// ---- Tabs

// A ramp into the material takes the first rows up to the width of the tool.
TabPass tabPassOf(const PassPath& path, const DrawingStore& store) {
  constexpr double kRampRoom = 4;  // radii
  const double radius = store.toolradius[store.selectedtool];
  const double leads = path.leads > 0 ? path.leads + radius : 0;
  return {.way = path.stretches[path.round].curves,
          .distance = path.distance,
          .toolRadius = radius,
          .startRoom = std::max(leads, wantsEntries(store) ? kRampRoom * radius : 0),
          .freeLeft = path.freeLeft};
}

// What the operator has decided about the tabs of a pass.
struct PassTabs {
  std::vector<RaisedRange> raised;
  std::vector<JobTab> tabs;
};

// ---- The field of a chain

bool isVerifiedChain(const DrawingStore& store, const Chain& chain) {
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
bool isFreeInside(const PocketRegion& region, const std::vector<int>& rows, const Chain& chain) {
  for (const RegionLoop& loop : region.loops()) {
    const int row = rows[static_cast<std::size_t>(loop.sources.front())];
    if (std::find(chain.rows.begin(), chain.rows.end(), row) != chain.rows.end()) {
      return loop.area >= 0;
    }
  }
  return false;
}

// What touches the chain is a wall as well, unless there are rows among it that lead nowhere.
std::vector<int> rowsWithChain(const DrawingStore& store, const Chain& chain) {
  std::vector<int> rows = rowsConnectedTo(store, chain.rows.front());
  if (rows.size() <= chain.rows.size()) return chain.rows;
  const OutlineRegion all = regionOf(segmentEntities(store, rows), store.cfg_tolerance);
  return all.fault ? chain.rows : rows;
}

std::unique_ptr<FinishField> fieldOf(CamContext& cam, const Chain& chain,
                                     const TrueFinishRequest& request) {
  const DrawingStore& store = cam.store;
  if (!chain.closed) return std::make_unique<OpenField>(chain, request.reference);
  const float tolerence = store.cfg_tolerance;
  const std::vector<int> own = rowsWithChain(store, chain);
  OutlineRegion alone = regionOf(segmentEntities(store, own), tolerence);
  if (!outlineIsSound(cam, kCommand, alone)) return nullptr;
  const bool inside = alone.region.isFree(placeOf(request.reference));
  if (isVerifiedChain(store, chain)) {
    const std::vector<int> rows = verifiedRows(store);
    OutlineRegion all = regionOf(segmentEntities(store, rows), tolerence);
    if (!outlineIsSound(cam, kCommand, all)) return nullptr;
    if (isFreeInside(all.region, rows, chain) == inside) {
      return std::make_unique<ClosedField>(std::move(all.region), rows, chain, request.start,
                                           !inside);
    }
  }
  if (!inside) alone = regionOf(segmentEntities(store, chain.rows), tolerence, /*outside=*/true);
  return std::make_unique<ClosedField>(std::move(alone.region), chain.rows, chain, request.start,
                                       !inside);
}

// The ways at the finished size; none after a message.
std::vector<FinishWay> possibleWays(CamContext& cam, const FinishField& field,
                                    const Breathing& breathing) {
  const float radius = cam.store.toolradius[cam.store.selectedtool];
  if (!(radius > 0)) {
    tellRadius(cam, kCommand, radius);
    return {};
  }
  std::vector<FinishWay> ways = field.waysAt(radius, breathing);
  if (!ways.empty()) return ways;
  cam.context.session.host.prompts.showMessage({.text = "The tool does not fit into the pocket.",
                                                .title = kCommand,
                                                .icon = MessageIcon::Warning});
  return {};
}

// ---- The passes

struct FinishPass {
  PassPath path;
  std::vector<Entity> rows;  // of it, where nothing raises it
  PassTabs tabs;
  std::vector<LevelRows> levels;  // at all levels, with their ways in
};

// All that a command is going to place; nothing of it stands in the drawing before it is complete.
struct FinishPlan {
  std::unique_ptr<Chain> chain;
  std::unique_ptr<FinishField> field;
  std::vector<FinishWay> finished;   // the ways at the finished size
  InsideCorners corners;             // beside these, where the setup asks for them
  CornerDrops overcut;               // into those that the operator wants
  std::vector<FinishPass> passes;    // in the order in which they are cut
  bool failed = false;               // a part of the path could not be placed
  std::vector<std::string> entries;  // what is to be told about these
};

// What is to be followed. Nothing after a message.
std::optional<FinishPlan> beginPlan(CamContext& cam, const TrueFinishRequest& request,
                                    const Breathing& breathing) {
  const DrawingStore& store = cam.store;
  FinishPlan plan;
  plan.chain = std::make_unique<Chain>(chainFrom(store, request.sg, request.start));
  plan.field = fieldOf(cam, *plan.chain, request);
  if (!plan.field) return std::nullopt;
  plan.finished = possibleWays(cam, *plan.field, breathing);
  if (plan.finished.empty()) return std::nullopt;
  if (cornerOvercut(store) != CornerOvercut::None) {
    plan.corners = plan.field->cornersBeside(plan.finished, store.toolradius[store.selectedtool],
                                             isMetric(store) ? kLeastOvercutMm : kLeastOvercutInch);
  }
  return plan;
}

// The ways of all passes. False after a message.
bool planPasses(CamContext& cam, int passes, const std::vector<PathLevel>& levels,
                const Breathing& breathing, FinishPlan& plan) {
  const bool links = cam.store.cfg_connect_pocketing_paths && levels.size() == 1;
  std::vector<SweptCurve> taken;
  if (cam.store.cfg_finish_what_is_left) taken = cutBefore(cam, levels.back().z, breathing);
  const bool isLarger = isLargerThanAll(cam.store.toolradius[cam.store.selectedtool], taken);
  PassMaker maker(cam, {*plan.field, plan.finished, plan.overcut}, std::move(taken), breathing);
  bool isEmpty = true;
  for (int pass = passes; pass >= 1; --pass) {
    // A clearance below 0 would cut into the part.
    const float distance = std::max(passDistance(cam.store, pass), passDistance(cam.store, 1));
    PassPath path = maker.pathAt(distance, links);
    std::vector<Entity> rows = maker.rowsOf(path);
    isEmpty = isEmpty && path.stretches.empty();
    plan.passes.push_back({std::move(path), std::move(rows), {}, {}});
  }
  plan.failed = maker.refused();
  if (isEmpty) {
    tellNothingLeft(cam, kCommand, isLarger);
    return false;
  }
  return true;
}

void showModal(CamContext& cam, Form& form) {
  const int busy = cam.context.systemPointer.MousePointer();
  cam.context.systemPointer.setMousePointer(kDefaultShape);
  cam.context.session.host.prompts.showModal(form);
  cam.context.systemPointer.setMousePointer(busy);
}

// False when the operator wants no path after all.
bool chooseCorners(CamContext& cam, FinishPlan& plan) {
  if (plan.corners.drops.empty()) {
    tellBlockedCorners(cam.context.session.host.prompts, kCommand, plan.corners);
    return true;
  }
  frmCornerOvercut form(cam, plan.corners);
  showModal(cam, form);
  plan.overcut = CornerDrops(form.picked());
  return form.accepted();
}

// Upright, unless paths come into the material by other ways than plunges.
TabRamp rampOf(const DrawingStore& store) {
  constexpr double kWithin = 0.999;  // of the step, whatever 32 bits make of it
  if (!wantsEntries(store)) return {};
  constexpr double kUsualAngle = 3;
  const double angle = store.cfg_entry_angle > 0 ? double{store.cfg_entry_angle} : kUsualAngle;
  return {.angle = angle, .step = kWithin * entryStep(store)};
}

// For each of the passes; nothing when the operator wants no path after all.
std::optional<std::vector<PassTabs>> chooseTabs(CamContext& cam, const FinishPlan& plan,
                                                float floor) {
  const DrawingStore& store = cam.store;
  std::vector<TabPass> ways;
  std::vector<std::size_t> passOfWay;
  for (std::size_t pass = 0; pass < plan.passes.size(); ++pass) {
    const PassPath& path = plan.passes[pass].path;
    if (!path.isWhole) continue;
    ways.push_back(tabPassOf(path, store));
    passOfWay.push_back(pass);
  }
  frmHoldingTabs form(cam, std::move(ways), floor);
  showModal(cam, form);
  if (!form.accepted()) return std::nullopt;
  std::vector<PassTabs> chosen(plan.passes.size());
  for (std::size_t way = 0; way < passOfWay.size(); ++way) {
    PassTabs& pass = chosen[passOfWay[way]];
    pass.raised = form.plan().ranges(way, floor, form.top(), rampOf(store));
    for (const TabPlan::Bridge& bridge : form.plan().bridges(way)) {
      pass.tabs.push_back({bridge.from.x, bridge.from.y, bridge.to.x, bridge.to.y, form.top()});
    }
  }
  return chosen;
}

// Where the setup asks for them. False when there is to be no path.
bool addTabs(CamContext& cam, float floor, FinishPlan& plan) {
  const bool hasTabs =
      cam.store.cfg_holding_tabs && plan.field->runsRoundPart() && plan.passes.back().path.isWhole;
  if (!hasTabs) return true;
  // Of what is no whole path it is not known that tabs hold.
  if (plan.failed) {
    tellWhatFailed(cam, kCommand, true);
    return false;
  }
  auto chosen = chooseTabs(cam, plan, floor);
  if (!chosen) return false;
  for (std::size_t k = 0; k < chosen->size(); ++k) plan.passes[k].tabs = std::move((*chosen)[k]);
  return true;
}

// The rows of a pass whose curves have been tested, raised by these ranges of the way round.
LevelRows raisedRows(const PassPath& path, const PathLevel& level,
                     std::span<const RaisedRange> raised) {
  RegionRows rows([](const Curve&) { return true; });
  LevelRows placed;
  const auto add = [&](const std::vector<Curve>& curves, double height) {
    const std::size_t before = rows.rows().size();
    rows.add(curves);
    for (std::size_t k = before; k < rows.rows().size(); ++k) {
      placed.push_back(pathRowOf(rows.rows()[k], narrow(height), level.feed));
    }
  };
  for (std::size_t k = 0; k < path.stretches.size(); ++k) {
    const PassStretch& stretch = path.stretches[k];
    if (k != path.round) {
      add(stretch.curves, level.z);
      continue;
    }
    for (const RaisedRun& run : raisedRuns(WayByLength(stretch.curves), raised, level.z)) {
      add(run.curves, run.z);
    }
  }
  return placed;
}

// At each of the levels; one above all tabs has the rows as they are.
std::vector<LevelRows> rowsOfPass(const FinishPass& pass, const std::vector<PathLevel>& levels) {
  std::vector<LevelRows> rows = rowsAtLevels(pass.rows, levels);
  const std::vector<RaisedRange>& raised = pass.tabs.raised;
  for (std::size_t level = 0; level < levels.size(); ++level) {
    const float z = levels[level].z;
    const bool rises = std::any_of(raised.begin(), raised.end(),
                                   [z](const RaisedRange& range) { return range.top > z; });
    if (rises) rows[level] = raisedRows(pass.path, levels[level], raised);
  }
  return rows;
}

// False after a message.
bool enterPasses(CamContext& cam, const std::vector<PathLevel>& levels, const Breathing& breathing,
                 FinishPlan& plan) {
  const double limit = proofLimits(cam.store).depth;
  const auto isClear = [&plan, limit](const Curve& curve, double distance) {
    return plan.field->isClear(curve, distance) || plan.overcut.around(curve, limit) >= 0;
  };
  EntryPlanner entries(cam, kCommand, {isClear, passDistance(cam.store, 1), nullptr},
                       pathInsertIndex(cam.store, cam.pathInsertMode, cam.pathInsertGroup),
                       breathing);
  for (FinishPass& pass : plan.passes) {
    auto entered = entries.entered(rowsOfPass(pass, levels));
    if (!entered) return false;
    pass.levels = std::move(*entered);
  }
  plan.entries = entries.notes();
  return true;
}

// Those into which a pass does drop.
std::vector<JobOvercut> overcutsOf(const FinishPass& pass, const CornerDrops& overcut) {
  std::vector<JobOvercut> corners;
  for (const PassStretch& stretch : pass.path.stretches) {
    for (const Curve& curve : stretch.curves) {
      for (const int number : overcut.endingAt(curve.end)) {
        const PlanePoint corner = overcut.drops()[static_cast<std::size_t>(number)].corner;
        corners.push_back({corner.x, corner.y});
      }
    }
  }
  return corners;
}

void placePasses(CamContext& cam, FinishPlan& plan, const JobWalls& walls) {
  DrawingStore& store = cam.store;
  Change change(cam.changes);
  for (FinishPass& pass : plan.passes) {
    store.currentpathgroup = nextPathGroup(store);
    const int index = pathInsertIndex(store, cam.pathInsertMode, cam.pathInsertGroup);
    placeLevels(cam, change, index, std::move(pass.levels));
    noteJob(cam, JobKind::Contour, pass.path.distance, walls,
            {.tabs = pass.tabs.tabs, .overcuts = overcutsOf(pass, plan.overcut)});
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
  const bool isBegun = unlessCancelled(
      cam, kStage, [&](const Breathing& breathing) { plan = beginPlan(cam, begun, breathing); });
  if (!isBegun || !plan || !chooseCorners(cam, *plan)) return;
  bool planned = false;
  const bool done = unlessCancelled(cam, kStage, [&](const Breathing& breathing) {
    planned = planPasses(cam, request.passes, levels, breathing, *plan);
  });
  if (!done || !planned) return;
  if (!addTabs(cam, levels.back().z, *plan)) return;
  bool entered = false;
  const bool complete = unlessCancelled(cam, kStage, [&](const Breathing& breathing) {
    entered = enterPasses(cam, levels, breathing, *plan);
  });
  if (!complete || !entered) return;
  placePasses(cam, *plan, wallsBeside(store, request.sg, request.reference));
  cam.context.state.setPendingaction(0);
  showPlacedPaths(cam);
  tellWhatFailed(cam, kCommand, plan->failed);
  tellEntries(cam, kCommand, plan->entries);
}

}  // namespace tess
