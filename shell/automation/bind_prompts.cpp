// What a script says and hears: `print`, the handlers of message boxes and file dialogs, the list
// `messages` and the counter `beeps`.
#include <ostream>

#include "shell/automation/bindings.h"

namespace tess {
namespace {

int print(Script& script, lua_State* L) {
  const int count = lua_gettop(L);
  for (int at = 1; at <= count; ++at) {
    std::size_t length = 0;
    const char* const text = luaL_tolstring(L, at, &length);
    if (at > 1) script.out << '\t';
    script.out.write(text, static_cast<std::streamsize>(length));
    lua_pop(L, 1);
  }
  script.out << '\n';
  return 0;
}

void requireHandler(lua_State* L) {
  if (lua_isnoneornil(L, 1) || lua_isfunction(L, 1)) return;
  raise(L, std::string("a handler is a function or nil, not a ") + luaL_typename(L, 1));
}

int onMessage(Script& script, lua_State* L) {
  requireHandler(L);
  lua_settop(L, 1);
  script.host.prompts.setMessageHandler();
  return 0;
}

int onFile(Script& script, lua_State* L) {
  requireHandler(L);
  lua_settop(L, 1);
  script.host.prompts.setFileHandler();
  return 0;
}

void showBeeps(lua_State* L, long long count) {
  lua_pushinteger(L, count);
  lua_setglobal(L, "beeps");
}

}  // namespace

void bindPrompts(lua_State* L) {
  ScriptHost& host = scriptOf(L).host;
  host.prompts.attach(L);
  showBeeps(L, host.surroundings.beeps);
  host.surroundings.onBeep = [L](long long count) { showBeeps(L, count); };
  lua_register(L, "print", guarded<print>);
  lua_register(L, "on_message", guarded<onMessage>);
  lua_register(L, "on_file", guarded<onFile>);
}

}  // namespace tess
