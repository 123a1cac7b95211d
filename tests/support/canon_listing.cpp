// A table of calls, and what each does to the machine.
#include "tests/support/canon_listing.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "core/conventions.h"

namespace tess::testing {
namespace {

constexpr double kHair = 1e-6;

// "   12 N..... NAME(1, CANON_XYZ, 0.5)".
struct CanonCall {
  std::string name;
  std::vector<std::string> arguments;
};

std::vector<std::string> splitArguments(std::string_view text) {
  std::vector<std::string> arguments;
  while (!text.empty()) {
    const std::size_t begin = std::min(text.find_first_not_of(", "), text.size());
    const std::size_t end = std::min(text.find_first_of(", ", begin), text.size());
    if (end > begin) arguments.emplace_back(text.substr(begin, end - begin));
    text.remove_prefix(end);
  }
  return arguments;
}

CanonCall callIn(std::string_view line) {
  const std::size_t open = line.find('(');
  const std::size_t close = line.rfind(')');
  if (open == std::string_view::npos || close == std::string_view::npos) return {};
  const std::size_t name = line.find_last_of(" \t", open) + 1;
  return {std::string(line.substr(name, open - name)),
          splitArguments(line.substr(open + 1, close - open - 1))};
}

class CanonMachine {
 public:
  explicit CanonMachine(bool lathe) : lathe_(lathe) {}

  void run(int line, const CanonCall& call) {
    line_ = line;
    const auto known = std::find_if(std::begin(kCalls), std::end(kCalls),
                                    [&](const Call& entry) { return call.name == entry.name; });
    if (known == std::end(kCalls)) stop("no reason for " + call.name);
    if (known->run != nullptr) (this->*known->run)(call);
  }

  GcodeProgram program;
  bool ended = false;

 private:
  struct Call {
    const char* name;
    void (CanonMachine::*run)(const CanonCall&);  // null: moves nothing
  };
  static const Call kCalls[29];

  [[noreturn]] void stop(const std::string& what) const {
    throw GcodeError("line " + std::to_string(line_) + ": " + what);
  }

  double number(const CanonCall& call, std::size_t index) const {
    if (index >= call.arguments.size()) stop(call.name + " lacks an argument");
    return std::stod(call.arguments[index]);
  }

  void setUnits(const CanonCall& call) {
    const bool inch = call.arguments.at(0) == "CANON_UNITS_INCHES";
    program.units = inch ? "I" : "M";
    unit_ = inch ? 1 : kMillimetresPerInch;
  }

  void setPlane(const CanonCall& call) {
    planeFits_ = call.arguments.at(0) == (lathe_ ? "CANON_PLANE_XZ" : "CANON_PLANE_XY");
  }

  void selectTool(const CanonCall& call) { selected_ = static_cast<int>(number(call, 0)); }
  void changeTool(const CanonCall&) { tool_ = selected_; }
  // The three axes of the offset come first.
  void setLength(const CanonCall& call) { length_ = number(call, 2); }
  void setSpeed(const CanonCall& call) { spindle_ = number(call, 1); }
  void startSpindle(const CanonCall&) { turn_ = 1; }
  void reverseSpindle(const CanonCall&) { turn_ = -1; }
  void stopSpindle(const CanonCall&) { turn_ = 0; }
  void setFeed(const CanonCall& call) { feed_ = number(call, 0); }
  void end(const CanonCall&) { ended = true; }

  void dwell(const CanonCall& call) {
    GcodeMotion motion = motionTo(4, at_, z_);
    motion.dwell = number(call, 0);
    program.motions.push_back(motion);
  }

  Vec placeOf(double x, double y, double z) const { return lathe_ ? Vec{z, x} : Vec{x, y}; }

  void moveStraight(int g, const CanonCall& call) {
    const double z = number(call, 2);
    move(motionTo(g, placeOf(number(call, 0), number(call, 1), z), lathe_ ? 0 : z));
  }
  void traverse(const CanonCall& call) { moveStraight(0, call); }
  void feedStraight(const CanonCall& call) { moveStraight(1, call); }

  // End, centre, turns and depth, the axes of the plane in its order: a lathe's are Z and X, as
  // those of a path.
  void feedArc(const CanonCall& call) {
    const double turns = number(call, 4);
    if (std::abs(turns) != 1) stop("an arc of more than one turn");
    if (!planeFits_) stop("an arc in another plane");
    const Vec end{number(call, 0), number(call, 1)};
    GcodeMotion arc = motionTo(turns > 0 ? 3 : 2, end, lathe_ ? 0 : number(call, 5));
    arc.center = {number(call, 2), number(call, 3)};
    move(arc);
  }

  GcodeMotion motionTo(int g, Vec end, double z) const {
    GcodeMotion motion;
    motion.line = line_;
    motion.g = g;
    motion.from = at_;
    motion.to = end;
    motion.fromZ = z_;
    motion.toZ = z;
    motion.feed = feed_;
    motion.tool = tool_;
    motion.spindle = turn_ * spindle_;
    return motion;
  }

  void move(const GcodeMotion& motion) {
    if (ended) stop("a motion behind the end");
    if (tool_ != 0 && std::abs(length_ - lengthOfTool(tool_) * unit_) > kHair) {
      stop("a motion with the length of another tool");
    }
    program.motions.push_back(motion);
    at_ = motion.to;
    z_ = motion.toZ;
  }

  bool lathe_;
  int line_ = 0;
  Vec at_;
  double z_ = 0, feed_ = 0, spindle_ = 0, length_ = 0, unit_ = 1;
  int selected_ = 0, tool_ = 0;
  int turn_ = 0;  // -1 counter-clockwise
  bool planeFits_ = false;
};

const CanonMachine::Call CanonMachine::kCalls[29] = {
    {"USE_LENGTH_UNITS", &CanonMachine::setUnits},
    {"SELECT_PLANE", &CanonMachine::setPlane},
    {"SELECT_TOOL", &CanonMachine::selectTool},
    {"CHANGE_TOOL", &CanonMachine::changeTool},
    {"USE_TOOL_LENGTH_OFFSET", &CanonMachine::setLength},
    {"SET_SPINDLE_SPEED", &CanonMachine::setSpeed},
    {"START_SPINDLE_CLOCKWISE", &CanonMachine::startSpindle},
    {"START_SPINDLE_COUNTERCLOCKWISE", &CanonMachine::reverseSpindle},
    {"STOP_SPINDLE_TURNING", &CanonMachine::stopSpindle},
    {"SET_FEED_RATE", &CanonMachine::setFeed},
    {"STRAIGHT_TRAVERSE", &CanonMachine::traverse},
    {"STRAIGHT_FEED", &CanonMachine::feedStraight},
    {"ARC_FEED", &CanonMachine::feedArc},
    {"DWELL", &CanonMachine::dwell},
    {"PROGRAM_END", &CanonMachine::end},
    {"START_CHANGE", nullptr},
    {"SET_G5X_OFFSET", nullptr},
    {"SET_G92_OFFSET", nullptr},
    {"SET_XY_ROTATION", nullptr},
    {"SET_FEED_REFERENCE", nullptr},
    {"SET_FEED_MODE", nullptr},
    {"SET_MOTION_CONTROL_MODE", nullptr},
    {"SET_NAIVECAM_TOLERANCE", nullptr},
    {"SET_SPINDLE_MODE", nullptr},
    {"PALLET_SHUTTLE", nullptr},
    {"ON_RESET", nullptr},
    {"COMMENT", nullptr},
    {"MIST_OFF", nullptr},
    {"FLOOD_OFF", nullptr},
};

}  // namespace

GcodeProgram readCanonListing(const std::string& listing, bool lathe) {
  CanonMachine machine(lathe);
  int number = 0;
  for (const std::string_view line : programLines(listing)) {
    ++number;
    if (const CanonCall call = callIn(line); !call.name.empty()) machine.run(number, call);
  }
  if (!machine.ended) throw GcodeError("the program does not end");
  return machine.program;
}

}  // namespace tess::testing
