// What a script may write, asked at each write about the folder that is then written to: only
// inside the folders it was given, only under names of the kind that the program makes, and over
// nothing that is hidden or can be executed.
// Owns: ScriptGuard.
#pragma once

#include <optional>
#include <string>

#include "core/write_guard.h"
#include "shell/automation/allowed_folders.h"
#include "shell/automation/lua_state.h"

namespace tess {

// A refusal is an error of the script: it leaves the program's routine that wanted to write as an
// exception of Lua, and names the path. Once the script is over it is a run-time failure.
class ScriptGuard : public WriteGuard {
 public:
  explicit ScriptGuard(const AllowedFolders& folders) : folders_(folders) {}

  // The state in which refusals are errors. Call everything that writes in protected mode.
  void attach(lua_State* L) { lua_ = L; }
  void detach() { lua_ = nullptr; }

  // Whether it may write down where the machine-control program lies.
  bool mayReachPrograms = false;

  bool trustsLinks() const override { return false; }
  void require(const FileWrite& write) override;
  bool permits(const FileWrite& write) const override { return !refusal(write); }

 private:
  std::optional<std::string> refusal(const FileWrite& write) const;

  const AllowedFolders& folders_;
  lua_State* lua_ = nullptr;
};

}  // namespace tess
