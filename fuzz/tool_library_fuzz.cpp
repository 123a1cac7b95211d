// Feeds any bytes to both readers of tool libraries. What they take in goes out and comes back as
// it was, and a table that was exported over changes no more.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/drawing_store.h"
#include "tools/tool_library.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void requireThatItComesBack(const tess::DrawingStore& store) {
  const std::string csv = tess::toolCsv(store);
  tess::DrawingStore again;
  again.units = store.units;
  require(tess::importToolCsv(again, csv, "fuzz.csv").problems.empty());
  require(tess::toolCsv(again) == csv);
}

}  // namespace

// The first byte chooses the units.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  tess::DrawingStore store;
  store.units = data[0] % 2 == 0 ? "I" : "M";
  tess::importToolCsv(store, text, "fuzz.csv");
  requireThatItComesBack(store);
  tess::importToolTable(store, text, "fuzz.tbl");
  requireThatItComesBack(store);
  const std::string table = tess::toolTable(store, text);
  require(tess::toolTable(store, table) == table);
  return 0;
}
