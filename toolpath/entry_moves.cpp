// Entries, piece by piece. Levels of the same rows share what was found out about their pieces.
#include "toolpath/entry_moves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <span>
#include <utility>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/pocketing_choices.h"
#include "core/rounding.h"
#include "geometry/row_entity.h"
#include "toolpath/entry_holes.h"
#include "toolpath/entry_shapes.h"
#include "toolpath/proof_groups.h"
#include "toolpath/region_rows.h"
#include "toolpath/true_links.h"

namespace tess {
namespace {

constexpr double kStepInch = 0.01;
constexpr double kStepMm = 0.25;
constexpr float kFlattest = 0.1F;  // degrees
constexpr float kSteepest = 45;
constexpr int kMostRows = std::numeric_limits<std::int16_t>::max();
constexpr double kHelixShare = 0.9;    // of the tool's radius, where the setup tells no radius
constexpr double kShortestRamp = 0.1;  // in radii of the tool
constexpr double kSameDepth = 1e-6;
constexpr double kAllTheWayDown = -std::numeric_limits<double>::infinity();
constexpr int kDecimals = 5;

PlanePoint placeOf(Point p) {
  return {p.x, p.y};
}

std::string placeText(PlanePoint at) {
  return "X = " + plainText(roundTo(narrow(at.x), kDecimals)) +
         ", Y = " + plainText(roundTo(narrow(at.y), kDecimals));
}

Entity entityOf(const PathRow& row) {
  return {row.type, {row.x0, row.y0}, {row.x1, row.y1}, {row.xc, row.yc}};
}

bool isSameWay(const LevelRows& a, const LevelRows& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(),
      [](const PathRow& one, const PathRow& other) { return entityOf(one) == entityOf(other); });
}

// ---- What is there before

// What the first rows of the table take, and the holes that they drill.
std::vector<GroundCut> tableCuts(const DrawingStore& store, int rows) {
  std::vector<GroundCut> cuts(static_cast<std::size_t>(rows));
  for (int ps = 1; ps <= rows; ++ps) {
    GroundCut& cut = cuts[static_cast<std::size_t>(ps) - 1];
    if (const auto hole = drilledHole(store, ps)) {
      cut = {{lineCurve(hole->at, hole->at)}, hole->radius, hole->z};
      continue;
    }
    const int tool = toolIndex(withoutSelection(store.pscode[ps]));
    if (tool < 0) continue;
    cut = {feedCurves(store, ps, JobKind::Contour), static_cast<double>(store.toolradius[tool]),
           static_cast<double>(store.psz[ps])};
  }
  return cuts;
}

GroundCut cutOf(const PathRow& row, double radius) {
  GroundCut cut{{}, radius, static_cast<double>(row.z)};
  if (row.z < 0) appendCurves(entityOf(row), cut.curves);
  return cut;
}

std::vector<DrilledHole> holesOf(const DrawingStore& store, int rows) {
  std::vector<DrilledHole> holes;
  for (int ps = 1; ps <= rows; ++ps) {
    if (const auto hole = drilledHole(store, ps)) holes.push_back(*hole);
  }
  return holes;
}

// The first rows of one level: what they take as they are cut one after the other.
class LevelGround {
 public:
  LevelGround(std::vector<GroundCut> before, std::span<const PathRow> rows, double radius)
      : before_(static_cast<int>(before.size())), ground_(joined(std::move(before), rows, radius)) {
    std::vector<Curve> curves;
    for (std::size_t row = 0; row < rows.size(); ++row) {
      appendCurves(entityOf(rows[row]), curves);
      rowOf_.resize(curves.size(), static_cast<int>(row));
    }
    ways_ = CurveIndex(std::move(curves));
  }

  // How deep it is below a tool at a place when `row` comes, from 0, which may be the one behind
  // them; all the way down where the rows of the level have been.
  double depthBelow(PlanePoint at, double radius, int row) const {
    int effort = 0;
    return ground_.depthBelow(at, radius, before_ + row + 1, effort);
  }

  // Places on the rows before `row`, within `distance`, the nearest first.
  std::vector<PlanePoint> placesBefore(PlanePoint at, double distance, int row) const {
    std::vector<int> near;
    ways_.candidates(lineCurve(at, at), distance, near);
    std::vector<std::pair<double, PlanePoint>> places;
    for (const int way : near) {
      if (rowOf_[static_cast<std::size_t>(way)] >= row) break;
      const PlanePoint place = nearestOn(ways_.curves()[static_cast<std::size_t>(way)], at).at;
      places.emplace_back(normOf(place - at), place);
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<PlanePoint> sorted;
    for (const auto& [away, place] : places) sorted.push_back(place);
    return sorted;
  }

 private:
  static std::vector<GroundCut> joined(std::vector<GroundCut> cuts, std::span<const PathRow> rows,
                                       double radius) {
    cuts.reserve(cuts.size() + rows.size());
    for (const PathRow& row : rows) {
      cuts.push_back(cutOf(row, radius));
      cuts.back().z = kAllTheWayDown;
    }
    return cuts;
  }

  int before_;
  ClearedGround ground_;
  CurveIndex ways_;
  std::vector<int> rowOf_;  // by ways
};

// ---- Pieces and their ways in

// Rows without a gap, and how a tool gets to the first of them.
struct Piece {
  int first = 0, end = 0;  // rows of a level, from 0; the second is behind the last
  PlanePoint start;
  double ground = 0;          // how deep it is cleared below the start before the path is cut
  std::vector<Curve> lead{};  // flat, from cleared ground
  std::vector<Curve> ramp{};  // what a ramp goes to and fro along
  bool rampIsAside = false;   // that is none of the piece's rows
  std::optional<PlanePoint> helix{};  // its centre
  bool isLoop = false;                // the helix lies where the path begins with a loop
};

struct EntryRules {
  EntryKind kind;
  double radius;  // of the tool
  double helix;   // radius
  int turn;       // of helices
  double slope, step;
  float feed;  // 0: that of the row
  float tolerence;
};

EntryRules rulesOf(const DrawingStore& store) {
  const double radius = store.toolradius[store.selectedtool];
  const float asked = store.cfg_entry_feedrate;
  return {
      .kind = entryKind(store),
      .radius = radius,
      .helix = store.cfg_entry_radius > 0 ? double{store.cfg_entry_radius} : kHelixShare * radius,
      .turn = cuttingMode(store) == CuttingMode::Conventional ? -1 : 1,
      .slope = std::tan(store.cfg_entry_angle * std::numbers::pi / 180),
      .step = entryStep(store),
      .feed = asked > 0 ? asked : std::max(0.0F, float{store.cfg_z_plunge_rate}),
      .tolerence = store.cfg_tolerance};
}

class PieceFinder {
 public:
  // A path in front of row `index` of the table, and its deepest level.
  struct Path {
    int index = 1;
    double floor = 0;
  };
  PieceFinder(const DrawingStore& store, const EntryField& field, std::vector<GroundCut> before,
              const Path& path)
      : field_(field), rules_(rulesOf(store)), before_(std::move(before)), floor_(path.floor) {
    const bool isPicked = rules_.kind == EntryKind::HoleAtMarker;
    if (!isPicked && rules_.kind != EntryKind::NearestHole) return;
    holes_.emplace(holesOf(store, path.index - 1),
                   HoleWays::Rules{.isPicked = isPicked,
                                   .marker = {store.markerx, store.markery},
                                   .radius = rules_.radius,
                                   .floor = path.floor,
                                   .isClear = [this](const Curve& way) { return isClear(way); },
                                   .tracks = field.tracks});
  }
  PieceFinder(const PieceFinder&) = delete;
  PieceFinder& operator=(const PieceFinder&) = delete;

  std::vector<Piece> piecesOf(const LevelRows& rows, const Breathing& breathing) {
    std::vector<Piece> pieces;
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
      const bool goesOn =
          row > 0 && samePoint(endOf(rows, row - 1), startOf(rows, row), rules_.tolerence);
      if (!goesOn) pieces.push_back({row, row, placeOf(startOf(rows, row))});
      pieces.back().end = row + 1;
    }
    if (pieces.empty()) return pieces;
    // What comes behind the start of the last piece no piece finds cleared.
    const auto cutBefore = static_cast<std::size_t>(pieces.back().first);
    const LevelGround ground(before_, std::span(rows).first(cutBefore), rules_.radius);
    for (Piece& piece : pieces) {
      breathe(breathing);
      findWay(piece, rows, ground);
    }
    return pieces;
  }

  std::vector<std::string> notes;

 private:
  static Point startOf(const LevelRows& rows, int row) {
    const PathRow& of = rows[static_cast<std::size_t>(row)];
    return {of.x0, of.y0};
  }
  static Point endOf(const LevelRows& rows, int row) {
    const PathRow& of = rows[static_cast<std::size_t>(row)];
    return {of.x1, of.y1};
  }

  bool isClear(const Curve& curve, double distance) const {
    return field_.isClear(curve, distance - kPlacedSlack);
  }
  bool isClear(const Curve& curve) const { return isClear(curve, field_.distance); }

  void findWay(Piece& piece, const LevelRows& rows, const LevelGround& ground) {
    piece.ground = ground.depthBelow(piece.start, rules_.radius, piece.first);
    if (piece.ground <= floor_ + kSameDepth) return;
    const bool beginsWithLoop = field_.isLimited && isLoop(piece, rows);
    if (!beginsWithLoop && leadFromCleared(piece, ground)) return;
    if (holes_ && leadFromHole(piece)) return;
    if (beginsWithLoop) return goRoundLoop(piece, rows);
    if (rules_.kind == EntryKind::Helix && goRound(piece, rows)) return;
    goToAndFro(piece, rows);
  }

  // Beside what was cleared at the level, by the nearest way that is clear.
  bool leadFromCleared(Piece& piece, const LevelGround& ground) const {
    constexpr std::size_t kTries = 8;
    for (const double reach : {2.2, 8.0}) {
      std::vector<PlanePoint> places =
          ground.placesBefore(piece.start, reach * rules_.radius, piece.first);
      if (places.size() > kTries) places.resize(kTries);
      for (const PlanePoint place : places) {
        const Curve way = lineCurve(place, piece.start);
        if (!isClear(way)) continue;
        piece.lead = {way};
        return true;
      }
    }
    return false;
  }

  bool leadFromHole(Piece& piece) {
    HoleStart start = holes_->startFor(piece.start);
    piece.lead = std::move(start.way);
    if (piece.lead.empty()) note(start.trouble + "  The tool goes down by a ramp.");
    return !piece.lead.empty();
  }

  // Through the start, on whichever side there is room: first left and right of the way, then all
  // round.
  bool goRound(Piece& piece, const LevelRows& rows) {
    constexpr int kSides = 24;
    std::vector<Curve> first;
    appendCurves(entityOf(rows[static_cast<std::size_t>(piece.first)]), first);
    const PlanePoint along = first.empty() ? PlanePoint{1, 0} : directionAt(first.front(), 0);
    for (int side = 0; side < kSides; ++side) {
      const int step = side % 2 == 0 ? side / 2 : side / 2 + kSides / 2;
      const double angle = std::numbers::pi / 2 + 2 * std::numbers::pi * step / kSides;
      const PlanePoint toward{along.x * std::cos(angle) - along.y * std::sin(angle),
                              along.x * std::sin(angle) + along.y * std::cos(angle)};
      if (goRoundAt(piece, toward)) return true;
    }
    noteHelix(piece);
    return false;
  }

  bool goRoundAt(Piece& piece, PlanePoint toward) const {
    const PlanePoint center = piece.start + rules_.helix * toward;
    const std::vector<Curve> circle = helixCircle(piece.start, center, rules_.turn);
    if (!std::all_of(circle.begin(), circle.end(),
                     [this](const Curve& half) { return isClear(half); })) {
      return false;
    }
    piece.helix = center;
    return true;
  }

  void noteHelix(const Piece& piece) {
    note("A helix of radius " + plainText(roundTo(narrow(rules_.helix), kDecimals)) +
         " does not fit at " + placeText(piece.start) + ".  The tool goes down by a ramp.");
  }

  // A path with an engagement limit begins with a loop of its own: the tool goes down round that,
  // or round a helix which lies where the loop does. A ramp to and fro would leave a floor that
  // takes the whole width.
  void goRoundLoop(Piece& piece, const LevelRows& rows) {
    const PlanePoint center = centerOf(rows[static_cast<std::size_t>(piece.first)]);
    piece.isLoop = true;
    if (rules_.kind == EntryKind::Helix) {
      const PlanePoint toCenter = center - piece.start;
      if (goRoundAt(piece, (1 / normOf(toCenter)) * toCenter)) return;
      noteHelix(piece);
    }
    piece.helix = center;
  }

  static PlanePoint centerOf(const PathRow& row) { return {row.xc, row.yc}; }

  // Two arcs that come back.
  bool isLoop(const Piece& piece, const LevelRows& rows) const {
    if (piece.end - piece.first < 2) return false;
    const PathRow& there = rows[static_cast<std::size_t>(piece.first)];
    const PathRow& back = rows[static_cast<std::size_t>(piece.first) + 1];
    return there.type >= kClockwiseArc && back.type == there.type && back.xc == there.xc &&
           back.yc == there.yc && back.x1 == there.x0 && back.y1 == there.y0;
  }

  // Along the first row, and as many of the next as make up the width of the tool.
  void goToAndFro(Piece& piece, const LevelRows& rows) {
    std::vector<Curve> way;
    for (int row = piece.first; row < piece.end; ++row) {
      appendCurves(entityOf(rows[static_cast<std::size_t>(row)]), way);
      if (lengthOfWay(way) >= 2 * rules_.radius) break;
    }
    if (lengthOfWay(way) < rules_.radius) goAside(piece, way);
    const bool fits = lengthOfWay(way) >= kShortestRamp * rules_.radius &&
                      std::all_of(way.begin(), way.end(), [this](const Curve& curve) {
                        return isClear(curve, rules_.radius);
                      });
    if (fits) {
      piece.ramp = std::move(way);
    } else {
      note("A ramp does not fit at " + placeText(piece.start) +
           ".  The tool goes straight down there.");
    }
  }

  // A longer way than that along a short piece: some line from its start, where there is room.
  void goAside(Piece& piece, std::vector<Curve>& way) const {
    constexpr int kSides = 24;
    for (double length = 2 * rules_.radius;
         length > std::max(lengthOfWay(way), kShortestRamp * rules_.radius); length /= 2) {
      for (int side = 0; side < kSides; ++side) {
        const double angle = 2 * std::numbers::pi * side / kSides;
        const PlanePoint end = piece.start + length * PlanePoint{std::cos(angle), std::sin(angle)};
        const Curve line = lineCurve(piece.start, end);
        if (!isClear(line)) continue;
        way = {line};
        piece.rampIsAside = true;
        return;
      }
    }
  }

  void note(const std::string& text) {
    if (std::find(notes.begin(), notes.end(), text) == notes.end()) notes.push_back(text);
  }

  const EntryField& field_;
  EntryRules rules_;
  std::vector<GroundCut> before_;
  double floor_;
  std::optional<HoleWays> holes_;
};

// ---- Rows

class LevelWriter {
 public:
  LevelWriter(const EntryRules& rules, const LevelRows& rows) : rules_(rules), rows_(rows) {}

  // The rows of the level behind another that ended at `above`; with nothing above it is 0.
  LevelRows written(const std::vector<Piece>& pieces, double above) {
    LevelRows level;
    for (const Piece& piece : pieces) {
      enter(piece, above, level);
      level.insert(level.end(), rows_.begin() + piece.first, rows_.begin() + piece.end);
      if (isTooLong(level.size())) break;
    }
    return level;
  }

 private:
  static bool isTooLong(std::size_t rows) { return rows > kMostRows; }

  void enter(const Piece& piece, double above, LevelRows& level) const {
    const PathRow& first = rows_[static_cast<std::size_t>(piece.first)];
    const double top = std::min(above, piece.ground);
    const EntryDrop drop{top, first.z, rules_.step, rules_.slope};
    if (!piece.lead.empty() && drop.depth() > kSameDepth) {
      append(piece.lead, first.z, first.feed, level);
    }
    if (drop.depth() <= drop.step + kSameDepth) return;
    if (piece.isLoop) {
      appendLoopEntry(piece, drop, first, level);
    } else if (piece.helix) {
      const double radius = normOf(*piece.helix - piece.start);
      appendStairs(helixRows(radius, drop), level, first,
                   [&] { return helixStairs(piece.start, *piece.helix, rules_.turn, drop); });
    } else if (!piece.ramp.empty()) {
      appendStairs(rampRows(lengthOfWay(piece.ramp), drop), level, first,
                   [&] { return rampStairs(piece.ramp, drop); });
      if (piece.rampIsAside) {
        append(piece.ramp, first.z, first.feed, level);
        append(turnedRound(piece.ramp), first.z, first.feed, level);
      }
    }
  }

  // Down round the loop, flat a step above its bottom, and flat there: no thick floor is left.
  void appendLoopEntry(const Piece& piece, const EntryDrop& drop, const PathRow& first,
                       LevelRows& level) const {
    EntryDrop above = drop;
    above.bottom += drop.step;
    const double radius = normOf(*piece.helix - piece.start);
    appendStairs(helixRows(radius, above), level, first,
                 [&] { return helixStairs(piece.start, *piece.helix, rules_.turn, above); });
    if (isTooLong(level.size())) return;
    append(helixCircle(piece.start, *piece.helix, rules_.turn), first.z, first.feed, level);
  }

  // More rows than a table holds are not made: what is there is too long then in any case.
  template <typename Make>
  void appendStairs(double rows, LevelRows& level, const PathRow& first, Make make) const {
    if (rows > kMostRows) {
      level.resize(std::size_t{kMostRows} + 1);
      return;
    }
    const float feed = rules_.feed > 0 ? rules_.feed : first.feed;
    for (const EntryStair& stair : make()) append(stair.curves, stair.z, feed, level);
  }

  static void append(const std::vector<Curve>& curves, double z, float feed, LevelRows& level) {
    RegionRows rows([](const Curve&) { return true; });  // they were tested as a whole
    rows.add(curves);
    for (const Entity& entity : rows.rows()) level.push_back(pathRowOf(entity, narrow(z), feed));
  }

  const EntryRules& rules_;
  const LevelRows& rows_;
};

double floorOf(const std::vector<LevelRows>& levels) {
  double floor = 0;
  for (const LevelRows& level : levels) {
    for (const PathRow& row : level) floor = std::min(floor, static_cast<double>(row.z));
  }
  return floor;
}

// Fewer levels than there were when no table can hold them.
std::vector<LevelRows> enteredLevels(PieceFinder& finder, const EntryRules& rules,
                                     const std::vector<LevelRows>& levels,
                                     const Breathing& breathing) {
  std::vector<LevelRows> entered;
  std::vector<Piece> pieces;
  std::size_t rows = 0;
  for (std::size_t k = 0; k < levels.size() && rows <= kMostRows; ++k) {
    const bool isCopy = k > 0 && isSameWay(levels[k], levels[k - 1]);
    if (!isCopy) pieces = finder.piecesOf(levels[k], breathing);
    const double above = isCopy && !levels[k].empty() ? double{levels[k - 1].front().z} : 0;
    entered.push_back(LevelWriter(rules, levels[k]).written(pieces, above));
    rows += entered.back().size();
  }
  return entered;
}

// False, after the message.
bool refused(CamContext& cam, const std::string& command, const std::string& text) {
  cam.context.session.host.prompts.showMessage(
      {.text = text, .title = command, .icon = MessageIcon::Warning});
  return false;
}

}  // namespace

double entryStep(const DrawingStore& store) {
  return isMetric(store) ? kStepMm : kStepInch;
}

bool wantsEntries(const DrawingStore& store) {
  return store.cfg_true_paths && entryKind(store) != EntryKind::Plunge;
}

bool entriesArePossible(CamContext& cam, const std::string& command) {
  const DrawingStore& store = cam.store;
  if (!wantsEntries(store)) return true;
  const auto refuse = [&](const std::string& what, float number, const std::string& rule) {
    return refused(cam, command,
                   "The " + what + " is " + plainText(number) + ".  It must " + rule +
                       "\n\nNothing was placed.  It is set in Pocketing & Profiling Parameters.");
  };
  const float angle = store.cfg_entry_angle;
  if (!(angle >= kFlattest && angle <= kSteepest)) {
    return refuse("Ramp Angle", angle, "be from 0.1 to 45 degrees.");
  }
  if (!(store.cfg_entry_radius >= 0)) {
    return refuse("Helix Radius", store.cfg_entry_radius, "not be below 0.");
  }
  if (!(store.cfg_entry_feedrate >= 0)) {
    return refuse("Entry Feed Rate", store.cfg_entry_feedrate, "not be below 0.");
  }
  return true;
}

EntryPlanner::EntryPlanner(CamContext& cam, std::string command, EntryField field, int index,
                           const Breathing& breathing)
    : cam_(cam),
      command_(std::move(command)),
      field_(std::move(field)),
      index_(index),
      breathing_(breathing) {}

std::optional<std::vector<LevelRows>> EntryPlanner::entered(std::vector<LevelRows> levels) {
  if (!wantsEntries(cam_.store)) return levels;
  std::vector<GroundCut> before = tableCuts(cam_.store, index_ - 1);
  const double radius = cam_.store.toolradius[cam_.store.selectedtool];
  before.reserve(before.size() + planned_.size());
  for (const PathRow& row : planned_) before.push_back(cutOf(row, radius));
  PieceFinder finder(cam_.store, field_, std::move(before), {index_, floorOf(levels)});
  std::vector<LevelRows> path = enteredLevels(finder, rulesOf(cam_.store), levels, breathing_);
  for (const LevelRows& level : path) {
    planned_.insert(planned_.end(), level.begin(), level.end());
  }
  if (planned_.size() + cam_.store.NumPathSegments > kMostRows) {
    refused(cam_, command_,
            "The path has too many rows with its ways into the material.\n\nNothing was placed.  "
            "A steeper Ramp Angle needs fewer.");
    return std::nullopt;
  }
  for (const std::string& note : finder.notes) {
    if (std::find(notes_.begin(), notes_.end(), note) == notes_.end()) notes_.push_back(note);
  }
  return path;
}

void tellEntries(CamContext& cam, const std::string& command,
                 const std::vector<std::string>& notes) {
  constexpr std::size_t kMostNotes = 5;
  if (notes.empty()) return;
  std::string text;
  for (std::size_t k = 0; k < std::min(notes.size(), kMostNotes); ++k) {
    text += (k == 0 ? "" : "\n") + notes[k];
  }
  if (notes.size() > kMostNotes) {
    text += "\nand " + std::to_string(notes.size() - kMostNotes) + " more";
  }
  refused(cam, command, text);
}

}  // namespace tess
