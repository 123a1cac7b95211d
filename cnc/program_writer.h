// Motions as the text of a program: the only place, with cnc_line and the defaults of dialect,
// where G and M words are chosen.
// Owns: ProgramWriter.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "cnc/cnc_line.h"
#include "cnc/placeholder_text.h"
#include "cnc/program_motions.h"
#include "cnc/program_text.h"
#include "cnc/row_places.h"
#include "core/session.h"
#include "geometry/float_points.h"

namespace tess {

class ProgramWriter : public MotionReader {
 public:
  // Appends the program `cncfilename` to `out`; `lastmove` goes on from the program before. All
  // must outlive the writer.
  ProgramWriter(const Session& session, const PostDefinition& definition, CncMode mode,
                const std::string& cncfilename, LastMove& lastmove, std::string& out);

  // From now on it is noted where each path row's text begins and ends. `rows` must outlive the
  // writer.
  void recordRows(RowPlaces& rows) { rows_ = &rows; }

  // Raises Invalid procedure call for a word that is no number and for an arc that the dialect does
  // not take for one, Overflow for a program of more than 64 MB, at the start also what
  // writeHeading raises.
  void read(const MotionEvent& event) override;

 private:
  void write(const ProgramStart& start);
  void write(const RowStart&);
  void write(const ToolChange& change);
  void write(const RapidMove& move);
  void write(const PlungeMove& move);
  void write(const FeedMove& move);
  void write(const ArcMove& arc);
  void write(const CycleRun& cycle);
  void write(const Dwell& dwell);
  void write(const SpindleStop&);
  void write(const SpindleStart& start);
  void write(const ProgramEnd&);

  void endRows();
  void writeFirstTool(const ToolChange& change);
  void writeReturn(const ToolChange& change);
  void startTool(const ToolChange& change);
  void selectTool(int tool, const std::vector<std::string>& lines);
  void writeFilled(const std::vector<std::string>& lines, int tool);
  void appendPlaceholder(Placeholder placeholder, int tool);

  float asX(float radius) const;
  MotionLine lineTo(std::string_view g, ToolPlace place) const;
  void refuseUntrue(const ArcMove& arc) const;
  ToolPlace standingAt(const ArcMove& arc) const;
  bool closes(const ArcMove& arc) const;
  bool readsAs(Point a, Point b) const;
  void writeArc(const ArcMove& arc, float radius);
  void writeFullCircle(const ArcMove& arc);
  void writeHalves(const ArcMove& circle);
  float radiusOf(const ArcMove& arc) const;
  bool hasAbsoluteCenters() const;
  void setCenter(MotionLine& line, const ArcMove& arc) const;
  void writeIsoCycle(MotionLine&& line, const CycleRun& cycle);
  void closeCycles();

  void block(std::string_view text);
  void put(MotionLine&& line) {
    const std::size_t begin = text_.beginBlock();
    FormCncLine(out_, format_, lastmove_, line);
    text_.endBlock(begin);
  }

  const Session& session_;
  const PostDefinition& definition_;
  const Dialect& dialect_;
  CncMode mode_;
  const std::string& cncfilename_;
  LastMove& lastmove_;
  std::string& out_;
  LineFormat format_;
  ProgramText text_;
  RowPlaces* rows_ = nullptr;  // null: nobody asks, or all have ended
  bool forgets_;               // what was written before a change of the tool
  bool inCycles_ = false;      // a run of cycles is still to be cancelled
};

}  // namespace tess
