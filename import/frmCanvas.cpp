// The text engine. Its formulas are in the sense of the canvas, where y grows downward and angles
// turn from the x axis towards the y axis; inches come about in GetLines alone.
#include "import/frmCanvas.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "core/number_text.h"
#include "core/rounding.h"
#include "core/text.h"
#include "geometry/contour_union.h"
#include "import/text_frame.h"

namespace tess {
namespace {

using std::numbers::pi;

constexpr char kProbeFont[] = "Lucida Console";
constexpr double kPointsPerInch = 72;
constexpr double kDefaultResolution = 0.0005;
constexpr double kFinestResolution = 1e-6;
constexpr double kStraightFrom = 1e6;  // inches: a larger radius cannot be told from none
constexpr double kAcross = 1e-6;       // the cosine of a baseline that runs up or down the canvas
constexpr std::size_t kLineGrowth = 1000;
constexpr char32_t kLineFeed = '\n';
constexpr char32_t kReturn = '\r';

double Sgn(double value) {
  return value > 0 ? 1 : (value < 0 ? -1 : 0);
}

double finiteOr(double value, double instead) {
  return std::isfinite(value) ? value : instead;
}

// What no run can work with becomes the nearest that it can.
TextRun sensible(TextRun run) {
  if (!(run.Resolution > 0)) run.Resolution = kDefaultResolution;
  run.Resolution = std::max(run.Resolution, kFinestResolution);
  run.Orientation = finiteOr(run.Orientation, 0);
  const bool bent = std::abs(run.Curvature) <= kStraightFrom;  // not so for what is no number
  if (!bent) run.Curvature = 0;
  return run;
}

bool breaksLine(char32_t character) {
  return character == kLineFeed || character == kReturn;
}

// No character is less than a piece, blanks aside: a text with more of them than that is no use.
bool hasTooManyLetters(const std::u32string& characters) {
  if (characters.size() >= static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
    return true;
  }
  const auto letters = std::count_if(characters.begin(), characters.end(),
                                     [](char32_t character) { return character > U' '; });
  return static_cast<std::size_t>(letters) > kMostLines;
}

}  // namespace

// ---- The interface

frmCanvas::frmCanvas(Session& session, FontLibrary& fonts, GlyphService& glyphs,
                     DrawingSurface* surface)
    : Form("frmCanvas"), session_(session), fonts_(fonts), glyphs_(glyphs), surface_(surface) {
  onQueryClose = [this](CloseQuery&) { Abort(); };
}

frmCanvas::~frmCanvas() = default;

void frmCanvas::DrawText(TextRun run) {
  run.BoundsOnly = false;
  DrawTextEx(run);
}

void frmCanvas::DrawTextEx(const TextRun& run) {
  Clear();
  run_ = sensible(run);
  characters_ = codePoints(run_.text);
  canvas_ = std::make_unique<clsCanvas>(surface_);
  tooLong_ = false;
  failure_.clear();
  drawstate_ = DrawState::Initialise;
  DrawTextStep();
}

void frmCanvas::DrawTextWait() {
  while (drawstate_ != DrawState::Idle) session_.host.surroundings.serveEvents();
}

void frmCanvas::Abort() {
  ++requestid_;
  drawstate_ = DrawState::Idle;
}

void frmCanvas::Clear() {
  Abort();
  lineCount_ = 0;
  lines_.clear();
  if (canvas_) canvas_->clear();
}

int frmCanvas::PixelWidth() const {
  return surface_ == nullptr ? 0 : static_cast<int>(surface_->area().width);
}

int frmCanvas::PixelHeight() const {
  return surface_ == nullptr ? 0 : static_cast<int>(surface_->area().height);
}

namespace {

std::vector<clsLineCoordinates> inInches(const std::vector<clsLineCoordinates>& pixels,
                                         const TextRun& run, double TX, double TY) {
  std::vector<clsLineCoordinates> moved;
  moved.reserve(pixels.size());
  const auto x = [&](double pixel) { return pixel / run.PixelsPerInchX + TX; };
  const auto y = [&](double pixel) { return TY - pixel / run.PixelsPerInchY; };
  for (const clsLineCoordinates& line : pixels) {
    moved.push_back({x(line.x0), y(line.y0), x(line.x1), y(line.y1)});
  }
  return moved;
}

}  // namespace

std::vector<clsLineCoordinates> frmCanvas::GetLines(double TX, double TY) {
  lines_.resize(lineCount_);
  return inInches(lines_, run_, TX, TY);
}

std::vector<clsLineCoordinates> frmCanvas::preview(double TX, double TY) const {
  if (!canvas_) return {};
  return inInches(canvas_->strokes(), run_, TX, TY);
}

// ---- The state machine

void frmCanvas::DrawTextStep() {
  if (std::exchange(stepping_, true)) return;  // the loop around goes on
  try {
    runSteps();
  } catch (...) {
    stepping_ = false;
    throw;
  }
  stepping_ = false;
}

// A failure of the font is the operator's to know and ends the run; what it has drawn is kept. A
// pen beyond the canvas leaves nothing that could be placed.
void frmCanvas::runSteps() {
  bool goesOn = true;
  while (goesOn) {
    try {
      goesOn = takeStep();
    } catch (const RuntimeFailure& failure) {
      takeCallChain();
      if (failure.number() == FailureNumber::Overflow) {
        endTooLong();
      } else {
        endFailed(failure);
      }
      drawstate_ = DrawState::Finish;
    }
  }
}

void frmCanvas::endTooLong() {
  tooLong_ = true;
  lineCount_ = 0;
  bounds_ = Extent();
  if (canvas_) canvas_->clear();
}

// The panel lays a text out anew at every step: the same failure is reported once, until a run
// comes to its end.
void frmCanvas::endFailed(const RuntimeFailure& failure) {
  failure_ = failure.description();
  if (std::exchange(reported_, failure_) != failure_) session_.host.failures.report(failure);
}

// False when the machine has to wait or is done.
bool frmCanvas::takeStep() {
  switch (drawstate_) {
    case DrawState::Idle:
      return false;
    case DrawState::Initialise:
      drawstate_ = DrawState::Next;
      DrawTextInitialize();
      return true;
    case DrawState::Next:
      takeNext();
      return true;
    case DrawState::CharacterOut:
      if (!charOut_) return false;
      drawstate_ = DrawState::Next;
      DrawTextFinishChar();
      return true;
    case DrawState::Finish:
      DrawTextFinalize();
      if (failure_.empty()) reported_.clear();
      drawstate_ = DrawState::Idle;
      if (onDrawTextDone) onDrawTextDone(run_.BoundsOnly);
      return drawstate_ != DrawState::Idle;  // whoever heard it may have begun the next run
  }
  return false;
}

void frmCanvas::takeNext() {
  if (tooLong_) {
    drawstate_ = DrawState::Finish;
    return;
  }
  ++position_;
  const auto at = static_cast<std::size_t>(position_) - 1;
  if (at >= characters_.size()) {
    drawstate_ = DrawState::Finish;
    return;
  }
  const char32_t character = characters_[at];
  if (character == kReturn) return;
  if (character == kLineFeed) return newLine();
  drawstate_ = DrawState::CharacterOut;
  DrawTextChar(character);
}

// ---- The beginning

void frmCanvas::DrawTextInitialize() {
  openCanvas();
  pen_ = start_ = {run_.X, run_.Y};
  linenumber_ = 0;
  position_ = 0;
  linewidth_ = maxwidth_ = totalheight_ = 0;
  lineheight_ = 0;
  curorientation_ = run_.Orientation;
  lineCount_ = 0;
  lines_.assign(kLineGrowth, {});
  bounds_ = Extent();
  placeCenter();
  if (hasTooManyLetters(characters_)) throw overflow();
  if (run_.FontSize > 0) {
    openFont();
  } else {
    characters_.clear();
  }
}

void frmCanvas::openCanvas() {
  try {
    canvas_->Initialize(PixelWidth(), PixelHeight());
  } catch (const RuntimeFailure&) {
    takeCallChain();
    if (std::exchange(previewRefused_, true)) return;
    session_.host.prompts.showMessage(
        {.text = "Couldn't create bitmap of size " + std::to_string(PixelWidth()) + "x" +
                 std::to_string(PixelHeight()) +
                 "\nThe preview feature during text placement will not be available.",
         .title = session_.productname,
         .icon = MessageIcon::Warning});
  }
}

// The centre of a positive radius lies above an upright text, that of a negative one below.
void frmCanvas::placeCenter() {
  const double curvature = run_.Curvature * run_.PixelsPerInchX;
  radius_ = std::abs(curvature);
  centerx_ = std::sin(run_.Orientation) * curvature + run_.X;
  centery_ = -std::cos(run_.Orientation) * curvature + run_.Y;
  arcangle_ = pi / 2 * Sgn(run_.Curvature) + run_.Orientation;
}

void frmCanvas::openFont() {
  const bool probe = run_.FontName == kProbeFont && !fonts_.hasFamily(kProbeFont);
  const std::string family = probe ? fonts_.monospaceFamily() : run_.FontName;
  std::shared_ptr<FontFace> face;
  try {
    face = fonts_.open({family, run_.Bold, run_.Italic});
  } catch (const FontError& error) {
    throw RuntimeFailure(FailureNumber::PathFileAccess, family, error.what());
  }
  const double em = run_.FontSize / kPointsPerInch;
  lineheight_ = roundHalfEven(face->lineHeight() * em * run_.PixelsPerInchY);
  canvas_->selectFont(std::move(face));
  glyphs_.begin(
      {family, run_.Bold, run_.Italic, em * run_.PixelsPerInchX, -em * run_.PixelsPerInchY});
}

// ---- Characters

// The character that follows on the same line, 0 for none.
char32_t frmCanvas::nextOnLine() const {
  const auto at = static_cast<std::size_t>(position_);
  if (!run_.Kerning || at >= characters_.size() || breaksLine(characters_[at])) return 0;
  return characters_[at];
}

void frmCanvas::DrawTextChar(char32_t Char) {
  if (breaksLine(Char)) return;
  char_ = pen_;
  ++requestid_;
  charOut_ = false;
  glyphs_.DrawCharAsync({.id = requestid_,
                         .BoundsOnly = run_.BoundsOnly,
                         .character = Char,
                         .next = nextOnLine(),
                         .Resolution = run_.Resolution,
                         .TrackingDelta = run_.TrackingDelta,
                         .MirrorX = run_.MirrorX,
                         .MirrorY = run_.MirrorY,
                         .curorientation = curorientation_,
                         .PixelsPerInchX = run_.PixelsPerInchX,
                         .PixelsPerInchY = run_.PixelsPerInchY},
                        *this, *canvas_, pen_);
}

void frmCanvas::Glyph_AddLine(int id, double x0, double y0, double x1, double y1) {
  if (id != requestid_ || tooLong_) return;
  const bool placeable =
      std::isfinite(x0) && std::isfinite(y0) && std::isfinite(x1) && std::isfinite(y1);
  if (!placeable || lineCount_ >= kMostLines) return endTooLong();
  bounds_.take({x0, y0});
  bounds_.take({x1, y1});
  if (lineCount_ >= lines_.size()) lines_.resize(lines_.size() + kLineGrowth);
  lines_[lineCount_] = {x0, y0, x1, y1};
  ++lineCount_;
}

void frmCanvas::Glyph_DrawCharAsyncDone(std::int32_t X, std::int32_t Y, double baseDX) {
  if (drawstate_ != DrawState::CharacterOut) return;
  pen_ = {X, Y};
  baseDX_ = baseDX;
  charOut_ = true;
  DrawTextStep();
}

// Each glyph stands upright on its tangent; the pen walks the circle by the straight advance, taken
// as length of the arc.
void frmCanvas::DrawTextFinishChar() {
  const double dx = static_cast<double>(pen_.x) - char_.x;
  const double dy = static_cast<double>(pen_.y) - char_.y;
  const double c = std::cos(curorientation_);
  linewidth_ += std::abs(c) < kAcross ? std::copysign(std::hypot(dx, dy), baseDX_) : dx / c;
  if (run_.Curvature == 0) return;
  const double sense = Sgn(run_.Curvature);
  if (radius_ != 0) arcangle_ -= baseDX_ / radius_ * sense;
  pen_ = {roundHalfEven(std::cos(arcangle_) * radius_ + centerx_),
          roundHalfEven(std::sin(arcangle_) * radius_ + centery_)};
  curorientation_ = arcangle_ - pi / 2 * sense;
}

// ---- Lines of text

void frmCanvas::newLine() {
  ++linenumber_;
  const double down = static_cast<double>(linenumber_) * lineheight_;
  const double angle = run_.Orientation;
  pen_.y = roundHalfEven(std::cos(angle) * down + start_.y);
  pen_.x = angle != 0 ? roundHalfEven(start_.x - std::sin(angle) * down) : start_.x;
  arcangle_ = pi / 2 * Sgn(run_.Curvature) + angle;
  curorientation_ = angle;
  radius_ += lineheight_ * Sgn(run_.Curvature);
  closeLine();
}

// A mirrored line is as wide to the other side.
void frmCanvas::closeLine() {
  if (std::abs(linewidth_) > std::abs(maxwidth_)) maxwidth_ = linewidth_;
  totalheight_ += lineheight_;
  linewidth_ = 0;
}

// ---- The end

void frmCanvas::DrawTextFinalize() {
  if (tooLong_) return;
  closeLine();
  if (run_.Unite && !run_.BoundsOnly) uniteLines();
  drawBoxes();
}

// Seen with y upward, so that the inside lies to the left of each line in the drawing too.
void frmCanvas::uniteLines() {
  std::vector<ContourLine> pieces;
  pieces.reserve(lineCount_);
  for (std::size_t at = 0; at < lineCount_; ++at) {
    const clsLineCoordinates& line = lines_[at];
    pieces.push_back({{line.x0, -line.y0}, {line.x1, -line.y1}});
  }
  const std::optional<std::vector<ContourLine>> united = unitedContours(pieces);
  lines_.clear();
  canvas_->clear();
  if (!united) failure_ = "The contours cross too often to be united.";
  for (const ContourLine& piece : united.value_or(std::vector<ContourLine>())) {
    lines_.push_back({piece.from.x, -piece.from.y, piece.to.x, -piece.to.y});
    canvas_->MoveTo(piece.from.x, -piece.from.y);
    canvas_->LineTo(piece.to.x, -piece.to.y);
  }
  lineCount_ = lines_.size();
}

void frmCanvas::Extent::take(PlanePoint point) {
  minx = std::min(minx, point.x);
  miny = std::min(miny, point.y);
  maxx = std::max(maxx, point.x);
  maxy = std::max(maxy, point.y);
}

frmCanvas::Corners frmCanvas::Extent::corners() const {
  return {{minx, miny}, {maxx, miny}, {maxx, maxy}, {minx, maxy}};
}

// Along the first baseline and down from it, measured from where the pen starts. A bent baseline is
// unrolled for it.
PlanePoint frmCanvas::inTextFrame(PlanePoint point) const {
  PlanePoint place[] = {point};
  if (run_.Curvature == 0) {
    RotateArray(place, start_.x, start_.y, -run_.Orientation);
    OffsetArray(place, -start_.x, -start_.y);
    return place[0];
  }
  OffsetArray(place, -centerx_, -centery_);
  const double sense = Sgn(run_.Curvature);
  const double first = std::abs(run_.Curvature) * run_.PixelsPerInchX;
  const double begin = pi / 2 * sense + run_.Orientation;
  const double turned = std::remainder(begin - ArcTan(place[0].y, place[0].x), 2 * pi);
  return {turned * sense * first, (lengthOf(place[0]) - first) * sense};
}

// The box of the text by its measures, and that of its lines, both lying as the text does.
void frmCanvas::drawBoxes() {
  Extent lines;
  if (!bounds_.isEmpty()) {
    for (std::size_t at = 0; at < lineCount_; ++at) {
      lines.take(inTextFrame({lines_[at].x0, lines_[at].y0}));
    }
  }
  const double top = run_.MirrorY ? 0 : -lineheight_;
  const Extent text{std::min(0.0, maxwidth_), top, std::max(0.0, maxwidth_), top + totalheight_};
  for (const Extent& box : {text, lines}) {
    if (box.isEmpty() || maxwidth_ == 0) continue;
    Corners corners = box.corners();
    if (run_.Curvature != 0) {
      DrawAngledArray(corners, centerx_, centery_, std::abs(run_.Curvature) * run_.PixelsPerInchX);
    } else {
      OffsetArray(corners, start_.x, start_.y);
      RotateArray(corners, start_.x, start_.y, run_.Orientation);
      DrawArray(corners);
    }
  }
}

void frmCanvas::DrawArray(const Corners& corners) {
  canvas_->MoveTo(corners.back().x, corners.back().y);
  for (const PlanePoint corner : corners) canvas_->LineTo(corner.x, corner.y);
}

// Corners in the text's own frame: an edge along the baseline becomes an arc about the centre, an
// edge across it stays straight.
void frmCanvas::DrawAngledArray(const Corners& corners, double cx, double cy, double RefRadius) {
  const double sense = Sgn(run_.Curvature);
  const double begin = pi / 2 * sense + run_.Orientation;
  const auto angleOf = [&](PlanePoint corner) { return begin - corner.x * sense / RefRadius; };
  const auto radiusOf = [&](PlanePoint corner) { return RefRadius + corner.y * sense; };
  PlanePoint from = corners.back();
  canvas_->MoveTo(cx + radiusOf(from) * std::cos(angleOf(from)),
                  cy + radiusOf(from) * std::sin(angleOf(from)));
  for (const PlanePoint corner : corners) {
    if (corner.y == from.y) {
      canvas_->ArcTo(cx, cy, radiusOf(corner), angleOf(from), angleOf(corner) - angleOf(from));
    } else {
      canvas_->LineTo(cx + radiusOf(corner) * std::cos(angleOf(corner)),
                      cy + radiusOf(corner) * std::sin(angleOf(corner)));
    }
    from = corner;
  }
}

}  // namespace tess
