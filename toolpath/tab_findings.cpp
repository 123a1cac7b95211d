// The width of a tab is what no row at its floor sweeps of the line between the ends of what is
// raised; its height ends below the lowest row that passes over its middle.
#include "toolpath/tab_findings.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/drawing_store.h"
#include "geometry/curve_index.h"
#include "toolpath/proof_groups.h"
#include "toolpath/swept_floor.h"

namespace tess {
namespace {

constexpr double kSameHeight = 1e-5;
// Rows that all tabs together may look at: no drawing of tabs comes near it.
constexpr std::size_t kMaxEffort = 4000000;

// All feed rows of a drawing, by place.
class CutRows {
 public:
  CutRows(const DrawingStore& store, const std::vector<ProofGroup>& groups) {
    std::vector<Curve> curves;
    for (const ProofGroup& group : groups) {
      if (group.kind == JobKind::Lathe) continue;
      for (const int ps : group.rows) {
        const double radius = radiusOfRow(store, ps, group);
        for (const Curve& curve : feedCurves(store, ps, group.kind)) {
          curves.push_back(curve);
          cuts_.push_back({radius, store.psz[ps]});
          largest_ = std::max(largest_, radius);
        }
      }
    }
    index_ = CurveIndex(std::move(curves));
  }

  // A row that is near, with the way along which it was asked for as the x axis.
  struct Near {
    SweptCurve swept;
    float z = 0;
  };
  const std::vector<Near>& near(const Curve& way) {
    index_.candidates(way, largest_, found_);
    near_.clear();
    const PlanePoint middle = pointAt(way, 0.5);
    const PlanePoint along = directionAt(way, 0);
    const auto seen = [&](PlanePoint at) {
      return PlanePoint{dot(along, at - middle), cross(along, at - middle)};
    };
    for (const int number : found_) {
      const auto k = static_cast<std::size_t>(number);
      Curve curve = index_.curves()[k];
      curve.start = seen(curve.start);
      curve.end = seen(curve.end);
      curve.center = seen(curve.center);
      near_.push_back({{curve, cuts_[k].radius}, cuts_[k].z});
    }
    return near_;
  }

 private:
  struct Cut {
    double radius = 0;
    float z = 0;
  };
  std::vector<Cut> cuts_;
  double largest_ = 0;
  CurveIndex index_;
  std::vector<int> found_;
  std::vector<Near> near_;
};

double heightOver(const std::vector<CutRows::Near>& near, double floor, double top) {
  double height = top - floor;
  std::vector<Span> spans;
  for (const CutRows::Near& row : near) {
    spans.clear();
    appendSwept(row.swept, 0, spans);
    const bool passesOver = std::any_of(
        spans.begin(), spans.end(), [](const Span& span) { return span.from < 0 && span.to > 0; });
    if (passesOver) height = std::min(height, row.z - floor);
  }
  return std::max(height, 0.0);
}

// Between what is cut at either side of the middle, and no more than what is raised.
double widthBetween(const std::vector<CutRows::Near>& near, double floor, double chord) {
  std::vector<Span> spans;
  for (const CutRows::Near& row : near) {
    if (row.z <= floor + kSameHeight) appendSwept(row.swept, 0, spans);
  }
  double from = -chord / 2;
  double to = chord / 2;
  for (const Span& span : spans) {
    if (span.from < 0 && span.to > 0) return 0;
    if (span.to <= 0) from = std::max(from, span.to);
    if (span.from >= 0) to = std::min(to, span.from);
  }
  return to - from;
}

}  // namespace

bool TabFinding::standsAsAsked() const {
  constexpr double kWidth = 0.01;  // of what was asked
  return std::abs(width - askedWidth) <= kWidth * askedWidth && height >= askedHeight - kSameHeight;
}

std::vector<TabFinding> findTabs(const DrawingStore& store, const std::vector<ProofGroup>& groups) {
  std::vector<TabFinding> found;
  std::optional<CutRows> rows;
  std::size_t effort = 0;
  for (const ProofGroup& group : groups) {
    if (group.tabs.empty()) continue;
    if (!rows) rows.emplace(store, groups);
    const double floor = floorOf(store, group);
    const double radius = radiusOfRow(store, group.rows.front(), group);
    for (const JobTab& tab : group.tabs) {
      if (effort > kMaxEffort) return found;
      const Curve way = lineCurve({tab.x0, tab.y0}, {tab.x1, tab.y1});
      const double chord = lengthOf(way);
      const PlanePoint middle = pointAt(way, 0.5);
      const std::vector<CutRows::Near>& near = rows->near(way);
      effort += near.size() + 1;
      found.push_back({.group = group.group,
                       .x = middle.x,
                       .y = middle.y,
                       .width = widthBetween(near, floor, chord),
                       .height = heightOver(near, floor, tab.top),
                       .askedWidth = std::max(0.0, chord - 2 * radius),
                       .askedHeight = std::max(0.0, tab.top - floor)});
    }
  }
  return found;
}

}  // namespace tess
