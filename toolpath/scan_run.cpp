// One run of scan-line roughing.
#include "toolpath/scan_run.h"

#include <algorithm>
#include <string>

#include "core/drawing_store.h"

namespace tess {
namespace {

// A percentage of the tool's diameter unless a distance was chosen.
float scanSpacing(const DrawingStore& store) {
  if (stepsByDistance(store)) return store.cfg_tool_spacing_distance;
  const double radius = store.toolradius[store.selectedtool];
  return narrow(store.cfg_tool_spacing * radius / 50);
}

ScanPoints collectPoints(CamContext& cam, ScanStyle style, float bound, float spacing) {
  const BusyPointer busy(cam.context.systemPointer);
  StatusBar& status = cam.context.statusBar;
  status.setText("Collecting Roughing Points    ");
  return collectScanPoints(cam.store, style, bound, spacing, [&status](int row, int pointcount) {
    status.setText(std::to_string(row) + ":" + std::to_string(pointcount));
  });
}

std::vector<ScanSpan> spansOf(const std::vector<ScanPoint>& points) {
  std::vector<ScanSpan> spans;
  spans.reserve(points.size() / 2);
  for (std::size_t k = 0; k + 1 < points.size(); k += 2) {
    spans.push_back({points[k].fixed, points[k].along, points[k + 1].along});
  }
  return spans;
}

// Twice the middle, which 64 bits hold exactly.
double middleOf(const ScanSpan& span) {
  return static_cast<double>(span.from) + span.to;
}

}  // namespace

std::optional<ScanRun> prepareScanRun(CamContext& cam, ScanStyle style) {
  const auto yield = [&cam] { cam.context.session.host.surroundings.serveEvents(); };
  cam.store.currentpathgroup = nextPathGroup(cam.store);
  yield();
  const std::optional<ScanPoint> bound = lowestWorkingPoint(cam.store, style);
  if (!bound) {
    cam.context.session.host.prompts.showMessage(
        {.text = "No pocketing segments available!", .title = "", .icon = MessageIcon::Warning});
    return {};
  }
  yield();
  const float spacing = scanSpacing(cam.store);
  ScanPoints points = collectPoints(cam, style, bound->fixed, spacing);
  yield();
  sortScanPoints(points);
  yield();
  return ScanRun{style, spacing, placeOf(style, *bound), spansOf(points.points())};
}

ScanDirection::ScanDirection(CuttingMode mode, int forward)
    : mode_(mode), forward_(forward), direction_(mode == CuttingMode::Climb ? -forward : forward) {}

int ScanDirection::nextLine(bool keepsDirection) {
  if (mode_ == CuttingMode::Conventional) direction_ = forward_;
  if (mode_ == CuttingMode::Climb) direction_ = -forward_;
  if (mode_ == CuttingMode::Bidirectional && !keepsDirection) direction_ = -direction_;
  return direction_;
}

void orderLine(std::span<ScanSpan> line, int direction) {
  std::stable_sort(line.begin(), line.end(), [direction](const ScanSpan& a, const ScanSpan& b) {
    return direction > 0 ? middleOf(a) < middleOf(b) : middleOf(a) > middleOf(b);
  });
}

void orientSpan(ScanSpan& span, int direction) {
  const bool runsBack = direction > 0 ? span.to < span.from : span.to > span.from;
  if (runsBack) std::swap(span.from, span.to);
}

ScanPath::ScanPath(CamContext& cam, float feed)
    : change_(cam.changes),
      feed_(feed),
      code_(pathCode(cam.store.currentpathgroup, cam.store.selectedtool)) {}

void ScanPath::place(Point from, Point to, float z) {
  PathRow row = pathRowOf(lineEntity(from, to), z, feed_);
  row.code = code_;
  change_.paths.append(row);
}

}  // namespace tess
