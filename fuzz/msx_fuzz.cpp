// Feeds any bytes to the reader of post-processor definitions, and then writes a small program
// under whatever definition came of them: a bad file is refused by a run-time failure and by
// nothing else, no definition makes a program that is not whole lines, and one that makes none says
// which row stands in its way.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "cnc/cnc_program.h"
#include "cnc/program_text.h"
#include "core/drawing_store.h"
#include "core/field_reader.h"
#include "core/runtime_failure.h"
#include "core/units.h"
#include "tests/support/recording_session.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

struct Shop {
  Shop() {
    store.cfg_tolerance = 0.001F;
    tess::addPathSegment(store, {.type = tess::kLine, .x1 = 1.5F, .z = -0.25F, .feed = 10});
    tess::addPathSegment(store, {.type = tess::kClockwiseArc,
                                 .x0 = 1.5F,
                                 .x1 = 2.5F,
                                 .y1 = 1,
                                 .xc = 2.5F,
                                 .z = -0.25F,
                                 .feed = 10});
    tess::addPathSegment(
        store, {.type = tess::kClockwiseArc, .x0 = 2, .x1 = 2, .xc = 1, .z = -0.5F, .feed = 5});
    store.toolname[1] = "drill (long)";
    store.toolspindlespeed[1] = 1200;
    for (const int cycle : {79, 81, 82, 83, 84, 86, 89}) addCycle(cycle);
  }

  void addCycle(int cycle) {
    tess::addPathSegment(
        store,
        {.type = cycle, .x0 = 3, .x1 = 4, .xc = 0.3F, .yc = 2, .z = -1, .feed = 3, .code = 101});
  }

  void writeProgram(tess::CncMode mode) {
    try {
      const std::string text = tess::programText(session, definition, state, mode);
      require(text.ends_with(tess::kLineEnd));
      if (isPlain()) require(text.find("\r\nG90\r\nG75\r\n") != std::string::npos);
    } catch (const tess::RuntimeFailure& failure) {
      require(!isPlain());
      require(failure.number() == tess::FailureNumber::InvalidProcedureCall);
      require(failure.source().starts_with("path row "));
    }
  }

  // Without rules of its own no definition stands in the way of a program.
  bool isPlain() const {
    const tess::Dialect& dialect = definition.dialect;
    return dialect.startText == tess::Dialect().startText && dialect.arcTol == 0 &&
           dialect.lineNumbers.step == 0 && dialect.cycles == tess::CycleStyle::Native &&
           !dialect.cycleKeep;
  }

  tess::testing::RecordingHost host;
  tess::DrawingStore store;
  tess::testing::RecordingListener listener;
  tess::Session session{store, host.host, listener};
  tess::PostDefinition definition;
  tess::CncState state;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Shop shop;
  shop.session.startupdone = true;
  tess::FieldReader reader("fuzz.msx", std::string(reinterpret_cast<const char*>(data), size));
  try {
    tess::readPostDefinition(shop.session, shop.definition, reader);
    require(reader.atEnd());
  } catch (const tess::RuntimeFailure& failure) {
    require(failure.number() == tess::FailureNumber::InputPastEnd);
  }
  tess::set_num_formats(shop.session);
  shop.writeProgram(tess::CncMode::Mill);
  shop.writeProgram(tess::CncMode::Lathe);
  return 0;
}
