// Lines of a room in columns: runs of spans over one another, each cut line by line.
#include "toolpath/true_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace tess {
namespace {

PlanePoint mirrored(PlanePoint p) {
  return {p.y, p.x};
}

Curve mirrored(const Curve& curve) {
  return {mirrored(curve.start), mirrored(curve.end), mirrored(curve.center), curve.radius,
          -curve.turn};
}

// Vertical lines are horizontal ones of the part mirrored on its diagonal.
LevelBands bandsOf(const PocketRegion& offset, ScanStyle style) {
  if (style != ScanStyle::Vertical) return LevelBands(offset.walls());
  std::vector<Curve> walls = offset.walls();
  for (Curve& wall : walls) wall = mirrored(wall);
  return LevelBands(walls);
}

PlanePoint placeAt(ScanStyle style, double line, double along) {
  return style == ScanStyle::Vertical ? PlanePoint{line, along} : PlanePoint{along, line};
}

// The spans of one room, line by line.
using RoomSpans = std::vector<std::vector<ClearSpan>>;

class Scanner {
 public:
  Scanner(const PocketRegion& offset, ScanStyle style, double step)
      : bands_(bandsOf(offset, style)), step_(step) {}

  double bound() const { return bands_.lowest(); }
  int lines() const {
    const double count = std::ceil((bands_.highest() - bands_.lowest()) / step_ - 0.5);
    return static_cast<int>(std::max(0.0, count));
  }
  double line(int number) const { return bands_.lowest() + step_ / 2 + number * step_; }

  // The crossings of a line, by the room of the wall and along the line.
  template <typename RoomOf, typename Visit>
  void spansOf(int number, RoomOf roomOf, Visit visit) {
    bands_.crossingsAt(line(number), found_);
    std::sort(found_.begin(), found_.end(), [&](const LevelCrossing& a, const LevelCrossing& b) {
      const int roomA = roomOf(a.curve);
      const int roomB = roomOf(b.curve);
      return roomA != roomB ? roomA < roomB : a.x < b.x;
    });
    for (std::size_t k = 0; k + 1 < found_.size(); k += 2) {
      if (found_[k].x < found_[k + 1].x) {
        visit(roomOf(found_[k].curve), ClearSpan{line(number), found_[k].x, found_[k + 1].x});
      }
    }
  }

 private:
  LevelBands bands_;
  double step_;
  std::vector<LevelCrossing> found_;
};

// ---- Columns

struct Column {
  std::vector<ClearSpan> spans;  // on consecutive lines
};

bool overlap(const ClearSpan& a, const ClearSpan& b) {
  return a.from < b.to && b.from < a.to;
}

// For each span of a line, how many of another line it overlaps, and the last of these.
struct Overlaps {
  int count = 0;
  std::size_t other = 0;
};

std::vector<Overlaps> overlapsOf(const std::vector<ClearSpan>& line,
                                 const std::vector<ClearSpan>& others) {
  std::vector<Overlaps> all(line.size());
  std::size_t first = 0;
  for (std::size_t k = 0; k < line.size(); ++k) {
    while (first < others.size() && others[first].to <= line[k].from) ++first;
    for (std::size_t o = first; o < others.size() && others[o].from < line[k].to; ++o) {
      if (overlap(line[k], others[o])) all[k] = {all[k].count + 1, o};
    }
  }
  return all;
}

// A span goes on with the next line's where each overlaps the other and nothing else.
std::vector<Column> columnsOf(const RoomSpans& room) {
  std::vector<Column> columns;
  std::vector<std::size_t> open;  // the column that each span of the last line stands in
  for (std::size_t line = 0; line < room.size(); ++line) {
    const std::vector<ClearSpan>& spans = room[line];
    const std::vector<ClearSpan> none;
    const std::vector<ClearSpan>& before = line > 0 ? room[line - 1] : none;
    const std::vector<Overlaps> down = overlapsOf(spans, before);
    const std::vector<Overlaps> up = overlapsOf(before, spans);
    std::vector<std::size_t> column(spans.size());
    for (std::size_t k = 0; k < spans.size(); ++k) {
      const bool goesOn = down[k].count == 1 && up[down[k].other].count == 1;
      column[k] = goesOn ? open[down[k].other] : columns.size();
      if (!goesOn) columns.emplace_back();
      columns[column[k]].spans.push_back(spans[k]);
    }
    open = std::move(column);
  }
  return columns;
}

// ---- The order of a room

// A way to cut a column: from which of its ends, and which way along the first line.
struct Entry {
  bool falling = false;
  int direction = 1;
};

class RoomCutter {
 public:
  RoomCutter(const PocketRegion& offset, const LineRules& rules, RoomWay& way,
             const Breathing& breathing)
      : offset_(offset), rules_(rules), way_(way), breathing_(breathing) {}

  void cutColumns(std::vector<Column> columns) {
    std::vector<std::size_t> left(columns.size());
    for (std::size_t k = 0; k < left.size(); ++k) left[k] = k;
    while (!left.empty()) {
      breathe(breathing_);
      const auto [at, entry] = nearest(columns, left);
      cutColumn(columns[left[at]], entry);
      left.erase(left.begin() + static_cast<std::ptrdiff_t>(at));
    }
  }

  void cutContours(const Room& room) {
    std::vector<int> left = room.holes;
    cutLoop(room.outer);
    while (!left.empty()) {
      const auto next = std::min_element(left.begin(), left.end(), [this](int a, int b) {
        return fromTool(startOf(a)) < fromTool(startOf(b));
      });
      cutLoop(*next);
      left.erase(next);
    }
  }

 private:
  // As stated for the lines of one way: rising, and against the other way for climb milling.
  int statedDirection() const {
    const int forward = rules_.style == ScanStyle::Vertical ? -1 : 1;
    return rules_.mode == CuttingMode::Climb ? -forward : forward;
  }
  bool turns() const { return rules_.mode == CuttingMode::Bidirectional; }

  std::vector<Entry> entries() const {
    if (!turns()) return {{false, statedDirection()}};
    return {{false, statedDirection()},
            {false, -statedDirection()},
            {true, statedDirection()},
            {true, -statedDirection()}};
  }

  PlanePoint startOf(const Column& column, const Entry& entry) const {
    const ClearSpan& span = entry.falling ? column.spans.back() : column.spans.front();
    return placeAt(rules_.style, span.line, entry.direction > 0 ? span.from : span.to);
  }
  PlanePoint startOf(int loop) const {
    return offset_.loops()[static_cast<std::size_t>(loop)].curves.front().start;
  }
  double fromTool(PlanePoint at) const { return normOf(at - way_.place()); }

  std::pair<std::size_t, Entry> nearest(const std::vector<Column>& columns,
                                        const std::vector<std::size_t>& left) const {
    std::pair<std::size_t, Entry> best;
    double least = -1;
    for (std::size_t k = 0; k < left.size(); ++k) {
      for (const Entry& entry : entries()) {
        const double distance = fromTool(startOf(columns[left[k]], entry));
        if (least >= 0 && distance >= least) continue;
        least = distance;
        best = {k, entry};
      }
    }
    return best;
  }

  void cutColumn(Column& column, Entry entry) {
    if (entry.falling) std::reverse(column.spans.begin(), column.spans.end());
    int direction = entry.direction;
    for (const ClearSpan& span : column.spans) {
      breathe(breathing_);
      const PlanePoint low = placeAt(rules_.style, span.line, span.from);
      const PlanePoint high = placeAt(rules_.style, span.line, span.to);
      way_.cut({direction > 0 ? lineCurve(low, high) : lineCurve(high, low)}, /*linked=*/linked_,
               &offset_);
      linked_ = true;
      if (turns()) direction = -direction;
    }
  }

  void cutLoop(int number) {
    breathe(breathing_);
    const RegionLoop& loop = offset_.loops()[static_cast<std::size_t>(number)];
    const RegionLoop way = rules_.mode == CuttingMode::Conventional ? reversedLoop(loop) : loop;
    way_.cut(loopFrom(way, nearestPlace(way, way_.place())), linked_, &offset_);
    linked_ = true;
  }

  const PocketRegion& offset_;
  const LineRules& rules_;
  RoomWay& way_;
  const Breathing& breathing_;
  bool linked_ = false;  // no link leads from one room into another
};

}  // namespace

double lineCount(const PocketRegion& offset, ScanStyle style, double step) {
  const LevelBands bands = bandsOf(offset, style);
  return (bands.highest() - bands.lowest()) / step;
}

LineScan scanRegion(const PocketRegion& offset, ScanStyle style, double step,
                    const Breathing& breathing) {
  Scanner scanner(offset, style, step);
  LineScan scan{scanner.bound(), {}};
  for (int number = 0; number < scanner.lines(); ++number) {
    breathe(breathing);
    std::vector<ClearSpan>& line = scan.lines.emplace_back();
    scanner.spansOf(
        number, [](int) { return 0; },
        [&line](int, const ClearSpan& span) { line.push_back(span); });
  }
  return scan;
}

void cutLines(const PocketRegion& offset, const LineRules& rules, RoomWay& way,
              const Breathing& breathing) {
  const std::vector<Room> rooms = roomsOf(offset);
  std::vector<int> roomOfLoop(offset.loops().size(), 0);
  for (std::size_t k = 0; k < rooms.size(); ++k) {
    roomOfLoop[static_cast<std::size_t>(rooms[k].outer)] = static_cast<int>(k);
    for (const int hole : rooms[k].holes) {
      roomOfLoop[static_cast<std::size_t>(hole)] = static_cast<int>(k);
    }
  }
  Scanner scanner(offset, rules.style, rules.step);
  const auto roomOf = [&](int wall) {
    return roomOfLoop[static_cast<std::size_t>(offset.loopOf(wall))];
  };
  std::vector<RoomSpans> spans(rooms.size());
  std::vector<int> firstLine(rooms.size(), -1);
  for (int number = 0; number < scanner.lines(); ++number) {
    breathe(breathing);
    scanner.spansOf(number, roomOf, [&](int room, const ClearSpan& span) {
      RoomSpans& of = spans[static_cast<std::size_t>(room)];
      int& first = firstLine[static_cast<std::size_t>(room)];
      if (first < 0) first = number;
      of.resize(static_cast<std::size_t>(number - first) + 1);
      of.back().push_back(span);
    });
  }
  way.startAt(placeAt(rules.style, scanner.bound(), 0));
  for (std::size_t k = 0; k < rooms.size(); ++k) {
    RoomCutter cutter(offset, rules, way, breathing);
    cutter.cutColumns(columnsOf(spans[k]));
    if (rules.contours) cutter.cutContours(rooms[k]);
  }
}

}  // namespace tess
