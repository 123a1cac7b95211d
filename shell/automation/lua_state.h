// One Lua interpreter: bounded memory, only the libraries that scripts may have, and chunks of
// source text only. It is the build of Lua whose errors are C++ exceptions, so that an error
// raised anywhere runs the destructors on its way out.
// Owns: LuaLimits, LuaState, openScriptLibraries.
#pragma once

#include <cstddef>
#include <lua.hpp>
#include <memory>

namespace tess {

struct LuaLimits {
  std::size_t memory = std::size_t{1} << 30;  // bytes; past it a script gets "not enough memory"
  int instructions = 0;                       // after which a script is ended; 0: never
};

class LuaState {
 public:
  // Raises std::bad_alloc when not even an empty state fits.
  explicit LuaState(LuaLimits limits = {});
  ~LuaState();
  LuaState(const LuaState&) = delete;
  LuaState& operator=(const LuaState&) = delete;

  lua_State* get() const { return state_; }

 private:
  static void* allocate(void* limits, void* block, std::size_t oldSize, std::size_t newSize);

  std::size_t available_;
  lua_State* state_;
};

// Opens base, string, table, math and utf8 without the parts that read files or bytecode; with
// `fileAccess` also io, os and package, and everything that base has. Call it in protected mode.
void openScriptLibraries(lua_State* L, bool fileAccess);

}  // namespace tess
