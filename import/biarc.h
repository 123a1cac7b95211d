// Curves as lines and arcs: a chain of rows that stays within a tolerance of any smooth curve and
// has no corner where the curve has none.
//
// Each piece of the curve becomes two arcs that touch its ends in its own directions and each other
// in the middle. A piece that departs from its arcs by more than the tolerance is halved.
// Owns: CurvePoint, PlaneCurve, kMaxExactRows, appendBiarcs.
#pragma once

#include <cstddef>
#include <vector>

#include "geometry/plane.h"
#include "import/dxf_rows.h"

namespace tess {

struct CurvePoint {
  PlanePoint at;
  PlanePoint direction;  // of length 1; (0, 0) where the curve has none
};

// A curve in pieces, each smooth within itself. Between two of them it may have a corner.
class PlaneCurve {
 public:
  virtual ~PlaneCurve() = default;
  virtual int spans() const = 0;  // at least 1
  // The point of a span, counted from 0, at a share of its way, 0 to 1.
  virtual CurvePoint pointAt(int span, double share) const = 0;
};

// More rows of one curve than any drawing can hold: what goes on beyond them is not worth its
// making.
inline constexpr std::size_t kMaxExactRows = 100000;

// Appends rows along the curve from its start to its end. `tolerance` is the greatest distance of a
// point of the curve from the rows and of the rows from the curve, where the 32 bits of the tables
// can tell it. False when it stopped at kMaxExactRows.
bool appendBiarcs(const PlaneCurve& curve, double tolerance, std::vector<DxfRow>& rows);

}  // namespace tess
