// Scripts on the tables: all columns of all rows, written and read value by value, which is what a
// parametric part or a converter does. 0 rows are the yardstick: the bare start of the program and
// of Lua. The script itself is part of the time, since it is what an operator waits for.
#include <filesystem>
#include <sstream>
#include <string>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "shell/automation/script_runner.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

constexpr char kColumns[] =
    "local columns = {'segtype', 'segattr', 'x0', 'y0', 'x1', 'y1', 'centerx', 'centery', "
    "'pstype', 'pscode', 'psx0', 'psy0', 'psx1', 'psy1', 'psxc', 'psyc', 'psz', 'psfeed', "
    "'psvisible'} local rows = tonumber(arg[1]) "
    "store.NumSegments, store.NumPathSegments = rows, rows ";

constexpr char kEachValue[] =
    "for _, name in ipairs(columns) do for row = 1, rows do "
    "store[name][row] = 1 local value = store[name][row] end end";

constexpr char kEachRow[] =
    "for row = 1, rows do add_path{type = 1, x1 = row, z = -1, feed = 10, code = 100} end "
    "local sum = 0 for path in paths() do sum = sum + path.z end";

void runRows(benchmark::State& state, const std::string& script) {
  const testing::TempFolder home;
  for (const char* name : {"tess.def", "test.msu", "standard.msx"}) {
    std::filesystem::copy(std::string(TESSIMO_SOURCE_DIR "/tests/scripts/home/") + name, home());
  }
  ScriptJob job;
  job.path = home("bench.lua");
  job.arguments = {std::to_string(state.range(0))};
  job.appfolder = home();
  for (auto _ : state) {
    std::ostringstream out;
    std::ostringstream err;
    if (runScriptText(job, script, {}, out, err) != ExitStatus::Done) {
      state.SkipWithError(err.str().c_str());
      return;
    }
  }
}

void valuesOfTables(benchmark::State& state) {
  runRows(state, std::string(kColumns) + kEachValue);
}

void rowsOfTables(benchmark::State& state) {
  runRows(state, std::string("local rows = tonumber(arg[1]) ") + kEachRow);
}

BENCHMARK(valuesOfTables)
    ->Arg(0)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(32767)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(rowsOfTables)
    ->Arg(0)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(32767)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
