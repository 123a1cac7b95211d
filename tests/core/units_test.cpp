// Number formats in use, and the change of units.
#include "core/units.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/settings.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

using testing::TestSession;

TEST(SetNumFormats, MetricDrawingsTakeTheMetricFormats) {
  TestSession test;
  test.store.units = "M";
  set_num_formats(test.session);
  EXPECT_EQ(test.session.formats.coordfmt, "####0.0000");
  EXPECT_EQ(test.session.formats.dimfmt, "####0.0000");
  EXPECT_EQ(test.session.formats.cncfmt, "####0.0###");
}

TEST(SetNumFormats, AllOthersTakeTheInchFormats) {
  TestSession test;
  for (const char* units : {"I", "", "m"}) {
    test.store.units = units;
    set_num_formats(test.session);
    EXPECT_EQ(test.session.formats.coordfmt, "##0.0000") << units;
    EXPECT_EQ(test.session.formats.dimfmt, "##0.00000") << units;
    EXPECT_EQ(test.session.formats.cncfmt, "##0.0####") << units;
  }
}

TEST(SetNumFormats, FollowsTheDefinitionInForce) {
  TestSession test;
  test.session.formats.cncfmtinch = "0.000";
  test.session.formats.cncfmtmm = "0.00";
  set_num_formats(test.session);
  EXPECT_EQ(test.session.formats.cncfmt, "0.000");
  test.store.units = "M";
  set_num_formats(test.session);
  EXPECT_EQ(test.session.formats.cncfmt, "0.00");
}

TEST(Convert, MultipliesPositionsDepthsAndGridsAndNothingElse) {
  TestSession test;
  const char* converted[] = {
      "x start pos",    "y start pos",      "z start pos", "x change",
      "y change",       "z change",         "final depth", "start depth",
      "z cut per pass", "minimum z finish", "tab spacing", "tab width",
      "tab height",     "visual grid",      "cursor grid", "minimum roughing clearance"};
  for (const SettingRow& row : settingRows()) setSettingNumber(test.store, row, 2);
  test.store.unitfactor = 25.4F;
  convert(test.session);
  int changed = 0;
  for (const SettingRow& row : settingRows()) {
    changed += !row.repeated && settingNumber(test.store, row) != 2;
  }
  for (const char* key : converted) {
    EXPECT_EQ(settingNumber(test.store, *findSetting(key)), 2 * 25.4F) << key;
  }
  EXPECT_EQ(changed, static_cast<int>(std::size(converted)));
  EXPECT_EQ(test.listener.take(), std::vector<std::string>{"scaleDrawing(25.4)"});
}

}  // namespace
}  // namespace tess
