// Feeds any bytes to the reader of the branding file. The product never goes without a name.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/drawing_store.h"
#include "core/setup_file.h"
#include "tests/support/recording_session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tess::DrawingStore store;
  tess::testing::RecordingHost recording;
  tess::testing::RecordingListener listener;
  tess::Session session(store, recording.host, listener);
  tess::FieldReader fields("fuzz.cfg", std::string(reinterpret_cast<const char*>(data), size));
  tess::readBranding(session, fields);
  if (session.productname.empty()) std::abort();
  return 0;
}
