// The marks of a path proof.
#include "display/proof_marks.h"

namespace tess {
namespace {

void fill(const std::vector<WorldBox>& boxes, Rgb color, PictureBoxProxy& target) {
  for (const WorldBox& box : boxes) target.TraceLine(box, color, kFilledBox);
}

}  // namespace

void paintProofAreas(const ProofMarks& marks, PictureBoxProxy& target) {
  target.setDrawMode(PenMode::Copy);
  target.setDrawStyle(PenStyle::Solid);
  fill(marks.left, kLeftColor, target);
  fill(marks.tooDeep, kTooDeepColor, target);
}

void paintCrosshairs(const ProofMarks& marks, PictureBoxProxy& target) {
  constexpr float kHalf = 12;  // this and the radius in pixels
  constexpr float kRadius = 7;
  const float hx = target.ScaleX(kHalf, ScaleUnit::Pixels, ScaleUnit::User);
  const float hy = target.ScaleY(kHalf, ScaleUnit::Pixels, ScaleUnit::User);
  const float radius = target.ScaleX(kRadius, ScaleUnit::Pixels, ScaleUnit::User);
  target.setDrawMode(PenMode::Copy);
  target.setDrawStyle(PenStyle::Solid);
  for (const auto& [x, y] : marks.crosshairs) {
    target.TraceLine({x - hx, y, x + hx, y}, kTooDeepColor);
    target.TraceLine({x, y - hy, x, y + hy}, kTooDeepColor);
    target.TraceCircle(x, y, radius, kTooDeepColor);
  }
}

}  // namespace tess
