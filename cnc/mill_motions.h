// The motions of a mill: travel at the safe height "z start pos", plunges and cycles.
// Owns: MillMotions.
#pragma once

#include "cnc/motion_pass.h"

namespace tess {

class MillMotions : public MotionPass {
 public:
  using MotionPass::MotionPass;

 private:
  void moveToFirstRow(const PathRow& row) override;
  void changeTool(const PathRow& row) override;
  void approach(const PathRow& row) override;
  void approachArc(const PathRow& row) override;
  bool isRapid(const PathRow& straight) const override;
  void runCycle(const PathRow& row) override;
  void leaveWork() override;
  void goToChangePlace() override;
  void leaveAtEnd() override { leaveWork(); }

  void lift(MovedAxes axes = MovedAxes::Changed);
  void travel(MovedAxes axes = MovedAxes::Changed);
  void descend();
  void plungeFrom(float z);
  void approachCycle();
  void expand(const PathRow& row);
  bool knowsHeightAfter(int cycle) const;

  bool standsSafe_ = false;  // at the safe height behind a cycle of known moves
};

}  // namespace tess
