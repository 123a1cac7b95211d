// What a program tells a machine, step by step, before any word of it is chosen. The generator of
// cnc/ makes these events; writers of programs, reports and checks of paths read them. They stand
// this low so that every room can read them.
//
// Places are in the axes of the path and in drawing units, for mill and lathe alike; the z of a
// lathe's motions says nothing. A motion starts where the one before it ended. Only the motion of a
// row has a start of its own, which lies within the tolerance of that place.
// Owns: ToolPlace, MoveReason, MovedAxes, ToolOccasion, ProgramStart, RowStart, ToolChange,
//       RapidMove, PlungeMove, FeedMove, ArcMove, CycleRun, Dwell, SpindleStop, SpindleStart,
//       ProgramEnd, MotionEvent, MotionReader.
#pragma once

#include <variant>

namespace tess {

struct ToolPlace {
  float x = 0, y = 0, z = 0;
  friend bool operator==(const ToolPlace&, const ToolPlace&) = default;
};

// Why the tool moves at rapid speed.
enum class MoveReason {
  Row,       // the row at hand asks for it
  Lift,      // up to the safe height, where the tool stands
  Travel,    // across, at the safe height
  Descent,   // down to the depth of the row at hand, where the tool stands
  Approach,  // of a lathe: straight to the start of the row at hand
};

// Which axes have to be told.
enum class MovedAxes {
  Changed,  // those that change
  Place,    // x and y in any case, z when it changes
  Height,   // z in any case, and no other
};

// What a tool change is for.
enum class ToolOccasion {
  First,   // the tool of the first row
  Next,    // the tool of the row at hand
  Return,  // behind the last row, with the spindle stopped: back to the first tool
};

struct ProgramStart {
  bool isMetric = false;
  friend bool operator==(const ProgramStart&, const ProgramStart&) = default;
};

// What comes up to the next row is done for this path row, of whatever kind it is.
struct RowStart {
  int row = 0;   // from 1
  int tool = 0;  // from 1
  friend bool operator==(const RowStart&, const RowStart&) = default;
};

struct ToolChange {
  ToolOccasion occasion = ToolOccasion::First;
  int tool = 0;            // from 1
  float spindlespeed = 0;  // to start with; 0 leaves the spindle as it is
  friend bool operator==(const ToolChange&, const ToolChange&) = default;
};

struct RapidMove {
  ToolPlace to;
  MoveReason reason = MoveReason::Row;
  MovedAxes axes = MovedAxes::Changed;
  friend bool operator==(const RapidMove&, const RapidMove&) = default;
};

// Down, or up, to the depth of the row at hand at the plunge rate.
struct PlungeMove {
  ToolPlace to;
  float feed = 0;  // this and all feeds in drawing units per minute
  friend bool operator==(const PlungeMove&, const PlungeMove&) = default;
};

struct FeedMove {
  ToolPlace from, to;
  float feed = 0;
  friend bool operator==(const FeedMove&, const FeedMove&) = default;
};

// Equal ends are a full circle.
struct ArcMove {
  int type = 0;  // kClockwiseArc or kCounterClockwiseArc
  ToolPlace from, to;
  float centerx = 0, centery = 0;
  float feed = 0;
  friend bool operator==(const ArcMove&, const ArcMove&) = default;
};

// A machine cycle; a mill stands at the safe height before and after it.
struct CycleRun {
  int number = 0;       // of its G word
  ToolPlace place;      // the hole; its z is the safe height
  float depth = 0;      // below z 0, without a sign
  float increment = 0;  // 0 for the cycles that go down at once
  float dwell = 0;      // 0 for the cycles that have none
  float feed = 0;
  friend bool operator==(const CycleRun&, const CycleRun&) = default;
};

// The machine waits where it stands.
struct Dwell {
  float time = 0;  // in the unit of the cycles' dwells
  friend bool operator==(const Dwell&, const Dwell&) = default;
};

struct SpindleStop {
  friend bool operator==(const SpindleStop&, const SpindleStop&) = default;
};

// As behind a change to the tool.
struct SpindleStart {
  int tool = 0;  // from 1
  friend bool operator==(const SpindleStart&, const SpindleStart&) = default;
};

struct ProgramEnd {
  friend bool operator==(const ProgramEnd&, const ProgramEnd&) = default;
};

using MotionEvent =
    std::variant<ProgramStart, RowStart, ToolChange, RapidMove, PlungeMove, FeedMove, ArcMove,
                 CycleRun, Dwell, SpindleStop, SpindleStart, ProgramEnd>;

// Is told the events of one program in their order.
class MotionReader {
 public:
  virtual ~MotionReader() = default;
  virtual void read(const MotionEvent& event) = 0;
};

}  // namespace tess
