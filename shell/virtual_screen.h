// A screen that nobody sees, for scripts, file jobs and tests: the surface keeps its scale and
// forgets what is painted, the pointer arrives where it is sent, and time stands still until told.
// Owns: VirtualSurface, VirtualPointer, VirtualScreen.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/timers.h"
#include "display/drawing_target.h"
#include "display/pointer.h"
#include "shell/interaction.h"
#include "shell/pixel_size.h"

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

// A pointer that is sent somewhere arrives as an event: when time next passes, not at once.
class VirtualPointer : public Pointer {
 public:
  explicit VirtualPointer(Timers& timers)
      : arrival_(timers.create({"pointerArrival", /*intervalMs=*/0, /*oneShot=*/true}, [this] {
          if (onArrival) onArrival(pixelX_, pixelY_);
        })) {}

  int MousePointer() const override { return shape_; }
  void setMousePointer(int shape) override { shape_ = shape; }
  void setMouseIcon(const std::string& /*path*/) override {}
  void warp(int pixelX, int pixelY) override {
    pixelX_ = pixelX;
    pixelY_ = pixelY;
    arrival_->setEnabled(true);
  }
  bool isOverSurface() const override { return true; }
  void releaseCapture() override {}
  void focusSurface() override {}

  // Pixels of the surface, which may lie outside of it.
  std::function<void(int pixelX, int pixelY)> onArrival;

 private:
  std::unique_ptr<Timer> arrival_;
  int shape_ = kDefaultShape;
  int pixelX_ = 0, pixelY_ = 0;
};

struct VirtualScreen {
  explicit VirtualScreen(PixelSize size = {}) : area{0, 0, size.width, size.height} {}

  VirtualTimers timers;
  VirtualSurface picDrawing;
  VirtualPointer pointer{timers};
  Bounds area;
  ScreenPorts ports{picDrawing, pointer, timers, area};
};

}  // namespace tess
