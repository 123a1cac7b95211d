// A drawing surface that paints nothing and keeps no list: for benchmarks, and for tests of large
// drawings.
// Owns: SilentSurface, SilentDrafting.
#pragma once

#include "shell/virtual_screen.h"
#include "tests/support/drafting_test_context.h"

namespace tess::testing {

class SilentSurface : public VirtualSurface {
 public:
  explicit SilentSurface(CallLog& /*log*/) { Move({0, 0, 1000, 800}); }
  bool requestFrame() override { return hasFrames; }

  bool hasFrames = false;
};

using SilentDrafting = DraftingTest<SilentSurface>;

}  // namespace tess::testing
