// Painting the entities of a drawing into a picture.
//
// Positions: a coordinate that maps to the whole number n lies at the centre of device pixel n. A
// pointer event on pixel n reports that same coordinate, so what is drawn at the pointer lies under
// its tip.
#include "shell/qt/raster_surface.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "geometry/float_constants.h"
#include "shell/qt/stepped_arc.h"

namespace tess {

namespace {

constexpr double kMargin = 16;          // round the picture, in which nothing is cut off
constexpr double kWidestOwnLine = 2;    // wider ones need ends at right angles
constexpr double kTextHeight = 12;      // pixels
constexpr int kMinContrast = 64;        // of 255
constexpr QRgb kGreyMask = 0x00C0C0C0;  // changes any grey by 64 or more

QRgb bitsOf(Rgb color) {
  return qRgb(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}
QColor colorOf(Rgb color) {
  return QColor::fromRgb(bitsOf(color));
}

// How much an inverting pen of this mask changes a colour.
int contrast(QRgb background, QRgb mask) {
  return std::abs(qGray(background ^ mask) - qGray(background));
}

// Before the first view there is no scale, and a place in the world has none on the picture.
bool hasPlace(QPointF point) {
  return std::isfinite(point.x()) && std::isfinite(point.y());
}

QPoint wholePixel(QPointF point) {
  return {static_cast<int>(std::floor(point.x() + 0.5)),
          static_cast<int>(std::floor(point.y() + 0.5))};
}

// The middle of a device pixel in the painter's own coordinates.
QPointF pixelMiddle(QPointF point) {
  return point + QPointF(0.5, 0.5);
}

bool isAlongAxis(const QLineF& line) {
  constexpr double kHairsBreadth = 0.01;
  return std::abs(line.dx()) < kHairsBreadth || std::abs(line.dy()) < kHairsBreadth;
}

void fillPixels(QImage& picture, const QRect& pixels, QRgb ink) {
  for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
    std::fill_n(reinterpret_cast<QRgb*>(picture.scanLine(y)) + pixels.left(), pixels.width(), ink);
  }
}

// The first of every four pixels, in either direction along an axis: what the toolkit paints for a
// dotted pen. It takes long for that, and a grid has many such lines.
void fillDots(QImage& picture, QPoint from, QPoint to, QRgb ink) {
  constexpr int kApart = 4;
  const QRect bounds = picture.rect();
  const QPoint way = to - from;
  const QPoint step((way.x() > 0 ? 1 : 0) - (way.x() < 0 ? 1 : 0),
                    (way.y() > 0 ? 1 : 0) - (way.y() < 0 ? 1 : 0));
  for (int left = way.manhattanLength(); left >= 0; left -= kApart, from += kApart * step) {
    if (bounds.contains(from)) reinterpret_cast<QRgb*>(picture.scanLine(from.y()))[from.x()] = ink;
  }
}

// A wide smooth line is painted piece by piece, which takes a third of the time of the whole.
void strokeRun(QPainter& brush, const QPolygonF& run) {
  const bool wide = brush.pen().widthF() > 1 && brush.testRenderHint(QPainter::Antialiasing);
  if (!wide) return brush.drawPolyline(run);
  QList<QLineF> pieces;
  pieces.reserve(run.size());
  for (qsizetype at = 1; at < run.size(); ++at) pieces << QLineF(run[at - 1], run[at]);
  brush.drawLines(pieces);
}

// Turns that are full but for rounding are full.
double sweepOf(const WorldArc& arc) {
  constexpr double kRounding = 1e-5;
  const double turned = static_cast<double>(arc.end) - arc.start;
  if (arc.whole || turned == 0 || std::abs(turned) > kTwoPi - kRounding) return kTwoPi;
  return turned > 0 ? turned : turned + kTwoPi;
}

}  // namespace

RasterSurface::RasterSurface(const SurfaceArea& area, double density)
    : area_(area), density_(density) {}

// Before the pixels are looked at or given up.
void RasterSurface::stopPainting() {
  smoothLines_.finish();
  painter_.reset();
}

void RasterSurface::setDensity(double density) {
  if (density == density_) return;
  density_ = density;
  stopPainting();
  picture_ = QImage();
  begun_ = false;
  resizePicture();
}

QColor RasterSurface::ground() const {
  return colorOf(state().backColor);
}

QImage RasterSurface::emptyPicture(const QSize& size) const {
  QImage picture(size, QImage::Format_RGB32);
  picture.fill(ground());
  return picture;
}

QSize RasterSurface::pictureSize() const {
  return {std::max(1, static_cast<int>(std::lround(area_.width * density_))),
          std::max(1, static_cast<int>(std::lround(area_.height * density_)))};
}

// A window goes through several sizes while it comes up: no pixels are made before any are wanted.
QImage& RasterSurface::pixels() {
  if (picture_.isNull()) picture_ = emptyPicture(pictureSize());
  return picture_;
}

// What fits of the old picture stays, as on a window that is pulled wider.
void RasterSurface::resizePicture() {
  measures_.reset();
  if (picture_.size() == pictureSize()) return;
  stopPainting();
  lastLine_.reset();
  const QImage before = begun_ ? picture_ : QImage();
  picture_ = QImage();  // makes room for the next one
  spare_ = QImage();
  if (begun_) QPainter(&pixels()).drawImage(0, 0, before);
}

void RasterSurface::Move(const SurfaceArea& area) {
  area_ = area;
  resizePicture();
  if (onMoved) onMoved(area_);
}

void RasterSurface::setEnabled(bool enabled) {
  enabled_ = enabled;
}

void RasterSurface::setRepaint(bool on) {
  if (on == repaint_) return;
  repaint_ = on;
  stopPainting();  // a picture that is being painted on would be copied as a whole
  if (on) {
    if (shown_.isDetached()) spare_ = shown_;
    shown_ = QImage();
  } else {
    shown_ = begun_ ? picture_ : emptyPicture({1, 1});
  }
  if (on && onPainted) onPainted(bounds());
}

void RasterSurface::Refresh() {
  if (repaint_ && onRefresh) onRefresh();
}

const QImage& RasterSurface::picture() {
  if (!repaint_) return shown_;
  stopPainting();
  return pixels();
}

// What is still shown keeps its pixels, so the picture goes on in others: those that were shown the
// time before, since pages that are new to the process cost as much as the lines on them.
void RasterSurface::Cls() {
  stopPainting();
  begun_ = true;
  lastLine_.reset();
  if (!picture_.isDetached()) {
    const bool fits = spare_.size() == pictureSize();
    picture_ = fits ? std::exchange(spare_, QImage()) : emptyPicture(pictureSize());
  }
  picture_.fill(ground());
  painted(bounds());
}

QPainter& RasterSurface::painter(const QColor& ink, bool smooth) {
  smoothLines_.finish();
  if (!painter_) painter_ = std::make_unique<QPainter>(&pixels());
  // Square ends: the toolkit is ten times slower at wide lines with round ones.
  QPen pen(ink, penWidth(), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
  if (state().drawStyle == PenStyle::Dash) pen.setDashPattern({6, 4});
  if (state().drawStyle == PenStyle::Dot) pen.setDashPattern({1, 3});
  painter_->setPen(pen);
  painter_->setBrush(Qt::NoBrush);
  painter_->setRenderHint(QPainter::Antialiasing, smooth);
  painter_->setCompositionMode(isInverting() ? QPainter::RasterOp_NotSourceXorDestination
                                             : QPainter::CompositionMode_SourceOver);
  return *painter_;
}

void RasterSurface::painted(const QRectF& box) {
  if (!repaint_ || !onPainted) return;
  const double margin = penWidth() + 2;
  const QRectF reached = box.normalized().adjusted(-margin, -margin, margin, margin);
  onPainted((reached & bounds()).toAlignedRect());
}

RasterSurface::Measures RasterSurface::measured() const {
  const QRect bounds({0, 0}, pictureSize());
  return {.scale = pixelScale(),
          .penWidth = std::max(1.0, std::round(state().drawWidth * density_)),
          .bounds = bounds,
          .paintedBounds = QRectF(bounds).adjusted(-kMargin, -kMargin, kMargin, kMargin),
          .paintsSmoothly = !isInverting() && state().drawStyle == PenStyle::Solid};
}

// An inverting pen flips the bits that its colour lacks. Where that would leave the background
// nearly as it is, as with a white pen, it flips bits that always show.
QRgb RasterSurface::flippedBits(Rgb color) const {
  const QRgb mask = ~bitsOf(color) & 0x00FFFFFF;
  const bool shows = contrast(bitsOf(state().backColor), mask) >= kMinContrast;
  return shows ? mask : kGreyMask;
}

QColor RasterSurface::ink(Rgb color) const {
  if (!isInverting()) return colorOf(color);
  return QColor::fromRgb(~flippedBits(color) | 0xFF000000);
}

QPointF RasterSurface::devicePoint(float x, float y) const {
  const PixelPoint pixel = measures().scale.at(x, y);
  return {pixel.x * density_, pixel.y * density_};
}

double RasterSurface::deviceLength(float length) const {
  const bool inPixels = state().scaleMode == ScaleUnit::Pixels;
  const double pixels = inPixels ? length : length / state().scaleWidth * area_.width;
  return std::abs(pixels) * density_;
}

// Drawing rows are copied twice; the second time there is nothing to do, and smooth edges stay as
// they are.
bool RasterSurface::isRepeated(const WorldBox& ends, Rgb color) const {
  return lastLine_ && lastLine_->ends == ends && lastLine_->color == color;
}

QLineF RasterSurface::deviceLine(const WorldBox& ends) const {
  const bool goesOn = lastLine_ && lastLine_->ends.x1 == ends.x0 && lastLine_->ends.y1 == ends.y0;
  return {goesOn ? lastLine_->end : devicePoint(ends.x0, ends.y0), devicePoint(ends.x1, ends.y1)};
}

void RasterSurface::line(const WorldBox& ends, Rgb color) {
  if (ends.x0 == ends.x1 && ends.y0 == ends.y1) return;
  if (isRepeated(ends, color)) return;
  const QLineF whole = deviceLine(ends);
  if (!isInverting()) lastLine_ = {ends, color, whole.p2()};
  if (holdsLine(paintedBounds(), whole)) return visibleLine(whole, color);
  if (!hasPlace(whole.p1()) || !hasPlace(whole.p2())) return;
  const std::optional<QLineF> visible = clipped(whole, paintedBounds());
  if (visible) visibleLine(*visible, color);
}

void RasterSurface::visibleLine(const QLineF& pixels, Rgb color) {
  if (paintsSmoothly() && !isAlongAxis(pixels)) {
    smoothLine(pixels, color);
  } else {
    sharpLine(wholePixel(pixels.p1()), wholePixel(pixels.p2()), color);
  }
  painted(QRectF(pixels.p1(), pixels.p2()));
}

// Inverted twice it would be gone.
void RasterSurface::lineTwice(const WorldBox& ends, Rgb color) {
  line(ends, color);
  if (isInverting()) line(ends, color);
}

void RasterSurface::smoothLine(const QLineF& pixels, Rgb color) {
  const QLineF line(pixelMiddle(pixels.p1()), pixelMiddle(pixels.p2()));
  if (penWidth() <= kWidestOwnLine) {
    this->pixels();  // there must be some
    smoothLines_.add(line, penWidth(), bitsOf(color));
  } else {
    painter(colorOf(color), /*smooth=*/true).drawLine(line);
  }
}

void RasterSurface::sharpLine(QPoint from, QPoint to, Rgb color) {
  const bool straight = from.x() == to.x() || from.y() == to.y();
  const PenStyle style = state().drawStyle;
  if (!straight || penWidth() != 1 || isInverting() || style == PenStyle::Dash) {
    painter(ink(color), /*smooth=*/false).drawLine(from, to);
    return;
  }
  smoothLines_.finish();
  if (style == PenStyle::Dot) return fillDots(pixels(), from, to, bitsOf(color));
  const QRect between = QRect(from, from) | QRect(to, to);
  fillPixels(pixels(), between & bounds(), bitsOf(color));
}

void RasterSurface::box(const WorldBox& corners, Rgb color, bool filled) {
  lastLine_.reset();
  const QPointF from = devicePoint(corners.x0, corners.y0);
  const QPointF to = devicePoint(corners.x1, corners.y1);
  if (!hasPlace(from) || !hasPlace(to)) return;
  const QPoint a = drawnIn(from);
  const QPoint b = drawnIn(to);
  const QRect pixels(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                     QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
  if (filled && !isInverting()) {
    smoothLines_.finish();
    fillPixels(this->pixels(), pixels & bounds(), bitsOf(color));
  } else {
    paintBox(pixels, color, filled);
  }
  painted(pixels);
}

void RasterSurface::paintBox(const QRect& pixels, Rgb color, bool filled) {
  QPainter& brush = painter(ink(color), /*smooth=*/false);
  if (filled) {
    brush.fillRect(pixels, ink(color));
  } else if (pixels.width() == 1 || pixels.height() == 1) {
    brush.drawLine(pixels.topLeft(), pixels.bottomRight());
  } else {
    brush.drawRect(pixels.adjusted(0, 0, -1, -1));
  }
}

// A corner far outside moves in until its sides are just out of sight.
QPoint RasterSurface::drawnIn(QPointF corner) const {
  const QRectF bounds = paintedBounds();
  return wholePixel({std::clamp(corner.x(), bounds.left(), bounds.right()),
                     std::clamp(corner.y(), bounds.top(), bounds.bottom())});
}

void RasterSurface::arc(const WorldArc& arc, Rgb color) {
  lastLine_.reset();
  const double radius = deviceLength(arc.radius);
  const QSizeF radii(arc.aspect > 1 ? radius / arc.aspect : radius,
                     arc.aspect > 1 ? radius : radius * arc.aspect);
  const QPointF center = devicePoint(arc.x, arc.y);
  if (!hasPlace(center) || !std::isfinite(radius)) return;
  const QRectF reach(center - QPointF(radii.width(), radii.height()), radii * 2);
  if (!reach.adjusted(-1, -1, 1, 1).intersects(paintedBounds())) return;
  QPainter& brush = painter(ink(color), paintsSmoothly());
  const SteppedArc stepped(pixelMiddle(center), radii, arc.start, sweepOf(arc));
  if (arc.whole && state().fillStyle == FillMode::Solid) {
    brush.setBrush(colorOf(state().fillColor));
    brush.drawPolygon(allPoints(stepped));
  } else {
    for (const QPolygonF& run : visibleRuns(stepped, paintedBounds())) strokeRun(brush, run);
  }
  painted(reach);
}

const RasterSurface::Lettering& RasterSurface::letteringOf(const std::string& text) {
  constexpr std::size_t kMost = 8;
  QFont font;
  font.setPixelSize(static_cast<int>(std::lround(kTextHeight * density_)));
  const auto isIt = [&](const Lettering& one) { return one.text == text && one.font == font; };
  const auto known = std::find_if(letterings_.begin(), letterings_.end(), isIt);
  if (known != letterings_.end()) return *known;
  if (letterings_.size() == kMost) letterings_.erase(letterings_.begin());
  const QFontMetricsF metrics(font);
  const QString letters = QString::fromStdString(text);
  QPainterPath outlines;
  outlines.addText(QPointF(0, metrics.ascent()), font, letters);
  letterings_.push_back(
      {text, font, {metrics.horizontalAdvance(letters), metrics.height()}, outlines});
  return letterings_.back();
}

void RasterSurface::text(float x, float y, const std::string& text, Rgb color) {
  lastLine_.reset();
  const QPointF place = devicePoint(x, y);
  if (!hasPlace(place)) return;
  const QPointF corner = wholePixel(place);
  const Lettering& lettering = letteringOf(text);
  const QRectF reach(corner, lettering.size);
  QPainter& brush = painter(ink(color), paintsSmoothly());
  if (!state().fontTransparent) brush.fillRect(reach, ground());
  brush.fillPath(lettering.outlines.translated(corner), ink(color));
  painted(reach);
}

// ---- Lines that hover

bool RasterSurface::reserveHover(int /*width*/, int /*height*/) {
  if (hovering_.size() != pictureSize()) {
    hovering_ = QImage(pictureSize(), QImage::Format_RGB32);
    hovering_.fill(0);
  }
  return !hovering_.isNull();
}

std::vector<QLine> RasterSurface::visibleLines(std::span<const WorldBox> lines) const {
  const QRectF bounds = paintedBounds();
  std::vector<QLine> visible;
  visible.reserve(lines.size());
  for (const WorldBox& ends : lines) {
    const QLineF whole(devicePoint(ends.x0, ends.y0), devicePoint(ends.x1, ends.y1));
    if (!hasPlace(whole.p1()) || !hasPlace(whole.p2())) continue;
    const std::optional<QLineF> seen = clipped(whole, bounds);
    if (seen) visible.emplace_back(wholePixel(seen->p1()), wholePixel(seen->p2()));
  }
  return visible;
}

// The lines in their bits on a ground of zeros; the part of the picture that they may have reached.
QRect RasterSurface::traceHovering(const std::vector<QLine>& lines, QRgb bits) {
  QRect reach;
  for (const QLine& line : lines) {
    reach |= QRect(line.p1(), line.p1()) | QRect(line.p2(), line.p2());
  }
  QPainter brush(&hovering_);
  brush.setPen(QPen(QColor::fromRgb(bits), penWidth()));
  brush.drawLines(lines.data(), static_cast<int>(lines.size()));
  const int margin = static_cast<int>(penWidth()) + 1;
  return reach.adjusted(-margin, -margin, margin, margin) & bounds();
}

void RasterSurface::hover(std::span<const WorldBox> lines, Rgb color) {
  const std::vector<QLine> visible = visibleLines(lines);
  if (visible.empty() || !reserveHover(bounds().width(), bounds().height())) return;
  stopPainting();
  lastLine_.reset();
  const QRect reach = traceHovering(visible, flippedBits(color));
  for (int y = reach.top(); y <= reach.bottom(); ++y) {
    auto* const shown = reinterpret_cast<QRgb*>(pixels().scanLine(y));
    auto* const flipped = reinterpret_cast<QRgb*>(hovering_.scanLine(y));
    for (int x = reach.left(); x <= reach.right(); ++x) shown[x] ^= flipped[x] & 0x00FFFFFF;
    std::fill(flipped + reach.left(), flipped + reach.right() + 1, 0U);
  }
  painted(reach);
}

}  // namespace tess
