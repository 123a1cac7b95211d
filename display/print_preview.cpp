// The proxy round the print preview.
#include "display/print_preview.h"

#include <algorithm>
#include <cmath>

namespace tess {
namespace {

constexpr Rgb kInk = 0;  // what has no colour of its own is black on paper

float share(float place, float from, float extent) {
  return (place - from) / extent;
}

}  // namespace

float PrintPreviewProxy::printedWidth() const {
  return control_.pageWidth() - 2 * control_.leftMargin();
}

float PrintPreviewProxy::printedHeight() const {
  return control_.pageHeight() - 2 * control_.topMargin();
}

float PrintPreviewProxy::MapX(float x) const {
  return share(x, scaleLeft_, scaleWidth_) * printedWidth() + control_.leftMargin();
}

float PrintPreviewProxy::MapY(float y) const {
  return share(y, scaleTop_, scaleHeight_) * printedHeight() + control_.topMargin();
}

float PrintPreviewProxy::ScaleX(float width, ScaleUnit from, ScaleUnit to) const {
  return convertedLength(width, from, to, {printedWidth(), scaleWidth_});
}

float PrintPreviewProxy::ScaleY(float height, ScaleUnit from, ScaleUnit to) const {
  return convertedLength(height, from, to, {printedHeight(), scaleHeight_});
}

WorldBox PrintPreviewProxy::mapped(const WorldBox& ends) const {
  return {MapX(ends.x0), MapY(ends.y0), MapX(ends.x1), MapY(ends.y1)};
}

void PrintPreviewProxy::TraceLine(const WorldBox& ends, std::optional<Rgb> color,
                                  std::optional<int> Box) {
  requireBoxFlag(Box, "PrintPreviewProxy");
  const Rgb ink = color.value_or(kInk);
  if (Box) {
    control_.box(mapped(ends), ink, /*filled=*/*Box == kFilledBox);
  } else {
    control_.line(mapped(ends), ink);
  }
}

void PrintPreviewProxy::TraceCircle(float x, float y, float radius, std::optional<Rgb> color,
                                    std::optional<float> Start, std::optional<float> End,
                                    std::optional<float> Aspect) {
  if (radius == 0) return;
  WorldArc arc = tracedArc({x, y}, radius, color.has_value(), {Start, End, Aspect});
  arc.x = MapX(x);
  arc.y = MapY(y);
  arc.radius = std::abs(radius / scaleWidth_ * printedWidth());
  control_.arc(arc, color.value_or(kInk));
}

void PrintPreviewProxy::PreviewBMP(const std::string& path, float lowest) {
  const PictureSize size = control_.pictureSize(path);
  const float top = control_.topMargin();
  const float width =
      std::min(printedWidth(), (lowest - top) / std::max(size.height, 1.0F) * size.width);
  const float height = width / std::max(size.width, 1.0F) * size.height;
  const float left = (control_.pageWidth() - width) / 2;
  control_.picture(path, {left, top, left + width, top + height});
}

}  // namespace tess
