// A screen that nobody sees, for scripts, file jobs and tests: the surface keeps its scale and
// forgets what is painted, the pointer goes where it is sent, and time stands still until told.
// Owns: VirtualSurface, VirtualPointer, VirtualScreen.
#pragma once

#include <functional>
#include <string>

#include "core/timers.h"
#include "display/drawing_target.h"
#include "display/pointer.h"
#include "shell/interaction.h"

namespace tess {

class VirtualSurface : public DrawingSurface {
 public:
  SurfaceArea area() const override { return area_; }
  void Move(const SurfaceArea& area) override { area_ = area; }
  bool Enabled() const override { return enabled_; }
  void setEnabled(bool enabled) override { enabled_ = enabled; }
  void setRepaint(bool /*on*/) override {}
  void Refresh() override {}
  void Cls() override {}
  void line(const WorldBox& /*ends*/, Rgb /*color*/) override {}
  void box(const WorldBox& /*corners*/, Rgb /*color*/, bool /*filled*/) override {}
  void arc(const WorldArc& /*arc*/, Rgb /*color*/) override {}
  void text(float /*x*/, float /*y*/, const std::string& /*text*/, Rgb /*color*/) override {}

 private:
  SurfaceArea area_;
  bool enabled_ = true;
};

class VirtualPointer : public Pointer {
 public:
  int MousePointer() const override { return shape_; }
  void setMousePointer(int shape) override { shape_ = shape; }
  void setMouseIcon(const std::string& /*path*/) override {}
  void warp(int /*pixelX*/, int /*pixelY*/) override {}
  bool isOverSurface() const override { return true; }
  void releaseCapture() override {}
  void focusSurface() override {}

 private:
  int shape_ = kDefaultShape;
};

inline constexpr int kVirtualWidth = 1000;
inline constexpr int kVirtualHeight = 800;

struct VirtualScreen {
  VirtualSurface picDrawing;
  VirtualPointer pointer;
  VirtualTimers timers;
  ScreenPorts ports{picDrawing, pointer, timers, {0, 0, kVirtualWidth, kVirtualHeight}};
};

}  // namespace tess
