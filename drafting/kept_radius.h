// Arcs that get another end and keep their radius.
// Owns: keptRadiusCenter.
#pragma once

#include <optional>

#include "geometry/entity.h"

namespace tess {

// The centre of the arc when it runs from `far`, the end that stays, to `to`: of two the one nearer
// to the old centre. None where the radius does not reach.
std::optional<Point> keptRadiusCenter(const Entity& arc, Point far, Point to, float tolerence);

}  // namespace tess
