// Pictures of drawings as files.
#include "shell/qt/plot.h"

#include <QImage>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

#include "core/runtime_failure.h"
#include "shell/virtual_screen.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/recording_host.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

class Plot : public ::testing::Test {
 protected:
  Plot() {
    testing::toolkit();
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/tests/scripts/home", home());
    std::filesystem::create_directory(home("CNC"));
    application.start(/*drawing=*/"", home());
    screen.timers.advance(1000);
    AddSeg(application.store,
           {.type = 5, .x0 = 3, .y0 = 1.5F, .x1 = 3, .y1 = 1.5F, .xc = 2, .yc = 1.5F}, nullptr);
  }

  testing::TempFolder home;
  testing::RecordingHost platform;
  HuntERR reporting{
      platform.prompts, platform.clock, {.folder = {}, .display = ReportDisplay::None}};
  VirtualScreen screen;
  Application application{{platform.host, reporting, screen.ports}};
  QtPictureWriter write;
};

TEST_F(Plot, IsAPictureOfTheSizeThatIsAskedFor) {
  write(application, home("part.png"), {300, 240});
  const QImage picture(QString::fromStdString(home("part.png")));
  EXPECT_EQ(picture.width(), 300);
  EXPECT_EQ(picture.height(), 240);
  std::set<QRgb> colors;
  for (int x = 0; x < picture.width(); ++x) colors.insert(picture.pixel(x, 120));
  EXPECT_GT(colors.size(), 1U) << "the circle is crossed";
}

TEST_F(Plot, OfOneDrawingIsAlwaysTheSame) {
  write(application, home("a.png"), {200, 200});
  write(application, home("b.png"), {200, 200});
  EXPECT_EQ(home.read("a.png"), home.read("b.png"));
  EXPECT_TRUE(home.read("a.png").starts_with("\x89PNG"));
}

TEST_F(Plot, ThatCannotBeWrittenRaisesTheFileFailure) {
  EXPECT_THROW(write(application, home("none/a.png"), {10, 10}), RuntimeFailure);
  takeCallChain();
}

}  // namespace
}  // namespace tess
