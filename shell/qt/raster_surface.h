// The drawing surface as a picture in memory, in the pixels of the screen it is meant for. It needs
// no window; the widget that shows it asks for picture().
// Owns: RasterSurface.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "display/drawing_target.h"
#include "shell/qt/smooth_line.h"

namespace tess {

// Copied lines are smooth, except those along the axes, which are sharp. Inverting lines are plain
// pixels, so that drawing them a second time restores the picture bit by bit.
class RasterSurface : public DrawingSurface {
 public:
  // `density` is the number of device pixels per pixel in each direction.
  explicit RasterSurface(const SurfaceArea& area = {0, 0, 1, 1}, double density = 1);

  double density() const { return density_; }
  // A picture of another density starts empty.
  void setDensity(double density);
  // What is to be shown: while repainting is off, the picture as it was then.
  const QImage& picture();
  // Nobody has painted or asked for the picture yet: it would be nothing but its ground.
  bool isEmpty() const { return picture_.isNull(); }
  QColor ground() const;

  SurfaceArea area() const override { return area_; }
  void Move(const SurfaceArea& area) override;
  bool Enabled() const override { return enabled_; }
  void setEnabled(bool enabled) override;
  void setRepaint(bool on) override;
  void Refresh() override;
  bool requestFrame() override { return onFrameRequested && onFrameRequested(); }
  void Cls() override;
  void line(const WorldBox& ends, Rgb color) override;
  void lineTwice(const WorldBox& ends, Rgb color) override;
  void box(const WorldBox& corners, Rgb color, bool filled) override;
  void arc(const WorldArc& arc, Rgb color) override;
  void text(float x, float y, const std::string& text, Rgb color) override;
  bool reserveHover(int width, int height) override;
  void hover(std::span<const WorldBox> lines, Rgb color) override;

  std::function<void(const QRect&)> onPainted;  // in device pixels; only while repainting is on
  std::function<void()> onRefresh;
  std::function<bool()> onFrameRequested;
  std::function<void(const SurfaceArea&)> onMoved;

 private:
  QPainter& painter(const QColor& ink, bool smooth);
  void visibleLine(const QLineF& pixels, Rgb color);
  void smoothLine(const QLineF& pixels, Rgb color);
  void sharpLine(QPoint from, QPoint to, Rgb color);
  void paintBox(const QRect& pixels, Rgb color, bool filled);
  bool isRepeated(const WorldBox& ends, Rgb color) const;
  void propertyChanged() override {
    measures_.reset();
    lastLine_.reset();
  }
  void stopPainting();
  QImage emptyPicture(const QSize& size) const;
  QSize pictureSize() const;
  const QRect& bounds() const { return measures().bounds; }
  QImage& pixels();
  void resizePicture();
  void painted(const QRectF& box);
  bool isInverting() const { return state().drawMode == PenMode::NotXor; }
  bool paintsSmoothly() const { return measures().paintsSmoothly; }
  double penWidth() const { return measures().penWidth; }
  QColor ink(Rgb color) const;
  QRgb flippedBits(Rgb color) const;
  std::vector<QLine> visibleLines(std::span<const WorldBox> lines) const;
  QRect traceHovering(const std::vector<QLine>& lines, QRgb bits);
  QPointF devicePoint(float x, float y) const;
  double deviceLength(float length) const;
  QPoint drawnIn(QPointF corner) const;
  const QRectF& paintedBounds() const { return measures().paintedBounds; }

  // What follows from the state and the size, and is asked for with every line.
  struct Measures {
    PixelScale scale;
    double penWidth;       // in device pixels
    QRect bounds;          // of the picture, in device pixels
    QRectF paintedBounds;  // in device pixels, beyond which nothing is painted
    bool paintsSmoothly;
  };
  Measures measured() const;
  const Measures& measures() const {
    if (!measures_) measures_ = measured();
    return *measures_;
  }

  // Letters as outlines from their upper left corner on. To make them takes longer than to paint
  // them, and a picture has few, the same every time.
  struct Lettering {
    std::string text;
    QFont font;
    QSizeF size;
    QPainterPath outlines;
  };
  const Lettering& letteringOf(const std::string& text);

  // A copied line after which nothing was painted and no property changed. Outlines go on where it
  // ends.
  struct LastLine {
    WorldBox ends;
    Rgb color;
    QPointF end;  // in device pixels
  };
  QLineF deviceLine(const WorldBox& ends) const;

  SurfaceArea area_;
  double density_;
  bool enabled_ = true;
  bool repaint_ = true;
  std::optional<LastLine> lastLine_;
  mutable std::optional<Measures> measures_;
  bool begun_ = false;  // the first clearing: what was painted before, in no view, is not kept
  QImage picture_;      // null while it is empty
  QImage shown_;        // while repainting is off
  QImage spare_;        // to be cleared for the next picture
  QImage hovering_;     // the bits that lines that hover flip; else all are 0
  std::vector<Lettering> letterings_;
  SmoothLines smoothLines_{picture_};  // on their way into the picture
  std::unique_ptr<QPainter> painter_;  // kept open from one entity to the next
};

}  // namespace tess
