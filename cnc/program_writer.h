// Motions as the text of a program: the only place, with cnc_line, where G and M words are chosen.
// Owns: ProgramWriter.
#pragma once

#include <string>
#include <string_view>

#include "cnc/cnc_line.h"
#include "cnc/program_motions.h"
#include "cnc/program_text.h"
#include "cnc/row_places.h"
#include "core/session.h"

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

  // Raises Invalid procedure call for a word that is no number, Overflow for a program of more than
  // 64 MB, at the start also what writeHeading raises.
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
  void write(const ProgramEnd&);

  void endRows();
  void writeFirstTool(const ToolChange& change);
  void writeReturn(const ToolChange& change);
  void selectTool(const ToolChange& change);
  void startTool(const ToolChange& change);

  MotionLine lineTo(std::string_view g, ToolPlace place) const;
  void setCenter(MotionLine& line, const ArcMove& arc) const;
  void put(MotionLine&& line) { FormCncLine(out_, format_, lastmove_, line); }

  const Session& session_;
  const PostDefinition& definition_;
  CncMode mode_;
  const std::string& cncfilename_;
  LastMove& lastmove_;
  std::string& out_;
  LineFormat format_;
  ProgramText text_;
  RowPlaces* rows_ = nullptr;  // null: nobody asks, or all have ended
};

}  // namespace tess
