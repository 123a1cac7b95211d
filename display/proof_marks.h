// What a path proof shows on the drawing: crosshairs at its findings, and in colour what is left
// and what is cut too deep.
// Owns: ProofMarks, kLeftColor, kTooDeepColor, paintProofAreas, paintCrosshairs.
#pragma once

#include <vector>

#include "display/drawing_target.h"

namespace tess {

struct ProofMarks {
  std::vector<WorldBox> left, tooDeep;  // areas as boxes that lie on one another
  std::vector<Point> crosshairs;
};

inline constexpr Rgb kLeftColor = 0x0096F0;     // amber
inline constexpr Rgb kTooDeepColor = 0x3C3CE6;  // red; both show on a white and on a black ground

// Boxes lower than a pixel are drawn as lines.
void paintProofAreas(const ProofMarks& marks, PictureBoxProxy& target);

// 12 pixels to each side and round the place.
void paintCrosshairs(const ProofMarks& marks, PictureBoxProxy& target);

}  // namespace tess
