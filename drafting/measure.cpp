// Measure Distance.
#include "drafting/measure.h"

#include "core/number_text.h"
#include "core/rounding.h"
#include "drafting/drafting_commands.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"
#include "drafting/rubber_band.h"

namespace tess {
namespace {

constexpr int kReportDecimals = 4;

std::string reported(float value) {
  return plainText(roundTo(value, kReportDecimals));
}

void report(Desk& desk) {
  const PointerRecord& pointer = desk.pointer;
  const Point start{pointer.MouseDownX, pointer.MouseDownY};
  const Point end{pointer.MouseMoveX, pointer.MouseMoveY};
  desk.statusBar.setText(pendingPrompt(desk, desk.state.pendingaction()) +
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
  const Point start = snappedPosition(desk, at);
  desk.pointer.MouseDownX = desk.pointer.MouseMoveX = start.x;
  desk.pointer.MouseDownY = desk.pointer.MouseMoveY = start.y;
}

void moveMeasure(Desk& desk, Point at) {
  moveDragBand(desk, snappedPosition(desk, at));
  report(desk);
}

void releaseMeasure(Desk& desk) {
  eraseDragBand(desk);
  report(desk);
}

// ---- Descriptors

namespace {

constexpr Action<Desk> kMeasureActions[] = {
    {{.action = PendingAction::Measure, .prompt = "Click on start-point and drag to end-point.  "}},
};

}  // namespace

constexpr DeskCommand kMeasureCommand{
    .info = {.tool = "miMeasureDist",
             .caption = "&Measure Distance",
             .menu = {"miDraw", 230},
             .bar = {"barDraw", 290}},
    .run = miMeasureDist_Click,
    .actions = kMeasureActions,
    .repeat = {{PendingAction::Measure}},
};

}  // namespace tess
