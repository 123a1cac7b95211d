// The end of the program as the window asks for it.
#include "shell/application.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

// A redraw that goes on while the window closes paints on a surface that is going.
TEST(Closing, EndsARedrawOnceItIsAgreedTo) {
  testing::RunningProgram program;
  program.application.store.drawingsaved = false;
  program.platform.prompts.answers = {Answer::Cancel, Answer::No};
  EXPECT_FALSE(program.application.mayClose());
  EXPECT_FALSE(program.application.interaction.redraw.redrawabort);
  EXPECT_TRUE(program.application.mayClose());
  EXPECT_TRUE(program.application.interaction.redraw.redrawabort);
}

// The stock of another setup is another one.
TEST(LoadSetup, ShowsTheWholeStock) {
  testing::RunningProgram program;
  Application& application = program.application;
  program.home.write("other.msu", "part dim x = 40\r\npart dim y = 30\r\n");
  application.clickTool("miZoomIn");
  const float close = application.interaction.view.viewspan;
  program.platform.prompts.files = {program.home("other.msu")};
  application.clickTool("miLoadSetup");
  EXPECT_EQ(application.store.partdimx, 40);
  EXPECT_NE(application.interaction.view.viewspan, close);
  EXPECT_FLOAT_EQ(application.interaction.view.viewcx, 20);
}

}  // namespace
}  // namespace tess
