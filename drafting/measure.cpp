// Measure Distance.
#include "drafting/measure.h"

#include "core/number_text.h"
#include "core/rounding.h"
#include "display/palette.h"
#include "display/renderer.h"
#include "drafting/grids.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"

namespace tess {
namespace {

constexpr int kReportDecimals = 4;
constexpr int kDrawColorSlot = 3;

std::string reported(float value) {
  return plainText(roundTo(value, kReportDecimals));
}

Point snapped(const Desk& desk, Point at) {
  if (const auto& feature = desk.state.FeaturePoint()) return {feature->X, feature->Y};
  return snappedToGrid(desk.store, at);
}

// The line and its head in the inverting pen; nothing while it has no length.
void traceBand(Desk& desk) {
  const PointerRecord& pointer = desk.pointer;
  const WorldBox ends{pointer.MouseDownX, pointer.MouseDownY, pointer.MouseMoveX,
                      pointer.MouseMoveY};
  if (ends.x0 == ends.x1 && ends.y0 == ends.y1) return;
  const Color color = ColorOf(desk.store.colorsinuse[kDrawColorSlot]);
  desk.ScreenProxy.setDrawMode(PenMode::NotXor);
  desk.ScreenProxy.TraceLine(ends, color);
  TraceArrowhead(ends, color, desk.ScreenProxy);
  desk.ScreenProxy.setDrawMode(PenMode::Copy);
}

void report(Desk& desk) {
  const PointerRecord& pointer = desk.pointer;
  const Point start{pointer.MouseDownX, pointer.MouseDownY};
  const Point end{pointer.MouseMoveX, pointer.MouseMoveY};
  desk.statusBar.setText(pendingPrompt(desk.store, desk.state.pendingaction()) +
                         "  Start (X=" + reported(start.x) + ", Y=" + reported(start.y) +
                         "),  End (X=" + reported(end.x) + ", Y=" + reported(end.y) +
                         "),  Distance = " + reported(distance(start, end)));
}

}  // namespace

void miMeasureDist_Click(Desk& desk) {
  arm(desk, PendingAction::Measure);
}

void pressMeasure(Desk& desk, Point at) {
  desk.state.setFeaturePoint(featureAtPointer(desk, at, /*invert=*/false));
  const Point start = snapped(desk, at);
  desk.pointer.MouseDownX = desk.pointer.MouseMoveX = start.x;
  desk.pointer.MouseDownY = desk.pointer.MouseMoveY = start.y;
}

void moveMeasure(Desk& desk, Point at) {
  traceBand(desk);
  const Point end = snapped(desk, at);
  desk.pointer.MouseMoveX = end.x;
  desk.pointer.MouseMoveY = end.y;
  traceBand(desk);
  report(desk);
}

void releaseMeasure(Desk& desk, Point /*at*/) {
  traceBand(desk);
  report(desk);
}

}  // namespace tess
