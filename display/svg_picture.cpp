// Vector pictures as SVG.
#include "display/svg_picture.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "display/vector_picture.h"

namespace tess {
namespace {

constexpr double kMargin = 5;       // millimetres round the drawing
constexpr double kLineWidth = 0.2;  // millimetres
constexpr double kPixel = 0.25;     // millimetres that a pixel of the screen's marks is worth

// A decimal that is as exact as a float and has no exponent, whatever the locale.
std::string text(double value) {
  std::array<char, 400> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::fixed, 6);
  return {buffer.data(), end.ptr};
}

std::string colorText(Rgb color) {
  std::array<char, 8> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "#%02x%02x%02x", color & 0xFF, color >> 8 & 0xFF,
                color >> 16 & 0xFF);
  return buffer.data();
}

// The drawing's places on a page whose y grows downward.
class Page {
 public:
  Page(const Box& bounds, double millimetres)
      : left_(bounds.minX * millimetres - kMargin),
        top_(bounds.maxY * millimetres + kMargin),
        millimetres_(millimetres) {}
  double x(double worldX) const { return worldX * millimetres_ - left_; }
  double y(double worldY) const { return top_ - worldY * millimetres_; }
  double length(double worldLength) const { return worldLength * millimetres_; }

 private:
  double left_, top_, millimetres_;
};

std::string lineElement(const WorldBox& ends, const Page& page) {
  return "<line x1=\"" + text(page.x(ends.x0)) + "\" y1=\"" + text(page.y(ends.y0)) + "\" x2=\"" +
         text(page.x(ends.x1)) + "\" y2=\"" + text(page.y(ends.y1)) + "\"";
}

std::string boxElement(const Box& box, const Page& page, Rgb color) {
  return "<rect x=\"" + text(page.x(box.minX)) + "\" y=\"" + text(page.y(box.maxY)) +
         "\" width=\"" + text(page.length(static_cast<double>(box.maxX) - box.minX)) +
         "\" height=\"" + text(page.length(static_cast<double>(box.maxY) - box.minY)) +
         "\" fill=\"" + colorText(color) + "\"";
}

std::string placeText(const WorldArc& arc, double angle, const Page& page) {
  return text(page.x(arc.x + arc.radius * std::cos(angle))) + " " +
         text(page.y(arc.y + arc.radius * std::sin(angle)));
}

// Counter-clockwise; above 0.
double sweepOf(const WorldArc& arc) {
  double sweep = arc.whole ? kTwoPi : static_cast<double>(arc.end) - arc.start;
  while (sweep <= 0) sweep += kTwoPi;
  return sweep;
}

// A viewer shows nothing of an arc whose ends are the same number.
constexpr double kAlmostWhole = 6.283;

std::string arcElement(const WorldArc& arc, const Page& page) {
  const std::string radius = text(page.length(arc.radius));
  const double sweep = sweepOf(arc);
  if (sweep > kAlmostWhole) {
    return "<circle cx=\"" + text(page.x(arc.x)) + "\" cy=\"" + text(page.y(arc.y)) + "\" r=\"" +
           radius + "\"";
  }
  const char* const large = sweep > kTwoPi / 2 ? "1" : "0";
  return "<path d=\"M" + placeText(arc, arc.start, page) + " A" + radius + " " + radius + " 0 " +
         large + " 0 " + placeText(arc, arc.start + sweep, page) + "\"";
}

std::string element(const Stroke& stroke, const Box& box, const Page& page, Rgb color) {
  switch (stroke.kind) {
    case Stroke::Kind::FilledBox:
      return boxElement(box, page, color);
    case Stroke::Kind::Arc:
      return arcElement(stroke.arc, page);
    case Stroke::Kind::Line:
      break;
  }
  return lineElement(stroke.ends, page);
}

}  // namespace

std::string svgPicture(const DrawingStore& store, Prompts& prompts) {
  const double millimetres = millimetresPerUnit(store);
  VectorPicture picture = vectorPicture(store, narrow(kPixel / millimetres), prompts);
  if (picture.bounds.isEmpty()) picture.bounds = {0, 0, 0, 0};
  const Box& bounds = picture.bounds;
  const Page page(bounds, millimetres);
  const std::string width = text(page.x(bounds.maxX) + kMargin);
  const std::string height = text(page.y(bounds.minY) + kMargin);
  std::string out =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
      width + "mm\" height=\"" + height + "mm\" viewBox=\"0 0 " + width + " " + height +
      "\">\n<g fill=\"none\" stroke-linecap=\"round\" stroke-width=\"" + text(kLineWidth) + "\">\n";
  for (std::size_t i = 0; i < picture.strokes.size(); ++i) {
    const Rgb color = inkOnPaper(picture.strokes[i].color);
    out += element(picture.strokes[i], picture.boxes[i], page, color) + " stroke=\"" +
           colorText(color) + "\"/>\n";
  }
  return out + "</g>\n</svg>\n";
}

}  // namespace tess
