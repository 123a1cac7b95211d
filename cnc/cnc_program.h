// CNC programs: the path rows of the open drawing as one RS-274-D text file for a mill or a lathe,
// in the words of the post-processor definition in force.
// Owns: MadeProgram, CncState, ProgramViewer, programText, programFile, ProgramFile,
//       WriteCncFinish, make_cnc, mnuCAMMakeCNCFile_Click, mnuCAMMakeCNCLatheFile_Click.
#pragma once

#include <functional>
#include <string>

#include "cnc/cnc_line.h"
#include "cnc/post_definition.h"
#include "cnc/program_motions.h"
#include "cnc/row_places.h"
#include "core/checksum.h"
#include "core/session.h"

namespace tess {

// A program by its text, and what its lines were made for.
struct MadeProgram {
  Checksum text;
  RowPlaces rows;
};

// What outlives one program.
struct CncState {
  std::string cncfilename;  // of the program made last, without its folder
  LastMove lastmove;
  bool keepsMade = false;  // whether anybody asks for `made`
  MadeProgram made;        // the one made last
  int lines = 0;           // of the one written last
  // What speaks against the paths as they are, line by line; empty when nothing does. Nobody asks
  // where it is not set.
  std::function<std::string()> objections;
};

// Where a finished program is shown, and from there sent on.
class ProgramViewer {
 public:
  virtual ~ProgramViewer() = default;
  // `notice` is what has to be said about the file, or "".
  virtual void showFile(const std::string& file, const std::string& notice) = 0;
};

// The whole program of the drawing, which has at least one path row, under state.cncfilename.
// Raises Invalid procedure call for a value that is no number, Subscript out of range for a row
// without a tool, and Overflow when it would be longer than 64 MB; the failure's source names the
// path row.
std::string programText(const Session& session, const PostDefinition& definition, CncState& state,
                        CncMode mode);

// Where the program of the drawing belongs: its name in "cnc output path", or in the drawing's
// folder when that setting is blank or not there.
std::string programFile(const DrawingStore& store);

// Where a program goes.
struct ProgramFile {
  std::string path = {};     // empty: programFile
  bool overDrawing = false;  // also where the drawing or its path file is
};

// Writes it there. An old program is replaced only by a complete one. Raises also what writeFile
// raises, and File already exists for a file of the drawing.
void WriteCncFinish(const Session& session, const PostDefinition& definition, CncState& state,
                    CncMode mode, const ProgramFile& file = {});

// Asks about unsaved work first, then about another kind of machine, whether objections count, and
// whether a program for the other kind of machine may go; false when the operator cancels, true
// when a file was written.
bool make_cnc(Session& session, const PostDefinition& definition, CncState& state, CncMode mode,
              const ProgramFile& file = {});

// The two commands: they make the program and show it.
void mnuCAMMakeCNCFile_Click(Session& session, const PostDefinition& definition, CncState& state,
                             ProgramViewer& viewer);
void mnuCAMMakeCNCLatheFile_Click(Session& session, const PostDefinition& definition,
                                  CncState& state, ProgramViewer& viewer);

}  // namespace tess
