// The record of the machine-control program.
#include "cnc/control_location.h"

#include <algorithm>

#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kLocationName[] = "GTX_LOC.DAT";
constexpr std::size_t kLongestLine = 1 << 15;  // far more than any path
constexpr char kUsualFolder[] = "C:\\Program Files (x86)\\Gantrix Pro\\";
constexpr char kOlderFolder[] = "C:\\Program Files\\Gantrix Pro\\";
constexpr char kControlProgram[] = "GTXFW.EXE";

bool holdsAnything(std::string_view folder) {
  const FolderEntries entries = listFolder(folder);
  return !entries.files.empty() || !entries.folders.empty();
}

std::string defaultPath() {
  return std::string(holdsAnything(kUsualFolder) ? kUsualFolder : kOlderFolder) + kControlProgram;
}

}  // namespace

std::string locationIn(std::string_view content) {
  const std::string_view line = content.substr(0, content.find_first_of("\r\n"));
  const std::string_view text = trimmed(line);
  return text.empty() || text == kNoPath ? std::string() : std::string(line);
}

std::string locationFile(const Session& session) {
  return resolvePath(session.appfolder + kLocationName);
}

std::string controlPath(const Session& session) {
  std::string path;
  try {
    const std::string file = locationFile(session);
    if (fileExists(file)) path = locationIn(readBeginning(file, kLongestLine));
  } catch (const RuntimeFailure& failure) {
    session.host.failures.report(failure);
  }
  return path.empty() ? defaultPath() : path;
}

bool controlExists(const std::string& path) {
  const bool isWhole = path.find('\0') == std::string::npos;
  return isWhole && resolvePath(path).starts_with(kSeparator) && fileExists(path);
}

void writeControlPath(const Session& session, std::string_view path) {
  if (std::any_of(path.begin(), path.end(), endsLine)) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, onOneLine(std::string(path)),
                         "A path with a line end in it cannot be kept");
  }
  const std::string line(path.empty() ? kNoPath : path);
  writeFile(session.host.guard, locationFile(session), FileKind::ControlLocation, line + "\r\n");
}

}  // namespace tess
