// The speeds-and-feeds database that the tool chest and the title block ask: where it lies, the
// opened copy of it, and the statements that it is asked with.
// Owns: kSpeedsFeedsName, SpeedsFeeds, LocateSpeedsFeeds, OpenSpeedsFeeds, PartMaterial,
//       partMaterial, textInStatement, categoriesStatement, categoryStatement, materialsStatement,
//       materialStatement, recommendationStatement, codeStatement, descriptionStatement,
//       materialCategories, tableOfCategory, LookupConditionCode, conditionDescription.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/int16.h"
#include "core/session.h"
#include "tools/feeds_database.h"

namespace tess {

struct DrawingSettings;

inline constexpr char kSpeedsFeedsName[] = "SpeedsFeeds.MDB";

// A connection to the database: a copy in memory, kept for as long as the file stays as it was.
// Nothing is ever written to the file.
class SpeedsFeeds {
 public:
  // Jet files are read by `jetReader`, a program that answers kReadJetOption; without one they
  // count as absent.
  explicit SpeedsFeeds(std::string jetReader = {}) : jetReader_(std::move(jetReader)) {}

  bool isOpen() const { return database_ != nullptr; }
  // A connection that is not open gives no rows.
  void query(const std::string& statement, const std::function<bool(const FeedsRow&)>& visit) const;
  std::vector<std::string> columnsOf(const std::string& statement) const;

  // See OpenSpeedsFeeds.
  bool open(std::string_view path);

 private:
  // Which file, and in which state, the copy was made of.
  struct Version {
    std::string path;
    std::array<std::int64_t, 7> facts{};
    bool operator==(const Version&) const = default;
  };

  std::string jetReader_;
  std::unique_ptr<FeedsDatabase> database_;
  std::optional<Version> version_;
};

// The full path of the database: in the folder of the machine-control program, which its location
// record in the program's folder names, or which stands where it is usually installed; else in the
// program's folder, whether it is there or not.
std::string LocateSpeedsFeeds(const Session& session);

// -1 when the database is open: an SQLite or Jet file, told by its first bytes. Anything else, and
// whatever goes wrong, is 0 and closes the connection. A file that is open already and has not
// changed is not read again.
Flag OpenSpeedsFeeds(SpeedsFeeds& connection, std::string_view path);

// What the part is made of, as the settings have it.
struct PartMaterial {
  std::string category, material, hardness;
  std::string condition;  // as its description
};
PartMaterial partMaterial(const DrawingSettings& settings);

// The statements. Texts stand in them as they are: one that holds a quote breaks its statement,
// which then gives no rows.
std::string textInStatement(std::string_view text);
std::string categoriesStatement();
std::string categoryStatement(std::string_view category);
std::string materialsStatement(std::string_view table);
std::string materialStatement(std::string_view table, std::string_view material, bool byHardness);
// `code` is that of the condition; hardness and condition count only when they are not empty.
std::string recommendationStatement(std::string_view table, const PartMaterial& part,
                                    std::string_view code);
std::string codeStatement(std::string_view description);
std::string descriptionStatement(std::string_view code);

// In the order of display, each once.
std::vector<std::string> materialCategories(const SpeedsFeeds& connection);

// The name of the table with a category's materials; "" when there is none.
std::string tableOfCategory(const SpeedsFeeds& connection, std::string_view category);

// The code by which the tables know a condition: the description itself when no row has it.
void LookupConditionCode(const SpeedsFeeds& connection, const std::string& description,
                         std::string& code);

// The other way round: the code itself when it has no description.
std::string conditionDescription(const SpeedsFeeds& connection, const std::string& code);

}  // namespace tess
