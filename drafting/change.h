// The one way in which rows of the drawing come, go and change: a command opens a Change, makes its
// edits through it and keeps it. Until then nothing has happened: left in any other way, by a
// failure too, it puts back both tables and all that goes with them.
// Owns: Entry, Step, Keeping, RowInsertion, RowChanges, SegmentChanges, PathChanges, Change,
//       KeptChange, ChangeListener, ChangeHost, Changes.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "core/column.h"
#include "core/observer_list.h"
#include "drafting/change_log.h"
#include "drafting/edit_list.h"

namespace tess {

class Change;
class Changes;

// What an edit leaves behind besides the rows.
enum class Entry {
  Logged,    // records for undo; the drawing is unsaved
  Unlogged,  // no records: undo will not know of it; the drawing is unsaved
  Unmarked,  // neither: selection, rounding, rows that a script puts down by hand
};

// Where the records of a change go.
enum class Step {
  New,             // the first one starts a step
  Continued,       // into the step before
  PathDifference,  // nothing is recorded but the path rows that are gone or new in the end
};

// What the outermost change does when it is kept; changes within it leave that to it.
struct Keeping {
  int undoMark = kRowsAdded;
  bool redraws = true;  // unless the rows are on the screen already
};

// A row to come in front of row `before` of the table as it stands; count() + 1 is the end.
template <class Row>
struct RowInsertion {
  int before = 0;
  Row row;
};

// Edits of one table. Rows count from 1. Out of range, and for a full table, they raise what the
// table raises, and then have done nothing.
template <class Row>
class RowChanges {
 public:
  explicit RowChanges(Change& change) : change_(change) {}
  RowChanges(const RowChanges&) = delete;
  RowChanges& operator=(const RowChanges&) = delete;

  int count() const;
  Row row(int number) const;

  // At the end; returns the number. A path row is shown, its group is the one placed last, and it
  // leaves the drawing unsaved even unmarked.
  int append(const Row& row, Entry entry = Entry::Logged);

  // In one pass, in the order of their places. Path rows are shown, and the current group is the
  // one placed last.
  void insert(std::span<const RowInsertion<Row>> insertions, Entry entry = Entry::Logged);
  void insert(int before, const Row& row, Entry entry = Entry::Logged);

  // A row as it was and as it is now; one that stays the same counts as well.
  void replace(int number, const Row& now, Entry entry = Entry::Logged);
  // All rows that `edit` changes and returns true for; returns how many.
  using EditRow = std::function<bool(int number, Row& row)>;
  int replaceWhere(const EditRow& edit, Entry entry = Entry::Logged);
  // The rows `numbers` leave their places and come to the end as `now`, in this order.
  void replaceAtEnd(RowNumbers numbers, std::span<const Row> now);

  // In one pass. The records are in the order of the table for drawing rows, and from its end for
  // path rows. Of an empty range nothing is erased.
  void erase(RowNumbers numbers, Entry entry = Entry::Logged);
  void erase(int number, Entry entry = Entry::Logged) { erase(number, number, entry); }
  void erase(int first, int last, Entry entry = Entry::Logged);
  int eraseWhere(const std::function<bool(int number)>& goes, Entry entry = Entry::Logged);

  // Only segattr or pscode, for what the session keeps there: selected, verified, parked.
  void mark(int number, int code);

  // Logs rows as added that came unlogged and have got their last form since.
  void logAdded(int first, int last);

  // Makes the counter `count`, for those who fill the columns by hand.
  void resize(int count);

  // Rows that were there before come back as these numbers: unlogged, and none counts as placed.
  void putBack(RowNumbers numbers, std::span<const Row> rows);

 protected:
  DrawingStore& store() const;
  // Appends what `put`, a routine of the core, puts at the end.
  template <class Put>
  int appendBy(Put put, const Row& row, Entry entry);

 private:
  struct Replaced;
  Replaced replacedBy(const EditRow& edit) const;
  std::vector<Row> rowsOf(RowNumbers numbers) const;
  EditList<Row>& edits() const;
  void perform(const RowEdit<Row>& edit, std::span<const Row> before, Entry entry);
  template <class Log, class Put>
  void perform(const RowEdit<Row>& edit, std::span<const Row> before, Entry entry, Log log,
               Put put);
  void log(const RowEdit<Row>& edit, std::span<const Row> before);
  template <class PlacesOf>
  void logRows(std::span<const Row> before, std::span<const Row> now, const PlacesOf& placesOf);

  Change& change_;
};

class SegmentChanges : public RowChanges<SegmentRow> {
 public:
  using RowChanges::append;
  using RowChanges::RowChanges;
  // The same, drawn on `target`.
  int append(const SegmentRow& row, SegmentDrawing& target, Entry entry = Entry::Logged);
  // A line, with its coordinates y before x.
  int appendLine(int segtype, int segattr, float y0, float x0, float y1, float x1,
                 Entry entry = Entry::Logged);
};

class PathChanges : public RowChanges<PathRow> {
 public:
  using RowChanges::RowChanges;
  void show(int ps, bool visible);  // not logged, and no change of the drawing
};

// One command's change of the drawing. Routines that a command is made of open their own: it then
// is part of the one around it, kept with it and taken back with it, or alone if it fails alone.
class Change {
 public:
  explicit Change(Changes& changes, Step step = Step::New);
  ~Change();
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;

  SegmentChanges segments{*this};
  PathChanges paths{*this};

  // The next record starts another step.
  void startStep();

  // Rounds all coordinates of the drawing rows as a save does. Not logged.
  void roundall();
  // Something other than a row has changed that the drawing file holds.
  void marksUnsaved();
  // The names of the path groups, to be changed.
  Column<std::string>& pathGroupNames();

  // Settles the change: the records enter the log, undo and redo follow, the screen is redrawn. A
  // step that the log cannot hold is put to the operator first; false when the operator will not
  // have it, and the change was taken back. Within another change it is always true.
  bool keep(const Keeping& keeping = {});

 private:
  template <class Row>
  friend class RowChanges;
  friend class Changes;

  // Where everything stood when the change was opened.
  struct Before {
    EditList<SegmentRow>::Mark segments = 0;
    EditList<PathRow>::Mark paths = 0;
    std::size_t records = 0;
    bool startsStep = false;
    bool muted = false;
    bool unsaved = false;
    Flag drawingsaved;
    Int16 currentpathgroup, lastplacedgroup;
    Int16 changecount, changetop;
  };

  Before standing() const;
  void requireOpen() const;
  void logDifference();
  void close();
  void takeBack();

  Changes& changes_;
  Change* const around_;  // null for the outermost
  const Before before_;
  const Step step_;
  std::vector<PathRow> pathsBefore_;                // for the difference
  std::optional<Column<std::string>> namesBefore_;  // once they were asked for
  const int failuresBefore_;
  bool open_ = true;
};

// What a change did to the tables, for those who keep a journal of them.
struct KeptChange {
  std::span<const RowEdit<SegmentRow>> segments;  // in their order; one table knows nothing of
  std::span<const RowEdit<PathRow>> paths;        // the other
  bool unsaved = false;                           // not so for marks and rounding
  bool groupNames = false;                        // the names of the path groups have changed
};

// Hears of every change after it was kept. What it raises reaches the command, whose change stays.
class ChangeListener {
 public:
  virtual ~ChangeListener() = default;
  virtual void changed(const KeptChange& change) = 0;
  // The tables, or the names of the groups, became others by other means: a load, a save's
  // rounding, a script's hand. It may come often, so that it should do no more than take note.
  virtual void rewritten() = 0;
};

// What changes need of the context that they are made on.
class ChangeHost {
 public:
  virtual ~ChangeHost() = default;
  // A step of so many records is more than the log holds: true to go on without undo.
  virtual bool agreesToLoseUndo(int records) = 0;
  // Rows have changed; `logged` when undo knows of it.
  virtual void changeKept(const Keeping& keeping, bool logged) = 0;
  virtual void changeTakenBack() = 0;
};

// The changes of one drawing: the one in progress, its log, and who hears of them.
class Changes {
 public:
  // Without a host nobody is asked and nothing is shown.
  Changes(DrawingStore& drawing, ChangeLog& changelog, ChangeHost* host = nullptr);
  Changes(const Changes&) = delete;
  Changes& operator=(const Changes&) = delete;

  DrawingStore& store;
  ChangeLog& log;

  Subscription listen(ChangeListener& listener) { return listeners_.add(listener); }

  // Another drawing has taken the place of the one that was being changed: what is open can neither
  // go on nor be taken back.
  void abandon();
  // The tables have become others by other ways than a Change.
  void tellRewritten();

 private:
  template <class Row>
  friend class RowChanges;
  friend class Change;

  EditList<SegmentRow>& edits(const SegmentRow* /*table*/) { return segmentEdits_; }
  EditList<PathRow>& edits(const PathRow* /*table*/) { return pathEdits_; }
  void begin();
  void enter(const clsSegment& record);
  // None while records count for nothing.
  std::span<clsSegment> newRecords(std::size_t count);
  template <class Enter>
  void enterAllOrNone(Enter enter);
  void markUnsaved();
  std::vector<std::span<const clsSegment>> steps() const;
  int sizeInLog(std::span<const clsSegment> step) const;
  bool operatorAgrees();
  void logSteps();
  void settle(const Keeping& keeping);
  void tellKept();
  void forget();

  ChangeHost* host_;
  ObserverList<ChangeListener> listeners_;
  Change* innermost_ = nullptr;
  EditList<SegmentRow> segmentEdits_;
  EditList<PathRow> pathEdits_;
  std::vector<clsSegment> records_;  // not yet in the log
  bool startsStep_ = false;          // the next record does
  bool muted_ = false;               // records count for nothing
  bool unsaved_ = false;             // the drawing became so
  bool namesChanged_ = false;
};

}  // namespace tess
