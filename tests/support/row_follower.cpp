// Walks along rows and motions at once.
#include "tests/support/row_follower.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "core/drawing_store.h"

namespace tess::testing {
namespace {

constexpr int kRapidMotion = 0;
constexpr int kDwellMotion = 4;
constexpr int kSlotCycle = 79;
constexpr int kPeckCycle = 83;
constexpr int kStoppedCycle = 86;

struct Detour : std::runtime_error {
  using std::runtime_error::runtime_error;
};

bool isOneOf(int number, std::initializer_list<int> numbers) {
  return std::count(numbers.begin(), numbers.end(), number) > 0;
}

std::string motionText(const GcodeMotion& motion) {
  char text[200];
  std::snprintf(text, sizeof text, "line %d: %d (%g, %g, %g)-(%g, %g, %g) c (%g, %g) f %g tool %d",
                motion.line, motion.g, motion.from.x, motion.from.y, motion.fromZ, motion.to.x,
                motion.to.y, motion.toZ, motion.center.x, motion.center.y, motion.feed,
                motion.tool);
  return text;
}

class RowFollower {
 public:
  RowFollower(const DrawingStore& store, const GcodeProgram& program, const FollowRules& rules)
      : store_(store), motions_(program.motions), rules_(rules) {}

  void follow() {
    if (store_.NumPathSegments > 0) last_ = {store_.psx0[1], store_.psy0[1]};
    for (row_ = 1; row_ <= store_.NumPathSegments; ++row_) {
      const PathRow row = pathRow(store_, row_);
      followRow(row);
      last_ = {row.x1, row.y1};
    }
    row_ = 0;
    while (!atEnd()) requireHarmless();
    if (!rules_.lathe && z_ < safe() - kHair) stop("the end in the work");
  }

 private:
  static constexpr double kHair = 1e-6;

  // ---- Where the machine is

  bool atEnd() const { return next_ == motions_.size(); }
  const GcodeMotion& motion() const {
    if (atEnd()) stop("the program ends");
    return motions_[next_];
  }
  void step() {
    at_ = motion().to;
    z_ = motion().toZ;
    ++next_;
  }
  double safe() const { return store_.zstartpos; }

  [[noreturn]] void stop(const std::string& what) const {
    const std::string row = row_ > 0 ? "row " + std::to_string(row_) : "behind the last row";
    throw Detour(row + ": " + what + (atEnd() ? "" : ", " + motionText(motions_[next_])));
  }

  bool near(Vec a, Vec b, double gap) const {
    return std::abs(a.x - b.x) <= gap && std::abs(a.y - b.y) <= gap;
  }
  bool near(double a, double b) const { return std::abs(a - b) <= rules_.resolution; }
  static bool isLevel(const GcodeMotion& m) { return std::abs(m.toZ - m.fromZ) <= kHair; }
  bool stays(const GcodeMotion& m) const { return near(m.from, m.to, kHair) && !isArc(m.g); }
  bool isCut(const GcodeMotion& m) const { return isOneOf(m.g, {1, 2, 3}) && !stays(m); }

  // ---- Between the rows

  // A lift, a way across where nothing is, a descent that ends above the work, a dwell.
  void requireHarmless() {
    const GcodeMotion& m = motion();
    const bool waits = m.g == kDwellMotion;
    const bool rapid = m.g == kRapidMotion;
    if (!waits && !rapid) stop("a feed that no row asks for");
    const bool high = m.fromZ >= safe() - kHair && m.toZ >= safe() - kHair;
    const bool straightUp = stays(m) && m.toZ >= m.fromZ;
    const bool straightDown = stays(m) && m.toZ > 0;
    if (!waits && !rules_.lathe && !high && !straightUp && !straightDown) {
      stop("a rapid that may touch the work");
    }
    step();
  }

  bool isPlunge(const GcodeMotion& m, const PathRow& row) const {
    const bool isThere = near(m.to, {row.x0, row.y0}, rules_.resolution + rules_.joints);
    if (rules_.latheClear) return isThere && m.g == 1 && near(m.from.x, m.to.x);
    return !rules_.lathe && m.g == 1 && stays(m) && near(m.toZ, row.z) && isThere;
  }

  double plungeFeed(const PathRow& row) const {
    return rules_.latheClear ? double{row.feed} : double{store_.cfg_z_plunge_rate};
  }

  // Of a lathe, before the row itself, which may go the same way.
  bool entersBar(const PathRow& row) const {
    return rules_.latheClear && isPlunge(motion(), row) && !isAtStartOf(row);
  }
  bool isAtStartOf(const PathRow& row) const {
    return near(at_, {row.x0, row.y0}, rules_.resolution + rules_.joints);
  }

  void approach(const PathRow& row) {
    while (!atEnd() && (!isCut(motion()) || entersBar(row))) {
      if (!isPlunge(motion(), row)) {
        requireHarmless();
        continue;
      }
      requireFeed(plungeFeed(row));
      step();
    }
  }

  // ---- Rows

  void followRow(const PathRow& row) {
    if (row.type > kCounterClockwiseArc && row.type < kFirstCycle) return;
    if (row.type >= kFirstCycle) return followCycle(row);
    if (row.type == kRapid || isLatheRapid(row)) return followRapid(row);
    if (!isShort(row)) followCut(row);
  }

  // Marked so, or straight away from the axis, seen from the end of the row before.
  bool isLatheRapid(const PathRow& row) const {
    const bool retract = !rules_.latheClear && row.x1 == last_.x && row.y1 > last_.y;
    return rules_.lathe && row.type == kLine && (row.z == kLatheRapidZ || retract);
  }

  // The program has no word for it.
  bool isShort(const PathRow& row) const {
    const bool circle = isArc(row.type) && row.x0 == row.x1 && row.y0 == row.y1;
    return !circle && near({row.x0, row.y0}, {row.x1, row.y1}, rules_.resolution);
  }

  bool isAtEndOf(const PathRow& row) const {
    return near(at_, {row.x1, row.y1}, rules_.resolution) && (rules_.lathe || near(z_, row.z));
  }

  void followRapid(const PathRow& row) {
    while (!isAtEndOf(row)) {
      if (isPlunge(motion(), row)) {
        requireFeed(plungeFeed(row));
      } else if (motion().g != kRapidMotion && motion().g != kDwellMotion) {
        stop("a rapid row that is not reached");
      }
      step();
    }
  }

  void followCut(const PathRow& row) {
    approach(row);
    const GcodeMotion& m = motion();
    if (m.g != row.type) stop("another kind of move");
    if (!near(m.from, {row.x0, row.y0}, rules_.resolution + rules_.joints)) stop("another start");
    if (!near(m.to, {row.x1, row.y1}, rules_.resolution)) stop("another end");
    if (!rules_.lathe && !near(m.toZ, row.z)) stop("another depth");
    if (isArc(row.type)) requireArc(row);
    requireFeed(row.feed);
    requireTool(row);
    step();
  }

  void requireArc(const PathRow& row) const {
    const GcodeMotion& m = motion();
    const double gap = 4 * rules_.resolution + rules_.joints;
    if (!rules_.radiusWords) {
      if (!near(m.center, {row.xc, row.yc}, gap)) stop("another centre");
      return;
    }
    const Curve moved = arcCurve(m.from, m.to, m.center, m.g == kClockwiseArc);
    for (const double share : {0.25, 0.5, 0.75}) {
      if (!near(pointOn(moved, share), pointOn(curveOf(row), share), gap)) stop("another arc");
    }
  }

  // A feed of 0 has no word: the one before goes on.
  void requireFeed(double feed) const {
    if (feed > 0 && std::abs(motion().feed - feed) > rules_.feedGrain) stop("another feed");
  }

  void requireTool(const PathRow& row) const {
    const int tool = toolIndex(row.code);
    if (motion().tool != tool + 1) stop("another tool");
    const double speed = store_.toolspindlespeed[tool];
    if (speed > 0 && motion().spindle != speed) stop("another spindle speed");
  }

  // ---- Cycles, as the moves that they are made of

  void followCycle(const PathRow& row) {
    if (rules_.lathe) stop("a cycle of a lathe");
    const Vec start = row.type == kSlotCycle ? Vec{row.x0, row.y0} : Vec{row.x1, row.y1};
    while (!near(at_, start, rules_.resolution) || z_ < safe() - kHair) requireHarmless();
    deepest_ = 0;
    dwelt_ = 0;
    if (row.type == kSlotCycle) {
      cutSlot(row);
    } else {
      drill(row);
    }
  }

  void drill(const PathRow& row) {
    const double floor = -std::abs(row.z);
    const bool dwells = isOneOf(row.type, {82, 86, 89}) && row.yc > 0;
    do {
      if (!stays(motion())) stop("a move across in a hole");
      takeDrillMove(row, floor);
    } while (!near(deepest_, floor) || z_ < safe() - kHair || pecksOn());
    if (dwells && std::abs(dwelt_ - row.yc) > 1e-4) stop("another dwell");
  }

  // Down again where the last peck has left a hair of the depth.
  bool pecksOn() const {
    return !atEnd() && motion().g == kRapidMotion && stays(motion()) && motion().toZ < 0;
  }

  void takeDrillMove(const PathRow& row, double floor) {
    const GcodeMotion& m = motion();
    const bool out = m.toZ > m.fromZ;
    if (m.g == kDwellMotion) {
      if (near(z_, floor)) dwelt_ += m.dwell;
    } else if (m.g == kRapidMotion) {
      if (!out && m.toZ < deepest_ - kHair) stop("a rapid into the work");
      if (out && row.type == kStoppedCycle && near(z_, floor) && m.spindle != 0) {
        stop("a turning spindle");
      }
      if (out && near(z_, floor) && isOneOf(row.type, {84, 85, 89})) stop("a rapid out of a hole");
    } else {
      requireDrillFeed(row);
    }
    step();
  }

  void requireDrillFeed(const PathRow& row) {
    const GcodeMotion& m = motion();
    requireFeed(row.feed);
    if (m.toZ >= m.fromZ) return;
    requireTool(row);
    requireStep(row, row.type == kPeckCycle);
    deepest_ = std::min(deepest_, m.toZ);
  }

  void requireStep(const PathRow& row, bool steps) const {
    const GcodeMotion& m = motion();
    const double floor = -std::abs(row.z);
    if (m.toZ < floor - rules_.resolution) stop("deeper than the cycle");
    if (steps && row.xc > 0 && deepest_ - m.toZ > row.xc + rules_.resolution) {
      stop("more than a step");
    }
  }

  void cutSlot(const PathRow& row) {
    const double floor = -std::abs(row.z);
    const Vec ends[] = {{row.x0, row.y0}, {row.x1, row.y1}};
    bool whole = false;
    do {
      const GcodeMotion& m = motion();
      if (m.g == kRapidMotion) {
        requireHarmless();
        continue;
      }
      if (m.g != 1) stop("no line along the slot");
      if (!near(m.to, ends[0], rules_.resolution) && !near(m.to, ends[1], rules_.resolution)) {
        stop("a place off the slot's ends");
      }
      requireTool(row);
      requireStep(row, /*steps=*/true);
      if (!stays(m)) requireFeed(row.feed);
      whole = whole || (isLevel(m) && !stays(m) && near(m.toZ, floor));
      deepest_ = std::min(deepest_, m.toZ);
      step();
    } while (!whole || z_ < safe() - kHair);
  }

  const DrawingStore& store_;
  const std::vector<GcodeMotion>& motions_;
  const FollowRules& rules_;
  std::size_t next_ = 0;
  int row_ = 0;
  Vec at_, last_;
  double z_ = 0;
  double deepest_ = 0, dwelt_ = 0;  // in the cycle at hand
};

}  // namespace

std::string firstDetour(const DrawingStore& store, const GcodeProgram& program,
                        const FollowRules& rules) {
  if (program.units != store.units) return "units " + program.units;
  if (program.motions.empty()) return "no motions";
  try {
    RowFollower(store, program, rules).follow();
  } catch (const Detour& detour) {
    return detour.what();
  }
  return {};
}

}  // namespace tess::testing
