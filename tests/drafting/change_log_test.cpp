// The change log: its records, finding rows by their contents, and walking back and forth.
#include "drafting/change_log.h"

#include <algorithm>
#include <deque>
#include <map>

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "drafting/change_walk.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"
#include "tests/support/plain_edits.h"

namespace tess {
namespace {

using testing::deletePathSegment;
using testing::deleteSegment;
using testing::insertPathSegment;
using testing::numberOfFailure;
using testing::pathTexts;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

constexpr float real(int value) {
  return static_cast<float>(value);
}

// A drawing with its log, and edits as commands make them.
struct LoggedDrawing {
  LoggedDrawing() { store.cfg_tolerance = 0.001F; }

  void add(const SegmentRow& row, bool start = true) {
    AddSeg(store, row, nullptr);
    logSegment(log, store, store.NumSegments, "A", start);
  }
  void addLine(float x0, float y0, float x1, float y1, bool start = true) {
    add({.type = 1, .x0 = x0, .y0 = y0, .x1 = x1, .y1 = y1}, start);
  }
  void remove(int sg, bool start = true) {
    logSegment(log, store, sg, "D", start);
    deleteSegment(store, sg);
  }
  void change(int sg, const SegmentRow& row, bool start = true) {
    logSegment(log, store, sg, "D", start);
    setSegmentRow(store, sg, row);
    logSegment(log, store, sg, "A", false);
  }
  void place(const PathRow& row, bool start = true) {
    addPathSegment(store, row);
    logPathSegment(log, store, store.NumPathSegments, "A", start);
  }
  void insertPath(int ps, const PathRow& row, bool start = true) {
    insertPathSegment(store, ps, row, row.code % 100);
    logPathSegment(log, store, ps, "A", start);
  }
  void removePath(int ps, bool start = true) {
    logPathSegment(log, store, ps, "D", start);
    deletePathSegment(store, ps);
  }
  void changePath(int ps, const PathRow& row, bool start = true) {
    logPathSegment(log, store, ps, "D", start);
    setPathRow(store, ps, row);
    logPathSegment(log, store, ps, "A", false);
  }

  void undo() {
    Changes changes(store, log);
    undoStep(changes);
  }
  void redo() {
    Changes changes(store, log);
    redoStep(changes);
  }

  DrawingStore store;
  ChangeLog log;
};

PathRow pathLine(float x0, float x1, float z = 0, int code = 100) {
  return {.type = 1, .x0 = x0, .x1 = x1, .z = z, .feed = 10, .code = code};
}

clsSegment recordOf(const SegmentRow& row) {
  clsSegment record;
  record.SetSegment(row, "A", true);
  return record;
}

// ---- Records

TEST(ClsSegment, HoldsADrawingRowWithItsPathFieldsZero) {
  clsSegment record;
  record.SetPathSegment({.type = 2, .z = -1, .feed = 5, .code = 101}, "A", true);
  record.SetSegment(
      {.type = 3, .attr = 30008, .x0 = 1, .y0 = 2, .x1 = 3, .y1 = 4, .xc = 5, .yc = 6}, "D", true);
  EXPECT_EQ(record.x0, 1);
  EXPECT_EQ(record.x1, 3);
  EXPECT_EQ(record.y0, 2);
  EXPECT_EQ(record.y1, 4);
  EXPECT_EQ(record.CenterX, 5);
  EXPECT_EQ(record.CenterY, 6);
  EXPECT_EQ(record.TypeOfSegment, 0);
  EXPECT_EQ(record.ZDepth, 0);
  EXPECT_EQ(record.FeedRate, 0);
  EXPECT_EQ(record.WhereDeletedFrom, 0);
  EXPECT_EQ(record.SegType, 3);
  EXPECT_EQ(record.SegAttr, 30008);
  EXPECT_EQ(record.AddOrDelete, "D");
  EXPECT_TRUE(record.StartOfSegment);
}

TEST(ClsSegment, HoldsAPathRowWithDepthAndFeed) {
  clsSegment record;
  record.SetPathSegment({.type = 2, .x0 = 1, .z = -0.5F, .feed = 12, .code = 1203}, "A", false);
  EXPECT_EQ(record.TypeOfSegment, 2);
  EXPECT_EQ(record.ZDepth, -0.5F);
  EXPECT_EQ(record.FeedRate, 12);
  EXPECT_EQ(record.WhereDeletedFrom, 1);
  EXPECT_EQ(record.SegAttr, 1203);
  EXPECT_FALSE(record.StartOfSegment);
}

TEST(ClsSegment, IsEmptyAfterClearing) {
  clsSegment record = recordOf({.type = 1, .x0 = 3});
  record.ClearSeqment();
  EXPECT_EQ(record.x0, 0);
  EXPECT_EQ(record.SegType, 0);
  EXPECT_EQ(record.AddOrDelete, "");
}

// ---- The log itself

TEST(ChangeLog, PopAndNextAreTheInversesOfLogging) {
  ChangeLog log;
  for (int n = 0; n < 120; ++n) log.logRecord(recordOf({.type = 1, .x0 = real(n)}), true);
  EXPECT_EQ(log.changecount, 120);
  EXPECT_EQ(log.changetop, 120);
  for (int n = 119; n >= 0; --n) EXPECT_EQ(log.popRecord().x0, n);
  EXPECT_EQ(log.changecount, 0);
  EXPECT_EQ(log.changetop, 120);
  for (int n = 0; n < 120; ++n) EXPECT_EQ(log.nextRedoRecord().x0, n);
  EXPECT_FALSE(log.canRedo());
}

TEST(ChangeLog, AFreshRecordCutsTheRedoBranchOnlyWhenItShall) {
  ChangeLog log;
  for (int n = 0; n < 3; ++n) log.logRecord(recordOf({.type = 1}), true);
  log.popRecord();
  log.popRecord();
  log.logRecord(recordOf({.type = 2}), false);
  EXPECT_EQ(log.changecount, 2);
  EXPECT_EQ(log.changetop, 3);
  log.logRecord(recordOf({.type = 2}), false);
  log.logRecord(recordOf({.type = 2}), false);
  EXPECT_EQ(log.changetop, 4);
  log.popRecord();
  log.popRecord();
  log.logRecord(recordOf({.type = 3}), true);
  EXPECT_EQ(log.changecount, 3);
  EXPECT_EQ(log.changetop, 3);
}

TEST(ChangeLog, BeyondItsEndsFails) {
  ChangeLog log;
  EXPECT_EQ(numberOfFailure([&] { log.popRecord(); }), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { log.nextRedoRecord(); }), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { log.record(0); }), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { log.setRecordField(0, "x0", 1.0F); }),
            FailureNumber::SubscriptOutOfRange);
}

TEST(ChangeLog, HoldsNoMoreThanItsCountCan) {
  ChangeLog log;
  for (int n = 0; n < 32767; ++n) log.logRecord({}, true);
  EXPECT_EQ(numberOfFailure([&] { log.logRecord({}, true); }), FailureNumber::Overflow);
  EXPECT_EQ(log.changecount, 32767);
}

// Logs a step of so many records, numbered by their attribute.
void logStep(ChangeLog& log, int records, int number) {
  for (int n = 0; n < records; ++n) {
    clsSegment record = recordOf({.type = 1, .attr = number});
    record.StartOfSegment = n == 0;
    log.logRecord(record, true);
  }
}

TEST(ChangeLog, WhenItIsFullTheOldestWholeStepsGiveWay) {
  ChangeLog log;
  logStep(log, 4, 1);
  logStep(log, 3, 2);
  logStep(log, 32760, 3);
  EXPECT_EQ(log.changecount, 32767);
  logStep(log, 1, 4);
  EXPECT_EQ(log.changecount, 32764);
  EXPECT_EQ(log.changetop, 32764);
  EXPECT_EQ(log.record(0).SegAttr, 2);
  EXPECT_TRUE(log.record(0).StartOfSegment);
  logStep(log, 5, 5);
  EXPECT_EQ(log.record(0).SegAttr, 3);
  EXPECT_EQ(log.changecount, 32766);
  EXPECT_EQ(log.popRecord().SegAttr, 5);
  EXPECT_EQ(log.nextRedoRecord().SegAttr, 5);
}

TEST(ChangeLog, RecordsOfOneStepEnterTogetherOrNotAtAll) {
  ChangeLog log;
  logStep(log, 3, 1);
  logStep(log, 3, 2);
  std::vector<clsSegment> records(32764, recordOf({.type = 1, .attr = 3}));
  for (clsSegment& record : records) record.StartOfSegment = false;
  records.emplace_back();
  EXPECT_EQ(numberOfFailure([&] { log.logRecords(records); }), FailureNumber::Overflow);
  EXPECT_EQ(log.changecount, 6);
  records.pop_back();
  log.logRecords(records);
  EXPECT_EQ(log.changecount, 32767);
  EXPECT_EQ(log.record(0).SegAttr, 2);
  EXPECT_EQ(log.lastStepSize(), 32767);
  EXPECT_EQ(log.record(32766).SegAttr, 3);
}

TEST(ChangeLog, RecordsLoggedTogetherCutTheRedoBranch) {
  ChangeLog log;
  logStep(log, 2, 1);
  logStep(log, 2, 2);
  log.popRecord();
  log.popRecord();
  const clsSegment record = recordOf({.type = 1, .attr = 3});
  log.logRecords({&record, 1});
  EXPECT_EQ(log.changecount, 3);
  EXPECT_EQ(log.changetop, 3);
  EXPECT_EQ(log.lastStepSize(), 1);
  log.logRecords({});
  EXPECT_EQ(log.changecount, 3);
}

// Against a list that simply drops whole steps from its front.
TEST(ChangeLog, HoldsTheLatestStepsHoweverManyGaveWay) {
  testing::Dice dice(3);
  ChangeLog log;
  std::deque<std::vector<int>> plain;
  int held = 0;
  for (int step = 1; step <= 3000; ++step) {
    const int records = 1 + dice.below(90);
    logStep(log, records, step);
    plain.emplace_back(static_cast<std::size_t>(records), step);
    for (held += records; held > 32767; plain.pop_front()) {
      held -= static_cast<int>(plain.front().size());
    }
  }
  ASSERT_EQ(log.changecount, held);
  ASSERT_EQ(log.changetop, held);
  int at = 0;
  for (const std::vector<int>& step : plain) {
    for (std::size_t n = 0; n < step.size(); ++n, ++at) {
      ASSERT_EQ(log.record(at).SegAttr, step[n]);
      ASSERT_EQ(log.record(at).StartOfSegment, n == 0);
    }
  }
}

TEST(ChangeLog, ClearedHasNothingToUndoOrRedo) {
  LoggedDrawing d;
  d.addLine(0, 0, 1, 0);
  d.addLine(0, 0, 2, 0);
  d.undo();
  d.log.clear();
  EXPECT_EQ(d.log.changecount, 0);
  EXPECT_EQ(d.log.changetop, 0);
  EXPECT_FALSE(d.log.canUndo());
  EXPECT_FALSE(d.log.canRedo());
}

TEST(ChangeLog, ReadsAndWritesFieldsByName) {
  ChangeLog log;
  log.logRecord(
      recordOf({.type = 2, .attr = 8, .x0 = 1, .y0 = 2, .x1 = 3, .y1 = 4, .xc = 5, .yc = 6}), true);
  const std::map<std::string, RecordValue> fields = {
      {"x0", 1.0F},
      {"y0", 2.0F},
      {"x1", 3.0F},
      {"y1", 4.0F},
      {"centerx", 5.0F},
      {"centery", 6.0F},
      {"segtype", 2},
      {"segattr", 8},
      {"addordelete", std::string("A")},
      {"startofsegment", true},
  };
  for (const auto& [name, value] : fields) EXPECT_EQ(log.recordField(0, name), value) << name;
  log.setRecordField(0, "X0", 9.0F);
  log.setRecordField(0, "SegType", 3);
  log.setRecordField(0, "AddOrDelete", std::string("D"));
  log.setRecordField(0, "StartOfSegment", false);
  EXPECT_EQ(log.record(0).x0, 9);
  EXPECT_EQ(log.record(0).SegType, 3);
  EXPECT_EQ(log.record(0).AddOrDelete, "D");
  EXPECT_FALSE(log.record(0).StartOfSegment);
}

TEST(ChangeLog, RefusesUnknownFieldsAndValuesOfAnotherKind) {
  ChangeLog log;
  log.logRecord({}, true);
  EXPECT_EQ(numberOfFailure([&] { log.recordField(0, "zdepth"); }), FailureNumber::TypeMismatch);
  EXPECT_EQ(numberOfFailure([&] { log.setRecordField(0, "x0", 1); }), FailureNumber::TypeMismatch);
  EXPECT_EQ(numberOfFailure([&] { log.setRecordField(0, "segtype", true); }),
            FailureNumber::TypeMismatch);
}

TEST(LogSegment, AnIndexBelowOneLogsNothing) {
  LoggedDrawing d;
  logSegment(d.log, d.store, 0, "A", true);
  logPathSegment(d.log, d.store, -1, "A", true);
  EXPECT_EQ(d.log.changecount, 0);
}

// ---- Finding rows

struct FindCase {
  const char* name;
  SegmentRow row, record;
  bool found;
};

const FindCase kFinds[] = {
    {"equal", {.type = 1, .x1 = 1}, {.type = 1, .x1 = 1}, true},
    {"another kind", {.type = 1, .x1 = 1}, {.type = 6, .x1 = 1}, false},
    {"ends within the tolerance", {.type = 1, .x1 = 1}, {.type = 1, .y0 = 0.001F, .x1 = 1}, true},
    {"ends beyond it", {.type = 1, .x1 = 1}, {.type = 1, .x1 = 1.0011F}, false},
    {"ends exchanged", {.type = 1, .x1 = 1}, {.type = 1, .x0 = 1}, false},
    {"another attribute", {.type = 1, .x1 = 1}, {.type = 1, .attr = 30008, .x1 = 1}, true},
    {"a line has no centre", {.type = 1, .x1 = 1, .xc = 4}, {.type = 1, .x1 = 1}, true},
    {"nor has a rectangle", {.type = 6, .x1 = 1, .xc = 4}, {.type = 6, .x1 = 1}, true},
    {"centres apart in the fifth place",
     {.type = 2, .x1 = 1, .xc = 0.50001F},
     {.type = 2, .x1 = 1, .xc = 0.50003F},
     true},
    {"centres apart in the fourth place",
     {.type = 2, .x1 = 1, .yc = 0.5F},
     {.type = 2, .x1 = 1, .yc = 0.5001F},
     false},
    {"a circle has a centre", {.type = 5, .x1 = 1, .xc = 2}, {.type = 5, .x1 = 1}, false},
};

TEST(FindSegment, ComparesTypeEndsAndCenter) {
  for (const FindCase& row : kFinds) {
    LoggedDrawing d;
    AddSeg(d.store, row.row, nullptr);
    EXPECT_EQ(findSegment(d.store, recordOf(row.record)), row.found ? 1 : -1) << row.name;
  }
}

TEST(FindSegment, TakesTheHighestIndexOfIdenticalArcs) {
  LoggedDrawing d;
  const SegmentRow arc{.type = 2, .x0 = 1, .y1 = 1};
  for (int n = 0; n < 2; ++n) AddSeg(d.store, arc, nullptr);
  AddSeg(d.store, {.type = 1, .x0 = 1, .y1 = 1}, nullptr);
  EXPECT_EQ(findSegment(d.store, recordOf(arc)), 2);
}

TEST(FindPathSegment, WalksDownFromARow) {
  LoggedDrawing d;
  for (const float z : {0.0F, -1.0F, -2.0F}) addPathSegment(d.store, pathLine(0, 1, z));
  clsSegment record;
  record.SetPathSegment(pathLine(0, 1), "A", true);
  EXPECT_EQ(findPathSegment(d.store, record, 3), 3);
  EXPECT_EQ(findPathSegment(d.store, record, 2), 2);
  EXPECT_EQ(findPathSegment(d.store, record, 9), 3);
  EXPECT_EQ(findPathSegment(d.store, record, 0), -1);
  record.TypeOfSegment = 2;
  EXPECT_EQ(findPathSegment(d.store, record, 3), -1);
}

// ---- Steps

TEST(UndoStep, OfOneAddedRowRemovesTheMatchFromTheEnd) {
  LoggedDrawing d;
  d.addLine(0, 0, 1, 0);
  d.addLine(0, 1, 1, 1);
  d.addLine(0, 0, 1, 0);
  d.undo();
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 0)", "1 (0, 1)-(1, 1)"}));
}

TEST(UndoStep, OfIdenticalArcsTakesTheHigherIndexFirst) {
  LoggedDrawing d;
  const SegmentRow arc{.type = 2, .attr = 8, .x0 = 1, .y1 = 1};
  d.add(arc);
  d.addLine(5, 5, 6, 6);
  d.add(arc);
  d.store.segattr[1] = 10;
  d.undo();
  EXPECT_EQ(d.store.segattr[1], 10);
  EXPECT_EQ(d.store.NumSegments, 2);
}

TEST(UndoStep, ClosesWithTheRecordThatStartsIt) {
  LoggedDrawing d;
  d.addLine(9, 9, 8, 8);
  d.addLine(0, 0, 2, 0);
  d.addLine(2, 0, 2, 1, false);
  d.addLine(2, 1, 0, 1, false);
  d.addLine(0, 1, 0, 0, false);
  d.undo();
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (9, 9)-(8, 8)"});
  EXPECT_EQ(d.log.changecount, 1);
  d.redo();
  EXPECT_EQ(d.store.NumSegments, 5);
  EXPECT_EQ(d.log.changecount, 5);
}

TEST(UndoStep, OfATrimRemovesTheNewFormAndBringsTheOldOneBackAtTheEnd) {
  LoggedDrawing d;
  d.addLine(0, 0, 4, 0);
  d.addLine(2, -1, 2, 1);
  d.change(1, {.type = 1, .x1 = 2});
  d.undo();
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (2, -1)-(2, 1)", "1 (0, 0)-(4, 0)"}));
  d.redo();
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (2, -1)-(2, 1)", "1 (0, 0)-(2, 0)"}));
}

TEST(UndoStep, BringsADeletedRowBackAtTheEndWithItsAttribute) {
  LoggedDrawing d;
  d.add({.type = 1, .attr = 30008, .x1 = 1});
  d.addLine(0, 1, 1, 1);
  d.remove(1);
  d.undo();
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 1)-(1, 1)", "1 (0, 0)-(1, 0) @30008"}));
  EXPECT_FALSE(d.store.drawingsaved);
}

TEST(UndoStep, PassesOverARecordWhoseRowIsNotFound) {
  LoggedDrawing d;
  d.addLine(0, 0, 1, 0);
  d.addLine(0, 1, 1, 1, false);
  d.place(pathLine(0, 1), false);
  d.store.x1[2] = 7;
  d.store.psx1[1] = 7;
  d.undo();
  EXPECT_EQ(segmentTexts(d.store), Texts{"1 (0, 1)-(7, 1)"});
  EXPECT_EQ(d.store.NumPathSegments, 1);
  EXPECT_EQ(d.log.changecount, 0);
}

TEST(UndoStep, ComparesAnArcsCenterAtFourPlaces) {
  LoggedDrawing d;
  d.add({.type = 2, .x0 = 1, .y1 = 1, .xc = 0.00001F});
  d.store.centerx[1] = 0.00003F;
  d.undo();
  EXPECT_EQ(d.store.NumSegments, 0);
}

TEST(UndoStep, FindsAnArcWhoseCenterASaveHasRounded) {
  LoggedDrawing d;
  d.add({.type = 2, .x0 = 1, .y1 = 1, .xc = 0.000147F, .yc = -0.000153F});
  roundall(d.store);
  EXPECT_NE(roundTo(d.store.centerx[1], 4), roundTo(0.000147F, 4));
  d.undo();
  EXPECT_EQ(d.store.NumSegments, 0);
}

TEST(UndoStep, WithNothingToUndoDoesNothing) {
  LoggedDrawing d;
  AddSeg(d.store, {.type = 1, .x1 = 1}, nullptr);
  d.undo();
  d.redo();
  EXPECT_EQ(d.store.NumSegments, 1);
}

TEST(UndoStep, AnEditAfterTwoUndosDiscardsTheRedoBranch) {
  LoggedDrawing d;
  for (int n = 1; n <= 3; ++n) d.addLine(0, 0, real(n), 0);
  d.undo();
  d.undo();
  EXPECT_EQ(d.log.changetop, 3);
  d.addLine(0, 0, 9, 0);
  EXPECT_EQ(d.log.changecount, 2);
  EXPECT_EQ(d.log.changetop, 2);
  d.redo();
  EXPECT_EQ(segmentTexts(d.store), (Texts{"1 (0, 0)-(1, 0)", "1 (0, 0)-(9, 0)"}));
}

TEST(UndoStep, GivesPathRowsBackAtTheirPlaceWithTheirCode) {
  LoggedDrawing d;
  d.store.currentpathgroup = 7;
  for (const float x : {0.0F, 1.0F, 2.0F}) d.place(pathLine(x, x + 1, -x, 1203));
  const Texts before = pathTexts(d.store);
  d.removePath(2);
  d.undo();
  EXPECT_EQ(pathTexts(d.store), before);
  EXPECT_EQ(d.store.lastplacedgroup, 12);
  d.redo();
  EXPECT_EQ(pathTexts(d.store), (Texts{before[0], before[2]}));
}

TEST(UndoStep, TellsPassesApartThatDifferOnlyInDepth) {
  LoggedDrawing d;
  for (const float z : {-1.0F, -2.0F, -3.0F}) d.place(pathLine(0, 1, z));
  const Texts before = pathTexts(d.store);
  d.removePath(1);
  EXPECT_EQ(d.store.psz[1], -2);
  d.undo();
  EXPECT_EQ(pathTexts(d.store), before);
  d.insertPath(1, pathLine(0, 1, -9));
  d.undo();
  EXPECT_EQ(pathTexts(d.store), before);
}

// ---- Long steps

// The row that a record is of: the last one that is equal, and only then the last within the
// tolerance.
int plainSearch(const DrawingStore& store, const clsSegment& record) {
  for (int sg = store.NumSegments; sg >= 1; --sg) {
    clsSegment of;
    of.SetSegment(segmentRow(store, sg), "D", /*start=*/false);
    const bool equal = of.x0 == record.x0 && of.y0 == record.y0 && of.x1 == record.x1 &&
                       of.y1 == record.y1 && of.CenterX == record.CenterX &&
                       of.CenterY == record.CenterY && of.SegAttr == record.SegAttr;
    if (equal && of.SegType == record.SegType) return sg;
  }
  return findSegment(store, record);
}

// The walk as it is told: one pass over the table for each record.
void plainUndo(ChangeLog& log, DrawingStore& store) {
  while (log.canUndo()) {
    const clsSegment record = log.popRecord();
    if (record.added()) {
      deleteSegment(store, plainSearch(store, record));
    } else {
      AddSeg(store,
             {.type = record.SegType,
              .attr = record.SegAttr,
              .x0 = record.x0,
              .y0 = record.y0,
              .x1 = record.x1,
              .y1 = record.y1,
              .xc = record.CenterX,
              .yc = record.CenterY},
             nullptr);
    }
    if (record.StartOfSegment) return;
  }
}

TEST(LongSteps, GiveTheRowsOfAPlainPassInTheirOrder) {
  testing::Dice dice(7);
  for (int round = 0; round < 200; ++round) {
    LoggedDrawing d;
    const auto coordinate = [&dice] { return static_cast<float>(dice.below(4)); };
    const auto anyRow = [&] {
      return SegmentRow{.type = 1 + dice.below(3),
                        .attr = 8 + dice.below(3),
                        .x0 = coordinate(),
                        .y0 = coordinate(),
                        .x1 = coordinate(),
                        .y1 = coordinate()};
    };
    for (int n = 0; n < 30; ++n) AddSeg(d.store, anyRow(), nullptr);
    bool start = true;
    for (int n = 0; n < 60; ++n) {
      const int sg = d.store.NumSegments == 0 ? 0 : 1 + dice.below(d.store.NumSegments);
      const int what = dice.below(3);
      if (sg == 0 || what == 0) {
        d.add(anyRow(), start);
      } else if (what == 1) {
        d.remove(sg, start);
      } else {
        d.change(sg, anyRow(), start);
      }
      start = dice.below(25) == 0;
    }
    LoggedDrawing plain = d;
    while (d.log.canUndo()) {
      d.undo();
      plainUndo(plain.log, plain.store);
      ASSERT_EQ(segmentTexts(d.store), segmentTexts(plain.store)) << round;
    }
  }
}

struct LongCase {
  const char* name;
  std::function<void(LoggedDrawing&, int rows)> edit;
};

const LongCase kLongSteps[] = {
    {"add",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) d.addLine(real(n), 0, real(n), 1, n == 0);
     }},
    {"remove from the front",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) AddSeg(d.store, {.type = 1, .x0 = real(n)}, nullptr);
       for (int n = 0; n < rows; ++n) d.remove(1, n == 0);
     }},
    {"remove from the back",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) AddSeg(d.store, {.type = 1, .x0 = real(n)}, nullptr);
       for (int n = rows; n >= 1; --n) d.remove(n, n == rows);
     }},
    {"move",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) AddSeg(d.store, {.type = 1, .x0 = real(n)}, nullptr);
       for (int n = 1; n <= rows; ++n) {
         SegmentRow row = segmentRow(d.store, n);
         row.y0 += 5;
         d.change(n, row, n == 1);
       }
     }},
    {"place",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) d.place(pathLine(real(n), 0), n == 0);
     }},
    {"insert in the middle",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) addPathSegment(d.store, pathLine(real(n), 0));
       for (int n = 0; n < rows; ++n) d.insertPath(rows / 2 + n, pathLine(0, real(n)), n == 0);
     }},
    {"remove paths from the front",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) addPathSegment(d.store, pathLine(real(n), 0));
       for (int n = 0; n < rows; ++n) d.removePath(1, n == 0);
     }},
    {"move paths",
     [](LoggedDrawing& d, int rows) {
       for (int n = 0; n < rows; ++n) addPathSegment(d.store, pathLine(real(n), 0));
       for (int n = 1; n <= rows; ++n) {
         PathRow row = pathRow(d.store, n);
         row.y0 += 5;
         d.changePath(n, row, n == 1);
       }
     }},
};

Texts sorted(Texts texts) {
  std::sort(texts.begin(), texts.end());
  return texts;
}

TEST(LongSteps, GoBackAndForth) {
  for (const LongCase& row : kLongSteps) {
    SCOPED_TRACE(row.name);
    LoggedDrawing d;
    row.edit(d, 400);
    const Texts drawn = sorted(segmentTexts(d.store));
    const Texts placed = pathTexts(d.store);
    for (int round = 0; round < 3; ++round) {
      d.undo();
      EXPECT_EQ(d.log.changecount, 0);
      d.redo();
      EXPECT_EQ(sorted(segmentTexts(d.store)), drawn);
      EXPECT_EQ(pathTexts(d.store), placed);
    }
  }
}

TEST(LongSteps, OfAFullTableFitIntoIt) {
  LoggedDrawing d;
  ensureSegmentCapacity(d.store, 32767);
  for (int n = 0; n < 32767; ++n) AddSeg(d.store, {.type = 1, .x0 = real(n)}, nullptr);
  for (int n = 1; n <= 16000; ++n) {
    SegmentRow row = segmentRow(d.store, n);
    row.y0 += 5;
    d.change(n, row, n == 1);
  }
  d.undo();
  EXPECT_EQ(d.store.NumSegments, 32767);
  EXPECT_EQ(d.store.x0[1], 16000);
  EXPECT_EQ(segmentRow(d.store, 32767).x0, 0);
  EXPECT_EQ(std::count_if(d.store.y0.rows().begin(), d.store.y0.rows().end(),
                          [](float y) { return y == 5; }),
            0);
}

// ---- Properties

// One edit drawn at random, by what there is.
void randomEdit(LoggedDrawing& d) {
  const auto coordinate = [] { return static_cast<float>(*rc::gen::inRange(-3, 4)); };
  const auto anyRow = [&] {
    return SegmentRow{.type = *rc::gen::element(1, 2, 3, 5, 6),
                      .attr = *rc::gen::element(8, 30008, 10),
                      .x0 = coordinate(),
                      .y0 = coordinate(),
                      .x1 = coordinate(),
                      .y1 = coordinate()};
  };
  const auto anyPath = [&] {
    PathRow row = pathLine(coordinate(), coordinate(), coordinate(), *rc::gen::inRange(100, 500));
    row.type = *rc::gen::element(0, 1, 2, 3, 81);
    return row;
  };
  const int steps = *rc::gen::inRange(1, 5);
  for (int n = 0; n < steps; ++n) {
    const bool start = n == 0;
    const int sg = d.store.NumSegments;
    const int ps = d.store.NumPathSegments;
    switch (*rc::gen::inRange(0, 7)) {
      case 0:
        if (sg > 0) {
          d.remove(*rc::gen::inRange(1, sg + 1), start);
          break;
        }
        [[fallthrough]];
      case 1:
        if (sg > 0) {
          d.change(*rc::gen::inRange(1, sg + 1), anyRow(), start);
          break;
        }
        [[fallthrough]];
      case 2:
        d.add(anyRow(), start);
        break;
      case 3:
        if (ps > 0) {
          d.removePath(*rc::gen::inRange(1, ps + 1), start);
          break;
        }
        [[fallthrough]];
      case 4:
        if (ps > 0) {
          d.changePath(*rc::gen::inRange(1, ps + 1), anyPath(), start);
          break;
        }
        [[fallthrough]];
      case 5:
        d.place(anyPath(), start);
        break;
      default:
        d.insertPath(*rc::gen::inRange(1, ps + 2), anyPath(), start);
        break;
    }
  }
}

// What a drawing must be after the same steps, whichever way they were reached.
struct Snapshot {
  Texts drawn, placed;
  explicit Snapshot(const DrawingStore& store)
      : drawn(sorted(segmentTexts(store))), placed(pathTexts(store)) {}
  friend bool operator==(const Snapshot&, const Snapshot&) = default;
};

RC_GTEST_PROP(ChangeLogProperties, UndoingAllThenRedoingAllGivesTheSameRows, ()) {
  LoggedDrawing d;
  std::vector<Snapshot> after{Snapshot(d.store)};
  const int steps = *rc::gen::inRange(1, 12);
  for (int n = 0; n < steps; ++n) {
    randomEdit(d);
    after.emplace_back(d.store);
  }
  for (int round = 0; round < 2; ++round) {
    for (int n = steps - 1; n >= 0; --n) {
      d.undo();
      RC_ASSERT(Snapshot(d.store) == after[static_cast<std::size_t>(n)]);
    }
    RC_ASSERT(!d.log.canUndo());
    for (int n = 1; n <= steps; ++n) {
      d.redo();
      RC_ASSERT(Snapshot(d.store) == after[static_cast<std::size_t>(n)]);
    }
    RC_ASSERT(!d.log.canRedo());
  }
}

RC_GTEST_PROP(ChangeLogProperties, CommandsUndoAndRedoInAnyOrderKeepTheSteps, ()) {
  LoggedDrawing d;
  std::vector<Snapshot> steps{Snapshot(d.store)};
  std::size_t at = 0;
  const int moves = *rc::gen::inRange(1, 40);
  for (int n = 0; n < moves; ++n) {
    const int what = *rc::gen::inRange(0, 3);
    if (what == 0) {
      randomEdit(d);
      steps.resize(++at, Snapshot(d.store));
      steps.emplace_back(d.store);
    } else if (what == 1) {
      d.undo();
      if (at > 0) --at;
    } else {
      d.redo();
      if (at + 1 < steps.size()) ++at;
    }
    RC_ASSERT(Snapshot(d.store) == steps[at]);
    RC_ASSERT(isConsistent(d.store));
  }
}

}  // namespace
}  // namespace tess
