// The plain reader of DXF text.
#include "import/load_dxf.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/import/dxf_content.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::entitySection;
using testing::failureOf;
using testing::inTextForm;
using testing::RecordedDrafting;
using testing::segmentTexts;

using Texts = std::vector<std::string>;

class LoadDxf : public ::testing::Test, public RecordedDrafting {
 protected:
  std::string write(const std::string& groups) {
    return test.home.write("plain.dxf", inTextForm(groups, "\r\n"));
  }
  Texts load(const std::string& entities) {
    load_dxf(context, write(entitySection(entities)));
    return segmentTexts(store);
  }
};

TEST_F(LoadDxf, LinesArcsAndCirclesBecomeRows) {
  EXPECT_EQ(
      load("0 LINE, 8 0, 10 1, 20 2, 11 3, 21 4, 0 ARC, 62 7, 10 0, 20 0, 40 -2, 50 0, 51 90, "
           "0 CIRCLE, 10 1, 20 1, 40 3"),
      (Texts{"1 (1, 2)-(3, 4)", "3 (2, 0)-(0, 2) c (0, 0)", "5 (4, 1)-(4, 1) c (1, 1)"}));
}

TEST_F(LoadDxf, VerticesRunFromPenToPenAndSeqendClosesThem) {
  EXPECT_EQ(load("0 POLYLINE, 66 1, 70 0, 0 VERTEX, 10 0, 20 0, 42 1, 0 VERTEX, 10 2, 20 0, "
                 "0 VERTEX, 10 2, 20 2, 42 -0.5, 0 VERTEX, 10 0, 20 2, 42 0.5, 0 SEQEND"),
            (Texts{"1 (0, 0)-(2, 0)", "2 (2, 0)-(2, 2) c (0, 0)", "3 (2, 2)-(0, 2) c (0, 0)",
                   "1 (0, 2)-(0, 0)"}));
}

TEST_F(LoadDxf, EachRunOfVerticesBeginsAnew) {
  EXPECT_EQ(load("0 VERTEX, 10 0, 20 0, 0 VERTEX, 10 1, 20 0, 0 LINE, 11 5, 0 VERTEX, 10 7, 20 7, "
                 "0 VERTEX, 10 8, 20 8, 0 SEQEND, 0 SEQEND"),
            (Texts{"1 (0, 0)-(1, 0)", "1 (0, 0)-(5, 0)", "1 (7, 7)-(8, 8)", "1 (8, 8)-(7, 7)"}));
}

TEST_F(LoadDxf, UnknownEntitiesAreSkippedInSilence) {
  EXPECT_EQ(load("0 SPLINE, 10 1, 20 1, 0 TEXT, 1 a, 0 LINE, 11 1, 21 1"),
            Texts{"1 (0, 0)-(1, 1)"});
  EXPECT_TRUE(messages().empty());
}

TEST_F(LoadDxf, OnlyTheEntitiesSectionCounts) {
  load_dxf(context,
           write("0 SECTION, 2 HEADER, 9 $ACADVER, 1 AC1009, 0 ENDSEC, 0 SECTION, 2 BLOCKS, "
                 "0 BLOCK, 0 LINE, 11 9, 0 ENDBLK, 0 ENDSEC, " +
                 entitySection("0 LINE, 11 1") + ", 0 LINE, 11 2"));
  EXPECT_EQ(segmentTexts(store), Texts{"1 (0, 0)-(1, 0)"});
}

TEST_F(LoadDxf, CodesOfNoRangeHaveNoValueOfTheirOwn) {
  // The line behind 100 is taken for the next code, 0, and the one after it for an entity.
  const std::string path =
      test.home.write("new.dxf",
                      "0\nSECTION\n2\nENTITIES\n0\nLINE\n11\n1\n100\nAcDbLine\nX\n11\n5\n"
                      "0\nENDSEC\n");
  load_dxf(context, path);
  EXPECT_EQ(segmentTexts(store), Texts{"1 (0, 0)-(1, 0)"});
}

TEST_F(LoadDxf, TheDrawingIsReplacedAndUnsaved) {
  addLine(5, 5, 6, 6);
  store.drawingname = "OLD.CDM";
  view.viewspan = 1;
  EXPECT_EQ(load("0 LINE, 11 1"), Texts{"1 (0, 0)-(1, 0)"});
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.drawingname, "");
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_EQ(view.viewspan, view.homespan);
  const Texts told = test.listener.take();
  EXPECT_NE(std::find(told.begin(), told.end(), "UnselectAll"), told.end());
  EXPECT_NE(std::find(told.begin(), told.end(), "Clear_Paste"), told.end());
}

TEST_F(LoadDxf, AFileThatIsCutOffKeepsWhatWasRead) {
  const std::string path = write("0 SECTION, 2 ENTITIES, 0 LINE, 11 1, 0 LINE, 11 2");
  const RuntimeFailure failure = failureOf([&] { load_dxf(context, path); });
  EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd);
  EXPECT_EQ(failure.source(), path + " line 13 field 1");
  EXPECT_EQ(segmentTexts(store), Texts{"1 (0, 0)-(1, 0)"});
}

TEST_F(LoadDxf, AMissingFileLeavesTheDrawing) {
  addLine(5, 5, 6, 6);
  EXPECT_EQ(failureOf([&] { load_dxf(context, test.home("none.dxf")); }).number(),
            FailureNumber::FileNotFound);
  EXPECT_EQ(store.NumSegments, 1);
}

TEST_F(LoadDxf, ANumberTooLargeNamesItsLine) {
  const std::string path = write("0 SECTION, 2 ENTITIES, 0 LINE, 11 1e39, 0 ENDSEC");
  const RuntimeFailure failure = failureOf([&] { load_dxf(context, path); });
  EXPECT_EQ(failure.number(), FailureNumber::Overflow);
  EXPECT_EQ(failure.source(), path + " line 8 field 1");
}

}  // namespace
}  // namespace tess
