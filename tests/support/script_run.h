// Runs scripts in process, each on a program folder of its own.
// Owns: ScriptRun.
#pragma once

#include <string>
#include <string_view>

#include "shell/automation/script_runner.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {

// The program's folder is `home`, with the setup of tests/scripts/home; scripts lie in `folder`
// under the name "test.lua".
class ScriptRun {
 public:
  ScriptRun();
  ~ScriptRun();

  ExitStatus run(std::string_view script);

  // The output of a script that goes through.
  std::string outputOf(std::string_view script);

  // The line of a script that fails, without the program's name and the script's folder.
  std::string failureOf(std::string_view script);

  // What an expression, or several, gives, as print shows it.
  std::string valueOf(std::string_view expression);

  // The error of a statement, behind the place.
  std::string errorOf(std::string_view statement);

  TempFolder home;
  TempFolder folder;
  ScriptJob job;
  PictureWriter writePicture;
  ExitStatus status = ExitStatus::Done;
  std::string out;
  std::string err;
};

}  // namespace tess::testing
