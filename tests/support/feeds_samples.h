// Speeds-and-feeds databases for tests: small ones made of SQL text, the shipped one, and tables of
// CSV files as they stand.
// Owns: sqliteImage, kSmallFeeds, smallFeeds, shippedFeeds, CsvTable, feedsTable.
#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sqlite3.h>
#include <string>
#include <vector>

#include "core/number_text.h"
#include "core/text.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"
#include "tools/speeds_feeds.h"

namespace tess::testing {

// The bytes of a database that these statements make.
inline std::string sqliteImage(const std::string& statements) {
  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  char* error = nullptr;
  sqlite3_exec(database, statements.c_str(), nullptr, nullptr, &error);
  EXPECT_EQ(error, nullptr) << error;
  sqlite3_free(error);
  sqlite3_int64 size = 0;
  unsigned char* const bytes = sqlite3_serialize(database, "main", &size, 0);
  std::string image(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
  sqlite3_free(bytes);
  sqlite3_close(database);
  return image;
}

// Steels with all columns, plastics without hardness and condition, a category that is not for
// milling, and one whose table is not there.
inline constexpr char kSmallFeeds[] = R"(
CREATE TABLE MaterialCategory ("Material Category" TEXT, "Table Name" TEXT, "Table #" INTEGER,
                               Milling INTEGER);
INSERT INTO MaterialCategory VALUES ('Plastics', 'Plastics', 10, 1), ('Steels', 'Steels', 2, 1),
  ('Drills', 'Drills', 1, 0), ('Ghosts', 'Nowhere', 3, 1);
CREATE TABLE MaterialCodes (Description TEXT, ConditionCode TEXT);
INSERT INTO MaterialCodes VALUES ('Annealed', 'A'), ('Cold Drawn', 'CD');
CREATE TABLE Steels (Material TEXT, Hardness TEXT, "Material Condition" TEXT,
  Tool_End_HSS REAL, FeedMin_End_HSS REAL, FeedMax_End_HSS REAL,
  Tool_Slot_HSS REAL, FeedMin_Slot_HSS REAL, FeedMax_Slot_HSS REAL,
  Tool_End_Carbide REAL, FeedMin_End_Carbide REAL, FeedMax_End_Carbide REAL,
  Tool_Face_Carbide REAL, FeedMin_Face_Carbide REAL, FeedMax_Face_Carbide REAL);
INSERT INTO Steels VALUES
  ('1018, cold', '175-225', 'CD', 85, 0.9, 3.7, 70, 0.66, 2.7, 350, 0.9, 3.7, 635, 8, 12),
  ('1018, cold', '125-175', 'A', 95, 0.9, 3.7, 75, 0.66, 2.7, 425, 0.9, 3.7, 730, 8, 12),
  ('1018, cold', '125-175', 'XX', 90, 0.9, NULL, 72, 0.6, 2.6, NULL, 0.9, 3.7, 700, 8, 12);
CREATE TABLE Plastics (Material TEXT, Tool_End_HSS REAL, FeedMin_End_HSS REAL,
                       FeedMax_End_HSS REAL);
INSERT INTO Plastics VALUES ('Acetal', 920, 1, 4), ('Nylon', 920, 1, 4), ('Acetal', 1, 1, 1);
)";

// The program's folder with that database in it.
inline std::string smallFeeds(const TempFolder& folder, const std::string& more = {}) {
  return folder.write(kSpeedsFeedsName, sqliteImage(kSmallFeeds + more));
}

inline std::string shippedFeeds() {
  return std::string(TESSIMO_SOURCE_DIR "/data/") + kSpeedsFeedsName;
}

// Rows of cells by column name.
using CsvTable = std::vector<std::map<std::string, std::string>>;

// A table of feeds/: cells with commas are quoted, and no cell holds a quote.
inline CsvTable feedsTable(const std::string& name) {
  std::ifstream file(TESSIMO_SOURCE_DIR "/feeds/" + name + ".csv");
  EXPECT_TRUE(file) << name;
  const auto cells = [](const std::string& line) {
    std::vector<std::string> found(1);
    bool inQuotes = false;
    for (const char letter : line) {
      if (letter == '"')
        inQuotes = !inQuotes;
      else if (letter == ',' && !inQuotes)
        found.emplace_back();
      else
        found.back() += letter;
    }
    return found;
  };
  CsvTable table;
  std::string line;
  std::getline(file, line);
  const std::vector<std::string> columns = cells(line);
  while (std::getline(file, line)) {
    const std::vector<std::string> row = cells(line);
    EXPECT_EQ(row.size(), columns.size()) << line;
    for (auto& named = table.emplace_back(); named.size() < columns.size();) {
      named[columns[named.size()]] = row[named.size()];
    }
  }
  EXPECT_FALSE(table.empty()) << name;
  return table;
}

}  // namespace tess::testing
