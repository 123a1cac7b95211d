// Rough pocketing by the true rules: outlines, offset, way, rows, levels.
#include "toolpath/true_pocket.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/pocketing_choices.h"
#include "core/rounding.h"
#include "display/pointer.h"
#include "drafting/change.h"
#include "geometry/row_entity.h"
#include "toolpath/cancellable_command.h"
#include "toolpath/engagement_limit.h"
#include "toolpath/entry_moves.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_levels.h"
#include "toolpath/path_placement.h"
#include "toolpath/path_proof.h"
#include "toolpath/proof_groups.h"
#include "toolpath/region_rows.h"
#include "toolpath/rest_region.h"
#include "toolpath/scan_lathe.h"
#include "toolpath/true_lines.h"
#include "toolpath/true_rings.h"
#include "toolpath/verification_result.h"

namespace tess {
namespace {

constexpr char kCommand[] = "Rough Cut Pocket";
constexpr char kStage[] = "Collecting Roughing Points    ";
constexpr double kMostLines = std::numeric_limits<std::int16_t>::max();
constexpr int kDecimals = 5;

void tell(CamContext& cam, const std::string& title, const std::string& text) {
  cam.context.session.host.prompts.showMessage(
      {.text = text, .title = title, .icon = MessageIcon::Warning});
}

// Scripts can set what no form takes.
std::string figureText(double value) {
  return std::isnan(value) ? "not a number" : plainText(narrow(value));
}

std::string placeText(PlanePoint at) {
  return "X = " + plainText(roundTo(narrow(at.x), kDecimals)) +
         ", Y = " + plainText(roundTo(narrow(at.y), kDecimals));
}

// ---- What is asked for

bool isTurning(const DrawingStore& store) {
  return pocketingStyle(store) == PocketingStyle::Horizontal && store.cfg_lathe_style_pocketing;
}

// Lines have no limit of the engagement.
bool limitsEngagement(const DrawingStore& store) {
  return isEngagementLimited(store) && pocketingStyle(store) == PocketingStyle::ParallelSpiral;
}

// Radius, distance from the walls and step of a job.
struct JobMeasures {
  double radius = 0, distance = 0, step = 0;
  double rounding = 0;  // the most by which rows may be off
  const char* command = kCommand;
  bool onlyRest = false;  // what rows of before have left
};

// A clearance below 0 would cut into the part.
JobMeasures measuresOf(const DrawingStore& store) {
  const bool turning = isTurning(store);
  const double clearance = std::max(0.0F, float{store.cfg_min_rough_clearance});
  const double radius = turning ? 0.0 : double{store.toolradius[store.selectedtool]};
  const double step = stepOverDistance(store, turning);
  return {.radius = radius,
          .distance = radius + clearance,
          .step = limitsEngagement(store) ? limitedStep(store, step) : step,
          .rounding = proofLimits(store).depth};
}

bool measuresAreSound(CamContext& cam, const JobMeasures& job) {
  if (!isTurning(cam.store) && !(job.radius > 0)) {
    tellRadius(cam, job.command, static_cast<float>(job.radius));
    return false;
  }
  if (job.step > 0) return true;
  tell(cam, job.command,
       "The Step Over Amount is " + figureText(job.step) +
           ".  It must be above 0.\n\nNothing was placed.  It is set in Pocketing & Profiling "
           "Parameters.");
  return false;
}

bool stepIsLargeEnough(CamContext& cam, const JobMeasures& job, double lines) {
  if (lines < kMostLines) return true;
  tell(cam, job.command,
       "The Step Over Amount is " + plainText(narrow(job.step)) +
           ".  That is too small for the pocket.\n\nNothing was placed.  It is set in Pocketing & "
           "Profiling Parameters.");
  return false;
}

// ---- What the tool may not do

// The outlines and where the tool may be in them.
struct RoughingField {
  PocketRegion region;
  RegionOffset offset;
};

bool toolFits(CamContext& cam, const JobMeasures& job, const RoughingField& field,
              const Breathing& breathing) {
  if (!field.offset.region.isEmpty()) return true;
  const bool finishFits = job.radius < job.distance &&
                          !fittedOffset(field.region, job.radius, breathing).region.isEmpty();
  tell(cam, job.command,
       finishFits ? "The tool does not fit into the pocket with this roughing clearance."
                  : "The tool does not fit into the pocket.");
  return false;
}

std::optional<RoughingField> fieldOf(CamContext& cam, const JobMeasures& job,
                                     const Breathing& breathing) {
  OutlineRegion outline = regionOf(verifiedOutlines(cam.store), cam.store.cfg_tolerance);
  if (!outlineIsSound(cam, job.command, outline)) return std::nullopt;
  RoughingField field{std::move(outline.region), {}};
  field.offset = fittedOffset(field.region, job.distance, breathing);
  if (!toolFits(cam, job, field, breathing)) return std::nullopt;
  return field;
}

// Where roughing does not come near. The corners of an offset lie some clearances from those of
// another; a neck or a room that only the finish path enters lies farther.
bool isLeftForFinish(const RoughingField& field, const JobMeasures& job, PlanePoint at) {
  const double farthest = 4 * (job.distance - job.radius) + job.radius / 10;
  const PocketRegion& roughed = field.offset.region;
  return !roughed.index().nearest(lineCurve(at, at), farthest) && !roughed.isFree(at);
}

// One place of each stretch of the finish path of which nothing is roughed.
std::vector<PlanePoint> placesForFinish(const RoughingField& field, const JobMeasures& job,
                                        const Breathing& breathing) {
  constexpr std::size_t kMostPlaces = 5;
  std::vector<PlanePoint> places;
  if (job.distance <= job.radius) return places;
  const auto isNew = [&](PlanePoint at) {
    return std::none_of(places.begin(), places.end(),
                        [&](PlanePoint other) { return normOf(other - at) < 4 * job.radius; });
  };
  const PocketRegion finish = fittedOffset(field.region, job.radius, breathing).region;
  for (const RegionLoop& loop : finish.loops()) {
    bool wasLeft = false;
    for (const Curve& curve : loop.curves) {
      breathe(breathing);
      const PlanePoint at = pointAt(curve, 0.5);
      const bool left = isLeftForFinish(field, job, at);
      if (left && !wasLeft && isNew(at)) places.push_back(at);
      if (places.size() == kMostPlaces) return places;
      wasLeft = left;
    }
  }
  return places;
}

void tellWhatIsLeft(CamContext& cam, const std::vector<PlanePoint>& places) {
  if (places.empty()) return;
  std::string text = "Places that only the finish path reaches are left:";
  for (const PlanePoint at : places) text += "\n" + placeText(at);
  tell(cam, kCommand, text);
}

// ---- Rows

// All that a command is going to place, and to tell. Nothing of it stands in the drawing before it
// is complete.
struct RoughingPlan {
  std::vector<Entity> rows{};
  bool failed = false;                  // a part of the path could not be placed
  std::vector<LevelRows> levels{};      // the rows at all levels, with their ways in
  std::vector<std::string> entries{};   // what is to be told about these
  std::vector<PlanePoint> forFinish{};  // that roughing does not come near
  EngagementExcess excess{};            // where a limit of the engagement is not kept
};

void addRows(const RoughingField& field, const JobMeasures& job,
             const std::vector<std::vector<Curve>>& runs, const Breathing& breathing,
             RoughingPlan& plan) {
  RegionRows rows(field.region, job.distance, breathing);
  rows.setRoundingLimit(job.rounding);
  for (const std::vector<Curve>& run : runs) rows.add(run);
  plan.rows.insert(plan.rows.end(), rows.rows().begin(), rows.rows().end());
  plan.failed |= rows.refused();
}

// Where they are going to stand, and how deep.
struct RoughingDepths {
  int index = 1;  // of the table, in front of which the first level comes
  std::vector<PathLevel> levels;
};

// False after a message.
bool enterLevels(CamContext& cam, const RoughingField& field, const JobMeasures& job,
                 const RoughingDepths& depths, const Breathing& breathing, RoughingPlan& plan) {
  const auto isClear = [&field](const Curve& curve, double distance) {
    return field.region.isClear(curve, distance);
  };
  EntryPlanner planner(cam, job.command,
                       {isClear, job.distance, &field.offset.region, limitsEngagement(cam.store)},
                       depths.index, breathing);
  auto levels = planner.entered(rowsAtLevels(plan.rows, depths.levels));
  if (!levels) return false;
  plan.levels = std::move(*levels);
  plan.entries = planner.notes();
  return true;
}

void placeRows(CamContext& cam, RoughingPlan& plan, const RoughingDepths& depths) {
  Change change(cam.changes);
  cam.store.currentpathgroup = nextPathGroup(cam.store);
  cam.currentZ = depths.levels.back().z;
  placeLevels(cam, change, depths.index, std::move(plan.levels));
  change.keep({.redraws = false});
}

void finishCommand(CamContext& cam, const JobMeasures& job, const RoughingPlan& plan) {
  showPlacedPaths(cam);
  tellWhatFailed(cam, job.command, plan.failed);
  tellEntries(cam, job.command, plan.entries);
  tellExcess(cam, job.command, plan.excess);
  tellWhatIsLeft(cam, plan.forFinish);
}

RoomWay::Rules wayRules(const DrawingStore& store, const JobMeasures& job) {
  return {job.distance, job.radius, store.cfg_connect_pocketing_paths};
}

// ---- What is left

// Nothing after a message.
std::optional<RestPlaces> restOf(CamContext& cam, const RoughingField& field,
                                 const JobMeasures& job, float floor, const Breathing& breathing) {
  const std::vector<SweptCurve> taken = cutBefore(cam, floor, breathing);
  RestPlaces rest = restOfRegion(field.offset.region, job.radius, taken, breathing);
  const bool isLarger = isLargerThanAll(job.radius, taken);
  if (rest.isEmpty()) {
    tellNothingLeft(cam, job.command, isLarger);
    return std::nullopt;
  }
  if (isLarger) {
    tell(cam, job.command,
         "The selected tool is larger than those that have cut there: it clears only what it can "
         "reach.");
  }
  return rest;
}

// Only where the tool takes something, place by place.
std::vector<std::vector<Curve>> partsOf(const RoomWay& whole, const RestPlaces& rest,
                                        const RoughingField& field, const JobMeasures& job,
                                        const RoomWay::Rules& rules) {
  std::vector<std::vector<Curve>> pieces;
  for (const std::vector<Curve>& run : whole.runs()) {
    for (std::vector<Curve>& part : rest.partsOf(run)) pieces.push_back(std::move(part));
  }
  constexpr double kNeighbours = 1.5;  // steps
  RoomWay way(field.region, rules);
  PlanePoint at = pieces.empty() ? PlanePoint{} : pieces.front().front().start;
  for (std::vector<Curve>& piece : orderedByPlace(std::move(pieces), kNeighbours * job.step, at)) {
    const bool isNear = normOf(piece.front().start - at) <= 2 * (job.radius + job.step);
    at = piece.back().end;
    way.cut(piece, /*linked=*/isNear);
  }
  return way.runs();
}

// ---- Lines

ScanStyle scanStyle(const DrawingStore& store) {
  if (pocketingStyle(store) == PocketingStyle::Vertical) return ScanStyle::Vertical;
  return isTurning(store) ? ScanStyle::Lathe : ScanStyle::Horizontal;
}

// Fixed: equal heights are several levels here, one level with rings; programs of both differ.
bool linesHaveLevels(const DrawingStore& store) {
  return -std::abs(store.cfg_start_depth) >= roughingFloor(store);
}

bool linesAreFewEnough(CamContext& cam, const RoughingField& field, const JobMeasures& job) {
  const double lines = lineCount(field.offset.region, scanStyle(cam.store), job.step);
  return stepIsLargeEnough(cam, job, lines);
}

// Nothing after a message.
std::optional<RoughingPlan> planLines(CamContext& cam, const JobMeasures& job,
                                      const RoughingDepths& depths, const Breathing& breathing) {
  const DrawingStore& store = cam.store;
  const auto field = fieldOf(cam, job, breathing);
  if (!field || !linesAreFewEnough(cam, *field, job)) return std::nullopt;
  cam.context.statusBar.setText(kStage);
  breathe(breathing);
  RoughingPlan plan{.failed = !field->offset.lost.empty()};
  const LineRules rules{scanStyle(store), cuttingMode(store), job.step, true};
  RoomWay::Rules links = wayRules(store, job);
  if (job.onlyRest) {
    const auto rest = restOf(cam, *field, job, depths.levels.back().z, breathing);
    if (!rest) return std::nullopt;
    RoomWay whole(field->region, {job.distance, job.radius, false});
    cutLines(field->offset.region, rules, whole, breathing);
    addRows(*field, job, partsOf(whole, *rest, *field, job, links), breathing, plan);
    if (!enterLevels(cam, *field, job, depths, breathing, plan)) return std::nullopt;
    return plan;
  }
  RoomWay way(field->region, links);
  cutLines(field->offset.region, rules, way, breathing);
  addRows(*field, job, way.runs(), breathing, plan);
  plan.forFinish = placesForFinish(*field, job, breathing);
  if (!enterLevels(cam, *field, job, depths, breathing, plan)) return std::nullopt;
  return plan;
}

void roughByLines(CamContext& cam, const JobMeasures& job) {
  const DrawingStore& store = cam.store;
  const RoughingDepths depths{store.NumPathSegments + 1,
                              levelsOf(store, linesHaveLevels(store), store.cfg_rough_feedrate)};
  std::optional<RoughingPlan> plan;
  const bool done = unlessCancelled(cam, kStage, [&](const Breathing& breathing) {
    plan = planLines(cam, job, depths, breathing);
  });
  if (!done || !plan) return;
  placeRows(cam, *plan, depths);
  finishCommand(cam, job, *plan);
}

// ---- Lathe

// The lathe's lines are those of all of the offset, at its one level.
struct LathePlan {
  ScanRun run;
  bool failed = false;
};

std::optional<LathePlan> planLathe(CamContext& cam, const JobMeasures& job,
                                   const Breathing& breathing) {
  const auto field = fieldOf(cam, job, breathing);
  if (!field || !linesAreFewEnough(cam, *field, job)) return std::nullopt;
  cam.context.statusBar.setText(kStage);
  breathe(breathing);
  const LineScan scan = scanRegion(field->offset.region, ScanStyle::Lathe, job.step, breathing);
  LathePlan plan{{ScanStyle::Lathe, narrow(job.step), {0, narrow(scan.bound)}, {}},
                 !field->offset.lost.empty()};
  for (const std::vector<ClearSpan>& line : scan.lines) {
    for (const ClearSpan& span : line) {
      plan.run.spans.push_back({narrow(span.line), narrow(span.from), narrow(span.to)});
    }
  }
  return plan;
}

// A boring bar keeps off the wall of the hole by the clearance that it leaves at the others.
LatheSide latheSide(const DrawingStore& store, const JobMeasures& job) {
  constexpr float kBothSides = 2;
  return {.isInside = store.toolinside[store.selectedtool] != 0,
          .clearance = kBothSides * narrow(job.distance)};
}

void roughByLathe(CamContext& cam, const JobMeasures& job) {
  std::optional<LathePlan> plan;
  const bool done = unlessCancelled(
      cam, kStage, [&](const Breathing& breathing) { plan = planLathe(cam, job, breathing); });
  if (!done || !plan) return;
  Change change(cam.changes);
  cam.store.currentpathgroup = nextPathGroup(cam.store);
  cutLatheSpans(cam, std::move(plan->run), cam.store.cfg_finish_feedrate, LatheLeave::ToStock,
                latheSide(cam.store, job));
  change.keep({.redraws = false});
  showPlacedPaths(cam);
  tellWhatFailed(cam, kCommand, plan->failed);
}

bool hasRows(CamContext& cam, const std::string& title, const std::string& text) {
  if (!verifiedOutlines(cam.store).empty()) return true;
  cam.context.session.results.tell(nothingToRough());
  tell(cam, title, text);
  return false;
}

}  // namespace

std::vector<Entity> verifiedOutlines(const DrawingStore& store) {
  std::vector<Entity> rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] == kVerifiedRow) rows.push_back(segmentEntity(store, sg));
  }
  return rows;
}

double stepOverDistance(const DrawingStore& store, bool turning) {
  const double radius = store.toolradius[store.selectedtool];
  const double step = stepsByDistance(store) ? double{store.cfg_tool_spacing_distance}
                                             : store.cfg_tool_spacing * radius / 50;
  return turning ? step : std::min(step, 2 * radius);
}

void tellRadius(CamContext& cam, const std::string& command, float radius) {
  tell(cam, command,
       "The radius of the selected tool is " + figureText(radius) +
           ".  It must be above 0.\n\nNothing was placed.");
}

void tellWhatFailed(CamContext& cam, const std::string& command, bool failed) {
  if (!failed) return;
  tell(cam, command, "A part of the path could not be placed. Please check the path proof.");
}

bool outlineIsSound(CamContext& cam, const std::string& command, const OutlineRegion& outline) {
  if (!outline.fault) return true;
  const std::string place = "X = " + plainText(roundTo(narrow(outline.fault->at.x), kDecimals)) +
                            "   Y = " + plainText(roundTo(narrow(outline.fault->at.y), kDecimals));
  tell(cam, command,
       outline.fault->kind == OutlineFault::Kind::TwoRadii
           ? "An arc of the outline has two radii:  " + place
           : "Pocket or Island profile discontinuous at:  " + place);
  return false;
}

void roughTruePocket(CamContext& cam) {
  const Procedure here("roughTruePocket()");
  const JobMeasures job = measuresOf(cam.store);
  const bool turning = isTurning(cam.store);
  if (!hasRows(cam, "", "No segments selected!") || !measuresAreSound(cam, job)) return;
  if (!turning && !levelsArePossible(cam, kCommand, linesHaveLevels(cam.store))) return;
  if (!turning && !entriesArePossible(cam, kCommand)) return;
  const BusyPointer busy(cam.context.systemPointer);
  turning ? roughByLathe(cam, job) : roughByLines(cam, job);
}

namespace {

// Fixed: a start depth at the floor is one level here, several with scan lines; programs differ.
bool ringsHaveLevels(const DrawingStore& store) {
  return -std::abs(store.cfg_start_depth) > roughingFloor(store);
}

// Of the curve that is nearest to a place, the first of several.
PlanePoint directionNear(const std::vector<Curve>& curves, PlanePoint at) {
  const auto nearest = std::min_element(
      curves.begin(), curves.end(),
      [at](const Curve& a, const Curve& b) { return distanceTo(a, at) < distanceTo(b, at); });
  if (nearest == curves.end()) return {};
  return directionAt(*nearest, shareOf(*nearest, nearestOn(*nearest, at).at));
}

// Against the loops, which run with free space on their left: for conventional milling, and where
// the row at the click runs so.
bool ringsRunBack(const CamContext& cam, const PocketRegion& region, Point click) {
  if (cuttingMode(cam.store) == CuttingMode::Conventional) return true;
  if (cuttingMode(cam.store) == CuttingMode::Climb) return false;
  const PlanePoint at{click.x, click.y};
  std::vector<Curve> drawn;
  for (const Entity& row : verifiedOutlines(cam.store)) appendCurves(row, drawn);
  return dot(directionNear(drawn, at), directionNear(region.walls(), at)) < 0;
}

// What rows before those of a command have taken; when it comes before others, none.
std::vector<SweptCurve> takenBefore(CamContext& cam, const RoughingDepths& depths,
                                    const Breathing& breathing) {
  if (depths.index <= cam.store.NumPathSegments) return {};
  return cutBefore(cam, depths.levels.back().z, breathing);
}

// Runs become rows, with a limiter split by it.
using Limiter = std::optional<EngagementLimiter>;
void addRuns(const RoughingField& field, const JobMeasures& job,
             std::vector<std::vector<Curve>> runs, Limiter& limiter, const Breathing& breathing,
             RoughingPlan& plan) {
  if (limiter) {
    for (std::vector<Curve>& run : runs) {
      run = limiter->limited(field.region, job.distance, run);
      if (limiter->isTooLong()) return;
    }
  }
  addRows(field, job, runs, breathing, plan);
}

// False after a message.
bool loopsFit(CamContext& cam, const JobMeasures& job, const Limiter& limiter) {
  if (!limiter || !limiter->isTooLong()) return true;
  tellTooManyLoops(cam, job.command);
  return false;
}

// One more pass along the walls, in the direction of climb milling.
void addFinish(const RoughingField& field, const JobMeasures& job, PlanePoint from,
               Limiter& limiter, const Breathing& breathing, RoughingPlan& plan) {
  RoomWay way(field.region, {job.radius, job.radius, false});
  way.startAt(from);
  const PocketRegion finish = fittedOffset(field.region, job.radius, breathing).region;
  for (const Room& room : roomsOf(finish)) {
    std::vector<int> loops = room.holes;
    loops.push_back(room.outer);
    for (const int number : loops) {
      breathe(breathing);
      const RegionLoop& loop = finish.loops()[static_cast<std::size_t>(number)];
      way.cut(loopFrom(loop, nearestPlace(loop, way.place())), /*linked=*/false);
    }
  }
  addRuns(
      field,
      {.radius = job.radius, .distance = job.radius, .step = job.step, .rounding = job.rounding},
      way.runs(), limiter, breathing, plan);
}

// Half the way across the offset is the longest that rings can have to go.
double ringCount(const PocketRegion& offset, double step) {
  return lineCount(offset, ScanStyle::Horizontal, step) / 2;
}

Limiter limiterOf(CamContext& cam, const RoughingDepths& depths, bool reversed,
                  const Breathing& breathing) {
  if (!limitsEngagement(cam.store)) return std::nullopt;
  return Limiter(std::in_place, limitRules(cam.store, depths.levels.size(), reversed),
                 takenBefore(cam, depths, breathing), breathing);
}

void addRings(const DrawingStore& store, const RoughingField& field, const JobMeasures& job,
              const RingRules& rules, Limiter& limiter, const Breathing& breathing,
              RoughingPlan& plan) {
  RoomWay way(field.region, wayRules(store, job));
  cutRings(field.offset.region, rules, way, breathing);
  addRuns(field, job, way.runs(), limiter, breathing, plan);
  if (!store.cfg_auto_place_finish_path) {
    plan.forFinish = placesForFinish(field, job, breathing);
  } else if (job.distance > job.radius) {
    addFinish(field, job, way.place(), limiter, breathing, plan);
  }
}

void addRingsOfRest(const DrawingStore& store, const RoughingField& field, const JobMeasures& job,
                    const RestPlaces& rest, RingRules rules, Limiter& limiter,
                    const Breathing& breathing, RoughingPlan& plan) {
  rules.deepest = rest.depthIn(field.offset.region, breathing);
  RoomWay whole(field.region, {job.distance, job.radius, false});
  cutRings(field.offset.region, rules, whole, breathing);
  addRuns(field, job, partsOf(whole, rest, field, job, wayRules(store, job)), limiter, breathing,
          plan);
}

std::optional<RoughingPlan> planRings(CamContext& cam, const JobMeasures& job, Point click,
                                      const RoughingDepths& depths, const Breathing& breathing) {
  const DrawingStore& store = cam.store;
  const auto field = fieldOf(cam, job, breathing);
  if (!field) return std::nullopt;
  if (!stepIsLargeEnough(cam, job, ringCount(field->offset.region, job.step))) return std::nullopt;
  RoughingPlan plan{.failed = !field->offset.lost.empty()};
  const RingRules rules{.radius = job.radius,
                        .step = job.step,
                        .reversed = ringsRunBack(cam, field->region, click),
                        .click = {click.x, click.y}};
  Limiter limiter = limiterOf(cam, depths, rules.reversed, breathing);
  if (job.onlyRest) {
    const auto rest = restOf(cam, *field, job, depths.levels.back().z, breathing);
    if (!rest) return std::nullopt;
    addRingsOfRest(store, *field, job, *rest, rules, limiter, breathing, plan);
  } else {
    addRings(store, *field, job, rules, limiter, breathing, plan);
  }
  if (!loopsFit(cam, job, limiter)) return std::nullopt;
  if (!enterLevels(cam, *field, job, depths, breathing, plan)) return std::nullopt;
  if (limiter) {
    const auto groups = proofGroups(store, cam.context.session.pathJobs, breathing);
    plan.excess = excessOf(store, groups, {plan.levels, depths.index, job.radius}, limitTold(store),
                           breathing);
  }
  return plan;
}

}  // namespace

namespace {

void roughByRings(CamContext& cam, const JobMeasures& job, Point click) {
  const DrawingStore& store = cam.store;
  const BusyPointer busy(cam.context.systemPointer);
  const RoughingDepths depths{pathInsertIndex(store, cam.pathInsertMode, cam.pathInsertGroup),
                              levelsOf(store, ringsHaveLevels(store), store.cfg_finish_feedrate)};
  std::optional<RoughingPlan> plan;
  const bool done = unlessCancelled(cam, kStage, [&](const Breathing& breathing) {
    plan = planRings(cam, job, click, depths, breathing);
  });
  if (!done || !plan) return;
  placeRows(cam, *plan, depths);
  finishCommand(cam, job, *plan);
}

}  // namespace

void ringTruePocket(CamContext& cam, Point click) {
  const Procedure here("frmMain.parallelSpiralPocket(sg)");
  const JobMeasures job = measuresOf(cam.store);
  if (!hasRows(cam, kCommand, "No Pocketing Segments have been selected.")) return;
  if (!measuresAreSound(cam, job)) return;
  if (!levelsArePossible(cam, kCommand, ringsHaveLevels(cam.store))) return;
  if (!entriesArePossible(cam, kCommand)) return;
  if (!engagementLimitIsPossible(cam, kCommand)) return;
  roughByRings(cam, job, click);
}

void tellNothingLeft(CamContext& cam, const std::string& command, bool isLarger) {
  tell(cam, command,
       std::string("Nothing is left that the selected tool can reach.") +
           (isLarger ? "  It is larger than those that have cut there." : "") +
           "\n\nNothing was placed.");
}

void roughTrueRest(CamContext& cam, const char* command) {
  const Procedure here("roughTrueRest()");
  const DrawingStore& store = cam.store;
  JobMeasures job = measuresOf(store);
  job.command = command;
  job.onlyRest = true;
  const std::vector<Entity> outlines = verifiedOutlines(store);
  const bool rings = pocketingStyle(store) == PocketingStyle::ParallelSpiral;
  const bool several = rings ? ringsHaveLevels(store) : linesHaveLevels(store);
  if (!hasRows(cam, command, "No Pocketing Segments have been selected.")) return;
  if (!measuresAreSound(cam, job) || !levelsArePossible(cam, command, several)) return;
  if (!entriesArePossible(cam, command)) return;
  if (rings && !engagementLimitIsPossible(cam, command)) return;
  if (rings) return roughByRings(cam, job, outlines.front().start);
  const BusyPointer busy(cam.context.systemPointer);
  roughByLines(cam, job);
}

}  // namespace tess
