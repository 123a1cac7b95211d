// Mill programs of 100 to 32767 motions, as pocketing leaves them: mostly short straight cuts in
// runs, an arc every eighth row, a new depth and a travel every two hundred. BareWriter puts the
// same words out through std::to_chars and nothing else; the program is to stay within one and a
// half times that. So are programs of the same motions with line numbers and all keys that ask for
// care, and drilled ones of as many motions: as cycles of the ISO kind, and as pecks.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "benchmark/benchmark.h"

#include "cnc/cnc_program.h"
#include "core/drawing_store.h"
#include "core/field_reader.h"
#include "core/units.h"
#include "geometry/float_points.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

constexpr int kRowsPerLevel = 200;
constexpr int kRowsPerArc = 8;

// What a program is made of, and how.
enum class Kind { Pockets, NumberedPockets, IsoHoles, PeckedHoles };

constexpr char kCareful[] =
    "LINENUMBERS,10,10,SAFECHANGE,Y,CYCLEWORDS,Y,ENDLIFT,Y,ARCTOL,1000,FULLCIRCLE,WORDS,"
    "PLUNGEFROM,0.05,FEEDSCALE,1,FEEDFORMAT,###0.0##\n";
constexpr char kIso[] = "CYCLES,ISO,CYCLEPECK,Q,CYCLEDWELL,P\n";
constexpr char kPecks[] = "CYCLES,EXPAND\n";

constexpr std::array<const char*, 4> kDefinitions{"", kCareful, kIso, kPecks};

struct Job {
  explicit Job(int motions, Kind kind = Kind::Pockets) {
    store.units = "I";
    store.cfg_tolerance = 0.0001F;
    store.cfg_z_plunge_rate = 5;
    store.zstartpos = 0.5F;
    set_num_formats(session);
    FieldReader reader("bench.msx", kDefinitions[static_cast<std::size_t>(kind)]);
    readPostDefinition(session, definition, reader);
    addRows(motions, kind);
  }

  std::string program() { return programText(session, definition, state, CncMode::Mill); }

  testing::RecordingHost host;
  DrawingStore store;
  testing::RecordingListener listener;
  Session session{store, host.host, listener};
  PostDefinition definition;
  CncState state;

 private:
  // A hole of four pecks is told by an approach and eleven motions.
  static constexpr int kMotionsPerHole = 12;

  void addRows(int motions, Kind kind) {
    const bool holes = kind == Kind::IsoHoles || kind == Kind::PeckedHoles;
    const int rows = kind == Kind::PeckedHoles ? motions / kMotionsPerHole : motions;
    for (int row = 0; row < rows; ++row) holes ? addHole() : addRow(row);
  }

  void addHole() {
    const Point place{coordinate(), coordinate()};
    addPathSegment(store, {.type = 83,
                           .x0 = place.x,
                           .y0 = place.y,
                           .x1 = place.x,
                           .y1 = place.y,
                           .xc = 0.25F,
                           .z = -1,
                           .feed = 12.5F,
                           .code = 100});
  }

  float coordinate() {
    std::uniform_real_distribution<double> anywhere(-10, 10);
    return static_cast<float>(std::floor(anywhere(random) * 1e5 + 0.5) / 1e5);
  }

  void addRow(int row) {
    if (row % kRowsPerLevel == 0) at = {coordinate(), coordinate()};
    const Point to{coordinate(), coordinate()};
    addPathSegment(store, {.type = row % kRowsPerArc == 0 ? kClockwiseArc : kLine,
                           .x0 = at.x,
                           .y0 = at.y,
                           .x1 = to.x,
                           .y1 = to.y,
                           .xc = coordinate(),
                           .yc = coordinate(),
                           .z = -0.125F * static_cast<float>(row / kRowsPerLevel % 8 + 1),
                           .feed = 12.5F,
                           .code = 100});
    at = to;
  }

  std::mt19937 random{7};  // NOLINT: the same rows on every run
  Point at;
};

// A program taken apart: what stands before each number, and the number.
struct Piece {
  std::string text;
  float value = 0;
  bool hasValue = false;
};

bool continuesNumber(char letter) {
  return (letter >= '0' && letter <= '9') || letter == '.' || letter == '-';
}

// Coordinates are the numbers with a point; G words, feeds and remarks are plain text.
std::vector<Piece> takeApart(std::string_view program) {
  std::vector<Piece> pieces;
  Piece piece;
  while (!program.empty()) {
    std::size_t length = 0;
    while (length < program.size() && continuesNumber(program[length])) ++length;
    const std::string_view number = program.substr(0, length);
    piece.hasValue = number.find('.') != std::string_view::npos &&
                     std::from_chars(number.data(), number.data() + length, piece.value).ptr ==
                         number.data() + length;
    if (piece.hasValue) {
      pieces.push_back(piece);
      piece = {};
    } else {
      piece.text.append(program.substr(0, std::max<std::size_t>(length, 1)));
    }
    program.remove_prefix(std::max<std::size_t>(length, 1));
  }
  pieces.push_back(piece);
  return pieces;
}

std::string putTogether(const std::vector<Piece>& pieces, std::size_t bytes) {
  std::string out;
  out.reserve(bytes);
  char digits[64];
  for (const Piece& piece : pieces) {
    out.append(piece.text);
    if (!piece.hasValue) continue;
    const auto end =
        std::to_chars(digits, digits + sizeof digits, piece.value, std::chars_format::fixed);
    out.append(digits, end.ptr);
  }
  return out;
}

void makePrograms(benchmark::State& state, Kind kind) {
  Job job(static_cast<int>(state.range(0)), kind);
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::string text = job.program();
    bytes += text.size();
    benchmark::DoNotOptimize(text.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void writeBare(benchmark::State& state, Kind kind) {
  const std::string program = Job(static_cast<int>(state.range(0)), kind).program();
  const std::vector<Piece> pieces = takeApart(program);
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::string text = putTogether(pieces, program.size());
    bytes += text.size();
    benchmark::DoNotOptimize(text.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void MillProgram(benchmark::State& state) {
  makePrograms(state, Kind::Pockets);
}
void BareWriter(benchmark::State& state) {
  writeBare(state, Kind::Pockets);
}

BENCHMARK_CAPTURE(makePrograms, numbered, Kind::NumberedPockets)->Arg(30000);
BENCHMARK_CAPTURE(writeBare, numbered, Kind::NumberedPockets)->Arg(30000);
BENCHMARK_CAPTURE(makePrograms, iso, Kind::IsoHoles)->Arg(30000);
BENCHMARK_CAPTURE(writeBare, iso, Kind::IsoHoles)->Arg(30000);
BENCHMARK_CAPTURE(makePrograms, pecks, Kind::PeckedHoles)->Arg(30000);
BENCHMARK_CAPTURE(writeBare, pecks, Kind::PeckedHoles)->Arg(30000);
BENCHMARK(MillProgram)->Arg(100)->Arg(1000)->Arg(10000)->Arg(30000)->Arg(32767);
BENCHMARK(BareWriter)->Arg(100)->Arg(1000)->Arg(10000)->Arg(30000)->Arg(32767);

}  // namespace
}  // namespace tess
