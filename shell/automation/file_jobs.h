// Jobs on single files that need neither a window nor a script.
// Owns: CncJob, makeCncFile, ToolsJob, exchangeTools, PrintJob, writePrint, PlotJob, writePlot,
//       CheckJob, checkPaths.
#pragma once

#include <iosfwd>
#include <string>

#include "cnc/cnc_program.h"
#include "shell/automation/script_runner.h"

namespace tess {

struct CncJob {
  std::string drawing;  // "CDM" is added to a name without an extension
  CncMode mode = CncMode::Mill;
  std::string output;            // of the program; empty: where its rules put it
  std::string setup{};           // by its name in the program's folder; empty: the one in force
  bool force = false;            // also over what is no program, and by a damaged definition
  std::string appfolder;         // with its last separator
  std::optional<DateTime> date;  // that the program's clock tells; none: the real one
};

// Loads the drawing and writes its program, whose path goes to `out` unless it was given. A drawing
// that does not load, or has no paths, gives one line on `err`; so do a setup that is not there,
// and a program that would take the place of something else, or be made by a damaged definition.
ExitStatus makeCncFile(const CncJob& job, std::ostream& out, std::ostream& err);

struct ToolsJob {
  std::string file;  // a tool library by its ending
  bool imports = false;
  bool force = false;     // export also over a .csv file that holds no tools
  std::string appfolder;  // with its last separator
};

// Writes the tools of the setup in force to the file, or takes over those of the file and saves the
// setup, whose path goes to `out`. Each line that cannot be taken is a line on `err` and fails the
// job; the others are taken. Failures as above.
ExitStatus exchangeTools(const ToolsJob& job, std::ostream& out, std::ostream& err);

struct PrintJob {
  std::string drawing;
  std::string file;                  // "PDF" is added to a name without an extension
  double scale = 1;                  // paper over part
  std::optional<std::string> sheet;  // a paper size; none: that of the page set-up
  bool force = false;                // also over a file of the drawing
  std::string appfolder;             // with its last separator
  Paper* paper = nullptr;
};

// Loads the drawing and writes it with its paths to a PDF file, to scale. Failures as above.
ExitStatus writePrint(const PrintJob& job, std::ostream& err);

struct PlotJob {
  std::string drawing;
  std::string picture;  // "PNG" is added to a name without an extension; .svg: in real units
  bool force = false;   // also over a file of the drawing
  PixelSize size;
  std::string appfolder;         // with its last separator
  std::optional<DateTime> date;  // as above
};

// Loads the drawing and writes a picture of it with its paths: as it opens, or all of it when it
// reaches beyond that view. Failures as above.
ExitStatus writePlot(const PlotJob& job, const PictureWriter& writePicture, std::ostream& err);

struct CheckJob {
  std::string drawing;
  std::string appfolder;  // with its last separator
};

// Loads the drawing and writes the proof of its paths to `out`. The job fails when a limit is
// passed. Failures as above.
ExitStatus checkPaths(const CheckJob& job, std::ostream& out, std::ostream& err);

}  // namespace tess
