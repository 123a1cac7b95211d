// Puts any bytes as the operator's texts into the statements for a small database. Whatever they
// are, the database is afterwards what it was.
#include <cstdint>
#include <cstdlib>
#include <sqlite3.h>
#include <string>

#include "tools/speeds_feeds.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

std::string smallImage() {
  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  sqlite3_exec(database,
               "CREATE TABLE MaterialCategory ('Material Category', 'Table Name', 'Table #', "
               "Milling); INSERT INTO MaterialCategory VALUES ('Steels', 'Steels', 1, 1);"
               "CREATE TABLE Steels (Material, Hardness, 'Material Condition', Tool_End_HSS);"
               "INSERT INTO Steels VALUES ('1018', '100', 'A', 90), ('1045', '200', 'A', 70);",
               nullptr, nullptr, nullptr);
  sqlite3_int64 size = 0;
  unsigned char* const bytes = sqlite3_serialize(database, "main", &size, 0);
  std::string image(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
  sqlite3_free(bytes);
  sqlite3_close(database);
  return image;
}

int rowsOf(const tess::FeedsDatabase& database, const std::string& statement) {
  int rows = 0;
  database.query(statement, [&](const tess::FeedsRow& row) {
    row.text("Material");
    ++rows;
    return true;
  });
  return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto database = tess::FeedsDatabase::fromImage(smallImage());
  const std::string text(reinterpret_cast<const char*>(data), size);
  const tess::PartMaterial part{
      .category = text, .material = text, .hardness = text, .condition = text};
  for (const std::string& statement :
       {text, tess::categoryStatement(text), tess::materialsStatement(text),
        tess::materialStatement("Steels", text, /*byHardness=*/true),
        tess::recommendationStatement("Steels", part, text), tess::codeStatement(text),
        tess::descriptionStatement(text)}) {
    rowsOf(*database, statement);
  }
  require(rowsOf(*database, "SELECT * FROM Steels;") == 2);
  require(rowsOf(*database, tess::categoriesStatement()) == 1);
  return 0;
}
