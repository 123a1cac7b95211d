// Lead-in and lead-out of a true path: as long as the parameters say where the walls let them.
// Owns: LeadShape, LeadPair, leadsAt, clearLeadLength.
#pragma once

#include <functional>

#include "geometry/curve.h"

namespace tess {

struct LeadShape {
  bool arcs = false;  // else lines
  double angle = 0;   // degrees, between the lead and the path
  double length = 0;
};

struct LeadPair {
  Curve in, out;
};

// Of a path that begins and ends with these curves, on the side that is free.
LeadPair leadsAt(const Curve& first, const Curve& last, bool freeLeft, const LeadShape& shape);

// The shape's length, or the greatest at which both leads are clear; 0 when none is.
double clearLeadLength(const Curve& first, const Curve& last, bool freeLeft, const LeadShape& shape,
                       const std::function<bool(const Curve&)>& isClear);

}  // namespace tess
