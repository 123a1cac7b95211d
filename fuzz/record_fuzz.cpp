// Feeds any bytes to the reader of drawing records. What it takes in is written as one entry and
// read again, which must give the same rows.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/drawing_store.h"
#include "drafting/drawing_record.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

std::string written(const tess::DrawingStore& store) {
  std::string record;
  tess::appendRecordHead(record);
  tess::appendWholeDrawing(record, store, tess::OpenDrawing());
  return record;
}

}  // namespace

// The checksum of an entry would turn away nearly everything: the bytes behind the first choose
// between a record as it stands and the content of its entries.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::string record(bytes);
  if (size > 0 && data[0] == 0) {
    record.clear();
    tess::appendRecordHead(record);
    tess::appendRecordEntry(record, bytes.substr(1));
  }
  tess::DrawingStore store;
  tess::readRecord(record, store);
  require(tess::isConsistent(store));
  const std::string once = written(store);
  tess::DrawingStore again;
  require(tess::readRecord(once, again).known);
  require(written(again) == once);
  return 0;
}
