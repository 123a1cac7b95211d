// The figures of the path, made anew when they may have changed.
#include "shell/path_totals.h"

#include <optional>

#include "cnc/path_report.h"
#include "cnc/post_definition.h"
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

PathTotals::PathTotals(const Session& session, const PostDefinition& definition, Changes& changes,
                       StatusBar& statusBar)
    : session_(session),
      definition_(definition),
      statusBar_(statusBar),
      subscription_(changes.listen(*this)) {}

void PathTotals::changed(const KeptChange& change) {
  if (!change.paths.empty()) markStale();
}

void PathTotals::settle() {
  if (!stale_) return;
  stale_ = false;
  statusBar_.setPanel(StatusPanel::Path, text());
}

std::string PathTotals::text() const {
  const DrawingStore& store = session_.store;
  if (store.NumPathSegments == 0) return "No path";
  const std::string rows = std::to_string(store.NumPathSegments) +
                           (store.NumPathSegments == 1 ? " path row" : " path rows");
  const auto report = reportOrNothing(store, motionRules(definition_.dialect));
  if (!report) return rows;
  return rows + ", " + formatNumber(static_cast<float>(report->length), kFigure) +
         (isMetric(store) ? " mm, " : " in, ") +
         formatNumber(static_cast<float>(report->machineMinutes), kFigure) + " min";
}

}  // namespace tess
