// `report`: what a script tells the operator of the job that it has made.
#include <iomanip>
#include <sstream>

#include "cnc/path_report.h"
#include "core/drawing_store.h"
#include "shell/automation/bindings.h"

namespace tess {
namespace {

void setNumber(lua_State* L, const char* field, double value) {
  push(L, value);
  lua_setfield(L, -2, field);
}

void setCount(lua_State* L, const char* field, int value) {
  push(L, value);
  lua_setfield(L, -2, field);
}

// Those of a tool, or of all.
template <typename Share>
void setTimes(lua_State* L, const Share& share) {
  setNumber(L, "minutes", share.minutes);
  setNumber(L, "program_minutes", share.programMinutes);
  setNumber(L, "machine_minutes", share.machineMinutes);
}

std::string toolName(const DrawingStore& store, int tool) {
  return "tool " + std::to_string(tool + 1) + ", " + store.toolname[tool];
}

// One line for each tool and one for all.
std::string reportText(const DrawingStore& store, const PathReport& report) {
  std::ostringstream text;
  const char* const unit = isMetric(store) ? " mm" : " in";
  const auto line = [&](const std::string& of, int rows, double length, double minutes) {
    text << of << ": " << rows << " path rows, " << std::fixed << std::setprecision(1) << length
         << unit << ", " << minutes << " min";
  };
  for (const ToolShare& share : report.tools) {
    line(toolName(store, share.tool), share.rows, share.length, share.minutes);
    text << '\n';
  }
  line(std::to_string(store.NumSegments) + " segments", report.rows, report.length, report.minutes);
  return text.str();
}

void pushTools(lua_State* L, const DrawingStore& store, const PathReport& report) {
  lua_createtable(L, static_cast<int>(report.tools.size()), 0);
  lua_Integer place = 0;
  for (const ToolShare& share : report.tools) {
    lua_createtable(L, 0, 7);
    setCount(L, "tool", share.tool + 1);
    push(L, store.toolname[share.tool]);
    lua_setfield(L, -2, "name");
    setCount(L, "rows", share.rows);
    setNumber(L, "length", share.length);
    setTimes(L, share);
    lua_rawseti(L, -2, ++place);
  }
}

int reportJob(Script& script, lua_State* L) {
  const DrawingStore& store = script.application.store;
  const PathReport report = reportPaths(store, motionRules(script.application.definition.dialect));
  lua_createtable(L, 0, 9);
  setCount(L, "segments", store.NumSegments);
  setCount(L, "rows", report.rows);
  setNumber(L, "length", report.length);
  setTimes(L, report);
  pushTools(L, store, report);
  lua_setfield(L, -2, "tools");
  push(L, reportText(store, report));
  lua_setfield(L, -2, "text");
  push(L, summaryOf(store, report));
  lua_setfield(L, -2, "summary");
  return 1;
}

}  // namespace

void bindReport(lua_State* L) {
  lua_register(L, "report", guarded<reportJob>);
}

}  // namespace tess
