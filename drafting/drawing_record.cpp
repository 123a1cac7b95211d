// The entries of a drawing's record. Each is its size, its checksum and its content, which begins
// with the kind; a reader stops at the first that is not as it was written.
#include "drafting/drawing_record.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "core/byte_stream.h"
#include "core/checksum.h"
#include "core/drawing_store.h"
#include "core/settings.h"

namespace tess {
namespace {

// The number behind the name tells a record of another version, or of a machine with another order
// of bytes, from one of ours.
constexpr std::string_view kRecordName = "TESSIMO RECORD\n";
constexpr std::uint32_t kRecordVersion = 0x01020302;

enum class EntryKind : std::uint8_t { Whole = 1, Edits = 2, Settings = 3 };

// Without the lengths and flags that a row has in memory.
struct PackedSegment {
  std::int32_t type, attr;
  float x0, y0, x1, y1, xc, yc;
};
struct PackedPath {
  std::int32_t type, code, visible;
  float x0, y0, x1, y1, xc, yc, z, feed;
};

PackedSegment packed(const SegmentRow& r) {
  return {r.type, r.attr, r.x0, r.y0, r.x1, r.y1, r.xc, r.yc};
}
PackedPath packed(const PathRow& r) {
  return {r.type, r.code, r.visible ? 1 : 0, r.x0, r.y0, r.x1, r.y1, r.xc, r.yc, r.z, r.feed};
}
SegmentRow unpacked(const PackedSegment& r) {
  return {r.type, r.attr, r.x0, r.y0, r.x1, r.y1, r.xc, r.yc};
}
PathRow unpacked(const PackedPath& r) {
  return {r.type, r.x0, r.y0, r.x1, r.y1, r.xc, r.yc, r.z, r.feed, r.code, r.visible != 0};
}

template <class Row>
using Packed = decltype(packed(std::declval<Row>()));

// ---- Writing

// Runs `write` with the entry's content.
template <typename Write>
void appendEntry(std::string& out, EntryKind kind, Write write) {
  std::string content;
  ByteWriter writer(content);
  writer.value(kind);
  write(writer);
  appendRecordEntry(out, content);
}

// What of the store follows the rows and is no setting.
struct Circumstances {
  std::int16_t currentpathgroup, lastplacedgroup, showpaths, drawingsaved;
  float markerx, markery;
};

void writeCircumstances(ByteWriter& writer, const DrawingStore& store) {
  writer.value(Circumstances{store.currentpathgroup, store.lastplacedgroup, store.showpaths,
                             store.drawingsaved.raw(), store.markerx, store.markery});
}

bool isOfDrawing(const SettingRow& row) {
  return !row.repeated && !std::holds_alternative<ColorTableSlot>(row.field);
}

void writeSettings(ByteWriter& writer, const DrawingStore& store) {
  for (const SettingRow& row : settingRows()) {
    if (!isOfDrawing(row)) continue;
    writer.text(row.key);
    writer.text(settingText(store, row));
  }
  writer.text({});
  writer.text(store.creationdate);
}

void writeGroupNames(ByteWriter& writer, const DrawingStore& store) {
  for (int group = 0; group <= store.pathgroupname.upperBound(); ++group) {
    const std::string& name = store.pathgroupname[group];
    if (name.empty()) continue;
    writer.value(static_cast<std::int16_t>(group));
    writer.text(name);
  }
  writer.value(std::int16_t{-1});
}

void writeOpened(ByteWriter& writer, const OpenDrawing& opened) {
  writer.text(opened.path);
  for (const FileState& file : opened.state) writer.text(checksumText(file.checksum));
}

template <class Row>
void writeRows(ByteWriter& writer, int count, Row (*rowAt)(const DrawingStore&, int),
               const DrawingStore& store) {
  writer.value(static_cast<std::int16_t>(count));
  for (int row = 1; row <= count; ++row) writer.value(packed(rowAt(store, row)));
}

template <class Row>
void writeEdits(ByteWriter& writer, std::span<const RowEdit<Row>> edits) {
  writer.value(static_cast<std::uint32_t>(edits.size()));
  for (const RowEdit<Row>& edit : edits) {
    writer.value(edit.kind);
    writer.value(static_cast<std::uint16_t>(edit.numbers.size()));
    writer.values(edit.numbers);
    for (const Row& row : edit.rows) writer.value(packed(row));
  }
}

// ---- Reading; false or nothing for bytes that are not what was written

bool readCircumstances(ByteReader& reader, DrawingStore& store) {
  const auto read = reader.value<Circumstances>();
  if (!read) return false;
  store.currentpathgroup = read->currentpathgroup;
  store.lastplacedgroup = read->lastplacedgroup;
  store.showpaths = read->showpaths;
  store.drawingsaved = Flag::fromRaw(read->drawingsaved);
  store.markerx = read->markerx;
  store.markery = read->markery;
  return true;
}

bool readSettings(ByteReader& reader, DrawingStore& store) {
  while (const auto key = reader.text()) {
    const auto value = reader.text();
    if (!value) return false;
    if (key->empty()) {
      store.creationdate = *value;
      return true;
    }
    // A setting that this version does not know any more is none of the drawing's.
    if (const SettingRow* const row = findSetting(*key)) setSettingText(store, *row, *value);
  }
  return false;
}

bool readGroupNames(ByteReader& reader, DrawingStore& store) {
  store.pathgroupname.fill({});
  while (const auto group = reader.value<std::int16_t>()) {
    if (*group < 0) return true;
    const auto name = reader.text();
    if (!name) return false;
    if (*group > store.pathgroupname.upperBound()) store.pathgroupname.resize(*group);
    store.pathgroupname[*group] = *name;
  }
  return false;
}

template <class Row>
bool readRows(ByteReader& reader, std::size_t count, std::vector<Row>& rows) {
  const auto bytes = reader.take(count * sizeof(Packed<Row>));
  if (!bytes) return false;
  ByteReader packedRows(*bytes);
  rows.reserve(count);
  while (const auto row = packedRows.value<Packed<Row>>()) rows.push_back(unpacked(*row));
  return true;
}

bool readNumbers(ByteReader& reader, std::size_t count, std::vector<std::int16_t>& numbers) {
  const auto bytes = reader.take(count * sizeof(std::int16_t));
  if (!bytes) return false;
  ByteReader reading(*bytes);
  numbers.reserve(count);
  while (const auto number = reading.value<std::int16_t>()) numbers.push_back(*number);
  return true;
}

template <class Row>
bool readEdit(ByteReader& reader, DrawingStore& store) {
  const auto kind = reader.value<EditKind>();
  const auto count = reader.value<std::uint16_t>();
  std::vector<std::int16_t> numbers;
  std::vector<Row> rows;
  if (!kind || *kind > EditKind::Erase || !count) return false;
  if (!readNumbers(reader, *count, numbers)) return false;
  if (*kind != EditKind::Erase && !readRows(reader, *count, rows)) return false;
  const RowEdit<Row> edit{*kind, numbers, rows};
  prepareEdit(store, edit);
  performEdit(store, edit);
  return true;
}

template <class Row>
bool readEdits(ByteReader& reader, DrawingStore& store) {
  const auto count = reader.value<std::uint32_t>();
  if (!count) return false;
  for (std::uint32_t k = 0; k < *count; ++k) {
    if (!readEdit<Row>(reader, store)) return false;
  }
  return true;
}

// The rows of a whole drawing, as one insertion into an empty table.
template <class Row>
bool readTable(ByteReader& reader, DrawingStore& store) {
  const auto count = reader.value<std::int16_t>();
  std::vector<Row> rows;
  if (!count || *count < 0 || !readRows(reader, static_cast<std::size_t>(*count), rows)) {
    return false;
  }
  std::vector<std::int16_t> numbers(rows.size());
  for (std::size_t k = 0; k < rows.size(); ++k) numbers[k] = static_cast<std::int16_t>(k + 1);
  const RowEdit<Row> all{EditKind::Insert, numbers, rows};
  prepareEdit(store, all);
  performEdit(store, all);
  return true;
}

bool readOpened(ByteReader& reader, OpenDrawing& opened) {
  const auto path = reader.text();
  if (!path) return false;
  opened.path = *path;
  for (FileState& file : opened.state) {
    const auto text = reader.text();
    if (!text || !parseChecksum(*text, file.checksum)) return false;
  }
  return true;
}

bool readWhole(ByteReader& reader, DrawingStore& store, OpenDrawing& opened) {
  store.NumSegments = 0;
  store.NumPathSegments = 0;
  const auto folder = reader.text();
  const auto name = reader.text();
  if (!folder || !name) return false;
  store.drawingpath = *folder;
  store.drawingname = *name;
  return readOpened(reader, opened) && readCircumstances(reader, store) &&
         readSettings(reader, store) && readGroupNames(reader, store) &&
         readTable<SegmentRow>(reader, store) && readTable<PathRow>(reader, store) &&
         reader.atEnd();
}

bool readChange(ByteReader& reader, EntryKind kind, DrawingStore& store) {
  if (kind == EntryKind::Settings) return readSettings(reader, store) && reader.atEnd();
  return kind == EntryKind::Edits && readCircumstances(reader, store) &&
         readEdits<SegmentRow>(reader, store) && readEdits<PathRow>(reader, store) &&
         reader.atEnd();
}

// The content of the next entry, if it is as it was written.
std::optional<std::string_view> nextEntry(ByteReader& record) {
  const auto head = record.value<Checksum>();
  if (!head) return std::nullopt;
  const auto content = record.take(head->size);
  if (!content || checksumOf(*content) != *head) return std::nullopt;
  return content;
}

// Takes one entry into `store`; false when it makes no sense, and part of it was taken then.
bool takeEntry(std::string_view content, DrawingStore& store, RecordedDrawing& soFar) {
  ByteReader reader(content);
  const auto kind = reader.value<EntryKind>();
  if (!kind || (*kind != EntryKind::Whole && !soFar.known)) return false;
  try {
    const bool whole = *kind == EntryKind::Whole;
    if (!(whole ? readWhole(reader, store, soFar.opened) : readChange(reader, *kind, store)))
      return false;
    soFar.changes = whole ? 0 : soFar.changes + 1;
    soFar.known = true;
    return true;
  } catch (const RuntimeFailure&) {
    takeCallChain();  // the tables would not take it
    return false;
  }
}

// Takes the first `most` entries; gives how many could be taken.
int takeEntries(ByteReader entries, int most, DrawingStore& store, RecordedDrawing& soFar) {
  int taken = 0;
  while (taken < most && !entries.atEnd()) {
    const auto content = nextEntry(entries);
    soFar.cutShort = !content || !takeEntry(*content, store, soFar);
    if (soFar.cutShort) break;
    ++taken;
  }
  return taken;
}

}  // namespace

void appendRecordHead(std::string& out) {
  out.append(kRecordName);
  ByteWriter(out).value(kRecordVersion);
}

void appendRecordEntry(std::string& out, std::string_view content) {
  ByteWriter(out).value(checksumOf(content));
  out.append(content);
}

void appendWholeDrawing(std::string& out, const DrawingStore& store, const OpenDrawing& opened) {
  appendEntry(out, EntryKind::Whole, [&](ByteWriter& writer) {
    writer.text(store.drawingpath);
    writer.text(store.drawingname);
    writeOpened(writer, opened);
    writeCircumstances(writer, store);
    writeSettings(writer, store);
    writeGroupNames(writer, store);
    writeRows(writer, store.NumSegments, segmentRow, store);
    writeRows(writer, store.NumPathSegments, pathRow, store);
  });
}

void appendEdits(std::string& out, const DrawingStore& store,
                 std::span<const RowEdit<SegmentRow>> segments,
                 std::span<const RowEdit<PathRow>> paths) {
  appendEntry(out, EntryKind::Edits, [&](ByteWriter& writer) {
    writeCircumstances(writer, store);
    writeEdits(writer, segments);
    writeEdits(writer, paths);
  });
}

void appendSettings(std::string& out, const DrawingStore& store) {
  appendEntry(out, EntryKind::Settings,
              [&store](ByteWriter& writer) { writeSettings(writer, store); });
}

RecordedDrawing readRecord(std::string_view record, DrawingStore& store) {
  RecordedDrawing read;
  ByteReader entries(record);
  const auto name = entries.take(kRecordName.size());
  const auto version = entries.value<std::uint32_t>();
  if (name != kRecordName || version != kRecordVersion) return read;
  const DrawingStore before = store;
  const int whole = takeEntries(entries, std::numeric_limits<int>::max(), store, read);
  if (!read.cutShort) return read;
  // What broke off may have come half-way into the tables.
  store = before;
  read = RecordedDrawing();
  takeEntries(entries, whole, store, read);
  read.cutShort = true;
  return read;
}

}  // namespace tess
