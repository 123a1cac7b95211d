// Rows, lengths and times of the path, from the motions of the program.
#include "cnc/path_report.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "cnc/program_motions.h"
#include "core/conventions.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

Point flat(ToolPlace place) {
  return {place.x, place.y};
}

double lengthOf(const FeedMove& move) {
  return distance(flat(move.from), flat(move.to));
}

double lengthOf(const ArcMove& arc) {
  const ArcAngles angles =
      arcRadiusAndAngles(flat(arc.from), flat(arc.to), {arc.centerx, arc.centery});
  return std::abs(double{angles.radius} * ArcSweep(angles.start, angles.end, arc.type));
}

class ReportReader : public MotionReader {
 public:
  void read(const MotionEvent& event) override {
    std::visit([this](const auto& told) { note(told); }, event);
  }

  PathReport report;

 private:
  void note(const RowStart& start) {
    share_ = placeOf(start.tool - 1);
    ++report.tools[share_].rows;
  }
  // A mill feeds along the rapids of the lathe style too, but nobody means them as cuts.
  void note(const FeedMove& move) {
    if (move.to.z != kLatheRapidZ) addCut(lengthOf(move), move.feed);
  }
  void note(const ArcMove& arc) { addCut(lengthOf(arc), arc.feed); }
  void note(const CycleRun& cycle) { addCut(cycle.depth, cycle.feed); }
  // They take time of their own, which is not counted.
  void note(const ToolChange&) {}
  void note(const RapidMove&) {}
  void note(const Dwell&) {}
  void note(const SpindleStop&) {}
  void note(const SpindleStart&) {}
  void note(const PlungeMove&) {}
  void note(const ProgramStart&) {}
  void note(const ProgramEnd&) { addUp(); }

  void addCut(double length, float feed) {
    ToolShare& share = report.tools[share_];
    share.length += length;
    if (feed > 0) share.minutes += length / feed;
  }

  std::size_t placeOf(int tool) {
    const auto found = std::ranges::find(report.tools, tool, &ToolShare::tool);
    const auto place = static_cast<std::size_t>(found - report.tools.begin());
    if (found == report.tools.end()) report.tools.push_back({.tool = tool});
    return place;
  }

  void addUp() {
    for (const ToolShare& share : report.tools) {
      report.rows += share.rows;
      report.length += share.length;
      report.minutes += share.minutes;
    }
  }

  std::size_t share_ = 0;  // of the row at hand
};

}  // namespace

// As a mill makes them: drawings do not tell for which machine they are, and only the moves from
// row to row differ in time.
PathReport reportPaths(const DrawingStore& store) {
  ReportReader reader;
  tellMotions(store, CncMode::Mill, reader);
  return reader.report;
}

}  // namespace tess
