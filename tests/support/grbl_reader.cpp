// GRBL's reading of a line: characters, words, groups, then the checks of the whole block.
#include "tests/support/grbl_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/conventions.h"

namespace tess::testing {
namespace {

constexpr std::size_t kLongestLine = 79;  // without blanks and comments
constexpr double kHighestTool = 255;
constexpr double kHighestLineNumber = 10000000;
constexpr double kCoordinateSystems = 6;

constexpr int kNothing = -1;
constexpr int kNoMotion = 8000;  // G80
constexpr int kInverseTime = 9300;
constexpr int kDwell = 400;
constexpr int kSetData = 1000;
constexpr int kMachinePlace = 5300;
constexpr int kOffsetAxes = 9200;
constexpr int kDynamicLength = 4310;

// What GRBL answers, by the numbers of its list.
enum class GrblError : int {
  ExpectedLetter = 1,
  BadNumber = 2,
  BadStatement = 3,
  Negative = 4,
  LineOverflow = 11,
  Unsupported = 20,
  ModalGroup = 21,
  NoFeed = 22,
  NotAnInteger = 23,
  AxisConflict = 24,
  WordRepeated = 25,
  NoAxisWords = 26,
  LineNumber = 27,
  ValueMissing = 28,
  CoordinateSystem = 29,
  NotWithG53 = 30,
  AxisWordsUnused = 31,
  NoAxisInPlane = 32,
  BadTarget = 33,
  BadRadius = 34,
  NoOffsetInPlane = 35,
  UnusedWords = 36,
  OtherOffsetAxis = 37,
  ToolTooHigh = 38,
};

// The groups of words of which a line may hold one.
enum class Group {
  NonModal,
  Motion,
  Plane,
  Distance,
  ArcDistance,
  FeedMode,
  Units,
  CutterComp,
  ToolLength,
  CoordinateSystem,
  PathControl,
  Flow,
  Spindle,
  Coolant
};

enum class AxisUse { None, NonModal, Motion, ToolLength };

struct Code {
  int hundredths;  // 9110 is G91.1
  Group group;
  AxisUse use = AxisUse::None;
};

constexpr Code kGCodes[] = {
    {0, Group::Motion, AxisUse::Motion},
    {100, Group::Motion, AxisUse::Motion},
    {200, Group::Motion, AxisUse::Motion},
    {300, Group::Motion, AxisUse::Motion},
    {3820, Group::Motion, AxisUse::Motion},
    {3830, Group::Motion, AxisUse::Motion},
    {3840, Group::Motion, AxisUse::Motion},
    {3850, Group::Motion, AxisUse::Motion},
    {8000, Group::Motion},
    {400, Group::NonModal},
    {1000, Group::NonModal, AxisUse::NonModal},
    {2800, Group::NonModal, AxisUse::NonModal},
    {2810, Group::NonModal},
    {3000, Group::NonModal, AxisUse::NonModal},
    {3010, Group::NonModal},
    {5300, Group::NonModal},
    {9200, Group::NonModal, AxisUse::NonModal},
    {9210, Group::NonModal},
    {1700, Group::Plane},
    {1800, Group::Plane},
    {1900, Group::Plane},
    {9000, Group::Distance},
    {9100, Group::Distance},
    {9110, Group::ArcDistance},
    {9300, Group::FeedMode},
    {9400, Group::FeedMode},
    {2000, Group::Units},
    {2100, Group::Units},
    {4000, Group::CutterComp},
    {4310, Group::ToolLength, AxisUse::ToolLength},
    {4900, Group::ToolLength, AxisUse::ToolLength},
    {5400, Group::CoordinateSystem},
    {5500, Group::CoordinateSystem},
    {5600, Group::CoordinateSystem},
    {5700, Group::CoordinateSystem},
    {5800, Group::CoordinateSystem},
    {5900, Group::CoordinateSystem},
    {6100, Group::PathControl},
};

// M7 is off as GRBL ships; M6 is none of its words.
constexpr Code kMCodes[] = {
    {0, Group::Flow},      {100, Group::Flow},    {200, Group::Flow},
    {3000, Group::Flow},   {300, Group::Spindle}, {400, Group::Spindle},
    {500, Group::Spindle}, {800, Group::Coolant}, {900, Group::Coolant},
};

using Modes = std::map<Group, int>;  // the code of each group, in hundredths

struct GrblBlock {
  Modes modes;                   // those that the line names
  std::map<char, double> words;  // those with values
  AxisUse use = AxisUse::None;

  bool has(char letter) const { return words.contains(letter); }
  bool hasAnyOf(std::string_view letters) const {
    return std::any_of(letters.begin(), letters.end(), [&](char c) { return has(c); });
  }
  bool hasAxes() const { return hasAnyOf("XYZ"); }
  double valueOr(char letter, double otherwise) const {
    const auto found = words.find(letter);
    return found == words.end() ? otherwise : found->second;
  }
  int nonModal() const {
    const auto found = modes.find(Group::NonModal);
    return found == modes.end() ? kNothing : found->second;
  }
};

struct Plane {
  char first, second;              // axes
  char firstOffset, secondOffset;  // words of the centre
};

constexpr Plane kPlanes[] = {{'X', 'Y', 'I', 'J'}, {'Z', 'X', 'K', 'I'}, {'Y', 'Z', 'J', 'K'}};

bool isArcMotion(int motion) {
  return motion == 200 || motion == 300;
}

bool isProbe(int motion) {
  return motion >= 3820 && motion <= 3850;
}

class GrblControl {
  using Place = std::array<double, 3>;

 public:
  void readLine(std::string_view raw) {
    ++line_;
    const std::string text = filtered(raw);
    if (text.empty()) return;
    if (text[0] == '$') stop(GrblError::BadStatement, "a command to the control itself");
    run(blockOf(text));
  }

  GcodeProgram program;

 private:
  [[noreturn]] void stop(const std::string& what) const {
    throw GcodeError("line " + std::to_string(line_) + ": " + what);
  }
  [[noreturn]] void stop(GrblError error, const std::string& what) const {
    stop("error:" + std::to_string(static_cast<int>(error)) + " " + what);
  }

  // ---- Characters

  void refuseRealtime(char character) const {
    const auto byte = static_cast<unsigned char>(character);
    const bool acts =
        character == '?' || character == '!' || character == '~' || byte == 0x18 || byte >= 0x80;
    if (acts) stop("the byte " + std::to_string(byte) + " acts at once, wherever it stands");
  }

  std::string filtered(std::string_view raw) const {
    std::string text;
    bool bracket = false;
    bool semicolon = false;
    for (const char c : raw) {
      refuseRealtime(c);
      if (bracket || semicolon) {
        if (c == ')') bracket = false;
      } else if (c == '(') {
        bracket = true;
      } else if (c == ';') {
        semicolon = true;
      } else if (c > ' ' && c != '/') {
        text += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
      }
    }
    if (text.size() > kLongestLine) stop(GrblError::LineOverflow, "a line that is too long");
    return text;
  }

  // ---- Words

  double numberAt(std::string_view text, std::size_t& at) const {
    const std::size_t begin = at;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    int digits = 0;
    bool point = false;
    for (; at < text.size(); ++at) {
      if (text[at] == '.' && !point) {
        point = true;
      } else if (text[at] >= '0' && text[at] <= '9') {
        ++digits;
      } else {
        break;
      }
    }
    if (digits == 0) stop(GrblError::BadNumber, "no number behind a letter");
    return std::stod(std::string(text.substr(begin, at - begin)));
  }

  GrblBlock blockOf(std::string_view text) const {
    GrblBlock block;
    for (std::size_t at = 0; at < text.size();) {
      const char letter = text[at];
      if (letter < 'A' || letter > 'Z') {
        stop(GrblError::ExpectedLetter, std::string("no letter but ") + letter);
      }
      addWord(block, letter, numberAt(text, ++at));
    }
    return block;
  }

  void addWord(GrblBlock& block, char letter, double value) const {
    if (letter == 'G') {
      addGCode(block, value);
    } else if (letter == 'M') {
      addMCode(block, value);
    } else {
      addValue(block, letter, value);
    }
  }

  std::string nameOf(char letter, double value) const {
    char text[40];
    std::snprintf(text, sizeof text, "%c%g", letter, value);
    return text;
  }

  // A code that is there with other decimals wants none; one that is not there at all is unknown.
  const Code& codeIn(std::span<const Code> codes, char letter, double value) const {
    const int hundredths = static_cast<int>(std::lround(value * 100));
    const Code* whole = nullptr;
    for (const Code& code : codes) {
      if (code.hundredths == hundredths) return code;
      if (code.hundredths == hundredths / 100 * 100) whole = &code;
    }
    const bool decimalsCount = letter == 'G' && hasDecimalForms(hundredths / 100);
    if (whole != nullptr && !decimalsCount) {
      stop(GrblError::NotAnInteger, nameOf(letter, value) + " with decimals");
    }
    stop(GrblError::Unsupported, nameOf(letter, value) + " is unknown");
  }

  static bool hasDecimalForms(int code) {
    constexpr std::array kForms{28, 30, 38, 43, 61, 90, 91, 92};
    return std::count(kForms.begin(), kForms.end(), code) > 0;
  }

  void takeMode(GrblBlock& block, const Code& code, const std::string& name) const {
    if (!block.modes.emplace(code.group, code.hundredths).second) {
      stop(GrblError::ModalGroup, name + " beside another word of its group");
    }
  }

  void addGCode(GrblBlock& block, double value) const {
    const Code& code = codeIn(kGCodes, 'G', value);
    const std::string name = nameOf('G', value);
    if (code.use != AxisUse::None) {
      if (block.use != AxisUse::None) {
        stop(GrblError::AxisConflict, name + " beside another word that takes the axes");
      }
      block.use = code.use;
    }
    takeMode(block, code, name);
  }

  void addMCode(GrblBlock& block, double value) const {
    if (value != std::floor(value)) {
      stop(GrblError::NotAnInteger, nameOf('M', value) + " with decimals");
    }
    takeMode(block, codeIn(kMCodes, 'M', value), nameOf('M', value));
  }

  void addValue(GrblBlock& block, char letter, double value) const {
    constexpr std::string_view kKnown = "FIJKLNPRSTXYZ";
    constexpr std::string_view kNeverNegative = "FNPTS";
    const std::string name = nameOf(letter, value);
    if (kKnown.find(letter) == std::string_view::npos) {
      stop(GrblError::Unsupported, name + " is unknown");
    }
    if (letter == 'T' && value > kHighestTool) stop(GrblError::ToolTooHigh, name);
    if (!block.words.emplace(letter, value).second) stop(GrblError::WordRepeated, name);
    if (kNeverNegative.find(letter) != std::string_view::npos && value < 0) {
      stop(GrblError::Negative, name);
    }
  }

  // ---- The block

  void run(GrblBlock block) {
    if (block.hasAxes() && block.use == AxisUse::None) block.use = AxisUse::Motion;
    Modes modes = modes_;
    for (const auto& [group, code] : block.modes) modes[group] = code;
    check(block, modes);
    modes_ = modes;
    follow(block);
  }

  // In GRBL's order; each check takes away the words that it has found a use for.
  void check(const GrblBlock& block, const Modes& modes) const {
    GrblBlock left = block;
    if (block.valueOr('N', 0) > kHighestLineNumber) stop(GrblError::LineNumber, "a high number");
    checkInverseTime(block, modes);
    checkNonModal(block, modes, left);
    checkMotion(block, modes, left);
    for (const char letter : std::string_view("NFST")) left.words.erase(letter);
    if (block.use != AxisUse::None) {
      for (const char letter : std::string_view("XYZ")) left.words.erase(letter);
    }
    if (!left.words.empty()) {
      stop(GrblError::UnusedWords, std::string("no use for ") + left.words.begin()->first);
    }
  }

  void checkInverseTime(const GrblBlock& block, const Modes& modes) const {
    const int motion = modes.at(Group::Motion);
    const bool feeds = block.use == AxisUse::Motion && motion != kNoMotion && motion != 0;
    if (modes.at(Group::FeedMode) == kInverseTime && feeds && !block.has('F')) {
      stop(GrblError::NoFeed, "inverse time without F");
    }
  }

  void checkNonModal(const GrblBlock& block, const Modes& modes, GrblBlock& left) const {
    const int code = block.nonModal();
    if (code == kDwell && !block.has('P')) stop(GrblError::ValueMissing, "a dwell without P");
    if (code == kDwell) left.words.erase('P');
    if (block.use == AxisUse::ToolLength && modes.at(Group::ToolLength) == kDynamicLength &&
        !(block.has('Z') && !block.hasAnyOf("XY"))) {
      stop(GrblError::OtherOffsetAxis, "G43.1 with another axis than Z");
    }
    if (code == kSetData) checkSetData(block, left);
    if (code == kOffsetAxes && !block.hasAxes()) stop(GrblError::NoAxisWords, "G92 alone");
    if (code == kMachinePlace && modes.at(Group::Motion) > 100) {
      stop(GrblError::NotWithG53, "G53 with another motion than G0 or G1");
    }
  }

  void checkSetData(const GrblBlock& block, GrblBlock& left) const {
    if (!block.hasAxes()) stop(GrblError::NoAxisWords, "G10 without axes");
    if (!block.hasAnyOf("PL")) stop(GrblError::ValueMissing, "G10 without P and L");
    if (std::trunc(block.valueOr('P', 0)) > kCoordinateSystems) {
      stop(GrblError::CoordinateSystem, "G10 for a system that there is not");
    }
    const double form = block.valueOr('L', 0);
    if ((form != 2 && form != 20) || (form == 2 && block.has('R'))) {
      stop(GrblError::Unsupported, "G10 in another form than L2 and L20");
    }
    left.words.erase('P');
    left.words.erase('L');
  }

  void checkMotion(const GrblBlock& block, const Modes& modes, GrblBlock& left) const {
    const int motion = modes.at(Group::Motion);
    if (motion == kNoMotion && block.hasAxes()) {
      stop(GrblError::AxisWordsUnused, "axes without a motion");
    }
    if (motion == kNoMotion || motion == 0 || block.use != AxisUse::Motion) return;
    if (block.valueOr('F', feed_) == 0) stop(GrblError::NoFeed, "a motion without a feed");
    if (isArcMotion(motion)) checkArc(block, modes, left);
    if (isProbe(motion) && !block.hasAxes()) stop(GrblError::NoAxisWords, "a probe without axes");
    if (isProbe(motion) && endOf(block, modes) == at_) {
      stop(GrblError::BadTarget, "a probe to where it is");
    }
  }

  static const Plane& planeOf(const Modes& modes) {
    return kPlanes[modes.at(Group::Plane) / 100 - 17];
  }

  void checkArc(const GrblBlock& block, const Modes& modes, GrblBlock& left) const {
    const Plane& plane = planeOf(modes);
    if (!block.hasAxes()) stop(GrblError::NoAxisWords, "an arc without axes");
    if (!block.has(plane.first) && !block.has(plane.second)) {
      stop(GrblError::NoAxisInPlane, "an arc without an axis of its plane");
    }
    if (block.has('R')) {
      left.words.erase('R');
      checkRadius(block, modes);
      return;
    }
    if (!block.has(plane.firstOffset) && !block.has(plane.secondOffset)) {
      stop(GrblError::NoOffsetInPlane, "an arc without a centre");
    }
    for (const char letter : std::string_view("IJK")) left.words.erase(letter);
    checkCenter(block, modes);
  }

  static std::size_t axisAt(char axis) { return static_cast<std::size_t>(axis - 'X'); }

  // From here to the end, in the plane.
  Vec chordOf(const GrblBlock& block, const Modes& modes) const {
    const Plane& plane = planeOf(modes);
    const Place end = endOf(block, modes);
    return {end[axisAt(plane.first)] - at_[axisAt(plane.first)],
            end[axisAt(plane.second)] - at_[axisAt(plane.second)]};
  }

  void checkRadius(const GrblBlock& block, const Modes& modes) const {
    if (endOf(block, modes) == at_) stop(GrblError::BadTarget, "a full circle by its radius");
    if (2 * std::abs(block.valueOr('R', 0)) < lengthOf(chordOf(block, modes))) {
      stop(GrblError::BadRadius, "a radius that does not reach");
    }
  }

  // Radii may differ by 0.005 mm, or by a thousandth of the radius up to half a millimetre.
  void checkCenter(const GrblBlock& block, const Modes& modes) const {
    constexpr double kAlways = 0.005;
    constexpr double kNever = 0.5;
    constexpr double kShare = 0.001;
    const Plane& plane = planeOf(modes);
    const double unit = modes.at(Group::Units) == 2000 ? kMillimetresPerInch : 1;
    const Vec center{block.valueOr(plane.firstOffset, 0), block.valueOr(plane.secondOffset, 0)};
    const double radius = unit * lengthOf(center);
    const double gap = std::abs(unit * lengthOf(chordOf(block, modes) - center) - radius);
    if (gap > kAlways && (gap > kNever || gap > kShare * radius)) {
      stop(GrblError::BadTarget, "an arc whose radii differ by " + std::to_string(gap) + " mm");
    }
  }

  // ---- What comes of a line that was taken

  Place endOf(const GrblBlock& block, const Modes& modes) const {
    Place end = at_;
    const bool absolute = modes.at(Group::Distance) == 9000;
    for (const char axis : std::string_view("XYZ")) {
      if (!block.has(axis)) continue;
      double& value = end[axisAt(axis)];
      value = block.valueOr(axis, 0) + (absolute ? 0 : value);
    }
    return end;
  }

  void follow(const GrblBlock& block) {
    feed_ = block.valueOr('F', feed_);
    spindle_ = block.valueOr('S', spindle_);
    tool_ = static_cast<int>(block.valueOr('T', tool_));
    if (const auto units = block.modes.find(Group::Units); units != block.modes.end()) {
      program.units = units->second == 2000 ? "I" : "M";
    }
    absoluteSet_ = absoluteSet_ || block.modes.contains(Group::Distance);
    if (const auto spindle = block.modes.find(Group::Spindle); spindle != block.modes.end()) {
      turns_ = spindle->second != 500;
    }
    if (block.nonModal() == kDwell) {
      GcodeMotion dwell = motionTo(4, at_);
      dwell.dwell = block.valueOr('P', 0);
      program.motions.push_back(dwell);
    } else if (block.nonModal() != kNothing || modes_.at(Group::ToolLength) == kDynamicLength) {
      stop("a place that the program does not tell");
    } else if (block.hasAxes()) {
      move(block);
    }
  }

  void move(const GrblBlock& block) {
    if (program.units.empty()) stop("a motion before the units");
    if (!absoluteSet_ || modes_.at(Group::Distance) != 9000) stop("a motion that is not absolute");
    const int motion = modes_.at(Group::Motion);
    if (isProbe(motion)) stop("a place that the program does not tell");
    if (isArcMotion(motion) && modes_.at(Group::Plane) != 1700) stop("an arc in another plane");
    const Place end = endOf(block, modes_);
    GcodeMotion moved = motionTo(motion / 100, end);
    if (isArcMotion(motion)) {
      moved.center = block.has('R')
                         ? centerByRadius(moved, block.valueOr('R', 0))
                         : moved.from + Vec{block.valueOr('I', 0), block.valueOr('J', 0)};
    }
    program.motions.push_back(moved);
    at_ = end;
  }

  GcodeMotion motionTo(int g, const Place& end) const {
    GcodeMotion motion;
    motion.line = line_;
    motion.g = g;
    motion.from = {at_[0], at_[1]};
    motion.to = {end[0], end[1]};
    motion.fromZ = at_[2];
    motion.toZ = end[2];
    motion.feed = feed_;
    motion.tool = tool_;
    motion.spindle = turns_ ? spindle_ : 0;
    return motion;
  }

  // As GRBL starts.
  Modes modes_{{Group::Motion, 0},       {Group::Plane, 1700}, {Group::Distance, 9000},
               {Group::FeedMode, 9400},  {Group::Units, 2100}, {Group::ToolLength, 4900},
               {Group::CutterComp, 4000}};
  Place at_{};
  double feed_ = 0, spindle_ = 0;
  int line_ = 0, tool_ = 0;
  bool absoluteSet_ = false, turns_ = false;
};

}  // namespace

GcodeProgram readGrblProgram(const std::string& text) {
  GrblControl control;
  for (const std::string_view line : programLines(text)) control.readLine(line);
  return control.program;
}

}  // namespace tess::testing
