// The database in memory: copied from an image table by table, then closed to all but reading.
#include "tools/feeds_database.h"

#include <algorithm>
#include <cmath>

#include "core/text.h"
#include "tools/sqlite_handles.h"

namespace tess {
namespace {

constexpr char kCollation[] = "FEEDS";

// A table of 32767 materials with 30 columns asks for about one million steps; what an injected
// text could ask for is endless.
constexpr int kStepsPerTick = 1000;
constexpr int kTicksPerQuery = 4000;
constexpr int kTicksPerCopy = 40000;
constexpr int kLongestValue = 1 << 20;                            // bytes
constexpr int kLongestStatement = 1 << 16;                        // bytes
constexpr char kLargestCopy[] = "PRAGMA max_page_count = 16384";  // 64 MB of 4096 bytes

// A file that keeps a journal beside it says so in two bytes of its header. A copy in memory has
// none, and is read without.
constexpr std::size_t kJournalBytes = 18;
constexpr char kJournalBeside = 2;
constexpr char kJournalInside = 1;

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char letter) { return static_cast<unsigned char>(letter) < 0x80; });
}

std::string_view withoutBlanksAtEnd(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

int compareAscii(std::string_view a, std::string_view b) {
  const auto [endA, endB] =
      std::mismatch(a.begin(), a.begin() + std::min(a.size(), b.size()), b.begin(),
                    [](char x, char y) { return lowerCased(x) == lowerCased(y); });
  if (endA != a.end() && endB != b.end()) return lowerCased(*endA) - lowerCased(*endB);
  return static_cast<int>(endA != a.end()) - static_cast<int>(endB != b.end());
}

int collate(void* /*context*/, int lengthA, const void* a, int lengthB, const void* b) {
  return compareFeedsTexts({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                           {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

// What may run on a connection: so many steps, counted down.
int tick(void* budget) {
  int& left = *static_cast<int*>(budget);
  return --left < 0 ? 1 : 0;
}

void setLimits(sqlite3* database) {
  sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLongestValue);
  sqlite3_limit(database, SQLITE_LIMIT_SQL_LENGTH, kLongestStatement);
  sqlite3_limit(database, SQLITE_LIMIT_EXPR_DEPTH, 100);
  sqlite3_limit(database, SQLITE_LIMIT_COMPOUND_SELECT, 10);
  sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
  sqlite3_limit(database, SQLITE_LIMIT_WORKER_THREADS, 0);
}

std::vector<std::string> columnNames(sqlite3_stmt* statement) {
  std::vector<std::string> names;
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    const char* const name = sqlite3_column_name(statement, i);
    names.emplace_back(name == nullptr ? "" : name);
  }
  return names;
}

// ---- Copying

// The image as a connection of its own, in which nothing of the schema is trusted.
SqliteDatabase openImage(std::string& image, int& budget) {
  if (!image.starts_with(kSqliteMark)) return {nullptr, sqlite3_close};  // as if it were empty
  for (std::size_t i = kJournalBytes; i < kJournalBytes + 2 && i < image.size(); ++i) {
    if (image[i] == kJournalBeside) image[i] = kJournalInside;
  }
  SqliteDatabase source = openInMemory();
  if (source == nullptr) return source;
  sqlite3_db_config(source.get(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(source.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(source.get(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(source.get(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  setLimits(source.get());
  sqlite3_progress_handler(source.get(), kStepsPerTick, tick, &budget);
  auto* const bytes = reinterpret_cast<unsigned char*>(image.data());
  const auto size = static_cast<sqlite3_int64>(image.size());
  if (sqlite3_deserialize(source.get(), "main", bytes, size, size, SQLITE_DESERIALIZE_READONLY) !=
      SQLITE_OK) {
    source.reset();
  }
  return source;
}

// Plain tables only: a virtual one is a program of its own. Nothing for an image that is none.
std::optional<std::vector<std::string>> tableNames(sqlite3* source) {
  const SqliteStatement statement = prepareStatement(
      source, "SELECT name FROM sqlite_schema WHERE type = 'table' AND rootpage > 0 LIMIT 1000");
  if (statement == nullptr) return std::nullopt;
  std::vector<std::string> names;
  int step = SQLITE_ROW;
  while ((step = sqlite3_step(statement.get())) == SQLITE_ROW) {
    const auto* const name = sqlite3_column_text(statement.get(), 0);
    if (name != nullptr) names.emplace_back(reinterpret_cast<const char*>(name));
  }
  if (step != SQLITE_DONE) return std::nullopt;
  return names;
}

// The kind of values by which a column compares, from the type that it was declared with.
const char* kindOf(const char* declared) {
  const std::string type = lowerCased(declared == nullptr ? "" : declared);
  const auto names = [&type](const char* word) { return type.find(word) != std::string::npos; };
  if (names("int")) return "INTEGER";
  if (names("char") || names("clob") || names("text")) return "TEXT";
  if (type.empty() || names("blob")) return "BLOB";
  return names("real") || names("floa") || names("doub") ? "REAL" : "NUMERIC";
}

std::string tableDefinition(const std::string& table, sqlite3_stmt* rows) {
  std::string columns;
  int i = 0;
  for (const std::string& name : columnNames(rows)) {
    columns += (columns.empty() ? "" : ", ") + quotedName(name) + " " +
               kindOf(sqlite3_column_decltype(rows, i++)) + " COLLATE " + kCollation;
  }
  return "CREATE TABLE " + quotedName(table) + " (" + columns + ")";
}

bool run(sqlite3* database, const std::string& statement) {
  return sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool copyRows(sqlite3_stmt* rows, sqlite3_stmt* insert) {
  int step = SQLITE_ROW;
  while ((step = sqlite3_step(rows)) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(rows); ++i) {
      sqlite3_bind_value(insert, i + 1, sqlite3_column_value(rows, i));
    }
    if (sqlite3_step(insert) != SQLITE_DONE) return false;
    sqlite3_reset(insert);
  }
  return step == SQLITE_DONE;
}

bool copyTable(sqlite3* source, sqlite3* target, const std::string& table) {
  const SqliteStatement rows = prepareStatement(source, "SELECT * FROM " + quotedName(table));
  if (rows == nullptr || !run(target, tableDefinition(table, rows.get()))) return false;
  std::string places = "?";
  for (int i = 1; i < sqlite3_column_count(rows.get()); ++i) places += ", ?";
  const SqliteStatement insert =
      prepareStatement(target, "INSERT INTO " + quotedName(table) + " VALUES (" + places + ")");
  return insert != nullptr && copyRows(rows.get(), insert.get());
}

// A table that cannot be read to its end is as good as absent: half of its materials would mislead.
void copyOrLeaveOut(sqlite3* source, sqlite3* target, const std::string& table) {
  run(target, "SAVEPOINT before");
  if (!copyTable(source, target, table)) run(target, "ROLLBACK TO before");
  run(target, "RELEASE before");
}

// ---- Asking

// The statement if it is one that may run, and the only one. A byte of 0 would end the text early.
SqliteStatement soleStatement(sqlite3* database, const std::string& text) {
  std::string_view behind;
  SqliteStatement statement = prepareStatement(database, text, &behind);
  const bool alone = behind.find_first_not_of(" ;\t\r\n") == std::string_view::npos;
  if (!alone) statement.reset();
  return statement;
}

}  // namespace

int compareFeedsTexts(std::string_view a, std::string_view b) {
  a = withoutBlanksAtEnd(a);
  b = withoutBlanksAtEnd(b);
  if (isAscii(a) && isAscii(b)) return compareAscii(a, b);
  return lowerCased(a).compare(lowerCased(b));
}

void FeedsTexts::add(std::string text) {
  if (withoutBlanksAtEnd(text).empty() || !known_.insert(text).second) return;
  texts_.push_back(std::move(text));
}

// ---- Rows

int FeedsRow::indexOf(std::string_view column) const {
  const auto found =
      std::find_if(columns_.begin(), columns_.end(),
                   [column](const std::string& name) { return equalIgnoringCase(name, column); });
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

std::optional<std::string> FeedsRow::text(std::string_view column) const {
  const int index = indexOf(column);
  const auto* const text = index < 0 ? nullptr : sqlite3_column_text(statement_, index);
  if (text == nullptr) return std::nullopt;
  const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_, index));
  return toUtf8({reinterpret_cast<const char*>(text), length});
}

double FeedsRow::number(std::string_view column) const {
  const int index = indexOf(column);
  const double value = index < 0 ? 0 : sqlite3_column_double(statement_, index);
  return std::isfinite(value) ? value : 0;
}

// ---- The database

// What statements may touch, and for how long they may run.
class FeedsDatabase::Guard {
 public:
  explicit Guard(const std::vector<std::string>& tables) {
    for (const std::string& table : tables) tables_.insert(lowerCased(table));
  }

  void watch(sqlite3* database) {
    setLimits(database);
    sqlite3_set_authorizer(database, mayRun, this);
    sqlite3_progress_handler(database, kStepsPerTick, tick, &ticksLeft_);
  }

  void beginQuery() { ticksLeft_ = kTicksPerQuery; }

 private:
  static int mayRun(void* guard, int action, const char* table, const char* /*column*/,
                    const char* /*database*/, const char* /*trigger*/) {
    if (action == SQLITE_SELECT) return SQLITE_OK;
    const auto& tables = static_cast<Guard*>(guard)->tables_;
    const bool reads =
        action == SQLITE_READ && table != nullptr && tables.contains(lowerCased(table));
    return reads ? SQLITE_OK : SQLITE_DENY;
  }

  std::set<std::string> tables_;  // in lower case
  int ticksLeft_ = 0;
};

FeedsDatabase::FeedsDatabase() : database_(openInMemory()) {}

FeedsDatabase::~FeedsDatabase() = default;

std::unique_ptr<FeedsDatabase> FeedsDatabase::fromImage(std::string image) {
  int budget = kTicksPerCopy;
  const SqliteDatabase source = openImage(image, budget);
  const auto tables = source == nullptr ? std::nullopt : tableNames(source.get());
  if (!tables) return nullptr;
  std::unique_ptr<FeedsDatabase> copy(new FeedsDatabase);
  sqlite3* const target = copy->database_.get();
  if (target == nullptr || !run(target, kLargestCopy)) return nullptr;
  sqlite3_create_collation(target, kCollation, SQLITE_UTF8, nullptr, collate);
  run(target, "BEGIN");
  for (const std::string& table : *tables) copyOrLeaveOut(source.get(), target, table);
  run(target, "COMMIT");
  copy->guard_ = std::make_unique<Guard>(*tables);
  copy->guard_->watch(target);
  return copy;
}

void FeedsDatabase::query(const std::string& text,
                          const std::function<bool(const FeedsRow&)>& visit) const {
  guard_->beginQuery();
  const SqliteStatement statement = soleStatement(database_.get(), text);
  if (statement == nullptr) return;
  const std::vector<std::string> columns = columnNames(statement.get());
  const FeedsRow row(statement.get(), columns);
  while (sqlite3_step(statement.get()) == SQLITE_ROW && visit(row)) {
  }
}

std::vector<std::string> FeedsDatabase::columnsOf(const std::string& text) const {
  guard_->beginQuery();
  const SqliteStatement statement = soleStatement(database_.get(), text);
  return statement == nullptr ? std::vector<std::string>() : columnNames(statement.get());
}

}  // namespace tess
