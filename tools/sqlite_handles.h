// Connections and statements of SQLite that close themselves.
// Owns: SqliteDatabase, SqliteStatement, openInMemory, prepareStatement, quotedName.
#pragma once

#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>

namespace tess {

using SqliteDatabase = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;
using SqliteStatement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

// An empty database in memory that never touches the disk; null without memory.
inline SqliteDatabase openInMemory() {
  sqlite3* database = nullptr;
  constexpr int kFlags =
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_NOMUTEX;
  const bool opened = sqlite3_open_v2(":memory:", &database, kFlags, nullptr) == SQLITE_OK;
  SqliteDatabase owned(database, sqlite3_close);
  if (!opened || sqlite3_exec(database, "PRAGMA temp_store = MEMORY", nullptr, nullptr, nullptr)) {
    owned.reset();
  }
  return owned;
}

// The first statement of the text; null when it cannot be run. `behind` is what follows it.
inline SqliteStatement prepareStatement(sqlite3* database, std::string_view text,
                                        std::string_view* behind = nullptr) {
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()), &statement, &tail);
  if (behind != nullptr && tail != nullptr) *behind = text.substr(tail - text.data());
  return {statement, sqlite3_finalize};
}

// A name of a table or column as a statement of our own has it.
inline std::string quotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char letter : name) quoted.append(letter == '"' ? 2 : 1, letter);
  return quoted + '"';
}

}  // namespace tess
