// Selection by click, by window and along chains.
#include "drafting/selection.h"

#include <array>
#include <functional>
#include <queue>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "display/renderer.h"
#include "drafting/drafting_commands.h"
#include "drafting/pending_actions.h"
#include "geometry/end_point_index.h"
#include "geometry/float_intersections.h"
#include "geometry/float_nearest.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

constexpr int kAllGroups = 0;
constexpr int kBranch = -1;

Point mouse(const Desk& desk) {
  return {desk.pointer.MouseX, desk.pointer.MouseY};
}

void refreshProperties(Desk& desk) {
  desk.state.updateProperties = true;
  desk.listener.UpdatePropertyWindow();
}

// The corners in the order in which they are asked.
std::array<Point, 4> cornersOf(const SelectionWindow& window) {
  return {{window.from, {window.from.x, window.to.y}, window.to, {window.to.x, window.from.y}}};
}

bool inWindow(Point point, const SelectionWindow& window) {
  return pointInSegBox(point, window.from, window.to);
}

// A row touches the window when its nearest point to one of the corners lies inside.
template <typename NearestTo>
bool touches(const SelectionWindow& window, NearestTo nearestTo) {
  for (const Point corner : cornersOf(window)) {
    const NearestPoint nearest = nearestTo(corner);
    if (nearest && inWindow(nearest.at, window)) return true;
  }
  return false;
}

bool segmentInWindow(const DrawingStore& store, int sg, const SelectionWindow& window,
                     bool exclusive) {
  const Entity row = segmentEntity(store, sg);
  if (exclusive) return inWindow(row.start, window) && inWindow(row.end, window);
  return touches(window, [&](Point corner) { return nearestOnSeg(store, sg, corner); });
}

bool pathInWindow(const DrawingStore& store, int ps, const SelectionWindow& window,
                  bool exclusive) {
  const Entity row = pathEntity(store, ps);
  if (exclusive) return inWindow(row.start, window) && inWindow(row.end, window);
  return touches(window, [&](Point corner) { return nearestPointOfPathRow(store, ps, corner); });
}

// The one untagged row that touches `at`, 0 for none, kBranch for several.
int neighbourAt(const EndPointIndex& ends, Point at, const std::vector<bool>& tagged) {
  std::vector<EndMatch> matches;
  ends.rowsAt(at, matches);
  int neighbour = 0;
  for (const EndMatch& match : matches) {
    if (tagged[static_cast<std::size_t>(match.row)]) continue;
    if (neighbour != 0) return kBranch;
    neighbour = match.row;
  }
  return neighbour;
}

// One row of the chain while the walk goes on beyond it: first past its start, then past its end.
// A stack of its own takes the place of recursion, whose depth would be the chain's length.
struct ChainStep {
  std::array<int, 2> neighbours{};
  std::array<Point, 2> ends;
  std::size_t side = 0;
};

std::string branchText(Point at) {
  return "\n(" + plainText(at.x) + "," + plainText(at.y) + ")";
}

// Fixed: the nearest row counts however far it is; scripts click beside what they mean.
void pickNearest(Desk& desk, bool select) {
  if (desk.command.EditPaths) {
    const int ps = nearestPathSeg(desk.store, mouse(desk), kAllGroups);
    if (ps > 0) markPathSegment(desk, ps, select);
  } else {
    const int sg = nearestSeg(desk.store, mouse(desk));
    if (sg > 0) markSegment(desk, sg, select);
  }
}

void selectChain(Desk& desk, bool select, std::string& message) {
  if (desk.command.EditPaths) {
    const int ps = nearestPathSeg(desk.store, mouse(desk), kAllGroups);
    if (ps > 0) selectContiguousPaths(desk, select, ps);
    return;
  }
  const int sg = nearestSeg(desk.store, mouse(desk));
  if (sg < 1) return;
  std::vector<bool> tagged(static_cast<std::size_t>(desk.store.NumSegments) + 1);
  SelectContiguous(desk, select, sg, tagged, message);
}

void pickContiguous(Desk& desk, bool select) {
  desk.systemPointer.setMousePointer(kHourglassShape);
  std::string message;
  selectChain(desk, select, message);
  if (!message.empty()) {
    desk.session.host.prompts.showMessage(
        {.text =
             "Branching detected. Select the correct branch at the following points: \n" + message,
         .title = desk.session.productname});
  }
  desk.systemPointer.setMousePointer(kDefaultShape);
}

void selectAllSegments(Desk& desk) {
  const DrawingStore& store = desk.store;
  Change change(desk.changes);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (hasSelectionMark(store.segattr[sg])) continue;
    change.segments.mark(sg, selectedAttribute(store.segattr[sg], /*select=*/true));
    desk.renderer.DrawSegment(sg, desk.ScreenProxy);
  }
  change.keep();
  desk.state.Selected.fill(store.NumSegments);
}

void markAllPaths(Desk& desk, bool select) {
  const DrawingStore& store = desk.store;
  Change change(desk.changes);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (hasSelectionMark(store.pscode[ps]) == select) continue;
    change.paths.mark(ps, store.pscode[ps] + (select ? kSelected : -kSelected));
    desk.renderer.drawtoolpath(ps, desk.ScreenProxy);
  }
  change.keep();
}

void unselectAllSegments(Desk& desk) {
  const DrawingStore& store = desk.store;
  Change change(desk.changes);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int attr = store.segattr[sg];
    if (hasSelectionMark(attr)) change.segments.mark(sg, entityClass(attr));
    desk.renderer.DrawSegment(sg, desk.ScreenProxy);
  }
  change.keep();
  desk.state.Selected.clear();
}

}  // namespace

// Fixed: verified rows do not count; Delete with these alone waits for a click.
int selectedCount(const DrawingStore& store) {
  int count = 0;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (isSelectedOrdinary(store.segattr[sg])) ++count;
  }
  return count;
}

// Fixed: marking forgets the hundreds; a verified outline must be verified again.
int selectedAttribute(int segattr, bool select) {
  return entityClass(segattr) + (select ? kSelected : 0);
}

int selectedCode(int pscode, bool select) {
  if (!select) return withoutSelection(pscode);
  return hasSelectionMark(pscode) ? pscode : pscode + kSelected;
}

void markSegment(Desk& desk, int sg, bool select) {
  Change change(desk.changes);
  change.segments.mark(sg, selectedAttribute(desk.store.segattr[sg], select));
  change.keep();
  desk.renderer.DrawSegment(sg, desk.ScreenProxy);
  desk.state.updateProperties = true;
  if (select) {
    desk.state.Selected.add(sg);
  } else {
    desk.state.Selected.remove(sg);
  }
}

void markPathSegment(Desk& desk, int ps, bool select) {
  Change change(desk.changes);
  change.paths.mark(ps, selectedCode(desk.store.pscode[ps], select));
  change.keep();
  desk.renderer.drawtoolpath(ps, desk.ScreenProxy);
}

void SelectWindow(Desk& desk, bool select, const SelectionWindow& window, bool exclusive) {
  const Procedure here("frmMain.SelectWindow(SelectSegments,x0,y0,X1,y1,Exclusive)");
  const DrawingStore& store = desk.store;
  Change change(desk.changes);
  if (desk.command.EditPaths) {
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
      if (pathInWindow(store, ps, window, exclusive)) markPathSegment(desk, ps, select);
    }
  } else {
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      if (segmentInWindow(store, sg, window, exclusive)) markSegment(desk, sg, select);
    }
  }
  change.keep();
}

void SelectContiguous(Desk& desk, bool select, int seg, std::vector<bool>& tagged,
                      std::string& message) {
  const EndPointIndex ends = segmentEndIndex(desk.store);
  Change change(desk.changes);
  const auto visit = [&](int sg) {
    markSegment(desk, sg, select);
    tagged[static_cast<std::size_t>(sg)] = true;
    const Entity row = segmentEntity(desk.store, sg);
    return ChainStep{{neighbourAt(ends, row.start, tagged), neighbourAt(ends, row.end, tagged)},
                     {row.start, row.end}};
  };
  std::vector<ChainStep> walk{visit(seg)};
  while (!walk.empty()) {
    ChainStep& step = walk.back();
    if (step.side == step.ends.size()) {
      walk.pop_back();
      continue;
    }
    const std::size_t side = step.side++;
    if (step.neighbours[side] == kBranch) message += branchText(step.ends[side]);
    if (step.neighbours[side] > 0) walk.push_back(visit(step.neighbours[side]));
  }
  change.keep();
}

void SelectConnected(Desk& desk, bool select, int seg, std::vector<bool>& tagged) {
  Change change(desk.changes);
  std::vector<int> walk{seg};
  while (!walk.empty()) {
    const int sg = walk.back();
    walk.pop_back();
    if (tagged[static_cast<std::size_t>(sg)]) continue;
    tagged[static_cast<std::size_t>(sg)] = true;
    markSegment(desk, sg, select);
    for (int other = desk.store.NumSegments; other >= 1; --other) {
      const bool open = !tagged[static_cast<std::size_t>(other)];
      if (open && intersectSegs(desk.store, sg, other)) walk.push_back(other);
    }
  }
  change.keep();
}

// Of all rows that touch a marked one the lowest comes next: so the screen fills as by plain
// sweeps over the table.
void selectContiguousPaths(Desk& desk, bool select, int ps) {
  const EndPointIndex ends = pathEndIndex(desk.store);
  std::vector<bool> met(static_cast<std::size_t>(desk.store.NumPathSegments) + 1);
  std::priority_queue<int, std::vector<int>, std::greater<>> touching;
  std::vector<EndMatch> found;
  const auto meet = [&](int row) {
    if (met[static_cast<std::size_t>(row)]) return;
    met[static_cast<std::size_t>(row)] = true;
    touching.push(row);
  };
  Change change(desk.changes);
  meet(ps);
  while (!touching.empty()) {
    const int row = touching.top();
    touching.pop();
    markPathSegment(desk, row, select);
    const Entity path = pathEntity(desk.store, row);
    for (const Point end : {path.start, path.end}) {
      ends.rowsAt(end, found);
      for (const EndMatch& match : found) meet(match.row);
    }
  }
  change.keep();
}

void mnuDrawSelect_Click(Desk& desk) {
  arm(desk, PendingAction::Select, /*drawMode=*/-1);
}

void mnuDrawUnselect_Click(Desk& desk) {
  arm(desk, PendingAction::Unselect, /*drawMode=*/-1);
}

void mnuDrawSelectContiguous(Desk& desk) {
  arm(desk, PendingAction::SelectContiguous, /*drawMode=*/-1);
}

void mnuDrawUnselectContiguous(Desk& desk) {
  arm(desk, PendingAction::UnselectContiguous, /*drawMode=*/-1);
}

void mnuDrawSelectAll_Click(Desk& desk) {
  const Procedure here("frmMain.mnuDrawSelectAll_Click()");
  if (desk.command.EditPaths) {
    markAllPaths(desk, /*select=*/true);
  } else {
    selectAllSegments(desk);
  }
  refreshProperties(desk);
  desk.redraw.redrawscreen();
  if (desk.state.DrawMode() == -1) return;
  desk.state.setPendingaction(0);
  desk.state.setDrawMode(-1);
}

void mnuDrawUnselectAll_Click(Desk& desk) {
  const Procedure here("frmMain.mnuDrawUnselectAll_Click()");
  UnselectAll(desk);
  if (desk.state.DrawMode() == -1) return;
  desk.state.setPendingaction(0);
  desk.state.setDrawMode(0);
}

// Fixed: drawing rows are unselected whatever is edited; many commands rely on none being left.
void UnselectAll(Desk& desk) {
  if (desk.command.EditPaths) markAllPaths(desk, /*select=*/false);
  unselectAllSegments(desk);
  refreshProperties(desk);
}

void collectSelected(Desk& desk) {
  desk.state.Selected.clear();
  for (int sg = 1; sg <= desk.store.NumSegments; ++sg) {
    if (hasSelectionMark(desk.store.segattr[sg])) desk.state.Selected.add(sg);
  }
}

// ---- Descriptors

namespace {

void clickSelect(Desk& desk) {
  pickNearest(desk, /*select=*/true);
}
void clickUnselect(Desk& desk) {
  pickNearest(desk, /*select=*/false);
}
void clickSelectContiguous(Desk& desk) {
  pickContiguous(desk, /*select=*/true);
}
void clickUnselectContiguous(Desk& desk) {
  pickContiguous(desk, /*select=*/false);
}

constexpr Action<Desk> kSelectActions[] = {
    {{.action = PendingAction::Select,
      .prompt = "Click on entity or drag to select.  Hold <Shift> for exclusive mode.",
      .stays = true,
      .snaps = false,
      .escRedraws = true},
     clickSelect},
};

constexpr Action<Desk> kUnselectActions[] = {
    {{.action = PendingAction::Unselect,
      .prompt = "Click on entity or drag to unselect.",
      .stays = true,
      .snaps = false,
      .escRedraws = true},
     clickUnselect},
};

constexpr Action<Desk> kSelectContiguousActions[] = {
    {{.action = PendingAction::SelectContiguous,
      .prompt = "Click on entity to select contiguous entities",
      .stays = true},
     clickSelectContiguous},
};

constexpr Action<Desk> kUnselectContiguousActions[] = {
    {{.action = PendingAction::UnselectContiguous,
      .prompt = "Click on entity to unselect contiguous entities.",
      .stays = true},
     clickUnselectContiguous},
};

}  // namespace

constexpr DeskCommand kSelectCommand{
    .info = {.tool = "miSelect",
             .caption = "&Select",
             .menu = {"miDraw", 310},
             .bar = {"barDraw", 110}},
    .run = mnuDrawSelect_Click,
    .actions = kSelectActions,
};

constexpr DeskCommand kUnselectCommand{
    .info = {.tool = "miUnselect",
             .caption = "&Unselect",
             .menu = {"miDraw", 320},
             .bar = {"barDraw", 120}},
    .run = mnuDrawUnselect_Click,
    .actions = kUnselectActions,
};

constexpr DeskCommand kSelectContiguousCommand{
    .info = {.tool = "miSelectContiguous",
             .caption = "Select Co&ntiguous",
             .menu = {"miDraw", 330},
             .bar = {"barDraw", 130}},
    .run = mnuDrawSelectContiguous,
    .actions = kSelectContiguousActions,
    .repeat = {{PendingAction::SelectContiguous}},
};

constexpr DeskCommand kUnselectContiguousCommand{
    .info = {.tool = "miUnselectContiguous",
             .caption = "Unselect Conti&guous",
             .menu = {"miDraw", 340}},
    .run = mnuDrawUnselectContiguous,
    .actions = kUnselectContiguousActions,
};

constexpr DeskCommand kSelectAllCommand{
    .info = {.tool = "miSelectAll",
             .caption = "S&elect All",
             .menu = {"miDraw", 350},
             .bar = {"barDraw", 140}},
    .run = mnuDrawSelectAll_Click,
};

constexpr DeskCommand kUnselectAllCommand{
    .info = {.tool = "miUnselectAll",
             .caption = "Unselect All",
             .menu = {"miDraw", 360},
             .bar = {"barDraw", 150}},
    .run = mnuDrawUnselectAll_Click,
};

}  // namespace tess
