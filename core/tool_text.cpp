// The tool in use in words.
#include "core/tool_text.h"

#include <cmath>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/session.h"
#include "core/text.h"

namespace tess {

bool isFreeTool(const DrawingStore& store, int tool) {
  return trimmed(store.toolname[tool]).empty();
}

float diameterShown(const DrawingStore& store, int tool) {
  const float diameter = 2 * store.toolradius[tool];
  return std::isfinite(diameter) ? diameter : 0;
}

std::string toolInUseText(const Session& session) {
  const DrawingStore& store = session.store;
  const int tool = store.selectedtool;
  if (tool < 0 || tool > kLastTool || isFreeTool(store, tool)) return "No tool";
  return "Tool " + std::to_string(tool + 1) + ": " + std::string(trimmed(store.toolname[tool])) +
         ", " + formatNumber(diameterShown(store, tool), session.formats.coordfmt) +
         (isMetric(store) ? " mm" : " in");
}

}  // namespace tess
