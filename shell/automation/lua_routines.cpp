// Tables of routines, their unknown names, and the error path of commands.
#include "shell/automation/lua_routines.h"

#include <string>

#include "shell/automation/near_match.h"

namespace tess {
namespace {

constexpr int kTable = lua_upvalueindex(1);
constexpr int kTitle = lua_upvalueindex(2);
constexpr int kKey = 2;

int unknownRoutine(Script& /*script*/, lua_State* L) {
  const std::string key = luaL_tolstring(L, kKey, nullptr);
  raise(L, std::string(lua_tostring(L, kTitle)) + " has no routine '" + key + "'" +
               didYouMean(key, keysOf(L, kTable)));
}

// With its name as the upvalue that commands report under.
void pushRoutine(lua_State* L, const Routine& routine) {
  push(L, routine.name);
  lua_pushcclosure(L, routine.function, 1);
}

}  // namespace

void setGlobal(lua_State* L, const Routine& routine) {
  pushRoutine(L, routine);
  lua_setglobal(L, routine.name);
}

void setRoutines(lua_State* L, const char* table, std::span<const Routine> routines) {
  lua_createtable(L, 0, static_cast<int>(routines.size()));
  for (const Routine& routine : routines) {
    pushRoutine(L, routine);
    lua_setfield(L, -2, routine.name);
  }
  lua_createtable(L, 0, 2);
  lua_pushvalue(L, -2);
  push(L, table);
  lua_pushcclosure(L, guarded<unknownRoutine>, 2);
  lua_setfield(L, -2, "__index");
  lua_pushboolean(L, 0);
  lua_setfield(L, -2, "__metatable");
  lua_setmetatable(L, -2);
  lua_setglobal(L, table);
}

void runReported(Script& script, const char* name, const std::function<void()>& run) {
  script.host.reporting.guarded(std::string(name) + "()", run);
  script.host.showReports();
}

namespace lua_routines {

RuntimeFailure Arguments::inArgument(const RuntimeFailure& failure, int at) const {
  const bool missing = lua_isnone(lua_, at);
  return RuntimeFailure(failure.number(),
                        "argument " + std::to_string(at) + (missing ? " is missing" : ""));
}

}  // namespace lua_routines
}  // namespace tess
