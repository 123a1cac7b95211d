// The names that a script finds, each group put into the globals of a state by one call. All of
// them need scriptOf(L) and protected mode.
// Owns: bindStore, bindRows, bindGeometry, bindRoutines, bindFileCommands, bindPrompts, bindState,
//       bindEvents, bindViews, bindReport, bindProof.
#pragma once

#include "shell/automation/script.h"

namespace tess {

void bindStore(lua_State* L);         // store, setting
void bindRows(lua_State* L);          // segments, paths, add_segment, add_path
void bindGeometry(lua_State* L);      // geometry
void bindRoutines(lua_State* L);      // call
void bindFileCommands(lua_State* L);  // open, save, import_dxf, make_cnc, extents
// print, messages, beeps, status_log, form, on_message, on_file, on_form
void bindPrompts(lua_State* L);
void bindState(lua_State* L);   // state
void bindEvents(lua_State* L);  // tool, tool_state, key, press, ..., wheel, wait
void bindViews(lua_State* L);   // view, plot
void bindReport(lua_State* L);  // report
void bindProof(lua_State* L);   // proof

}  // namespace tess
