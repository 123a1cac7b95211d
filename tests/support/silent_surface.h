// A drawing surface that paints nothing and keeps no list: for benchmarks, and for tests of large
// drawings.
// Owns: SilentSurface, SilentDesk.
#pragma once

#include <string>

#include "tests/support/drafting_desk.h"

namespace tess::testing {

class SilentSurface : public DrawingSurface {
 public:
  explicit SilentSurface(CallLog& /*log*/) {}

  SurfaceArea area() const override { return {0, 0, 1000, 800}; }
  void Move(const SurfaceArea& /*area*/) override {}
  bool Enabled() const override { return true; }
  void setEnabled(bool /*enabled*/) override {}
  void setRepaint(bool /*on*/) override {}
  void Refresh() override {}
  void Cls() override {}
  void line(const WorldBox& /*ends*/, Rgb /*color*/) override {}
  void box(const WorldBox& /*corners*/, Rgb /*color*/, bool /*filled*/) override {}
  void arc(const WorldArc& /*arc*/, Rgb /*color*/) override {}
  void text(float /*x*/, float /*y*/, const std::string& /*text*/, Rgb /*color*/) override {}
};

using SilentDesk = DraftingDesk<SilentSurface>;

}  // namespace tess::testing
