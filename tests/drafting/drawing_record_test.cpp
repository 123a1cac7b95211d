// A drawing's record: what comes back from it, whole and broken off.
#include "drafting/drawing_record.h"

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/settings.h"
#include "tests/geometry/scenes.h"

namespace tess {
namespace {

using testing::Dice;

std::string headed() {
  std::string record;
  appendRecordHead(record);
  return record;
}

SegmentRow someSegment(Dice& dice) {
  const auto number = [&dice] { return static_cast<float>(100 * dice.unit()); };
  return {1 + dice.below(6), kOrdinaryClass + 30000 * dice.below(2),
          number(),          number(),
          number(),          number(),
          number(),          number()};
}

PathRow somePath(Dice& dice) {
  const auto number = [&dice] { return static_cast<float>(100 * dice.unit()); };
  return {.type = dice.below(4),
          .x0 = number(),
          .y0 = number(),
          .x1 = number(),
          .y1 = number(),
          .xc = number(),
          .yc = number(),
          .z = number(),
          .feed = number(),
          .code = dice.below(300),
          .visible = dice.below(2) == 0};
}

DrawingStore someDrawing(Dice& dice, int rows) {
  DrawingStore store;
  for (int k = 0; k < rows; ++k) {
    AddSeg(store, someSegment(dice), nullptr);
    addPathSegment(store, somePath(dice));
    setPathRow(store, store.NumPathSegments, somePath(dice));
  }
  return store;
}

void expectSameRows(const DrawingStore& a, const DrawingStore& b) {
  ASSERT_EQ(a.NumSegments, b.NumSegments);
  ASSERT_EQ(a.NumPathSegments, b.NumPathSegments);
  for (int sg = 1; sg <= a.NumSegments; ++sg) EXPECT_EQ(segmentRow(a, sg), segmentRow(b, sg)) << sg;
  for (int ps = 1; ps <= a.NumPathSegments; ++ps) EXPECT_EQ(pathRow(a, ps), pathRow(b, ps)) << ps;
}

// One edit of either table that its rows allow.
template <class Row>
struct SomeEdit {
  SomeEdit(Dice& dice, int count, Row (*row)(Dice&)) {
    kind = static_cast<EditKind>(count == 0 ? 0 : dice.below(3));
    const int last = kind == EditKind::Insert ? count + 3 : count;
    for (int number = 1; number <= last; ++number) {
      const bool atEnd = kind == EditKind::Insert && number > count;
      if (atEnd || dice.below(4) == 0) numbers.push_back(static_cast<std::int16_t>(number));
    }
    // Rows are inserted without a gap behind the last one.
    const auto reach = [&] { return count + static_cast<int>(numbers.size()); };
    while (kind == EditKind::Insert && !numbers.empty() && numbers.back() > reach()) {
      numbers.pop_back();
    }
    if (kind != EditKind::Erase) {
      for (std::size_t k = 0; k < numbers.size(); ++k) rows.push_back(row(dice));
    }
  }
  RowEdit<Row> edit() const { return {kind, numbers, rows}; }

  EditKind kind;
  std::vector<std::int16_t> numbers;
  std::vector<Row> rows;
};

TEST(DrawingRecord, GivesTheWholeDrawingBack) {
  Dice dice(1);
  DrawingStore store = someDrawing(dice, 40);
  store.drawingpath = "/parts/";
  store.drawingname = "PLATE, LEFT.CDM";
  store.drawingtitle = "a title, with a comma and \"quotes\"";
  store.cfg_final_depth = 0.1F;
  store.units = "M";
  store.creationdate = "01/02/2003";
  store.zorigin = 1;
  store.cfg_tool_spacing = 37.5F;
  store.markerx = 1.25F;
  store.markery = -3;
  store.currentpathgroup = 7;
  store.lastplacedgroup = 6;
  store.showpaths = 1;
  store.drawingsaved = false;
  store.pathgroupname[3] = "finish";
  OpenDrawing opened;
  opened.path = "/parts/plate, left.cdm";
  opened.state[0].checksum = Checksum{.sum = 0xfedcba9876543210U, .size = 1234};
  std::string record = headed();
  appendWholeDrawing(record, store, opened);

  DrawingStore back;
  const RecordedDrawing read = readRecord(record, back);
  EXPECT_TRUE(read.known);
  EXPECT_FALSE(read.cutShort);
  EXPECT_EQ(read.opened.path, "/parts/plate, left.cdm");
  EXPECT_TRUE(sameContent(read.opened.state, opened.state));
  EXPECT_EQ(read.changes, 0);
  expectSameRows(back, store);
  EXPECT_EQ(back.drawingpath, "/parts/");
  EXPECT_EQ(back.drawingname, "PLATE, LEFT.CDM");
  EXPECT_EQ(back.creationdate, "01/02/2003");
  EXPECT_EQ(back.markerx, 1.25F);
  EXPECT_EQ(back.markery, -3);
  EXPECT_EQ(back.currentpathgroup, 7);
  EXPECT_EQ(back.lastplacedgroup, 6);
  EXPECT_EQ(back.showpaths, 1);
  EXPECT_FALSE(back.drawingsaved);
  EXPECT_EQ(back.pathgroupname[3], "finish");
  for (const SettingRow& row : settingRows()) {
    EXPECT_EQ(settingText(back, row), settingText(store, row)) << row.key;
  }
}

TEST(DrawingRecord, FollowsEveryEdit) {
  for (std::uint32_t seed = 1; seed <= 50; ++seed) {
    Dice dice(seed);
    DrawingStore store = someDrawing(dice, dice.below(20));
    std::string record = headed();
    appendWholeDrawing(record, store, OpenDrawing());
    for (int change = 0; change < 20; ++change) {
      const SomeEdit<SegmentRow> segments(dice, store.NumSegments, someSegment);
      const SomeEdit<PathRow> paths(dice, store.NumPathSegments, somePath);
      prepareEdit(store, segments.edit());
      performEdit(store, segments.edit());
      prepareEdit(store, paths.edit());
      performEdit(store, paths.edit());
      appendEdits(record, store, {{segments.edit()}}, {{paths.edit()}});
    }
    DrawingStore back;
    const RecordedDrawing read = readRecord(record, back);
    EXPECT_EQ(read.changes, 20);
    EXPECT_FALSE(read.cutShort);
    expectSameRows(back, store);
  }
}

TEST(DrawingRecord, SettingsChangeAlone) {
  DrawingStore store;
  std::string record = headed();
  appendWholeDrawing(record, store, OpenDrawing());
  store.partmaterial = "brass";
  store.cfg_start_depth = 0.3F;
  appendSettings(record, store);
  DrawingStore back;
  EXPECT_EQ(readRecord(record, back).changes, 1);
  EXPECT_EQ(back.partmaterial, "brass");
  EXPECT_EQ(back.cfg_start_depth, 0.3F);
}

TEST(DrawingRecord, AWholeDrawingTakesThePlaceOfWhatWasBefore) {
  Dice dice(3);
  const DrawingStore first = someDrawing(dice, 9);
  const DrawingStore second = someDrawing(dice, 2);
  std::string record = headed();
  appendWholeDrawing(record, first, OpenDrawing());
  appendSettings(record, first);
  appendWholeDrawing(record, second, OpenDrawing());
  DrawingStore back;
  EXPECT_EQ(readRecord(record, back).changes, 0);
  expectSameRows(back, second);
}

// Cut anywhere, the record gives the drawing as it was after one of its entries, and says so.
TEST(DrawingRecord, BrokenOffAnywhereItGivesTheLastWholeEntry) {
  Dice dice(5);
  DrawingStore store = someDrawing(dice, 5);
  std::vector<DrawingStore> states(1);
  std::vector<std::size_t> ends{headed().size()};
  std::string record = headed();
  const auto entryWritten = [&] {
    states.push_back(store);
    ends.push_back(record.size());
  };
  appendWholeDrawing(record, store, OpenDrawing());
  entryWritten();
  for (int change = 0; change < 6; ++change) {
    const SomeEdit<SegmentRow> segments(dice, store.NumSegments, someSegment);
    prepareEdit(store, segments.edit());
    performEdit(store, segments.edit());
    appendEdits(record, store, {{segments.edit()}}, {});
    entryWritten();
  }
  for (std::size_t length = 0; length <= record.size(); ++length) {
    std::size_t whole = 0;
    while (whole + 1 < ends.size() && ends[whole + 1] <= length) ++whole;
    DrawingStore back;
    const RecordedDrawing read = readRecord(std::string_view(record).substr(0, length), back);
    EXPECT_EQ(read.known, whole > 0) << length;
    EXPECT_EQ(read.cutShort, length > ends[whole]) << length;
    expectSameRows(back, states[whole]);
  }
}

TEST(DrawingRecord, ADamagedEntryEndsIt) {
  Dice dice(6);
  DrawingStore store = someDrawing(dice, 5);
  std::string record = headed();
  appendWholeDrawing(record, store, OpenDrawing());
  const std::size_t whole = record.size();
  store.partmaterial = "steel";
  appendSettings(record, store);
  for (std::size_t at = whole; at < record.size(); ++at) {
    std::string damaged = record;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x20);
    DrawingStore back;
    const RecordedDrawing read = readRecord(damaged, back);
    EXPECT_TRUE(read.known && read.cutShort) << at;
    EXPECT_EQ(back.partmaterial, "") << at;
    expectSameRows(back, store);
  }
}

// The checksum vouches for the bytes, not for their sense.
TEST(DrawingRecord, AnEntryThatTheTablesRefuseIsNotTakenHalf) {
  Dice dice(7);
  DrawingStore store = someDrawing(dice, 5);
  std::string record = headed();
  appendWholeDrawing(record, store, OpenDrawing());
  const std::int16_t first[] = {1};
  const std::int16_t beyond[] = {77};
  const SegmentRow rows[] = {someSegment(dice)};
  const RowEdit<SegmentRow> edits[] = {{EditKind::Replace, first, rows},
                                       {EditKind::Replace, beyond, rows}};
  appendEdits(record, store, edits, {});
  DrawingStore back;
  const RecordedDrawing read = readRecord(record, back);
  EXPECT_TRUE(read.known);
  EXPECT_TRUE(read.cutShort);
  EXPECT_EQ(read.changes, 0);
  expectSameRows(back, store);
}

TEST(DrawingRecord, OtherFilesAreNone) {
  DrawingStore back;
  EXPECT_FALSE(readRecord("", back).known);
  EXPECT_FALSE(readRecord("1.0\r\nPROFILE\r\n", back).known);
  std::string edits = headed();
  appendEdits(edits, back, {}, {});
  EXPECT_FALSE(readRecord(edits, back).known);  // of nothing
}

}  // namespace
}  // namespace tess
