// Tables of a Jet file, column by column, into an SQLite database in memory.
#include "tools/jet_reader.h"

// Before the library's header, which would take it in as plain C.
#include <cstring>
#include <glib.h>
#include <mdbtools.h>
#include <memory>
#include <optional>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

#include "tools/jet_frame.h"
#include "tools/sqlite_handles.h"

namespace tess {
namespace {

// ---- Confinement

constexpr rlim_t kProcessorSeconds = 2;
constexpr rlim_t kMemory = rlim_t{512} << 20;
constexpr rlim_t kDescriptors = 16;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMayLimitMemory = false;  // the sanitizer reserves far more than it uses
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kMayLimitMemory = false;
#else
constexpr bool kMayLimitMemory = true;
#endif
#else
constexpr bool kMayLimitMemory = true;
#endif

void limit(decltype(RLIMIT_CPU) resource, rlim_t value) {
  const rlimit both{value, value};
  ::setrlimit(resource, &both);
}

// A crash leaves no memory image behind, and the end of the program ends this process too.
void confine() {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  ::prctl(PR_SET_DUMPABLE, 0);
  limit(RLIMIT_CORE, 0);
  limit(RLIMIT_CPU, kProcessorSeconds);
  limit(RLIMIT_FSIZE, 0);
  limit(RLIMIT_NOFILE, kDescriptors);
  if (kMayLimitMemory) limit(RLIMIT_AS, kMemory);
}

// ---- Input and output

constexpr std::size_t kLargestInput = std::size_t{16} << 20;

std::string standardInput() {
  std::string bytes;
  char block[1 << 16];
  ssize_t got = 0;
  while (bytes.size() < kLargestInput &&
         (got = ::pread(STDIN_FILENO, block, sizeof block, static_cast<off_t>(bytes.size()))) > 0) {
    bytes.append(block, static_cast<std::size_t>(got));
  }
  return bytes;
}

bool writeOutput(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// ---- Tables

constexpr int kMaxRows = 200000;                             // of a table
constexpr char kLargest[] = "PRAGMA max_page_count = 8000";  // 32 MB of 4096 bytes

using JetFile = std::unique_ptr<MdbHandle, void (*)(MdbHandle*)>;
using JetTable = std::unique_ptr<MdbTableDef, void (*)(MdbTableDef*)>;

struct JetColumn {
  std::string name;
  const char* kind = nullptr;  // of its values in SQLite; null: they are left out
  std::string text;            // where the library puts the value of a row
  int length = 0;              // 0 for a null
};

// Pictures, identifiers and the like say nothing about materials.
const char* kindOf(int type) {
  switch (type) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
      return "INTEGER";
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_NUMERIC:
      return "REAL";
    case MDB_TEXT:
    case MDB_MEMO:
    case MDB_DATETIME:
      return "TEXT";
    default:
      return nullptr;
  }
}

bool run(sqlite3* database, const std::string& statement) {
  return sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

// The columns, bound so that each row arrives in them.
std::vector<JetColumn> bindColumns(const MdbHandle& file, MdbTableDef& table) {
  std::vector<JetColumn> columns(table.num_cols);
  for (unsigned int i = 0; i < table.num_cols; ++i) {
    const auto& found = *static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, i));
    JetColumn& column = columns[i];
    column.name.assign(found.name, ::strnlen(found.name, sizeof found.name));
    column.kind = kindOf(found.col_type);
    if (column.kind == nullptr) continue;
    column.text.resize(file.bind_size + 1);
    // Columns are counted from 1 here.
    mdb_bind_column(&table, static_cast<int>(i) + 1, column.text.data(), &column.length);
  }
  return columns;
}

bool createTable(sqlite3* database, const std::string& name,
                 const std::vector<JetColumn>& columns) {
  std::string list;
  for (const JetColumn& column : columns) {
    list += (list.empty() ? "" : ", ") + quotedName(column.name) + " " +
            (column.kind == nullptr ? "BLOB" : column.kind);
  }
  return run(database, "CREATE TABLE " + quotedName(name) + " (" + list + ")");
}

SqliteStatement insertion(sqlite3* database, const std::string& name, std::size_t columns) {
  std::string places = "?";
  for (std::size_t i = 1; i < columns; ++i) places += ", ?";
  return prepareStatement(database, "INSERT INTO " + quotedName(name) + " VALUES (" + places + ")");
}

// A value takes the kind of its column by itself: "300" becomes the number in one of numbers.
bool insertRow(sqlite3_stmt* insert, const std::vector<JetColumn>& columns) {
  int place = 0;
  for (const JetColumn& column : columns) {
    ++place;
    const bool filled = column.kind != nullptr && column.length > 0;
    if (!filled) {
      sqlite3_bind_null(insert, place);
      continue;
    }
    const auto length = static_cast<int>(::strnlen(column.text.data(), column.text.size()));
    sqlite3_bind_text(insert, place, column.text.data(), length, SQLITE_STATIC);
  }
  const bool inserted = sqlite3_step(insert) == SQLITE_DONE;
  sqlite3_reset(insert);
  return inserted;
}

void readTable(MdbHandle& file, MdbCatalogEntry& entry, sqlite3* database) {
  const JetTable table(mdb_read_table(&entry), mdb_free_tabledef);
  if (table == nullptr || mdb_read_columns(table.get()) == nullptr) return;
  std::vector<JetColumn> columns = bindColumns(file, *table);
  const std::string name(entry.object_name, ::strnlen(entry.object_name, sizeof entry.object_name));
  if (columns.empty() || !createTable(database, name, columns)) return;
  const SqliteStatement insert = insertion(database, name, columns.size());
  mdb_rewind_table(table.get());
  for (int rows = 0; insert != nullptr && rows < kMaxRows && mdb_fetch_row(table.get()); ++rows) {
    if (!insertRow(insert.get(), columns)) return;
  }
}

void readTables(MdbHandle& file, sqlite3* database) {
  const GPtrArray* const entries = mdb_read_catalog(&file, MDB_TABLE);
  run(database, "BEGIN");
  for (unsigned int i = 0; entries != nullptr && i < entries->len; ++i) {
    auto* const entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(entries, i));
    if (mdb_is_user_table(entry)) readTable(file, *entry, database);
  }
  run(database, "COMMIT");
}

std::optional<std::string> serialized(sqlite3* database) {
  sqlite3_int64 size = 0;
  const std::unique_ptr<unsigned char, void (*)(void*)> bytes(
      sqlite3_serialize(database, "main", &size, 0), sqlite3_free);
  if (bytes == nullptr) return std::nullopt;
  return std::string(reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size));
}

// Numbers by which flags are told, not the words of some database language.
std::optional<std::string> imageOfJet(std::string content) {
  const JetFile file(mdb_open_buffer(content.data(), content.size(), MDB_NOFLAGS), mdb_close);
  const SqliteDatabase database = openInMemory();
  if (file == nullptr || database == nullptr || !run(database.get(), kLargest)) return std::nullopt;
  mdb_set_boolean_fmt_numbers(file.get());
  readTables(*file, database.get());
  return serialized(database.get());
}

}  // namespace

bool asksForJetReader(int argc, const char* const* argv) {
  return argc == 2 && std::strcmp(argv[1], kReadJetOption) == 0;
}

int runJetReader() {
  confine();
  const auto image = imageOfJet(standardInput());
  return image && writeOutput(framedImage(*image)) ? 0 : 1;
}

}  // namespace tess
