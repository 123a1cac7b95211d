// The words for the kinds of drawing rows.
#include "core/row_words.h"

#include "core/conventions.h"

namespace tess {

const char* segmentTypeWord(int segtype) {
  switch (segtype) {
    case kLine:
      return "Line";
    case kClockwiseArc:
      return "CW Arc";
    case kCounterClockwiseArc:
      return "CCW Arc";
    case kCircle:
      return "Circle";
    case kRectangle:
      return "Rect";
    default:
      return "";
  }
}

}  // namespace tess
