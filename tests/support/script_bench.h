// A script's state on a program of its own, for tests that bring forms and look inside.
// Owns: ScriptBench.
#pragma once

#include <sstream>
#include <string>

#include "shell/automation/bindings.h"
#include "shell/automation/script.h"
#include "shell/virtual_screen.h"

namespace tess::testing {

// The program is not started: it has an empty store and no settings.
struct ScriptBench {
  ScriptBench() {
    host.prompts.attach(L);
    setScript(L, script);
    openScriptLibraries(L, /*fileAccess=*/false);
    bindPrompts(L);
  }
  ~ScriptBench() { application.interaction.statusBar.onText = nullptr; }
  ScriptBench(const ScriptBench&) = delete;
  ScriptBench& operator=(const ScriptBench&) = delete;

  // The error of a chunk, "" when it goes through.
  std::string run(const std::string& chunk) {
    std::string error;
    if (luaL_dostring(L, chunk.c_str()) != LUA_OK) error = lua_tostring(L, -1);
    lua_settop(L, 0);
    return error;
  }

  // What an expression gives, as a text.
  std::string valueOf(const std::string& expression) {
    if (luaL_dostring(L, ("return " + expression).c_str()) != LUA_OK) return lua_tostring(L, -1);
    std::string text = luaL_tolstring(L, -1, nullptr);
    lua_settop(L, 0);
    return text;
  }

  AllowedFolders folders;
  VirtualScreen screen;
  VirtualClock clock{screen.timers};
  QuietSurroundings surroundings;
  ScriptHost host{folders, clock, surroundings};
  Application application{{host.host, host.reporting, screen.ports}};
  VirtualTime time{screen.timers};
  ScriptStage stage;
  ScriptHand hand{application, host, time, stage};
  PictureWriter writePicture;
  std::ostringstream out;
  Watchdog watchdog{/*seconds=*/0, nullptr};
  Script script{.application = application,
                .host = host,
                .hand = hand,
                .writePicture = writePicture,
                .folders = folders,
                .out = out,
                .watchdog = watchdog};
  LuaState state;
  lua_State* L = state.get();
};

}  // namespace tess::testing
