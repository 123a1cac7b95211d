// Wheel and middle button.
#include "display/view_navigation.h"

#include <algorithm>
#include <cmath>

#include "core/drawing_store.h"
#include "core/pending_action.h"

namespace tess {

namespace {

constexpr double kWheelStep = 0.8;  // of the extents
constexpr int kMostSteps = 40;      // of one event: more than from one end to the other

}  // namespace

bool ViewNavigation::wheelZooms() const {
  return parts_.store.desktopkeys &&
         parts_.armed.pendingaction() != static_cast<int>(PendingAction::PlaceText);
}

void ViewNavigation::turnWheel(int steps, Point at) {
  const View& view = parts_.view;
  if (!(view.viewspan > 0) || !(view.homespan > 0)) return;
  const double span = view.viewspan;
  const double home = view.homespan;
  const double wanted = span * std::pow(kWheelStep, std::clamp(steps, -kMostSteps, kMostSteps));
  const double next =
      std::clamp(wanted, std::min(home / kLargestZoom, span), std::max(home * kLargestZoom, span));
  if (narrow(next) == view.viewspan) return;
  const double part = next / span;
  commands_.showView(
      {narrow(at.x + (view.viewcx - at.x) * part), narrow(at.y + (view.viewcy - at.y) * part)},
      narrow(next));
}

void ViewNavigation::beginPan(Point at) {
  if (!parts_.store.desktopkeys) return;
  grabbed_ = at;
  shapeBefore_ = parts_.pointer.MousePointer();
  commands_.showPanPointer();
}

void ViewNavigation::movePan(Point at) {
  if (!grabbed_ || at == *grabbed_) return;
  const View& view = parts_.view;
  commands_.showView({view.viewcx + (grabbed_->x - at.x), view.viewcy + (grabbed_->y - at.y)},
                     view.viewspan);
}

void ViewNavigation::endPan(Point at) {
  if (!grabbed_) return;
  movePan(at);
  grabbed_.reset();
  parts_.pointer.setMousePointer(shapeBefore_);
}

}  // namespace tess
