// `state`: the state of the interaction by name, for reading.
#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "shell/automation/bindings.h"
#include "shell/automation/near_match.h"

namespace tess {
namespace {

constexpr int kKey = 2;
constexpr int kFirstPanel = static_cast<int>(StatusPanel::FileName);
constexpr int kLastPanel = static_cast<int>(StatusPanel::Zoom);

struct StateField {
  const char* name;
  void (*push)(lua_State* L, Application& application);
};

// A field by the lambda that reads it.
template <typename Read>
constexpr StateField field(const char* name, Read /*read*/) {
  return {name, [](lua_State* L, Application& application) { push(L, Read{}(application)); }};
}

// The panels of the status bar by their numbers.
int readPanel(Script& script, lua_State* L) {
  const int number = indexAt(L, kKey);
  if (number < kFirstPanel || number > kLastPanel) throw subscriptOutOfRange();
  push(L, script.application.interaction.statusBar.panel(static_cast<StatusPanel>(number)));
  return 1;
}

// The numbers of the selected rows, in the order of their selection.
void pushSelected(lua_State* L, Application& application) {
  const std::vector<int>& rows = application.interaction.context.state.Selected.rows();
  lua_createtable(L, static_cast<int>(rows.size()), 0);
  for (std::size_t n = 0; n < rows.size(); ++n) {
    push(L, rows[n]);
    lua_rawseti(L, -2, static_cast<lua_Integer>(n) + 1);
  }
}

using App = Application;

const StateField kFields[] = {
    field("pendingaction", [](App& app) { return app.interaction.context.state.pendingaction(); }),
    field("DrawMode", [](App& app) { return app.interaction.context.state.DrawMode(); }),
    field("MouseX", [](App& app) { return app.interaction.context.pointer.MouseX; }),
    field("MouseY", [](App& app) { return app.interaction.context.pointer.MouseY; }),
    field("clickstage", [](App& app) { return app.interaction.context.command.clickstage; }),
    field("EditPaths", [](App& app) { return Flag(app.interaction.context.command.EditPaths); }),
    field("LastCommand", [](App& app) { return app.interaction.context.command.LastCommand; }),
    field("OSnapOn", [](App& app) { return Flag(app.interaction.context.state.OSnapOn); }),
    {"Selected", pushSelected},
    field("viewcx", [](App& app) { return app.interaction.view.viewcx; }),
    field("viewcy", [](App& app) { return app.interaction.view.viewcy; }),
    field("viewspan", [](App& app) { return app.interaction.view.viewspan; }),
    field("homespan", [](App& app) { return app.interaction.view.homespan; }),
    field("zoomfactor", [](App& app) { return app.interaction.view.zoomfactor; }),
    field("changecount", [](App& app) { return app.interaction.context.changelog.changecount; }),
    field("changetop", [](App& app) { return app.interaction.context.changelog.changetop; }),
    field("prompt", [](App& app) { return app.interaction.statusBar.text(); }),
    field("caption", [](App& app) { return app.caption(); }),
    field("lastPlacedGroup", [](App& app) { return app.store.lastplacedgroup; }),
    field("PocketXDim", [](App& app) { return app.interaction.cam.PocketXDim; }),
    field("PocketYDim", [](App& app) { return app.interaction.cam.PocketYDim; }),
    field("pathInsertMode",
          [](App& app) { return static_cast<int>(app.interaction.cam.pathInsertMode); }),
    field("numFinishPasses", [](App& app) { return app.interaction.cam.numFinishPasses; }),
};

constexpr char kPanel[] = "panel";

[[noreturn]] void raiseUnknown(lua_State* L, const std::string& key) {
  std::vector<std::string> names{kPanel};
  for (const StateField& field : kFields) names.emplace_back(field.name);
  raise(L, "state has no '" + key + "'" + didYouMean(key, names));
}

std::string keyText(lua_State* L) {
  std::string key = luaL_tolstring(L, kKey, nullptr);
  lua_pop(L, 1);
  return key;
}

// The object of the panels is the first upvalue.
int readState(Script& script, lua_State* L) {
  const std::string key = keyText(L);
  if (key == kPanel) {
    lua_pushvalue(L, lua_upvalueindex(1));
    return 1;
  }
  for (const StateField& field : kFields) {
    if (key != field.name) continue;
    field.push(L, script.application);
    return 1;
  }
  raiseUnknown(L, key);
}

int refuseToWrite(Script& /*script*/, lua_State* L) {
  raise(L, "state." + keyText(L) + " can only be read");
}

// An empty object that reads through the function on top of the stack, which is taken off.
void wrapReader(lua_State* L) {
  lua_newuserdatauv(L, 0, 0);
  lua_createtable(L, 0, 3);
  lua_pushvalue(L, -3);
  lua_setfield(L, -2, "__index");
  lua_pushcfunction(L, guarded<refuseToWrite>);
  lua_setfield(L, -2, "__newindex");
  lua_pushboolean(L, 0);
  lua_setfield(L, -2, "__metatable");
  lua_setmetatable(L, -2);
  lua_remove(L, -2);
}

}  // namespace

void bindState(lua_State* L) {
  lua_pushcfunction(L, guarded<readPanel>);
  wrapReader(L);
  lua_pushcclosure(L, guarded<readState>, 1);
  wrapReader(L);
  lua_setglobal(L, "state");
}

}  // namespace tess
