// Machine cycles.
#include "toolpath/cycles.h"

#include <algorithm>
#include <array>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "drafting/pending_actions.h"
#include "geometry/entity.h"
#include "geometry/row_entity.h"
#include "toolpath/dlgSelectCycle.h"
#include "toolpath/job_notes.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

constexpr std::array kWithoutIncrement = {81, 82, 85, 89};
constexpr std::array kWithoutDwell = {79, 81, 83, 87};
constexpr int kSlotCycle = 79;  // runs from the marker to the click

int numberOf(const DrawingStore& store, int cycle) {
  return cycleNumber(store.cycletext[cycle]);
}

// The setup may have been replaced since the template was chosen.
bool isTemplate(const DrawingStore& store, int cycle) {
  return cycle >= 0 && cycle < store.NumCycles;
}

PathRow cycleRow(const DrawingStore& store, int cycle, Point from, Point to) {
  return {.type = numberOf(store, cycle),
          .x0 = from.x,
          .y0 = from.y,
          .x1 = to.x,
          .y1 = to.y,
          .xc = store.cycleincrdepth[cycle],
          .yc = store.cycledwell[cycle],
          .z = store.cyclefinaldepth[cycle],
          .feed = store.cyclefeedrate[cycle],
          .code = pathCode(store.currentpathgroup, store.selectedtool)};
}

// Appends the row to the current group and shows it.
void placeCycle(CamContext& cam, Change& change, const PathRow& row) {
  const int ps = change.paths.append(row);
  cam.store.showpaths = 1;
  cam.context.session.listener.Update_menu_checks();
  cam.context.renderer.drawtoolpath(ps, cam.context.ScreenProxy);
}

void placeInNewGroup(CamContext& cam, int cycle, Point from, Point to) {
  Change change(cam.changes);
  cam.store.currentpathgroup = nextPathGroup(cam.store);
  placeCycle(cam, change, cycleRow(cam.store, cycle, from, to));
  change.keep({.redraws = false});
  noteJob(cam, JobKind::None, 0);
}

Point marker(const DrawingStore& store) {
  return {store.markerx, store.markery};
}

// Fixed: a full turn is told by equal floats; arcs that merely nearly close get no hole.
bool isSelectedCircle(const DrawingStore& store, int sg) {
  if (!isSelected(store.segattr[sg])) return false;
  const Entity row = segmentEntity(store, sg);
  return row.type == kCircle || (isArc(row.type) && row.start == row.end);
}

void armPlacing(CamContext& cam) {
  arm(cam.context, PendingAction::PlaceCycle, /*drawMode=*/-1);
}

void clickPlaceCycle(CamContext& cam) {
  const DrawingStore& store = cam.store;
  if (!cam.selectedCycle || !isTemplate(store, *cam.selectedCycle)) return;
  const int cycle = *cam.selectedCycle;
  const Point click{cam.context.pointer.MouseX, cam.context.pointer.MouseY};
  const Point from = numberOf(store, cycle) == kSlotCycle ? marker(store) : click;
  placeInNewGroup(cam, cycle, from, click);
}

// Fixed: the first template is not repeated, as 0 stood for no choice; scripts go by that.
void repeatPlacing(CamContext& cam) {
  if (cam.selectedCycle.value_or(0) >= 1) armPlacing(cam);
}

}  // namespace

int cycleNumber(const std::string& cycletext) {
  return cycletext.size() < 2 ? 0 : parseInteger(cycletext.substr(1, 2));
}

bool cycleHasIncrement(int number) {
  return std::ranges::find(kWithoutIncrement, number) == kWithoutIncrement.end();
}

bool cycleHasDwell(int number) {
  return std::ranges::find(kWithoutDwell, number) == kWithoutDwell.end();
}

void placeCyclesAt(CamContext& cam, int cycle, std::span<const Point> points) {
  if (points.empty()) return;
  Change change(cam.changes);
  cam.store.currentpathgroup = nextPathGroup(cam.store);
  for (const Point at : points) placeCycle(cam, change, cycleRow(cam.store, cycle, at, at));
  change.keep({.redraws = false});
  noteJob(cam, JobKind::None, 0);
  refreshStatus(cam.context);  // no click follows that would show the new count
}

void placeCyclesAtSelectedCircles(CamContext& cam, int cycle) {
  std::vector<Point> centers;
  for (int sg = 1; sg <= cam.store.NumSegments; ++sg) {
    if (isSelectedCircle(cam.store, sg)) centers.push_back(segmentEntity(cam.store, sg).center);
  }
  placeCyclesAt(cam, cycle, centers);
}

void mnuCAMAddMachCycle_Click(CamContext& cam) {
  const Procedure here("frmMain.mnuCAMAddMachCycle_Click()");
  const std::optional<int> cycle = chooseCycle(cam);
  if (!cycle) return;
  placeInNewGroup(cam, *cycle, marker(cam.store), marker(cam.store));
  refreshStatus(cam.context);
}

void CAMAddMachCycleDeferred(CamContext& cam) {
  const Procedure here("frmMain.CAMAddMachCycleDeferred()");
  cam.selectedCycle = chooseCycle(cam);
  if (cam.selectedCycle) armPlacing(cam);
}

// ---- Descriptors

namespace {

constexpr Action<CamContext> kAddMachineCycleActions[] = {
    {{.action = PendingAction::PlaceCycle,
      .prompt = "Click spot to place machine cycle.",
      .left = "places the machine cycle there"},
     clickPlaceCycle},
};

}  // namespace

constexpr CamCommand kAddMachineCycleCommand{
    .info = {.tool = "miAddMachineCycle",
             .caption = "A&dd Machine Cycle...",
             .menu = {"miCAM", 270},
             .bar = {"barCAM", 250}},
    .run = CAMAddMachCycleDeferred,
    .actions = kAddMachineCycleActions,
    .repeat = {{PendingAction::PlaceCycle}, repeatPlacing},
};

}  // namespace tess
