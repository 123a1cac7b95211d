// Motions as the text of a program.
#include "cnc/program_writer.h"

#include <cmath>
#include <utility>
#include <variant>

#include "cnc/cnc_heading.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

constexpr float kHalfTurn = 180;
constexpr float kFullTurn = 360;

Point startOf(const ArcMove& arc) {
  return {arc.from.x, arc.from.y};
}

Point endOf(const ArcMove& arc) {
  return {arc.to.x, arc.to.y};
}

Point centerOf(const ArcMove& arc) {
  return {arc.centerx, arc.centery};
}

// Degrees as 32-bit values, so that a half turn is exactly 180 in every quadrant.
float degreesAbout(Point center, Point point) {
  return static_cast<float>(vectorAngle(center, point) * (kHalfTurn / kPi));
}

float sweepDegrees(const ArcMove& arc) {
  float a0 = degreesAbout(centerOf(arc), startOf(arc));
  float a1 = degreesAbout(centerOf(arc), endOf(arc));
  if (arc.type == kClockwiseArc) {
    if (a0 < a1) a0 += kFullTurn;
    return a0 - a1;
  }
  if (a1 < a0) a1 += kFullTurn;
  return a1 - a0;
}

// Where the centre lies from the start.
Point centerOffset(const ArcMove& arc) {
  return {arc.centerx - arc.from.x, arc.centery - arc.from.y};
}

// 0 where the arc shows its centre: a full circle has no radius word. Negative for the long way
// round.
float radiusWord(const ArcMove& arc, float tolerence) {
  if (samePoint(startOf(arc), endOf(arc), tolerence)) return 0;
  const double i = centerOffset(arc).x;
  const double j = centerOffset(arc).y;
  const auto radius = static_cast<float>(std::sqrt(i * i + j * j));
  if (radius < tolerence) return 0;
  return sweepDegrees(arc) > kHalfTurn ? -radius : radius;
}

// A row takes tens of bytes. Formats and texts that make thousands of it come from a damaged
// definition and would fill the disk.
void refuseOverlong(const std::string& program) {
  constexpr std::size_t kMaxMegabytes = 64;
  if (program.size() <= kMaxMegabytes << 20U) return;
  throw RuntimeFailure(FailureNumber::Overflow, {},
                       "The program is longer than " + std::to_string(kMaxMegabytes) +
                           " MB: a number format or the comment text of the post-processor "
                           "definition is far too long");
}

std::string cycleWord(int number) {
  return std::string(number < 10 ? "G0" : "G") + std::to_string(number);
}

}  // namespace

ProgramWriter::ProgramWriter(const Session& session, const PostDefinition& definition, CncMode mode,
                             const std::string& cncfilename, LastMove& lastmove, std::string& out)
    : session_(session),
      definition_(definition),
      mode_(mode),
      cncfilename_(cncfilename),
      lastmove_(lastmove),
      out_(out),
      format_(session, definition),
      text_(out, definition) {}

void ProgramWriter::read(const MotionEvent& event) {
  std::visit([this](const auto& told) { write(told); }, event);
  refuseOverlong(out_);
}

// Fixed: of the last program only the feed is forgotten; a word that it left stays unsaid here.
void ProgramWriter::write(const ProgramStart& start) {
  writeHeading(text_, session_, definition_, mode_, cncfilename_);
  text_.line(start.isMetric ? "G71" : "G70");
  text_.line("G90");
  text_.line("G75");
  put({.resetOnly = true});
}

void ProgramWriter::write(const RowStart&) {
  if (rows_ != nullptr) rows_->rowBegins(out_.size());
}

void ProgramWriter::endRows() {
  if (rows_ != nullptr) rows_->rowsEnd(out_.size());
  rows_ = nullptr;
}

void ProgramWriter::write(const ProgramEnd&) {
  endRows();
  text_.line(definition_.cnctrailertext);
}

void ProgramWriter::write(const ToolChange& change) {
  switch (change.occasion) {
    case ToolOccasion::First:
      return writeFirstTool(change);
    case ToolOccasion::Next:
      return startTool(change);
    case ToolOccasion::Return:
      return writeReturn(change);
  }
}

void ProgramWriter::writeFirstTool(const ToolChange& change) {
  text_.remark("");
  startTool(change);
  if (session_.store.autocomments == 0) return;
  text_.remark("");
  text_.remark("-- Begin Machine Movement Here.");
}

void ProgramWriter::writeReturn(const ToolChange& change) {
  endRows();
  text_.title("     << Reset to first tool used.  Tool #" + std::to_string(change.tool) + " >>");
  text_.line("M05");
  selectTool(change);
  text_.remark("");
}

void ProgramWriter::startTool(const ToolChange& change) {
  text_.title("     << Tool #" + std::to_string(change.tool) + " code >>");
  selectTool(change);
  if (change.spindlespeed > 0) text_.line("M03 S" + plainText(change.spindlespeed));
}

void ProgramWriter::selectTool(const ToolChange& change) {
  text_.line("M06 T" + std::to_string(change.tool));
}

// A lathe's X word is path y and its Z word path x; depths are not written.
MotionLine ProgramWriter::lineTo(std::string_view g, ToolPlace place) const {
  if (mode_ == CncMode::Lathe) return {.g = std::string(g), .x = place.y, .z = place.x};
  return {.g = std::string(g), .x = place.x, .y = place.y, .z = place.z, .useY = true};
}

void ProgramWriter::write(const RapidMove& move) {
  MotionLine line = lineTo("G00", move.to);
  line.forceXY = move.axes == MovedAxes::Place;
  line.zOnly = move.axes == MovedAxes::Height;
  put(std::move(line));
}

void ProgramWriter::write(const PlungeMove& move) {
  MotionLine line = lineTo("G01", move.to);
  line.feed = move.feed;
  put(std::move(line));
}

void ProgramWriter::write(const FeedMove& move) {
  MotionLine line = lineTo("G01", move.to);
  line.feed = move.feed;
  put(std::move(line));
}

void ProgramWriter::write(const ArcMove& arc) {
  MotionLine line = lineTo(arc.type == kClockwiseArc ? "G02" : "G03", arc.to);
  setCenter(line, arc);
  line.feed = arc.feed;
  if (format_.useRParam) line.r = radiusWord(arc, session_.store.cfg_tolerance);
  put(std::move(line));
}

// Fixed: with radius words centres are offsets; full circles have shown them so to every control.
void ProgramWriter::setCenter(MotionLine& line, const ArcMove& arc) const {
  const bool absolute = definition_.absCenter && !format_.useRParam;
  const Point center = absolute ? centerOf(arc) : centerOffset(arc);
  if (mode_ == CncMode::Lathe) {
    line.i = center.y;  // I goes with X, K with Z
    line.k = center.x;
  } else {
    line.i = center.x;
    line.j = center.y;
  }
}

// Fixed: a cycle's Z word is its depth without a sign; the control programs read it so.
// Fixed: a lathe's cycle carries a Y word of zero and no increment; the control programs skip it.
void ProgramWriter::write(const CycleRun& cycle) {
  const ToolPlace bottom{cycle.place.x, cycle.place.y, cycle.depth};
  MotionLine line = lineTo(cycleWord(cycle.number), bottom);
  line.forceXY = true;
  if (mode_ == CncMode::Mill) line.k = cycle.increment;
  line.d = cycle.dwell;
  line.feed = cycle.feed;
  put(std::move(line));
}

}  // namespace tess
