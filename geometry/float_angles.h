// Angles of vectors and arcs, and points in polar terms.
// Owns: vectorAngle, ArcAngles, arcRadiusAndAngles, angleInSweep, ArcSweep, Polar, polarOf,
//       pointAlong.
#pragma once

#include "geometry/float_points.h"

namespace tess {

// The direction from `from` to `to` in radians, 0 to two pi. Two equal points give pi/2.
float vectorAngle(Point from, Point to);

struct ArcAngles {
  float radius = 0;          // of the start point
  float start = 0, end = 0;  // radians, 0 up to below two pi
};
ArcAngles arcRadiusAndAngles(Point start, Point end, Point center);

// True when the angle `theta` lies on the arc from `a` to `b`, both ends included and compared
// exactly: callers apply tolerances to points alone. Direction 2 runs with falling, 3 with rising
// angle; another direction takes the range between a and b. Equal a and b are the whole circle for
// 2 and 3. Raises Overflow for angles outside the 32-bit integers.
bool angleInSweep(float theta, float a, float b, int direction);

// The signed sweep of an arc from `start` to `end`: positive for direction 3, negative for 2, a
// full turn for equal angles; with another direction the plain difference. Angles out of range are
// brought into it as by angleInSweep, to whole radians only.
float ArcSweep(float start, float end, int direction);

// Direction and length of a vector, both rounded to 4 places. The degrees run from above -90 up to
// below 270: the fourth quadrant stays negative.
struct Polar {
  float degrees = 0, length = 0;
};
Polar polarOf(Point from, Point to);

// The point `d` away from `from` toward `to`. It goes by polarOf's rounded degrees and so does not
// lie exactly on the line.
Point pointAlong(Point from, Point to, float d);

}  // namespace tess
