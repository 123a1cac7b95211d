// Runs one script from its start to its exit status, without a window.
// Owns: ExitStatus, ScriptJob, runScript, runScriptText.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "shell/automation/lua_state.h"

namespace tess {

// What the process ends with.
enum class ExitStatus : int { Done = 0, JobFailed = 1, WrongUsage = 2 };

struct ScriptJob {
  std::string path;                    // of the script
  std::vector<std::string> arguments;  // arg[1] and on
  std::string appfolder;               // with its last separator
  std::vector<std::string> folders;    // further ones that its file commands may touch
  bool fileAccess = false;             // io, os, package and require
  LuaLimits limits;
};

// A script that fails gives one line on `err`, which names the script and the line where known.
ExitStatus runScript(const ScriptJob& job, std::ostream& out, std::ostream& err);

// The same for a text that is in memory already; job.path is only its name.
ExitStatus runScriptText(const ScriptJob& job, std::string_view text, std::ostream& out,
                         std::ostream& err);

}  // namespace tess
