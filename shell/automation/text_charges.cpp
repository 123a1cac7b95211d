// Blocks of the script's memory that stand for texts elsewhere.
#include "shell/automation/text_charges.h"

namespace tess {
namespace {

// Shorter texts are not worth their block: the tables of the program have few thousand rows.
constexpr std::size_t kShort = 256;
// Its address is the key of the table of all blocks.
constexpr char kBlocks = 0;

// Leaves the table that another one has under the key on the stack; makes it the first time.
void pushTableIn(lua_State* L, int table, const void* key) {
  if (lua_rawgetp(L, table, key) == LUA_TTABLE) return;
  lua_pop(L, 1);
  lua_newtable(L);
  lua_pushvalue(L, -1);
  lua_rawsetp(L, table, key);
}

}  // namespace

void chargeText(lua_State* L, const void* owner, int slot, std::size_t size) {
  const int top = lua_gettop(L);
  pushTableIn(L, LUA_REGISTRYINDEX, &kBlocks);
  pushTableIn(L, top + 1, owner);
  // The old block goes first, so that it can make room for the new one.
  lua_pushnil(L);
  lua_rawseti(L, -2, slot);
  if (size > kShort) {
    lua_newuserdatauv(L, size, 0);
    lua_rawseti(L, -2, slot);
  }
  lua_settop(L, top);
}

}  // namespace tess
