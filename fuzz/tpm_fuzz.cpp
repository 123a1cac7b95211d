// Feeds any bytes to the reader of path files. What it takes in is written and read again, which
// must give the same text.
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

void read(tess::DrawingStore& store, std::string content) {
  tess::FieldReader fields("fuzz.tpm", std::move(content));
  tess::readPaths(store, fields);
}

std::string write(const tess::DrawingStore& store) {
  std::string text;
  tess::appendPaths(text, store);
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tess::DrawingStore store;
  try {
    read(store, std::string(reinterpret_cast<const char*>(data), size));
  } catch (const tess::RuntimeFailure&) {
    // The rows before it are there all the same.
  }
  require(tess::isConsistent(store));
  const std::string text = write(store);
  tess::DrawingStore again;
  read(again, text);
  require(write(again) == text);
  return 0;
}
