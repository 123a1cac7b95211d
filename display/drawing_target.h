// What drawings are painted on: the port to the platform's drawing surface, and the target that the
// routines painting single entities see, be it the surface or paper.
// Owns: ScaleUnit, PenMode, PenStyle, FillMode, kOutlineBox, kFilledBox, SurfaceArea, WorldBox,
//       WorldArc, PixelPoint, PixelScale, SurfaceState, DrawingSurface, ScaledExtent,
//       convertedLength, SweepArguments, tracedArc, requireBoxFlag, DrawingTarget, PictureBoxProxy,
//       SetScale.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "display/palette.h"
#include "geometry/float_points.h"

namespace tess {

// The numbers are those of the properties as scripts and recordings show them.
enum class ScaleUnit { User = 0, Pixels = 3 };
enum class PenMode { NotXor = 10, Copy = 13 };  // drawing a thing twice with NotXor removes it
enum class PenStyle { Solid = 0, Dash = 1, Dot = 2 };
enum class FillMode { Solid = 0, Transparent = 1 };  // of circles

// The Box argument of TraceLine.
inline constexpr int kOutlineBox = 1;
inline constexpr int kFilledBox = 2;

// A rectangle of the main window, in pixels from its upper left corner.
struct SurfaceArea {
  float left = 0, top = 0, width = 0, height = 0;
};

// Two points in user scale: the ends of a line, or opposite corners of a box.
struct WorldBox {
  float x0 = 0, y0 = 0, x1 = 0, y1 = 0;
  friend bool operator==(const WorldBox&, const WorldBox&) = default;
};

// A circle, or the part of it from `start` counter-clockwise to `end` (radians, the x axis is 0).
struct WorldArc {
  float x = 0, y = 0, radius = 0;
  float start = 0, end = 0;
  float aspect = 1;  // height over width
  bool whole = true;
};

struct PixelPoint {
  double x = 0, y = 0;  // from the upper left corner of the surface
};

// From user scale to the pixels of a surface, for as long as neither changes.
struct PixelScale {
  double left = 0, top = 0, width = 1, height = 1;  // of the surface in user scale
  double across = 1, down = 1;                      // pixels

  PixelPoint at(float x, float y) const {
    return {(x - left) / width * across, (y - top) / height * down};
  }
};

// What a surface remembers between calls.
struct SurfaceState {
  ScaleUnit scaleMode = ScaleUnit::Pixels;
  float scaleLeft = 0, scaleTop = 0;      // the user coordinates of the upper left corner
  float scaleWidth = 1, scaleHeight = 1;  // a negative height makes y grow upward
  PenMode drawMode = PenMode::Copy;
  PenStyle drawStyle = PenStyle::Solid;
  int drawWidth = 1;  // pixels
  FillMode fillStyle = FillMode::Transparent;
  Rgb fillColor = 0;
  Rgb foreColor = 0;
  Rgb backColor = 0xFFFFFF;
  bool fontTransparent = true;  // text leaves what lies behind its letters
};

// The platform's drawing surface, the picture `picDrawing`. Painting goes into a picture that stays
// until it is cleared; all coordinates are in user scale. A platform implements the pure calls and
// reads state() while it paints.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  virtual SurfaceArea area() const = 0;
  virtual void Move(const SurfaceArea& area) = 0;
  virtual bool Enabled() const = 0;  // a disabled surface swallows pointer events
  virtual void setEnabled(bool enabled) = 0;
  virtual void setRepaint(bool on) = 0;  // off: what is painted is not shown until it is on again
  virtual void Refresh() = 0;            // shows what is painted, now
  // Has RedrawSequence::paintFrame called once the event at hand is over; false where nothing does.
  virtual bool requestFrame() { return false; }

  virtual void Cls() = 0;  // fills with the background colour
  virtual void line(const WorldBox& ends, Rgb color) = 0;
  // The same line two times over, which a surface need not paint so.
  virtual void lineTwice(const WorldBox& ends, Rgb color);
  virtual void box(const WorldBox& corners, Rgb color, bool filled) = 0;
  virtual void arc(const WorldArc& arc, Rgb color) = 0;  // a whole one obeys the fill style
  // Text with its upper left corner at a point.
  virtual void text(float x, float y, const std::string& text, Rgb color) = 0;

  // Lines that hover: each pixel under any of them is inverted once, whatever pen is set, so that
  // the same lines again restore the picture. The memory for that is taken beforehand; false where
  // there is none.
  virtual bool reserveHover(int width, int height);
  virtual void hover(std::span<const WorldBox> lines, Rgb color);

  const SurfaceState& state() const { return state_; }
  void setScaleMode(ScaleUnit mode) { set(state_.scaleMode, mode, "ScaleMode"); }
  void setScaleLeft(float left) { set(state_.scaleLeft, left, "ScaleLeft"); }
  void setScaleTop(float top) { set(state_.scaleTop, top, "ScaleTop"); }
  void setScaleWidth(float width) { set(state_.scaleWidth, width, "ScaleWidth"); }
  void setScaleHeight(float height) { set(state_.scaleHeight, height, "ScaleHeight"); }
  void setDrawMode(PenMode mode) { set(state_.drawMode, mode, "DrawMode"); }
  void setDrawStyle(PenStyle style) { set(state_.drawStyle, style, "DrawStyle"); }
  void setDrawWidth(int pixels) { set(state_.drawWidth, pixels, "DrawWidth"); }
  void setFillStyle(FillMode style) { set(state_.fillStyle, style, "FillStyle"); }
  void setFillColor(Rgb color) { set(state_.fillColor, color, "FillColor"); }
  void setForeColor(Rgb color) { set(state_.foreColor, color, "ForeColor"); }
  void setBackColor(Rgb color) { set(state_.backColor, color, "BackColor"); }
  void setFontTransparent(bool on) { set(state_.fontTransparent, on, "FontTransparent"); }

  // The one mapping between user scale and pixels, for painting and for pointer events.
  PixelPoint toPixels(float x, float y) const { return pixelScale().at(x, y); }
  PixelScale pixelScale() const;
  Point toWorld(double pixelX, double pixelY) const;

 protected:
  // Hears of each property that is set, also of one set to the value that it had.
  virtual void propertySet(const char* /*name*/, double /*value*/) {}
  // One has another value now.
  virtual void propertyChanged() {}

 private:
  template <typename T>
  void set(T& field, T value, const char* name) {
    const bool changes = field != value;
    field = value;
    propertySet(name, static_cast<double>(value));
    if (changes) propertyChanged();
  }

  SurfaceState state_;
};

// An axis of a target: the same extent in pixels and in user scale.
struct ScaledExtent {
  float pixels = 1, scale = 1;
};

// A length along such an axis in another scale.
float convertedLength(float length, ScaleUnit from, ScaleUnit to, const ScaledExtent& extent);

// The optional end of the arguments of TraceCircle.
struct SweepArguments {
  std::optional<float> start, end, aspect;
};

// The arc that such arguments mean: a whole circle without a colour or a start.
WorldArc tracedArc(Point center, float radius, bool hasColor, const SweepArguments& sweep);

// Raises Invalid procedure call for a Box argument of TraceLine that means nothing.
void requireBoxFlag(std::optional<int> Box, const char* proxy);

class PictureBoxProxy;

// What an entity is painted on. The user scale has been set; lengths and coordinates are in it.
class DrawingTarget {
 public:
  virtual ~DrawingTarget() = default;

  // The target as the screen; null for paper, which keeps pens and fills of its own.
  virtual PictureBoxProxy* screen() { return nullptr; }

  virtual void Cls() = 0;

  // A length in another scale. The sign is kept: where y grows upward, a length across the rows of
  // the picture is positive downward in pixels and negative in user scale.
  virtual float ScaleX(float width, ScaleUnit from, ScaleUnit to) const = 0;
  virtual float ScaleY(float height, ScaleUnit from, ScaleUnit to) const = 0;

  virtual PenMode DrawMode() const = 0;
  virtual void setDrawMode(PenMode mode) = 0;
  virtual PenStyle DrawStyle() const = 0;
  virtual void setDrawStyle(PenStyle style) = 0;

  // A line; with Box 1 the outline and with 2 the filled rectangle of the two corners. Any other
  // Box raises Invalid procedure call. Without a colour the foreground colour is taken.
  virtual void TraceLine(const WorldBox& ends, std::optional<Rgb> color = {},
                         std::optional<int> Box = {}) = 0;

  // The same as two calls of TraceLine with these arguments.
  virtual void TraceLineTwice(const WorldBox& ends, Rgb color);

  // A circle; from Start on counter-clockwise, to End if that is given too. A radius of 0 paints
  // nothing. A missing argument ends the list.
  virtual void TraceCircle(float x, float y, float radius, std::optional<Rgb> color = {},
                           std::optional<float> Start = {}, std::optional<float> End = {},
                           std::optional<float> Aspect = {}) = 0;

  virtual float Width() const = 0;
  virtual void setWidth(float width) = 0;
  virtual float Height() const = 0;
  virtual void setHeight(float height) = 0;
  virtual float ScaleHeight() const = 0;
  virtual void setScaleHeight(float height) = 0;
  virtual float ScaleWidth() const = 0;
  virtual void setScaleWidth(float width) = 0;
  virtual float ScaleLeft() const = 0;
  virtual void setScaleLeft(float left) = 0;
  virtual float ScaleTop() const = 0;
  virtual void setScaleTop(float top) = 0;
  virtual ScaleUnit ScaleMode() const = 0;
  virtual void setScaleMode(ScaleUnit mode) = 0;
};

// The surface as a target. `ScreenProxy` is the one round `picDrawing`.
class PictureBoxProxy : public DrawingTarget {
 public:
  explicit PictureBoxProxy(DrawingSurface& picDrawing) : surface_(picDrawing) {}

  PictureBoxProxy* screen() override { return this; }
  DrawingSurface& surface() { return surface_; }
  const DrawingSurface& surface() const { return surface_; }

  void Cls() override { surface_.Cls(); }
  float ScaleX(float width, ScaleUnit from, ScaleUnit to) const override;
  float ScaleY(float height, ScaleUnit from, ScaleUnit to) const override;

  FillMode FillStyle() const { return surface_.state().fillStyle; }
  void setFillStyle(FillMode style) { surface_.setFillStyle(style); }
  Rgb FillColor() const { return surface_.state().fillColor; }
  void setFillColor(Rgb color) { surface_.setFillColor(color); }
  PenMode DrawMode() const override { return surface_.state().drawMode; }
  void setDrawMode(PenMode mode) override { surface_.setDrawMode(mode); }
  PenStyle DrawStyle() const override { return surface_.state().drawStyle; }
  void setDrawStyle(PenStyle style) override { surface_.setDrawStyle(style); }

  void TraceLine(const WorldBox& ends, std::optional<Rgb> color = {},
                 std::optional<int> Box = {}) override;
  void TraceLineTwice(const WorldBox& ends, Rgb color) override;
  void TraceCircle(float x, float y, float radius, std::optional<Rgb> color = {},
                   std::optional<float> Start = {}, std::optional<float> End = {},
                   std::optional<float> Aspect = {}) override;
  // A diagonal cross through (x, y) that reaches size/2 to each side.
  void GrayX(float x, float y, float size, std::optional<Rgb> color = {});

  float Width() const override { return surface_.area().width; }
  void setWidth(float width) override;
  float Height() const override { return surface_.area().height; }
  void setHeight(float height) override;
  float ScaleHeight() const override { return surface_.state().scaleHeight; }
  void setScaleHeight(float height) override { surface_.setScaleHeight(height); }
  float ScaleWidth() const override { return surface_.state().scaleWidth; }
  void setScaleWidth(float width) override { surface_.setScaleWidth(width); }
  float ScaleLeft() const override { return surface_.state().scaleLeft; }
  void setScaleLeft(float left) override { surface_.setScaleLeft(left); }
  float ScaleTop() const override { return surface_.state().scaleTop; }
  void setScaleTop(float top) override { surface_.setScaleTop(top); }
  ScaleUnit ScaleMode() const override { return surface_.state().scaleMode; }
  void setScaleMode(ScaleUnit mode) override { surface_.setScaleMode(mode); }

 private:
  DrawingSurface& surface_;
};

// Sets the user scale of a target: mode, left, width, top, height, in this order.
void SetScale(float left, float bottom, float right, float top, DrawingTarget& proxy);

}  // namespace tess
