// A drawn part made by the commands that an operator uses: verified, roughed, finished. What they
// placed is told as paths of the tool.
// Owns: JobSettings, JobClicks, PocketJob, polygonRows, pocketOfRows.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "geometry/entity.h"
#include "tests/support/outlines.h"
#include "tests/support/pockets.h"
#include "tests/support/recorded_cam.h"
#include "toolpath/finish_path.h"
#include "toolpath/parallel_spiral.h"
#include "toolpath/path_placement.h"
#include "toolpath/rough_pocket.h"
#include "toolpath/verification.h"

namespace tess::testing {

struct JobSettings {
  PocketingStyle style = PocketingStyle::Horizontal;
  CuttingMode cuttingMode = CuttingMode::Bidirectional;
  float clearance = 0;  // that roughing leaves for the finish path
  bool connects = false;
  bool avoidsGouges = true;
  bool keepsDuplicates = false;
  double firstRing = 0;  // of the spiral, from the wall; 0 for as far as half the pocket's extent
  bool truePaths = false;
  double step = 1;        // over, in tool radii
  bool finishes = false;  // the spiral, on the wall
};

// Of a finish path: near its start, the way to go, and the side to be on.
struct JobClicks {
  Point start, along, reference;
};

class PocketJob : public RecordedCam {
 public:
  // Draws the part and accepts its pocket, then its islands.
  PocketJob(const TestPocket& pocket, const JobSettings& settings) : part_(pocket.part) {
    apply(settings);
    store.toolradius[0] = pocket.toolRadius;
    if (settings.keepsDuplicates) test.recording.prompts.answers.push_back(Answer::No);
    draw(pocket.outline);
    for (const auto& island : pocket.islands) draw(island);
    for (std::size_t k = 0; k < outlines_.size(); ++k) verify(k);
    if (settings.firstRing > 0) setFirstRing(settings.firstRing);
  }

  float toolRadius() const { return store.toolradius[0]; }
  bool isVerified() const {
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      if (store.segattr[sg] != kVerifiedRow) return false;
    }
    return store.NumSegments > 0;
  }

  std::vector<Curve> rough() { return roughFrom(clicksOn(outlines_[0]).reference); }
  // The spiral starts at the row near the place.
  std::vector<Curve> roughFrom(Point place) {
    const int before = store.NumPathSegments;
    mnuCAMRoughCutPocket_Click(cam);
    if (pocketingStyle(store) == PocketingStyle::ParallelSpiral) click(place.x, place.y);
    return placedSince(before);
  }

  // Of the finish paths, the pocket's first; the spiral begins at that row too.
  std::vector<JobClicks> finishClicks() const {
    std::vector<JobClicks> all;
    for (const Rows& outline : outlines_) all.push_back(clicksOn(outline));
    return all;
  }

  // One pass round the pocket and each island.
  std::vector<Curve> finish() {
    const int before = store.NumPathSegments;
    for (const Rows& outline : outlines_) finishAt(clicksOn(outline));
    return placedSince(before);
  }
  std::vector<Curve> finishAt(const JobClicks& at) {
    const int before = store.NumPathSegments;
    mnuCAMPlaceFinishPath_Click(cam);
    for (const Point p : {at.start, at.along, at.reference}) click(p.x, p.y);
    return placedSince(before);
  }

 private:
  struct Rows {
    int first = 0, last = 0;
  };

  void apply(const JobSettings& settings) {
    store.cfg_pocketing_style = choiceNumber(settings.style);
    store.cfg_cutting_mode = choiceNumber(settings.cuttingMode);
    store.cfg_min_rough_clearance = settings.clearance;
    store.cfg_connect_pocketing_paths = settings.connects;
    store.cfg_gouge_avoidance = settings.avoidsGouges;
    store.cfg_true_paths = settings.truePaths;
    store.cfg_tool_spacing = static_cast<float>(50 * settings.step);
    store.cfg_auto_place_finish_path = settings.finishes;
  }

  void setFirstRing(double distance) {
    const double half = std::min(cam.PocketXDim, cam.PocketYDim) / 2;
    store.cfg_pocket_dist_from_center = static_cast<float>(half - distance);
  }

  // A circle as it comes out of the drawing commands: an arc that ends where it starts.
  void draw(const std::vector<SegmentRow>& rows) {
    const int first = store.NumSegments + 1;
    for (SegmentRow row : rows) {
      if (row.type == kCircle) row.type = kClockwiseArc;
      add(row);
    }
    outlines_.push_back({first, store.NumSegments});
  }

  void verify(std::size_t outline) {
    selectRows(store, outlines_[outline].first, outlines_[outline].last);
    outline == 0 ? mnuCAMVerifyAcceptPocket_Click(cam) : mnuCAMVerifyAcceptIsland_Click(cam);
  }

  std::vector<Curve> placedSince(int rows) const {
    return toolPath(store, rows + 1, store.NumPathSegments);
  }

  static Point pointOf(Vec v) { return {static_cast<float>(v.x), static_cast<float>(v.y)}; }

  // On the longest line of the outline, or else on its longest arc: the reference lies beside the
  // middle, where the tool is to go.
  JobClicks clicksOn(const Rows& outline) const {
    int best = outline.first;
    const auto rank = [&](int sg) {
      return lengthOf(curveOf(segmentRow(store, sg))) + (store.segtype[sg] == kLine ? 1e6 : 0);
    };
    for (int sg = outline.first; sg <= outline.last; ++sg) {
      if (rank(sg) > rank(best)) best = sg;
    }
    const Curve row = curveOf(segmentRow(store, best));
    return {pointOf(row.start), pointOf(pointOn(row, 0.5)), pointOf(besideMiddle(row))};
  }

  Vec besideMiddle(const Curve& row) const {
    const Vec middle = pointOn(row, 0.5);
    const Vec normal = row.isArc ? middle - row.center : leftOf(row.end - row.start);
    const Vec aside = (1 / lengthOf(normal)) * normal;
    const bool thatSide = isAllowed(part_, middle + 1e-3 * aside);
    // Nearer than a tool's radius the reference lies in the pocket even in its narrowest corners.
    const double most = store.cfg_true_paths ? 0.07 : toolRadius();
    const double reach = row.isArc && !thatSide ? std::min(row.radius / 2, most) : most;
    return middle + (thatSide ? reach : -reach) * aside;
  }

  PartShape part_;
  std::vector<Rows> outlines_;
};

inline std::vector<SegmentRow> polygonRows(const std::vector<Point>& corners) {
  std::vector<SegmentRow> rows;
  for (std::size_t k = 0; k < corners.size(); ++k) {
    const Point a = corners[k];
    const Point b = corners[(k + 1) % corners.size()];
    rows.push_back({.type = kLine, .x0 = a.x, .y0 = a.y, .x1 = b.x, .y1 = b.y});
  }
  return rows;
}

// A pocket for a tool of radius 0.25.
inline TestPocket pocketOfRows(const std::vector<SegmentRow>& outline,
                               const std::vector<std::vector<SegmentRow>>& islands = {}) {
  TestPocket pocket;
  pocket.outline = outline;
  pocket.islands = islands;
  pocket.part = partOf(outline, islands);
  return pocket;
}

}  // namespace tess::testing
