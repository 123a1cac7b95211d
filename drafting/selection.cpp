// Selection by click, by window and along chains.
#include "drafting/selection.h"

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <queue>
#include <string>
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

Point mouse(const DraftingContext& context) {
  return {context.pointer.MouseX, context.pointer.MouseY};
}

void refreshProperties(DraftingContext& context) {
  context.state.updateProperties = true;
  context.listener.UpdatePropertyWindow();
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

// Marks the path rows of one command, and tells in the end of those that have no room for the mark.
class PathMarks {
 public:
  PathMarks(DraftingContext& context, bool select)
      : context_(context), select_(select), change_(context.changes) {}

  void mark(int ps) { mark(ps, selectedCode(context_.store.pscode[ps], select_)); }
  void mark(int ps, int code) {
    if (code > kLargestCode) return noteRefused(ps);
    change_.paths.mark(ps, code);
    context_.renderer.drawtoolpath(ps, context_.ScreenProxy);
  }

  void keep() {
    change_.keep();
    if (refused_ == 0) return;
    const int group = groupCutOff(context_.store.pscode[first_]);
    context_.session.host.prompts.showMessage(
        {.text = "Path segments that cannot be selected: " + std::to_string(refused_) +
                 ", the first is #" + std::to_string(first_) + " of group " +
                 std::to_string(group) + ".\nGroups up to " + std::to_string(kLastGroupWithRoom) +
                 " can be; the path editor gives a group another number.",
         .title = "Select",
         .icon = MessageIcon::Warning});
  }

 private:
  static constexpr int kLargestCode = std::numeric_limits<std::int16_t>::max();
  // Of the next one only the first tools leave room.
  static constexpr int kLastGroupWithRoom = (kLargestCode - kSelected) / kCodesPerGroup - 1;

  void noteRefused(int ps) {
    if (refused_++ == 0) first_ = ps;
  }

  DraftingContext& context_;
  const bool select_;
  Change change_;
  int refused_ = 0, first_ = 0;
};

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
void pickNearest(DraftingContext& context, bool select) {
  if (context.command.EditPaths) {
    PathMarks marks(context, select);
    const int ps = nearestPathSeg(context.store, mouse(context), kAllGroups);
    if (ps > 0) marks.mark(ps);
    marks.keep();
  } else {
    const int sg = nearestSeg(context.store, mouse(context));
    if (sg > 0) markSegment(context, sg, select);
  }
}

void selectChain(DraftingContext& context, bool select, std::string& message) {
  if (context.command.EditPaths) {
    const int ps = nearestPathSeg(context.store, mouse(context), kAllGroups);
    if (ps > 0) selectContiguousPaths(context, select, ps);
    return;
  }
  const int sg = nearestSeg(context.store, mouse(context));
  if (sg < 1) return;
  std::vector<bool> tagged(static_cast<std::size_t>(context.store.NumSegments) + 1);
  SelectContiguous(context, select, sg, tagged, message);
}

void pickContiguous(DraftingContext& context, bool select) {
  context.systemPointer.setMousePointer(kHourglassShape);
  std::string message;
  selectChain(context, select, message);
  if (!message.empty()) {
    context.session.host.prompts.showMessage(
        {.text =
             "Branching detected. Select the correct branch at the following points: \n" + message,
         .title = context.session.productname});
  }
  context.systemPointer.setMousePointer(kDefaultShape);
}

void selectAllSegments(DraftingContext& context) {
  const DrawingStore& store = context.store;
  Change change(context.changes);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (hasSelectionMark(store.segattr[sg])) continue;
    change.segments.mark(sg, selectedAttribute(store.segattr[sg], /*select=*/true));
    context.renderer.DrawSegment(sg, context.ScreenProxy);
  }
  change.keep();
  context.state.Selected.fill(store.NumSegments);
}

void markAllPaths(DraftingContext& context, bool select) {
  const DrawingStore& store = context.store;
  PathMarks marks(context, select);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (hasSelectionMark(store.pscode[ps]) == select) continue;
    marks.mark(ps, store.pscode[ps] + (select ? kSelected : -kSelected));
  }
  marks.keep();
}

void markPathsIn(DraftingContext& context, bool select, const SelectionWindow& window,
                 bool exclusive) {
  const DrawingStore& store = context.store;
  PathMarks marks(context, select);
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (pathInWindow(store, ps, window, exclusive)) marks.mark(ps);
  }
  marks.keep();
}

void markSegmentsIn(DraftingContext& context, bool select, const SelectionWindow& window,
                    bool exclusive) {
  const DrawingStore& store = context.store;
  Change change(context.changes);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (segmentInWindow(store, sg, window, exclusive)) markSegment(context, sg, select);
  }
  change.keep();
}

void unselectAllSegments(DraftingContext& context) {
  const DrawingStore& store = context.store;
  Change change(context.changes);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int attr = store.segattr[sg];
    if (hasSelectionMark(attr)) change.segments.mark(sg, entityClass(attr));
    context.renderer.DrawSegment(sg, context.ScreenProxy);
  }
  change.keep();
  context.state.Selected.clear();
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

void markSegment(DraftingContext& context, int sg, bool select) {
  Change change(context.changes);
  change.segments.mark(sg, selectedAttribute(context.store.segattr[sg], select));
  change.keep();
  context.renderer.DrawSegment(sg, context.ScreenProxy);
  context.state.updateProperties = true;
  if (select) {
    context.state.Selected.add(sg);
  } else {
    context.state.Selected.remove(sg);
  }
}

void selectOnlyPath(DraftingContext& context, int ps) {
  const DrawingStore& store = context.store;
  PathMarks marks(context, /*select=*/true);
  for (int row = 1; row <= store.NumPathSegments; ++row) {
    const bool selected = hasSelectionMark(store.pscode[row]);
    if (selected && row != ps) marks.mark(row, selectedCode(store.pscode[row], /*select=*/false));
    if (!selected && row == ps) marks.mark(row);
  }
  marks.keep();
}

void SelectWindow(DraftingContext& context, bool select, const SelectionWindow& window,
                  bool exclusive) {
  const Procedure here("frmMain.SelectWindow(SelectSegments,x0,y0,X1,y1,Exclusive)");
  context.command.EditPaths ? markPathsIn(context, select, window, exclusive)
                            : markSegmentsIn(context, select, window, exclusive);
}

void SelectContiguous(DraftingContext& context, bool select, int seg, std::vector<bool>& tagged,
                      std::string& message) {
  const EndPointIndex ends = segmentEndIndex(context.store);
  Change change(context.changes);
  const auto visit = [&](int sg) {
    markSegment(context, sg, select);
    tagged[static_cast<std::size_t>(sg)] = true;
    const Entity row = segmentEntity(context.store, sg);
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

void SelectConnected(DraftingContext& context, bool select, int seg, std::vector<bool>& tagged) {
  Change change(context.changes);
  std::vector<int> walk{seg};
  while (!walk.empty()) {
    const int sg = walk.back();
    walk.pop_back();
    if (tagged[static_cast<std::size_t>(sg)]) continue;
    tagged[static_cast<std::size_t>(sg)] = true;
    markSegment(context, sg, select);
    for (int other = context.store.NumSegments; other >= 1; --other) {
      const bool open = !tagged[static_cast<std::size_t>(other)];
      if (open && intersectSegs(context.store, sg, other)) walk.push_back(other);
    }
  }
  change.keep();
}

// Of all rows that touch a marked one the lowest comes next: so the screen fills as by plain
// sweeps over the table.
void selectContiguousPaths(DraftingContext& context, bool select, int ps) {
  const EndPointIndex ends = pathEndIndex(context.store);
  std::vector<bool> met(static_cast<std::size_t>(context.store.NumPathSegments) + 1);
  std::priority_queue<int, std::vector<int>, std::greater<>> touching;
  std::vector<EndMatch> found;
  const auto meet = [&](int row) {
    if (met[static_cast<std::size_t>(row)]) return;
    met[static_cast<std::size_t>(row)] = true;
    touching.push(row);
  };
  PathMarks marks(context, select);
  meet(ps);
  while (!touching.empty()) {
    const int row = touching.top();
    touching.pop();
    marks.mark(row);
    const Entity path = pathEntity(context.store, row);
    for (const Point end : {path.start, path.end}) {
      ends.rowsAt(end, found);
      for (const EndMatch& match : found) meet(match.row);
    }
  }
  marks.keep();
}

void mnuDrawSelect_Click(DraftingContext& context) {
  arm(context, PendingAction::Select, /*drawMode=*/-1);
}

void mnuDrawUnselect_Click(DraftingContext& context) {
  arm(context, PendingAction::Unselect, /*drawMode=*/-1);
}

void mnuDrawSelectContiguous(DraftingContext& context) {
  arm(context, PendingAction::SelectContiguous, /*drawMode=*/-1);
}

void mnuDrawUnselectContiguous(DraftingContext& context) {
  arm(context, PendingAction::UnselectContiguous, /*drawMode=*/-1);
}

void mnuDrawSelectAll_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuDrawSelectAll_Click()");
  if (context.command.EditPaths) {
    markAllPaths(context, /*select=*/true);
  } else {
    selectAllSegments(context);
  }
  refreshProperties(context);
  context.redraw.redrawscreen();
  if (context.state.DrawMode() == -1) return;
  context.state.setPendingaction(0);
  context.state.setDrawMode(-1);
}

void mnuDrawUnselectAll_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuDrawUnselectAll_Click()");
  UnselectAll(context);
  if (context.state.DrawMode() == -1) return;
  context.state.setPendingaction(0);
  context.state.setDrawMode(0);
}

// Fixed: drawing rows are unselected whatever is edited; many commands rely on none being left.
void UnselectAll(DraftingContext& context) {
  if (context.command.EditPaths) markAllPaths(context, /*select=*/false);
  unselectAllSegments(context);
  refreshProperties(context);
}

void collectSelected(DraftingContext& context) {
  context.state.Selected.clear();
  for (int sg = 1; sg <= context.store.NumSegments; ++sg) {
    if (hasSelectionMark(context.store.segattr[sg])) context.state.Selected.add(sg);
  }
}

// ---- Descriptors

namespace {

void clickSelect(DraftingContext& context) {
  pickNearest(context, /*select=*/true);
}
void clickUnselect(DraftingContext& context) {
  pickNearest(context, /*select=*/false);
}
void clickSelectContiguous(DraftingContext& context) {
  pickContiguous(context, /*select=*/true);
}
void clickUnselectContiguous(DraftingContext& context) {
  pickContiguous(context, /*select=*/false);
}

constexpr Action<DraftingContext> kSelectActions[] = {
    {{.action = PendingAction::Select,
      .prompt = "Click on entity or drag to select.  Hold <Shift> for exclusive mode.",
      .stays = true,
      .snaps = false,
      .escRedraws = true,
      .left = "selects the nearest item, drag selects in a window"},
     clickSelect},
};

constexpr Action<DraftingContext> kUnselectActions[] = {
    {{.action = PendingAction::Unselect,
      .prompt = "Click on entity or drag to unselect.",
      .stays = true,
      .snaps = false,
      .escRedraws = true,
      .left = "unselects the nearest item, drag unselects in a window"},
     clickUnselect},
};

constexpr Action<DraftingContext> kSelectContiguousActions[] = {
    {{.action = PendingAction::SelectContiguous,
      .prompt = "Click on entity to select contiguous entities",
      .stays = true,
      .left = "selects the chain of rows through the nearest one"},
     clickSelectContiguous},
};

constexpr Action<DraftingContext> kUnselectContiguousActions[] = {
    {{.action = PendingAction::UnselectContiguous,
      .prompt = "Click on entity to unselect contiguous entities.",
      .stays = true,
      .left = "unselects the chain of rows through the nearest one"},
     clickUnselectContiguous},
};

}  // namespace

constexpr DraftingCommand kSelectCommand{
    .info = {.tool = "miSelect",
             .caption = "&Select",
             .menu = {"miDraw", 310},
             .bar = {"barDraw", 110}},
    .run = mnuDrawSelect_Click,
    .actions = kSelectActions,
};

constexpr DraftingCommand kUnselectCommand{
    .info = {.tool = "miUnselect",
             .caption = "&Unselect",
             .menu = {"miDraw", 320},
             .bar = {"barDraw", 120}},
    .run = mnuDrawUnselect_Click,
    .actions = kUnselectActions,
};

constexpr DraftingCommand kSelectContiguousCommand{
    .info = {.tool = "miSelectContiguous",
             .caption = "Select Co&ntiguous",
             .menu = {"miDraw", 330},
             .bar = {"barDraw", 130}},
    .run = mnuDrawSelectContiguous,
    .actions = kSelectContiguousActions,
    .repeat = {{PendingAction::SelectContiguous}},
};

constexpr DraftingCommand kUnselectContiguousCommand{
    .info = {.tool = "miUnselectContiguous",
             .caption = "Unselect Conti&guous",
             .menu = {"miDraw", 340}},
    .run = mnuDrawUnselectContiguous,
    .actions = kUnselectContiguousActions,
};

constexpr DraftingCommand kSelectAllCommand{
    .info = {.tool = "miSelectAll",
             .caption = "S&elect All",
             .menu = {"miDraw", 350},
             .bar = {"barDraw", 140}},
    .run = mnuDrawSelectAll_Click,
};

constexpr DraftingCommand kUnselectAllCommand{
    .info = {.tool = "miUnselectAll",
             .caption = "Unselect All",
             .menu = {"miDraw", 360},
             .bar = {"barDraw", 150}},
    .run = mnuDrawUnselectAll_Click,
};

}  // namespace tess
