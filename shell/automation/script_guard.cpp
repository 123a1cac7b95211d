// The rules for what scripts write.
#include "shell/automation/script_guard.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <initializer_list>
#include <sys/stat.h>

#include "core/runtime_failure.h"
#include "core/text.h"
#include "shell/automation/script.h"

namespace tess {
namespace {

constexpr mode_t kExecuteBits = 0111;
constexpr char kHidden[] = "a script writes no file whose name begins with a point";
constexpr char kOperatorsChoice[] = "a script does not choose the program that files are sent to";
constexpr char kControlLocation[] =
    "a script writes down no other program (it needs --allow-io in front of --run)";
constexpr char kExecutable[] = "a script writes over no file that can be executed";

std::string extensionOf(const std::string& name) {
  return lowerCased(std::filesystem::path(name).extension().string());
}

bool isOneOf(const std::string& name, std::initializer_list<const char*> extensions) {
  return std::find(extensions.begin(), extensions.end(), extensionOf(name)) != extensions.end();
}

// Why a file of this kind may not have that name; null when it may.
const char* wrongName(FileKind kind, const std::string& name) {
  switch (kind) {
    case FileKind::Drawing:
      return isOneOf(name, {".cdm"}) ? nullptr : "a script saves drawings only as .cdm";
    case FileKind::Picture:
      return isOneOf(name, {".png", ".svg", ".pdf"})
                 ? nullptr
                 : "a script writes pictures only as .png, .svg or .pdf";
    case FileKind::Setup:
      return isOneOf(name, {".msu"}) || equalIgnoringCase(name, "tess.def")
                 ? nullptr
                 : "a script saves setups only as .msu";
    case FileKind::Layout:
      return isOneOf(name, {".tb3"}) ? nullptr : "a script saves layouts only as .tb3";
    case FileKind::ToolLibrary:
      return isOneOf(name, {".csv", ".tbl"}) ? nullptr
                                             : "a script exports tools only as .csv or .tbl";
    case FileKind::Program:
      return isOneOf(name, {".cdm", ".tpm", ".tpj"})
                 ? "a program does not go where drawings are kept"
                 : nullptr;
    case FileKind::Companion:
    case FileKind::ControlLocation:
    case FileKind::SendProgram:
    case FileKind::Record:
      return nullptr;
  }
  return nullptr;
}

bool canBeExecuted(const FileWrite& write) {
  struct stat state {};
  return ::fstatat(write.folder, write.name.c_str(), &state, AT_SYMLINK_NOFOLLOW) == 0 &&
         S_ISREG(state.st_mode) && (state.st_mode & kExecuteBits) != 0;
}

}  // namespace

std::optional<std::string> ScriptGuard::refusal(const FileWrite& write) const {
  const auto because = [&](const char* reason) { return "'" + write.path + "': " + reason; };
  const bool namedByProgram = write.kind == FileKind::Companion || write.kind == FileKind::Record;
  if (write.kind == FileKind::Record && folders_.isProgramFolder(write.folder)) {
    return std::nullopt;
  }
  if (write.kind == FileKind::SendProgram) return because(kOperatorsChoice);
  if (write.kind == FileKind::ControlLocation) {
    const bool may = mayReachPrograms && folders_.isProgramFolder(write.folder);
    return may ? std::nullopt : std::optional(because(kControlLocation));
  }
  if (!folders_.holds(write.folder)) return AllowedFolders::outside(write.path);
  if (!namedByProgram && write.name.starts_with('.')) return because(kHidden);
  if (const char* const wrong = wrongName(write.kind, write.name)) return because(wrong);
  if (canBeExecuted(write)) return because(kExecutable);
  return std::nullopt;
}

void ScriptGuard::require(const FileWrite& write) {
  const auto reason = refusal(write);
  if (!reason) return;
  if (lua_ != nullptr) raise(lua_, *reason);
  throw RuntimeFailure(FailureNumber::PermissionDenied, {}, *reason);
}

}  // namespace tess
