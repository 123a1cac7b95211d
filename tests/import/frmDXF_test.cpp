// The import form: opening, converting, and what the operator is told.
#include "import/frmDXF.h"

#include <cmath>
#include <cstring>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/import/dxf_content.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::entitySection;
using testing::inTextForm;
using testing::RecordedDrafting;
using testing::segmentTexts;

using Texts = std::vector<std::string>;

class Import : public ::testing::Test, public RecordedDrafting {
 protected:
  std::string path() const { return test.home("part.dxf"); }

  void open(const std::string& entities) {
    test.home.write("part.dxf", inTextForm(entitySection(entities)));
    form.OpenDXFFile(test.home(), "part.dxf");
  }

  // The rows that the entities become.
  Texts import(const std::string& entities) {
    open(entities);
    form.cmdImport2TESS_Click();
    return segmentTexts(store);
  }

  // The same with blocks before the entities.
  Texts importWith(const std::string& blocks, const std::string& entities) {
    test.home.write("part.dxf", inTextForm("0 SECTION, 2 BLOCKS, " + blocks + ", 0 ENDSEC, " +
                                           entitySection(entities)));
    form.OpenDXFFile(test.home(), "part.dxf");
    form.cmdImport2TESS_Click();
    return segmentTexts(store);
  }

  std::string notConverted(const std::string& list) const {
    return "The following drawing entities were found in " + path() +
           " but were not able to be converted.  The resulting .CNC file may not be complete.\n\n" +
           list +
           "\nTo insure that all drawing entities are converted, convert your drawing to only "
           "lines and arcs before saving it as a .DXF file.";
  }

  frmDXF form{context};
};

// ---- The result

TEST_F(Import, TellsHowManyRowsCameAndHowManyOutlinesAreOpen) {
  import(
      "0 LINE, 10 0, 20 0, 11 1, 21 0, 0 LINE, 10 5, 20 0, 11 6, 21 0, 0 CIRCLE, 10 9, 20 9, 40 1");
  ASSERT_FALSE(test.session.results.told().empty());
  EXPECT_EQ(test.session.results.told().back().text, "3 rows imported, 2 outlines open");
}

TEST_F(Import, OfClosedOutlinesTellsTheRowsAlone) {
  import("0 CIRCLE, 10 9, 20 9, 40 1");
  EXPECT_EQ(test.session.results.told().back().text, "1 row imported");
}

// ---- The conversion

TEST_F(Import, OnlySplinesAndTextsAddNothingAndAreNamedOnceEach) {
  EXPECT_EQ(import("0 SPLINE, 71 3, 0 TEXT, 1 a, 0 SPLINE, 71 3, 0 text, 1 b, 0 INSERT, 2 A"),
            Texts{});
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, notConverted("SPLINE\nTEXT\nINSERT\n"));
  EXPECT_EQ(messages()[0].title, "DXF Conversion Error");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(messages()[0].buttons, MessageButtons::Ok);
}

TEST_F(Import, APolylineWithBulgesComesInAsItsChords) {
  EXPECT_EQ(import("0 LWPOLYLINE, 70 0, 10 0, 20 0, 42 1, 10 2, 20 0, 42 -0.5, 10 2, 20 3, "
                   "0 POLYLINE, 0 VERTEX, 10 5, 20 5, 42 1, 0 VERTEX, 10 6, 20 5, 0 SEQEND"),
            (Texts{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 3)", "1 (5, 5)-(6, 5)"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(Import, AClosedPolylineLacksItsLastEdge) {
  EXPECT_EQ(import("0 LWPOLYLINE, 70 1, 10 0, 20 0, 10 2, 20 0, 10 2, 20 3"),
            (Texts{"1 (0, 0)-(2, 0)", "1 (2, 0)-(2, 3)"}));
}

TEST_F(Import, APolylineOfOneVertexOrNoneAddsNothing) {
  EXPECT_EQ(import("0 LWPOLYLINE, 10 1, 20 1, 0 POLYLINE, 0 SEQEND"), Texts{});
  EXPECT_TRUE(messages().empty());
}

TEST_F(Import, ADrawingKeepsItsRowsAndAutoAlignMovesOnlyTheNewOnes) {
  addLine(7, 7, 8, 9);
  form.chkAutoAlign.setChecked(true);
  EXPECT_EQ(import("0 LINE, 10 3, 20 4, 11 5, 21 4, 0 CIRCLE, 10 5, 20 6, 40 1"),
            (Texts{"1 (7, 7)-(8, 9)", "1 (0, 0)-(2, 0)", "2 (3, 2)-(3, 2) c (2, 2)"}));
}

TEST_F(Import, AutoAlignNeedsWidthAndHeight) {
  form.chkAutoAlign.setChecked(true);
  EXPECT_EQ(import("0 LINE, 10 3, 20 4, 11 5, 21 4"), Texts{"1 (3, 4)-(5, 4)"});
}

TEST_F(Import, AutoAlignOfNothingMovesNothing) {
  addLine(7, 7, 8, 9);
  form.chkAutoAlign.setChecked(true);
  EXPECT_EQ(import("0 POINT, 10 3, 20 4"), Texts{"1 (7, 7)-(8, 9)"});
}

TEST_F(Import, PointsAddNoRowsUnlessTheyAreConnected) {
  const std::string points = "0 POINT, 10 1, 20 1, 0 POINT, 10 2, 20 3, 0 POINT, 10 4, 20 0";
  EXPECT_EQ(import(points), Texts{});
  EXPECT_TRUE(messages().empty());
  form.chkConnectPoints.setChecked(true);
  EXPECT_EQ(import(points), (Texts{"1 (1, 1)-(2, 3)", "1 (2, 3)-(4, 0)"}));
}

TEST_F(Import, EachConversionBeginsWithoutAPreviousPoint) {
  form.chkConnectPoints.setChecked(true);
  EXPECT_EQ(import("0 POINT, 10 1, 20 1"), Texts{});
  EXPECT_EQ(import("0 POINT, 10 1, 20 1"), Texts{});
}

TEST_F(Import, ALineThatEndsWhereTheLastOneEndedIsReversed) {
  EXPECT_EQ(import("0 LINE, 10 0, 20 0, 11 0.1, 21 0, 0 LINE, 10 3, 20 3, 11 0.1, 21 0, "
                   "0 LINE, 10 3, 20 3, 11 5, 21 5"),
            (Texts{"1 (0, 0)-(0.1, 0)", "1 (0.1, 0)-(3, 3)", "1 (3, 3)-(5, 5)"}));
}

TEST_F(Import, TheFirstLineHasNoPreviousEnd) {
  EXPECT_EQ(import("0 LINE, 10 1, 20 1, 11 0, 21 0"), Texts{"1 (1, 1)-(0, 0)"});
}

TEST_F(Import, ArcsCirclesAndPointsAreEndsTooButPolylinesAreNot) {
  EXPECT_EQ(import("0 ARC, 10 0, 20 0, 40 1, 50 180, 51 0, 0 LINE, 10 9, 20 9, 11 1, 21 0"),
            (Texts{"3 (-1, 0)-(1, 0) c (0, 0)", "1 (1, 0)-(9, 9)"}));
  EXPECT_EQ(import("0 CIRCLE, 10 0, 20 0, 40 1, 0 LINE, 10 9, 20 9, 11 1, 21 0").back(),
            "1 (1, 0)-(9, 9)");
  EXPECT_EQ(import("0 POINT, 10 1, 20 0, 0 LINE, 10 9, 20 9, 11 1, 21 0").back(),
            "1 (1, 0)-(9, 9)");
  EXPECT_EQ(import("0 LWPOLYLINE, 10 0, 20 0, 10 1, 20 0, 0 LINE, 10 9, 20 9, 11 1, 21 0").back(),
            "1 (9, 9)-(1, 0)");
}

struct ArcCase {
  double start, end;  // degrees
};

TEST_F(Import, ArcsRunCounterClockwiseFromTheirStartInEveryQuadrant) {
  constexpr double kDegrees = 180 / 3.14159265358979323846;
  for (const ArcCase& arc :
       {ArcCase{0, 90}, {100, 170}, {190, 260}, {280, 350}, {300, 30}, {45, 45}, {-30, 400}}) {
    import("0 ARC, 10 1, 20 -2, 40 3, 50 " + std::to_string(arc.start) + ", 51 " +
           std::to_string(arc.end));
    const SegmentRow row = segmentRow(store, store.NumSegments);
    EXPECT_EQ(row.type, kCounterClockwiseArc);
    EXPECT_EQ(row.attr, kOrdinaryClass);
    EXPECT_EQ(row.x0, static_cast<float>(1 + 3 * std::cos(arc.start / kDegrees))) << arc.start;
    EXPECT_EQ(row.y0, static_cast<float>(-2 + 3 * std::sin(arc.start / kDegrees))) << arc.start;
    EXPECT_EQ(row.x1, static_cast<float>(1 + 3 * std::cos(arc.end / kDegrees))) << arc.end;
    EXPECT_EQ(row.y1, static_cast<float>(-2 + 3 * std::sin(arc.end / kDegrees))) << arc.end;
    EXPECT_EQ(row.xc, 1);
    EXPECT_EQ(row.yc, -2);
  }
}

TEST_F(Import, ACircleOfNoRadiusStartsAtItsCenter) {
  EXPECT_EQ(import("0 CIRCLE, 10 1, 20 2, 40 0"), Texts{"2 (1, 2)-(1, 2) c (1, 2)"});
}

TEST_F(Import, CoordinatesKeepTheirNumbersWhateverTheUnits) {
  test.home.write("part.dxf",
                  inTextForm("0 SECTION, 2 HEADER, 9 $INSUNITS, 70 4, 0 ENDSEC, " +
                             entitySection("0 LINE, 10 25.4, 20 0, 30 7, 11 50.8, 21 1e-3")));
  form.OpenDXFFile(test.home(), "part.dxf");
  form.cmdImport2TESS_Click();
  EXPECT_EQ(segmentTexts(store), Texts{"1 (25.4, 0)-(50.8, 0.001)"});
}

TEST_F(Import, EntitiesInsideBlocksAreNotConverted) {
  test.home.write(
      "part.dxf",
      inTextForm("0 SECTION, 2 BLOCKS, 0 BLOCK, 2 A, 0 LINE, 11 1, 0 ENDBLK, 0 ENDSEC, " +
                 entitySection("0 INSERT, 2 A")));
  form.OpenDXFFile(test.home(), "part.dxf");
  form.cmdImport2TESS_Click();
  EXPECT_EQ(segmentTexts(store), Texts{});
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, notConverted("INSERT\n"));
}

// ---- Trouble on the way

constexpr char kOneTooFar[] =
    "0 LINE, 11 1, 0 LINE, 10 1, 20 0, 11 1e39, 21 0, 0 LINE, 10 2, 20 2, 11 3, 21 3, 0 TEXT, 1 a";

TEST_F(Import, ANumberTooLargeAsksAndYesGoesOn) {
  test.recording.prompts.answers = {Answer::Yes};
  EXPECT_EQ(import(kOneTooFar), (Texts{"1 (0, 0)-(1, 0)", "1 (2, 2)-(3, 3)"}));
  ASSERT_EQ(messages().size(), 2U);
  EXPECT_EQ(messages()[0].text,
            "Error Importing DXF File:  Overflow (LINE, part.dxf line 9)\n\n"
            "Would you like to continue importing this file?");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Question);
  EXPECT_EQ(messages()[0].buttons, MessageButtons::YesNo);
  EXPECT_EQ(messages()[1].text, notConverted("TEXT\n"));
}

TEST_F(Import, NoLeavesWithWhatHasBeenAppended) {
  test.recording.prompts.answers = {Answer::No};
  form.chkAutoAlign.setChecked(true);
  const std::string before = store.drawingname;
  EXPECT_EQ(import(kOneTooFar), Texts{"1 (0, 0)-(1, 0)"});
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(store.drawingname, before);
}

TEST_F(Import, AFullDrawingSaysSoAndKeepsWhatItCanHold) {
  for (int row = 1; row <= 32765; ++row) addLine(0, 0, 1, 1);
  import("0 LWPOLYLINE, 10 0, 20 0, 10 1, 20 0, 10 2, 20 0, 10 3, 20 0, 0 LINE, 11 1");
  EXPECT_EQ(store.NumSegments, 32767);
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            "The drawing is full: it holds at most 32767 rows.  The last 2 rows of " + path() +
                " could not be added.");
  EXPECT_EQ(messages()[0].title, "DXF Conversion Error");
}

TEST_F(Import, OneRowTooManyIsOne) {
  for (int row = 1; row <= 32767; ++row) addLine(0, 0, 1, 1);
  import("0 LINE, 11 1");
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            "The drawing is full: it holds at most 32767 rows.  The last row of " + path() +
                " could not be added.");
}

// What Exact Geometry makes of blocks is counted to the end, as long as that comes within reach.
TEST_F(Import, RowsOfBlocksThatDoNotFitAreCounted) {
  const std::string block = "0 BLOCK, 2 A, 10 0, 20 0, 0 LINE, 10 0, 20 0, 11 1, 21 0, 0 ENDBLK";
  form.chkExactGeometry.setChecked(true);
  importWith(block, "0 INSERT, 2 A, 10 0, 20 0, 70 400, 71 400, 44 2, 45 2");
  EXPECT_EQ(store.NumSegments, 32767);
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            "The drawing is full: it holds at most 32767 rows.  The last 127233 rows of " + path() +
                " could not be added.");
}

TEST_F(Import, OfRowsWithoutEndItSaysThatThereAreMore) {
  const std::string block = "0 BLOCK, 2 A, 10 0, 20 0, 0 LINE, 10 0, 20 0, 11 1, 21 0, 0 ENDBLK";
  form.chkExactGeometry.setChecked(true);
  importWith(block, "0 INSERT, 2 A, 10 0, 20 0, 70 30000, 71 30000, 44 2, 45 2");
  EXPECT_EQ(store.NumSegments, 32767);
  ASSERT_EQ(messages().size(), 2U);
  EXPECT_EQ(messages()[0].text,
            "The drawing is full: it holds at most 32767 rows.  More than 467233 rows of " +
                path() + " could not be added.");
  EXPECT_NE(messages()[1].text.find("INSERT (BLOCK \"A\" HAS TOO MANY PARTS)"), std::string::npos);
}

// ---- After it

TEST_F(Import, TheWholeDrawingIsShownUnderTheFilesName) {
  import("0 LINE, 10 0, 20 0, 11 100, 21 80");
  EXPECT_EQ(view.viewcx, 50);
  EXPECT_EQ(view.viewcy, 40);
  EXPECT_EQ(store.drawingname, "part");
  EXPECT_EQ(test.listener.displayed.back(), "Drawing:PART");
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(Import, WithoutAFileNothingHappensButTheClosing) {
  form.open(Modality::Modal);
  form.cmdImport2TESS.click();
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(store.drawingname, "");
  EXPECT_TRUE(messages().empty());
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(Import, TheFormIsUnloadedAfterwards) {
  form.open(Modality::Modal);
  open("0 LINE, 11 1, 21 1");
  form.cmdImport2TESS.click();
  EXPECT_FALSE(form.isLoaded());
}

// ---- Opening

TEST_F(Import, TheOpenDialogStartsInTheDxfFolder) {
  form.cmdOpenDXF.click();
  ASSERT_EQ(test.recording.prompts.fileRequests.size(), 1U);
  const FileRequest& request = test.recording.prompts.fileRequests[0];
  EXPECT_EQ(request.title, "Open DXF File");
  EXPECT_EQ(request.pattern, "DXF Files (*.DXF)|*.dxf|All Files (*.*)|*.*");
  EXPECT_EQ(request.folder, test.home("DXF/"));
  EXPECT_EQ(request.name, "*.DXF");
  EXPECT_FALSE(request.forSaving);
}

TEST_F(Import, AChosenFileIsReadAndItsEntitiesAreCounted) {
  const std::string file = test.home.write("A.dxf", inTextForm(entitySection("0 LINE, 11 1")));
  test.recording.prompts.files = {file.substr(0, file.size() - 4)};
  form.cmdOpenDXF.click();
  EXPECT_EQ(form.DXFReader1().Entities.size(), 1U);
  EXPECT_EQ(form.lblFile.caption(), "A.dxf: 1 entity");
  open("0 LINE, 11 1, 0 LINE, 11 2");
  EXPECT_EQ(form.lblFile.caption(), "part.dxf: 2 entities");
}

TEST_F(Import, ANameThatStillHasAStarIsACancel) {
  open("0 LINE, 11 1");
  test.recording.prompts.files = {test.home("*.DXF"), std::nullopt};
  form.cmdOpenDXF.click();
  form.cmdOpenDXF.click();
  EXPECT_EQ(form.DXFReader1().Entities.size(), 1U);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Import, OnlyFilesNamedDxfAreRead) {
  test.home.write("part.txt", inTextForm(entitySection("0 LINE, 11 1")));
  form.OpenDXFFile(test.home(), "part.txt");
  EXPECT_TRUE(form.DXFReader1().Entities.empty());
  form.OpenDXFFile_From_DragDrop(
      test.home.write("Part.Dxf", inTextForm(entitySection("0 LINE, 11 1"))));
  EXPECT_EQ(form.DXFReader1().Entities.size(), 1U);
}

TEST_F(Import, ADamagedFileIsToldAndItsBeginningCanBeImported) {
  test.home.write("part.dxf",
                  inTextForm("0 SECTION, 2 ENTITIES, 0 LINE, 11 1, 0 LINE, 11 x, 0 EOF"));
  form.OpenDXFFile(test.home(), "part.dxf");
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text,
            "part.dxf line 11: \"x\" is no number\n\n1 entity before it can be imported.");
  EXPECT_EQ(messages()[0].title, "DXF File Error");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
  form.cmdImport2TESS_Click();
  EXPECT_EQ(segmentTexts(store), Texts{"1 (0, 0)-(1, 0)"});
}

TEST_F(Import, AFileThatIsNoDxfOrMissingIsTold) {
  test.home.write("part.dxf", "\x89PNG\n");
  form.OpenDXFFile(test.home(), "part.dxf");
  form.OpenDXFFile(test.home(), "none.dxf");
  ASSERT_EQ(messages().size(), 2U);
  EXPECT_EQ(messages()[0].text, "part.dxf line 1: this is not a DXF file");
  EXPECT_EQ(messages()[1].text, test.home("none.dxf") + ": File not found");
}

// ---- The option that is remembered

TEST_F(Import, ExactGeometryIsOffUntilItIsChosenAndThenRemembered) {
  EXPECT_FALSE(form.chkExactGeometry.isChecked());
  EXPECT_EQ(form.chkExactGeometry.caption(), "&Exact Geometry");
  form.chkExactGeometry.setChecked(true);
  EXPECT_TRUE(frmDXF(context).chkExactGeometry.isChecked());
  form.chkExactGeometry.setChecked(false);
  EXPECT_FALSE(frmDXF(context).chkExactGeometry.isChecked());
  EXPECT_TRUE(test.recording.failures.reported.empty());
}

TEST_F(Import, AMemoryThatCannotBeWrittenIsReported) {
  std::filesystem::create_directory(test.home("frmDXF.cfg"));
  form.chkExactGeometry.setChecked(true);
  ASSERT_EQ(test.recording.failures.reported.size(), 1U);
  EXPECT_EQ(test.recording.failures.reported[0].number(), FailureNumber::PathFileAccess);
}

// ---- The command

TEST_F(Import, TheCommandAsksForAFileAndShowsTheForm) {
  test.recording.prompts.files = {
      test.home.write("a.dxf", inTextForm(entitySection("0 LINE, 11 1")))};
  test.recording.prompts.onForm = [](Form& shown) {
    dynamic_cast<frmDXF&>(shown).cmdImport2TESS.click();
  };
  mnuFileImport_Click(context);
  EXPECT_EQ(test.recording.prompts.formNames, Texts{"frmDXF"});
  EXPECT_EQ(segmentTexts(store), Texts{"1 (0, 0)-(1, 0)"});
}

TEST_F(Import, TheFormShowsWithoutAFileToo) {
  mnuFileImport_Click(context);
  EXPECT_EQ(test.recording.prompts.formNames, Texts{"frmDXF"});
}

TEST_F(Import, ADroppedFileIsReadBeforeTheFormShows) {
  const std::string file = test.home.write("a.dxf", inTextForm(entitySection("0 LINE, 11 1")));
  std::size_t entities = 0;
  test.recording.prompts.onForm = [&](Form& shown) {
    entities = dynamic_cast<frmDXF&>(shown).DXFReader1().Entities.size();
  };
  importDroppedDxf(context, file);
  EXPECT_EQ(entities, 1U);
  EXPECT_TRUE(test.recording.prompts.fileRequests.empty());
}

}  // namespace
}  // namespace tess
