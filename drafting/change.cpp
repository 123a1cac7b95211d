// The change of a drawing: its edits, its records, and how it is kept or taken back.
#include "drafting/change.h"

#include <bit>
#include <cstdint>
#include <exception>
#include <utility>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "core/row_columns.h"
#include "drafting/path_difference.h"

namespace tess {
namespace {

constexpr bool sameNumber(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

// Rounds the coordinates; true when one of them becomes another number.
bool roundRow(SegmentRow& row) {
  bool changes = false;
  for (float* const value : {&row.x0, &row.y0, &row.x1, &row.y1, &row.xc, &row.yc}) {
    const float rounded = roundTo(*value, kCoordinateDecimals);
    changes = changes || !sameNumber(rounded, *value);
    *value = rounded;
  }
  return changes;
}

// ---- What the templates need to know of each table

int countOf(const DrawingStore& store, const SegmentRow* /*table*/) {
  return store.NumSegments;
}
int countOf(const DrawingStore& store, const PathRow* /*table*/) {
  return store.NumPathSegments;
}

auto columnsOf(const DrawingStore& store, const SegmentRow* /*table*/) {
  return SegmentColumns(store);
}
auto columnsOf(const DrawingStore& store, const PathRow* /*table*/) {
  return PathColumns(store);
}

void reach(DrawingStore& store, int n, const SegmentRow* /*table*/) {
  ensureSegmentCapacity(store, n);
}
void reach(DrawingStore& store, int n, const PathRow* /*table*/) {
  ensurePathCapacity(store, n);
}

void appendRow(DrawingStore& store, const SegmentRow& row) {
  AddSeg(store, row, /*target=*/nullptr);
}
void appendRow(DrawingStore& store, const PathRow& row) {
  addPathSegment(store, row);
}

int& codeOf(SegmentRow& row) {
  return row.attr;
}
int& codeOf(PathRow& row) {
  return row.code;
}

void setRecord(clsSegment& record, const SegmentRow& row, RecordKind kind, bool start) {
  record.SetSegment(row, kind, start);
}
void setRecord(clsSegment& record, const PathRow& row, RecordKind kind, bool start) {
  record.SetPathSegment(row, kind, start);
}

template <class Row>
constexpr bool kIsPath = std::is_same_v<Row, PathRow>;

constexpr RecordKind kDeleted("D");
constexpr RecordKind kAdded("A");

// Numbers `first` to `last`.
std::vector<std::int16_t> numbersFrom(int first, int last) {
  std::vector<std::int16_t> numbers;
  numbers.reserve(static_cast<std::size_t>(std::max(last - first + 1, 0)));
  for (int number = first; number <= last; ++number) numbers.push_back(Int16(number));
  return numbers;
}

// The row that a pair of records tells of, and the places of both.
struct RecordPlaces {
  std::size_t row;
  int before, now;
};

}  // namespace

// ---- Rows

// What a walk over the table is going to change.
template <class Row>
struct RowChanges<Row>::Replaced {
  std::vector<std::int16_t> numbers;
  std::vector<Row> before, now;
  int count() const { return static_cast<int>(numbers.size()); }
  void makeRoomFor(int rows) {
    numbers.reserve(static_cast<std::size_t>(rows));
    before.reserve(static_cast<std::size_t>(rows));
    now.reserve(static_cast<std::size_t>(rows));
  }
};

template <class Row>
DrawingStore& RowChanges<Row>::store() const {
  return change_.changes_.store;
}

template <class Row>
EditList<Row>& RowChanges<Row>::edits() const {
  return change_.changes_.edits(static_cast<const Row*>(nullptr));
}

template <class Row>
int RowChanges<Row>::count() const {
  return countOf(store(), static_cast<const Row*>(nullptr));
}

template <class Row>
Row RowChanges<Row>::row(int number) const {
  if (number < 1 || number > count()) throw subscriptOutOfRange();
  return columnsOf(store(), static_cast<const Row*>(nullptr)).row(number);
}

template <class Row>
std::vector<Row> RowChanges<Row>::rowsOf(RowNumbers numbers) const {
  std::vector<Row> rows;
  rows.reserve(numbers.size());
  const int last = count();
  const auto columns = columnsOf(store(), static_cast<const Row*>(nullptr));
  for (const int number : numbers) {
    if (number < 1 || number > last) throw subscriptOutOfRange();
    rows.push_back(columns.row(number));
  }
  return rows;
}

template <class Row>
void RowChanges<Row>::perform(const RowEdit<Row>& edit, std::span<const Row> before, Entry entry) {
  perform(
      edit, before, entry, [&] { log(edit, before); }, [&] { performEdit(store(), edit); });
}

// The records come first, since they can fail; after them nothing does.
template <class Row>
template <class Log, class Put>
void RowChanges<Row>::perform(const RowEdit<Row>& edit, std::span<const Row> before, Entry entry,
                              Log log, Put put) {
  change_.requireOpen();
  if (edit.numbers.empty()) return;
  prepareEdit(store(), edit);
  edits().makeRoomFor(edit.numbers.size());
  Changes& changes = change_.changes_;
  if (entry == Entry::Logged) changes.enterAllOrNone(log);
  put();
  edits().record(edit, before);
  if (entry != Entry::Unmarked) changes.markUnsaved();
}

// Of each row how it was and how it is, as far as there are such: `placesOf` tells which row comes
// n-th, and where it stood and stands.
template <class Row>
template <class PlacesOf>
void RowChanges<Row>::logRows(std::span<const Row> before, std::span<const Row> now,
                              const PlacesOf& placesOf) {
  const auto records = change_.changes_.newRecords(before.size() + now.size());
  auto next = records.begin();
  const auto enter = [&next](const Row& row, RecordKind kind, int place) {
    setRecord(*next, row, kind, next->StartOfSegment);
    next->row = place;
    ++next;
  };
  for (std::size_t n = 0; next != records.end(); ++n) {
    const RecordPlaces at = placesOf(n);
    if (!before.empty()) enter(before[at.row], kDeleted, at.before);
    if (!now.empty()) enter(now[at.row], kAdded, at.now);
  }
}

template <class Row>
void RowChanges<Row>::log(const RowEdit<Row>& edit, std::span<const Row> before) {
  // Path rows are logged from the end, so that each goes from the place that it has.
  const bool fromTheEnd = edit.kind == EditKind::Erase && kIsPath<Row>;
  const std::size_t last = edit.numbers.size() - 1;
  logRows(before, edit.rows, [&](std::size_t n) {
    const std::size_t row = fromTheEnd ? last - n : n;
    return RecordPlaces{row, edit.numbers[row], edit.numbers[row]};
  });
}

template <class Row>
template <class Put>
int RowChanges<Row>::appendBy(Put put, const Row& row, Entry entry) {
  const std::int16_t number = Int16(count() + 1);
  const RowEdit<Row> edit{EditKind::Insert, {&number, 1}, {&row, 1}};
  perform(
      edit, {}, entry, [&] { log(edit, {}); }, put);
  return number;
}

template <class Row>
int RowChanges<Row>::append(const Row& row, Entry entry) {
  Row added = row;
  if constexpr (kIsPath<Row>) {
    added.visible = true;
    if (entry == Entry::Unmarked) entry = Entry::Unlogged;
  }
  return appendBy([&] { appendRow(store(), added); }, added, entry);
}

template <class Row>
void RowChanges<Row>::insert(std::span<const RowInsertion<Row>> insertions, Entry entry) {
  if (insertions.empty()) return;
  std::vector<std::int16_t> numbers;
  std::vector<Row> rows;
  for (const RowInsertion<Row>& insertion : insertions) {
    numbers.push_back(Int16(insertion.before + static_cast<int>(numbers.size())));
    rows.push_back(insertion.row);
    if constexpr (kIsPath<Row>) rows.back().visible = true;
  }
  perform({EditKind::Insert, numbers, rows}, {}, entry);
  if constexpr (kIsPath<Row>) store().lastplacedgroup = store().currentpathgroup;
}

template <class Row>
void RowChanges<Row>::insert(int before, const Row& row, Entry entry) {
  const RowInsertion<Row> insertion{before, row};
  insert({&insertion, 1}, entry);
}

template <class Row>
void RowChanges<Row>::replace(int number, const Row& now, Entry entry) {
  const Row before = row(number);
  const std::int16_t at = Int16(number);
  perform({EditKind::Replace, {&at, 1}, {&now, 1}}, {&before, 1}, entry);
}

template <class Row>
typename RowChanges<Row>::Replaced RowChanges<Row>::replacedBy(const EditRow& edit) const {
  Replaced replaced;
  const int rows = count();
  const auto columns = columnsOf(store(), static_cast<const Row*>(nullptr));
  for (int number = 1; number <= rows; ++number) {
    // In its last place at once: to copy a row right after it was changed takes longer than both.
    const bool changed = edit(number, replaced.now.emplace_back(columns.row(number)));
    if (!changed) {
      replaced.now.pop_back();
      continue;
    }
    if (replaced.numbers.empty()) replaced.makeRoomFor(rows - number + 1);
    replaced.numbers.push_back(Int16(number));
    replaced.before.push_back(columns.row(number));
  }
  return replaced;
}

template <class Row>
int RowChanges<Row>::replaceWhere(const EditRow& edit, Entry entry) {
  const Replaced replaced = replacedBy(edit);
  perform({EditKind::Replace, replaced.numbers, replaced.now}, replaced.before, entry);
  return replaced.count();
}

// The records are those of rows that go and come back one by one; in the table all go at once, and
// then all come.
template <class Row>
void RowChanges<Row>::replaceAtEnd(RowNumbers numbers, std::span<const Row> now) {
  const std::vector<Row> before = rowsOf(numbers);
  const int end = count();
  const auto logPairs = [&] {
    logRows(before, now, [&](std::size_t n) {
      return RecordPlaces{n, numbers[n] - static_cast<int>(n), end};
    });
  };
  const RowEdit<Row> erasing{EditKind::Erase, numbers, {}};
  perform(erasing, before, Entry::Logged, logPairs, [&] { performEdit(store(), erasing); });
  const int rows = static_cast<int>(numbers.size());
  perform({EditKind::Insert, numbersFrom(end - rows + 1, end), now}, {}, Entry::Unlogged);
}

template <class Row>
void RowChanges<Row>::erase(RowNumbers numbers, Entry entry) {
  perform({EditKind::Erase, numbers, {}}, rowsOf(numbers), entry);
}

template <class Row>
void RowChanges<Row>::erase(int first, int last, Entry entry) {
  if (last < first) return;
  if (first < 1 || last > count()) throw subscriptOutOfRange();
  erase(numbersFrom(first, last), entry);
}

template <class Row>
int RowChanges<Row>::eraseWhere(const std::function<bool(int number)>& goes, Entry entry) {
  std::vector<std::int16_t> numbers;
  for (int number = 1; number <= count(); ++number) {
    if (goes(number)) numbers.push_back(Int16(number));
  }
  erase(numbers, entry);
  return static_cast<int>(numbers.size());
}

template <class Row>
void RowChanges<Row>::mark(int number, int code) {
  Row marked = row(number);
  if (std::exchange(codeOf(marked), code) != code) replace(number, marked, Entry::Unmarked);
}

template <class Row>
void RowChanges<Row>::logAdded(int first, int last) {
  change_.requireOpen();
  if (last < first) return;
  const std::vector<std::int16_t> numbers = numbersFrom(first, last);
  const std::vector<Row> rows = rowsOf(numbers);
  change_.changes_.enterAllOrNone([&] { log({EditKind::Insert, numbers, rows}, {}); });
  change_.changes_.markUnsaved();
}

template <class Row>
void RowChanges<Row>::resize(int wanted) {
  const Int16 count = wanted;
  if (count < 0) throw subscriptOutOfRange();
  const int before = this->count();
  if (count < before) return erase(count + 1, before, Entry::Unmarked);
  const auto* const table = static_cast<const Row*>(nullptr);
  reach(store(), count, table);
  const std::vector<std::int16_t> numbers = numbersFrom(before + 1, count);
  std::vector<Row> rows;
  const auto columns = columnsOf(store(), table);
  for (const int number : numbers) rows.push_back(columns.row(number));
  perform({EditKind::Insert, numbers, rows}, {}, Entry::Unmarked);
}

template <class Row>
void RowChanges<Row>::putBack(RowNumbers numbers, std::span<const Row> rows) {
  perform({EditKind::Insert, numbers, rows}, {}, Entry::Unlogged);
}

template class RowChanges<SegmentRow>;
template class RowChanges<PathRow>;

int SegmentChanges::append(const SegmentRow& row, SegmentDrawing& target, Entry entry) {
  const int sg = append(row, entry);
  target.DrawSegment(sg);
  return sg;
}

int SegmentChanges::appendLine(int segtype, int segattr, float y0, float x0, float y1, float x1,
                               Entry entry) {
  const auto put = [&] { AddSegLine(store(), segtype, segattr, y0, x0, y1, x1, nullptr); };
  return appendBy(put, {segtype, segattr, x0, y0, x1, y1}, entry);
}

void PathChanges::show(int ps, bool visible) {
  PathRow shown = row(ps);
  if (std::exchange(shown.visible, visible) != visible) replace(ps, shown, Entry::Unmarked);
}

// ---- One change

Change::Change(Changes& changes, Step step)
    : changes_(changes),
      around_(changes.innermost_),
      before_(standing()),
      step_(step),
      failuresBefore_(std::uncaught_exceptions()) {
  if (step == Step::PathDifference) {
    pathsBefore_.reserve(static_cast<std::size_t>(paths.count()));
    for (int ps = 1; ps <= paths.count(); ++ps) pathsBefore_.push_back(paths.row(ps));
  }
  if (around_ == nullptr) changes_.begin();
  changes_.innermost_ = this;
  if (step != Step::Continued) changes_.startsStep_ = true;
  if (step == Step::PathDifference) changes_.muted_ = true;
}

Change::~Change() {
  if (open_) takeBack();
}

Change::Before Change::standing() const {
  const DrawingStore& store = changes_.store;
  return {.segments = changes_.segmentEdits_.mark(),
          .paths = changes_.pathEdits_.mark(),
          .records = changes_.records_.size(),
          .startsStep = changes_.startsStep_,
          .muted = changes_.muted_,
          .unsaved = changes_.unsaved_,
          .drawingsaved = store.drawingsaved,
          .currentpathgroup = store.currentpathgroup,
          .lastplacedgroup = store.lastplacedgroup,
          .changecount = changes_.log.changecount,
          .changetop = changes_.log.changetop};
}

void Change::requireOpen() const {
  if (open_) return;
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {},
                       "The drawing was replaced while it was being changed.");
}

void Change::startStep() {
  changes_.startsStep_ = true;
}

void Change::roundall() {
  segments.replaceWhere([](int /*sg*/, SegmentRow& row) { return roundRow(row); }, Entry::Unmarked);
}

void Change::marksUnsaved() {
  requireOpen();
  changes_.markUnsaved();
}

Column<std::string>& Change::pathGroupNames() {
  requireOpen();
  if (!namesBefore_) namesBefore_ = changes_.store.pathgroupname;
  changes_.namesChanged_ = true;
  return changes_.store.pathgroupname;
}

void Change::logDifference() {
  changes_.muted_ = before_.muted;
  std::vector<PathRow> now;
  now.reserve(static_cast<std::size_t>(paths.count()));
  for (int ps = 1; ps <= paths.count(); ++ps) now.push_back(paths.row(ps));
  for (const clsSegment& record : pathDifference(pathsBefore_, now)) changes_.enter(record);
}

bool Change::keep(const Keeping& keeping) {
  if (!open_) return false;
  if (step_ == Step::PathDifference) logDifference();
  if (around_ != nullptr) {
    if (!around_->namesBefore_) around_->namesBefore_ = std::move(namesBefore_);
    close();
    return true;
  }
  const bool agreed = changes_.operatorAgrees();
  if (!open_) return false;  // whoever answered has replaced the drawing
  if (!agreed) {
    takeBack();
    return false;
  }
  changes_.logSteps();
  close();
  changes_.settle(keeping);
  return true;
}

// A change without records leaves it to others where the next one goes.
void Change::close() {
  open_ = false;
  changes_.innermost_ = around_;
  changes_.muted_ = before_.muted;
  if (changes_.records_.size() == before_.records) changes_.startsStep_ = before_.startsStep;
}

// A save in the middle of it holds rows that are gone now.
void Change::takeBack() {
  DrawingStore& store = changes_.store;
  const bool rowsChanged = changes_.segmentEdits_.mark() != before_.segments ||
                           changes_.pathEdits_.mark() != before_.paths;
  changes_.segmentEdits_.takeBack(store, before_.segments);
  changes_.pathEdits_.takeBack(store, before_.paths);
  changes_.records_.resize(before_.records);
  if (std::exchange(changes_.unsaved_, before_.unsaved)) {
    store.drawingsaved = !store.drawingsaved && before_.drawingsaved;
  }
  store.currentpathgroup = before_.currentpathgroup;
  store.lastplacedgroup = before_.lastplacedgroup;
  if (namesBefore_) store.pathgroupname = *std::move(namesBefore_);
  changes_.log.changecount = before_.changecount;
  changes_.log.changetop = before_.changetop;
  close();
  if (around_ == nullptr) changes_.forget();
  const bool failed = std::uncaught_exceptions() > failuresBefore_;
  if ((rowsChanged || failed) && changes_.host_ != nullptr) changes_.host_->changeTakenBack();
}

// ---- All changes

Changes::Changes(DrawingStore& drawing, ChangeLog& changelog, ChangeHost* host)
    : store(drawing), log(changelog), host_(host) {}

void Changes::begin() {
  startsStep_ = false;
  segmentEdits_.holdNewRows(!listeners_.empty());
  pathEdits_.holdNewRows(!listeners_.empty());
}

void Changes::enter(const clsSegment& record) {
  for (clsSegment& entered : newRecords(1)) {
    const bool startsStep = entered.StartOfSegment;
    entered = record;
    entered.StartOfSegment = startsStep;
  }
}

std::span<clsSegment> Changes::newRecords(std::size_t count) {
  if (muted_ || count == 0) return {};
  const std::size_t before = records_.size();
  records_.resize(before + count);
  records_[before].StartOfSegment = std::exchange(startsStep_, false);
  return std::span(records_).subspan(before);
}

template <class Enter>
void Changes::enterAllOrNone(Enter enter) {
  const std::size_t records = records_.size();
  const bool startsStep = startsStep_;
  try {
    enter();
  } catch (...) {
    records_.resize(records);
    startsStep_ = startsStep;
    throw;
  }
}

void Changes::markUnsaved() {
  store.drawingsaved = false;
  unsaved_ = true;
}

void Changes::abandon() {
  for (Change* change = innermost_; change != nullptr; change = change->around_) {
    change->open_ = false;
  }
  innermost_ = nullptr;
  forget();
}

void Changes::tellRewritten() {
  listeners_.tell([](ChangeListener& listener) { listener.rewritten(); });
}

// The records as they are going to be logged, step by step.
std::vector<std::span<const clsSegment>> Changes::steps() const {
  std::vector<std::span<const clsSegment>> steps;
  const auto startsStep = [](const clsSegment& record) { return record.StartOfSegment; };
  for (auto first = records_.begin(); first != records_.end();) {
    const auto last = std::find_if(first + 1, records_.end(), startsStep);
    steps.emplace_back(first, last);
    first = last;
  }
  return steps;
}

// With the step before, if it goes on with that.
int Changes::sizeInLog(std::span<const clsSegment> step) const {
  const int goesOnWith = step.front().StartOfSegment ? 0 : log.lastStepSize();
  return goesOnWith + static_cast<int>(step.size());
}

bool Changes::operatorAgrees() {
  const bool allFit = records_.empty() || sizeInLog(records_) <= kMaxRecords;
  if (allFit) return true;
  int largest = 0;
  for (const auto& step : steps()) largest = std::max(largest, sizeInLog(step));
  return largest <= kMaxRecords || host_ == nullptr || host_->agreesToLoseUndo(largest);
}

// What comes after a step that the log cannot hold can be undone again.
void Changes::logSteps() {
  for (const auto& step : steps()) {
    sizeInLog(step) > kMaxRecords ? log.clear() : log.logRecords(step);
  }
}

// The lists are free again before anything is shown, since that may let other commands run.
void Changes::settle(const Keeping& keeping) {
  std::exception_ptr failure;
  try {
    tellKept();
  } catch (...) {
    failure = std::current_exception();
  }
  const bool logged = !records_.empty();
  const bool shows = logged || unsaved_;
  forget();
  if (shows && host_ != nullptr) host_->changeKept(keeping, logged);
  if (failure) std::rethrow_exception(failure);
}

void Changes::tellKept() {
  if (listeners_.empty()) return;
  const bool nothing = segmentEdits_.empty() && pathEdits_.empty() && !unsaved_ && !namesChanged_;
  if (nothing) return;
  if (!segmentEdits_.holdsNewRows()) return tellRewritten();  // it began to listen in the middle
  const auto segments = segmentEdits_.edits();
  const auto paths = pathEdits_.edits();
  const KeptChange kept{segments, paths, unsaved_, namesChanged_};
  listeners_.tell([&kept](ChangeListener& listener) { listener.changed(kept); });
}

void Changes::forget() {
  segmentEdits_.clear();
  pathEdits_.clear();
  records_.clear();
  unsaved_ = namesChanged_ = false;
}

}  // namespace tess
