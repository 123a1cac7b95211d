// The surface's mapping and the proxy round it.
#include "display/drawing_target.h"

namespace tess {

// A surface that paints line by line needs no memory of its own.
bool DrawingSurface::reserveHover(int /*width*/, int /*height*/) {
  return true;
}

void DrawingSurface::hover(std::span<const WorldBox> lines, Rgb color) {
  const SurfaceState before = state_;
  setDrawMode(PenMode::NotXor);
  setDrawStyle(PenStyle::Solid);
  for (const WorldBox& ends : lines) line(ends, color);
  setDrawStyle(before.drawStyle);
  setDrawMode(before.drawMode);
}

void DrawingSurface::lineTwice(const WorldBox& ends, Rgb color) {
  line(ends, color);
  line(ends, color);
}

void DrawingTarget::TraceLineTwice(const WorldBox& ends, Rgb color) {
  TraceLine(ends, color);
  TraceLine(ends, color);
}

// A surface that is scaled in pixels is as good as one whose every pixel is a unit.
PixelScale DrawingSurface::pixelScale() const {
  if (state_.scaleMode == ScaleUnit::Pixels) return {};
  const SurfaceArea pixels = area();
  return {.left = state_.scaleLeft,
          .top = state_.scaleTop,
          .width = state_.scaleWidth,
          .height = state_.scaleHeight,
          .across = pixels.width,
          .down = pixels.height};
}

Point DrawingSurface::toWorld(double pixelX, double pixelY) const {
  if (state_.scaleMode == ScaleUnit::Pixels) return {narrow(pixelX), narrow(pixelY)};
  const SurfaceArea pixels = area();
  return {narrow(state_.scaleLeft + pixelX / pixels.width * state_.scaleWidth),
          narrow(state_.scaleTop + pixelY / pixels.height * state_.scaleHeight)};
}

float convertedLength(float length, ScaleUnit from, ScaleUnit to, const ScaledExtent& extent) {
  if (from == to) return length;
  const double factor = from == ScaleUnit::Pixels
                            ? static_cast<double>(extent.scale) / extent.pixels
                            : static_cast<double>(extent.pixels) / extent.scale;
  return narrow(length * factor);
}

void requireBoxFlag(std::optional<int> Box, const char* proxy) {
  if (!Box || *Box == kOutlineBox || *Box == kFilledBox) return;
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, proxy);
}

WorldArc tracedArc(Point center, float radius, bool hasColor, const SweepArguments& sweep) {
  WorldArc arc{.x = center.x, .y = center.y, .radius = radius};
  if (!hasColor || !sweep.start) return arc;
  arc.whole = false;
  arc.start = *sweep.start;
  arc.end = sweep.end.value_or(static_cast<float>(kTwoPi));
  arc.aspect = sweep.end ? sweep.aspect.value_or(1.0F) : 1.0F;
  return arc;
}

float PictureBoxProxy::ScaleX(float width, ScaleUnit from, ScaleUnit to) const {
  return convertedLength(width, from, to, {Width(), ScaleWidth()});
}

float PictureBoxProxy::ScaleY(float height, ScaleUnit from, ScaleUnit to) const {
  return convertedLength(height, from, to, {Height(), ScaleHeight()});
}

void PictureBoxProxy::TraceLine(const WorldBox& ends, std::optional<Rgb> color,
                                std::optional<int> Box) {
  const Rgb ink = color.value_or(surface_.state().foreColor);
  requireBoxFlag(Box, "PictureBoxProxy");
  if (Box) {
    surface_.box(ends, ink, /*filled=*/*Box == kFilledBox);
  } else {
    surface_.line(ends, ink);
  }
}

void PictureBoxProxy::TraceLineTwice(const WorldBox& ends, Rgb color) {
  surface_.lineTwice(ends, color);
}

void PictureBoxProxy::TraceCircle(float x, float y, float radius, std::optional<Rgb> color,
                                  std::optional<float> Start, std::optional<float> End,
                                  std::optional<float> Aspect) {
  if (radius == 0) return;
  surface_.arc(tracedArc({x, y}, radius, color.has_value(), {Start, End, Aspect}),
               color.value_or(surface_.state().foreColor));
}

void PictureBoxProxy::GrayX(float x, float y, float size, std::optional<Rgb> color) {
  const float half = size / 2;
  TraceLine({x - half, y - half, x + half, y + half}, color);
  TraceLine({x + half, y - half, x - half, y + half}, color);
}

void PictureBoxProxy::setWidth(float width) {
  SurfaceArea area = surface_.area();
  area.width = width;
  surface_.Move(area);
}

void PictureBoxProxy::setHeight(float height) {
  SurfaceArea area = surface_.area();
  area.height = height;
  surface_.Move(area);
}

void SetScale(float left, float bottom, float right, float top, DrawingTarget& proxy) {
  proxy.setScaleMode(ScaleUnit::User);
  proxy.setScaleLeft(left);
  proxy.setScaleWidth(right - left);
  proxy.setScaleTop(top);
  proxy.setScaleHeight(-(top - bottom));
}

}  // namespace tess
