// Variables of the program as fields of a Lua object, read and written where they are.
// Owns: TableSlot, VariablePlace, Variable.
#pragma once

#include <string>
#include <variant>

#include "core/column.h"
#include "core/int16.h"

namespace tess {

class Application;
enum class PathInsertMode : int;

// One row of a table that may move when the table grows.
struct TableSlot {
  Column<Int16>* column;
  int row;
};

using VariablePlace =
    std::variant<int*, Int16*, float*, Flag*, bool*, std::string*, TableSlot, PathInsertMode*>;

// A variable with what its place alone does not tell. It must not outlive the place.
struct Variable {
  VariablePlace place;
  // A whole number that is a flag of 0 and 1: a boolean may be assigned to it.
  bool viewFlag = false;
  // Does the assignment, for counters that carry their tables with them.
  void (*assign)(Application& application, int value) = nullptr;
};

}  // namespace tess
