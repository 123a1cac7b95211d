// Import of DXF files: a generated file of lines and arcs, 70 to 30, at three sizes, read and
// converted, against a bare reader of the same numbers and against the reader library of the
// distribution. The files of the folder that TESSIMO_DXF_FILES names are read one by one.
#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <sstream>
#include <string>

#include "benchmark/benchmark.h"

#ifdef TESSIMO_HAS_DXFLIB
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>
#endif

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/text.h"
#include "import/dxf_import.h"

namespace {

using namespace tess;

void appendGroup(std::string& out, int code, const std::string& value) {
  out += std::to_string(code) + "\r\n" + value + "\r\n";
}

void appendPoint(std::string& out, int code, double x, double y) {
  appendGroup(out, code, std::to_string(x));
  appendGroup(out, code + 10, std::to_string(y));
  appendGroup(out, code + 20, "0.0");
}

void appendLine(std::string& out, double at) {
  appendGroup(out, 0, "LINE");
  appendGroup(out, 8, "OUTLINE");
  appendPoint(out, 10, at, at / 3);
  appendPoint(out, 11, at + 1.25, at / 7);
}

void appendArc(std::string& out, double at) {
  appendGroup(out, 0, "ARC");
  appendGroup(out, 8, "OUTLINE");
  appendPoint(out, 10, at, at / 3);
  appendGroup(out, 40, std::to_string(1 + at / 100));
  appendGroup(out, 50, std::to_string(at / 100));
  appendGroup(out, 51, std::to_string(90 + at / 100));
}

// Seven lines and three arcs in every ten entities.
std::string drawing(int entities) {
  std::string out;
  appendGroup(out, 0, "SECTION");
  appendGroup(out, 2, "ENTITIES");
  for (int at = 0; at < entities; ++at) {
    const bool isLine = at % 10 < 7;
    (isLine ? appendLine : appendArc)(out, at * 0.37);
  }
  appendGroup(out, 0, "ENDSEC");
  appendGroup(out, 0, "EOF");
  return out;
}

class YesPrompts : public Prompts {
 public:
  Answer showMessage(const Message& /*message*/) override { return Answer::Yes; }
  std::optional<std::string> chooseFile(const FileRequest& /*request*/) override { return {}; }
  void showModal(Form& /*form*/) override {}
};

std::string_view takeLine(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\n'), rest.size());
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return line;
}

// The least that a reader does: every code and every coordinate becomes a number.
double sumOfNumbers(std::string_view rest) {
  double sum = 0;
  while (!rest.empty()) {
    const std::string_view codeLine = takeLine(rest);
    const std::string_view valueLine = takeLine(rest);
    int code = 0;
    std::from_chars(codeLine.data(), codeLine.data() + codeLine.size(), code);
    if (code < 10) continue;
    double value = 0;
    std::from_chars(valueLine.data(), valueLine.data() + valueLine.size(), value);
    sum += value;
  }
  return sum;
}

// What the operator waits for: the file's content becomes rows.
void dxfImport(benchmark::State& state) {
  const std::string content = drawing(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    DxfDocument document;
    DrawingStore store;
    YesPrompts prompts;
    readDxf(document, content, "bench.dxf");
    ChangeLog log;
    Changes changes(store, log);
    Change change(changes);
    DxfRows rows(change, prompts, document);
    convertDxf(document, rows, /*connectPoints=*/false);
    change.keep();
    benchmark::DoNotOptimize(store.x0[store.NumSegments]);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void dxfRead(benchmark::State& state) {
  const std::string content = drawing(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    DxfDocument document;
    readDxf(document, content, "bench.dxf");
    benchmark::DoNotOptimize(document.Entities.data());
  }
}

void dxfBareNumbers(benchmark::State& state) {
  const std::string content = drawing(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(sumOfNumbers(content));
}

BENCHMARK(dxfImport)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);
BENCHMARK(dxfRead)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);
BENCHMARK(dxfBareNumbers)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);

#ifdef TESSIMO_HAS_DXFLIB
class CountingAdapter : public DL_CreationAdapter {
 public:
  void addLine(const DL_LineData& line) override { sum += line.x1; }
  void addArc(const DL_ArcData& arc) override { sum += arc.radius; }
  double sum = 0;
};

void dxfLibrary(benchmark::State& state) {
  const std::string content = drawing(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::stringstream in(content);  // what the library reads besides files
    CountingAdapter adapter;
    DL_Dxf reader;
    reader.in(in, &adapter);
    benchmark::DoNotOptimize(adapter.sum);
  }
}
BENCHMARK(dxfLibrary)->Arg(1000)->Arg(10000)->Arg(30000)->Unit(benchmark::kMicrosecond);
#endif

// ---- Files of others

std::size_t heapInUse() {
  return mallinfo2().uordblks;
}

void dxfFile(benchmark::State& state, const std::string& path) {
  const std::size_t before = heapInUse();
  std::size_t held = 0;
  std::size_t entities = 0;
  int made = 0;
  for (auto _ : state) {
    const std::string content = readFile(path);
    DxfDocument document;
    DrawingStore store;
    YesPrompts prompts;
    try {
      readDxf(document, content, "bench.dxf");
    } catch (const RuntimeFailure&) {
      takeCallChain();  // what stands before the damage counts
    }
    ChangeLog log;
    Changes changes(store, log);
    Change change(changes);
    DxfRows rows(change, prompts, document);
    convertDxf(document, rows, /*connectPoints=*/false);
    change.keep();
    held = heapInUse() - before;
    entities = document.Entities.size();
    made = store.NumSegments;
  }
  state.counters["entities"] = static_cast<double>(entities);
  state.counters["rows"] = made;
  state.counters["kB"] = static_cast<double>(held) / 1024;
}

void registerFiles() {
  const char* const folder = std::getenv("TESSIMO_DXF_FILES");
  if (folder == nullptr || !std::filesystem::is_directory(folder)) return;
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (upperCased(entry.path().string()).ends_with(".DXF")) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const std::string& file : files) {
    const std::string name = "dxfFile/" + std::string(fileNameOf(file));
    benchmark::RegisterBenchmark(name.c_str(), [file](benchmark::State& state) {
      dxfFile(state, file);
    })->Unit(benchmark::kMicrosecond);
  }
}

[[maybe_unused]] const bool kRegistered = (registerFiles(), true);

}  // namespace
