// The choice of the program's folder, and its first filling.
#include "shell/program_folder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/recent_files.h"
#include "core/runtime_failure.h"
#include "shell/controls_list.h"
#include "tools/speeds_feeds.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

constexpr char kSetupPointer[] = "tess.def";
constexpr char kDrawingFolder[] = "CNC";
constexpr char kFirstStartName[] = "FirstStart.txt";
constexpr char kFirstStartText[] =
    "The first window asks for the control and the units, and removes this file.\r\n";
constexpr char kHomeVariable[] = "TESSIMO_HOME";
constexpr char kInstalledData[] = "../share/tessimo/";
constexpr char kInstalledManual[] = "help/tsmo_manual.pdf";
constexpr char kInstalledExamples[] = "examples/";

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

void markFirstStart(const fs::path& folder) {
  NoGuard nobody;
  writeFile(nobody, (folder / kFirstStartName).string(), FileKind::Record, kFirstStartText);
}

// The folders in it, of the manual and the examples, are read where they are: a newer program
// brings newer ones. The file by which a filled folder is known comes last: a filling that was cut
// short goes on at the next start.
void copyData(const fs::path& shipped, const fs::path& folder) {
  fs::create_directories(folder);
  for (const fs::directory_entry& entry : fs::directory_iterator(shipped)) {
    const fs::path place = folder / entry.path().filename();
    if (entry.is_directory() || place.filename() == kSetupPointer) continue;
    copyMissing(entry.path(), place);
  }
  markFirstStart(folder);
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

// Without what comes later the program runs all the same, so that a folder that cannot be written
// is no failure.
void addOrPassOver(const std::function<void()>& add) {
  try {
    add();
  } catch (const fs::filesystem_error&) {
  } catch (const RuntimeFailure&) {
    takeCallChain();
  }
}

// A folder that was filled before there was a database gets it later.
void addDatabase(const fs::path& folder, const fs::path& shipped) {
  if (fileExists((folder / kSpeedsFeedsName).string())) return;
  copyMissing(shipped / kSpeedsFeedsName, folder / kSpeedsFeedsName);
}

void addSetup(const fs::path& folder, const fs::path& shipped, const std::string& setup) {
  if (setup.empty() || fileExists((folder / setup).string())) return;
  for (const char* const extension : {".msu", ".msx"}) {
    const fs::path file = fs::path(setup).replace_extension(extension);
    if (fs::exists(shipped / file)) copyMissing(shipped / file, folder / file);
  }
}

// The same for the setups of the controls. Their list comes last, so that one that was cut short
// goes on, and a setup that somebody removes later stays away.
void addControls(const fs::path& folder, const fs::path& shipped) {
  if (fileExists((folder / kControlsName).string()) || !fs::exists(shipped / kControlsName)) return;
  for (const ControlChoice& control : availableControls(withSeparator(shipped.string()))) {
    addSetup(folder, shipped, control.inchSetup);
    addSetup(folder, shipped, control.metricSetup);
  }
  copyMissing(shipped / kControlsName, folder / kControlsName);
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
  if (const auto named = request.environment(kHomeVariable)) return existingFolder(*named);
  if (holdsProgram(request.executableFolder)) return request.executableFolder;
  const std::string folder = userDataFolder(request);
  const std::string shipped = shippedDataFolder(request.executableFolder);
  if (!holdsProgram(folder)) fillFolder(folder, shipped);
  addOrPassOver([&] { addDatabase(folder, shipped); });
  addOrPassOver([&] { addControls(folder, shipped); });
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

bool isFirstStart(const FolderRequest& request, const std::string& folder) {
  return !request.home && !request.environment(kHomeVariable) &&
         fileExists(folder + kFirstStartName);
}

void endFirstStart(const std::string& folder) {
  NoGuard nobody;
  removeFile(nobody, folder + kFirstStartName, FileKind::Record);
}

std::string shippedDataFolder(const std::string& executableFolder) {
  const std::string installed = executableFolder + kInstalledData;
  return holdsProgram(installed) ? installed : TESSIMO_SHIPPED_DATA "/";
}

HelpFiles helpFiles(const std::string& executableFolder) {
  const std::string installed = executableFolder + kInstalledData;
  if (!holdsProgram(installed)) return {TESSIMO_BUILT_MANUAL, TESSIMO_EXAMPLES "/"};
  return {installed + kInstalledManual, installed + kInstalledExamples};
}

}  // namespace tess
