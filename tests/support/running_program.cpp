// The whole program on a virtual screen.
#include "tests/support/running_program.h"

#include <filesystem>

#include "tests/support/source_folder.h"

namespace tess::testing {

RunningProgram::RunningProgram(Paper* paper)
    : application({.host = platform.host,
                   .reporting = reporting,
                   .screen = screen.ports,
                   .others = &others,
                   .userfolder = userfolder(),
                   .paper = paper}) {
  std::filesystem::copy(TESSIMO_SOURCE_DIR "/tests/scripts/home", home());
  std::filesystem::create_directory(home("CNC"));
  screen.pointer.onArrival = [this](int pixelX, int pixelY) { arrive(pixelX, pixelY); };
  application.start(/*drawing=*/"", home());
}

RunningProgram::~RunningProgram() = default;

}  // namespace tess::testing
