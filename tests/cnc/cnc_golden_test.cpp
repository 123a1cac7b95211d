// Whole programs held against files that were checked word by word, and the one rule that holds for
// every line of every program: a word is a letter and a plain decimal.
#include <algorithm>
#include <random>
#include <string>
#include <string_view>

#include "gtest/gtest.h"

#include "core/drawing_rows.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/source_folder.h"

namespace tess::testing {
namespace {

bool isDigits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

bool isPlainDecimal(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return isDigits(text);
  return isDigits(text.substr(0, point)) && isDigits(text.substr(point + 1));
}

bool isWord(std::string_view word) {
  return word.size() > 1 && word[0] >= 'A' && word[0] <= 'Z' && isPlainDecimal(word.substr(1)) &&
         word.substr(1) != "-0.0";
}

bool isRemark(std::string_view line, std::string_view prefix) {
  if (!line.starts_with(prefix)) return false;
  line.remove_prefix(prefix.size());
  return line.empty() || line.starts_with("---") || line.starts_with("     << ") ||
         line.starts_with("-- Begin");
}

void expectPlainWords(std::string_view line) {
  std::string_view rest = line;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    EXPECT_TRUE(isWord(rest.substr(0, end))) << line;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

class CncGoldenTest : public CncFixture {
 protected:
  void expectProgram(const std::string& name, CncMode mode = CncMode::Mill) {
    const std::string text = program(mode);
    expectGolden("cnc/golden/" + name, text);
    scan(text);
  }

  void scan(const std::string& text) {
    std::string moving = text.substr(text.find("\r\nG7") + 2);
    moving.resize(moving.size() - definition.cnctrailertext.size() - kLineEnd.size());
    int words = 0;
    for (const std::string& line : linesOf(moving)) {
      if (isRemark(line, definition.cnccomment)) continue;
      expectPlainWords(line);
      ++words;
    }
    EXPECT_GT(words, 3);
  }

  // An arc about (2, 1) with radius 1, from one quarter to another: 0 east, 1 north, and so on.
  void placeArc(int type, int from, int quarters) {
    const Point ends[] = {{3, 1}, {2, 2}, {1, 1}, {2, 0}};
    const int turn = type == kClockwiseArc ? -quarters : quarters;
    place(arcRow(type, ends[from], ends[(from + turn + 8) % 4], {2, 1}, -0.25F, 8));
  }

  // From every quarter and in both senses: a quarter, a half, three quarters, a full turn. The
  // order lets most arcs begin where the one before ends, so that arcs fill the file.
  void placeAllArcs() {
    struct Arc {
      int from, quarters;
    };
    const Arc arcs[] = {{0, 4}, {0, 1}, {1, 4}, {1, 1}, {2, 4}, {2, 1}, {3, 4}, {3, 1},
                        {0, 3}, {3, 3}, {2, 3}, {1, 3}, {0, 2}, {2, 2}, {1, 2}, {3, 2}};
    for (const Arc& arc : arcs) placeArc(kCounterClockwiseArc, arc.from, arc.quarters);
    for (const Arc& arc : arcs) placeArc(kClockwiseArc, (4 - arc.from) % 4, arc.quarters);
  }

  void placeAllCycles() {
    float x = 1;
    for (const int g : {79, 81, 82, 83, 84, 85, 86, 87, 88, 89}) {
      place(cycleRow(g, {x, 2}, 0.1F, 1.5F, -0.75F, 6.25F));
      x += 0.5F;
    }
  }

  void fillTitleBlock() {
    store.drawingtitle = "Bearing cover";
    store.drawingrevision = "C";
    store.designername = "J. Ortega";
    store.partmaterial = "6061-T6";
    store.partdimx = 6;
    store.partdimy = 4;
    store.partdimz = 0.5F;
    store.xorigin = store.yorigin = 1;
    store.zorigin = -1;
  }
};

// Tool 12 cuts first, so tool 1 is missing from the tool list; it is changed to all the same.
TEST_F(CncGoldenTest, TwoToolMillPart) {
  fillTitleBlock();
  store.autocomments = 1;
  store.roundstock = true;
  store.toolname[11] = "1/2 end mill";
  store.toolradius[11] = 0.25F;
  store.toolspindlespeed[11] = 1800;
  store.toolname[0] = "1/8 end mill";
  store.toolradius[0] = 0.0625F;
  for (const float z : {-0.125F, -0.25F}) {
    place(lineRow({0.5F, 0.5F}, {5.5F, 0.5F}, z, 12.5F), 12);
    place(lineRow({5.5F, 0.5F}, {5.5F, 3.5F}, z, 12.5F), 12);
    place(lineRow({5.5F, 3.5F}, {0.5F, 3.5F}, z, 12.5F), 12);
    place(lineRow({0.5F, 3.5F}, {0.5F, 0.5F}, z, 12.5F), 12);
  }
  place(lineRow({1, 1}, {2, 1}, -0.0625F, 4.375F), 1);
  place(lineRow({2.5F, 1}, {3.00005F, 1.33333F}, -0.0625F, 4.375F), 1);
  place({.type = kRapid, .x0 = 3.00005F, .y0 = 1.33333F, .x1 = 3.5F, .y1 = 2, .z = 0.25F}, 1);
  expectProgram("two_tool_mill.cnc");
}

TEST_F(CncGoldenTest, ArcsByCenterOffsets) {
  placeAllArcs();
  expectProgram("mill_arcs_offset.cnc");
}

TEST_F(CncGoldenTest, ArcsByAbsoluteCenters) {
  definition.absCenter = true;
  placeAllArcs();
  expectProgram("mill_arcs_absolute.cnc");
}

TEST_F(CncGoldenTest, ArcsByRadius) {
  store.userparamforarcs = true;
  placeAllArcs();
  expectProgram("mill_arcs_radius.cnc");
}

TEST_F(CncGoldenTest, EveryCycleInInches) {
  fillTitleBlock();
  placeAllCycles();
  expectProgram("mill_cycles_inch.cnc");
}

TEST_F(CncGoldenTest, EveryCycleInMillimetres) {
  fillTitleBlock();
  useMetric();
  store.zstartpos = 12.7F;
  placeAllCycles();
  place(lineRow({25.4F, 12.34567F}, {30, 12.34567F}, -0.00012F, 100));
  expectProgram("mill_cycles_metric.cnc");
}

// Two roughing cuts with marked rapids between them, a retract, then the profile with both arcs.
TEST_F(CncGoldenTest, LatheProfile) {
  fillTitleBlock();
  store.usingchuck = 1;
  store.partdimx = -3;
  store.partdimy = 1;
  store.xstartpos = 0.5F;
  store.toolspindlespeed[0] = 900;
  place(lineRow({0.25F, 0.75F}, {-2, 0.75F}, 0, 10));
  place(lineRow({-2, 0.75F}, {-2, 0.875F}, 0, 10));
  place(lineRow({-2, 0.875F}, {0.25F, 0.625F}, kLatheRapidZ, 10));
  place(lineRow({0.25F, 0.625F}, {-1.5F, 0.625F}, 0, 10));
  place(lineRow({0.25F, 0.25F}, {-0.5F, 0.25F}, 0, 5), 2);
  place(arcRow(kCounterClockwiseArc, {-0.5F, 0.25F}, {-0.75F, 0.5F}, {-0.5F, 0.5F}, 0, 5), 2);
  place(arcRow(kClockwiseArc, {-0.75F, 0.5F}, {-1, 0.75F}, {-1, 0.5F}, 0, 5), 2);
  place(cycleRow(84, {-1, 0}, 0.125F, 0.5F, -0.5F, 2), 2);
  expectProgram("lathe_profile.cnc", CncMode::Lathe);
}

TEST_F(CncGoldenTest, ForcedWordsOfADefinition) {
  define(readFile(TESSIMO_SOURCE_DIR "/tests/cnc/golden/forced_words.msx"));
  ASSERT_TRUE(host.surroundings.printed.empty());
  place(lineRow({1, 0}, {2, 0}, -0.25F, 8));
  place(lineRow({2, 0}, {2, 0.0004F}, -0.25F, 8));
  place(arcRow(kCounterClockwiseArc, {2, 0.0004F}, {3, 1}, {2, 1}, -0.25F, 8));
  place(arcRow(kClockwiseArc, {3, 1}, {3, 1}, {2, 1}, -0.25F, 8));
  place(cycleRow(83, {4, 1}, 0.25F, 0, -0.5F, 3));
  expectProgram("forced_words.cnc");
}

// Rows of every kind at random places, in all formats: whatever comes in, no line leaves the rule.
TEST_F(CncGoldenTest, EveryWordOfAnyProgramIsALetterAndAPlainDecimal) {
  std::mt19937 random(20260309);  // NOLINT: the same rows on every run
  std::uniform_real_distribution<float> anywhere(-1e4F, 1e4F);
  const int kinds[] = {kRapid, kLine, kClockwiseArc, kCounterClockwiseArc, 4, 20, 79, 83, 89};
  for (int run = 0; run < 64; ++run) {
    store.NumPathSegments = 0;
    store.userparamforarcs = (run & 1) != 0;
    definition.absCenter = (run & 2) != 0;
    definition.forceXYZ = definition.forceIJK = (run & 4) != 0;
    const float scale = (run & 8) != 0 ? 1e-6F : 1;
    const auto value = [&] { return anywhere(random) * scale; };
    for (int row = 0; row < 30; ++row) {
      PathRow placed = arcRow(kinds[random() % std::size(kinds)], {value(), value()},
                              {value(), value()}, {value(), value()}, value(), value());
      place(placed, static_cast<int>(random() % 3) + 1);
    }
    scan(program((run & 16) != 0 ? CncMode::Lathe : CncMode::Mill));
  }
}

}  // namespace
}  // namespace tess::testing
