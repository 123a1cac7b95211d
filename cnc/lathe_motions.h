// The motions of a lathe: from row to row by rapids in the plane of the path.
// Owns: LatheMotions.
#pragma once

#include "cnc/motion_pass.h"

namespace tess {

class LatheMotions : public MotionPass {
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
  void leaveAtEnd() override;
};

}  // namespace tess
