// Changes of the drawing: what they do to the tables, to the log and to the context, and that
// nothing is left of one that was not kept.
#include "drafting/change.h"

#include <array>
#include <cmath>
#include <functional>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/selection.h"
#include "drafting/undo.h"
#include "tests/geometry/scenes.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/failure_of.h"
#include "tests/support/mirrored_tables.h"

namespace tess {
namespace {

using testing::Dice;
using testing::MirroredTables;
using testing::numberOfFailure;
using testing::pathTexts;
using testing::RecordedDrafting;
using testing::sameTables;
using testing::segmentTexts;
using Texts = std::vector<std::string>;

constexpr float real(int value) {
  return static_cast<float>(value);
}

SegmentRow line(float x, int attr = kOrdinaryClass) {
  return {.type = kLine, .attr = attr, .x0 = x, .x1 = x + 1};
}
PathRow path(float x, int code = 100) {
  return {.type = kLine, .x0 = x, .x1 = x + 1, .code = code};
}

// Records as "A* 1 D 2", with their places; a path row's kind is in lower case.
std::string logged(const ChangeLog& log) {
  std::string text;
  for (int at = 0; at < log.changecount; ++at) {
    const clsSegment& record = log.record(at);
    const std::string kinds = record.isPath() ? "ad" : "AD";
    text += (text.empty() ? "" : " ") + kinds.substr(record.added() ? 0 : 1, 1) +
            (record.StartOfSegment ? "*" : "") + " " + std::to_string(record.row);
  }
  return text;
}

// A context with three drawing rows at 1, 2, 3 and three path rows at 1, 2, 3, and a journal.
struct Changing : ::testing::Test, RecordedDrafting {
  Changing() {
    for (const float x : {1.0F, 2.0F, 3.0F}) {
      add(line(x));
      addPathSegment(store, path(x));
    }
    store.drawingsaved = true;
    journal.emplace(context.changes);
    log.take();
  }
  ~Changing() override { EXPECT_TRUE(journal->isExact()); }

  std::vector<float> drawn() const {
    std::vector<float> xs;
    for (int sg = 1; sg <= store.NumSegments; ++sg) xs.push_back(store.x0[sg]);
    return xs;
  }
  std::vector<float> placed() const {
    std::vector<float> xs;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) xs.push_back(store.psx0[ps]);
    return xs;
  }
  std::string records() const { return logged(context.changelog); }

  std::optional<MirroredTables> journal;
};
using Xs = std::vector<float>;

// ---- Edits

TEST_F(Changing, AppendedRowsAreOneStep) {
  Change change(context.changes);
  EXPECT_EQ(change.segments.append(line(4)), 4);
  EXPECT_EQ(change.segments.append(line(5)), 5);
  EXPECT_EQ(change.paths.append(path(4, 1260)), 4);
  EXPECT_TRUE(change.keep());
  EXPECT_EQ(drawn(), (Xs{1, 2, 3, 4, 5}));
  EXPECT_EQ(placed(), (Xs{1, 2, 3, 4}));
  EXPECT_EQ(records(), "A* 4 A 5 a 4");
  EXPECT_EQ(store.lastplacedgroup, 13);
  EXPECT_FALSE(store.drawingsaved);
}

struct DrawnNumbers : SegmentDrawing {
  void DrawSegment(int sg) override { numbers.push_back(sg); }
  std::vector<int> numbers;
};

TEST_F(Changing, ARowIsDrawnWhenATargetIsGiven) {
  DrawnNumbers target;
  Change change(context.changes);
  change.segments.append(line(4), target);
  EXPECT_EQ(target.numbers, std::vector<int>{4});
  change.keep({.redraws = false});
  EXPECT_EQ(log.count("Cls"), 0);
}

TEST_F(Changing, AReplacedRowIsLoggedAsItWasAndAsItIs) {
  Change change(context.changes);
  change.segments.replace(2, line(7));
  change.paths.replace(3, path(8));
  change.keep();
  EXPECT_EQ(drawn(), (Xs{1, 7, 3}));
  EXPECT_EQ(placed(), (Xs{1, 2, 8}));
  EXPECT_EQ(records(), "D* 2 A 2 d 3 a 3");
  EXPECT_EQ(context.changelog.record(0).x0, 2);
  EXPECT_EQ(context.changelog.record(1).x0, 7);
}

TEST_F(Changing, ErasedDrawingRowsAreLoggedFromTheFrontAndPathRowsFromTheEnd) {
  Change change(context.changes);
  EXPECT_EQ(change.segments.eraseWhere([](int sg) { return sg != 2; }), 2);
  EXPECT_EQ(change.paths.eraseWhere([](int ps) { return ps != 2; }), 2);
  change.keep({.undoMark = kRowsDeleted});
  EXPECT_EQ(drawn(), Xs{2});
  EXPECT_EQ(placed(), Xs{2});
  EXPECT_EQ(records(), "D* 1 D 3 d 3 d 1");
  EXPECT_EQ(context.changelog.UndoMark, -1);
  Undo_Last_Change(context);
  EXPECT_EQ(drawn(), (Xs{2, 3, 1}));
  EXPECT_EQ(placed(), (Xs{1, 2, 3}));
}

TEST_F(Changing, ARangeGoesAtOneGo) {
  Change change(context.changes);
  change.segments.erase(1, 2);
  change.paths.erase(2, 3, Entry::Unlogged);
  change.segments.erase(2, 1);
  change.keep();
  EXPECT_EQ(drawn(), Xs{3});
  EXPECT_EQ(placed(), Xs{1});
  EXPECT_EQ(records(), "D* 1 D 2");
}

TEST_F(Changing, InsertedPathRowsAreShownAndTheirGroupIsTheCurrentOne) {
  store.currentpathgroup = 7;
  PathRow hidden = path(9, 345);
  hidden.visible = false;
  Change change(context.changes);
  change.paths.insert(2, hidden);
  const RowInsertion<PathRow> more[] = {{1, path(10)}, {3, path(11)}, {3, path(12)}, {5, path(13)}};
  change.paths.insert(more);
  change.keep();
  EXPECT_EQ(placed(), (Xs{10, 1, 9, 11, 12, 2, 3, 13}));
  EXPECT_EQ(store.pscode[3], 345);
  EXPECT_TRUE(store.psvisible[3]);
  EXPECT_EQ(store.lastplacedgroup, 7);
  EXPECT_EQ(records(), "a* 2 a 1 a 4 a 5 a 8");
  Undo_Last_Change(context);
  EXPECT_EQ(placed(), (Xs{1, 2, 3}));
}

TEST_F(Changing, DrawingRowsComeInBetweenToo) {
  Change change(context.changes);
  change.segments.insert(2, line(9), Entry::Unlogged);
  change.keep();
  EXPECT_EQ(drawn(), (Xs{1, 9, 2, 3}));
  EXPECT_EQ(records(), "");
}

TEST_F(Changing, RowsThatAWalkChangesAreReplacedInTheirPlaces) {
  Change change(context.changes);
  const auto moveOdd = [](int number, auto& row) {
    row.x0 += 10;
    return number % 2 == 1;
  };
  EXPECT_EQ(change.segments.replaceWhere(moveOdd), 2);
  change.startStep();
  EXPECT_EQ(change.paths.replaceWhere(moveOdd), 2);
  change.keep();
  EXPECT_EQ(drawn(), (Xs{11, 2, 13}));
  EXPECT_EQ(placed(), (Xs{11, 2, 13}));
  EXPECT_EQ(records(), "D* 1 A 1 D 3 A 3 d* 1 a 1 d 3 a 3");
  Undo_Last_Change(context);
  EXPECT_EQ(placed(), (Xs{1, 2, 3}));
  EXPECT_EQ(drawn(), (Xs{11, 2, 13}));
}

TEST_F(Changing, RowsCanComeToTheEndInAnotherForm) {
  Change change(context.changes);
  const std::array<std::int16_t, 2> numbers{1, 3};
  const auto moved = [&](auto& rows) {
    std::vector now{rows.row(1), rows.row(3)};
    for (auto& row : now) row.x0 += 10;
    rows.replaceAtEnd(numbers, now);
  };
  moved(change.segments);
  moved(change.paths);
  change.keep();
  EXPECT_EQ(drawn(), (Xs{2, 11, 13}));
  EXPECT_EQ(placed(), (Xs{2, 11, 13}));
  EXPECT_EQ(records(), "D* 1 A 3 D 2 A 3 d 1 a 3 d 2 a 3");
  Undo_Last_Change(context);
  EXPECT_EQ(placed(), (Xs{1, 2, 3}));
  RedoLastChange(context);
  EXPECT_EQ(placed(), (Xs{2, 11, 13}));
}

TEST_F(Changing, MarksAndRoundingAreNoChangeOfTheDrawing) {
  store.x0[1] = 1.0000049F;
  journal->rewritten();
  context.changelog.UndoMark = 0;
  Change change(context.changes);
  change.segments.mark(2, kSelectedRow);
  change.paths.mark(1, 30100);
  change.paths.show(2, false);
  change.roundall();
  change.keep();
  EXPECT_EQ(store.segattr[2], 30008);
  EXPECT_EQ(store.pscode[1], 30100);
  EXPECT_FALSE(store.psvisible[2]);
  EXPECT_EQ(store.x0[1], 1);
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_EQ(records(), "");
  EXPECT_EQ(context.changelog.UndoMark, 0);
  EXPECT_EQ(log.count("Cls"), 0);
  EXPECT_EQ(journal->changesHeard, 1);
  EXPECT_FALSE(journal->lastUnsaved);
}

TEST_F(Changing, RoundingGivesWhatASaveGives) {
  Dice dice(5);
  for (int n = 0; n < 200; ++n) {
    add({.type = kClockwiseArc,
         .x0 = narrow(dice.unit()),
         .y0 = -narrow(dice.unit() / 1e5),
         .x1 = -0.0F,
         .y1 = narrow(1e6 * dice.unit()),
         .xc = narrow(dice.unit() / 1e3),
         .yc = real(n) + 0.000005F});
  }
  journal->rewritten();
  DrawingStore saved = store;
  roundall(saved);
  Change change(context.changes);
  change.roundall();
  change.keep();
  EXPECT_TRUE(sameTables(store, saved));
  EXPECT_EQ(std::signbit(store.x1[4]), std::signbit(saved.x1[4]));
}

TEST_F(Changing, RowsLoggedLaterStandAsTheyAreThen) {
  Change change(context.changes);
  change.paths.insert(2, path(9), Entry::Unlogged);
  change.paths.replace(2, path(8), Entry::Unlogged);
  change.paths.logAdded(2, 2);
  change.keep();
  EXPECT_EQ(records(), "a* 2");
  EXPECT_EQ(context.changelog.record(0).x0, 8);
}

TEST_F(Changing, TheCounterCanBeSetByHand) {
  Change change(context.changes);
  change.segments.resize(40);
  change.paths.resize(1);
  EXPECT_EQ(numberOfFailure([&] { change.paths.resize(-1); }), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { change.paths.resize(32768); }), FailureNumber::Overflow);
  change.keep();
  EXPECT_EQ(store.NumSegments, 40);
  EXPECT_EQ(store.segtype[40], 0);
  EXPECT_EQ(placed(), Xs{1});
  EXPECT_TRUE(store.drawingsaved);
}

TEST_F(Changing, ALineComesWithItsCoordinatesYBeforeX) {
  Change change(context.changes);
  EXPECT_EQ(change.segments.appendLine(kLine, kOrdinaryClass, 1, 2, 3, 4), 4);
  change.keep();
  EXPECT_EQ(segmentTexts(store).back(), "1 (2, 1)-(4, 3)");
  EXPECT_EQ(records(), "A* 4");
}

TEST_F(Changing, AnUnmarkedPathRowLeavesTheDrawingUnsavedAllTheSame) {
  {
    Change change(context.changes);
    change.paths.append(path(4), Entry::Unmarked);
    EXPECT_FALSE(store.drawingsaved);
  }
  EXPECT_TRUE(store.drawingsaved);
}

struct RefusedEdit {
  const char* name;
  std::function<void(Change&)> edit;
  FailureNumber failure;
};

const RefusedEdit kRefusedEdits[] = {
    {"replace row 0", [](Change& c) { c.segments.replace(0, line(9)); },
     FailureNumber::SubscriptOutOfRange},
    {"replace behind the last row", [](Change& c) { c.paths.replace(5, path(9)); },
     FailureNumber::SubscriptOutOfRange},
    {"mark behind the last row", [](Change& c) { c.segments.mark(5, 30008); },
     FailureNumber::SubscriptOutOfRange},
    {"erase row 0", [](Change& c) { c.paths.erase(0); }, FailureNumber::SubscriptOutOfRange},
    {"erase beyond the last row", [](Change& c) { c.segments.erase(2, 5); },
     FailureNumber::SubscriptOutOfRange},
    {"erase a row twice",
     [](Change& c) {
       const std::int16_t numbers[] = {1, 1};
       c.segments.erase(numbers);
     },
     FailureNumber::SubscriptOutOfRange},
    {"insert at 0", [](Change& c) { c.paths.insert(0, path(9)); },
     FailureNumber::SubscriptOutOfRange},
    {"insert behind the end", [](Change& c) { c.paths.insert(5, path(9)); },
     FailureNumber::SubscriptOutOfRange},
    {"a type that the log cannot hold", [](Change& c) { c.segments.append({.type = 70000}); },
     FailureNumber::Overflow},
    {"an attribute that the table cannot hold",
     [](Change& c) { c.segments.replace(1, line(9, 70000)); }, FailureNumber::Overflow},
    {"a code that the table cannot hold",
     [](Change& c) { c.paths.insert(1, path(9, 70000), Entry::Unlogged); },
     FailureNumber::Overflow},
};

TEST_F(Changing, ARefusedEditHasDoneNothingAndTheChangeGoesOn) {
  for (const RefusedEdit& refused : kRefusedEdits) {
    SCOPED_TRACE(refused.name);
    const DrawingStore before = store;
    Change change(context.changes);
    change.segments.append(line(4));
    EXPECT_EQ(numberOfFailure([&] { refused.edit(change); }), refused.failure);
    change.segments.erase(4, Entry::Unlogged);
    EXPECT_TRUE(change.keep());
    EXPECT_TRUE(sameTables(store, before));
    EXPECT_EQ(records(), "A* 4");
    resetUndoState(context);
  }
}

TEST_F(Changing, AFullTableTakesNoneOfManyRows) {
  {
    Change filling(context.changes);
    filling.paths.resize(32766);
    filling.segments.resize(32767);
    filling.keep();
  }
  Change change(context.changes);
  const std::vector<RowInsertion<PathRow>> two(2, {1, path(9)});
  EXPECT_EQ(numberOfFailure([&] { change.paths.insert(two); }), FailureNumber::Overflow);
  EXPECT_EQ(numberOfFailure([&] { change.segments.append(line(9)); }), FailureNumber::Overflow);
  EXPECT_EQ(store.NumPathSegments, 32766);
  EXPECT_EQ(store.psx0[1], 1);
  change.keep();
  EXPECT_EQ(records(), "");
}

// ---- What is left of a change that is not kept

// Everything that a change touches, and the edits that touch it.
void changeEverything(RecordedDrafting& d, Change& change) {
  d.store.currentpathgroup = 9;
  change.segments.append(line(4));
  change.segments.replace(1, line(5));
  change.segments.erase(2);
  change.segments.insert(1, line(6), Entry::Unlogged);
  change.segments.mark(2, kVerifiedRow);
  change.paths.insert(1, path(4));
  change.paths.append(path(5, 900));
  change.paths.erase(2, 3);
  change.paths.show(1, false);
  change.pathGroupNames()[1] = "renamed";
  change.marksUnsaved();
}

struct Everything {
  explicit Everything(RecordedDrafting& d)
      : store(d.store), records(logged(d.context.changelog)), top(d.context.changelog.changetop) {}

  void expectSame(RecordedDrafting& d) const {
    EXPECT_TRUE(sameTables(d.store, store));
    EXPECT_EQ(logged(d.context.changelog), records);
    EXPECT_EQ(d.context.changelog.changetop, top);
    EXPECT_EQ(d.store.currentpathgroup, store.currentpathgroup);
    EXPECT_EQ(d.store.lastplacedgroup, store.lastplacedgroup);
    EXPECT_EQ(d.store.drawingsaved, store.drawingsaved);
    EXPECT_EQ(d.store.pathgroupname[1], store.pathgroupname[1]);
    EXPECT_TRUE(isConsistent(d.store));
  }

  DrawingStore store;
  std::string records;
  int top;
};

TEST_F(Changing, LeftByAFailureItPutsEverythingBack) {
  {
    Change earlier(context.changes);
    earlier.segments.append(line(8));
    earlier.keep();
  }
  Undo_Last_Change(context);
  store.drawingsaved = true;
  store.pathgroupname[1] = "first";
  const Everything before(*this);
  EXPECT_THROW(
      {
        Change change(context.changes);
        changeEverything(*this, change);
        throw overflow();
      },
      RuntimeFailure);
  before.expectSame(*this);
  EXPECT_TRUE(context.changelog.canRedo());
  EXPECT_EQ(journal->changesHeard, 2);
}

TEST_F(Changing, TakenBackItsRowsLeaveTheScreenWithTheNextTicks) {
  mnuDrawSelectAll_Click(context);
  log.take();
  {
    Change change(context.changes);
    change.segments.erase(1);
    change.segments.append(line(9, kSelectedRow));
    context.state.Selected.add(7);
  }
  EXPECT_EQ(context.state.Selected.rows(), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(log.count("Cls"), 0);
  pass(1000);
  EXPECT_EQ(log.count("Cls"), 1);
}

TEST_F(Changing, WithoutAnEditNothingHappens) {
  { const Change change(context.changes); }
  Change change(context.changes);
  change.keep();
  EXPECT_TRUE(store.drawingsaved);
  EXPECT_EQ(log.count("Cls"), 0);
  EXPECT_EQ(journal->changesHeard, 0);
}

TEST_F(Changing, ASaveInTheMiddleDoesNotCountForTheRowsBeforeIt) {
  {
    Change change(context.changes);
    change.segments.append(line(4));
    store.drawingsaved = true;  // a script saves when it is asked something
  }
  EXPECT_FALSE(store.drawingsaved);
}

// ---- A change within another

TEST_F(Changing, ChangesWithinAreOneWithIt) {
  {
    Change command(context.changes);
    command.segments.append(line(4));
    {
      Change routine(context.changes, Step::Continued);
      routine.segments.append(line(5));
      EXPECT_TRUE(routine.keep());
    }
    EXPECT_EQ(records(), "");
    {
      Change routine(context.changes);
      routine.segments.append(line(6));
      routine.keep();
    }
    command.segments.append(line(7));
    command.keep({.undoMark = kRectangleAdded});
  }
  EXPECT_EQ(records(), "A* 4 A 5 A* 6 A 7");
  EXPECT_EQ(journal->changesHeard, 1);
  EXPECT_EQ(log.count("Cls"), 1);
  EXPECT_EQ(context.changelog.UndoMark, 4);
}

TEST_F(Changing, AChangeWithinThatFailsAloneIsTakenBackAlone) {
  Change command(context.changes);
  command.segments.append(line(4));
  command.paths.append(path(4, 400));
  const Everything before(*this);
  {
    Change routine(context.changes);
    changeEverything(*this, routine);
  }
  before.expectSame(*this);
  command.segments.append(line(5));
  command.keep();
  EXPECT_EQ(drawn(), (Xs{1, 2, 3, 4, 5}));
  EXPECT_EQ(records(), "A* 4 a 4 A 5");
}

TEST_F(Changing, WhatWasKeptWithinIsTakenBackWithTheChangeAroundIt) {
  const Everything before(*this);
  {
    Change command(context.changes);
    Change routine(context.changes);
    changeEverything(*this, routine);
    routine.keep();
  }
  before.expectSame(*this);
}

TEST_F(Changing, AChangeWithinThatLogsNothingSplitsNoStep) {
  Change command(context.changes);
  command.segments.append(line(4));
  {
    Change routine(context.changes);
    routine.segments.mark(1, kSelectedRow);
    routine.keep();
  }
  command.segments.append(line(5));
  command.keep();
  EXPECT_EQ(records(), "A* 4 A 5");
}

TEST_F(Changing, AContinuedChangeGoesOnWithTheLastStep) {
  {
    Change first(context.changes);
    first.segments.append(line(4));
    first.keep();
  }
  Change more(context.changes, Step::Continued);
  more.segments.append(line(5));
  more.keep();
  EXPECT_EQ(records(), "A* 4 A 5");
}

TEST_F(Changing, UndoWithinAChangeIsTakenBackWithIt) {
  {
    Change first(context.changes);
    first.segments.append(line(4));
    first.keep();
  }
  const Everything before(*this);
  {
    Change command(context.changes);
    command.segments.append(line(5));
    Undo_Last_Change(context);
    EXPECT_EQ(drawn(), (Xs{1, 2, 3, 5}));
  }
  before.expectSame(*this);
}

// ---- The difference of the path rows

TEST_F(Changing, OfADifferenceOnlyWhatIsGoneOrNewIsLogged) {
  Change command(context.changes, Step::PathDifference);
  {
    Change ring(context.changes);
    ring.paths.append(path(8, 200));
    ring.paths.append(path(9, 200));
    ring.keep();
  }
  command.paths.erase(4);
  command.paths.erase(1);
  command.keep();
  EXPECT_EQ(placed(), (Xs{2, 3, 9}));
  EXPECT_EQ(records(), "d* 1 a 3");
  Undo_Last_Change(context);
  EXPECT_EQ(placed(), (Xs{1, 2, 3}));
}

TEST_F(Changing, ADifferenceOfNothingLeavesRedo) {
  {
    Change first(context.changes);
    first.paths.erase(1);
    first.keep();
  }
  Undo_Last_Change(context);
  Change command(context.changes, Step::PathDifference);
  command.paths.append(path(7));
  command.paths.erase(4);
  command.keep();
  EXPECT_EQ(records(), "");
  EXPECT_TRUE(context.changelog.canRedo());
}

// ---- Undo and the context

TEST_F(Changing, KeptItEndsTheRedoBranchAndEnablesUndo) {
  {
    Change first(context.changes);
    first.segments.append(line(4));
    first.keep();
  }
  Undo_Last_Change(context);
  EXPECT_TRUE(tools.isEnabled("miRedo"));
  log.take();
  Change second(context.changes);
  second.segments.append(line(5));
  second.keep();
  EXPECT_TRUE(tools.isEnabled("miUndo"));
  EXPECT_FALSE(tools.isEnabled("miRedo"));
  EXPECT_EQ(context.changelog.UndoMark, 1);
  EXPECT_EQ(log.count("Cls"), 1);
}

TEST_F(Changing, UnloggedItLeavesUndoAlone) {
  updateUndoTools(context);
  Change change(context.changes);
  change.segments.erase(1, Entry::Unlogged);
  change.keep();
  EXPECT_FALSE(tools.isEnabled("miUndo"));
  EXPECT_EQ(context.changelog.UndoMark, 0);
  EXPECT_FALSE(store.drawingsaved);
  EXPECT_EQ(log.count("Cls"), 1);
}

// ---- Steps that are too long

// A context with so many drawing rows that replacing all takes more records than the log has.
struct LongChange : Changing {
  LongChange() {
    Change filling(context.changes);
    while (store.NumSegments < kRows) {
      filling.segments.append(line(real(store.NumSegments)), Entry::Unmarked);
    }
    filling.keep();
    Change first(context.changes);
    first.segments.append(line(1));
    first.keep();
    log.take();
  }

  static bool move(int /*sg*/, SegmentRow& row) {
    row.y0 += 1;
    return true;
  }

  static constexpr int kRows = 16383;
};

constexpr char kTooLong[] =
    "This change takes 32768 records, and the undo log holds at most 32767.\n\nWith OK the change "
    "is made and the undo log is cleared: neither this change nor any before it can be undone.  "
    "With Cancel the drawing stays as it was.";

TEST_F(LongChange, TheOperatorIsAskedBeforeUndoIsLost) {
  test.recording.prompts.answers = {Answer::Ok};
  Change change(context.changes);
  EXPECT_EQ(change.segments.replaceWhere(move), kRows + 1);
  EXPECT_TRUE(change.keep());
  ASSERT_EQ(messages().size(), 1U);
  EXPECT_EQ(messages()[0].text, kTooLong);
  EXPECT_EQ(messages()[0].title, "Undo");
  EXPECT_EQ(messages()[0].icon, MessageIcon::Warning);
  EXPECT_EQ(messages()[0].buttons, MessageButtons::OkCancel);
  EXPECT_EQ(store.y0[1], 1);
  EXPECT_EQ(context.changelog.changecount, 0);
  EXPECT_EQ(context.changelog.changetop, 0);
  EXPECT_EQ(context.changelog.UndoMark, 0);
  EXPECT_FALSE(tools.isEnabled("miUndo"));
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(LongChange, RedoGoesWithTheLog) {
  Undo_Last_Change(context);
  ASSERT_TRUE(tools.isEnabled("miRedo"));
  test.recording.prompts.answers = {Answer::Ok};
  Change change(context.changes);
  change.segments.append(line(1));
  change.segments.replaceWhere(move);
  EXPECT_TRUE(change.keep());
  EXPECT_EQ(context.changelog.changetop, 0);
  EXPECT_FALSE(tools.isEnabled("miRedo"));
  EXPECT_FALSE(tools.isEnabled("miUndo"));
}

TEST_F(LongChange, WithCancelNothingHasHappened) {
  test.recording.prompts.answers = {Answer::Cancel};
  store.drawingsaved = true;
  const Everything before(*this);
  Change change(context.changes);
  change.segments.replaceWhere(move);
  EXPECT_FALSE(change.keep());
  before.expectSame(*this);
  EXPECT_TRUE(tools.isEnabled("miUndo"));
}

TEST_F(LongChange, AStepThatJustFitsTakesThePlaceOfAllOthersUnasked) {
  Change change(context.changes);
  change.segments.replaceWhere([](int sg, SegmentRow& row) { return sg > 1 && move(sg, row); });
  change.segments.append(line(9));
  EXPECT_TRUE(change.keep());
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(context.changelog.changecount, 32767);
  Undo_Last_Change(context);
  EXPECT_FALSE(context.changelog.canUndo());
  EXPECT_EQ(store.NumSegments, kRows + 1);
  EXPECT_EQ(store.y0[kRows + 1], 0);
  RedoLastChange(context);
  EXPECT_EQ(context.changelog.changecount, 32767);
  EXPECT_EQ(store.NumSegments, kRows + 2);
}

TEST_F(LongChange, WhatComesAfterTheLongStepCanBeUndone) {
  test.recording.prompts.answers = {Answer::Ok};
  Change change(context.changes);
  change.segments.replaceWhere(move);
  change.startStep();
  change.segments.append(line(9));
  change.keep();
  EXPECT_EQ(records(), "A* 16385");
  EXPECT_TRUE(tools.isEnabled("miUndo"));
}

TEST_F(LongChange, RecordsThatGoOnWithAStepCountWithIt) {
  {
    Change change(context.changes);
    change.segments.replaceWhere([](int sg, SegmentRow& row) { return sg > 1 && move(sg, row); });
    change.keep();
  }
  test.recording.prompts.answers = {Answer::Cancel};
  Change more(context.changes, Step::Continued);
  more.segments.append(line(9));
  more.segments.append(line(9));
  EXPECT_FALSE(more.keep());
  EXPECT_EQ(messages().size(), 1U);
  EXPECT_EQ(context.changelog.changecount, 32767);
  EXPECT_EQ(store.NumSegments, kRows + 1);
}

// ---- Another drawing in the middle

TEST_F(Changing, WhenTheDrawingIsReplacedItCanNeitherGoOnNorBeTakenBack) {
  {
    Change command(context.changes);
    Change routine(context.changes);
    routine.segments.append(line(4));
    store.NumSegments = 1;
    resetUndoState(context);
    EXPECT_EQ(numberOfFailure([&] { routine.segments.append(line(5)); }),
              FailureNumber::InvalidProcedureCall);
    EXPECT_EQ(numberOfFailure([&] { command.paths.erase(1); }),
              FailureNumber::InvalidProcedureCall);
    {
      Change other(context.changes);
      other.paths.append(path(7));
      EXPECT_TRUE(other.keep());
    }
    EXPECT_FALSE(routine.keep());
  }
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_EQ(store.NumPathSegments, 4);
  EXPECT_EQ(records(), "a* 4");
  journal->rewritten();
}

// ---- The journal

TEST_F(Changing, AJournalHearsOfNamesAndSettings) {
  {
    Change change(context.changes);
    change.pathGroupNames()[2] = "second";
    change.keep();
  }
  EXPECT_EQ(journal->changesHeard, 1);
  EXPECT_TRUE(journal->lastGroupNames);
  EXPECT_FALSE(journal->lastUnsaved);
  Change change(context.changes);
  change.marksUnsaved();
  change.keep();
  EXPECT_EQ(journal->changesHeard, 2);
  EXPECT_TRUE(journal->lastUnsaved);
  EXPECT_FALSE(store.drawingsaved);
}

TEST_F(Changing, AJournalThatBeginsInTheMiddleTakesTheTablesAnew) {
  journal.reset();
  Change change(context.changes);
  change.segments.append(line(4));
  journal.emplace(context.changes);
  change.segments.append(line(5));
  change.keep();
  EXPECT_EQ(journal->rewritings, 1);
  EXPECT_EQ(journal->changesHeard, 0);
}

struct FailingListener : ChangeListener {
  void changed(const KeptChange& /*change*/) override { throw divisionByZero(); }
  void rewritten() override {}
};

TEST_F(Changing, AFailureOfTheJournalLeavesTheChangeKept) {
  FailingListener failing;
  const Subscription subscription = context.changes.listen(failing);
  Change change(context.changes);
  change.segments.append(line(4));
  EXPECT_EQ(numberOfFailure([&] { change.keep(); }), FailureNumber::DivisionByZero);
  EXPECT_EQ(drawn(), (Xs{1, 2, 3, 4}));
  EXPECT_EQ(records(), "A* 4");
  EXPECT_TRUE(tools.isEnabled("miUndo"));
  EXPECT_EQ(log.count("Cls"), 1);
}

// Random edits in changes within changes, kept or not: the journal follows, whatever is not kept
// leaves nothing, and undo leads back.
class RandomChanges : public Changing {
 protected:
  void edit(Change& change, Dice& dice) {
    const auto x = [&] { return real(dice.below(5)); };
    const auto somewhere = [&](int count) { return 1 + dice.below(count); };
    const Entry entry = dice.below(3) == 0 ? Entry::Unlogged : Entry::Logged;
    const int drawnRows = store.NumSegments;
    const int placedRows = store.NumPathSegments;
    switch (dice.below(10)) {
      case 0:
        change.segments.append(line(x()), entry);
        break;
      case 1:
        change.paths.append(path(x(), 100 * (1 + dice.below(3))), entry);
        break;
      case 2:
        change.paths.insert(somewhere(placedRows + 1), path(x()), entry);
        break;
      case 3:
        change.segments.insert(somewhere(drawnRows + 1), line(x()), entry);
        break;
      case 4:
        if (drawnRows > 0) change.segments.replace(somewhere(drawnRows), line(x()), entry);
        break;
      case 5:
        if (placedRows > 0) change.paths.replace(somewhere(placedRows), path(x()), entry);
        break;
      case 6:
        change.segments.eraseWhere([&](int) { return dice.below(4) == 0; }, entry);
        break;
      case 7:
        change.paths.eraseWhere([&](int) { return dice.below(4) == 0; }, entry);
        break;
      case 8:
        if (drawnRows > 0) change.segments.mark(somewhere(drawnRows), 30000 + dice.below(200));
        break;
      default:
        replaceSomeAtEnd(dice, change.paths);
    }
  }

  static void replaceSomeAtEnd(Dice& dice, PathChanges& paths) {
    std::vector<std::int16_t> numbers;
    std::vector<PathRow> rows;
    for (int ps = 1; ps <= paths.count(); ++ps) {
      if (dice.below(3) != 0) continue;
      numbers.push_back(Int16(ps));
      rows.push_back(paths.row(ps));
      rows.back().x0 = real(dice.below(5));
    }
    paths.replaceAtEnd(numbers, rows);
  }

  void run(Dice& dice, int depth) {
    const Everything before(*this);
    bool kept = false;
    {
      Change change(context.changes, dice.below(4) == 0 ? Step::Continued : Step::New);
      for (int n = dice.below(6); n > 0; --n) {
        depth < 3 && dice.below(3) == 0 ? run(dice, depth + 1) : edit(change, dice);
      }
      if (dice.below(2) == 0) kept = change.keep({.redraws = false});
    }
    if (!kept) before.expectSame(*this);
  }
};

TEST_F(RandomChanges, LeaveNothingUnlessTheyAreKept) {
  Dice dice(11);
  int heard = 0;
  for (int number = 0; number < 600 && !HasFailure(); ++number) {
    SCOPED_TRACE(::testing::Message() << "change " << number);
    run(dice, 0);
    if (dice.below(5) == 0) Undo_Last_Change(context);
    if (dice.below(8) == 0) RedoLastChange(context);
    EXPECT_TRUE(journal->isExact());
    EXPECT_TRUE(isConsistent(store));
    heard = journal->changesHeard;
  }
  EXPECT_GT(heard, 200);
}

}  // namespace
}  // namespace tess
