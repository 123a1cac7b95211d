// Starts the interpreter on a program in a folder of its own.
#include "tests/support/rs274.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>

#include "core/file_system.h"
#include "tests/support/canon_listing.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {
namespace {

const std::string kUnpacked = TESSIMO_SOURCE_DIR "/build/linuxcnc/usr/";
constexpr int kTools = 100;

// It lists numbers with four decimals, which hide half of what may be wrong with an inch: the copy
// that is run lists seven.
std::string withMoreDecimals(std::string interpreter) {
  constexpr std::string_view kShort = "%.4f";
  constexpr char kDecimals = '7';
  for (std::size_t at = 0; (at = interpreter.find(kShort, at)) != std::string::npos; ++at) {
    interpreter[at + 2] = kDecimals;
  }
  return interpreter;
}

std::string toolTable() {
  std::string table;
  for (int tool = 1; tool <= kTools; ++tool) {
    char line[60];
    std::snprintf(line, sizeof line, "T%d P%d Z%.3f D0.25\n", tool, tool, lengthOfTool(tool));
    table += line;
  }
  return table;
}

void makeInterpreter(const TempFolder& folder) {
  folder.write("rs274", withMoreDecimals(readFile(kUnpacked + "bin/rs274")));
  std::filesystem::permissions(folder("rs274"), std::filesystem::perms::owner_all);
  folder.write("tool.tbl", toolTable());
}

// One copy for the process; its folder is also its home, where it keeps a file of its own.
const TempFolder& interpreterFolder() {
  static const TempFolder folder;
  static const bool made = (makeInterpreter(folder), true);
  static_cast<void>(made);
  return folder;
}

// Sanitizers of the calling process are not its own.
int runIn(const TempFolder& folder) {
  const std::string command =
      "cd '" + folder() + "' && env -i PATH=/usr/bin:/bin HOME=. LC_ALL=C " + "LD_LIBRARY_PATH='" +
      kUnpacked + "lib' timeout 60 ./rs274 -g -t tool.tbl program.ngc " +
      ">listing.txt 2>errors.txt </dev/null";
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

std::optional<std::string> whyNoInterpreter() {
  if (fileExists(kUnpacked + "bin/rs274")) return std::nullopt;
  return "LinuxCNC's rs274 is not there; scripts/setup --test unpacks it in build/linuxcnc";
}

GcodeProgram interpreted(const std::string& program, bool lathe) {
  const TempFolder& folder = interpreterFolder();
  folder.write("program.ngc", program);
  const int status = runIn(folder);
  if (status != 0) {
    throw GcodeError("rs274 ends with " + std::to_string(status) + ": " +
                     folder.read("errors.txt"));
  }
  return readCanonListing(folder.read("listing.txt"), lathe);
}

}  // namespace tess::testing
