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

void report(DraftingContext& context) {
  const PointerRecord& pointer = context.pointer;
  const Point start{pointer.MouseDownX, pointer.MouseDownY};
  const Point end{pointer.MouseMoveX, pointer.MouseMoveY};
  context.statusBar.setText(pendingPrompt(context, context.state.pendingaction()) +
                            "  Start (X=" + reported(start.x) + ", Y=" + reported(start.y) +
                            "),  End (X=" + reported(end.x) + ", Y=" + reported(end.y) +
                            "),  Distance = " + reported(distance(start, end)));
}

}  // namespace

void miMeasureDist_Click(DraftingContext& context) {
  arm(context, PendingAction::Measure);
}

void pressMeasure(DraftingContext& context, Point at) {
  context.state.setFeaturePoint(featureAtPointer(context, at, /*invert=*/false));
  const Point start = snappedPosition(context, at);
  context.pointer.MouseDownX = context.pointer.MouseMoveX = start.x;
  context.pointer.MouseDownY = context.pointer.MouseMoveY = start.y;
}

void moveMeasure(DraftingContext& context, Point at) {
  moveDragBand(context, snappedPosition(context, at));
  report(context);
}

void releaseMeasure(DraftingContext& context) {
  eraseDragBand(context);
  report(context);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kMeasureActions[] = {
    {{.action = PendingAction::Measure,
      .prompt = "Click on start-point and drag to end-point.  ",
      .drags = true,
      .left = "from the start point to the end point"}},
};

}  // namespace

constexpr DraftingCommand kMeasureCommand{
    .info = {.tool = "miMeasureDist",
             .caption = "&Measure Distance",
             .menu = {"miDraw", 230},
             .bar = {"barDraw", 290}},
    .run = miMeasureDist_Click,
    .actions = kMeasureActions,
    .repeat = {{PendingAction::Measure}},
};

}  // namespace tess
