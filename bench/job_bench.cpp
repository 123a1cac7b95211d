// Whole jobs: an example from its first click to its drawing and program, as an operator's script
// runs it. The start of the program and of Lua is part of the time; `start` is that alone.
#include <filesystem>
#include <sstream>
#include <string>

#include "benchmark/benchmark.h"

#include "core/file_system.h"
#include "shell/automation/script_runner.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

void runJob(benchmark::State& state, const std::string& script) {
  const testing::TempFolder home;
  const testing::TempFolder folder;
  std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
  std::filesystem::create_directory(home("CNC"));
  folder.write("job.lua", script);
  ScriptJob job;
  job.path = folder("job.lua");
  job.appfolder = home();
  // Pictures are the renderer's affair, which has its own benchmarks.
  const PictureWriter noPicture = [](Application&, const std::string&, const PixelSize&) {};
  for (auto _ : state) {
    std::ostringstream out;
    std::ostringstream err;
    if (runScript(job, noPicture, out, err) != ExitStatus::Done) {
      state.SkipWithError(err.str().c_str());
      return;
    }
  }
}

void exampleJob(benchmark::State& state, const char* name) {
  runJob(state, readFile(std::string(TESSIMO_SOURCE_DIR "/examples/") + name + ".lua"));
}

void start(benchmark::State& state) {
  runJob(state, "");
}

BENCHMARK(start)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exampleJob, flange, "flange")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exampleJob, clamp, "clamp")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exampleJob, islands, "islands")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exampleJob, name_plate, "name_plate")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exampleJob, lathe_profile, "lathe_profile")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
