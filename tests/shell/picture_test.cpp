// The picture of a drawing beside the one on the screen.
#include "shell/picture.h"

#include <filesystem>

#include "gtest/gtest.h"

#include "shell/virtual_screen.h"
#include "tests/support/recording_host.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

class Picture : public ::testing::Test {
 protected:
  Picture() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/tests/scripts/home", home());
    std::filesystem::create_directory(home("CNC"));
    application.start(/*drawing=*/"", home());
    screen.timers.advance(1000);
  }

  // What a surface of this size shows, in drawing units.
  SurfaceState paintedOn(float width, float height) {
    VirtualSurface surface;
    surface.Move({0, 0, width, height});
    paintPicture(application, surface);
    return surface.state();
  }

  testing::TempFolder home;
  testing::RecordingHost platform;
  HuntERR reporting{
      platform.prompts, platform.clock, {.folder = {}, .display = ReportDisplay::None}};
  VirtualScreen screen;
  Application application{{platform.host, reporting, screen.ports}};
};

TEST_F(Picture, OfTheScreensSizeIsTheScreens) {
  const SurfaceState picture = paintedOn(1000, 800);
  const SurfaceState& shown = screen.picDrawing.state();
  EXPECT_EQ(picture.scaleLeft, shown.scaleLeft);
  EXPECT_EQ(picture.scaleTop, shown.scaleTop);
  EXPECT_EQ(picture.scaleWidth, shown.scaleWidth);
  EXPECT_EQ(picture.scaleHeight, shown.scaleHeight);
}

TEST_F(Picture, OfOtherProportionsShowsAllThatTheScreenDoes) {
  const SurfaceState& shown = screen.picDrawing.state();
  const SurfaceState wide = paintedOn(1600, 400);
  EXPECT_FLOAT_EQ(wide.scaleHeight, shown.scaleHeight);
  EXPECT_FLOAT_EQ(wide.scaleWidth, -wide.scaleHeight * 4) << "units stay square";
  const SurfaceState high = paintedOn(100, 800);
  EXPECT_FLOAT_EQ(high.scaleWidth, shown.scaleWidth);
  EXPECT_FLOAT_EQ(high.scaleHeight, -high.scaleWidth * 8);
  EXPECT_FLOAT_EQ(high.scaleLeft + high.scaleWidth / 2, shown.scaleLeft + shown.scaleWidth / 2);
}

TEST_F(Picture, LeavesTheViewAndTheScreenAlone) {
  const View before = application.interaction.view;
  const float left = screen.picDrawing.state().scaleLeft;
  paintedOn(300, 900);
  EXPECT_EQ(application.interaction.view.viewspan, before.viewspan);
  EXPECT_EQ(application.interaction.view.aspectx, before.aspectx);
  EXPECT_EQ(application.interaction.view.picwidth, before.picwidth);
  EXPECT_EQ(screen.picDrawing.state().scaleLeft, left);
  EXPECT_TRUE(screen.picDrawing.Enabled());
}

}  // namespace
}  // namespace tess
