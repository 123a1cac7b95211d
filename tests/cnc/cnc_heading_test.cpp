// The comment block that opens a program.
#include "cnc/cnc_heading.h"

#include <string>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_rows.h"
#include "core/drawing_store.h"
#include "core/version.h"
#include "drafting/entity_creation.h"
#include "tests/cnc/cnc_fixture.h"

namespace tess::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;
using ::testing::StartsWith;

class CncHeadingTest : public CncFixture {
 protected:
  std::vector<std::string> heading(CncMode mode = CncMode::Mill) {
    std::string out;
    ProgramText text(out, definition);
    writeHeading(text, session, definition, mode, "part.CNC");
    return linesOf(out);
  }

  // The lines of the tool list.
  std::vector<std::string> tools() {
    std::vector<std::string> found;
    for (const std::string& line : heading()) {
      if (line.starts_with("*  {Tool}:")) found.push_back(line);
    }
    return found;
  }
};

const std::string kStars(75, '*');

TEST_F(CncHeadingTest, MillHeadingHasEveryItemInItsPlace) {
  session.productname = "Shop Mill";
  definition.cncheadertext = "%\r\nO100";
  store.drawingtitle = "Cover";
  store.drawingrevision = "B";
  store.designername = "R. Moss";
  store.partmaterial = "Brass";
  store.partdimx = 4;
  store.partdimy = 3.5F;
  store.partdimz = 0.75F;
  store.xstartpos = -1;
  store.ystartpos = 2.25F;
  store.xorigin = 1;
  store.yorigin = 0;
  store.zorigin = -1;
  store.toolname[0] = "  1/4 end mill ";
  store.toolradius[0] = 0.125F;
  place(lineRow({0, 0}, {1, 0}, -0.25F, 10));
  EXPECT_THAT(
      heading(),
      ElementsAre("%", "O100", kStars, std::string("*   Shop Mill (tm)  Version ") + kVersionText,
                  "*        RS 274-D CNC CODE", "*  {File Name}:  part.CNC",
                  "*  {Drawing Title}:  Cover    {Rev}: B", "*  {Designer}:  R. Moss",
                  "*  {Material}:  Brass", "*  {Material Shape}:  Rectangular",
                  "*  {Fixture}:  CLAMPS   {Units}:  INCH",
                  "*  {SLENGTH}: 4.0  {SWIDTH}: 3.5  {SHEIGHT}: 0.75",
                  "*  Setup==>  {X Start}: -1.0   {Y Start}: 2.25   {Z Start}: 0.5",
                  "*            {X Origin Zero}:   1", "*            {Y Origin Zero}:   0",
                  "*            {Z Origin Zero}:  -1",
                  "*  {Creation Date}: 03/09/2026   {Creation Time}: 14:05:07",
                  "*  Created for GantrixPro (tm) 2012", kStars, "*  Tool Setup",
                  "*  {Tool}:  #1, 1/4 end mill, Diameter = 0.25", kStars));
}

TEST_F(CncHeadingTest, LatheHeadingHasEveryItemInItsPlace) {
  useMetric();
  store.usingchuck = 1;
  store.roundstock = true;
  store.partdimx = -60;
  store.partdimy = 20;
  store.xstartpos = 5;
  place(lineRow({0, 0}, {1, 0}, 0, 10));
  EXPECT_THAT(
      heading(CncMode::Lathe),
      ElementsAre("", kStars, std::string("*   Tessimo Mill (tm)  Version ") + kVersionText,
                  "*        RS 274-D CNC CODE", "*  {File Name}:  part.CNC",
                  "*  {Drawing Title}:      {Rev}: ", "*  {Designer}:  ", "*  {Material}:  ",
                  "*  {Material Shape}:  Round", "*  {Fixture}:  CHUCK    {Units}:  MM  ",
                  "*  {PART LENGTH}: 60.0  {O.D.}: 40.0  {I.D.}:  0.0", "*  {{Z ORIGIN ZERO}: -1",
                  "*  Setup==>  {X Start}: 20.0   {Z Start}: 5.0",
                  "*  {Creation Date}: 03/09/2026   {Creation Time}: 14:05:07",
                  "*  Created for Lathrix Pro (tm) 2012", kStars));
}

TEST_F(CncHeadingTest, ItemsBehindTheHeaderTextCarryTheCommentPrefix) {
  definition.cncheadertext = "O1";
  definition.cnccomment = "; ";
  const auto lines = heading(CncMode::Lathe);
  EXPECT_EQ(lines[0], "O1");
  for (std::size_t at = 1; at < lines.size(); ++at) EXPECT_THAT(lines[at], StartsWith("; *"));
}

TEST_F(CncHeadingTest, SignOfTheLathesLengthHasABlankUnlessItIsNegative) {
  store.partdimx = 60;
  EXPECT_THAT(heading(CncMode::Lathe), Contains("*  {{Z ORIGIN ZERO}:  1"));
  store.partdimx = 0;
  EXPECT_THAT(heading(CncMode::Lathe), Contains("*  {{Z ORIGIN ZERO}:  0"));
}

TEST_F(CncHeadingTest, RoundStockAlsoTellsItsDiameter) {
  store.roundstock = true;
  store.partdimx = 2.5F;
  EXPECT_THAT(heading(),
              Contains("*  {SLENGTH}: 2.5  {SWIDTH}: 0.0  {SHEIGHT}: 0.25  {Diameter}:  2.5"));
}

TEST_F(CncHeadingTest, EachToolIsListedOnceInTheOrderOfTheRows) {
  store.toolradius[2] = 0.1F;
  for (const int tool : {3, 3, 2, 3, 2}) place(lineRow({0, 0}, {1, 0}, 0, 10), tool);
  EXPECT_THAT(tools(),
              ElementsAre("*  {Tool}:  #3, , Diameter = 0.2", "*  {Tool}:  #2, , Diameter = 0"));
}

TEST_F(CncHeadingTest, ToolOneIsMissingFromTheListAfterToolTwelve) {
  for (const int tool : {12, 1, 2}) place(lineRow({0, 0}, {1, 0}, 0, 10), tool);
  EXPECT_THAT(tools(), ElementsAre(StartsWith("*  {Tool}:  #12,"), StartsWith("*  {Tool}:  #2,")));
}

TEST_F(CncHeadingTest, ToolOneBeforeToolTwelveIsListed) {
  for (const int tool : {1, 12, 1}) place(lineRow({0, 0}, {1, 0}, 0, 10), tool);
  EXPECT_THAT(tools(), ElementsAre(StartsWith("*  {Tool}:  #1,"), StartsWith("*  {Tool}:  #12,")));
}

TEST_F(CncHeadingTest, ToolWithABlankNameStillGetsItsLine) {
  store.toolname[0] = "   ";
  place(lineRow({0, 0}, {1, 0}, 0, 10));
  EXPECT_THAT(tools(), ElementsAre("*  {Tool}:  #1, , Diameter = 0"));
}

TEST_F(CncHeadingTest, SelectedRowCountsForItsTool) {
  PathRow row = lineRow({0, 0}, {1, 0}, 0, 10);
  row.code = 31203;
  addPathSegment(store, row);
  EXPECT_THAT(tools(), ElementsAre("*  {Tool}:  #4, , Diameter = 0"));
}

TEST_F(CncHeadingTest, LatheHeadingHasNoToolList) {
  place(lineRow({0, 0}, {1, 0}, 0, 10));
  EXPECT_THAT(heading(CncMode::Lathe), Not(Contains("*  Tool Setup")));
}

}  // namespace
}  // namespace tess::testing
