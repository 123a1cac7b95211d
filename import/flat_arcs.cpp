// How flat an arc is.
#include "import/flat_arcs.h"

#include <algorithm>
#include <cmath>

namespace tess {

// Radius less the distance of chord and centre, written so that nothing cancels.
double riseOver(double chord, double radius) {
  const double half = std::min(chord / 2, radius);
  const double square = half * half;
  return square / (radius + std::sqrt(radius * radius - square));
}

void straightenFlatArcs(std::vector<PlacedRow>& rows, double tolerance) {
  for (PlacedRow& placed : rows) {
    DxfRow& row = placed.row;
    if (!isArc(row.type) || isWholeCircle(row) || isLongArc(row)) continue;
    const double chord = lengthOf(endOf(row) - startOf(row));
    const double radius = lengthOf(startOf(row) - centerOf(row));
    if (riseOver(chord, radius) < kFlatShare * tolerance) straighten(row);
  }
}

}  // namespace tess
