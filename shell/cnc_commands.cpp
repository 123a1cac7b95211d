// The commands around CNC programs: making one of the drawing, looking at one, and the setup.
#include "cnc/browse_program.h"
#include "cnc/cnc_program.h"
#include "cnc/dlgGcodeGen.h"
#include "shell/application.h"
#include "shell/shell_commands.h"

namespace tess {
namespace {

void makeMillFile(Application& application) {
  mnuCAMMakeCNCFile_Click(application.session, application.definition, application.cnc,
                          application.viewer);
  application.pathTotals.markStale();
}

void makeLatheFile(Application& application) {
  mnuCAMMakeCNCLatheFile_Click(application.session, application.definition, application.cnc,
                               application.viewer);
  application.pathTotals.markStale();
}

void setUpCnc(Application& application) {
  mnuOptionsGcodeSetup_Click(application.handOver);
  application.pathTotals.markStale();
  application.interaction.redraw.redrawscreen();
}

void browseCncFile(Application& application) {
  mnuCAMBrowseCNCFile_Click(application.session, application.viewer);
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

constexpr ShellCommand kBrowseCncFileCommand{
    .info = {.tool = "miBrowseCNCFile", .caption = "&Browse CNC File...", .menu = {"miCAM", 430}},
    .run = browseCncFile,
};

constexpr ShellCommand kCncSetupCommand{
    .info = {.tool = "miG-codeControlSetup",
             .caption = "&G-code Control Setup...",
             .menu = {"miOptions", 120}},
    .run = setUpCnc,
};

}  // namespace tess
