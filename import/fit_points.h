// The cubic through the fit points of a spline, for files that give no control points.
// Owns: spansThrough.
#pragma once

#include "import/spline_curve.h"

namespace tess {

// The spans of the cubic with steady curvature through the fit points. Its ends follow the tangents
// where the file gives them and run out straight elsewhere; a closed one comes back to its first
// point smoothly. None for fewer than two different points, or a coordinate that is too large.
std::vector<BezierSpan> spansThrough(const DxfSpline& spline, bool closed,
                                     const BlockPlacement& placement);

}  // namespace tess
