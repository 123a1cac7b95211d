// Programs read back: by hand, and against the rows that the program writer was given.
#include "tests/support/gcode_reader.h"

#include <cmath>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/geometry/scenes.h"
#include "tests/support/source_folder.h"

namespace tess::testing {
namespace {

constexpr const char* kHead = "%\r\nG17 G40 G80\r\n;a remark, X1 Y1\r\nG70\r\nG90\r\nG75\r\n";

GcodeProgram programOf(const std::string& lines, const GcodeDialect& dialect = {}) {
  return readProgram(kHead + lines, dialect);
}

TEST(ReadProgram, WordsHoldFromLineToLine) {
  const GcodeProgram program = programOf(
      "M06 T3\r\nM03 S1800\r\nG00 Z0.5\r\nG00 X1.0 Y2.0\r\nG01 Z-0.1 F30\r\nX3.0 F125 ; on\r\n"
      "G02 Y4.0 J1.0\r\nM05\r\nM30\r\n%\r\n");
  EXPECT_EQ(program.units, "I");
  ASSERT_EQ(program.motions.size(), 5U);
  const GcodeMotion& line = program.motions[3];
  EXPECT_EQ(line.line, 12);
  EXPECT_EQ(line.g, 1);
  EXPECT_EQ(line.from, (Vec{1, 2}));
  EXPECT_EQ(line.to, (Vec{3, 2}));
  EXPECT_EQ(line.fromZ, -0.1);
  EXPECT_EQ(line.toZ, -0.1);
  EXPECT_EQ(line.feed, 12.5);
  EXPECT_EQ(line.tool, 3);
  EXPECT_EQ(line.spindle, 1800);
  const GcodeMotion& arc = program.motions[4];
  EXPECT_EQ(arc.g, 2);
  EXPECT_EQ(arc.to, (Vec{3, 4}));
  EXPECT_EQ(arc.center, (Vec{3, 3}));
  EXPECT_EQ(program.arcMismatch, 0);
}

TEST(ReadProgram, StopsAtWhatAControlWouldNotTake) {
  const struct {
    const char* name;
    std::string text;
    const char* message;
  } cases[] = {
      {"no units", "G90\r\nG01 X1\r\n", "line 2: a motion before the units"},
      {"no absolute mode", "G70\r\nG01 X1\r\n", "line 2: a motion before the absolute mode"},
      {"no motion word", "G70\r\nG90\r\nX1\r\n", "line 3: a motion without a G word"},
      {"quadrant arcs", "G70\r\nG90\r\nG02 X1 I1\r\n",
       "line 3: an arc before arcs of more than one quadrant are on"},
      {"no centre", kHead + std::string("G02 X1.0\r\n"), "line 7: an arc without a centre"},
      {"a circle by its radius", kHead + std::string("G02 X0.0 R1.0\r\n"),
       "line 7: a full circle by its radius"},
      {"a strange word", kHead + std::string("G01 Q1\r\n"), "line 7: the word Q1 means nothing"},
      {"a strange code", "G91\r\n", "line 1: G91 means nothing"},
      {"a strange function", "M08\r\n", "line 1: M8 means nothing"},
      {"half a code", "G01.5\r\n", "line 1: a code with decimals"},
      {"no number", "G01 X1.0.5\r\n", "line 1: \"1.0.5\" is no number"},
      {"an exponent", "G01 X1e5\r\n", "line 1: \"1e5\" is no number"},
      {"the same word twice", "G01 X1 X2\r\n", "line 1: the word X2 comes twice"},
      {"a cancelled cycle", kHead + std::string("G81 X1 Y1 Z1\r\nG80\r\nX2\r\n"),
       "line 9: a motion without a G word"},
  };
  for (const auto& c : cases) {
    try {
      readProgram(c.text);
      ADD_FAILURE() << c.name << " was taken";
    } catch (const GcodeError& error) {
      EXPECT_STREQ(error.what(), c.message) << c.name;
    }
  }
}

TEST(ReadProgram, LettersAreThoseOfTheDialect) {
  const GcodeDialect dialect{.letters = "UVWIJK", .comment = "("};
  const GcodeProgram program =
      readProgram("(head\r\nG70\r\nG90\r\nG01 U1.0 V2.0 W3.0\r\n", dialect);
  ASSERT_EQ(program.motions.size(), 1U);
  EXPECT_EQ(program.motions[0].to, (Vec{1, 2}));
  EXPECT_EQ(program.motions[0].toZ, 3);
  EXPECT_THROW(readProgram("G70\r\nG90\r\nG01 X1.0\r\n", dialect), GcodeError);
}

// From (3, 1) to (2, 2), each way about one of the two centres that a radius of 1 allows.
TEST(ReadProgram, FindsTheCenterOfAnArcInEveryForm) {
  const GcodeDialect offset{};
  const GcodeDialect absolute{.absoluteCenters = true};
  const struct {
    const char* name;
    const GcodeDialect& dialect;
    const char* arc;
    Vec center;
  } cases[] = {
      {"offset", offset, "G03 X2.0 Y2.0 I-1.0", {2, 1}},
      {"absolute", absolute, "G03 X2.0 Y2.0 I2.0", {2, 1}},
      {"absolute, J alone", absolute, "G02 X2.0 Y2.0 J2.0", {3, 2}},
      {"short way counter-clockwise", offset, "G03 X2.0 Y2.0 R1.0", {2, 1}},
      {"long way clockwise", offset, "G02 X2.0 Y2.0 R-1.0", {2, 1}},
      {"short way clockwise", offset, "G02 X2.0 Y2.0 R1.0", {3, 2}},
      {"long way counter-clockwise", offset, "G03 X2.0 Y2.0 R-1.0", {3, 2}},
      {"half a turn", offset, "G03 X1.0 Y1.0 R1.0", {2, 1}},
      {"a full circle", offset, "G03 I-1.0", {2, 1}},
  };
  for (const auto& c : cases) {
    const GcodeProgram program =
        programOf("G00 X3.0 Y1.0\r\n" + std::string(c.arc) + "\r\n", c.dialect);
    ASSERT_EQ(program.motions.size(), 2U) << c.name;
    EXPECT_NEAR(program.motions[1].center.x, c.center.x, 1e-12) << c.name;
    EXPECT_NEAR(program.motions[1].center.y, c.center.y, 1e-12) << c.name;
    EXPECT_NEAR(program.arcMismatch, 0, 1e-12) << c.name;
  }
}

TEST(ReadProgram, MeasuresAnArcThatMissesItsEnd) {
  const GcodeProgram program = programOf("G00 X3.0 Y1.0\r\nG03 X2.0 Y2.25 I-1.0\r\n");
  EXPECT_NEAR(program.arcMismatch, 0.25, 1e-12);
}

// ---- What the program writer makes of path rows

class ReadBack : public CncFixture {
 protected:
  // The definition as it ships, in front of what a case adds.
  void useShipped(const std::string& name, const std::string& more = "") {
    use("data/" + name, more);
  }
  // As it was before definitions told of controls.
  void useBare(const std::string& name, const std::string& more) {
    use("tests/cnc/bare/" + name, more);
  }
  void use(const std::string& path, const std::string& more) {
    definition = {};
    session.startupdone = true;
    define(readFile(TESSIMO_SOURCE_DIR "/" + path) + more);
  }

  void expectReadBack(CncMode mode, const std::string& what) {
    const bool metric = store.units == "M";
    const GcodeDialect dialect{.lathe = mode == CncMode::Lathe,
                               .latheHeight = latheHeight(mode),
                               .absoluteCenters = definition.absCenter,
                               .letters = definition.cncletters,
                               .comment = definition.cnccomment};
    const ReadingTolerance tolerance{.resolution = metric ? 0.6e-4 : 0.6e-5,
                                     .radiusWords = store.userparamforarcs != 0};
    const std::string text = program(mode);
    const GcodeProgram read = readProgram(text, dialect);
    EXPECT_EQ(read.units, metric ? "M" : "I") << what;
    const std::vector<PathRow> placed = placedCuts(store, tolerance.resolution, dialect);
    EXPECT_EQ(firstDifference(placed, readCuts(read, dialect), tolerance), "") << what << "\n"
                                                                               << text;
    cuts += placed.size();
  }

  std::optional<double> latheHeight(CncMode mode) const {
    const std::optional<float> clearance = definition.dialect.latheClear;
    if (mode == CncMode::Mill || !clearance) return std::nullopt;
    return store.partdimy + *clearance;
  }

  void clearPaths() {
    store.NumPathSegments = 0;
    state = {};
  }

  std::size_t cuts = 0;
};

float rounded(double value, double places) {
  return static_cast<float>(std::round(value * places) / places);
}

// Rows as pocketing leaves them: runs of lines and arcs that follow one another, with a new place,
// a new depth or another tool now and then. Coordinates are not rounded.
class RowMaker {
 public:
  RowMaker(std::uint32_t seed, bool lathe) : dice_(seed), lathe_(lathe) {}

  PathRow next() {
    if (dice_.below(12) == 0) at_ = place();
    if (!lathe_ && dice_.below(10) == 0) z_ = rounded(dice_.unit() - 1, 1000);
    if (dice_.below(5) == 0) feed_ = rounded(20 + 10 * dice_.unit(), 10);
    const PathRow row = shape();
    at_ = {row.x1, row.y1};
    return row;
  }
  void leaveOutCircles() { circles_ = false; }
  int tool() { return dice_.below(30) == 0 ? tool_ = 1 + dice_.below(3) : tool_; }

 private:
  Point place() {
    return {static_cast<float>(5 * dice_.unit()), static_cast<float>(6 + 5 * dice_.unit())};
  }

  PathRow shape() {
    const int kind = dice_.below(circles_ ? 8 : 7);
    if (kind < 4) return lineRow(at_, place(), lathe_ && kind == 0 ? kLatheRapidZ : z_, feed_);
    const Point center = place();
    if (kind == 7) return arcRow(2 + dice_.below(2), at_, at_, center, z_, feed_);
    const double dx = at_.x - center.x;
    const double dy = at_.y - center.y;
    // Away from a whole turn, where the two ends of an arc nearly meet.
    const double turn = 3.14159 * (1 + 0.95 * dice_.unit());
    const Point end{static_cast<float>(center.x + dx * std::cos(turn) - dy * std::sin(turn)),
                    static_cast<float>(center.y + dx * std::sin(turn) + dy * std::cos(turn))};
    return arcRow(2 + dice_.below(2), at_, end, center, z_, feed_);
  }

  Dice dice_;
  bool lathe_;
  bool circles_ = true;
  Point at_{1, 6};
  float z_ = -0.125F, feed_ = 10;
  int tool_ = 1;
};

struct Shipped {
  const char* file;
  const char* units;
  CncMode mode;
};

constexpr Shipped kShipped[] = {
    {"mill_inch.msx", "I", CncMode::Mill},
    {"mill_mm.msx", "M", CncMode::Mill},
    {"standard.msx", "I", CncMode::Mill},
    {"lathe.msx", "I", CncMode::Lathe},
};

TEST_F(ReadBack, ProgramsOfTheShippedDefinitionsBringTheirRowsBack) {
  for (const Shipped& shipped : kShipped) {
    store.units = shipped.units;
    useShipped(shipped.file);
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
      clearPaths();
      RowMaker rows(seed, shipped.mode == CncMode::Lathe);
      for (int row = 0; row < 100; ++row) place(rows.next(), rows.tool());
      expectReadBack(shipped.mode, shipped.file + std::string(" ") + std::to_string(seed));
    }
  }
  EXPECT_GT(cuts, 14000U);
}

TEST_F(ReadBack, EveryKeyOfADefinitionIsUnderstood) {
  const struct {
    const char* name;
    const char* more;
    bool radiusWords = false;
    bool circles = true;
  } cases[] = {
      {"absolute centres", "ABSCENTER,Y\r\n"},
      {"forced words", "FORCEXYZ,Y\r\nFORCEIJK,Y\r\nINFORMAT,##0.00000\r\n"},
      {"other letters", "MAP,UVWPQK\r\n"},
      {"another comment", "COMMENTCHR,#\r\n"},
      {"radius words", "", true},
      {"radius words with absolute centres", "ABSCENTER,Y\r\n", true, false},
  };
  for (const auto& c : cases) {
    store.userparamforarcs = c.radiusWords;
    useShipped("mill_inch.msx", c.more);
    clearPaths();
    RowMaker rows(7, /*lathe=*/false);
    if (!c.circles) rows.leaveOutCircles();
    for (int row = 0; row < 300; ++row) place(rows.next(), rows.tool());
    if (std::string(c.name) == "other letters") definition.cnctrailertext = "M05\r\nM30";
    expectReadBack(CncMode::Mill, c.name);
  }
  EXPECT_GT(cuts, 1500U);
}

// A trap of the rules: among radius words a full circle has its centre as a distance from the
// start, also where the definition promises coordinates. A control then turns about another place.
TEST_F(ReadBack, AFullCircleAmongRadiusWordsIsMisreadWithAbsoluteCenters) {
  store.userparamforarcs = true;
  useBare("mill_inch.msx", "ABSCENTER,Y\r\n");
  place(arcRow(kCounterClockwiseArc, {3, 1}, {3, 1}, {2, 1.5F}, -0.1F, 10));
  EXPECT_EQ(moves().at(3), "G03 I-1.0 J0.5 F100");
  const GcodeDialect dialect{.absoluteCenters = true};
  const std::vector<PathRow> read = readCuts(readProgram(program(), dialect), dialect);
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].xc, -1);
  EXPECT_EQ(read[0].yc, 0.5F);
}

TEST_F(ReadBack, CyclesComeBackWithWhatIsWrittenOfThem) {
  for (const CncMode mode : {CncMode::Mill, CncMode::Lathe}) {
    useShipped(mode == CncMode::Mill ? "mill_inch.msx" : "lathe.msx");
    clearPaths();
    place(lineRow({0, 0}, {1, 2}, -0.25F, 12));
    for (const int g : {79, 81, 82, 83, 84, 85, 86, 87, 88, 89}) {
      place(cycleRow(g, {static_cast<float>(g) / 8, 2}, 0.1F, 1.5F, -0.75F, 6.3F));
    }
    place(lineRow({0, 1}, {3, 1}, -0.25F, 12));
    expectReadBack(mode, mode == CncMode::Mill ? "mill" : "lathe");
  }
  EXPECT_EQ(cuts, 24U);
}

class LatheReadBack : public ReadBack {
 protected:
  void placeProfile() {
    place(lineRow({0.25F, 0.75F}, {-2, 0.75F}, 0, 10));
    place(lineRow({-2, 0.75F}, {-2, 0.875F}, 0, 10));
    place(lineRow({-2, 0.875F}, {0.25F, 0.625F}, kLatheRapidZ, 10));
    place(lineRow({0.25F, 0.625F}, {-1.5F, 0.625F}, 0, 10));
    place(arcRow(kCounterClockwiseArc, {-1.5F, 0.625F}, {-1.75F, 0.875F}, {-1.5F, 0.875F}, 0, 5));
  }
};

TEST_F(LatheReadBack, AProfileWithRapidsKeepsWhatLeadsAwayFromTheAxis) {
  useShipped("lathe.msx");
  placeProfile();
  expectReadBack(CncMode::Lathe, "profile");
  EXPECT_EQ(cuts, 4U);
}

TEST_F(LatheReadBack, WithoutAWayRoundTheBarWhatLeadsAwayFromTheAxisIsARapid) {
  useBare("lathe.msx", "");
  placeProfile();
  expectReadBack(CncMode::Lathe, "profile");
  EXPECT_EQ(cuts, 3U);
}

// ---- The comparison itself

TEST(FirstDifference, NamesTheRow) {
  const PathRow line = lineRow({0, 0}, {1, 0}, -0.1F, 10);
  const PathRow arc = arcRow(kClockwiseArc, {1, 0}, {0, 1}, {0, 0}, -0.1F, 10);
  const ReadingTolerance tolerance;
  EXPECT_EQ(firstDifference({line, arc}, {line, arc}, tolerance), "");
  EXPECT_EQ(firstDifference({line, arc}, {line}, tolerance), "placed 2 rows, read 1");
  PathRow other = arc;
  other.xc = 0.001F;
  EXPECT_EQ(firstDifference({line, arc}, {line, other}, tolerance),
            "row 2: placed 2 (1, 0)-(0, 1) c (0, 0) z -0.1 f 10 tool 1, read 2 (1, 0)-(0, 1) c "
            "(0.001, 0) z -0.1 f 10 tool 1");
}

TEST(FirstDifference, SeesEveryField) {
  const PathRow arc = arcRow(kClockwiseArc, {1, 0}, {0, 1}, {0, 0}, -0.1F, 10);
  for (const auto field : {&PathRow::x0, &PathRow::y0, &PathRow::x1, &PathRow::y1, &PathRow::xc,
                           &PathRow::yc, &PathRow::z, &PathRow::feed}) {
    PathRow other = arc;
    other.*field += 0.06F;
    EXPECT_NE(firstDifference({arc}, {other}, {}), "");
  }
  PathRow other = arc;
  other.type = kCounterClockwiseArc;
  EXPECT_NE(firstDifference({arc}, {other}, {}), "");
  other = arc;
  other.code = 1;
  EXPECT_NE(firstDifference({arc}, {other}, {}), "");
  // A feed of 0 has no word: the one before goes on.
  PathRow silent = arc;
  silent.feed = 0;
  EXPECT_EQ(firstDifference({silent}, {arc}, {}), "");
}

TEST(FirstDifference, AllowsJointsWhereTold) {
  const PathRow line = lineRow({0, 0}, {1, 0}, -0.1F, 10);
  PathRow read = line;
  read.x0 = 0.0009F;
  EXPECT_NE(firstDifference({line}, {read}, {}), "");
  EXPECT_EQ(firstDifference({line}, {read}, {.joints = 0.001}), "");
}

}  // namespace
}  // namespace tess::testing
