// What the functions of one running script share, and the one door between Lua and the program:
// every function that a script can call goes through runGuarded.
// Owns: Script, scriptOf, setScript, limitInstructions, requireTime, ProgramClosed, Body,
//       runGuarded, guarded, raise, ScriptMisuse, requireAllowed, requireSensiblePath,
//       requireWritable.
#pragma once

#include <deque>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "shell/application.h"
#include "shell/automation/allowed_folders.h"
#include "shell/automation/lua_values.h"
#include "shell/automation/named_variables.h"
#include "shell/automation/script_hand.h"
#include "shell/automation/script_host.h"
#include "shell/automation/watchdog.h"
#include "shell/picture.h"

namespace tess {

struct Script {
  Application& application;
  ScriptHost& host;
  ScriptHand& hand;
  const PictureWriter& writePicture;  // empty where there is none
  const AllowedFolders& folders;
  std::ostream& out;
  Watchdog& watchdog;
  std::string path{};                       // of the script's file, as it was named
  std::string folder{};                     // with its last separator
  std::deque<Variable> variables{};         // what the closures of Lua point to; never shrinks
  bool started = false;                     // the program is up, and the script itself runs
  std::optional<std::string> programEnd{};  // why the script is over for good
  bool closed = false;                      // it has closed the program, and is over in order
};

// The script that a state runs.
Script& scriptOf(lua_State* L);
void setScript(lua_State* L, Script& script);

// Has the script end when it has run so many instructions. 0 is no limit: then whoever watches the
// script may breathe now and then.
void limitInstructions(lua_State* L, int count);

// Throws the end of the script, with its line, once its time is over.
void requireTime(lua_State* L);

// Thrown when the program was closed by a command of the script.
class ProgramClosed : public EndProgram {
 public:
  ProgramClosed() : EndProgram("the program was closed") {}
};

using Body = int (*)(Script& script, lua_State* L);

// Runs the body of a function; any failure of the program becomes a Lua error that names the
// script's line. After an EndProgram nothing of the script runs any more, not even behind a pcall.
int runGuarded(lua_State* L, Body body);

// A body as a function for Lua.
template <Body body>
int guarded(lua_State* L) {
  return runGuarded(L, body);
}

// Ends the function with a Lua error that names the script's line.
[[noreturn]] void raise(lua_State* L, std::string_view text);

// A wrong use of a function, with a sentence for the script's author. Leaving a body it becomes the
// same error.
class ScriptMisuse : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Throws ScriptMisuse for a file that the script may not touch.
void requireAllowed(const AllowedFolders& folders, std::string_view path);

// Throws ScriptMisuse for a text that no file can be named by.
void requireSensiblePath(std::string_view path);

// As requireAllowed, before a command that will write such a file, so that nothing has changed when
// the write would be refused.
void requireWritable(Script& script, const std::string& path, FileKind kind);

}  // namespace tess
