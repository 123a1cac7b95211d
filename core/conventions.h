// The conventions of the drawing and path tables, stated once.
//
// Lengths are in drawing units (inch or millimetre), angles in radians, counter-clockwise positive
// from the x axis. Row tables count from 1, tools and machine cycles from 0; tool numbers shown to
// the operator and written to programs count from 1. Clockwise arcs run from start to end with
// falling angle.
// Owns: kPoint, kLine, kClockwiseArc, kCounterClockwiseArc, kCircle, kRectangle, kRapid,
//       kFirstNonContour, kFirstCycle, kLatheRapidZ, cycleGNumber, isArc, kSelected,
//       kCodesPerState, kCodesPerGroup, kOrdinaryClass, kSelectedRow, kVerified, kVerifiedRow,
//       kParkedRow, Side, signOf, kMillimetresPerInch, kLastTool, kLastWrittenTool, kLastColorSlot,
//       kDefaultPartHeight, partHeightOr.
#pragma once

namespace tess {

// Kinds of drawing segments (column segtype).
inline constexpr int kPoint = 0;  // a bare point; only the files know it
inline constexpr int kLine = 1;
inline constexpr int kClockwiseArc = 2;
inline constexpr int kCounterClockwiseArc = 3;
inline constexpr int kCircle = 5;  // start equals end, both on the circle
inline constexpr int kRectangle = 6;

// Kinds of path moves (column pstype) share 1, 2 and 3 with the segments.
inline constexpr int kRapid = 0;
inline constexpr int kFirstNonContour = 20;  // values from here on are no contour moves
inline constexpr int kFirstCycle = 21;       // the value is the cycle's G number
// A type 1 path row at this depth is a rapid of the lathe style.
// Fixed: a rapid is marked by -99 and not by its kind; path files of lathes hold it.
inline constexpr float kLatheRapidZ = -99;

// The G number of a cycle.
constexpr int cycleGNumber(int pstype) {
  return pstype % 100;
}

constexpr bool isArc(int type) {
  return type == kClockwiseArc || type == kCounterClockwiseArc;
}

// Composite codes (columns segattr and pscode).
inline constexpr int kSelected = 30000;     // added while selected
inline constexpr int kCodesPerState = 100;  // an attribute is a state in hundreds and a class
inline constexpr int kCodesPerGroup = 100;  // a path code is a group in hundreds and a tool
inline constexpr int kOrdinaryClass = 8;    // class of a drawn entity
inline constexpr int kSelectedRow = 30008;  // an ordinary row that is selected
inline constexpr int kVerified = 30100;     // selected and accepted as pocket or island
inline constexpr int kVerifiedRow = 30108;  // an ordinary row so accepted
inline constexpr int kParkedRow = 29108;    // a verified row put aside while roughing runs

// Where a path lies beside the profile that it follows, seen along the travel. Scripts know the
// numbers.
enum class Side : int { Left = -1, On = 0, Right = 1 };

constexpr int signOf(Side side) {
  return static_cast<int>(side);
}

inline constexpr double kMillimetresPerInch = 25.4;

// Fixed table bounds.
inline constexpr int kLastTool = 99;
// Fixed: setup files never hold tool row 99; other readers of them know 99 rows.
inline constexpr int kLastWrittenTool = 98;
inline constexpr int kLastColorSlot = 7;

// A part has some height: what replaces a "part dim z" of 0 or less.
inline constexpr float kDefaultPartHeight = 0.25F;

constexpr float partHeightOr(float partdimz) {
  return partdimz <= 0 ? kDefaultPartHeight : partdimz;
}

}  // namespace tess
