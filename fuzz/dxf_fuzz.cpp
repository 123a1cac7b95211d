// Feeds any bytes to the reader of DXF files, text or binary, and what it takes in to both
// conversions; the same bytes go to the plain reader. Trouble must end in a failure that names the
// file, and never in more than the tables hold.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "import/dxf_import.h"
#include "import/load_dxf.h"

namespace {

constexpr char kFile[] = "fuzz.dxf";

void require(bool condition) {
  if (!condition) std::abort();
}

// Goes on after every failure.
class YesPrompts : public tess::Prompts {
 public:
  tess::Answer showMessage(const tess::Message& /*message*/) override { return tess::Answer::Yes; }
  std::optional<std::string> chooseFile(const tess::FileRequest& /*request*/) override {
    return std::nullopt;
  }
  void showModal(tess::Form& /*form*/) override {}
};

void read(tess::DxfDocument& document, std::string_view content) {
  try {
    tess::readDxf(document, content, kFile);
  } catch (const tess::RuntimeFailure& failure) {
    require(failure.description().starts_with(kFile));
    tess::takeCallChain();
  }
}

// A row for each entity and vertex at most, and every number of it one that the tables can hold.
void requireSound(const tess::DrawingStore& store) {
  require(tess::isConsistent(store));
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const tess::SegmentRow row = tess::segmentRow(store, sg);
    for (const float value : {row.x0, row.y0, row.x1, row.y1, row.xc, row.yc}) {
      require(std::isfinite(value));
    }
  }
}

void convert(const tess::DxfDocument& document, bool exact) {
  tess::DrawingStore store;
  YesPrompts prompts;
  tess::ChangeLog log;
  tess::Changes changes(store, log);
  tess::Change change(changes);
  tess::DxfRows rows(change, prompts, document);
  store.cfg_tolerance = 0.001F;
  tess::importDxf(document, store, rows, {.connectPoints = true, .exactGeometry = exact});
  require(change.keep());
  requireSound(store);
}

void readPlainly(std::string content) {
  tess::DrawingStore store;
  tess::FieldReader fields(kFile, std::move(content));
  tess::ChangeLog log;
  tess::Changes changes(store, log);
  tess::Change change(changes);
  try {
    tess::readPlainDxf(change, fields);
  } catch (const tess::RuntimeFailure&) {
    tess::takeCallChain();
  }
  require(change.keep());
  requireSound(store);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string content(reinterpret_cast<const char*>(data), size);
  tess::DxfDocument document;
  read(document, content);
  convert(document, /*exact=*/false);
  convert(document, /*exact=*/true);
  readPlainly(content);
  return 0;
}
