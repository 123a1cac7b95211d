// The import form before the import: what it remembers, what it shows, and what it does besides.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "import/frmDXF.h"
#include "tests/import/dxf_content.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::entitySection;
using testing::inTextForm;
using testing::RecordedDrafting;
using testing::segmentTexts;

using Texts = std::vector<std::string>;

constexpr char kSquare[] =
    "0 LINE, 10 1, 20 2, 11 5, 21 2, 0 LINE, 10 5, 20 2, 11 5, 21 5, "
    "0 LINE, 10 5, 20 5, 11 1, 21 5, 0 LINE, 10 1, 20 5, 11 1, 21 2";

class ImportAhead : public ::testing::Test, public RecordedDrafting {
 protected:
  void open(frmDXF& form, const std::string& entities, int insunits = 0) {
    test.home.write("part.dxf",
                    inTextForm("0 SECTION, 2 HEADER, 9 $INSUNITS, 70 " + std::to_string(insunits) +
                               ", 0 ENDSEC, " + entitySection(entities)));
    form.OpenDXFFile(test.home(), "part.dxf");
    form.open(Modality::Modal);
  }
  PreviewRows preview(frmDXF& form) { return form.picPreview.rows(); }
};

TEST_F(ImportAhead, EveryBoxIsRemembered) {
  {
    frmDXF form(context);
    for (CheckBox* box : {&form.chkConnectPoints, &form.chkAutoAlign, &form.chkExactGeometry,
                          &form.chkFileUnits, &form.chkFitStock}) {
      EXPECT_FALSE(box->isChecked()) << box->name();
    }
    form.chkAutoAlign.setChecked(true);
    form.chkFitStock.setChecked(true);
  }
  frmDXF again(context);
  EXPECT_TRUE(again.chkAutoAlign.isChecked());
  EXPECT_TRUE(again.chkFitStock.isChecked());
  EXPECT_FALSE(again.chkExactGeometry.isChecked());
  EXPECT_FALSE(again.chkConnectPoints.isChecked());
  EXPECT_FALSE(again.chkFileUnits.isChecked());
}

TEST_F(ImportAhead, ARecordOfAnOlderProgramTellsExactGeometryAlone) {
  test.home.write("frmDXF.cfg", "exact geometry =True\r\n");
  EXPECT_TRUE(frmDXF(context).chkExactGeometry.isChecked());
  EXPECT_FALSE(frmDXF(context).chkAutoAlign.isChecked());
}

TEST_F(ImportAhead, ASetupBeginsWithExactGeometryUntilTheOperatorChooses) {
  store.exactgeometry = true;
  {
    frmDXF form(context);
    EXPECT_TRUE(form.chkExactGeometry.isChecked());
    form.chkExactGeometry.setChecked(false);
  }
  EXPECT_FALSE(frmDXF(context).chkExactGeometry.isChecked());
}

TEST_F(ImportAhead, AScriptsHandIsNotRemembered) {
  {
    frmDXF form(context);
    form.isWorkedByHand = false;
    form.chkAutoAlign.setChecked(true);
  }
  EXPECT_FALSE(test.home.has("frmDXF.cfg"));
}

TEST_F(ImportAhead, ShowsTheRowsAndTheirSizeInBothUnitsAndChangesNothing) {
  frmDXF form(context);
  open(form, kSquare);
  EXPECT_EQ(preview(form).rows.size(), 4U);
  EXPECT_EQ(preview(form).note, "4.0000 x 3.0000 in = 101.600 x 76.200 mm");
  EXPECT_EQ(form.lblReport.caption(), "4 rows. All outlines are closed.");
  EXPECT_EQ(store.NumSegments, 0);
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(ImportAhead, NamesOpenOutlinesAndSkippedKinds) {
  frmDXF form(context);
  open(form,
       "0 LINE, 10 1, 20 2, 11 5, 21 2, 0 LINE, 10 5, 20 2, 11 5, 21 5, 0 CIRCLE, 10 9, 20 9, "
       "40 1, 0 SPLINE, 71 3, 0 TEXT, 1 a, 0 TEXT, 1 b");
  EXPECT_EQ(form.lblReport.caption(),
            "3 rows. 1 outline is open, at 1, 2.\nNot converted: SPLINE, TEXT.");
  form.chkExactGeometry.setChecked(true);
  EXPECT_EQ(form.lblReport.caption().substr(0, 6), "3 rows") << "told anew with each box";
}

TEST_F(ImportAhead, NamesNoMoreKindsThanAnOperatorReads) {
  std::string entities = "0 LINE, 11 1";
  for (int kind = 0; kind < 40; ++kind) entities += ", 0 KIND" + std::to_string(kind);
  frmDXF form(context);
  open(form, entities);
  EXPECT_NE(form.lblReport.caption().find("KIND11 and other kinds."), std::string::npos);
  EXPECT_EQ(form.lblReport.caption().find("KIND12"), std::string::npos);
}

TEST_F(ImportAhead, ALookAsksNothingAboutRowsThatCannotBe) {
  frmDXF form(context);
  open(form, "0 LINE, 11 1, 0 LINE, 10 1, 20 0, 11 1e39, 21 0");
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(preview(form).rows.size(), 1U);
  EXPECT_NE(form.lblReport.caption().find("1 row has no room in the drawing."), std::string::npos);
}

TEST_F(ImportAhead, AnEmptyFileHasNothingToShow) {
  frmDXF form(context);
  open(form, "0 TEXT, 1 a");
  EXPECT_TRUE(preview(form).rows.empty());
  EXPECT_EQ(form.lblReport.caption(), "0 rows.\nNot converted: TEXT.");
}

// ---- Units

TEST_F(ImportAhead, TellsWhatBecomesOfTheFilesUnits) {
  frmDXF form(context);
  open(form, kSquare, 0);
  EXPECT_EQ(form.lblUnits.caption(), "The file names no units: its numbers count as inches.");
  EXPECT_FALSE(form.chkFileUnits.isEnabled());
  open(form, kSquare, 1);
  EXPECT_EQ(form.lblUnits.caption(), "The file is in inches, as the drawing is.");
  open(form, kSquare, 4);
  EXPECT_EQ(form.lblUnits.caption(),
            "The file is in millimetres, the drawing in inches: numbers come in as they stand, so "
            "that 1 millimetre becomes 1 inch.");
  form.chkExactGeometry.setChecked(true);
  EXPECT_EQ(form.lblUnits.caption(), "The file is in millimetres: its lengths are converted.");
  form.chkFileUnits.setChecked(true);
  EXPECT_EQ(form.lblUnits.caption(), "The file is in millimetres, and so will the drawing be.");
  EXPECT_EQ(preview(form).note, "0.1575 x 0.1181 in = 4.000 x 3.000 mm");
}

TEST_F(ImportAhead, TakesTheFilesUnits) {
  store.partdimx = 4;
  frmDXF form(context);
  form.chkFileUnits.setChecked(true);
  open(form, kSquare, 4);
  form.cmdImport2TESS_Click();
  EXPECT_EQ(store.units, "M");
  EXPECT_FLOAT_EQ(store.partdimx, 101.6F);
  EXPECT_EQ(segmentTexts(store)[0], "1 (1, 2)-(5, 2)");
}

TEST_F(ImportAhead, ADrawingWithRowsKeepsItsUnits) {
  addLine(7, 7, 8, 9);
  frmDXF form(context);
  form.chkFileUnits.setChecked(true);
  open(form, kSquare, 4);
  EXPECT_FALSE(form.chkFileUnits.isEnabled());
  form.cmdImport2TESS_Click();
  EXPECT_NE(store.units, "M");
}

// ---- The stock

TEST_F(ImportAhead, TheStockStaysUntilItIsToFit) {
  store.partdimx = 9;
  frmDXF form(context);
  open(form, kSquare);
  form.cmdImport2TESS_Click();
  EXPECT_EQ(store.partdimx, 9);
}

TEST_F(ImportAhead, FitsTheStockToThePartAtZero) {
  frmDXF form(context);
  form.chkAutoAlign.setChecked(true);
  form.chkFitStock.setChecked(true);
  open(form, kSquare);
  form.cmdImport2TESS_Click();
  EXPECT_FLOAT_EQ(store.partdimx, 4);
  EXPECT_FLOAT_EQ(store.partdimy, 3);
  EXPECT_EQ(store.xorigin, 1);
  EXPECT_EQ(store.yorigin, 1);
}

TEST_F(ImportAhead, FitsTheStockWhereverThePartLies) {
  frmDXF form(context);
  form.chkFitStock.setChecked(true);
  open(form, "0 LINE, 10 -3, 20 -2, 11 5, 21 -6");
  form.cmdImport2TESS_Click();
  EXPECT_FLOAT_EQ(store.partdimx, 10) << "on both sides of zero";
  EXPECT_EQ(store.xorigin, 0);
  EXPECT_FLOAT_EQ(store.partdimy, 6);
  EXPECT_EQ(store.yorigin, -1);
}

// ---- Open outlines

SegmentRow line(float x0, float y0, float x1, float y1) {
  return {.type = kLine, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1};
}

TEST(OpenOutlines, EndsWithinTheToleranceMeet) {
  const std::vector<SegmentRow> rows = {line(0, 0, 1, 0), line(1.0009F, 0, 1, 1),
                                        line(1, 1.0009F, -0.0009F, 0)};
  EXPECT_TRUE(openOutlines(rows, 0.001F).empty());
  ASSERT_EQ(openOutlines(rows, 0.0001F).size(), 3U);
}

TEST(OpenOutlines, CirclesRectanglesAndRowsWithoutLengthHaveNoEnds) {
  EXPECT_TRUE(openOutlines({{.type = kCircle, .x0 = 1, .x1 = 1},
                            {.type = kRectangle, .x1 = 1, .y1 = 1},
                            {.type = kClockwiseArc, .x0 = 1, .x1 = 1},
                            line(2, 2, 2, 2)},
                           0.001F)
                  .empty());
}

TEST(OpenOutlines, EachIsToldOnce) {
  const auto open = openOutlines({line(0, 0, 1, 0), line(1, 0, 2, 0), line(5, 5, 6, 6)}, 0.001F);
  ASSERT_EQ(open.size(), 2U);
  EXPECT_EQ(open[0].x, 0);
  EXPECT_EQ(open[1].x, 5);
}

TEST(OpenOutlines, FullDrawingsFarOutTakeNoTime) {
  std::vector<SegmentRow> rows;
  for (int row = 0; row < 32767; ++row) {
    const float x = 1e30F + 1e25F * static_cast<float>(row);
    rows.push_back(line(x, x, x, -x));
  }
  EXPECT_FALSE(openOutlines(rows, 0.0001F).empty());
}

}  // namespace
}  // namespace tess
