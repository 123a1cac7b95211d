// One motion line of a program.
#include "cnc/cnc_line.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

#include "cnc/program_letters.h"
#include "cnc/program_text.h"
#include "core/drawing_store.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr float kUnknown = std::numeric_limits<float>::quiet_NaN();
constexpr std::array<std::string_view, 4> kMotionCodes{"G00", "G01", "G02", "G03"};

// Places in cncletters.
enum class Axis { X, Y, Z, I, J };

// One line in the making.
struct Words {
  std::string& out;
  const LineFormat& format;
  const LastMove& last;
  MotionLine& line;

  void append(char letter, float value) const { append(letter, value, format.coordinates); }
  void append(char letter, float value, const NumberPattern& pattern) const {
    const char begin[] = {' ', letter};
    out.append(begin, sizeof begin);
    const std::size_t number = out.size();
    pattern.append(out, value);
    if (out.size() == number) out.push_back('0');  // a pattern such as "###" is silent about zero
  }
  void append(Axis axis, float value) const { append(letterOf(axis), value); }
  const Dialect& dialect() const { return format.definition.dialect; }

  // A map with too few letters leaves the others as they are by default.
  char letterOf(Axis axis) const {
    const auto at = static_cast<std::size_t>(axis);
    const std::string& letters = format.definition.cncletters;
    return at < letters.size() ? letters[at] : kWordLetters[at];
  }
};

int codeNumber(std::string_view g) {
  const std::size_t size = g.size();
  if (size >= 2 && isDigit(g[size - 2]) && isDigit(g[size - 1])) {
    return (g[size - 2] - '0') * 10 + (g[size - 1] - '0');
  }
  return parseInteger(g.substr(g.size() - std::min<std::size_t>(g.size(), 2)));
}

bool standsStill(const MotionLine& line, const LastMove& last) {
  return line.x == last.x && line.y == last.y && line.z == last.z;
}

bool readsEqual(const NumberPattern& pattern, float a, float b) {
  if (a == b) return true;
  if (std::isnan(a) || std::isnan(b)) return false;
  std::string first;
  std::string second;
  pattern.append(first, a);
  pattern.append(second, b);
  return first == second;
}

// True for a move that is there, but not at the resolution of the program.
bool vanishes(const Words& words) {
  const auto same = [&words](float a, float b) {
    return readsEqual(words.format.coordinates, a, b);
  };
  const MotionLine& line = words.line;
  return same(words.last.x, line.x) && same(words.last.y, line.y) && same(words.last.z, line.z);
}

bool isNeedless(const Words& words, int code) {
  const MotionLine& line = words.line;
  if (line.circle || line.everyWord) return false;
  const bool still = standsStill(line, words.last);
  if (still) return !line.newfile && !line.zOnly && !line.forceXY && code < 2;
  // An arc that ends exactly where it starts is a full circle; one that nearly does would become a
  // full circle by rounding, and is dropped.
  // Fixed: so is a cycle that close to the last place; such a hole has never been drilled twice.
  return code >= 2 && !line.newfile && vanishes(words);
}

void appendPosition(const Words& words) {
  const MotionLine& line = words.line;
  const bool always = line.newfile || line.everyWord || words.format.definition.forceXYZ;
  const bool place = always || line.circle;
  const bool xWanted = !line.zOnly && (place || line.x != words.last.x);
  const bool yWanted = !line.zOnly && line.useY && (place || line.y != words.last.y);
  if (line.forceXY || xWanted) words.append(Axis::X, line.x);
  if (line.forceXY || yWanted) words.append(Axis::Y, line.y);
  const bool zIsPlace = !line.useY;  // of a lathe
  if (line.zOnly || always || (line.circle && zIsPlace) || line.z != words.last.z)
    words.append(Axis::Z, line.z);
}

// A centre word that the machine would assume by itself is left out.
void appendCenterWord(const Words& words, Axis axis, float center, float start) {
  const PostDefinition& definition = words.format.definition;
  const bool redundant = center == (definition.absCenter ? start : 0);
  if (!redundant || definition.forceIJK) words.append(axis, center);
}

// An arc shows either its radius or its centre, never both.
void appendArc(const Words& words, int code) {
  if (code != 2 && code != 3) return;
  MotionLine& line = words.line;
  if (line.r != 0 && words.format.useRParam) {
    words.append('R', line.r);
    line.k = 0;
    return;
  }
  appendCenterWord(words, Axis::I, line.i, words.last.x);
  appendCenterWord(words, Axis::J, line.j, words.last.y);
}

// F goes out only on a change, and never on a rapid or a preset.
void appendFeed(const Words& words, float& lastFeed) {
  const MotionLine& line = words.line;
  const float feed = line.feed * words.dialect().feedScale;
  // First, as it is true of most lines.
  if ((feed == lastFeed && !line.everyWord) || !(feed > 0)) return;
  if (!line.g.starts_with('G') || line.g == "G00" || line.g == "G92") return;
  lastFeed = feed;
  const std::size_t begin = words.out.size();
  words.out.append(" F");
  const std::size_t number = words.out.size();
  words.format.feeds.append(words.out, feed);
  if (words.out.size() == number) words.out.resize(begin);
}

void appendDwell(const Words& words) {
  const Dialect& dialect = words.dialect();
  words.append(dialect.cycleDwell.value_or('D'), words.line.d * dialect.dwellScale,
               words.format.dwells);
}

void appendWords(const Words& words, int code, float& lastFeed) {
  const MotionLine& line = words.line;
  appendPosition(words);
  appendArc(words, code);
  if (line.plane) words.append('R', *line.plane);
  // Fixed: the K word has no letter in the map; the sixth letter of definitions never counted.
  if (line.k != 0) words.append(line.cycle ? words.dialect().cyclePeck : 'K', line.k);
  appendFeed(words, lastFeed);
  if (line.d != 0 || line.zeroDwell) appendDwell(words);
}

bool isMotionCode(std::string_view g) {
  return std::ranges::find(kMotionCodes, upperCased(g)) != kMotionCodes.end();
}

void remember(const MotionLine& line, LastMove& lastmove) {
  if (!line.zOnly) {
    lastmove.x = line.x;
    lastmove.y = line.y;
  }
  lastmove.z = line.z;
}

}  // namespace

void LastMove::forget() {
  *this = {.x = kUnknown, .y = kUnknown, .z = kUnknown};
}

void LastMove::forgetZ() {
  z = kUnknown;
}

LineFormat::LineFormat(const Session& session, const PostDefinition& postDefinition)
    : definition(postDefinition),
      coordinates(session.formats.cncfmt),
      feeds(postDefinition.dialect.feedFormat),
      dwells(postDefinition.dialect.dwellFormat.empty() ? session.formats.cncfmt
                                                        : postDefinition.dialect.dwellFormat),
      useRParam(session.store.userparamforarcs) {}

void FormCncLine(std::string& out, const LineFormat& format, LastMove& lastmove, MotionLine& line) {
  if (line.newfile || line.resetOnly) lastmove.f = 0;
  if (line.resetOnly && !line.newfile) return;

  const Words words{out, format, lastmove, line};
  const int code = codeNumber(line.g);
  if (isNeedless(words, code)) return;

  const std::size_t begin = out.size();
  out.append(line.g);
  appendWords(words, code, lastmove.f);
  remember(line, lastmove);

  const bool bare = out.size() == begin + line.g.size();
  if (bare && isMotionCode(line.g)) {
    out.resize(begin);
  } else {
    out.append(kLineEnd);
  }
  line.i = line.j = line.k = 0;
  line.g.clear();
}

}  // namespace tess
