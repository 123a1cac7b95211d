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

}  // namespace
}  // namespace tess
