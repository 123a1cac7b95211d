// How the program's values cross to Lua and back, each with the width that the store gives it.
// Owns: valueAt, indexAt, keysOf, push.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/int16.h"
#include "shell/automation/lua_state.h"

namespace tess {

// The value at a stack position. A text counts as the number that it spells, a number as its text;
// numbers round to whole ones (ties to even) where the type is one. Raise Type mismatch for what
// does not convert, no number among it, and Overflow for what does not fit.
template <typename T>
T valueAt(lua_State* L, int at) = delete;
template <>
double valueAt<double>(lua_State* L, int at);
template <>
float valueAt<float>(lua_State* L, int at);
template <>
int valueAt<int>(lua_State* L, int at);
template <>
Int16 valueAt<Int16>(lua_State* L, int at);
template <>
std::string valueAt<std::string>(lua_State* L, int at);
// A boolean, a number (0 is false), or the text "True" or "False".
template <>
bool valueAt<bool>(lua_State* L, int at);
template <>
Flag valueAt<Flag>(lua_State* L, int at);

// The row that an index value names, which must be a whole number: Type mismatch otherwise, and
// Subscript out of range when it is no 32-bit one.
int indexAt(lua_State* L, int at);

// The texts among the keys of the table at a stack position.
std::vector<std::string> keysOf(lua_State* L, int table);

inline void push(lua_State* L, double value) {
  lua_pushnumber(L, value);
}
inline void push(lua_State* L, float value) {
  lua_pushnumber(L, static_cast<double>(value));
}
inline void push(lua_State* L, int value) {
  lua_pushinteger(L, value);
}
inline void push(lua_State* L, Int16 value) {
  lua_pushinteger(L, value);
}
inline void push(lua_State* L, Flag value) {  // as the store holds it: 0 and -1
  lua_pushinteger(L, value.raw());
}
inline void push(lua_State* L, bool value) {
  lua_pushboolean(L, value ? 1 : 0);
}
inline void push(lua_State* L, std::string_view value) {
  lua_pushlstring(L, value.data(), value.size());
}
inline void push(lua_State* L, const std::string& value) {
  push(L, std::string_view(value));
}
inline void push(lua_State* L, const char* value) {
  push(L, std::string_view(value));
}

}  // namespace tess
