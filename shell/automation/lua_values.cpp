// Values from Lua, narrowed to the store's widths.
#include "shell/automation/lua_values.h"

#include <cmath>
#include <limits>

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

std::string_view textAt(lua_State* L, int at) {
  std::size_t length = 0;
  const char* const text = lua_tolstring(L, at, &length);
  return {text, length};
}

// A number as an operator would type it: whole ones without a point.
std::string numberText(lua_State* L, int at) {
  const lua_Number value = lua_tonumber(L, at);
  lua_Integer whole = 0;
  if (lua_numbertointeger(value, &whole) && std::trunc(value) == value)
    return std::to_string(whole);
  return plainText(valueAt<float>(L, at));
}

}  // namespace

template <>
double valueAt<double>(lua_State* L, int at) {
  int isNumber = 0;
  const lua_Number value = lua_tonumberx(L, at, &isNumber);
  if (isNumber == 0 || std::isnan(value)) throw typeMismatch();
  return value;
}

template <>
float valueAt<float>(lua_State* L, int at) {
  const auto value = valueAt<double>(L, at);
  // The largest value that rounds down to a float.
  constexpr double kBound = 0x1.ffffffp127;
  if (std::abs(value) >= kBound) throw overflow();
  return static_cast<float>(value);
}

template <>
int valueAt<int>(lua_State* L, int at) {
  return roundHalfEven(valueAt<double>(L, at));
}

template <>
Int16 valueAt<Int16>(lua_State* L, int at) {
  return valueAt<int>(L, at);
}

template <>
std::string valueAt<std::string>(lua_State* L, int at) {
  switch (lua_type(L, at)) {
    case LUA_TSTRING:
      return toUtf8(textAt(L, at));
    case LUA_TNUMBER:
      return numberText(L, at);
    default:
      throw typeMismatch();
  }
}

template <>
bool valueAt<bool>(lua_State* L, int at) {
  if (lua_isboolean(L, at)) return lua_toboolean(L, at) != 0;
  if (lua_type(L, at) == LUA_TSTRING) {
    if (equalIgnoringCase(textAt(L, at), "true")) return true;
    if (equalIgnoringCase(textAt(L, at), "false")) return false;
  }
  return valueAt<double>(L, at) != 0;
}

template <>
Flag valueAt<Flag>(lua_State* L, int at) {
  return valueAt<bool>(L, at);
}

int indexAt(lua_State* L, int at) {
  int isWhole = 0;
  const lua_Integer index = lua_tointegerx(L, at, &isWhole);
  if (isWhole == 0 || lua_type(L, at) != LUA_TNUMBER) throw typeMismatch();
  if (index < 0 || index > std::numeric_limits<int>::max()) throw subscriptOutOfRange();
  return static_cast<int>(index);
}

std::vector<std::string> keysOf(lua_State* L, int table) {
  std::vector<std::string> keys;
  for (lua_pushnil(L); lua_next(L, table) != 0; lua_pop(L, 1)) {
    if (lua_type(L, -2) == LUA_TSTRING) keys.emplace_back(lua_tostring(L, -2));
  }
  return keys;
}

}  // namespace tess
