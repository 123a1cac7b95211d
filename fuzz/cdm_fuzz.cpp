// Feeds any bytes to the reader of drawing files. What it takes in is written and read again, which
// must give the same text: a drawing loses nothing by being saved.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/drawing_format.h"
#include "core/drawing_store.h"
#include "core/runtime_failure.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

// False when the content ends in a failure; the rows before it are there all the same.
bool read(tess::DrawingStore& store, std::string content) {
  tess::FieldReader fields("fuzz.cdm", std::move(content));
  try {
    store.cncoutputpath = tess::readfileheader(store, fields).cncoutputpath;
    tess::readSegments(store, fields);
    return true;
  } catch (const tess::RuntimeFailure&) {
    return false;
  }
}

std::string write(tess::DrawingStore& store) {
  std::string text;
  tess::writefileheader(store, text);
  tess::appendSegments(text, store);
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tess::DrawingStore store;
  read(store, std::string(reinterpret_cast<const char*>(data), size));
  require(tess::isConsistent(store));
  // Only what a header sets to a positive depth comes back as it was.
  if (store.cfg_final_depth < 0) store.cfg_final_depth = 0;
  const std::string text = write(store);
  tess::DrawingStore again;
  again.cfg_tool_spacing = store.cfg_tool_spacing;
  require(read(again, text));
  require(write(again) == text);
  return 0;
}
