// The moving part of a lathe program: the X word is path y, the Z word path x, and depths are not
// written.
// Owns: LatheBody.
#pragma once

#include "cnc/program_body.h"

namespace tess {

class LatheBody : public ProgramBody {
 public:
  using ProgramBody::ProgramBody;

 private:
  MotionLine lineAt(std::string_view g, Point place, float z) const override;
  void setCentre(MotionLine& line, ArcCentre centre) const override;
  void moveToFirstRow(const PathRow& row) override;
  void changeTool(const PathRow& row) override;
  void approach(const PathRow& row) override;
  void approachArc(const PathRow& row) override;
  std::string_view straightWord(const PathRow& row) const override;
  void writeCycle(const PathRow& row) override;

  void rapidToStart(const PathRow& row);
};

}  // namespace tess
