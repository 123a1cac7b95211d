// The moving part of a mill program: X, Y and Z words are path x, path y and the row's depth.
// Owns: MillBody.
#pragma once

#include "cnc/program_body.h"

namespace tess {

class MillBody : public ProgramBody {
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

  void rapidAbove(Point place) { put(lineAt("G00", place, store.zstartpos)); }
  void liftOnly();
  void plunge();
  void travelAbove(Point place);
};

}  // namespace tess
