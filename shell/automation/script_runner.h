// Runs one script from its start to its exit status: on a screen that nobody sees, or on a program
// that somebody else has brought up.
// Owns: ExitStatus, ScriptJob, foldersOf, ScriptParts, runScript, runScriptText, runScriptOn,
//       readScript.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/application.h"
#include "shell/automation/allowed_folders.h"
#include "shell/automation/lua_state.h"
#include "shell/automation/script_host.h"
#include "shell/automation/script_stage.h"
#include "shell/automation/script_time.h"
#include "shell/picture.h"

namespace tess {

// What the process ends with.
enum class ExitStatus : int { Done = 0, JobFailed = 1, WrongUsage = 2 };

struct ScriptJob {
  std::string path;                    // of the script
  std::vector<std::string> arguments;  // arg[1] and on
  std::string appfolder;               // with its last separator
  std::vector<std::string> folders;    // further ones that its file commands may touch
  bool fileAccess = false;             // io, os, package and require
  PixelSize size;                      // of the surface
  std::optional<DateTime> date;        // that the program's clock tells; none: the real one
  LuaLimits limits;
  double timeout = 0;         // seconds; 0: as long as it takes
  bool showProgress = false;  // the status line of long commands, on the error stream
  std::string jetReader{};    // the program that reads Jet databases; empty: none does
  std::string userfolder{};   // what belongs to this user alone; empty: nothing is kept
  Paper* paper = nullptr;     // null: nothing can be printed
};

// The folders that the file commands of the script may touch.
AllowedFolders foldersOf(const ScriptJob& job);

// A program that stands ready for a script, and what the script works it with. The host has been
// given to the application; screen and timers of the application are the business of whoever
// brings it, as long as `time` drives those timers.
struct ScriptParts {
  Application& application;
  ScriptHost& host;
  ScriptTime& time;
  ScriptStage& stage;
  const PictureWriter& writePicture;  // empty where there is none
  const AllowedFolders& folders;
  std::function<void()> start;  // brings the program up, before the names are bound
};

// A script that fails gives one line on `err`, which names the script and the line where known.
ExitStatus runScript(const ScriptJob& job, const PictureWriter& writePicture, std::ostream& out,
                     std::ostream& err);

// The same for a text that is in memory already; job.path is only its name.
ExitStatus runScriptText(const ScriptJob& job, std::string_view text,
                         const PictureWriter& writePicture, std::ostream& out, std::ostream& err);

// The same in a program of the caller's. Afterwards the program is as the script left it, and what
// it asks is answered with the first button, or cancelled.
ExitStatus runScriptOn(const ScriptParts& parts, const ScriptJob& job, std::string_view text,
                       std::ostream& out, std::ostream& err);

// The text of the script; nothing, and the reason on `err`, when it cannot be read.
std::optional<std::string> readScript(const ScriptJob& job, std::ostream& err);

}  // namespace tess
