// Verification: the duplicate sweep, the measure, the walk, the judgement, and what becomes of the
// rows.
#include "toolpath/verification.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "drafting/drawing_cleanup.h"
#include "geometry/end_point_index.h"
#include "geometry/entity.h"
#include "geometry/float_angles.h"
#include "geometry/row_entity.h"
#include "toolpath/toolpath_commands.h"
#include "toolpath/verification_result.h"

namespace tess {
namespace {

// The walk makes the attribute of the rows that it passes odd; nobody else sees that.
constexpr int kWalkMark = 1;
constexpr int kWalkedRow = kSelectedRow + kWalkMark;

constexpr bool isWalked(int segattr) {
  return segattr % 2 == kWalkMark;
}

constexpr int withoutWalkMark(int segattr) {
  return isWalked(segattr) ? segattr - kWalkMark : segattr;
}

// Selected rows of the ordinary class, ascending.
std::vector<int> outlineRows(const DrawingStore& store) {
  std::vector<int> rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    if (store.segattr[sg] == kSelectedRow) rows.push_back(sg);
  }
  return rows;
}

bool closesOnItself(const DrawingStore& store, const Entity& row) {
  return samePoint(row.start, row.end, store.cfg_tolerance);
}

Box boxAbout(Point center, float radius) {
  const double x = center.x;
  const double y = center.y;
  return boxOf({narrow(x - radius), narrow(y - radius)}, {narrow(x + radius), narrow(y + radius)});
}

Box firstBox(const DrawingStore& store, int sg) {
  const Entity row = segmentEntity(store, sg);
  const bool fullCircle = isArc(row.type) && closesOnItself(store, row);
  if (row.type == kCircle || fullCircle) return boxAbout(row.center, radiusOf(row));
  return isArc(row.type) ? arcBounds(store, sg) : boxOf(row.start, row.start);
}

// Fixed: the bulge of the first row alone is measured; rings of spirals start from this size.
Box measured(const DrawingStore& store, const std::vector<int>& rows) {
  Box box = firstBox(store, rows.front());
  for (const int sg : rows) {
    const Entity row = segmentEntity(store, sg);
    box = extended(extended(box, row.start), row.end);
  }
  return box;
}

void acceptLoneRow(CamContext& cam, Change& change, int sg) {
  if (!closesOnItself(cam.store, segmentEntity(cam.store, sg))) return;
  change.segments.mark(sg, kVerifiedRow);
  cam.context.renderer.DrawSegment(sg, cam.context.ScreenProxy);
}

// The walk from row to row over the outline, each row once.
class OutlineWalk {
 public:
  OutlineWalk(const DrawingStore& store, Change& change, const std::vector<int>& rows)
      : store_(store), change_(change), ends_(store.cfg_tolerance) {
    ends_.reserve(rows.back());
    for (std::size_t k = rows.size(); k-- > 0;) {
      const Entity row = segmentEntity(store, rows[k]);
      ends_.update(rows[k], row.start, row.end);
    }
  }

  // Marks the rows that go on from the end of `seed`, one after the other, and gives back where the
  // last one ends. The seed itself is not marked at the outset, so that a closed outline enters it
  // again and comes to rest exactly on its end.
  Point walkFrom(int seed) {
    current_ = seed;
    Point at = segmentEntity(store_, seed).end;
    while (step(at)) {
    }
    return at;
  }

 private:
  // To the lowest row with an end here; a row that both begins and ends here is entered at its
  // start.
  bool step(Point& at) {
    ends_.rowsAt(at, found_);
    for (const EndMatch& match : found_) {
      if (match.row == current_) continue;
      const Entity row = segmentEntity(store_, match.row);
      at = match.atStart ? row.end : row.start;
      current_ = match.row;
      change_.segments.mark(current_, kWalkedRow);
      ends_.remove(current_);
      return true;
    }
    return false;
  }

  const DrawingStore& store_;
  Change& change_;
  EndPointIndex ends_;
  std::vector<EndMatch> found_;
  int current_ = 0;
};

std::string placeText(float x, float y) {
  return "(" + plainText(x) + ", " + plainText(y) + ")";
}

std::string discontinuity(Point at) {
  return "Pocket or Island profile discontinuous at:  X = " + plainText(roundTo(at.x, 5)) +
         "   Y = " + plainText(roundTo(at.y, 5));
}

// Selected rows that the walk has not passed, those of other classes among them, have an even
// attribute. Empty when there are none.
std::string leftOverRows(const DrawingStore& store) {
  std::string list;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int attr = store.segattr[sg];
    if (!isSelectedUnverified(attr) || isWalked(attr)) continue;
    list += "Segment #" + std::to_string(sg) +
            ":  (X, Y) = " + placeText(store.x0[sg], store.y0[sg]) + " - " +
            placeText(store.x1[sg], store.y1[sg]) + "\n";
  }
  if (list.empty()) return list;
  return "Some segments selected are not part of pocket/island profile !\n\n" + list;
}

// What is wrong with the outline whose walk came to rest at `at`; empty when nothing is. Returned
// to the start means exactly: the only place to come back to is the seed's own end.
std::string complaint(const DrawingStore& store, int seed, Point at) {
  if (at != segmentEntity(store, seed).end) return discontinuity(at);
  return leftOverRows(store);
}

void settleRows(const DrawingStore& store, Change& change, bool accepted) {
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int attr = store.segattr[sg];
    if (isSelectedUnverified(attr)) {
      change.segments.mark(sg, accepted ? kVerifiedRow : withoutWalkMark(attr));
    }
  }
}

void proveOutline(CamContext& cam, Change& change, const std::vector<int>& rows) {
  const int seed = rows.front();
  const Point at = OutlineWalk(cam.store, change, rows).walkFrom(seed);
  const std::string trouble = complaint(cam.store, seed, at);
  settleRows(cam.store, change, /*accepted=*/trouble.empty());
  if (!trouble.empty()) {
    cam.context.session.host.prompts.showMessage({.text = trouble,
                                                  .title = cam.context.session.productname,
                                                  .icon = MessageIcon::Information});
  }
  for (int sg = 1; sg <= cam.store.NumSegments; ++sg) {
    cam.context.renderer.DrawSegment(sg, cam.context.ScreenProxy);
  }
}

}  // namespace

// Fixed: three samples, not the quadrants; rings of spirals start from this size.
Box arcBounds(const DrawingStore& store, int sg) {
  const Entity arc = segmentEntity(store, sg);
  const auto [radius, start, end] = arcRadiusAndAngles(arc.start, arc.end, arc.center);
  if (arc.type == kCircle || start == end) return boxAbout(arc.center, radius);
  const bool passesZero = (arc.type == kClockwiseArc && start < end) ||
                          (arc.type == kCounterClockwiseArc && start > end);
  const double middle = (static_cast<double>(start) + end) / 2 + (passesZero ? kPi : 0);
  const double quarter = std::abs(static_cast<double>(end) - start) / 4;
  Box box = boxOf(arc.start, arc.end);
  for (const double angle : {middle - quarter, middle, middle + quarter}) {
    box = extended(box, {narrow(arc.center.x + radius * std::cos(angle)),
                         narrow(arc.center.y + radius * std::sin(angle))});
  }
  return box;
}

OutlineSize verifypocket(CamContext& cam) {
  const Procedure here("frmMain.verifypocket(width,height)");
  Change change(cam.changes);
  removeDuplicates(cam.changes, cam.context.session.host.prompts, /*deleteSilently=*/false,
                   cam.store.cfg_true_paths ? ArcHalves::AreApart : ArcHalves::AreDuplicates);
  OutlineSize size;
  const std::vector<int> rows = outlineRows(cam.store);
  if (!rows.empty()) {
    const Box box = measured(cam.store, rows);
    rows.size() == 1 ? acceptLoneRow(cam, change, rows.front()) : proveOutline(cam, change, rows);
    size.width = narrow(static_cast<double>(box.maxX) - box.minX);
    size.height = narrow(static_cast<double>(box.maxY) - box.minY);
  }
  change.keep({.redraws = false});
  return size;
}

namespace {

// Verifies, and tells what came of it.
OutlineSize verifyAs(CamContext& cam, const std::string& what) {
  const bool any = !outlineRows(cam.store).empty();
  const int before = verifiedRows(cam.store);
  const OutlineSize size = verifypocket(cam);
  cam.context.session.results.tell(any ? verificationResult(what, verifiedRows(cam.store) - before)
                                       : nothingToVerify());
  return size;
}

}  // namespace

void mnuCAMVerifyAcceptPocket_Click(CamContext& cam) {
  const Procedure here("frmMain.mnuCAMVerifyAcceptPocket_Click()");
  const OutlineSize size = verifyAs(cam, "Pocket");
  cam.PocketXDim = size.width;
  cam.PocketYDim = size.height;
  cam.context.state.setPendingaction(0);
}

// Fixed: the pocket's measure and the armed action stay; the spiral goes by the pocket's size.
void mnuCAMVerifyAcceptIsland_Click(CamContext& cam) {
  const Procedure here("frmMain.mnuCAMVerifyAcceptIsland_Click()");
  verifyAs(cam, "Island");
}

// ---- Descriptors

constexpr CamCommand kVerifyPocketCommand{
    .info = {.tool = "miVerify/AcceptPocket",
             .caption = "&Verify/Accept Pocket",
             .menu = {"miCAM", 210},
             .bar = {"barCAM", 210}},
    .run = mnuCAMVerifyAcceptPocket_Click,
};

constexpr CamCommand kVerifyIslandCommand{
    .info = {.tool = "miVerify/AcceptIsland",
             .caption = "Verify/Accept &Island",
             .menu = {"miCAM", 220},
             .bar = {"barCAM", 220}},
    .run = mnuCAMVerifyAcceptIsland_Click,
};

}  // namespace tess
