// The renderer at work on a target that remembers.
#include "display/vector_picture.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "display/renderer.h"
#include "geometry/row_boxes.h"

namespace tess {
namespace {

// Work of this kind is too short to serve events.
class NoSurroundings : public Surroundings {
 public:
  void serveEvents() override {}
  void beep() override {}
  void printOnMainWindow(const std::string& /*text*/) override {}
};

class StrokeRecorder : public DrawingTarget {
 public:
  StrokeRecorder(VectorPicture& picture, float pixel) : picture_(picture), pixel_(pixel) {}

  void Cls() override {}
  float ScaleX(float width, ScaleUnit from, ScaleUnit to) const override {
    return convertedLength(width, from, to, {1, pixel_});
  }
  float ScaleY(float height, ScaleUnit from, ScaleUnit to) const override {
    return -convertedLength(height, from, to, {1, pixel_});
  }
  PenMode DrawMode() const override { return PenMode::Copy; }
  void setDrawMode(PenMode /*mode*/) override {}
  PenStyle DrawStyle() const override { return PenStyle::Solid; }
  void setDrawStyle(PenStyle /*style*/) override {}
  void TraceLine(const WorldBox& ends, std::optional<Rgb> color, std::optional<int> Box) override {
    const Rgb ink = color.value_or(0);
    if (Box == kFilledBox) return add({Stroke::Kind::FilledBox, ends, {}, ink});
    if (!Box) return addLine(ends, ink);
    addLine({ends.x0, ends.y0, ends.x1, ends.y0}, ink);
    addLine({ends.x1, ends.y0, ends.x1, ends.y1}, ink);
    addLine({ends.x1, ends.y1, ends.x0, ends.y1}, ink);
    addLine({ends.x0, ends.y1, ends.x0, ends.y0}, ink);
  }
  void TraceCircle(float x, float y, float radius, std::optional<Rgb> color,
                   std::optional<float> Start, std::optional<float> End,
                   std::optional<float> Aspect) override {
    if (radius == 0) return;
    add({Stroke::Kind::Arc,
         {},
         tracedArc({x, y}, radius, color.has_value(), {Start, End, Aspect}),
         color.value_or(0)});
  }
  float Width() const override { return 1; }
  void setWidth(float /*width*/) override {}
  float Height() const override { return 1; }
  void setHeight(float /*height*/) override {}
  float ScaleHeight() const override { return -pixel_; }
  void setScaleHeight(float /*height*/) override {}
  float ScaleWidth() const override { return pixel_; }
  void setScaleWidth(float /*width*/) override {}
  float ScaleLeft() const override { return 0; }
  void setScaleLeft(float /*left*/) override {}
  float ScaleTop() const override { return 0; }
  void setScaleTop(float /*top*/) override {}
  ScaleUnit ScaleMode() const override { return ScaleUnit::User; }
  void setScaleMode(ScaleUnit /*mode*/) override {}

 private:
  // The screen paints each line twice, and marks changes of its pen by lines without length.
  void addLine(const WorldBox& ends, Rgb color) {
    if (ends.x0 == ends.x1 && ends.y0 == ends.y1) return;
    const bool again =
        !picture_.strokes.empty() && picture_.strokes.back().kind == Stroke::Kind::Line &&
        picture_.strokes.back().color == color && picture_.strokes.back().ends == ends;
    if (!again) add({Stroke::Kind::Line, ends, {}, color});
  }
  void add(const Stroke& stroke) {
    const Box box = strokeBox(stroke);
    Box& all = picture_.bounds;
    all = {std::min(all.minX, box.minX), std::min(all.minY, box.minY), std::max(all.maxX, box.maxX),
           std::max(all.maxY, box.maxY)};
    picture_.strokes.push_back(stroke);
    picture_.boxes.push_back(box);
  }

  VectorPicture& picture_;
  float pixel_;
};

Point onCircle(const WorldArc& arc, double angle) {
  return {narrow(arc.x + arc.radius * std::cos(angle)),
          narrow(arc.y + arc.radius * std::sin(angle))};
}

// The target's arcs run counter-clockwise.
Entity entityOf(const WorldArc& arc) {
  const double start = arc.whole ? 0 : arc.start;
  const double end = arc.whole ? 0 : arc.end;
  return {kCounterClockwiseArc, onCircle(arc, start), onCircle(arc, end), {arc.x, arc.y}};
}

constexpr double kBrightest = 0.55;  // share of white's brightness that still shows on paper

constexpr int kGreyest = 32;  // from a colour's strongest part to its weakest: it is a grey

// As the eye weighs red, green and blue.
double brightness(int red, int green, int blue) {
  return (0.299 * red + 0.587 * green + 0.114 * blue) / 255;
}

}  // namespace

Box strokeBox(const Stroke& stroke) {
  if (stroke.kind == Stroke::Kind::Arc) return arcBox(entityOf(stroke.arc));
  const WorldBox& ends = stroke.ends;
  return {std::min(ends.x0, ends.x1), std::min(ends.y0, ends.y1), std::max(ends.x0, ends.x1),
          std::max(ends.y0, ends.y1)};
}

VectorPicture vectorPicture(const DrawingStore& store, float pixel, Prompts& prompts) {
  VectorPicture picture;
  StrokeRecorder recorder(picture, pixel);
  NoSurroundings surroundings;
  Renderer renderer(store, prompts, surroundings);
  for (int sg = 1; sg <= store.NumSegments; ++sg) renderer.DrawSegment(sg, recorder);
  if (store.showpaths == 0) return picture;
  renderer.pathdrawing = true;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) renderer.drawtoolpath(ps, recorder);
  return picture;
}

double millimetresPerUnit(const DrawingStore& store) {
  return isMetric(store) ? 1 : kMillimetresPerInch;
}

Rgb inkOnPaper(Rgb color) {
  const int red = color & 0xFF;
  const int green = color >> 8 & 0xFF;
  const int blue = color >> 16 & 0xFF;
  const double bright = brightness(red, green, blue);
  if (bright <= kBrightest) return color;
  if (std::max({red, green, blue}) - std::min({red, green, blue}) < kGreyest) return 0;
  const double factor = kBrightest / bright;
  const auto darker = [&](int part) { return static_cast<int>(std::lround(part * factor)); };
  return darker(red) | darker(green) << 8 | darker(blue) << 16;
}

}  // namespace tess
