// The interaction state: the armed action, the drawing mode, the object-snap sets and the current
// snap feature, and the collection of selected segments.
// Owns: FeatureKind, kSnapKinds, SnapSet, CFeaturePoint, SelectedSegments, CState.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "display/armed_action.h"
#include "display/drawing_target.h"

namespace tess {

// Kinds of snap features, as the snap menu's tags have them.
enum class FeatureKind : int {
  EndPoint = 1,
  Center = 2,
  Midpoint = 3,
  Quadrant = 4,
  Perpendicular = 5,
  TypedPosition = 6,
};

inline constexpr int kSnapKinds = 7;  // indexed by kind; 0 is not used
using SnapSet = std::array<bool, kSnapKinds>;

// A characteristic point that the pointer may snap to.
struct CFeaturePoint {
  float RefX = 0, RefY = 0;  // the pointer when it was computed
  float X = 0, Y = 0;
  FeatureKind PointType = FeatureKind::EndPoint;

  // To a point; a missing coordinate is that of the pointer.
  float Distance(std::optional<float> x = {}, std::optional<float> y = {}) const;
  // Its mark, sized by the view; whoever draws it sets the pen.
  void Draw(PictureBoxProxy& target) const;
};

// The selected drawing rows in the order of their selection, each once.
class SelectedSegments {
 public:
  void add(int sg);
  void remove(int sg);
  void clear();
  void fill(int count);  // rows 1 to count
  bool contains(int sg) const {
    const auto row = static_cast<std::size_t>(sg);
    return row < held_.size() && held_[row];
  }
  const std::vector<int>& rows() const { return rows_; }

 private:
  std::vector<int> rows_;
  std::vector<bool> held_;  // by row number
};

class CState : public ArmedAction {
 public:
  // What setting the state brings about; filled in by the context that works on it.
  struct Effects {
    std::function<void()> refreshStatus = [] {};
    std::function<void()> showDrawMode = [] {};         // tool checks and pointer shape
    std::function<void(int)> actionEnded = [](int) {};  // by itself, by Esc, or by another
  };

  explicit CState(PictureBoxProxy& screen) : screen_(screen) {}

  Effects effects;

  int pendingaction() const override { return pendingaction_; }
  // Ends a single use of object snap and drops the snap feature.
  void setPendingaction(int action) override;
  int DrawMode() const override { return drawMode_; }
  // A drawing mode replaces the armed action.
  void setDrawMode(int mode) override;

  // The current snap feature; setting it erases the mark of the old one and draws the new one.
  const std::optional<CFeaturePoint>& FeaturePoint() const { return feature_; }
  void setFeaturePoint(const std::optional<CFeaturePoint>& feature);
  // A redraw has wiped the mark off the screen; the feature stays.
  void forgetMark() { markShown_ = false; }

  bool OSnapOn = false;
  float OSnapRadius = 0.1F;  // as a fraction of the view's width
  SnapSet OSnapFeatures{};   // the persistent set
  SnapSet OSnapActive{};     // the set in force

  // Turns a kind of the persistent set over, or offers it for a single use.
  void UpdateOSnapFeature(bool once, int index);
  // The set in force becomes the persistent one when snap is on, else empty.
  void RevertOSnapFeatures();
  // As after a load of the setup: off, radius 0.1, kinds 1, 2 and 5 persistent.
  void resetObjectSnap();

  SelectedSegments Selected;
  bool updateProperties = false;  // the property window must reload

 private:
  void invertMark();

  PictureBoxProxy& screen_;
  int pendingaction_ = 0;
  int drawMode_ = 0;
  std::optional<CFeaturePoint> feature_;
  bool markShown_ = false;
};

}  // namespace tess
