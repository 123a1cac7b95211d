// The door between Lua and the program: failures turn into Lua errors here, and only here.
#include "shell/automation/script.h"

#include <exception>
#include <new>

#include "core/file_writer.h"
#include "shell/automation/reports.h"
#include "shell/automation/text_charges.h"

namespace tess {
namespace {

void stopScript(lua_State* L, lua_Debug* /*where*/) {
  raise(L, scriptOf(L).programEnd.value_or(""));
}

// From here on every instruction of the script raises the end again, so that a pcall around the
// call holds it up no longer than one step.
void endScript(lua_State* L, const char* text) {
  scriptOf(L).programEnd = text;
  lua_sethook(L, stopScript, LUA_MASKCOUNT, 1);
}

// The line of the innermost function of the script that is under way; 0 when none is known.
int currentLine(lua_State* L) {
  lua_Debug level{};
  for (int depth = 0; lua_getstack(L, depth, &level) != 0; ++depth) {
    lua_getinfo(L, "l", &level);
    if (level.currentline > 0) return level.currentline;
  }
  return 0;
}

int breatheOnce(Script& script, lua_State* /*L*/) {
  script.hand.breathe();
  return 0;
}

void breathe(lua_State* L, lua_Debug* /*where*/) {
  runGuarded(L, breatheOnce);
}

void endByLimit(lua_State* L, lua_Debug* where) {
  endScript(L, "the script has run too long");
  stopScript(L, where);
}

}  // namespace

void limitInstructions(lua_State* L, int count) {
  constexpr int kBreath = 100'000;  // instructions that take some milliseconds
  if (count > 0) {
    lua_sethook(L, endByLimit, LUA_MASKCOUNT, count);
  } else {
    lua_sethook(L, breathe, LUA_MASKCOUNT, kBreath);
  }
}

void requireTime(lua_State* L) {
  const Script& script = scriptOf(L);
  if (!script.watchdog.isOver()) return;
  const int line = currentLine(L);
  const std::string place = line > 0 ? script.path + ":" + std::to_string(line) : script.path;
  throw EndProgram(place + ": " + script.watchdog.complaint());
}

Script& scriptOf(lua_State* L) {
  return **static_cast<Script**>(lua_getextraspace(L));
}

void setScript(lua_State* L, Script& script) {
  *static_cast<Script**>(lua_getextraspace(L)) = &script;
}

int runGuarded(lua_State* L, Body body) {
  std::string text;
  try {
    requireTime(L);
    return body(scriptOf(L), L);
  } catch (const RuntimeFailure& failure) {
    text = describe(failure);
  } catch (const ProgramClosed& end) {
    text = end.what();
    scriptOf(L).closed = true;
    endScript(L, end.what());
  } catch (const EndProgram& end) {
    text = end.what();
    endScript(L, end.what());
  } catch (const std::bad_alloc&) {
    text = "not enough memory";
  } catch (const std::exception& failure) {
    text = failure.what();
  } catch (...) {  // an error of Lua itself on its way to the nearest pcall
    takeCallChain();
    throw;
  }
  takeCallChain();
  raise(L, text);
}

void raise(lua_State* L, std::string_view text) {
  luaL_where(L, 1);
  push(L, text);
  lua_concat(L, 2);
  lua_error(L);
  std::terminate();  // lua_error never returns; its declaration does not say so
}

void requireAllowed(const AllowedFolders& folders, std::string_view path) {
  if (const auto refusal = folders.refusal(path)) throw ScriptMisuse(*refusal);
}

void requireSensiblePath(std::string_view path) {
  if (path.size() > kLongestPath) throw ScriptMisuse(kTooLongPath);
}

void requireWritable(Script& script, const std::string& path, FileKind kind) {
  requireAllowed(script.folders, path);
  try {
    FilePlace(script.host.guard, path, kind);
  } catch (const RuntimeFailure&) {
    takeCallChain();  // the write itself tells it better
  }
}

}  // namespace tess
