// The setups that ship beside the program: they load in silence and are saved as the same bytes.
#include <filesystem>
#include <string>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/setup_file.h"
#include "tests/support/recording_session.h"
#include "tests/support/source_folder.h"

namespace tess::testing {
namespace {

const std::string kData = TESSIMO_SOURCE_DIR "/data/";

class ShippedSetups : public ::testing::TestWithParam<const char*> {
 protected:
  void start(const std::string& setup) {
    test.home.write("tess.def", "1.0\r\n" + setup + "\r\n");
    test.home.write(setup, readFile(kData + setup));
    load_defaults(test.session);
    applydefaults(test.session);
    new_drawing(test.session);
  }

  TestSession test;
};

TEST_P(ShippedSetups, AreSavedAsTheyWereLoaded) {
  start(GetParam());
  EXPECT_EQ(setupText(test.session), readFile(kData + GetParam()));
  SetupTESS(test.session, "S");
  EXPECT_EQ(test.home.read(GetParam()), readFile(kData + GetParam()));
}

TEST_P(ShippedSetups, LoadWithoutAMessageAndWithNothingToSave) {
  start(GetParam());
  EXPECT_TRUE(test.messages().empty());
  EXPECT_TRUE(test.recording.surroundings.printed.empty());
  EXPECT_TRUE(test.recording.failures.reported.empty());
  EXPECT_FALSE(test.store.setupchanged);
}

TEST_P(ShippedSetups, HaveAToolInUse) {
  start(GetParam());
  EXPECT_NE(test.store.toolname[test.store.selectedtool], "");
  EXPECT_GT(test.store.toolradius[test.store.selectedtool], 0);
}

INSTANTIATE_TEST_SUITE_P(All, ShippedSetups,
                         ::testing::Values("mill_inch.msu", "mill_mm.msu", "lathe.msu",
                                           "lathe_mm.msu", "linuxcnc_mill_inch.msu",
                                           "grbl_mill_mm.msu"),
                         [](const auto& instance) {
                           return std::filesystem::path(instance.param).stem().string();
                         });

// A lathe's tools come out of a bore by the way they went in.
TEST(ShippedLathes, ToolsForBoresWorkInside) {
  for (const char* const setup : {"lathe.msu", "lathe_mm.msu", "mill_inch.msu"}) {
    TestSession test;
    test.home.write("tess.def", std::string("1.0\r\n") + setup + "\r\n");
    test.home.write(setup, readFile(kData + setup));
    load_defaults(test.session);
    const bool isLathe = std::string(setup).starts_with("lathe");
    EXPECT_EQ(test.store.lathesetup, isLathe) << setup;
    for (int tool = 0; tool <= kLastTool; ++tool) {
      const std::string& name = test.store.toolname[tool];
      const bool goesIn =
          name.find("boring bar") != std::string::npos || name.find("drill") != std::string::npos ||
          name.find("reamer") != std::string::npos || name.find(" tap") != std::string::npos;
      EXPECT_EQ(test.store.toolinside[tool] != 0, isLathe && goesIn) << setup << ": " << name;
    }
  }
}

TEST(ShippedProgramFolder, StartsWithTheInchMill) {
  TestSession test;
  test.home.write("tess.def", readFile(kData + "tess.def"));
  test.home.write("mill_inch.msu", readFile(kData + "mill_inch.msu"));
  load_defaults(test.session);
  EXPECT_EQ(test.session.setupname, "mill_inch.msu");
  EXPECT_EQ(test.store.units, "I");
  EXPECT_EQ(test.store.toolname[0], "1/4 spot drill 90deg");
}

}  // namespace
}  // namespace tess::testing
