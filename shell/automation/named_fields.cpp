// Fields of Lua objects: how names find variables, and how rows of tables are reached.
#include "shell/automation/named_fields.h"

#include <type_traits>
#include <utility>

#include "core/text.h"
#include "shell/automation/near_match.h"
#include "shell/automation/text_charges.h"

namespace tess {
namespace {

// Upvalues of the functions of an object.
constexpr int kFields = lua_upvalueindex(1);
constexpr int kTitle = lua_upvalueindex(2);
// Arguments of __index and __newindex.
constexpr int kKey = 2;
constexpr int kValue = 3;

[[noreturn]] void raiseUnknown(lua_State* L) {
  const std::string key = luaL_tolstring(L, kKey, nullptr);
  raise(L, std::string(lua_tostring(L, kTitle)) + " has no '" + key + "'" +
               didYouMean(key, keysOf(L, kFields)));
}

// Leaves the field of the key on the stack. Keys of settings may come in any case, with blanks.
void findField(lua_State* L) {
  lua_pushvalue(L, kKey);
  if (lua_rawget(L, kFields) != LUA_TNIL || lua_type(L, kKey) != LUA_TSTRING) return;
  lua_pop(L, 1);
  push(L, lowerCased(trimmed(lua_tostring(L, kKey))));
  lua_rawget(L, kFields);
}

struct Read {
  lua_State* L;
  template <typename T>
  void operator()(T* place) const {
    push(L, *place);
  }
  void operator()(bool* place) const { push(L, Flag(*place)); }
  void operator()(const TableSlot& slot) const { push(L, (*slot.column)[slot.row]); }
  void operator()(PathInsertMode* mode) const { push(L, static_cast<int>(*mode)); }
};

struct Write {
  lua_State* L;
  template <typename T>
  void operator()(T* place) const {
    *place = valueAt<T>(L, kValue);
  }
  void operator()(std::string* place) const {
    auto text = valueAt<std::string>(L, kValue);
    chargeText(L, place, 0, text.size());
    *place = std::move(text);
  }
  void operator()(const TableSlot& slot) const {
    (*slot.column)[slot.row] = valueAt<Int16>(L, kValue);
  }
  void operator()(PathInsertMode* mode) const {
    *mode = static_cast<PathInsertMode>(static_cast<int>(valueAt<Int16>(L, kValue)));
  }
};

int readField(Script& /*script*/, lua_State* L) {
  findField(L);
  if (lua_isnil(L, -1)) raiseUnknown(L);
  if (!lua_islightuserdata(L, -1)) return 1;
  std::visit(Read{L}, static_cast<const Variable*>(lua_touserdata(L, -1))->place);
  return 1;
}

int writeField(Script& script, lua_State* L) {
  findField(L);
  if (lua_isnil(L, -1)) raiseUnknown(L);
  if (!lua_islightuserdata(L, -1)) raise(L, "a table is assigned to row by row");
  const auto& variable = *static_cast<const Variable*>(lua_touserdata(L, -1));
  if (variable.viewFlag && lua_isboolean(L, kValue)) {
    push(L, lua_toboolean(L, kValue));
    lua_replace(L, kValue);
  }
  if (variable.assign != nullptr) {
    variable.assign(script.application, valueAt<int>(L, kValue));
  } else {
    std::visit(Write{L}, variable.place);
  }
  return 0;
}

template <typename T>
Column<T>& columnOf(lua_State* L) {
  return *static_cast<Column<T>*>(lua_touserdata(L, lua_upvalueindex(1)));
}

template <typename T>
int readRow(Script& /*script*/, lua_State* L) {
  push(L, std::as_const(columnOf<T>(L))[indexAt(L, kKey)]);
  return 1;
}

template <typename T>
int writeRow(Script& script, lua_State* L) {
  const int index = indexAt(L, kKey);
  T& row = columnOf<T>(L)[index];
  T value = valueAt<T>(L, kValue);
  if constexpr (std::is_same_v<T, std::string>) {
    chargeText(L, &columnOf<T>(L), index, value.size());
  }
  row = std::move(value);
  script.application.interaction.context.changes.tellRewritten();
  return 0;
}

// The metatable on top of the stack becomes that of a new object, out of the script's reach.
void wrapInObject(lua_State* L) {
  lua_pushboolean(L, 0);
  lua_setfield(L, -2, "__metatable");
  lua_newuserdatauv(L, 0, 0);
  lua_insert(L, -2);
  lua_setmetatable(L, -2);
}

void setFunction(lua_State* L, const char* event, lua_CFunction function, void* upvalue) {
  lua_pushlightuserdata(L, upvalue);
  lua_pushcclosure(L, function, 1);
  lua_setfield(L, -2, event);
}

}  // namespace

FieldObject::FieldObject(lua_State* L, std::string title) : lua_(L), title_(std::move(title)) {
  lua_newtable(L);
}

void FieldObject::add(const std::string& name, const Variable& variable) {
  auto& variables = scriptOf(lua_).variables;
  lua_pushlightuserdata(lua_, &variables.emplace_back(variable));
  addValue(name);
}

template <typename T>
void FieldObject::add(const std::string& name, Column<T>& column) {
  lua_newtable(lua_);
  setFunction(lua_, "__index", guarded<readRow<T>>, &column);
  setFunction(lua_, "__newindex", guarded<writeRow<T>>, &column);
  wrapInObject(lua_);
  addValue(name);
}

template void FieldObject::add(const std::string&, Column<int>&);
template void FieldObject::add(const std::string&, Column<Int16>&);
template void FieldObject::add(const std::string&, Column<float>&);
template void FieldObject::add(const std::string&, Column<Flag>&);
template void FieldObject::add(const std::string&, Column<std::string>&);

void FieldObject::addValue(const std::string& name) {
  lua_setfield(lua_, -2, name.c_str());
}

// The fields lie below the metatable on the stack.
void FieldObject::setEvent(const char* event, lua_CFunction function) {
  lua_pushvalue(lua_, -2);
  push(lua_, title_);
  lua_pushcclosure(lua_, function, 2);
  lua_setfield(lua_, -2, event);
}

void FieldObject::finish() {
  lua_newtable(lua_);
  setEvent("__index", guarded<readField>);
  setEvent("__newindex", guarded<writeField>);
  wrapInObject(lua_);
  lua_remove(lua_, -2);
}

}  // namespace tess
