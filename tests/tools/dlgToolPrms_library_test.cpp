// Tool Select & Definition: advice in the drawing's units, and the library of tools.
#include "gtest/gtest.h"

#include "tests/support/tool_chest_fixture.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

using testing::Chest;

// ---- Advice

TEST_F(Chest, AdvisesInTheDrawingsUnits) {
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblAdvice.caption(),
              "Spindle: 1451 rpm\n"
              "Chip load for this diameter: 0.0018 in per tooth\n"
              "Feed: 5.3 ipm roughing, 5.2 ipm finishing\n"
              "The roughing feed is 1.02 times larger because of the step-over of 40 %");
  });
  store.units = "M";
  set_num_formats(test.session);
  store.toolradius[0] = 3;
  store.cfg_tool_spacing = 50;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblSpindleSpeed.caption(), "60") << "millimetres taken for inches";
    EXPECT_EQ(chest.lblAdvice.caption(),
              "Spindle: 1536 rpm\n"
              "Chip load for this diameter: 0.043 mm per tooth\n"
              "Feed: 133 mm/min roughing, 133 mm/min finishing\n"
              "The recommendation above takes millimetres for inches.");
  });
}

TEST_F(Chest, AdviceEndsAtTheSpindlesHighestSpeed) {
  store.highestspindle = 1000;
  work([](dlgToolPrms& chest) {
    EXPECT_EQ(chest.lblAdvice.caption().substr(0, 51),
              "Spindle: 1000 rpm, the highest (right would be 1451");
    EXPECT_EQ(chest.lblSpindleSpeed.caption(), "1451") << "the recommendation knows no limit";
    chest.cmdUseAdvice.press();
  });
  EXPECT_EQ(store.toolspindlespeed[0], 1000);
  EXPECT_EQ(store.cfg_finish_feedrate, 3.6F);
}

TEST_F(Chest, OneButtonTakesFeedsAndSpeed) {
  work([&](dlgToolPrms& chest) {
    EXPECT_TRUE(chest.cmdUseAdvice.isEnabled());
    chest.cmdUseAdvice.press();
    EXPECT_EQ(chest.txtSpindleSpeed.text(), "1451");
    chest.cmdExit.press();
  });
  EXPECT_EQ(store.cfg_rough_feedrate, 5.3F);
  EXPECT_EQ(store.cfg_finish_feedrate, 5.2F);
  EXPECT_EQ(store.toolspindlespeed[0], 1451);
  EXPECT_TRUE(store.setupchanged);
}

// ---- The library

TEST_F(Chest, ExportsWhatItShows) {
  test.recording.prompts.files = {test.home("tools.csv"), test.home("tools.tbl"), std::nullopt};
  work([](dlgToolPrms& chest) {
    chest.txttool.type("renamed");
    chest.cmdExport.press();
    chest.cmdExport.press();
    chest.cmdExport.press();
  });
  const FileRequest& asked = test.recording.prompts.fileRequests.at(0);
  EXPECT_EQ(asked.title, "Export Tools");
  EXPECT_EQ(asked.pattern, "Tool Libraries (*.csv;*.tbl)|*.csv;*.tbl|All Files (*.*)|*.*");
  EXPECT_EQ(asked.name, "tools.csv");
  EXPECT_TRUE(asked.forSaving);
  EXPECT_NE(test.home.read("tools.csv").find("1,renamed,end,HSS,2,0.25,in"), std::string::npos);
  EXPECT_EQ(test.home.read("tools.tbl").find("T1 P1 D0.25 ;renamed\n"), 0U);
}

TEST_F(Chest, ImportsAndSaysWhatCameOfIt) {
  const std::string path = test.home.write("my.csv", "number,name\n1,first\n2,a new one\n");
  test.recording.prompts.files = {path};
  work([](dlgToolPrms& chest) {
    chest.cmdImport.press();
    EXPECT_EQ(chest.txttool.text(), "first               ");
    EXPECT_EQ(chest.List1.items()[1], " 2: a new one");
  });
  ASSERT_EQ(test.messages().size(), 1U);
  EXPECT_EQ(test.messages()[0].text, "2 tools were taken over.");
  EXPECT_EQ(test.messages()[0].title, "Import Tools");
  EXPECT_FALSE(test.recording.prompts.fileRequests.at(0).forSaving);
}

TEST_F(Chest, NamesTheLinesThatItCouldNotTake) {
  std::string text = "number,name\n1,first\n";
  for (int i = 0; i < 17; ++i) text += "x,y\n";
  const std::string path = test.home.write("my.csv", text);
  test.recording.prompts.files = {path};
  work([](dlgToolPrms& chest) { chest.cmdImport.press(); });
  ASSERT_EQ(test.messages().size(), 1U);
  const std::string& shown = test.messages()[0].text;
  EXPECT_EQ(
      shown.find("1 tool was taken over.\n" + path + ":3: The tool number \"x\" is not a number\n"),
      0U);
  EXPECT_TRUE(shown.ends_with(":17: The tool number \"x\" is not a number\nand 2 more."));
  EXPECT_EQ(test.messages()[0].icon, MessageIcon::Warning);
}

TEST_F(Chest, AFileOfAnotherEndingIsNeitherReadNorWritten) {
  test.recording.prompts.files = {test.home("tools.txt"), test.home.write("x.msu", "")};
  work([](dlgToolPrms& chest) {
    chest.cmdExport.press();
    chest.cmdImport.press();
  });
  ASSERT_EQ(test.messages().size(), 2U);
  EXPECT_EQ(test.messages()[0].text,
            "tools.txt: a tool library is a .csv file or a tool table, .tbl");
  EXPECT_EQ(test.messages()[1].text, "x.msu: a tool library is a .csv file or a tool table, .tbl");
  EXPECT_FALSE(test.home.has("tools.txt"));
}

}  // namespace
}  // namespace tess
