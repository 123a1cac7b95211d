// The moving part of a program: the pass over the path rows.
#include "cnc/program_body.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/number_text.h"
#include "geometry/angles.h"

namespace tess {
namespace {

constexpr float kHalfTurn = 180;
constexpr float kFullTurn = 360;
constexpr std::array kCyclesWithoutDwell{79, 81, 83, 87};

// Degrees as 32-bit values, so that a half turn is exactly 180 in every quadrant.
float degreesAbout(Point centre, Point point) {
  return static_cast<float>(vectorAngle(centre, point) * (kHalfTurn / kPi));
}

float sweepDegrees(const PathRow& row) {
  const Point centre{row.xc, row.yc};
  float a0 = degreesAbout(centre, {row.x0, row.y0});
  float a1 = degreesAbout(centre, {row.x1, row.y1});
  if (row.type == kClockwiseArc) {
    if (a0 < a1) a0 += kFullTurn;
    return a0 - a1;
  }
  if (a1 < a0) a1 += kFullTurn;
  return a1 - a0;
}

// A row takes tens of bytes. Formats and texts that make thousands of it come from a damaged
// definition and would fill the disk.
void refuseOverlong(const std::string& program) {
  constexpr std::size_t kMostMegabytes = 64;
  if (program.size() <= kMostMegabytes << 20U) return;
  throw RuntimeFailure(FailureNumber::Overflow, {},
                       "The program is longer than " + std::to_string(kMostMegabytes) +
                           " MB: a number format or the comment text of the post-processor "
                           "definition is far too long");
}

// Runs the work on one path row; a failure of it says which row it was.
template <typename Work>
void inRow(int ps, Work work) {
  try {
    work();
  } catch (const RuntimeFailure& failure) {
    throw RuntimeFailure(failure.number(),
                         "path row " + std::to_string(ps) +
                             (failure.source().empty() ? "" : ": " + failure.source()),
                         failure.description());
  }
}

}  // namespace

std::string ProgramBody::cycleWord(const PathRow& row) {
  const int number = row.type % 100;
  return std::string(number < 10 ? "G0" : "G") + std::to_string(number);
}

float ProgramBody::cycleDwell(const PathRow& row) {
  return std::ranges::count(kCyclesWithoutDwell, row.type) > 0 ? 0 : row.yc;
}

ProgramBody::ProgramBody(const Session& session, const PostDefinition& definition,
                         LastMove& lastmove, std::string& out)
    : store(session.store),
      definition_(definition),
      format_(session, definition),
      lastmove_(lastmove),
      out_(out),
      text_(out, definition) {}

void ProgramBody::write() {
  inRow(1, [this] { start(); });
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    inRow(ps, [this, ps] {
      writeRow(pathRow(store, ps));
      refuseOverlong(out_);
    });
  }
  if (firsttool_ != tool) resetToFirstTool();
}

void ProgramBody::start() {
  const PathRow row = pathRow(store, 1);
  text_.line(isMetric(store) ? "G71" : "G70");
  text_.line("G90");
  text_.line("G75");
  put({.resetOnly = true});
  moveTo({store.xstartpos, store.ystartpos});
  curz = store.zstartpos;
  firsttool_ = lasttool_ = tool = toolIndex(row.code) + 1;
  text_.remark("");
  announceTool(firsttool_);
  if (store.autocomments != 0) {
    text_.remark("");
    text_.remark("-- Begin Machine Movement Here.");
  }
  if (isContourMove(row)) beginMovement(row);
}

void ProgramBody::beginMovement(const PathRow& row) {
  moveTo(startOf(row));
  curz = store.zstartpos;
  moveToFirstRow(row);
}

void ProgramBody::announceTool(int number) {
  text_.title("     << Tool #" + std::to_string(number) + " code >>");
  selectTool(number);
  const float speed = store.toolspindlespeed[number - 1];
  if (speed > 0) text_.line("M03 S" + plainText(speed));
}

void ProgramBody::selectTool(int number) {
  text_.line("M06 T" + std::to_string(number));
}

void ProgramBody::writeRow(const PathRow& row) {
  tool = toolIndex(row.code) + 1;
  if (tool != lasttool_) {
    changeTool(row);
    lasttool_ = tool;
  }
  approach(row);
  if (row.type == kRapid) writeRapid(row);
  if (row.type == kLine) writeStraight(row);
  if (row.type == kClockwiseArc) writeArc(row, "G02");
  if (row.type == kCounterClockwiseArc) writeArc(row, "G03");
  if (row.type >= kFirstCycle) writeCycle(row);
}

void ProgramBody::writeRapid(const PathRow& row) {
  moveTo(endOf(row));
  curz = row.z;
  put(lineHere("G00"));
}

void ProgramBody::writeStraight(const PathRow& row) {
  const std::string_view g = straightWord(row);
  moveTo(endOf(row));
  curz = row.z;
  MotionLine line = lineHere(g);
  line.feed = row.feed;
  put(std::move(line));
}

void ProgramBody::writeArc(const PathRow& row, std::string_view g) {
  if (!isHere(startOf(row))) approachArc(row);
  moveTo(endOf(row));
  curz = row.z;
  const ArcCentre centre = centreOf(row);
  MotionLine line = lineHere(g);
  setCentre(line, centre);
  line.feed = row.feed;
  line.r = radiusWord(row, centre);
  put(std::move(line));
}

// With radius words the centre is always an offset: the radius comes from it.
ArcCentre ProgramBody::centreOf(const PathRow& row) const {
  if (definition_.absCenter && !store.userparamforarcs) return {row.xc, row.yc};
  return {row.xc - row.x0, row.yc - row.y0};
}

// 0 where the arc shows its centre: a full circle has no radius word. Negative for the long way
// round.
float ProgramBody::radiusWord(const PathRow& row, ArcCentre offset) const {
  const float tolerence = store.cfg_tolerance;
  if (!store.userparamforarcs || samePoint(startOf(row), endOf(row), tolerence)) return 0;
  const double i = offset.arci;
  const double j = offset.arcj;
  const auto radius = static_cast<float>(std::sqrt(i * i + j * j));
  if (radius < tolerence) return 0;
  return sweepDegrees(row) > kHalfTurn ? -radius : radius;
}

void ProgramBody::resetToFirstTool() {
  text_.title("     << Reset to first tool used.  Tool #" + std::to_string(firsttool_) + " >>");
  text_.line("M05");
  selectTool(firsttool_);
  text_.remark("");
}

}  // namespace tess
