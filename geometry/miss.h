// Why a question of geometry has no answer.
// Owns: Miss.
#pragma once

namespace tess {

enum class Miss {
  None,      // it has one
  NoRadius,  // the radius of the circle is not positive
  NoHit,     // the line passes the circle by
  Parallel,  // two lines have exactly the same slope
  Apart,     // the two do not meet, or meet where one of them is not
  SameRow,   // a row and itself
  NoRule,    // there is no answer for rows of such a kind
};

}  // namespace tess
