// Every form of the program, each filled as its command fills it, for tests that hold for all of
// them.
// Owns: NamedForm, everyForm.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/form.h"
#include "shell/qt/desktop_program.h"

namespace tess::testing {

struct NamedForm {
  std::string name;
  std::function<std::unique_ptr<Form>()> make;
};

// Those of a program that has a drawing with paths open. The forms live no
// longer than the program and the list.
std::vector<NamedForm> everyForm(DesktopProgram& program);

}  // namespace tess::testing
