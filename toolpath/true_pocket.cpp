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
#include "toolpath/entry_moves.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_levels.h"
#include "toolpath/path_placement.h"
#include "toolpath/region_rows.h"
#include "toolpath/scan_lathe.h"
#include "toolpath/true_lines.h"
#include "toolpath/true_rings.h"

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

std::string placeText(PlanePoint at) {
  return "X = " + plainText(roundTo(narrow(at.x), kDecimals)) +
         ", Y = " + plainText(roundTo(narrow(at.y), kDecimals));
}

// ---- What is asked for

bool isTurning(const DrawingStore& store) {
  return pocketingStyle(store) == PocketingStyle::Horizontal && store.cfg_lathe_style_pocketing;
}

// Radius, distance from the walls and step of a job.
struct JobMeasures {
  double radius = 0, distance = 0, step = 0;
};

// A clearance below 0 would cut into the part.
JobMeasures measuresOf(const DrawingStore& store) {
  const bool turning = isTurning(store);
  const double clearance = std::max(0.0F, float{store.cfg_min_rough_clearance});
  const double radius = turning ? 0.0 : double{store.toolradius[store.selectedtool]};
  return {radius, radius + clearance, stepOverDistance(store, turning)};
}

bool measuresAreSound(CamContext& cam, const JobMeasures& job) {
  if (!isTurning(cam.store) && !(job.radius > 0)) {
    tellRadius(cam, kCommand, narrow(job.radius));
    return false;
  }
  if (job.step > 0) return true;
  tell(cam, kCommand,
       "The Step Over Amount is " + plainText(narrow(job.step)) +
           ".  It must be above 0.\n\nNothing was placed.  It is set in Pocketing & Profiling "
           "Parameters.");
  return false;
}

bool stepIsLargeEnough(CamContext& cam, const JobMeasures& job, double lines) {
  if (lines < kMostLines) return true;
  tell(cam, kCommand,
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
  tell(cam, kCommand,
       finishFits ? "The tool does not fit into the pocket with this roughing clearance."
                  : "The tool does not fit into the pocket.");
  return false;
}

std::optional<RoughingField> fieldOf(CamContext& cam, const JobMeasures& job,
                                     const Breathing& breathing) {
  OutlineRegion outline = regionOf(verifiedOutlines(cam.store), cam.store.cfg_tolerance);
  if (!outlineIsSound(cam, kCommand, outline)) return std::nullopt;
  RoughingField field{std::move(outline.region), {}};
  field.offset = fittedOffset(field.region, job.distance, breathing);
  if (!toolFits(cam, job, field, breathing)) return std::nullopt;
  return field;
}

// Places where the finish path goes and roughing does not come near. The corners of an offset lie
// some clearances from those of another; a neck or a room that only the finish path enters lies
// farther.
std::vector<PlanePoint> placesForFinish(const RoughingField& field, const JobMeasures& job,
                                        const Breathing& breathing) {
  constexpr std::size_t kMostPlaces = 5;
  const double farthest = 4 * (job.distance - job.radius) + job.radius / 10;
  std::vector<PlanePoint> places;
  if (job.distance <= job.radius) return places;
  const PocketRegion finish = fittedOffset(field.region, job.radius, breathing).region;
  const auto isLeft = [&](PlanePoint at) {
    return !field.offset.region.index().nearest(lineCurve(at, at), farthest).has_value() &&
           !field.offset.region.isFree(at);
  };
  for (const RegionLoop& loop : finish.loops()) {
    bool wasLeft = false;
    for (const Curve& curve : loop.curves) {
      breathe(breathing);
      const PlanePoint at = pointAt(curve, 0.5);
      const bool left = isLeft(at);
      const bool isNew =
          left && !wasLeft && std::none_of(places.begin(), places.end(), [&](PlanePoint other) {
            return normOf(other - at) < 4 * job.radius;
          });
      if (isNew) places.push_back(at);
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
};

void addRows(const RoughingField& field, const JobMeasures& job, const RoomWay& way,
             const Breathing& breathing, RoughingPlan& plan) {
  RegionRows rows(field.region, job.distance, breathing);
  for (const std::vector<Curve>& run : way.runs()) rows.add(run);
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
  EntryPlanner planner(cam, kCommand, {isClear, job.distance, &field.offset.region}, depths.index,
                       breathing);
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

void finishCommand(CamContext& cam, const RoughingPlan& plan) {
  showPlacedPaths(cam);
  tellWhatFailed(cam, kCommand, plan.failed);
  tellEntries(cam, kCommand, plan.entries);
  tellWhatIsLeft(cam, plan.forFinish);
}

RoomWay::Rules wayRules(const DrawingStore& store, const JobMeasures& job) {
  return {job.distance, job.radius, store.cfg_connect_pocketing_paths};
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
  RoomWay way(field->region, wayRules(store, job));
  const LineRules rules{scanStyle(store), cuttingMode(store), job.step, true};
  cutLines(field->offset.region, rules, way, breathing);
  addRows(*field, job, way, breathing, plan);
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
  finishCommand(cam, *plan);
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

void roughByLathe(CamContext& cam, const JobMeasures& job) {
  std::optional<LathePlan> plan;
  const bool done = unlessCancelled(
      cam, kStage, [&](const Breathing& breathing) { plan = planLathe(cam, job, breathing); });
  if (!done || !plan) return;
  Change change(cam.changes);
  cam.store.currentpathgroup = nextPathGroup(cam.store);
  cutLatheSpans(cam, std::move(plan->run), cam.store.cfg_finish_feedrate, LatheLeave::ToStock);
  change.keep({.redraws = false});
  showPlacedPaths(cam);
  tellWhatFailed(cam, kCommand, plan->failed);
}

bool hasRows(CamContext& cam, const std::string& title, const std::string& text) {
  if (!verifiedOutlines(cam.store).empty()) return true;
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
       "The radius of the selected tool is " + plainText(radius) +
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

// Against the loops, which run with free space on their left: for conventional milling, and where
// the row at the click runs so.
bool ringsRunBack(const CamContext& cam, const PocketRegion& region, Point click) {
  if (cuttingMode(cam.store) == CuttingMode::Conventional) return true;
  if (cuttingMode(cam.store) == CuttingMode::Climb) return false;
  const PlanePoint at{click.x, click.y};
  const std::vector<Entity> rows = verifiedOutlines(cam.store);
  double nearest = std::numeric_limits<double>::infinity();
  PlanePoint drawn, loop;
  std::vector<Curve> curves;
  for (const Entity& row : rows) {
    curves.clear();
    appendCurves(row, curves);
    for (const Curve& curve : curves) {
      const double distance = distanceTo(curve, at);
      if (distance >= nearest) continue;
      nearest = distance;
      drawn = directionAt(curve, shareOf(curve, nearestOn(curve, at).at));
    }
  }
  nearest = std::numeric_limits<double>::infinity();
  for (const Curve& wall : region.walls()) {
    const double distance = distanceTo(wall, at);
    if (distance >= nearest) continue;
    nearest = distance;
    loop = directionAt(wall, shareOf(wall, nearestOn(wall, at).at));
  }
  return dot(drawn, loop) < 0;
}

// One more pass along the walls, in the direction of climb milling.
void addFinish(const RoughingField& field, const JobMeasures& job, PlanePoint from,
               const Breathing& breathing, RoughingPlan& plan) {
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
  addRows(field, {job.radius, job.radius, job.step}, way, breathing, plan);
}

// Half the way across the offset is the longest that rings can have to go.
double ringCount(const PocketRegion& offset, double step) {
  return lineCount(offset, ScanStyle::Horizontal, step) / 2;
}

std::optional<RoughingPlan> planRings(CamContext& cam, const JobMeasures& job, Point click,
                                      const RoughingDepths& depths, const Breathing& breathing) {
  const DrawingStore& store = cam.store;
  const auto field = fieldOf(cam, job, breathing);
  if (!field) return std::nullopt;
  if (!stepIsLargeEnough(cam, job, ringCount(field->offset.region, job.step))) return std::nullopt;
  RoughingPlan plan{.failed = !field->offset.lost.empty()};
  RoomWay way(field->region, wayRules(store, job));
  const RingRules rules{
      job.radius, job.step, ringsRunBack(cam, field->region, click), {click.x, click.y}, true};
  cutRings(field->offset.region, rules, way, breathing);
  addRows(*field, job, way, breathing, plan);
  if (!store.cfg_auto_place_finish_path) {
    plan.forFinish = placesForFinish(*field, job, breathing);
  } else if (job.distance > job.radius) {
    addFinish(*field, job, way.place(), breathing, plan);
  }
  if (!enterLevels(cam, *field, job, depths, breathing, plan)) return std::nullopt;
  return plan;
}

}  // namespace

void ringTruePocket(CamContext& cam, Point click) {
  const Procedure here("frmMain.parallelSpiralPocket(sg)");
  const DrawingStore& store = cam.store;
  const JobMeasures job = measuresOf(store);
  if (!hasRows(cam, kCommand, "No Pocketing Segments have been selected.")) return;
  if (!measuresAreSound(cam, job)) return;
  if (!levelsArePossible(cam, kCommand, ringsHaveLevels(store))) return;
  if (!entriesArePossible(cam, kCommand)) return;
  const BusyPointer busy(cam.context.systemPointer);
  const RoughingDepths depths{pathInsertIndex(store, cam.pathInsertMode, cam.pathInsertGroup),
                              levelsOf(store, ringsHaveLevels(store), store.cfg_finish_feedrate)};
  std::optional<RoughingPlan> plan;
  const bool done = unlessCancelled(cam, kStage, [&](const Breathing& breathing) {
    plan = planRings(cam, job, click, depths, breathing);
  });
  if (!done || !plan) return;
  placeRows(cam, *plan, depths);
  finishCommand(cam, *plan);
}

}  // namespace tess
