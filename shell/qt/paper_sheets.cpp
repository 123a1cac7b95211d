// Painting sheets.
#include "shell/qt/paper_sheets.h"

#include <QFontMetricsF>
#include <QList>
#include <cmath>
#include <numbers>

namespace tess {
namespace {

constexpr double kLineWidth = 0.2;  // millimetres, of rows
constexpr double kThinWidth = 0.1;  // millimetres, of what belongs to the sheet
constexpr double kMarkSize = 4;     // millimetres, of a registration mark's arms
constexpr double kTickSize = 2;     // millimetres, of the ruler's ends
constexpr double kTextHeight = 3;   // millimetres
constexpr int kTextPixels = 300;    // of the font before it is scaled to that height
constexpr int kRulerParts = 10;
constexpr double kMostPerPiece = std::numbers::pi / 6;  // of an arc, in radians

QColor inkOf(Rgb color) {
  const Rgb ink = inkOnPaper(color);
  return {ink & 0xFF, ink >> 8 & 0xFF, ink >> 16 & 0xFF};
}

double sweepOf(const WorldArc& arc) {
  if (arc.whole) return 2 * std::numbers::pi;
  double sweep = static_cast<double>(arc.end) - arc.start;
  while (sweep <= 0) sweep += 2 * std::numbers::pi;
  return sweep;
}

// From places of the drawing to places of the sheet.
class Window {
 public:
  Window(const SheetPlan& plan, const Sheet& sheet)
      : millimetres_(plan.millimetres),
        left_(sheet.left - plan.margin),
        top_(sheet.bottom + plan.height + plan.margin),
        frame_(plan.margin, plan.margin, plan.width, plan.height) {}

  QPointF onPaper(double x, double y) const { return {x - left_, top_ - y}; }
  QPointF at(double worldX, double worldY) const {
    return onPaper(worldX * millimetres_, worldY * millimetres_);
  }
  double length(double world) const { return world * millimetres_; }
  const QRectF& frame() const { return frame_; }
  bool shows(const Box& box) const {
    const QPointF low = at(box.minX, box.minY);
    const QPointF high = at(box.maxX, box.maxY);
    return low.x() <= frame_.right() && high.x() >= frame_.left() && high.y() <= frame_.bottom() &&
           low.y() >= frame_.top();
  }

 private:
  double millimetres_, left_, top_;
  QRectF frame_;
};

// Lines of one colour go to the painter together.
class StrokePainter {
 public:
  StrokePainter(QPainter& painter, const Window& window) : painter_(painter), window_(window) {}
  ~StrokePainter() { flush(); }
  StrokePainter(const StrokePainter&) = delete;
  StrokePainter& operator=(const StrokePainter&) = delete;

  void paint(const Stroke& stroke) {
    if (stroke.color != color_) flush();
    color_ = stroke.color;
    if (stroke.kind == Stroke::Kind::Line) {
      lines_.append(QLineF(window_.at(stroke.ends.x0, stroke.ends.y0),
                           window_.at(stroke.ends.x1, stroke.ends.y1)));
      return;
    }
    flush();
    setPen();
    if (stroke.kind == Stroke::Kind::Arc) {
      painter_.drawPath(arcPath(window_.at(stroke.arc.x, stroke.arc.y),
                                window_.length(stroke.arc.radius), stroke.arc));
    } else {
      painter_.fillRect(QRectF(window_.at(stroke.ends.x0, stroke.ends.y0),
                               window_.at(stroke.ends.x1, stroke.ends.y1))
                            .normalized(),
                        inkOf(color_));
    }
  }

 private:
  void setPen() {
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(inkOf(color_), kLineWidth, Qt::SolidLine, Qt::RoundCap));
  }
  void flush() {
    if (lines_.isEmpty()) return;
    setPen();
    painter_.drawLines(lines_);
    lines_.clear();
  }

  QPainter& painter_;
  const Window& window_;
  QList<QLineF> lines_;
  Rgb color_ = 0;
};

void paintMarks(const Sheet& sheet, const Window& window, QPainter& painter) {
  for (const SheetMark& mark : sheet.marks) {
    const QPointF at = window.onPaper(mark.x, mark.y);
    painter.drawLine(at - QPointF(kMarkSize, 0), at + QPointF(kMarkSize, 0));
    painter.drawLine(at - QPointF(0, kMarkSize), at + QPointF(0, kMarkSize));
    painter.drawEllipse(at, kMarkSize / 2, kMarkSize / 2);
  }
}

void paintText(const QPointF& base, const QString& text, QPainter& painter) {
  QFont font("sans-serif");
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kTextPixels);
  painter.save();
  painter.translate(base);
  painter.scale(kTextHeight / kTextPixels, kTextHeight / kTextPixels);
  painter.setFont(font);
  painter.drawText(QPointF(0, 0), text);
  painter.restore();
}

// A line whose length can be measured on the paper: printers like to scale.
void paintRuler(const SheetPlan& plan, const QPointF& left, QPainter& painter) {
  painter.drawLine(left, left + QPointF(plan.ruler, 0));
  for (int part = 0; part <= kRulerParts; ++part) {
    const QPointF at = left + QPointF(plan.ruler * part / kRulerParts, 0);
    const bool isEnd = part == 0 || part == kRulerParts;
    painter.drawLine(at, at - QPointF(0, isEnd ? kTickSize : kTickSize / 2));
  }
  paintText(left + QPointF(plan.ruler + kTickSize, 0), QString::fromStdString(plan.rulerText),
            painter);
}

void paintFoot(const SheetPrint& print, const Sheet& sheet, const QRectF& frame,
               QPainter& painter) {
  const SheetPlan& plan = print.plan;
  const QPointF left = frame.bottomLeft();
  paintRuler(plan, left + QPointF(0, plan.foot / 2), painter);
  std::string caption = print.caption;
  if (plan.sheets.size() > 1) {
    caption += "   column " + std::to_string(sheet.column) + " of " + std::to_string(plan.columns) +
               ", row " + std::to_string(sheet.row) + " of " + std::to_string(plan.rows);
  }
  paintText(left + QPointF(0, plan.foot - 1), QString::fromStdString(caption), painter);
}

}  // namespace

QPainterPath arcPath(QPointF center, double radius, const WorldArc& arc) {
  const double sweep = sweepOf(arc);
  const int pieces = static_cast<int>(std::ceil(sweep / kMostPerPiece));
  const double step = sweep / pieces;
  const double reach = radius * 4 / 3 * std::tan(step / 4);  // of a piece's inner points
  const double start = arc.whole ? 0 : arc.start;
  const auto outward = [](double angle) { return QPointF(std::cos(angle), -std::sin(angle)); };
  const auto onward = [](double angle) { return QPointF(-std::sin(angle), -std::cos(angle)); };
  QPainterPath path(center + radius * outward(start));
  for (int piece = 0; piece < pieces; ++piece) {
    const double from = start + piece * step;
    const double to = start + (piece + 1) * step;
    path.cubicTo(center + radius * outward(from) + reach * onward(from),
                 center + radius * outward(to) - reach * onward(to), center + radius * outward(to));
  }
  return path;
}

void paintSheet(const SheetPrint& print, std::size_t number, QPainter& painter) {
  const Sheet& sheet = print.plan.sheets.at(number);
  const Window window(print.plan, sheet);
  painter.save();
  painter.setClipRect(window.frame());
  {
    StrokePainter strokes(painter, window);
    for (std::size_t i = 0; i < print.picture.strokes.size(); ++i) {
      if (window.shows(print.picture.boxes[i])) strokes.paint(print.picture.strokes[i]);
    }
  }
  painter.setPen(QPen(Qt::black, kThinWidth));
  painter.setBrush(Qt::NoBrush);
  paintMarks(sheet, window, painter);
  painter.restore();
  painter.setPen(QPen(Qt::black, kThinWidth));
  paintFoot(print, sheet, window.frame(), painter);
}

}  // namespace tess
