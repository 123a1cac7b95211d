// The text of drawing and path files: golden contents, the departures of the header, and contents
// that are cut off or hostile.
#include "core/drawing_format.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::failureOf;
using testing::numberOfFailure;

// The 30 header lines of `fullStore()`.
const char kHeaderText[] =
    "1.0\r\nPROFILE\r\n1\r\n-1\r\n-1\r\nM\r\n.5,1,.125,-1\r\n1,2.5,3\r\n-4,5,6.75\r\n.05\r\n60\r\n"
    "-.25\r\n.01\r\n.1\r\n.002\r\n12\r\n9.5\r\n1\r\n3\r\n1\r\n0\r\nc:\\out\\\r\n1,0,1\r\n"
    "Bracket\r\nA. Smith\r\nC\r\n03/09/2026\r\n6061, T6\r\n4,3,.5\r\n-.25\r\n";

const char kSegmentText[] =
    "0,8,.5,-.5\r\n1,8,0,0,1,0\r\n2,8,1,0,0,1,0,0\r\n3,10,0,1,-1,0,0,0\r\n5,8,2,1,2,1,1.5,1\r\n"
    "6,8,0,0,4,3\r\n";

const char kPathText[] =
    "0,100,0,0,1,1,0,0,.1,0\r\n1,31203,1,1,2,1,0,0,-.25,12.5\r\n2,101,2,1,3,2,2,2,-.5,9\r\n"
    "81,205,3,3,3,3,.1,.5,-1,6\r\n";

DrawingStore fullStore() {
  DrawingStore store;
  store.yorigin = -1;
  store.units = "M";
  store.visualgrid = 0.5F, store.visualgridf = 1;
  store.cursorgrid = 0.125F, store.cursorgridf = -1;
  store.xstartpos = 1, store.ystartpos = 2.5F, store.zstartpos = 3;
  store.xchange = -4, store.ychange = 5, store.zchange = 6.75F;
  store.cfg_min_rough_clearance = 0.05F;
  store.cfg_tool_spacing = 60;
  store.cfg_final_depth = -0.25F, store.cfg_start_depth = 0.01F;
  store.cfg_z_cut_per_pass = 0.1F, store.cfg_min_z_finish = 0.002F;
  store.cfg_rough_feedrate = 12, store.cfg_finish_feedrate = 9.5F;
  store.cfg_cutting_mode = 1, store.selectedtool = 3;
  store.autocomments = 1, store.usingchuck = 0;
  store.cncoutputpath = "c:\\out\\";
  store.endmarkers = 1, store.parttemplate = 0, store.tooloutline = 1;
  store.drawingtitle = "Bracket", store.designername = "A. Smith", store.drawingrevision = "C";
  store.creationdate = "03/09/2026";
  store.partmaterial = "6061, T6";
  store.partdimx = 4, store.partdimy = 3, store.partdimz = 0.5F;
  return store;
}

void addSegments(DrawingStore& store) {
  const SegmentRow rows[] = {
      {.type = 0, .x0 = 0.5F, .y0 = -0.5F},
      {.type = 1, .x1 = 1},
      {.type = 2, .x0 = 1, .y1 = 1},
      {.type = 3, .attr = 10, .y0 = 1, .x1 = -1},
      {.type = 5, .x0 = 2, .y0 = 1, .x1 = 2, .y1 = 1, .xc = 1.5F, .yc = 1},
      {.type = 6, .x1 = 4, .y1 = 3},
  };
  for (const SegmentRow& row : rows) AddSeg(store, row, nullptr);
}

void addPaths(DrawingStore& store) {
  const PathRow rows[] = {
      {.type = 0, .x1 = 1, .y1 = 1, .z = 0.1F, .code = 100},
      {.type = 1, .x0 = 1, .y0 = 1, .x1 = 2, .y1 = 1, .z = -0.25F, .feed = 12.5F, .code = 31203},
      {.type = 2,
       .x0 = 2,
       .y0 = 1,
       .x1 = 3,
       .y1 = 2,
       .xc = 2,
       .yc = 2,
       .z = -0.5F,
       .feed = 9,
       .code = 101},
      {.type = 81,
       .x0 = 3,
       .y0 = 3,
       .x1 = 3,
       .y1 = 3,
       .xc = 0.1F,
       .yc = 0.5F,
       .z = -1,
       .feed = 6,
       .code = 205},
  };
  for (const PathRow& row : rows) addPathSegment(store, row);
}

std::string headerOf(DrawingStore& store) {
  std::string text;
  writefileheader(store, text);
  return text;
}
std::string segmentsOf(const DrawingStore& store) {
  std::string text;
  appendSegments(text, store);
  return text;
}
std::string pathsOf(const DrawingStore& store) {
  std::string text;
  appendPaths(text, store);
  return text;
}

HeaderNotes readHeader(DrawingStore& store, const std::string& text) {
  FieldReader fields("part.cdm", text);
  return readfileheader(store, fields);
}
void readRows(DrawingStore& store, const std::string& text) {
  FieldReader fields("part.cdm", text);
  readSegments(store, fields);
}
void readPathRows(DrawingStore& store, const std::string& text) {
  FieldReader fields("part.tpm", text);
  readPaths(store, fields);
}

// The golden header with one of its lines, counted from 1, replaced.
std::string headerWithLine(int line, const std::string& replacement) {
  const std::string text = kHeaderText;
  std::size_t begin = 0;
  for (int skipped = 1; skipped < line; ++skipped) begin = text.find("\r\n", begin) + 2;
  const std::size_t end = text.find("\r\n", begin);
  return text.substr(0, begin) + replacement + text.substr(end);
}

TEST(DrawingFormat, HeaderHasThirtyLines) {
  DrawingStore store = fullStore();
  EXPECT_EQ(headerOf(store), kHeaderText);
}

TEST(DrawingFormat, RowsHaveTheFieldsOfTheirKind) {
  DrawingStore store;
  addSegments(store);
  EXPECT_EQ(segmentsOf(store), kSegmentText);
}

TEST(DrawingFormat, RowOfAnotherKindWritesNoLine) {
  DrawingStore store;
  for (const int type : {4, 7, -1}) AddSeg(store, {.type = type}, nullptr);
  EXPECT_EQ(segmentsOf(store), "");
}

TEST(DrawingFormat, PathRowHasTenFields) {
  DrawingStore store;
  addPaths(store);
  EXPECT_EQ(pathsOf(store), kPathText);
}

TEST(DrawingFormat, SelectedAndVerifiedRowsAreSavedAsOrdinaryOnes) {
  DrawingStore store;
  for (const int attr : {30008, 30108, 29108, 8}) {
    AddSeg(store, {.type = 0, .attr = attr}, nullptr);
  }
  EXPECT_EQ(segmentsOf(store), "0,8,0,0\r\n0,8,0,0\r\n0,8,0,0\r\n0,8,0,0\r\n");
}

TEST(DrawingFormat, HeaderReadsIntoItsVariables) {
  DrawingStore store;
  store.cfg_tool_spacing = 33;
  const HeaderNotes notes = readHeader(store, kHeaderText);
  EXPECT_EQ(notes.version, "1.0");
  EXPECT_EQ(notes.kind, "PROFILE");
  EXPECT_EQ(notes.cncoutputpath, "c:\\out\\");
  EXPECT_EQ(store.cncoutputpath, "") << "the caller decides whether the folder is there";
  EXPECT_EQ(store.cfg_tool_spacing, 33) << "read and thrown away";
  store.cncoutputpath = notes.cncoutputpath;
  store.cfg_tool_spacing = 60;
  store.cfg_final_depth = -store.cfg_final_depth;
  EXPECT_EQ(headerOf(store), kHeaderText) << "the header read and written again";
}

TEST(DrawingFormat, StoredZOriginHasNoEffect) {
  DrawingStore store;
  store.zorigin = 1;
  readHeader(store, headerWithLine(5, "7"));
  EXPECT_EQ(store.zorigin, -1);
}

TEST(DrawingFormat, NegativeDepthOfTheLastLineComesInPositive) {
  DrawingStore store;
  readHeader(store, headerWithLine(30, "-.75"));
  EXPECT_EQ(store.cfg_final_depth, 0.75F);
}

TEST(DrawingFormat, DepthOfLineTwelveIsAPlaceHolder) {
  DrawingStore store;
  readHeader(store, headerWithLine(12, "9"));
  EXPECT_EQ(store.cfg_final_depth, 0.25F);
}

TEST(DrawingFormat, PartHeightOfZeroIsWrittenAndReadAsAQuarter) {
  DrawingStore store = fullStore();
  store.partdimz = 0;
  EXPECT_EQ(headerOf(store), headerWithLine(29, "4,3,.25"));
  EXPECT_EQ(store.partdimz, 0.25F);
  for (const char* line : {"4,3,0", "4,3,-2"}) {
    readHeader(store, headerWithLine(29, line));
    EXPECT_EQ(store.partdimz, 0.25F) << line;
  }
}

TEST(DrawingFormat, CommaInTheTitleShiftsTheLaterFields) {
  DrawingStore store;
  readHeader(store, headerWithLine(24, "Bracket, left"));
  EXPECT_EQ(store.drawingtitle, "Bracket");
  EXPECT_EQ(store.designername, "left");
  EXPECT_EQ(store.drawingrevision, "A. Smith");
  EXPECT_EQ(store.creationdate, "C");
  EXPECT_EQ(store.partmaterial, "03/09/2026");
  EXPECT_EQ(store.partdimx, 6061);
  EXPECT_EQ(store.partdimy, 0);
  EXPECT_EQ(store.partdimz, 4);
  EXPECT_EQ(store.cfg_final_depth, 3);
}

TEST(DrawingFormat, CommaInTheMaterialDoesNot) {
  DrawingStore store;
  readHeader(store, headerWithLine(28, "6061, {T6}|~"));
  EXPECT_EQ(store.partmaterial, "6061, T6");
  EXPECT_EQ(store.partdimx, 4);
}

TEST(DrawingFormat, LineEndInATextBecomesABlank) {
  DrawingStore store = fullStore();
  store.drawingtitle = "Bracket\r\nleft\nside";
  EXPECT_EQ(headerOf(store), headerWithLine(24, "Bracket  left side"));
}

TEST(DrawingFormat, QuotesAreOrdinaryCharacters) {
  DrawingStore store;
  readHeader(store, headerWithLine(24, "\"Bracket\""));
  EXPECT_EQ(store.drawingtitle, "\"Bracket\"");
  EXPECT_EQ(store.designername, "A. Smith");
}

TEST(DrawingFormat, IntegersThatDoNotFitNameTheirPlace) {
  DrawingStore store;
  const RuntimeFailure failure = failureOf([&] { readHeader(store, headerWithLine(18, "40000")); });
  EXPECT_EQ(failure.number(), FailureNumber::Overflow);
  EXPECT_EQ(failure.source(), "part.cdm line 18 field 1");
}

TEST(DrawingFormat, RowsReadAsTheyWereWritten) {
  DrawingStore store;
  readRows(store, kSegmentText);
  EXPECT_EQ(store.NumSegments, 6);
  EXPECT_EQ(segmentsOf(store), kSegmentText);
  readPathRows(store, kPathText);
  EXPECT_EQ(store.NumPathSegments, 4);
  EXPECT_EQ(pathsOf(store), kPathText);
  EXPECT_TRUE(store.psvisible[4]);
  EXPECT_TRUE(isConsistent(store));
}

TEST(DrawingFormat, AttributeOfAFilesRowIsTakenModuloHundred) {
  DrawingStore store;
  readRows(store, "1,30108,0,0,1,1\r\n");
  EXPECT_EQ(store.segattr[1], 8);
}

TEST(DrawingFormat, LineKeepsTheCenterThatTheRowHeld) {
  DrawingStore store;
  store.centerx[1] = 7;
  store.centery[1] = 8;
  readRows(store, "1,8,0,0,1,1\r\n");
  EXPECT_EQ(store.centerx[1], 7);
  EXPECT_EQ(store.centery[1], 8);
}

TEST(DrawingFormat, RowOfUnknownKindTakesNoCoordinates) {
  DrawingStore store;
  readRows(store, "4,8\r\n9,10\r\n-3,8\r\n0,8,1,2\r\n");
  EXPECT_EQ(store.NumSegments, 4);
  EXPECT_EQ(store.segtype[2], 9);
  EXPECT_EQ(store.segattr[2], 10);
  EXPECT_EQ(store.y0[4], 2);
}

TEST(DrawingFormat, FieldsNeedNoLineBoundaries) {
  DrawingStore store;
  readRows(store, "1\n8\n0,0\n1\n1,0,8,5,6");
  EXPECT_EQ(store.NumSegments, 2);
  EXPECT_EQ(store.x1[1], 1);
  EXPECT_EQ(store.y0[2], 6);
}

TEST(DrawingFormat, RowCutOffByTheEndOfTheFileCounts) {
  DrawingStore store;
  const RuntimeFailure failure = failureOf([&] { readRows(store, "1,8,0,0,1,1\r\n1,8,5\r\n"); });
  EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd);
  EXPECT_EQ(failure.source(), "part.cdm line 3 field 1");
  EXPECT_EQ(store.NumSegments, 2);
  EXPECT_EQ(store.x0[2], 5);
}

TEST(DrawingFormat, RowsPastTheLargestNumberAreOverflow) {
  std::string rows;
  std::string paths;
  for (int row = 0; row < 32768; ++row) {
    rows += "9,8\r\n";
    paths += "1,100,0,0,0,0,0,0,0,0\r\n";
  }
  DrawingStore store;
  const RuntimeFailure failure = failureOf([&] { readRows(store, rows); });
  EXPECT_EQ(failure.number(), FailureNumber::Overflow);
  EXPECT_EQ(failure.source(), "part.cdm line 32768 field 1");
  EXPECT_EQ(store.NumSegments, 32767);
  EXPECT_EQ(numberOfFailure([&] { readPathRows(store, paths); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumPathSegments, 32767);
  EXPECT_TRUE(isConsistent(store));
}

TEST(DrawingFormat, ValueThatIsNoNumberIsNotWritten) {
  DrawingStore store;
  AddSeg(store, {.type = 1, .x1 = std::nanf("")}, nullptr);
  EXPECT_EQ(numberOfFailure([&] { segmentsOf(store); }), FailureNumber::InvalidProcedureCall);
  addPathSegment(store, {.z = std::numeric_limits<float>::infinity()});
  EXPECT_EQ(numberOfFailure([&] { pathsOf(store); }), FailureNumber::InvalidProcedureCall);
}

// A drawing that ends anywhere gives what stands before its end, and a file failure at most.
TEST(DrawingFormat, ContentCutAtEveryByteFailsCleanly) {
  const std::string whole = std::string(kHeaderText) + kSegmentText;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    DrawingStore store;
    FieldReader fields("part.cdm", whole.substr(0, length));
    try {
      readfileheader(store, fields);
      readSegments(store, fields);
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd) << length;
    }
    EXPECT_TRUE(isConsistent(store)) << length;
  }
}

TEST(DrawingFormat, PathsCutAtEveryByteFailCleanly) {
  const std::string whole = kPathText;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    DrawingStore store;
    try {
      readPathRows(store, whole.substr(0, length));
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), FailureNumber::InputPastEnd) << length;
    }
    EXPECT_TRUE(isConsistent(store)) << length;
  }
}

TEST(DrawingFormat, HostileContentsFailOrReadAsZero) {
  const std::string contents[] = {
      std::string("\0\0\0", 3), ",,,,,,",       "\r\n\r\n",
      "\xFF\xFE\xFF",           "1e99,8,0,0",   "99999999999999999999",
      "1,8,1e39,0,0,0",         "inf,nan,-inf", "2,8,1e-999,-,+,.,e5,-e"};
  for (const std::string& content : contents) {
    DrawingStore store;
    FieldReader fields("part.cdm", content);
    try {
      readSegments(store, fields);
    } catch (const RuntimeFailure& failure) {
      EXPECT_TRUE(failure.number() == FailureNumber::InputPastEnd ||
                  failure.number() == FailureNumber::Overflow)
          << content;
    }
    EXPECT_TRUE(isConsistent(store)) << content;
  }
}

TEST(PathFileName, IsTheUpperCasedNameWithTheOtherExtension) {
  EXPECT_EQ(pathFileName("part.cdm"), "PART.TPM");
  EXPECT_EQ(pathFileName("PART.CDM"), "PART.TPM");
  EXPECT_EQ(pathFileName("a.cdm.cdm"), "A.TPM.TPM");
}

TEST(PathFileName, DrawingsOfAnotherExtensionHaveNone) {
  EXPECT_EQ(pathFileName("part.txt"), "");
  EXPECT_EQ(pathFileName("part.tpm"), "");
  EXPECT_EQ(pathFileName(""), "");
}

// Any 32-bit value that a coordinate can have.
rc::Gen<float> coordinate() {
  return rc::gen::suchThat(
      rc::gen::map(rc::gen::arbitrary<std::uint32_t>(),
                   [](std::uint32_t bits) { return std::bit_cast<float>(bits); }),
      [](float value) { return std::isfinite(value); });
}

RC_GTEST_PROP(DrawingFormat, RowsSurviveWritingAndReading, ()) {
  DrawingStore store;
  const auto kinds = *rc::gen::container<std::vector<int>>(rc::gen::element(0, 1, 2, 3, 5, 6));
  for (const int kind : kinds) {
    SegmentRow row{
        .type = kind, .attr = *rc::gen::inRange(0, 100), .x0 = *coordinate(), .y0 = *coordinate()};
    if (kind != kPoint) row.x1 = *coordinate(), row.y1 = *coordinate();
    if (isArc(kind) || kind == kCircle) row.xc = *coordinate(), row.yc = *coordinate();
    AddSeg(store, row, nullptr);
  }
  DrawingStore loaded;
  readRows(loaded, segmentsOf(store));
  RC_ASSERT(loaded.NumSegments == store.NumSegments);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    RC_ASSERT(loaded.segtype[sg] == store.segtype[sg]);
    RC_ASSERT(loaded.segattr[sg] == store.segattr[sg]);
    RC_ASSERT(loaded.x0[sg] == store.x0[sg]);
    RC_ASSERT(loaded.y0[sg] == store.y0[sg]);
    RC_ASSERT(loaded.x1[sg] == store.x1[sg]);
    RC_ASSERT(loaded.y1[sg] == store.y1[sg]);
    RC_ASSERT(loaded.centerx[sg] == store.centerx[sg]);
    RC_ASSERT(loaded.centery[sg] == store.centery[sg]);
  }
}

RC_GTEST_PROP(DrawingFormat, PathRowsSurviveWritingAndReading, ()) {
  DrawingStore store;
  const int rows = *rc::gen::inRange(0, 30);
  for (int row = 0; row < rows; ++row) {
    addPathSegment(store, {.type = *rc::gen::inRange(0, 90),
                           .x0 = *coordinate(),
                           .y0 = *coordinate(),
                           .x1 = *coordinate(),
                           .y1 = *coordinate(),
                           .xc = *coordinate(),
                           .yc = *coordinate(),
                           .z = *coordinate(),
                           .feed = *coordinate(),
                           .code = *rc::gen::inRange(0, 32767)});
  }
  DrawingStore loaded;
  readPathRows(loaded, pathsOf(store));
  RC_ASSERT(loaded.NumPathSegments == store.NumPathSegments);
  RC_ASSERT(pathsOf(loaded) == pathsOf(store));
  for (int ps = 1; ps <= rows; ++ps) {
    RC_ASSERT(loaded.psx0[ps] == store.psx0[ps]);
    RC_ASSERT(loaded.psfeed[ps] == store.psfeed[ps]);
    RC_ASSERT(loaded.pscode[ps] == store.pscode[ps]);
  }
}

}  // namespace
}  // namespace tess
