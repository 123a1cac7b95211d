// The commands that make a CNC program of the drawing.
#include "cnc/cnc_program.h"
#include "shell/application.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

void makeMillFile(Application& application) {
  mnuCAMMakeCNCFile_Click(application.session, application.definition, application.cnc,
                          application.viewer);
}

void makeLatheFile(Application& application) {
  mnuCAMMakeCNCLatheFile_Click(application.session, application.definition, application.cnc,
                               application.viewer);
}

}  // namespace

constexpr ShellCommand kMakeMillFileCommand{
    .info = {.tool = "miMakeCNCFile",
             .caption = "Make CNC &Mill File",
             .key = "Ctrl+M",
             .menu = {"miCAM", 410},
             .bar = {"barCAM", 310},
             .touches = TouchedFiles::DrawingAndProgram},
    .run = makeMillFile,
};

constexpr ShellCommand kMakeLatheFileCommand{
    .info = {.tool = "miMakeCNCLatheFile",
             .caption = "Make CNC &Lathe File",
             .key = "Ctrl+L",
             .menu = {"miCAM", 420},
             .bar = {"barCAM", 320},
             .touches = TouchedFiles::DrawingAndProgram},
    .run = makeLatheFile,
};

}  // namespace tess
