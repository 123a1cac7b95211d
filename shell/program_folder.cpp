// The choice of the program's folder, and its first filling.
#include "shell/program_folder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/recent_files.h"
#include "core/runtime_failure.h"
#include "tools/speeds_feeds.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

constexpr char kSetupPointer[] = "tess.def";
constexpr char kDrawingFolder[] = "CNC";
constexpr char kInstalledData[] = "../share/tessimo/";

std::string existingFolder(const std::string& folder) {
  if (!folderExists(folder)) throw RuntimeFailure(FailureNumber::PathNotFound, folder);
  return withSeparator(fs::absolute(resolvePath(folder)).lexically_normal().string());
}

bool holdsProgram(const std::string& folder) {
  return fileExists(folder + kSetupPointer);
}

// The program's part of a folder that a variable names, else one in the home folder; nothing
// without either. The variable counts only as an absolute path, as its convention demands.
std::optional<std::string> folderOfUser(const FolderRequest& request, const char* variable,
                                        const char* inHome) {
  const std::optional<std::string> named = request.environment(variable);
  if (named && fs::path(*named).is_absolute()) return withSeparator(*named) + "tessimo/";
  const std::optional<std::string> home = request.environment("HOME");
  if (!home) return std::nullopt;
  return withSeparator(*home) + inHome + "/tessimo/";
}

std::string userDataFolder(const FolderRequest& request) {
  const std::optional<std::string> folder = folderOfUser(request, "XDG_DATA_HOME", ".local/share");
  if (folder) return *folder;
  throw RuntimeFailure(FailureNumber::PathNotFound, {},
                       "There is no home folder; name one with --home");
}

// What an operator has changed stays.
void copyMissing(const fs::path& file, const fs::path& copy) {
  if (fs::exists(copy)) return;
  NoGuard nobody;
  writeFile(nobody, copy.string(), FileKind::Record, readFile(file.string()));
}

// The file by which a filled folder is known comes last: a filling that was cut short goes on at
// the next start.
void copyData(const fs::path& shipped, const fs::path& folder) {
  fs::create_directories(folder);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(shipped)) {
    const fs::path place = folder / entry.path().lexically_relative(shipped);
    if (entry.is_directory()) {
      fs::create_directories(place);
    } else if (place.filename() != kSetupPointer) {
      copyMissing(entry.path(), place);
    }
  }
  copyMissing(shipped / kSetupPointer, folder / kSetupPointer);
}

void fillFolder(const std::string& folder, const std::string& shipped) {
  const auto fail = [&](const std::string& reason) {
    throw RuntimeFailure(FailureNumber::PathFileAccess, folder,
                         "The program's folder cannot be set up (" + reason + ")");
  };
  try {
    copyData(shipped, folder);
  } catch (const fs::filesystem_error& error) {
    fail(error.code().message());
  } catch (const RuntimeFailure& failure) {
    fail(failure.description() + ": " + failure.source());
  }
}

// A folder that was filled before there was a database gets it later. Without it the program runs
// all the same, so that a folder that cannot be written is no failure.
void addDatabase(const std::string& folder, const std::string& shipped) {
  if (fileExists(folder + kSpeedsFeedsName)) return;
  try {
    copyMissing(shipped + kSpeedsFeedsName, folder + kSpeedsFeedsName);
  } catch (const RuntimeFailure&) {
    takeCallChain();
  }
}

// Without it the first drawing would have no place; a read-only folder simply stays without. Its
// list of recent files starts empty, so that the first start has no missing file to report.
void makeDrawingFolder(const std::string& folder) {
  std::error_code ignored;
  if (!fs::create_directory(folder, ignored)) return;
  NoGuard nobody;
  writeFile(nobody, folder + kSeparator + kRecentFileName, FileKind::Record, "");
}

std::string chosenFolder(const FolderRequest& request) {
  if (request.home) return existingFolder(*request.home);
  if (const auto named = request.environment("TESSIMO_HOME")) return existingFolder(*named);
  if (holdsProgram(request.executableFolder)) return request.executableFolder;
  const std::string folder = userDataFolder(request);
  const std::string shipped = shippedDataFolder(request.executableFolder);
  if (!holdsProgram(folder)) fillFolder(folder, shipped);
  addDatabase(folder, shipped);
  return folder;
}

}  // namespace

FolderRequest folderRequest(std::optional<std::string> home) {
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  return {.home = std::move(home),
          .executableFolder = withSeparator(executable.parent_path().string()),
          .environment = [](const char* name) -> std::optional<std::string> {
            const char* const value = std::getenv(name);
            if (value == nullptr || *value == '\0') return std::nullopt;
            return value;
          }};
}

std::string programFolder(const FolderRequest& request) {
  std::string folder = chosenFolder(request);
  if (!folderExists(folder + kDrawingFolder)) makeDrawingFolder(folder + kDrawingFolder);
  return folder;
}

std::string userFolder(const FolderRequest& request) {
  return folderOfUser(request, "XDG_CONFIG_HOME", ".config").value_or("");
}

std::string shippedDataFolder(const std::string& executableFolder) {
  const std::string installed = executableFolder + kInstalledData;
  return holdsProgram(installed) ? installed : TESSIMO_SHIPPED_DATA "/";
}

}  // namespace tess
