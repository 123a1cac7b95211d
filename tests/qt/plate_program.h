// The desktop program with the plate example open, and its picture drawn.
// Owns: PlateProgram.
#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "shell/qt/desktop_program.h"
#include "shell/qt/theme.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {

class PlateProgram : public ::testing::Test {
 protected:
  PlateProgram() {
    applyTheme(toolkit(), /*dark=*/false);
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directories(home("CNC"));
    home.write("CNC/TSMO.MRU", "");
    for (const char* const file : {"plate.cdm", "PLATE.TPM"}) {
      std::filesystem::copy(std::filesystem::path(TESSIMO_SOURCE_DIR "/examples") / file,
                            home(std::string("CNC/") + file));
    }
    program = std::make_unique<DesktopProgram>(home(), /*jetReader=*/"", user());
    program->open(home("CNC/plate.cdm"));
    // No operator opens a dialog before there is a picture.
    EXPECT_TRUE(waitFor([this] {
      return program->application().interaction.redraw.TaskQueueState() == 0 &&
             program->surface().drawing().Enabled();
    }));
  }

  TempFolder home;
  TempFolder user;
  std::unique_ptr<DesktopProgram> program;
};

}  // namespace tess::testing
