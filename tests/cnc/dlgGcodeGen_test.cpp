// G-code Control Setup without a window.
#include "cnc/dlgGcodeGen.h"

#include "gmock/gmock.h"

#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "tests/cnc/hand_over_fixture.h"
#include "tests/support/failure_of.h"
#include "tests/support/full_disk.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::numberOfFailure;

constexpr char kDefault[] = "C:\\Program Files\\Gantrix Pro\\GTXFW.EXE";

class GcodeGen : public testing::HandOverFixture {
 protected:
  GcodeGen() {
    store.xstartpos = 0.1F;
    store.ystartpos = -2;
    store.zstartpos = 0.5F;
    store.xchange = 1;
    store.ychange = 2;
    store.zchange = 3.25F;
  }

  // What the folder field leaves in the setting.
  std::string folderFor(const std::string& typed) {
    dlgGcodeGen form(handOver);
    form.open(Modality::Modal);
    form.txtcncpath.setText(typed);
    form.cmdAccept.press();
    EXPECT_TRUE(form.accepted());
    return store.cncoutputpath;
  }

  DrawingStore& store = test.store;
};

TEST_F(GcodeGen, ItShowsWhatTheSettingsHold) {
  store.cncoutputpath = "c:\\nc\\";
  store.autocomments = 1;
  store.userparamforarcs = true;
  store.usingchuck = 1;
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  EXPECT_EQ(form.caption(), "G-code Control Setup");
  const std::vector<std::string> texts{form.txtxstart.text(),  form.txtystart.text(),
                                       form.txtzstart.text(),  form.txtxchange.text(),
                                       form.txtychange.text(), form.txtzchange.text(),
                                       form.txtcncpath.text(), form.txtGTX_Path.text()};
  EXPECT_THAT(texts, ElementsAre("0.1", "-2", "0.5", "1", "2", "3.25", "c:\\nc\\", kDefault));
  EXPECT_TRUE(form.chkautocomment.isChecked());
  EXPECT_TRUE(form.chkBuildCNCWithRParam.isChecked());
  EXPECT_TRUE(form.optChuck[0].value());
  EXPECT_FALSE(test.store.setupchanged) << "to look at it changes nothing";
}

TEST_F(GcodeGen, TheControlsHaveTheirWords) {
  const dlgGcodeGen form(handOver);
  EXPECT_EQ(form.lblxchange.caption(), "Tool Change>  X:");
  EXPECT_EQ(form.lblychange.caption(), "Tool Change>  Y:");
  EXPECT_EQ(form.lblzchange.caption(), "Tool Change>  Z:");
  EXPECT_EQ(form.lblcncpath.caption(), "&Output CNC file to:");
  EXPECT_EQ(form.lblGTX_Path.caption(), "&Path to GantrixPro:");
  EXPECT_EQ(form.cmdBrowse.caption(), "&Browse");
  EXPECT_EQ(form.chkautocomment.caption(), "Automatic &Comments");
  EXPECT_EQ(form.fraChuck.caption(), "Work-Hold Method");
  EXPECT_EQ(form.optChuck[0].caption(), "&Magnetic Chuck");
  EXPECT_EQ(form.optChuck[1].caption(), "&Hold-down Clamps");
}

TEST_F(GcodeGen, BoxesAndOptionsAreWrittenAtOnce) {
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  EXPECT_TRUE(form.optChuck[1].value());
  form.chkautocomment.press();
  form.chkBuildCNCWithRParam.press();
  form.optChuck[0].press();
  EXPECT_EQ(store.autocomments, 1);
  EXPECT_TRUE(store.userparamforarcs);
  EXPECT_EQ(store.usingchuck, 1);
  form.optChuck[1].press();
  form.chkautocomment.press();
  form.chkBuildCNCWithRParam.press();
  EXPECT_EQ(store.autocomments, 0);
  EXPECT_FALSE(store.userparamforarcs);
  EXPECT_EQ(store.usingchuck, 0);
}

TEST_F(GcodeGen, ClosedWithoutAcceptItKeepsTheRest) {
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtxstart.type("7");
  form.txtcncpath.type("d");
  form.txtGTX_Path.type("/opt/x");
  form.pressCancel();
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(store.xstartpos, 0.1F);
  EXPECT_EQ(store.cncoutputpath, "");
  EXPECT_FALSE(test.home.has("GTX_LOC.DAT"));
  EXPECT_FALSE(store.setupchanged);
}

TEST_F(GcodeGen, AcceptReadsThePositionsLeniently) {
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtxstart.type(" 1.5 inches");
  form.txtystart.type("");
  form.txtzstart.type("high");
  form.txtxchange.type("-.25");
  form.txtychange.type("1e2");
  form.pressDefault();
  EXPECT_TRUE(form.accepted());
  EXPECT_EQ(store.xstartpos, 1.5F);
  EXPECT_EQ(store.ystartpos, 0);
  EXPECT_EQ(store.zstartpos, 0);
  EXPECT_EQ(store.xchange, -0.25F);
  EXPECT_EQ(store.ychange, 100);
  EXPECT_EQ(store.zchange, 3.25F);
  EXPECT_TRUE(store.setupchanged);
}

TEST_F(GcodeGen, AcceptWithoutAnEditKeepsEveryBit) {
  store.xstartpos = 0.123456789F;
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.pressDefault();
  EXPECT_EQ(store.xstartpos, 0.123456789F);
}

TEST_F(GcodeGen, ANumberTooLargeNamesItsFieldAndNothingIsTakenOver) {
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtxstart.type("9");
  form.txtychange.type("1e99");
  const RuntimeFailure failure = testing::failureOf([&] { form.pressDefault(); });
  EXPECT_EQ(failure.number(), FailureNumber::Overflow);
  EXPECT_EQ(failure.source(), "txtychange: 1e99");
  EXPECT_TRUE(form.isShown());
  EXPECT_EQ(form.txtxstart.text(), "9");
  EXPECT_EQ(store.xstartpos, 0.1F);
  EXPECT_FALSE(store.setupchanged);
}

// ---- The folder for programs

TEST_F(GcodeGen, ALetterOfADriveGetsItsColon) {
  EXPECT_EQ(folderFor("d"), "D:");
  EXPECT_EQ(folderFor("A"), "A:");
  EXPECT_EQ(folderFor("e"), "E:");
  EXPECT_EQ(folderFor("f"), "F");
}

TEST_F(GcodeGen, AFolderIsUpperCasedAndEnded) {
  EXPECT_EQ(folderFor("c:\\work"), "C:\\WORK\\");
  EXPECT_EQ(folderFor("c:\\work\\"), "C:\\WORK\\");
  EXPECT_EQ(folderFor("c:"), "C:");
  EXPECT_EQ(folderFor("c:\\work  "), "C:\\WORK\\");
  EXPECT_EQ(folderFor("/mnt/nc/"), "/MNT/NC/") << "a slash ends a folder too";
  EXPECT_EQ(folderFor("/mnt/nc"), "/MNT/NC\\");
  EXPECT_EQ(folderFor("\xC3\xA4/b"), "\xC3\x84/B\\");
}

TEST_F(GcodeGen, ALeadingBlankClearsTheWholeField) {
  store.cncoutputpath = "C:\\WORK\\";
  EXPECT_EQ(folderFor(" c:\\work"), "");
  EXPECT_EQ(folderFor(""), "");
}

// ---- The machine-control program

TEST_F(GcodeGen, TheFirstLineOfTheRecordIsShown) {
  test.home.write("GTX_LOC.DAT", "/opt/x\r\nmore");
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  EXPECT_EQ(form.txtGTX_Path.text(), "/opt/x");
}

TEST_F(GcodeGen, AcceptWritesThePath) {
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtGTX_Path.type("/opt/y");
  form.pressDefault();
  EXPECT_EQ(test.home.read("GTX_LOC.DAT"), "/opt/y\r\n");
}

TEST_F(GcodeGen, AClearedPathIsWrittenAsNoneAndTheUsualPlaceCounts) {
  test.home.write("GTX_LOC.DAT", "/opt/x\r\n");
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtGTX_Path.type("");
  form.pressDefault();
  EXPECT_EQ(test.home.read("GTX_LOC.DAT"), "< NO PATH ASSIGNED >\r\n");
  form.open(Modality::Modal);
  EXPECT_EQ(form.txtGTX_Path.text(), kDefault);
}

TEST_F(GcodeGen, BrowseWritesThePathAtOnce) {
  test.home.write("GTX_LOC.DAT", "/old\r\nmore\r\n");
  prompts().files = {"/opt/gtxfw.exe"};
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.cmdBrowse.press();
  ASSERT_EQ(prompts().fileRequests.size(), 1U);
  EXPECT_EQ(prompts().fileRequests[0].name, "gtxfw.exe");
  EXPECT_EQ(prompts().fileRequests[0].pattern, "EXE Files (*.exe)|*.exe");
  EXPECT_FALSE(prompts().fileRequests[0].forSaving);
  EXPECT_EQ(form.txtGTX_Path.text(), "/opt/gtxfw.exe");
  EXPECT_EQ(test.home.read("GTX_LOC.DAT"), "/opt/gtxfw.exe\r\n");
  form.pressCancel();
  EXPECT_EQ(test.home.read("GTX_LOC.DAT"), "/opt/gtxfw.exe\r\n");
}

TEST_F(GcodeGen, ACancelledOrEmptyBrowseChangesNothing) {
  prompts().files = {std::nullopt, ""};
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtGTX_Path.type("/opt/x");
  form.cmdBrowse.press();
  form.cmdBrowse.press();
  EXPECT_EQ(form.txtGTX_Path.text(), "/opt/x");
  EXPECT_FALSE(test.home.has("GTX_LOC.DAT"));
}

TEST_F(GcodeGen, AFullDiskKeepsTheFormAndTheOldPath) {
  test.home.write("GTX_LOC.DAT", "/old\r\n");
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtxstart.type("4");
  form.txtGTX_Path.type("/opt/another");
  {
    const testing::FullDisk full(5);
    EXPECT_EQ(numberOfFailure([&] { form.pressDefault(); }), FailureNumber::DiskFull);
  }
  EXPECT_TRUE(form.isShown());
  EXPECT_EQ(test.home.read("GTX_LOC.DAT"), "/old\r\n");
  EXPECT_EQ(store.xstartpos, 4);
  EXPECT_TRUE(store.setupchanged) << "what was taken over is not forgotten at the end";
}

TEST_F(GcodeGen, WhereNoProgramMayBeNamedTheRestIsSetUpAllTheSame) {
  others.mayReach = false;
  dlgGcodeGen form(handOver);
  form.open(Modality::Modal);
  form.txtxstart.type("4");
  form.pressDefault();
  EXPECT_EQ(store.xstartpos, 4);
  EXPECT_FALSE(test.home.has("GTX_LOC.DAT"));
}

TEST_F(GcodeGen, TheCommandShowsTheForm) {
  mnuOptionsGcodeSetup_Click(handOver);
  EXPECT_THAT(prompts().formNames, ElementsAre("dlgGcodeGen"));
}

}  // namespace
}  // namespace tess
