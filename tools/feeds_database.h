// A speeds-and-feeds database as the program holds it: a copy in memory that answers one statement
// at a time and can do nothing else.
// Owns: kSqliteMark, compareFeedsTexts, sameFeedsText, FeedsTexts, FeedsRow, FeedsDatabase.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace tess {

// The first bytes of an SQLite file.
inline constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);

// How the database compares texts: without regard to case and to blanks at the end. Below 0, 0 or
// above 0.
int compareFeedsTexts(std::string_view a, std::string_view b);
inline bool sameFeedsText(std::string_view a, std::string_view b) {
  return compareFeedsTexts(a, b) == 0;
}

// Texts in the order in which they come, each once; empty ones count for nothing.
class FeedsTexts {
 public:
  void add(std::string text);
  std::vector<std::string> take() { return std::exchange(texts_, {}); }

 private:
  struct Less {
    bool operator()(const std::string& a, const std::string& b) const {
      return compareFeedsTexts(a, b) < 0;
    }
  };

  std::vector<std::string> texts_;
  std::set<std::string, Less> known_;
};

// The row that a statement is at. Column names are found whatever their case.
class FeedsRow {
 public:
  FeedsRow(sqlite3_stmt* statement, const std::vector<std::string>& columns)
      : statement_(statement), columns_(columns) {}

  // Nothing for a null, and for a column that the result lacks.
  std::optional<std::string> text(std::string_view column) const;
  // 0 for these, and for what is no finite number.
  double number(std::string_view column) const;

 private:
  int indexOf(std::string_view column) const;

  sqlite3_stmt* statement_;
  const std::vector<std::string>& columns_;
};

class FeedsDatabase {
 public:
  // From the bytes of an SQLite file, which may hold anything: tables that cannot be read whole are
  // left out. Null when the bytes are no database at all.
  static std::unique_ptr<FeedsDatabase> fromImage(std::string image);
  ~FeedsDatabase();
  FeedsDatabase(const FeedsDatabase&) = delete;
  FeedsDatabase& operator=(const FeedsDatabase&) = delete;

  // Calls `visit` with each row of a SELECT, until it returns false. Anything else (another kind of
  // statement, a second one behind it, functions, tables that are not there, a broken text, more
  // work than any table of materials can ask for) gives no rows.
  void query(const std::string& statement, const std::function<bool(const FeedsRow&)>& visit) const;
  // The column names that a statement's rows have or would have; none when it gives no rows.
  std::vector<std::string> columnsOf(const std::string& statement) const;

 private:
  class Guard;
  FeedsDatabase();

  std::unique_ptr<Guard> guard_;  // goes after the database, which calls it
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
};

}  // namespace tess
