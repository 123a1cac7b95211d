// The platform of a script: message boxes and file dialogs answered by the script's handlers, time
// that passes only when the script lets it, beeps that are counted.
// Owns: ScriptPrompts, VirtualClock, ScriptSurroundings, ScriptFailures, ScriptHost.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/host.h"
#include "shell/automation/allowed_folders.h"
#include "shell/automation/lua_state.h"
#include "shell/error_reporting.h"

namespace tess {

// Asks the handlers that the script has set, and keeps what was shown in the script's `messages`.
// A wrong answer, or an error in a handler, is an error of the script and leaves the program's
// routine as one.
class ScriptPrompts : public Prompts {
 public:
  explicit ScriptPrompts(const AllowedFolders& folders) : folders_(folders) {}

  // The state whose handlers answer, with its `messages` table; before that nothing is recorded.
  void attach(lua_State* L);
  // The function on top of the stack answers from now on; nil answers with the first button, and
  // cancels file dialogs.
  void takeMessageHandler();
  void takeFileHandler();

  Answer showMessage(const Message& message) override;
  std::optional<std::string> chooseFile(const FileRequest& request) override;
  void showModal(Form& form) override;

  // The report of a failure, as a box of kind "error" with one button.
  void showReport(const std::string& report);

  // While it lives, the next file dialog gives this path.
  void answerFileWith(std::string path) { nextFile_ = std::move(path); }

 private:
  Answer show(const Message& message, const char* kind);
  Answer askHandler(const Message& message);
  void record(const Message& message, const char* kind, const char* answer);

  const AllowedFolders& folders_;
  lua_State* L_ = nullptr;
  int messages_ = LUA_NOREF;
  int messageHandler_ = LUA_NOREF;
  int fileHandler_ = LUA_NOREF;
};

}  // namespace tess
