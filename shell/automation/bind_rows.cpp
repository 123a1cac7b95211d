// `segments`, `paths`, `add_segment` and `add_path`: rows of the drawing as Lua tables.
#include <algorithm>
#include <iterator>
#include <vector>

#include "core/drawing_store.h"
#include "shell/automation/bindings.h"
#include "shell/automation/near_match.h"

namespace tess {
namespace {

// A whole number of a row that its table holds in 16 bits.
template <typename Row>
struct Narrow {
  int Row::*member;
};

struct SegmentField {
  const char* name;
  std::variant<int SegmentRow::*, Narrow<SegmentRow>, float SegmentRow::*> member;
};

struct PathField {
  const char* name;
  std::variant<Narrow<PathRow>, float PathRow::*, bool PathRow::*> member;
};

constexpr SegmentField kSegmentFields[] = {
    {"type", &SegmentRow::type}, {"attr", Narrow<SegmentRow>{&SegmentRow::attr}},
    {"x0", &SegmentRow::x0},     {"y0", &SegmentRow::y0},
    {"x1", &SegmentRow::x1},     {"y1", &SegmentRow::y1},
    {"xc", &SegmentRow::xc},     {"yc", &SegmentRow::yc},
};

constexpr PathField kPathFields[] = {
    {"type", Narrow<PathRow>{&PathRow::type}},
    {"code", Narrow<PathRow>{&PathRow::code}},
    {"x0", &PathRow::x0},
    {"y0", &PathRow::y0},
    {"x1", &PathRow::x1},
    {"y1", &PathRow::y1},
    {"xc", &PathRow::xc},
    {"yc", &PathRow::yc},
    {"z", &PathRow::z},
    {"feed", &PathRow::feed},
    {"visible", &PathRow::visible},
};

template <typename Row>
struct PushMember {
  lua_State* L;
  const Row& row;
  template <typename T>
  void operator()(T Row::*member) const {
    push(L, row.*member);
  }
  void operator()(Narrow<Row> field) const { push(L, row.*field.member); }
};

template <typename Row, typename Fields>
void pushRow(lua_State* L, const Row& row, const Fields& fields) {
  lua_createtable(L, 0, static_cast<int>(std::size(fields)));
  for (const auto& field : fields) {
    std::visit(PushMember<Row>{L, row}, field.member);
    lua_setfield(L, -2, field.name);
  }
}

// The value on top of the stack into one field of a row.
template <typename Row>
struct Take {
  lua_State* L;
  Row& row;
  template <typename T>
  void operator()(T Row::*member) const {
    row.*member = valueAt<T>(L, -1);
  }
  void operator()(Narrow<Row> field) const { row.*field.member = valueAt<Int16>(L, -1); }
};

template <typename Fields>
[[noreturn]] void raiseUnknownField(lua_State* L, const Fields& fields) {
  const std::string key = luaL_tolstring(L, -2, nullptr);
  std::vector<std::string> names;
  for (const auto& field : fields) names.emplace_back(field.name);
  raise(L, "a row has no field '" + key + "'" + didYouMean(key, names));
}

// The row that the table at position 1 describes.
template <typename Row, typename Fields>
Row takeRow(lua_State* L, const Fields& fields) {
  if (!lua_istable(L, 1)) raise(L, "a row is a table of its fields, as {type=1, x0=0, ...}");
  Row row;
  for (lua_pushnil(L); lua_next(L, 1) != 0; lua_pop(L, 1)) {
    const std::string_view key = lua_type(L, -2) == LUA_TSTRING ? lua_tostring(L, -2) : "";
    const auto named = [key](const auto& field) { return field.name == key; };
    const auto field = std::find_if(std::begin(fields), std::end(fields), named);
    if (field == std::end(fields)) raiseUnknownField(L, fields);
    try {
      std::visit(Take<Row>{L, row}, field->member);
    } catch (const RuntimeFailure& failure) {
      throw RuntimeFailure(failure.number(), "field '" + std::string(key) + "'");
    }
  }
  return row;
}

// One step of an iteration: the number of the row given last is the function's own.
template <typename PushRow>
int nextRow(lua_State* L, int rows, PushRow pushRowOf) {
  const int row = static_cast<int>(lua_tointeger(L, lua_upvalueindex(1))) + 1;
  if (row > rows) return 0;
  lua_pushinteger(L, row);
  lua_replace(L, lua_upvalueindex(1));
  pushRowOf(row);
  lua_pushinteger(L, row);
  return 2;
}

int nextSegment(Script& script, lua_State* L) {
  const DrawingStore& store = script.application.store;
  return nextRow(L, store.NumSegments,
                 [&](int sg) { pushRow(L, segmentRow(store, sg), kSegmentFields); });
}

int nextPath(Script& script, lua_State* L) {
  const DrawingStore& store = script.application.store;
  return nextRow(L, store.NumPathSegments,
                 [&](int ps) { pushRow(L, pathRow(store, ps), kPathFields); });
}

template <Body next>
int iterate(Script& /*script*/, lua_State* L) {
  lua_pushinteger(L, 0);
  lua_pushcclosure(L, guarded<next>, 1);
  return 1;
}

int addSegment(Script& script, lua_State* L) {
  const auto row = takeRow<SegmentRow>(L, kSegmentFields);
  Change change(script.application.interaction.context.changes);
  push(L, change.segments.append(row, Entry::Unmarked));
  change.keep();
  return 1;
}

int addPath(Script& script, lua_State* L) {
  const auto row = takeRow<PathRow>(L, kPathFields);
  Change change(script.application.interaction.context.changes);
  const int ps = change.paths.append(row, Entry::Unlogged);
  // The append shows every row; a hidden one is hidden afterwards.
  change.paths.show(ps, row.visible);
  push(L, ps);
  change.keep({.redraws = false});
  return 1;
}

}  // namespace

void bindRows(lua_State* L) {
  lua_register(L, "segments", guarded<iterate<nextSegment>>);
  lua_register(L, "paths", guarded<iterate<nextPath>>);
  lua_register(L, "add_segment", guarded<addSegment>);
  lua_register(L, "add_path", guarded<addPath>);
}

}  // namespace tess
