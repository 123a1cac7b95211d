// Where the drawing lies on the surface: the view's centre and span, the rectangle that they make
// visible, and the steps from one view to the next, all as plain calculations.
// Owns: View, WorldRect, visibleRectangle, stockRectangle, isDisc, setPicSize, FittedSide,
//       fitAspects, resetToFullView, spanFraction, kLargestZoom, magnification, updateZoomFactor,
//       zoomText, PixelsPerInchX, PixelsPerInchY.
#pragma once

#include <string>

#include "core/int16.h"
#include "display/drawing_target.h"

namespace tess {

// The state of the view. It lives as long as the program; no file holds it.
struct View {
  float viewcx = 0, viewcy = 0;    // the world point at the centre of the surface
  float viewspan = 0;              // half of the visible extent along the axis of aspect 1
  float homespan = 0;              // viewspan of the full view; the zoom limit measures against it
  float homecx = 0, homecy = 0;    // centre of the full view
  float aspectx = 1, aspecty = 1;  // one is 1, the other the ratio of the sides: units stay square
  float zoomfactor = 1;            // homespan / viewspan
  Int16 picwidth, picheight;       // size of the surface in pixels
};

// A rectangle of the drawing; y grows upward.
struct WorldRect {
  float left = 0, bottom = 0, right = 0, top = 0;
};

// The visible rectangle for a span: `viewspan` on the screen, `homespan` on paper.
WorldRect visibleRectangle(const View& view, float span);

// The stock, on the side of zero that the origin words say.
WorldRect stockRectangle(const DrawingStore& store);
// Whether it is seen from its end; a lathe shows its bar from the side.
bool isDisc(const DrawingStore& store);

// Takes over the surface's size; raises Overflow beyond 16 bits.
void setPicSize(View& view, const SurfaceArea& area);

// The axis whose aspect factor is 1 is the one along which the stock fills the surface more.
enum class FittedSide { Width, Height };

// Sets the aspect factors from the stock and the size of the surface, whatever the present zoom is.
// Raises Division by zero (or Overflow for zero by zero) when the surface has no extent.
FittedSide fitAspects(View& view, const DrawingStore& store);

// Shows the stock at 1/1.3 of the fitted side.
void resetToFullView(View& view, const DrawingStore& store, FittedSide side);

// The part of the visible extents that a window of dx by dy takes: the larger one of the two axes.
// An axis without extent has no say; without any the result is 1.
double spanFraction(const DrawingTarget& target, double dx, double dy);

inline constexpr double kLargestZoom = 64;

// homespan / viewspan. Raises Division by zero.
double magnification(const View& view);

// Spans not above zero become 1.3; then zoomfactor is computed. The status refresh calls it.
void updateZoomFactor(View& view);

// The zoom as the status bar shows it: " 4", or "1 / 4" for a view wider than the full one.
std::string zoomText(float zoomfactor);

// Pixels per drawing unit across and down, both positive.
double PixelsPerInchX(const DrawingTarget& target);
double PixelsPerInchY(const DrawingTarget& target);

}  // namespace tess
