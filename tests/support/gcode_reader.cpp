// The reader of programs: lines into words, words into modal state, state into motions.
#include "tests/support/gcode_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <map>
#include <string_view>
#include <utility>

#include "core/drawing_store.h"
#include "tests/support/grbl_reader.h"

namespace tess::testing {
namespace {

constexpr double kFeedUnit = 0.1;    // F words count tenths
constexpr int kFirstCycleWord = 79;  // G79 and G81 to G89
constexpr int kLastCycleWord = 89;
constexpr int kNoMotion = -1;
constexpr char kNoLetter = '?';  // of a word that the dialect calls otherwise

[[noreturn]] void stop(int line, const std::string& what) {
  throw GcodeError("line " + std::to_string(line) + ": " + what);
}

// The values of a line by the letters of the standard words.
struct Block {
  int line = 0;
  std::vector<int> g, m;
  std::map<char, double> words;

  bool has(char letter) const { return words.contains(letter); }
  double valueOr(char letter, double otherwise) const {
    const auto found = words.find(letter);
    return found == words.end() ? otherwise : found->second;
  }
};

double numberIn(std::string_view text, int line) {
  double value = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  if (error != std::errc{} || end != text.data() + text.size())
    stop(line, "\"" + std::string(text) + "\" is no number");
  return value;
}

int codeIn(std::string_view text, int line) {
  const double value = numberIn(text, line);
  if (value != std::floor(value)) stop(line, "a code with decimals");
  return static_cast<int>(value);
}

// The standard letter for a letter of the dialect.
char standardLetter(char letter, const GcodeDialect& dialect) {
  constexpr std::string_view kStandard = "XYZIJK";
  const std::size_t at = dialect.letters.find(letter);
  if (at < kStandard.size()) return kStandard[at];
  return kStandard.find(letter) == std::string_view::npos ? letter : kNoLetter;
}

void addWord(Block& block, std::string_view word, const GcodeDialect& dialect) {
  constexpr std::string_view kKnown = "XYZIJKRFSTD";
  const std::string_view number = word.substr(1);
  if (word[0] == 'G') {
    block.g.push_back(codeIn(number, block.line));
  } else if (word[0] == 'M') {
    block.m.push_back(codeIn(number, block.line));
  } else {
    const char letter = standardLetter(word[0], dialect);
    if (kKnown.find(letter) == std::string_view::npos)
      stop(block.line, "the word " + std::string(word) + " means nothing");
    if (!block.words.emplace(letter, numberIn(number, block.line)).second)
      stop(block.line, "the word " + std::string(word) + " comes twice");
  }
}

Block blockOf(std::string_view line, int number, const GcodeDialect& dialect) {
  Block block{number, {}, {}, {}};
  while (!line.empty()) {
    const std::size_t end = std::min(line.find(' '), line.size());
    if (end > 0) addWord(block, line.substr(0, end), dialect);
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return block;
}

bool isCycle(int g) {
  return g >= kFirstCycleWord && g <= kLastCycleWord && g != 80;
}

// The control: what holds from line to line.
class Control {
 public:
  explicit Control(const GcodeDialect& dialect) : dialect_(dialect) {}

  void run(const Block& block) {
    line_ = block.line;
    for (const int g : block.g) setMode(g);
    for (const int m : block.m) runCode(m);
    tool_ = static_cast<int>(block.valueOr('T', tool_));
    spindle_ = block.valueOr('S', spindle_);
    feed_ = block.has('F') ? block.valueOr('F', 0) * kFeedUnit : feed_;
    const bool moves = block.has('X') || block.has('Y') || block.has('Z') || block.has('I') ||
                       block.has('J') || block.has('K');
    if (moves) move(block);
  }

  GcodeProgram program;

 private:
  void setMode(int g) {
    constexpr std::array kWithoutEffect{17, 18, 40};  // planes, no cutter compensation
    if (g == 70 || g == 71) {
      program.units = g == 70 ? "I" : "M";
    } else if (g == 90) {
      absolute_ = true;
    } else if (g == 75) {
      wholeArcs_ = true;
    } else if (g == 80) {
      motion_ = kNoMotion;
    } else if (g <= 3 || isCycle(g)) {
      motion_ = g;
    } else if (std::count(kWithoutEffect.begin(), kWithoutEffect.end(), g) == 0) {
      stop(line_, "G" + std::to_string(g) + " means nothing");
    }
  }

  void runCode(int m) {
    constexpr std::array kKnown{3, 5, 6, 30};
    if (std::count(kKnown.begin(), kKnown.end(), m) == 0)
      stop(line_, "M" + std::to_string(m) + " means nothing");
  }

  void move(const Block& block) {
    if (program.units.empty()) stop(line_, "a motion before the units");
    if (!absolute_) stop(line_, "a motion before the absolute mode");
    if (motion_ == kNoMotion) stop(line_, "a motion without a G word");
    GcodeMotion motion{.line = line_,
                       .g = motion_,
                       .from = at_,
                       .to = target(block),
                       .fromZ = z_,
                       .toZ = dialect_.lathe ? 0 : block.valueOr('Z', z_),
                       .center = {},
                       .feed = feed_,
                       .tool = tool_,
                       .spindle = spindle_};
    if (isCycle(motion_)) setCycle(motion, block);
    if (motion_ == 2 || motion_ == 3) setCenter(motion, block);
    at_ = motion.to;
    z_ = motion.toZ;
    program.motions.push_back(motion);
  }

  Vec target(const Block& block) const {
    if (dialect_.lathe) return {block.valueOr('Z', at_.x), block.valueOr('X', at_.y)};
    return {block.valueOr('X', at_.x), block.valueOr('Y', at_.y)};
  }

  void setCycle(GcodeMotion& motion, const Block& block) {
    motion.increment = block.valueOr('K', 0);
    motion.dwell = block.valueOr('D', 0);
  }

  void setCenter(GcodeMotion& motion, const Block& block) {
    if (!wholeArcs_) stop(line_, "an arc before arcs of more than one quadrant are on");
    motion.center = block.has('R') ? centerOfRadius(motion, block.valueOr('R', 0))
                                   : centerByWords(motion, block);
    const double mismatch =
        std::abs(lengthOf(motion.from - motion.center) - lengthOf(motion.to - motion.center));
    program.arcMismatch = std::max(program.arcMismatch, mismatch);
  }

  Vec centerOfRadius(const GcodeMotion& motion, double radius) const {
    if (lengthOf(motion.to - motion.from) == 0) stop(line_, "a full circle by its radius");
    return centerByRadius(motion, radius);
  }

  // A word that is left out means the start of the arc, as an offset 0. Of a lathe, whose K word
  // the program leaves out at 0, a missing K is 0 either way.
  Vec centerByWords(const GcodeMotion& motion, const Block& block) const {
    const char second = dialect_.lathe ? 'K' : 'J';
    if (!block.has('I') && !block.has(second)) stop(line_, "an arc without a centre");
    const double i = block.valueOr('I', 0);
    const double k = block.valueOr(second, 0);
    if (!dialect_.absoluteCenters) {
      return motion.from + (dialect_.lathe ? Vec{k, i} : Vec{i, k});
    }
    if (dialect_.lathe) return {k, block.valueOr('I', motion.from.y)};
    return {block.valueOr('I', motion.from.x), block.valueOr('J', motion.from.y)};
  }

  const GcodeDialect& dialect_;
  int line_ = 0;
  int motion_ = kNoMotion;
  bool absolute_ = false, wholeArcs_ = false;
  Vec at_;
  double z_ = 0, feed_ = 0, spindle_ = 0;
  int tool_ = 0;
};

std::string_view withoutComment(std::string_view line, const GcodeDialect& dialect) {
  if (dialect.comment.empty()) return line;
  return line.substr(0, line.find(dialect.comment));
}

float narrowed(double value) {
  return static_cast<float>(value);
}

PathRow rowOf(const GcodeMotion& motion) {
  PathRow row{.type = motion.g,
              .x0 = narrowed(motion.from.x),
              .y0 = narrowed(motion.from.y),
              .x1 = narrowed(motion.to.x),
              .y1 = narrowed(motion.to.y),
              .z = narrowed(motion.toZ),
              .feed = narrowed(motion.feed),
              .code = motion.tool - 1};
  if (isArc(motion.g)) row.xc = narrowed(motion.center.x), row.yc = narrowed(motion.center.y);
  if (!isCycle(motion.g)) return row;
  row.x0 = row.x1, row.y0 = row.y1;
  row.xc = narrowed(motion.increment), row.yc = narrowed(motion.dwell);
  return row;
}

bool isFullCircle(const PathRow& row) {
  return isArc(row.type) && row.x0 == row.x1 && row.y0 == row.y1;
}

bool isShort(const PathRow& row, double resolution) {
  return row.type < kFirstNonContour && !isFullCircle(row) &&
         std::abs(row.x1 - row.x0) <= resolution && std::abs(row.y1 - row.y0) <= resolution;
}

bool isNoMove(const PathRow& row) {
  return row.type > kCounterClockwiseArc && row.type < kFirstCycle;
}

// Written as a rapid: marked so, or straight away from the axis, seen from where the row before
// ended, where tools do not go round the bar.
bool isLatheRapid(const PathRow& row, Vec at, const GcodeDialect& dialect) {
  const bool retract = !dialect.latheHeight && row.x1 == at.x && row.y1 > at.y;
  return dialect.lathe && row.type == kLine && (row.z == kLatheRapidZ || retract);
}

// The way down to a row from beside the bar, which lies above the axis or below it.
bool entersBar(const GcodeMotion& motion, const GcodeDialect& dialect) {
  constexpr double kWritten = 1e-5;
  return dialect.latheHeight && motion.g == 1 && motion.from.x == motion.to.x &&
         std::abs(std::abs(motion.from.y) - *dialect.latheHeight) < kWritten;
}

// What of a cycle no word tells.
void forgetUnwritten(PathRow& row, const GcodeDialect& dialect) {
  constexpr std::array kWithoutIncrement{81, 82, 85, 89};
  constexpr std::array kWithoutDwell{79, 81, 83, 87};
  const auto isAmong = [&](const auto& numbers) {
    return std::count(numbers.begin(), numbers.end(), row.type) > 0;
  };
  if (row.type < kFirstNonContour) return;
  row.x0 = row.x1, row.y0 = row.y1;
  row.z = dialect.lathe ? 0 : std::abs(row.z);
  if (dialect.lathe || isAmong(kWithoutIncrement)) row.xc = 0;
  if (isAmong(kWithoutDwell)) row.yc = 0;
}

// ---- The comparison

std::string rowText(const PathRow& row) {
  char text[200];
  std::snprintf(text, sizeof text, "%d (%g, %g)-(%g, %g) c (%g, %g) z %g f %g tool %d", row.type,
                row.x0, row.y0, row.x1, row.y1, row.xc, row.yc, row.z, row.feed,
                row.code % 100 + 1);
  return text;
}

double worstOf(const PathRow& a, const PathRow& b, std::initializer_list<float PathRow::*> fields) {
  double worst = 0;
  for (const auto field : fields)
    worst = std::max(worst, std::abs(static_cast<double>(a.*field) - b.*field));
  return worst;
}

double centerGap(const PathRow& a, const PathRow& b) {
  return lengthOf(Vec{a.xc, a.yc} - Vec{b.xc, b.yc});
}

// How exactly a radius tells the centre: near a half turn a hair of the radius moves it far.
double centerTolerance(const PathRow& row, const ReadingTolerance& tolerance) {
  if (!isArc(row.type) || !tolerance.radiusWords || isFullCircle(row)) {
    return 4 * tolerance.resolution;
  }
  const Curve arc = curveOf(row);
  const double half = lengthOf(arc.end - arc.start) / 2;
  const double off = std::sqrt(std::max(0.0, arc.radius * arc.radius - half * half));
  const double slip = 4 * tolerance.resolution * arc.radius;
  return std::min(slip / std::max(off, 1e-12), std::sqrt(2 * slip)) + 4 * tolerance.resolution;
}

bool sameRow(const PathRow& placed, const PathRow& read, const ReadingTolerance& tolerance) {
  constexpr float kFeedGrain = 0.0501F;  // F words are whole tenths
  const bool feedAgrees = placed.feed <= 0 || std::abs(placed.feed - read.feed) <= kFeedGrain;
  return placed.type == read.type && placed.code % 100 == read.code % 100 && feedAgrees &&
         worstOf(placed, read, {&PathRow::x1, &PathRow::y1, &PathRow::z}) <= tolerance.resolution &&
         worstOf(placed, read, {&PathRow::x0, &PathRow::y0}) <=
             tolerance.resolution + tolerance.joints &&
         centerGap(placed, read) <= centerTolerance(placed, tolerance) + tolerance.joints;
}

}  // namespace

std::vector<std::string_view> programLines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
  }
  return lines;
}

Vec centerByRadius(const GcodeMotion& arc, double radius) {
  const Vec chord = arc.to - arc.from;
  const double half = lengthOf(chord) / 2;
  const double off = std::sqrt(std::max(0.0, radius * radius - half * half));
  // To the left of the chord for a counter-clockwise arc of at most a half turn; each of a
  // clockwise sense and a negative radius changes the side.
  const double side = (arc.g == 3) == (radius > 0) ? 1 : -1;
  return arc.from + 0.5 * chord + (side * off / (2 * half)) * leftOf(chord);
}

GcodeProgram readProgram(const std::string& text, const GcodeDialect& dialect) {
  if (dialect.grbl) return readGrblProgram(text);
  Control control(dialect);
  int number = 0;
  for (std::string_view line : programLines(text)) {
    line = withoutComment(line, dialect);
    ++number;
    if (line != "%") control.run(blockOf(line, number, dialect));
  }
  return control.program;
}

std::vector<PathRow> readCuts(const GcodeProgram& program, const GcodeDialect& dialect) {
  std::vector<PathRow> cuts;
  bool behindRapid = false;
  for (const GcodeMotion& motion : program.motions) {
    const bool alongPath = motion.from != motion.to || isArc(motion.g);
    const bool enters = std::exchange(behindRapid, motion.g == 0) && entersBar(motion, dialect);
    if (motion.g == 0 || (motion.g <= 3 && !alongPath) || enters) continue;
    PathRow row = rowOf(motion);
    if (dialect.lathe) row.z = 0;
    cuts.push_back(row);
  }
  return cuts;
}

std::vector<PathRow> placedCuts(const DrawingStore& store, double resolution,
                                const GcodeDialect& dialect) {
  std::vector<PathRow> cuts;
  Vec at{store.psx0[1], store.psy0[1]};
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    PathRow row = pathRow(store, ps);
    const bool rapid = row.type == kRapid || isLatheRapid(row, at, dialect);
    at = {row.x1, row.y1};
    if (rapid || isNoMove(row) || isShort(row, resolution)) continue;
    if (row.type == kLine) row.xc = row.yc = 0;
    if (dialect.lathe) row.z = 0;
    forgetUnwritten(row, dialect);
    cuts.push_back(row);
  }
  return cuts;
}

std::string firstDifference(const std::vector<PathRow>& placed, const std::vector<PathRow>& read,
                            const ReadingTolerance& tolerance) {
  const std::size_t rows = std::min(placed.size(), read.size());
  for (std::size_t k = 0; k < rows; ++k) {
    if (!sameRow(placed[k], read[k], tolerance)) {
      return "row " + std::to_string(k + 1) + ": placed " + rowText(placed[k]) + ", read " +
             rowText(read[k]);
    }
  }
  if (placed.size() == read.size()) return "";
  return "placed " + std::to_string(placed.size()) + " rows, read " + std::to_string(read.size());
}

}  // namespace tess::testing
