// The texts that a script puts into the program lie outside of its interpreter, and count against
// its memory all the same.
// Owns: chargeText, kLongestControlText, kLongestPath, kTooLongPath.
#pragma once

#include <cstddef>

#include "shell/automation/lua_state.h"

namespace tess {

// Has a text of `size` bytes, about to be put into one slot of a variable or table of the program,
// occupy as much of the script's memory until another takes its place. An error of Lua where there
// is not enough left.
void chargeText(lua_State* L, const void* owner, int slot, std::size_t size);

// Bytes, of all its entries for a list: no control shows more to an operator.
inline constexpr std::size_t kLongestControlText = std::size_t{1} << 20;
// Bytes; the system knows no longer one.
inline constexpr std::size_t kLongestPath = 4096;
inline constexpr char kTooLongPath[] = "a path has no more than 4096 bytes";

}  // namespace tess
