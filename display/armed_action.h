// What the view commands need of the armed command, which they interrupt and bring back.
// Owns: ArmedAction.
#pragma once

namespace tess {

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
