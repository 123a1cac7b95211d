// Feeds any bytes to the copy of a speeds-and-feeds database, and then asks it what the dialogs
// would ask, whatever the texts in it are.
#include <cstdint>
#include <string>

#include "tools/cutting_advice.h"
#include "tools/feeds_database.h"
#include "tools/recommendation.h"

namespace {

using tess::FeedsRow;

void askAll(const tess::FeedsDatabase& database) {
  database.query(tess::categoriesStatement(), [&](const FeedsRow& row) {
    const std::string table = row.text("Table Name").value_or("");
    const std::string materials = tess::materialsStatement(table);
    database.columnsOf(materials);
    database.query(materials, [&](const FeedsRow& material) {
      material.number("Tool_End_HSS");
      return !material.text("Material").value_or("").empty();
    });
    return true;
  });
  for (const char* table : {"ChipLoads", "ChipLoadGroups", "MaterialCodes"}) {
    database.query(tess::materialsStatement(table),
                   [](const FeedsRow& row) { return row.text("Description").has_value(); });
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto database =
      tess::FeedsDatabase::fromImage(std::string(reinterpret_cast<const char*>(data), size));
  if (database != nullptr) askAll(*database);
  return 0;
}
