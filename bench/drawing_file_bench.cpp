// Saving and loading of drawings: the text of both files and back, at the sizes that operators
// meet and at the largest the tables hold. The bare loops over the same bytes are the yardstick:
// the format code is held to twice their time. Whole saves, with the disk, are held to one and a
// half times the processor time of two files that are each replaced by themselves, with a backup
// and flushed, but without lock, journal and checksums.
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_file.h"
#include "core/drawing_format.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/recent_files.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

// Arcs, the kind with the most fields, with coordinates of five decimals as drawings have them.
DrawingStore drawingOf(int rows) {
  DrawingStore store;
  for (int row = 1; row <= rows; ++row) {
    const double angle = row * 0.001;
    const auto x = static_cast<float>(std::round(std::cos(angle) * 4e5) / 1e5);
    const auto y = static_cast<float>(std::round(std::sin(angle) * 4e5) / 1e5);
    AddSeg(store, {.type = kClockwiseArc, .x0 = x, .y0 = y, .x1 = y, .y1 = x, .xc = -x, .yc = -y},
           nullptr);
    addPathSegment(store, {.type = kLine,
                           .x0 = x,
                           .y0 = y,
                           .x1 = y,
                           .y1 = x,
                           .z = -0.25F,
                           .feed = 12.5F,
                           .code = 103});
  }
  return store;
}

struct Pair {
  std::string drawing, paths;
};

Pair textOf(DrawingStore& store) {
  Pair pair;
  writefileheader(store, pair.drawing);
  appendSegments(pair.drawing, store);
  appendPaths(pair.paths, store);
  return pair;
}

void saveText(benchmark::State& state) {
  DrawingStore store = drawingOf(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Pair pair = textOf(store);
    benchmark::DoNotOptimize(pair.paths.data());
  }
}

void loadText(benchmark::State& state) {
  DrawingStore store = drawingOf(static_cast<int>(state.range(0)));
  const Pair pair = textOf(store);
  for (auto _ : state) {
    DrawingStore loaded;
    FieldReader drawing("bench.cdm", pair.drawing);
    readfileheader(loaded, drawing);
    readSegments(loaded, drawing);
    FieldReader paths("bench.tpm", pair.paths);
    readPaths(loaded, paths);
    benchmark::DoNotOptimize(loaded.NumPathSegments);
  }
}

// Every number of the text once more as text, with nothing but the library's writer.
void saveBare(benchmark::State& state) {
  DrawingStore store = drawingOf(static_cast<int>(state.range(0)));
  const auto rows = static_cast<std::size_t>(state.range(0));
  const std::array<Column<float>*, 14> columns{
      &store.x0,      &store.y0,   &store.x1,   &store.y1,    &store.centerx,
      &store.centery, &store.psx0, &store.psy0, &store.psx1,  &store.psy1,
      &store.psxc,    &store.psyc, &store.psz,  &store.psfeed};
  for (auto _ : state) {
    std::string text(rows * 14 * 16, '\0');
    char* out = text.data();
    char* const end = out + text.size();
    for (std::size_t row = 1; row <= rows; ++row) {
      for (int integers = 0; integers < 4; ++integers) {
        out = std::to_chars(out, end, 103).ptr;
        *out++ = ',';
      }
      for (const Column<float>* column : columns) {
        out = std::to_chars(out, end, column->rows()[row]).ptr;
        *out++ = ',';
      }
    }
    benchmark::DoNotOptimize(out);
  }
}

// Every field of the bytes as a number, with nothing but the library's parser.
void parseBare(const std::string& text, std::vector<float>& values) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    float value = 0;
    const auto result = std::from_chars(at, end, value);
    values.push_back(value);
    at = result.ptr == at ? at + 1 : result.ptr;
    while (at < end && (*at == ',' || *at == '\r' || *at == '\n')) ++at;
  }
}

void loadBare(benchmark::State& state) {
  DrawingStore store = drawingOf(static_cast<int>(state.range(0)));
  const Pair pair = textOf(store);
  for (auto _ : state) {
    std::vector<float> values;
    parseBare(pair.drawing, values);
    parseBare(pair.paths, values);
    benchmark::DoNotOptimize(values.data());
  }
}

// One file in place of another as plainly as that goes without ever losing both.
void replacePlainly(const std::string& path, const std::string& content) {
  const std::string backup = path + "~";
  const std::string temporary = path + ".tmp";
  struct stat old {};
  const bool there = ::stat(path.c_str(), &old) == 0;
  const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (there) benchmark::DoNotOptimize(::fchown(file, old.st_uid, old.st_gid));
  if (there) ::fchmod(file, old.st_mode & 07777);
  benchmark::DoNotOptimize(::write(file, content.data(), content.size()));
  ::fsync(file);
  ::close(file);
  ::unlink(backup.c_str());
  if (there) benchmark::DoNotOptimize(::link(path.c_str(), backup.c_str()));
  std::rename(temporary.c_str(), path.c_str());
}

// A drawing that changes a little between any two saves.
struct SavedDrawing {
  explicit SavedDrawing(benchmark::State& state) {
    test.store = drawingOf(static_cast<int>(state.range(0)));
    test.store.drawingpath = test.home("CNC/");
    test.name("BENCH.CDM");
    save_Drawing(test.session);
  }
  void change() {
    test.store.x0[1] += 1;
    test.store.psx0[1] += 1;
    test.messages().clear();
    test.listener.take();
    test.listener.displayed.clear();
  }

  testing::TestSession test;
};

void saveFiles(benchmark::State& state) {
  SavedDrawing drawing(state);
  for (auto _ : state) {
    drawing.change();
    save_Drawing(drawing.test.session);
  }
}

void saveFilesPlainly(benchmark::State& state) {
  SavedDrawing drawing(state);
  for (auto _ : state) {
    drawing.change();
    roundall(drawing.test.store);
    const Pair pair = textOf(drawing.test.store);
    replacePlainly(resolvePath(drawing.test.home("CNC/BENCH.CDM")), pair.drawing);
    replacePlainly(resolvePath(drawing.test.home("CNC/BENCH.TPM")), pair.paths);
    addRecent(drawing.test.session, drawing.test.home("CNC/BENCH.CDM"));
    showDrawingName(drawing.test.session);
  }
}

BENCHMARK(saveFiles)->Arg(100)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMicrosecond);
BENCHMARK(saveFilesPlainly)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(32767)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(saveText)->Arg(100)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMicrosecond);
BENCHMARK(saveBare)->Arg(32767)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadText)->Arg(100)->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadBare)->Arg(32767)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tess
