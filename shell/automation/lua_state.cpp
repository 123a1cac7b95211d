// The Lua interpreter: its allocator and its libraries.
#include "shell/automation/lua_state.h"

#include <cstdlib>
#include <new>

namespace tess {
namespace {

constexpr int kLoadArguments = 4;  // chunk, name, mode, environment

// `load` for source texts alone: a crafted bytecode chunk could break the interpreter.
int loadText(lua_State* L) {
  const bool hasEnvironment = lua_gettop(L) >= kLoadArguments;
  lua_settop(L, kLoadArguments);
  lua_pushliteral(L, "t");
  lua_replace(L, 3);
  lua_pushvalue(L, lua_upvalueindex(1));
  lua_insert(L, 1);
  if (!hasEnvironment) lua_pop(L, 1);
  lua_call(L, hasEnvironment ? kLoadArguments : kLoadArguments - 1, LUA_MULTRET);
  return lua_gettop(L);
}

void closeFileRoads(lua_State* L) {
  for (const char* name : {"dofile", "loadfile"}) {
    lua_pushnil(L);
    lua_setglobal(L, name);
  }
  lua_getglobal(L, "load");
  lua_pushcclosure(L, loadText, 1);
  lua_setglobal(L, "load");
}

}  // namespace

LuaState::LuaState(LuaLimits limits)
    : available_(limits.memory), state_(lua_newstate(allocate, &available_)) {
  if (state_ == nullptr) throw std::bad_alloc();
}

LuaState::~LuaState() {
  lua_close(state_);
}

void* LuaState::allocate(void* available, void* block, std::size_t oldSize, std::size_t newSize) {
  std::size_t& left = *static_cast<std::size_t*>(available);
  if (block == nullptr) oldSize = 0;  // Lua passes the kind of object there
  if (newSize == 0) {
    std::free(block);
    left += oldSize;
    return nullptr;
  }
  if (newSize > oldSize && newSize - oldSize > left) return nullptr;
  void* const moved = std::realloc(block, newSize);
  if (moved != nullptr) left = left + oldSize - newSize;
  return moved;
}

void openScriptLibraries(lua_State* L, bool fileAccess) {
  struct Library {
    const char* name;
    lua_CFunction open;
    bool reachesFiles;
  };
  constexpr Library kLibraries[] = {
      {LUA_GNAME, luaopen_base, false},       {LUA_STRLIBNAME, luaopen_string, false},
      {LUA_TABLIBNAME, luaopen_table, false}, {LUA_MATHLIBNAME, luaopen_math, false},
      {LUA_UTF8LIBNAME, luaopen_utf8, false}, {LUA_IOLIBNAME, luaopen_io, true},
      {LUA_OSLIBNAME, luaopen_os, true},      {LUA_LOADLIBNAME, luaopen_package, true},
  };
  for (const Library& library : kLibraries) {
    if (library.reachesFiles && !fileAccess) continue;
    luaL_requiref(L, library.name, library.open, /*glb=*/1);
    lua_pop(L, 1);
  }
  if (!fileAccess) closeFileRoads(L);
}

}  // namespace tess
