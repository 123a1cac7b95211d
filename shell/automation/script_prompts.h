// Message boxes, file dialogs and forms of a script: its handlers answer, and all of it is kept in
// its table `messages`.
// Owns: ScriptPrompts.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "core/file_dialog.h"
#include "core/host.h"
#include "shell/automation/allowed_folders.h"
#include "shell/automation/lua_state.h"
#include "shell/automation/script_stage.h"

namespace tess {

// A wrong answer, or an error in a handler, is an error of the script: it leaves the program's
// routine that asked as an exception of Lua. Call everything here in protected mode.
class ScriptPrompts : public Prompts {
 public:
  explicit ScriptPrompts(const AllowedFolders& folders) : folders_(folders) {}

  // The state whose handlers answer; creates its `messages`.
  void attach(lua_State* L);
  // The script is over: what the program asks from now on gets the first button, or is cancelled.
  void detach();
  // The function on top of the stack, which is taken off, answers from now on. nil: message boxes
  // get their first button, file dialogs go to the handler of their form or are cancelled.
  void setMessageHandler() { takeHandler(messageHandler_); }
  void setFileHandler() { takeHandler(fileHandler_); }
  // The same for the modal showings of one form; nil: they are cancelled.
  void setFormHandler(const std::string& form);

  Answer showMessage(const Message& message) override { return show(message, "message"); }
  std::optional<std::string> chooseFile(const FileRequest& request) override;
  void showModal(Form& form) override;

  // The report of a failure, as a box of kind "error".
  void showReport(const std::string& report);

  // Who watches the script; null for nobody.
  ScriptStage* stage = nullptr;

 private:
  void takeHandler(int& handler);
  void record(const char* kind, const std::string& title);
  Answer show(const Message& message, const char* kind);
  Answer askHandler(const Message& message);
  std::optional<std::string> askFileHandler(const FileRequest& request, const std::string& initial);
  void requireAllowed(const FileRequest& request, const std::string& path) const;
  std::optional<std::string> askFormHandler(const FileRequest& request);
  void showAnswer(const FileRequest& request, const std::string& answer);
  bool hasFormHandler(const Form& form) const { return formHandlers_.contains(form.name()); }
  std::shared_ptr<void> showing(Form& form);
  void workForm(Form& form);
  void askFormHandler(Form& form);

  const AllowedFolders& folders_;
  lua_State* lua_ = nullptr;
  int messages_ = LUA_NOREF;
  int messageHandler_ = LUA_NOREF;
  int fileHandler_ = LUA_NOREF;
  std::map<std::string, int, std::less<>> formHandlers_;
};

}  // namespace tess
