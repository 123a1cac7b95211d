// The motions of a program: one pass over the path rows with a current tool and a current position,
// told to a reader event by event. What mills and lathes do differently stands in mill_motions and
// lathe_motions.
// Owns: MotionPass.
#pragma once

#include "cnc/motion_rules.h"
#include "core/drawing_rows.h"
#include "core/motion_stream.h"
#include "geometry/float_points.h"

namespace tess {

struct DrawingStore;

class MotionPass {
 public:
  MotionPass(const DrawingStore& drawing, MotionReader& listening, const MotionRules& wanted)
      : store(drawing), rules(wanted), reader_(listening) {}
  virtual ~MotionPass() = default;
  MotionPass(const MotionPass&) = delete;
  MotionPass& operator=(const MotionPass&) = delete;

  // Tells the whole program, or nothing without path rows. Raises Subscript out of range for a row
  // without a tool. A failure, the reader's too, names its row as the source.
  void run();

 protected:
  // The steps of the pass that differ.
  virtual void moveToFirstRow(const PathRow& row) = 0;
  virtual void changeTool(const PathRow& row) = 0;
  virtual void approach(const PathRow& row) = 0;
  virtual void approachArc(const PathRow& row) = 0;
  virtual bool isRapid(const PathRow& straight) const = 0;
  virtual void runCycle(const PathRow& row) = 0;
  virtual void leaveWork() = 0;  // where the tool moves freely, as far as that is known
  virtual void goToChangePlace() = 0;
  virtual void leaveAtEnd() = 0;

  // What a row says.
  static Point startOf(const PathRow& row) { return {row.x0, row.y0}; }
  static Point endOf(const PathRow& row) { return {row.x1, row.y1}; }
  static bool isContourMove(const PathRow& row) { return row.type < kFirstNonContour; }

  Point here() const { return {curx, cury}; }
  bool isHere(Point place) const;
  void moveTo(Point place) { curx = place.x, cury = place.y; }
  ToolPlace hereAt(float z) const { return {curx, cury, z}; }
  void tell(const MotionEvent& event) { reader_.read(event); }
  void changeTo(ToolOccasion occasion);  // the tool of the row at hand
  CycleRun cycleOf(const PathRow& row) const;
  MotionReader& reader() { return reader_; }

  const DrawingStore& store;
  const MotionRules rules;
  int tool = 0;  // of the row at hand, from 1
  float curx = 0, cury = 0, curz = 0;
  bool fresh = true;  // no motion since the last change of the tool

 private:
  void start(const PathRow& row);
  void beginMovement(const PathRow& row);
  void doRow(int ps);
  void doMotion(const PathRow& row);
  void doStraight(const PathRow& row);
  void doArc(const PathRow& row);
  void endRows();
  void prepareChange(ToolOccasion occasion);
  bool changesAbove() const;

  MotionReader& reader_;
  int firsttool_ = 0;
  int lasttool_ = 0;
};

}  // namespace tess
