// What the view commands need of the armed command, which they interrupt and bring back.
// Owns: kZoomWindowAction, kPanAction, kTextAction, ArmedAction.
#pragma once

namespace tess {

// The pending actions that concern the view.
inline constexpr int kZoomWindowAction = 28;
inline constexpr int kPanAction = 29;
inline constexpr int kTextAction = 30;  // placing text keeps its own picture of the view

// The state of the interaction, as far as the view touches it.
class ArmedAction {
 public:
  virtual ~ArmedAction() = default;
  virtual int pendingaction() const = 0;
  virtual void setPendingaction(int action) = 0;  // with all that setting it brings about
  virtual int DrawMode() const = 0;
  virtual void setDrawMode(int mode) = 0;
};

}  // namespace tess
