// Feeds any bytes to the reader of setup files. Whatever they leave in the store must give a setup
// that reads again without a failure or an unknown entry.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "core/setup_file.h"
#include "tests/support/recording_session.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void read(tess::Session& session, std::string content) {
  tess::FieldReader fields("fuzz.msu", std::move(content));
  tess::readSetup(session, fields);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tess::DrawingStore store;
  tess::testing::RecordingHost recording;
  tess::testing::RecordingListener listener;
  tess::Session session(store, recording.host, listener);
  try {
    read(session, std::string(reinterpret_cast<const char*>(data), size));
  } catch (const tess::RuntimeFailure&) {
    // The entries before it are in force all the same.
  }
  require(tess::isConsistent(store));
  recording.prompts.messages.clear();
  read(session, tess::setupText(session));
  require(recording.prompts.messages.empty());
  return 0;
}
