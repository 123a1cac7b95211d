// The interaction state and the marks of snap features.
#include "drafting/c_state.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "core/runtime_failure.h"
#include "geometry/float_points.h"

namespace tess {
namespace {

constexpr float kDefaultSnapRadius = 0.1F;
constexpr float kMarkShare = 75;   // of the view's width: half the size of a mark
constexpr float kPointShare = 65;  // of the view's width: the width of a typed position's point
constexpr Rgb kMagenta = 0xFF00FF;

void drawSquare(const CFeaturePoint& feature, float s, PictureBoxProxy& target) {
  target.TraceLine({feature.X - s, feature.Y - s, feature.X + s, feature.Y + s}, {}, kOutlineBox);
}

void drawTriangle(const CFeaturePoint& feature, float s, PictureBoxProxy& target) {
  const float base = feature.Y - s;
  const float half = 0.75F * s;
  target.TraceLine({feature.X, feature.Y + s, feature.X + half, base});
  target.TraceLine({feature.X + half, base, feature.X - half, base});
  target.TraceLine({feature.X - half, base, feature.X, feature.Y + s});
}

void drawPoint(const CFeaturePoint& feature, PictureBoxProxy& target) {
  DrawingSurface& surface = target.surface();
  const int before = surface.state().drawWidth;
  const float width =
      target.ScaleX(target.ScaleWidth() / kPointShare, ScaleUnit::User, ScaleUnit::Pixels);
  surface.setDrawWidth(std::max(1, static_cast<int>(std::lround(width))));
  target.TraceLine({feature.X, feature.Y, feature.X, feature.Y}, kMagenta);
  surface.setDrawWidth(before);
}

}  // namespace

float CFeaturePoint::Distance(std::optional<float> x, std::optional<float> y) const {
  return distance({X, Y}, {x.value_or(RefX), y.value_or(RefY)});
}

void CFeaturePoint::Draw(PictureBoxProxy& target) const {
  const float s = std::abs(target.ScaleWidth()) / kMarkShare;
  switch (PointType) {
    case FeatureKind::EndPoint:
      return drawSquare(*this, s, target);
    case FeatureKind::Midpoint:
      return drawTriangle(*this, s, target);
    case FeatureKind::TypedPosition:
      return drawPoint(*this, target);
    case FeatureKind::Center:
    case FeatureKind::Quadrant:
    case FeatureKind::Perpendicular:
      return target.TraceCircle(X, Y, s);
  }
}

void SelectedSegments::add(int sg) {
  if (contains(sg)) return;
  const auto row = static_cast<std::size_t>(sg);
  if (row >= held_.size()) held_.resize(row + 1);
  held_[row] = true;
  rows_.push_back(sg);
}

void SelectedSegments::remove(int sg) {
  if (!contains(sg)) return;
  held_[static_cast<std::size_t>(sg)] = false;
  std::erase(rows_, sg);
}

void SelectedSegments::clear() {
  rows_.clear();
  held_.clear();
}

void SelectedSegments::fill(int count) {
  rows_.resize(static_cast<std::size_t>(count));
  std::iota(rows_.begin(), rows_.end(), 1);
  held_.assign(rows_.size() + 1, true);
}

void CState::setPendingaction(int action) {
  RevertOSnapFeatures();
  setFeaturePoint({});
  const int before = std::exchange(pendingaction_, action);
  if (before != 0 && before != action) effects.actionEnded(before);
  effects.refreshStatus();
}

void CState::setDrawMode(int mode) {
  drawMode_ = mode;
  if (mode != -1 && mode != 0) setPendingaction(0);
  effects.showDrawMode();
}

void CState::setFeaturePoint(const std::optional<CFeaturePoint>& feature) {
  if (markShown_) invertMark();
  feature_ = feature;
  markShown_ = feature_.has_value();
  if (markShown_) invertMark();
}

void CState::invertMark() {
  const PenMode before = screen_.DrawMode();
  screen_.setDrawMode(PenMode::NotXor);
  feature_->Draw(screen_);
  screen_.setDrawMode(before);
}

void CState::UpdateOSnapFeature(bool once, int index) {
  if (index < 0 || index >= kSnapKinds) throw subscriptOutOfRange();
  const auto kind = static_cast<std::size_t>(index);
  if (once) {
    OSnapActive[kind] = true;
    return;
  }
  OSnapFeatures[kind] = !OSnapFeatures[kind];
  OSnapActive[kind] = OSnapFeatures[kind];
}

void CState::RevertOSnapFeatures() {
  OSnapActive = OSnapOn ? OSnapFeatures : SnapSet{};
}

void CState::resetObjectSnap() {
  OSnapOn = false;
  OSnapRadius = kDefaultSnapRadius;
  OSnapFeatures = {};
  for (const FeatureKind kind :
       {FeatureKind::EndPoint, FeatureKind::Center, FeatureKind::Perpendicular}) {
    OSnapFeatures[static_cast<std::size_t>(kind)] = true;
  }
  RevertOSnapFeatures();
}

}  // namespace tess
