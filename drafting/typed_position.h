// Positions typed by the operator: `x,y`, `@dx,dy` and `@length<angle` from the marker, with sums
// in the place of numbers. A typed position is a click like that of the pointer, on the very place.
// Owns: kLongestPosition, TypedPosition, readPosition, typePosition.
#pragma once

#include <string>
#include <string_view>

#include "drafting/drafting_context.h"

namespace tess {

inline constexpr std::size_t kLongestPosition = 200;  // characters

struct TypedPosition {
  Point at;             // in drawing units
  std::string trouble;  // what is wrong with the text, and where; "" for a position
};

// What a text says; `from` is where @ begins. Angles are in degrees, counter-clockwise from X.
TypedPosition readPosition(std::string_view text, Point from);

// A click with the button at the position that the text says. What is picked by a drag, as by
// Measure, takes two: the first presses, the second releases. Gives back what is wrong, "" when the
// click was made.
std::string typePosition(DraftingContext& context, std::string_view text, int button);

}  // namespace tess
