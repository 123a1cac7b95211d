// Motions as the text of a program.
#include "cnc/program_writer.h"

#include <array>
#include <cmath>
#include <utility>
#include <variant>

#include "cnc/cnc_heading.h"
#include "cnc/cycle_numbers.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/text.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

constexpr float kHalfTurn = 180;
constexpr float kFullTurn = 360;
// Cycles that controls of the ISO kind give a peck, and those that do not run without a dwell.
constexpr std::array kIsoPecks{73, 83};
constexpr std::array kIsoDwells{82, 86, 88, 89};
constexpr int kIsoTapping = 84;  // may have a dwell

Point startOf(const ArcMove& arc) {
  return {arc.from.x, arc.from.y};
}

double radiusAbout(double centerx, double centery, ToolPlace place) {
  const double x = place.x - centerx;
  const double y = place.y - centery;
  return std::sqrt(x * x + y * y);
}

// Between the holes of a run nothing else is told.
bool goesOnInCycles(const MotionEvent& event) {
  return std::holds_alternative<CycleRun>(event) || std::holds_alternative<RowStart>(event);
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

// 0 where the arc shows its centre: a full circle has no radius word, nor has one that sweeps
// further than `most` degrees. Negative for the long way round.
float radiusWord(const ArcMove& arc, float tolerence, float most) {
  if (samePoint(startOf(arc), endOf(arc), tolerence)) return 0;
  const double i = centerOffset(arc).x;
  const double j = centerOffset(arc).y;
  const auto radius = static_cast<float>(std::sqrt(i * i + j * j));
  if (radius < tolerence) return 0;
  const float sweep = sweepDegrees(arc);
  if (sweep > most) return 0;
  return sweep > kHalfTurn ? -radius : radius;
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
      dialect_(definition.dialect),
      mode_(mode),
      cncfilename_(cncfilename),
      lastmove_(lastmove),
      out_(out),
      format_(session, definition),
      text_(out, definition),
      forgets_(motionRules(definition.dialect).safeChange) {}

void ProgramWriter::read(const MotionEvent& event) {
  if (inCycles_ && !goesOnInCycles(event)) closeCycles();
  std::visit([this](const auto& told) { write(told); }, event);
  refuseOverlong(out_);
}

void ProgramWriter::block(std::string_view text) {
  const std::size_t begin = text_.beginBlock();
  text_.line(text);
  text_.endBlock(begin);
}

// Unless tool changes are to be safe:
// Fixed: of the last program only the feed is forgotten; a word that it left stays unsaid here.
void ProgramWriter::write(const ProgramStart& start) {
  writeHeading(text_, session_, definition_, mode_, cncfilename_);
  const std::string& units = start.isMetric ? dialect_.unitsMetric : dialect_.unitsInch;
  if (!units.empty()) block(units);
  writeFilled(dialect_.startText, toolIndex(session_.store.pscode[1]) + 1);
  put({.resetOnly = true});
  if (forgets_) lastmove_.forget();
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
  selectTool(change.tool, dialect_.resetText);
  text_.remark("");
}

void ProgramWriter::startTool(const ToolChange& change) {
  text_.title("     << Tool #" + std::to_string(change.tool) + " code >>");
  selectTool(change.tool, dialect_.toolText);
  if (change.spindlespeed > 0) writeFilled(dialect_.spindleText, change.tool);
}

void ProgramWriter::selectTool(int tool, const std::vector<std::string>& lines) {
  writeFilled(lines, tool);
  if (forgets_) lastmove_.forget();
}

// One line may ask for the name of a tool, or for a number of many digits, any number of times.
void ProgramWriter::writeFilled(const std::vector<std::string>& lines, int tool) {
  for (const std::string& line : lines) {
    const std::size_t begin = text_.beginBlock();
    appendFilled(out_, line, [this, tool](Placeholder placeholder) {
      appendPlaceholder(placeholder, tool);
      refuseOverlong(out_);
    });
    text_.line("");
    text_.endBlock(begin);
  }
}

void ProgramWriter::appendPlaceholder(Placeholder placeholder, int tool) {
  const DrawingStore& store = session_.store;
  switch (placeholder) {
    case Placeholder::Tool:
      out_.append(std::to_string(tool));
      return;
    case Placeholder::Name:
      out_.append(cleanedRemark(dialect_, trimmed(store.toolname[tool - 1])));
      return;
    case Placeholder::Speed:
      out_.append(formatNumber(store.toolspindlespeed[tool - 1], dialect_.speedFormat));
      return;
    case Placeholder::SafeZ:
      format_.coordinates.append(out_, store.zstartpos);
      return;
  }
}

// A lathe's X word is path y, or twice that, and its Z word path x; depths are not written.
MotionLine ProgramWriter::lineTo(std::string_view g, ToolPlace place) const {
  if (mode_ == CncMode::Lathe) {
    return {.g = std::string(g), .x = asX(place.y), .z = place.x};
  }
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
  if (dialect_.arcTol > 0) refuseUntrue(arc);
  if (dialect_.fullCircle == FullCircle::Bare || !closes(arc)) return writeArc(arc, radiusOf(arc));
  writeFullCircle(arc);
}

float ProgramWriter::radiusOf(const ArcMove& arc) const {
  if (!format_.useRParam) return 0;
  return radiusWord(arc, session_.store.cfg_tolerance, dialect_.rMaxSweep);
}

void ProgramWriter::writeArc(const ArcMove& arc, float radius) {
  MotionLine line = lineTo(arc.type == kClockwiseArc ? "G02" : "G03", arc.to);
  setCenter(line, arc);
  line.feed = arc.feed;
  line.r = radius;
  put(std::move(line));
}

// Where the tool stands as the control knows it, in the axes of the path.
ToolPlace ProgramWriter::standingAt(const ArcMove& arc) const {
  const bool lathe = mode_ == CncMode::Lathe;
  const float radius = asX(1);
  const ToolPlace at{lathe ? lastmove_.z : lastmove_.x, lathe ? lastmove_.x / radius : lastmove_.y};
  return std::isnan(at.x) || std::isnan(at.y) ? arc.from : at;
}

// The centre is where the control will have it: at the offset from where the tool stands, which the
// start of the row may miss by the tolerance.
void ProgramWriter::refuseUntrue(const ArcMove& arc) const {
  const ToolPlace at = standingAt(arc);
  const bool absolute = hasAbsoluteCenters();
  const double centerx = absolute ? arc.centerx : double{at.x} + (arc.centerx - arc.from.x);
  const double centery = absolute ? arc.centery : double{at.y} + (arc.centery - arc.from.y);
  const double difference =
      std::abs(radiusAbout(centerx, centery, at) - radiusAbout(centerx, centery, arc.to));
  if (!(difference > dialect_.arcTol)) return;
  throw RuntimeFailure(
      FailureNumber::InvalidProcedureCall, {},
      "The two radii of the arc differ by " + plainText(static_cast<float>(difference)) +
          ", and the post-processor definition allows " + plainText(dialect_.arcTol));
}

// Distances from the axis stand in the way of this control; those from a start never do.
float ProgramWriter::asX(float radius) const {
  return dialect_.diameter ? 2 * radius : radius;
}

bool ProgramWriter::readsAs(Point a, Point b) const {
  const auto text = [this](Point point) {
    std::string words;
    format_.coordinates.append(words, point.x);
    format_.coordinates.append(words.append(" "), point.y);
    return words;
  };
  return text(a) == text(b);
}

// A long arc whose ends only the resolution of the program makes one is a full circle there.
bool ProgramWriter::closes(const ArcMove& arc) const {
  if (startOf(arc) == endOf(arc)) return true;
  return readsAs(startOf(arc), endOf(arc)) && sweepDegrees(arc) > kHalfTurn;
}

void ProgramWriter::writeFullCircle(const ArcMove& arc) {
  if (dialect_.fullCircle == FullCircle::Halves) return writeHalves(arc);
  MotionLine line = lineTo(arc.type == kClockwiseArc ? "G02" : "G03", arc.to);
  setCenter(line, arc);
  line.feed = arc.feed;
  line.circle = true;
  put(std::move(line));
}

void ProgramWriter::writeHalves(const ArcMove& circle) {
  const ToolPlace opposite{2 * circle.centerx - circle.from.x, 2 * circle.centery - circle.from.y,
                           circle.to.z};
  ArcMove half = circle;
  half.to = opposite;
  writeArc(half, 0);
  half.from = opposite;
  half.to = circle.to;
  writeArc(half, 0);
}

// A dialect with rules of its own for full circles or long arcs has them right. Without:
// Fixed: with radius words centres are offsets; full circles have shown them so to every control.
bool ProgramWriter::hasAbsoluteCenters() const {
  const bool ruled = dialect_.fullCircle != FullCircle::Bare || dialect_.rMaxSweep < kFullTurn;
  return definition_.absCenter && (ruled || !format_.useRParam);
}

void ProgramWriter::setCenter(MotionLine& line, const ArcMove& arc) const {
  const Point center = hasAbsoluteCenters() ? centerOf(arc) : centerOffset(arc);
  if (mode_ == CncMode::Lathe) {
    line.i = hasAbsoluteCenters() ? asX(center.y) : center.y;  // I goes with X, K with Z
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
  line.cycle = true;
  line.forceXY = true;
  if (mode_ == CncMode::Mill) line.k = cycle.increment;
  line.d = cycle.dwell;
  line.feed = cycle.feed;
  if (dialect_.cycles == CycleStyle::Iso) return writeIsoCycle(std::move(line), cycle);
  line.everyWord = dialect_.cycleWords;
  put(std::move(line));
  if (dialect_.cycleWords) lastmove_.forgetZ();  // the tool is not at the depth that was written
}

// A peck of 0 is none, and such controls want one: the whole way from the safe plane down.
void ProgramWriter::writeIsoCycle(MotionLine&& line, const CycleRun& cycle) {
  const float safe = cycle.place.z;
  line.g = "G98 " + line.g;
  line.z = -cycle.depth;
  line.plane = safe;
  line.everyWord = true;
  line.k = !isOneOf(kIsoPecks, cycle.number) ? 0
           : cycle.increment != 0            ? std::abs(cycle.increment)
                                             : safe + cycle.depth;
  line.zeroDwell = isOneOf(kIsoDwells, cycle.number);
  if (!line.zeroDwell && cycle.number != kIsoTapping) line.d = 0;
  put(std::move(line));
  lastmove_.z = safe;
  inCycles_ = true;
}

void ProgramWriter::closeCycles() {
  inCycles_ = false;
  block("G80");
}

void ProgramWriter::write(const Dwell& dwell) {
  std::string text = std::string("G04 ") + dialect_.cycleDwell.value_or('P');
  format_.dwells.append(text, dwell.time * dialect_.dwellScale);
  block(text);
}

void ProgramWriter::write(const SpindleStop&) {
  block("M05");
}

void ProgramWriter::write(const SpindleStart& start) {
  writeFilled(dialect_.spindleText, start.tool);
}

}  // namespace tess
