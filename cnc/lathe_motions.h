// The motions of a lathe: from row to row by rapids in the plane of the path, straight, or round
// the work where the rules say how far beside it.
// Owns: LatheMotions.
#pragma once

#include <optional>
#include <vector>

#include "cnc/lathe_room.h"
#include "cnc/motion_pass.h"

namespace tess {

class LatheMotions : public MotionPass {
 public:
  LatheMotions(const DrawingStore& drawing, MotionReader& listening, const MotionRules& wanted);

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

  std::optional<Point> standsAt() const;
  void goBy(const std::vector<Point>& places, MoveReason reason);
  void enterRow(const PathRow& row);
  void leaveRow();

  std::optional<LatheRoom> room_;  // where the rules ask for it
  PathRow last_;                   // the row that was run last
};

}  // namespace tess
