// The change log: appending, rewinding and walking of before-and-after records.
#include "drafting/change_log.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "core/runtime_failure.h"
#include "core/text.h"
#include "geometry/float_points.h"

namespace tess {
namespace {

constexpr std::size_t kLogGrowth = 50;
constexpr int kCenterDecimals = 4;

template <typename Row>
bool sameEnds(const clsSegment& record, const Row& row, float tolerence) {
  return samePoint({row.x0, row.y0}, {record.x0, record.y0}, tolerence) &&
         samePoint({row.x1, row.y1}, {record.x1, record.y1}, tolerence);
}

// A save rounds the rows and leaves the records: a coordinate just below the half of the fourth
// place may have crossed it in the row alone.
bool equalAtFourPlaces(float row, float record) {
  if (row == record) return true;  // as nearly always
  const auto asSaved = [](float value) {
    return roundTo(roundTo(value, kCoordinateDecimals), kCenterDecimals);
  };
  return roundTo(row, kCenterDecimals) == roundTo(record, kCenterDecimals) ||
         asSaved(row) == asSaved(record);
}

template <typename Row>
bool sameCenter(const clsSegment& record, const Row& row) {
  return equalAtFourPlaces(row.xc, record.CenterX) && equalAtFourPlaces(row.yc, record.CenterY);
}

// Lines and rectangles have no centre to compare.
bool hasNoCenter(int type) {
  return type == kLine || type == kRectangle;
}

template <typename Row>
bool matches(const clsSegment& record, int recordType, const Row& row, float tolerence) {
  return row.type == recordType && sameEnds(record, row, tolerence) &&
         (hasNoCenter(row.type) || sameCenter(record, row));
}

bool startsStep(const clsSegment& record) {
  return record.StartOfSegment;
}

struct NamedField {
  std::string_view name;
  std::variant<float clsSegment::*, Int16 clsSegment::*, RecordKind clsSegment::*,
               bool clsSegment::*>
      field;
};

constexpr NamedField kNamedFields[] = {
    {"x0", &clsSegment::x0},
    {"y0", &clsSegment::y0},
    {"x1", &clsSegment::x1},
    {"y1", &clsSegment::y1},
    {"centerx", &clsSegment::CenterX},
    {"centery", &clsSegment::CenterY},
    {"segtype", &clsSegment::SegType},
    {"segattr", &clsSegment::SegAttr},
    {"addordelete", &clsSegment::AddOrDelete},
    {"startofsegment", &clsSegment::StartOfSegment},
};

const NamedField& namedField(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kNamedFields), std::end(kNamedFields),
                   [name](const NamedField& row) { return equalIgnoringCase(row.name, name); });
  if (found == std::end(kNamedFields)) throw typeMismatch();
  return *found;
}

RecordValue asValue(float value) {
  return value;
}
RecordValue asValue(Int16 value) {
  return static_cast<int>(value);
}
RecordValue asValue(RecordKind value) {
  return std::string(value);
}
RecordValue asValue(bool value) {
  return value;
}

template <typename Kind>
const Kind& valueOfKind(const RecordValue& value) {
  const Kind* const held = std::get_if<Kind>(&value);
  if (held == nullptr) throw typeMismatch();
  return *held;
}

void assign(float& field, const RecordValue& value) {
  field = valueOfKind<float>(value);
}
void assign(Int16& field, const RecordValue& value) {
  field = valueOfKind<int>(value);
}
void assign(RecordKind& field, const RecordValue& value) {
  field = std::string_view(valueOfKind<std::string>(value));
}
void assign(bool& field, const RecordValue& value) {
  field = valueOfKind<bool>(value);
}

}  // namespace

void clsSegment::SetPathSegment(const PathRow& placed, RecordKind kind, bool start) {
  x0 = placed.x0;
  x1 = placed.x1;
  y0 = placed.y0;
  y1 = placed.y1;
  CenterX = placed.xc;
  CenterY = placed.yc;
  TypeOfSegment = placed.type;
  ZDepth = placed.z;
  FeedRate = placed.feed;
  WhereDeletedFrom = kPathTable;
  SegType = {};
  SegAttr = placed.code;
  AddOrDelete = kind;
  StartOfSegment = start;
  row = {};
}

void ChangeLog::logRecord(const clsSegment& record, bool cutRedo) {
  if (changecount == kMaxRecords) giveWayTo(record);
  if (cutRedo) changetop = changecount;
  const std::size_t count = forgotten_ + static_cast<std::size_t>(changecount) + 1;
  if (changelog_.size() < count) changelog_.resize(changelog_.size() + kLogGrowth);
  at(changecount) = record;
  ++changecount;
  if (changetop < changecount) changetop = changecount;
}

void ChangeLog::giveWayTo(const clsSegment& record) {
  const int oldest = oldestStepSize();
  if (oldest == changecount && !record.StartOfSegment) throw overflow();
  forgetOldest(oldest);
}

void ChangeLog::logRecords(std::span<const clsSegment> records) {
  if (records.empty()) return;
  const std::size_t goesOnWith = records.front().StartOfSegment ? 0 : lastStep().size();
  if (goesOnWith + records.size() > kMaxRecords) throw overflow();
  const auto count = static_cast<int>(records.size());
  while (changecount + count > kMaxRecords) forgetOldest(oldestStepSize());
  changelog_.resize(forgotten_ + static_cast<std::size_t>(changecount));
  changelog_.insert(changelog_.end(), records.begin(), records.end());
  changecount += count;
  changetop = changecount;
}

std::span<const clsSegment> ChangeLog::recordsFrom(int first, int last) const {
  const auto all = std::span(changelog_).subspan(forgotten_);
  return all.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first));
}

std::span<const clsSegment> ChangeLog::lastStep() const {
  const auto live = recordsFrom(0, changecount);
  const auto start = std::find_if(live.rbegin(), live.rend(), startsStep);
  return start == live.rend() ? live : live.subspan(live.rend() - start - 1);
}

std::span<const clsSegment> ChangeLog::nextStep() const {
  const auto gone = recordsFrom(changecount, changetop);
  if (gone.empty()) return gone;
  return {gone.begin(), std::find_if(gone.begin() + 1, gone.end(), startsStep)};
}

int ChangeLog::oldestStepSize() const {
  int size = 1;
  while (size < changecount && !startsStep(record(size))) ++size;
  return size;
}

// The room at the front is closed up once it is the larger part, so that no record is moved often.
void ChangeLog::forgetOldest(int records) {
  changecount -= records;
  changetop -= records;
  forgotten_ += static_cast<std::size_t>(records);
  if (2 * forgotten_ < changelog_.size()) return;
  changelog_.erase(changelog_.begin(),
                   changelog_.begin() + static_cast<std::ptrdiff_t>(forgotten_));
  forgotten_ = 0;
}

clsSegment ChangeLog::popRecord() {
  if (!canUndo()) throw subscriptOutOfRange();
  --changecount;
  return at(changecount);
}

clsSegment ChangeLog::nextRedoRecord() {
  if (!canRedo()) throw subscriptOutOfRange();
  const clsSegment& next = at(changecount);
  ++changecount;
  return next;
}

const clsSegment& ChangeLog::record(int index) const {
  if (index < 0 || index >= changetop) throw subscriptOutOfRange();
  return changelog_[forgotten_ + static_cast<std::size_t>(index)];
}

clsSegment& ChangeLog::at(int index) {
  return changelog_.at(forgotten_ + static_cast<std::size_t>(index));
}

RecordValue ChangeLog::recordField(int index, std::string_view name) const {
  const clsSegment& from = record(index);
  return std::visit([&from](auto field) { return asValue(from.*field); }, namedField(name).field);
}

void ChangeLog::setRecordField(int index, std::string_view name, const RecordValue& value) {
  if (index < 0 || index >= changetop) throw subscriptOutOfRange();
  clsSegment& into = at(index);
  std::visit([&](auto field) { assign(into.*field, value); }, namedField(name).field);
}

void ChangeLog::clear() {
  changelog_.clear();
  forgotten_ = 0;
  changecount = 0;
  changetop = 0;
}

void logSegment(ChangeLog& log, const DrawingStore& store, int sg, RecordKind kind, bool start) {
  if (sg < 1) return;
  clsSegment record;
  record.SetSegment(segmentRow(store, sg), kind, start);
  record.row = sg;
  log.logRecord(record, /*cutRedo=*/true);
}

void logPathSegment(ChangeLog& log, const DrawingStore& store, int ps, RecordKind kind,
                    bool start) {
  if (ps < 1) return;
  clsSegment record;
  record.SetPathSegment(pathRow(store, ps), kind, start);
  record.row = ps;
  log.logRecord(record, /*cutRedo=*/true);
}

bool isSameRow(const clsSegment& record, const SegmentRow& row, float tolerence) {
  return matches(record, record.SegType, row, tolerence);
}

bool isSameRow(const clsSegment& record, const PathRow& row, float tolerence) {
  return matches(record, record.TypeOfSegment, row, tolerence);
}

int findSegment(const DrawingStore& store, const clsSegment& record) {
  for (int sg = store.NumSegments; sg >= 1; --sg) {
    if (isSameRow(record, segmentRow(store, sg), store.cfg_tolerance)) return sg;
  }
  return -1;
}

int findPathSegment(const DrawingStore& store, const clsSegment& record, int from) {
  for (int ps = std::min<int>(from, store.NumPathSegments); ps >= 1; --ps) {
    if (isSameRow(record, pathRow(store, ps), store.cfg_tolerance)) return ps;
  }
  return -1;
}

}  // namespace tess
