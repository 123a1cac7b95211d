// Forms as objects of Lua: form.NAME is a control, form.NAME[index] a member of a control array,
// and both have the properties and methods of an operator. An object that outlives its form is an
// error when it is used.
// Owns: pushForm.
#pragma once

#include "core/form.h"
#include "shell/automation/lua_state.h"

namespace tess {

// Leaves the object of the form on the stack.
void pushForm(lua_State* L, Form& form);

}  // namespace tess
