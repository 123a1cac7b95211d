// The view as calculations.
#include "display/view_transform.h"

#include <cmath>

#include "core/division.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "geometry/float_points.h"

namespace tess {

namespace {

// The full view leaves this much of a half stock beside the stock.
constexpr double kFullViewMargin = 0.65;
constexpr float kGuardedSpan = 1.3F;

int sign(int value) {
  return (value > 0) - (value < 0);
}

// The side of the stock along the fitted side of the surface.
float fittedSize(const DrawingStore& store, FittedSide side) {
  return side == FittedSide::Width ? store.partdimx : store.partdimy;
}

}  // namespace

WorldRect visibleRectangle(const View& view, float span) {
  const double acrossHalf = static_cast<double>(span) * view.aspectx;
  const double upHalf = static_cast<double>(span) * view.aspecty;
  return {narrow(view.viewcx - acrossHalf), narrow(view.viewcy - upHalf),
          narrow(view.viewcx + acrossHalf), narrow(view.viewcy + upHalf)};
}

WorldRect stockRectangle(const DrawingStore& store) {
  const float halfx = store.partdimx / 2;
  const float halfy = store.partdimy / 2;
  const float cx = halfx * static_cast<float>(sign(store.xorigin));
  const float cy = halfy * static_cast<float>(sign(store.yorigin));
  return {cx - halfx, cy - halfy, cx + halfx, cy + halfy};
}

bool isDisc(const DrawingStore& store) {
  return store.roundstock && !store.lathesetup;
}

void setPicSize(View& view, const SurfaceArea& area) {
  view.picwidth = roundHalfEven(area.width);
  view.picheight = roundHalfEven(area.height);
}

FittedSide fitAspects(View& view, const DrawingStore& store) {
  const double innerWidth = 0.9 * view.picwidth - 0.1 * view.picwidth;
  const double innerHeight = 0.9 * view.picheight - 0.1 * view.picheight;
  const double sx = quotient(store.partdimx, innerWidth);
  const double sy = quotient(store.partdimy, innerHeight);
  if (sx <= sy) {
    view.aspecty = 1;
    view.aspectx = static_cast<float>(quotient(view.picwidth, view.picheight));
    return FittedSide::Height;
  }
  view.aspectx = 1;
  view.aspecty = static_cast<float>(quotient(view.picheight, view.picwidth));
  return FittedSide::Width;
}

void resetToFullView(View& view, const DrawingStore& store, FittedSide side) {
  view.viewspan = narrow(std::abs(fittedSize(store, side) * kFullViewMargin));
  view.homespan = view.viewspan;
  const WorldRect stock = stockRectangle(store);
  view.homecx = isDisc(store) ? 0 : (stock.left + stock.right) / 2;
  view.homecy = isDisc(store) ? 0 : (stock.bottom + stock.top) / 2;
  view.viewcx = view.homecx;
  view.viewcy = view.homecy;
}

double spanFraction(const DrawingTarget& target, double dx, double dy) {
  if (dx == 0 && dy == 0) return 1;
  const double kx = dx == 0 ? 0 : std::abs(target.ScaleWidth() / dx);
  const double ky = dy == 0 ? 0 : std::abs(target.ScaleHeight() / dy);
  if (dx == 0) return quotient(1, ky);
  if (dy == 0) return quotient(1, kx);
  return quotient(1, kx < ky ? kx : ky);
}

double magnification(const View& view) {
  return quotient(view.homespan, view.viewspan);
}

void updateZoomFactor(View& view) {
  if (!(view.homespan > 0)) view.homespan = kGuardedSpan;
  if (!(view.viewspan > 0)) view.viewspan = kGuardedSpan;
  view.zoomfactor = narrow(magnification(view));
}

std::string zoomText(float zoomfactor) {
  const bool wider = zoomfactor < 1;
  const double shown = wider ? 1.0 / zoomfactor : zoomfactor;
  const std::string number = signBlankText(narrow(std::floor(shown + 0.5)));
  return wider ? "1 /" + number : number;
}

double PixelsPerInchX(const DrawingTarget& target) {
  return std::abs(target.ScaleX(1, ScaleUnit::User, ScaleUnit::Pixels));
}

double PixelsPerInchY(const DrawingTarget& target) {
  return std::abs(target.ScaleY(1, ScaleUnit::User, ScaleUnit::Pixels));
}

}  // namespace tess
