// Sheets of a drawing to scale, painted.
// Owns: arcPath, paintSheet.
#pragma once

#include <QPainter>
#include <QPainterPath>

#include "display/paper.h"

namespace tess {

// The sweep of `arc` about another centre and with another radius, on a page whose y grows
// downward. Exact to a millionth of the radius.
QPainterPath arcPath(QPointF center, double radius, const WorldArc& arc);

// One sheet, counted from 0, in millimetres from its upper left corner.
void paintSheet(const SheetPrint& print, std::size_t number, QPainter& painter);

}  // namespace tess
