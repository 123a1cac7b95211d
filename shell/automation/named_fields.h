// Objects of Lua whose fields are variables and tables of the program: reading or assigning a field
// works on the program's own value, and an unknown name is an error with the name that was meant.
// Owns: FieldObject.
#pragma once

#include <string>

#include "shell/automation/script.h"

namespace tess {

// An object while it is put together; its table of fields is on top of the stack meanwhile.
class FieldObject {
 public:
  // `title` is what errors call it: "store", "setting".
  FieldObject(lua_State* L, std::string title);

  void add(const std::string& name, const Variable& variable);
  template <typename T>
  void add(const std::string& name, Column<T>& column);
  // The value on top of the stack, which is taken off, under a name: an object within the object.
  void addValue(const std::string& name);

  // Leaves the finished object on the stack.
  void finish();

 private:
  void setEvent(const char* event, lua_CFunction function);

  lua_State* lua_;
  std::string title_;
};

extern template void FieldObject::add(const std::string&, Column<int>&);
extern template void FieldObject::add(const std::string&, Column<Int16>&);
extern template void FieldObject::add(const std::string&, Column<float>&);
extern template void FieldObject::add(const std::string&, Column<Flag>&);
extern template void FieldObject::add(const std::string&, Column<std::string>&);

}  // namespace tess
