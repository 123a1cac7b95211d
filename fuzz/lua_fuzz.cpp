// Runs any bytes as a script, on a program folder of its own, with little memory and few
// instructions. Whatever the script does, it ends with an exit status and at most one line.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>

#include "core/file_system.h"
#include "shell/automation/script_runner.h"
#include "tests/support/temp_folder.h"

namespace {

constexpr std::size_t kMemory = 16 << 20;
constexpr int kInstructions = 20000;
constexpr std::size_t kLongestText = 4096;  // texts that grow squared cost more than they find

void require(bool condition) {
  if (!condition) std::abort();
}

// A folder with a setup, for the life of the process.
class Home {
 public:
  Home() {
    folder_.write("tess.def", "1.0\r\nfuzz.msu\r\n");
    folder_.write("fuzz.msu",
                  "units of measure =I\r\ntool # = 1\r\ntool name =mill\r\ntool radius = .25\r\n");
    folder_.write("standard.msx", "LISTSTART,HEADERTEXT\r\n%\r\nLISTEND\r\n");
    std::filesystem::create_directory(folder_("CNC"));
  }
  std::string path() const { return folder_(); }

 private:
  tess::testing::TempFolder folder_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Home home;
  const std::string_view text(reinterpret_cast<const char*>(data), std::min(size, kLongestText));
  tess::ScriptJob job;
  job.path = home.path() + "CNC/fuzz.lua";
  job.arguments = {"4", "part"};
  job.appfolder = home.path();
  job.limits = {.memory = kMemory, .instructions = kInstructions};
  std::ostringstream out;
  std::ostringstream err;
  const tess::ExitStatus status = tess::runScriptText(job, text, {}, out, err);
  const std::string line = err.str();
  require(status != tess::ExitStatus::WrongUsage);
  if (status == tess::ExitStatus::Done) return 0;
  require(line.starts_with("tessimo: ") && line.find('\n') == line.size() - 1);
  return 0;
}
