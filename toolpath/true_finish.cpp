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
#include "core/pocketing_choices.h"
#include "display/pointer.h"
#include "drafting/change.h"
#include "geometry/row_entity.h"
#include "toolpath/cancellable_command.h"
#include "toolpath/entry_moves.h"
#include "toolpath/finish_field.h"
#include "toolpath/frmCornerOvercut.h"
#include "toolpath/frmHoldingTabs.h"
#include "toolpath/job_walls.h"
#include "toolpath/lead_gouge.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_levels.h"
#include "toolpath/path_placement.h"
#include "toolpath/path_proof.h"
#include "toolpath/region_rows.h"
#include "toolpath/rest_region.h"
#include "toolpath/true_leads.h"
#include "toolpath/true_pocket.h"

namespace tess {
namespace {

constexpr char kCommand[] = "Place Finish Path";
constexpr char kStage[] = "Collecting Finish Points    ";
// Leads shorter than this share of the tool's radius are none.
constexpr double kShortestLead = 0.01;

// ---- The start

// The clicks may have found an end of one row and another row: then its own end.
Point startOn(const DrawingStore& store, const TrueFinishRequest& request) {
  const Entity row = segmentEntity(store, request.sg);
  const bool atEnd = distance(request.start, row.end) < distance(request.start, row.start);
  return atEnd ? row.end : row.start;
}

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

// ---- The ways

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
  std::unique_ptr<FinishChain> chain;
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
  plan.chain = std::make_unique<FinishChain>(chainFrom(store, request.sg, request.start));
  plan.field = finishFieldOf(cam, kCommand, *plan.chain, request.start, request.reference);
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
