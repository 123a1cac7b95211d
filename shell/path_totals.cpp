// The figures of the path, made anew when they may have changed.
#include "shell/path_totals.h"

#include <optional>
#include <utility>

#include "cnc/path_report.h"
#include "cnc/post_definition.h"
#include "core/count_text.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "core/session.h"
#include "core/status_bar.h"
#include "core/units.h"

namespace tess {
namespace {

constexpr char kFigure[] = "#####0.0";

// Rows that no program can be made of have no time; making the program tells why.
std::optional<PathReport> reportOrNothing(const DrawingStore& store, const MotionRules& rules) {
  try {
    return reportPaths(store, rules);
  } catch (const RuntimeFailure&) {
    takeCallChain();
    return std::nullopt;
  }
}

}  // namespace

PathTotals::PathTotals(Session& session, const PostDefinition& definition, Changes& changes,
                       StatusBar& statusBar)
    : session_(session),
      definition_(definition),
      statusBar_(statusBar),
      subscription_(changes.listen(*this)) {}

void PathTotals::changed(const KeptChange& change) {
  if (change.paths.empty()) return;
  markStale();
  worked_ = worked_ || change.unsaved;
}

void PathTotals::settle() {
  if (!stale_) return;
  stale_ = false;
  const Figures now = figures();
  statusBar_.setPanel(StatusPanel::Path, now.rows + now.length + now.minutes);
  if (std::exchange(worked_, false)) session_.results.tell(now.rows + now.minutes);
}

std::string PathTotals::text() const {
  const Figures now = figures();
  return now.rows + now.length + now.minutes;
}

PathTotals::Figures PathTotals::figures() const {
  const DrawingStore& store = session_.store;
  if (store.NumPathSegments == 0) return {.rows = "No path", .length = {}, .minutes = {}};
  const std::string rows = countText(store.NumPathSegments, "path row");
  const auto report = reportOrNothing(store, motionRules(definition_.dialect));
  if (!report) return {.rows = rows, .length = {}, .minutes = {}};
  return {
      .rows = rows,
      .length = ", " + formatNumber(static_cast<float>(report->length), kFigure) +
                (isMetric(store) ? " mm" : " in"),
      .minutes = ", " + formatNumber(static_cast<float>(report->machineMinutes), kFigure) + " min"};
}

}  // namespace tess
