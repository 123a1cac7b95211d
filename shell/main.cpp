// The program's entry: reads the command line and picks the platform for the job.
#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

#include "shell/automation/command_line.h"
#include "shell/qt/desktop.h"
#include "shell/qt/paper.h"
#include "shell/qt/plot.h"
#include "tools/jet_reader.h"

namespace {

// A file or a display that is opened in the place of a standard stream that was closed would get
// what the program or the toolkit prints. What stands there fails as the closed stream would: it
// cannot be read where there is something to read, nor written elsewhere.
void keepStandardPlaces() {
  for (const int place : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const bool isClosed = ::fcntl(place, F_GETFD) == -1;
    if (isClosed) ::open("/dev/null", place == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  keepStandardPlaces();
  if (tess::asksForJetReader(argc, argv)) return tess::runJetReader();
  // A file that reaches the bound of its user's is a failed write, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  tess::CommandLine line = tess::parseCommandLine({argv + 1, argv + argc});
  line.showProgress = isatty(STDERR_FILENO) != 0;
  line.jetReader = tess::kThisProgram;
  tess::QtPaper paper;
  line.paper = &paper;
  if (line.job == tess::Job::Window) {
    return tess::runDesktop(
        {.drawing = line.drawing, .home = line.home, .jetReader = line.jetReader}, {argv[0]});
  }
  if (line.job == tess::Job::PlayScript) {
    return static_cast<int>(tess::playScript(line, {argv[0]}));
  }
  return static_cast<int>(
      tess::runCommandLine(line, tess::QtPictureWriter(), std::cout, std::cerr));
}
