// The port to the system's pointer: its shape, its place and who hears of it.
// Owns: kDefaultShape, kHourglassShape, kCustomShape, Pointer, BusyPointer.
#pragma once

#include <string>

namespace tess {

// The numbers of the pointer shapes.
inline constexpr int kDefaultShape = 0;
inline constexpr int kHourglassShape = 11;
inline constexpr int kCustomShape = 99;  // the icon last given

class Pointer {
 public:
  virtual ~Pointer() = default;

  virtual int MousePointer() const = 0;  // the shape over the main window
  virtual void setMousePointer(int shape) = 0;
  virtual void setMouseIcon(const std::string& path) = 0;  // what kCustomShape shows

  // Puts the pointer on a pixel of the drawing surface, counted from its upper left corner inside
  // the border. The platform reports the move as an event like any other.
  virtual void warp(int pixelX, int pixelY) = 0;
  virtual bool isOverSurface() const = 0;  // the window under it is the drawing surface
  virtual void releaseCapture() = 0;
  virtual void focusSurface() = 0;  // gives the drawing surface the keyboard
};

// The hourglass as long as it lives: what a command shows that takes its time.
class BusyPointer {
 public:
  explicit BusyPointer(Pointer& pointer) : pointer_(pointer), shape_(pointer.MousePointer()) {
    pointer_.setMousePointer(kHourglassShape);
  }
  ~BusyPointer() { pointer_.setMousePointer(shape_); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Pointer& pointer_;
  int shape_;
};

}  // namespace tess
