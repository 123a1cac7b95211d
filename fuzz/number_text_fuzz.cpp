// Feeds any bytes to the number parsers and any float to the writers. The first four bytes are a
// value for the writers; all bytes are a text for the parsers, the rest a pattern.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "core/number_text.h"
#include "core/runtime_failure.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

// A number that fits no 32-bit value is refused by a run-time failure, and by nothing else.
template <typename Parse>
void parseOrRefuse(Parse parse) {
  try {
    parse();
  } catch (const tess::RuntimeFailure&) {
  }
}

void parseText(std::string_view text) {
  require(!std::isnan(tess::Val(text)));
  parseOrRefuse([text] { require(std::isfinite(tess::parseFloat(text))); });
  parseOrRefuse([text] { static_cast<void>(tess::parseInteger(text)); });
}

bool isPlainDecimal(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return text.find_first_not_of("0123456789.") == std::string_view::npos;
}

void writeAndReadBack(float value, std::string_view pattern) {
  require(tess::parseFloat(tess::plainText(value)) == value);
  require(tess::parseFloat(tess::fileText(value)) == value);
  require(tess::parseFloat(tess::signBlankText(value)) == value);
  require(isPlainDecimal(tess::plainText(value)));
  require(isPlainDecimal(tess::formatNumber(value, pattern)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  parseText(bytes);
  float value = 0;
  if (size < sizeof value) return 0;
  std::memcpy(&value, data, sizeof value);
  if (std::isfinite(value)) writeAndReadBack(value, bytes.substr(sizeof value));
  return 0;
}
