// The marker's cross and the origin arrows.
#include "display/screen_marks.h"

#include <array>
#include <charconv>
#include <string>

#include "display/arrowheads.h"

namespace tess {

namespace {

// A multiple of the spacing, without what rounding has left in its last digits.
std::string pitchText(float pitch) {
  constexpr int kDigits = 6;
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), pitch,
                                 std::chars_format::general, kDigits);
  return {text.data(), end.ptr};
}

}  // namespace

void DrawMarkerCross(Point marker, PictureBoxProxy& ScreenProxy) {
  constexpr float kHalf = 5;  // pixels
  const float hx = ScreenProxy.ScaleX(kHalf, ScaleUnit::Pixels, ScaleUnit::User);
  const float hy = ScreenProxy.ScaleY(kHalf, ScaleUnit::Pixels, ScaleUnit::User);
  const auto [x, y] = marker;
  ScreenProxy.setDrawMode(PenMode::NotXor);
  ScreenProxy.TraceLine({x - hx, y - hy, x + hx, y + hy}, paletteColor(0));
  ScreenProxy.TraceLine({x + hx, y - hy, x - hx, y + hy}, paletteColor(0));
  ScreenProxy.setDrawMode(PenMode::Copy);
}

void DrawOriginArrows(Rgb color, PictureBoxProxy& ScreenProxy) {
  constexpr float kLength = 25;  // pixels
  DrawingSurface& surface = ScreenProxy.surface();
  const SurfaceState before = surface.state();
  ScreenProxy.setDrawMode(PenMode::Copy);
  ScreenProxy.setDrawStyle(PenStyle::Solid);
  surface.setDrawWidth(2 * before.drawWidth);
  const float length = ScreenProxy.ScaleX(kLength, ScaleUnit::Pixels, ScaleUnit::User);
  ScreenProxy.TraceLine({0, 0, length, 0}, color);
  DrawHalfArrowhead({{length, 0}, 0}, color, ScreenProxy, 1);
  ScreenProxy.TraceLine({0, 0, 0, length}, color);
  DrawHalfArrowhead({{0, length}, narrow(kPi / 2)}, color, ScreenProxy, 2);
  surface.setDrawWidth(before.drawWidth);
  surface.setFontTransparent(true);
  surface.text(0.75F * length, -0.25F * length, "X", color);
  surface.text(-0.5F * length, length, "Y", color);
  surface.setFontTransparent(before.fontTransparent);
}

void DrawPitch(float pitch, bool metric, Rgb color, PictureBoxProxy& ScreenProxy) {
  constexpr float kLeft = 8;  // pixels, to the corner of the letters
  constexpr float kUp = 24;
  DrawingSurface& surface = ScreenProxy.surface();
  const bool transparent = surface.state().fontTransparent;
  const float left = ScreenProxy.ScaleX(kLeft, ScaleUnit::Pixels, ScaleUnit::User);
  const float up = ScreenProxy.ScaleY(kUp, ScaleUnit::Pixels, ScaleUnit::User);
  const float bottom = ScreenProxy.ScaleTop() + ScreenProxy.ScaleHeight();
  surface.setFontTransparent(true);
  surface.text(ScreenProxy.ScaleLeft() + left, bottom - up,
               "Grid " + pitchText(pitch) + (metric ? " mm" : " in"), color);
  surface.setFontTransparent(transparent);
}

}  // namespace tess
