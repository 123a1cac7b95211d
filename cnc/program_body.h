// The moving part of a program: one pass over the path rows with a current tool and a current
// position. What mills and lathes do differently stands in mill_body and lathe_body.
// Owns: ProgramBody, ArcCentre.
#pragma once

#include <string>
#include <string_view>

#include "cnc/cnc_line.h"
#include "cnc/program_text.h"
#include "core/session.h"
#include "geometry/points.h"

namespace tess {

// Where an arc has its centre, as the words tell it, in path axes.
struct ArcCentre {
  float arci = 0, arcj = 0;
};

class ProgramBody {
 public:
  // Lines are appended to `out`; `lastmove` goes on from the program before.
  ProgramBody(const Session& session, const PostDefinition& definition, LastMove& lastmove,
              std::string& out);
  virtual ~ProgramBody() = default;
  ProgramBody(const ProgramBody&) = delete;
  ProgramBody& operator=(const ProgramBody&) = delete;

  // Writes from the units word to the return to the first tool. Needs at least one path row. A
  // failure names its row as the source; Overflow for a program of more than 64 MB is among them.
  void write();

 protected:
  // A line at a place in path axes, or at the current position.
  virtual MotionLine lineAt(std::string_view g, Point place, float z) const = 0;
  MotionLine lineHere(std::string_view g) const { return lineAt(g, here(), curz); }
  virtual void setCentre(MotionLine& line, ArcCentre centre) const = 0;

  // The steps of the pass that differ.
  virtual void moveToFirstRow(const PathRow& row) = 0;
  virtual void changeTool(const PathRow& row) = 0;
  virtual void approach(const PathRow& row) = 0;
  virtual void approachArc(const PathRow& row) = 0;
  virtual std::string_view straightWord(const PathRow& row) const = 0;
  virtual void writeCycle(const PathRow& row) = 0;

  // What a row says.
  static Point startOf(const PathRow& row) { return {row.x0, row.y0}; }
  static Point endOf(const PathRow& row) { return {row.x1, row.y1}; }
  static bool isContourMove(const PathRow& row) { return row.type < kFirstNonContour; }
  static std::string cycleWord(const PathRow& row);  // "G" and the last two digits of its kind
  static float cycleDwell(const PathRow& row);       // 0 for the cycles that have none

  Point here() const { return {curx, cury}; }
  bool isHere(Point place) const { return samePoint(here(), place, store.cfg_tolerance); }
  void moveTo(Point place) { curx = place.x, cury = place.y; }
  void put(MotionLine&& line) { FormCncLine(out_, format_, lastmove_, line); }
  void announceTool(int number);  // title, "M06" and the spindle

  const DrawingStore& store;
  int tool = 0;  // of the row at hand, from 1
  float curx = 0, cury = 0, curz = 0;

 private:
  void start();
  void beginMovement(const PathRow& row);
  void writeRow(const PathRow& row);
  void writeRapid(const PathRow& row);
  void writeStraight(const PathRow& row);
  void writeArc(const PathRow& row, std::string_view g);
  void resetToFirstTool();
  ArcCentre centreOf(const PathRow& row) const;
  float radiusWord(const PathRow& row, ArcCentre offset) const;
  void selectTool(int number);

  const PostDefinition& definition_;
  LineFormat format_;
  LastMove& lastmove_;
  std::string& out_;
  ProgramText text_;
  int firsttool_ = 0;
  int lasttool_ = 0;
};

}  // namespace tess
