// What a script says and hears: `print`, the handlers of message boxes, file dialogs and forms, the
// forms that stay open, the list `messages`, the counter `beeps` and the list `status_log`.
#include <ostream>

#include "shell/automation/bindings.h"
#include "shell/automation/form_objects.h"

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

void requireHandler(lua_State* L, int at) {
  if (lua_isnoneornil(L, at) || lua_isfunction(L, at)) return;
  raise(L, std::string("a handler is a function or nil, not a ") + luaL_typename(L, at));
}

int onMessage(Script& script, lua_State* L) {
  requireHandler(L, 1);
  lua_settop(L, 1);
  script.host.prompts.setMessageHandler();
  return 0;
}

int onFile(Script& script, lua_State* L) {
  requireHandler(L, 1);
  lua_settop(L, 1);
  script.host.prompts.setFileHandler();
  return 0;
}

int onForm(Script& script, lua_State* L) {
  requireHandler(L, 2);
  lua_settop(L, 2);
  script.host.prompts.setFormHandler(valueAt<std::string>(L, 1));
  return 0;
}

// A window that stays open, or nil.
int openForm(Script& script, lua_State* L) {
  Form* const form = script.application.interaction.forms.find(valueAt<std::string>(L, 1));
  if (form == nullptr) {
    lua_pushnil(L);
  } else {
    pushForm(L, *form);
  }
  return 1;
}

void showBeeps(lua_State* L, long long count) {
  lua_pushinteger(L, count);
  lua_setglobal(L, "beeps");
}

// The list stays where it is when the script takes another value for its name.
void keepStatusTexts(lua_State* L, StatusBar& statusBar) {
  lua_newtable(L);
  lua_pushvalue(L, -1);
  lua_setglobal(L, "status_log");
  const int log = luaL_ref(L, LUA_REGISTRYINDEX);
  statusBar.onText = [L, log](const std::string& text) {
    luaL_checkstack(L, 2, nullptr);
    lua_rawgeti(L, LUA_REGISTRYINDEX, log);
    push(L, text);
    lua_rawseti(L, -2, luaL_len(L, -2) + 1);
    lua_pop(L, 1);
  };
}

}  // namespace

void bindPrompts(lua_State* L) {
  ScriptHost& host = scriptOf(L).host;
  host.prompts.attach(L);
  host.guard.attach(L);
  host.programs.attach(L);
  keepStatusTexts(L, scriptOf(L).application.interaction.statusBar);
  showBeeps(L, host.surroundings.beeps);
  host.surroundings.onBeep = [L](long long count) { showBeeps(L, count); };
  lua_register(L, "print", guarded<print>);
  lua_register(L, "on_message", guarded<onMessage>);
  lua_register(L, "on_file", guarded<onFile>);
  lua_register(L, "on_form", guarded<onForm>);
  lua_register(L, "form", guarded<openForm>);
}

}  // namespace tess
