// Surfaces and surroundings that keep, as one line of text each, what they were asked to do, so
// that a recorded picture reads as a list.
// Owns: CallLog, recorded, recordedPoint, recordedColor, recordedLine, RecordingSurface,
//       RecordingPaper, RecordingPointer, LoggingSurroundings, LoggingPrompts.
#pragma once

#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "display/drawing_target.h"
#include "display/pointer.h"
#include "tests/support/recording_host.h"

namespace tess::testing {

class CallLog {
 public:
  std::vector<std::string> lines;

  void add(std::string line) { lines.push_back(std::move(line)); }

  // All lines, each ended by a line feed; the log is empty afterwards.
  std::string take() {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    lines.clear();
    return text;
  }

  int count(const std::string& prefix) const {
    int found = 0;
    for (const std::string& line : lines) found += line.starts_with(prefix) ? 1 : 0;
    return found;
  }
};

// Four decimals without trailing zeros, which hides the noise of the last bits.
inline std::string recorded(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.4f", value);
  std::string number = text;
  number.erase(number.find_last_not_of('0') + 1);
  if (number.back() == '.') number.pop_back();
  return number == "-0" ? "0" : number;
}

inline std::string recordedPoint(double x, double y) {
  return "(" + recorded(x) + ", " + recorded(y) + ")";
}

// Red, green, blue.
inline std::string recordedColor(Rgb color) {
  char text[16];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", color & 0xFF, color >> 8 & 0xFF,
                color >> 16 & 0xFF);
  return text;
}

inline std::string recordedLine(const WorldBox& ends) {
  return recordedPoint(ends.x0, ends.y0) + "-" + recordedPoint(ends.x1, ends.y1);
}

// The drawing surface `picDrawing`, of 1000 by 800 pixels unless moved.
class RecordingSurface : public DrawingSurface {
 public:
  ~RecordingSurface() override;
  explicit RecordingSurface(CallLog& log) : log_(log) {}

  SurfaceArea area() const override { return area_; }
  void Move(const SurfaceArea& area) override {
    area_ = area;
    log_.add("Move " + recordedPoint(area.left, area.top) + " " + recorded(area.width) + " x " +
             recorded(area.height));
  }
  bool Enabled() const override { return enabled_; }
  void setEnabled(bool enabled) override {
    enabled_ = enabled;
    log_.add(enabled ? "Enabled" : "Disabled");
  }
  void setRepaint(bool on) override { log_.add(on ? "repaint on" : "repaint off"); }
  void Refresh() override { log_.add("Refresh"); }
  bool requestFrame() override {
    if (hasFrames) log_.add("frame requested");
    return hasFrames;
  }
  void Cls() override { log_.add("Cls"); }
  void line(const WorldBox& ends, Rgb color) override {
    log_.add("line " + recordedLine(ends) + " " + recordedColor(color));
  }
  void box(const WorldBox& corners, Rgb color, bool filled) override {
    log_.add((filled ? "filled box " : "box ") + recordedLine(corners) + " " +
             recordedColor(color));
  }
  void arc(const WorldArc& arc, Rgb color) override {
    std::string text = arc.whole ? "circle " : "arc ";
    text += recordedPoint(arc.x, arc.y) + " r " + recorded(arc.radius);
    if (!arc.whole) text += " from " + recorded(arc.start) + " to " + recorded(arc.end);
    if (arc.aspect != 1) text += " aspect " + recorded(arc.aspect);
    log_.add(text + " " + recordedColor(color));
  }
  void text(float x, float y, const std::string& text, Rgb color) override {
    log_.add("text " + recordedPoint(x, y) + " " + text + " " + recordedColor(color));
  }

  bool hasFrames = false;

 protected:
  void propertySet(const char* name, double value) override {
    log_.add(std::string(name) + " " + recorded(value));
  }

 private:
  CallLog& log_;
  SurfaceArea area_{0, 0, 1000, 800};
  bool enabled_ = true;
};

// A target that is no screen: a page of 1000 by 800 units.
class RecordingPaper : public DrawingTarget {
 public:
  ~RecordingPaper() override;
  explicit RecordingPaper(CallLog& log) : log_(log), surface_(log) {}

  void Cls() override { log_.add("Cls"); }
  float ScaleX(float width, ScaleUnit from, ScaleUnit to) const override {
    return PictureBoxProxy(surface_).ScaleX(width, from, to);
  }
  float ScaleY(float height, ScaleUnit from, ScaleUnit to) const override {
    return PictureBoxProxy(surface_).ScaleY(height, from, to);
  }
  PenMode DrawMode() const override { return PenMode::Copy; }
  void setDrawMode(PenMode /*mode*/) override {}  // makes no sense on paper
  PenStyle DrawStyle() const override { return PenStyle::Solid; }
  void setDrawStyle(PenStyle /*style*/) override {}
  void TraceLine(const WorldBox& ends, std::optional<Rgb> color, std::optional<int> Box) override {
    PictureBoxProxy(surface_).TraceLine(ends, color, Box);
  }
  void TraceCircle(float x, float y, float radius, std::optional<Rgb> color,
                   std::optional<float> Start, std::optional<float> End,
                   std::optional<float> Aspect) override {
    PictureBoxProxy(surface_).TraceCircle(x, y, radius, color, Start, End, Aspect);
  }
  float Width() const override { return surface_.area().width; }
  void setWidth(float /*width*/) override {}
  float Height() const override { return surface_.area().height; }
  void setHeight(float /*height*/) override {}
  float ScaleHeight() const override { return surface_.state().scaleHeight; }
  void setScaleHeight(float height) override { surface_.setScaleHeight(height); }
  float ScaleWidth() const override { return surface_.state().scaleWidth; }
  void setScaleWidth(float width) override { surface_.setScaleWidth(width); }
  float ScaleLeft() const override { return surface_.state().scaleLeft; }
  void setScaleLeft(float left) override { surface_.setScaleLeft(left); }
  float ScaleTop() const override { return surface_.state().scaleTop; }
  void setScaleTop(float top) override { surface_.setScaleTop(top); }
  ScaleUnit ScaleMode() const override { return surface_.state().scaleMode; }
  void setScaleMode(ScaleUnit mode) override { surface_.setScaleMode(mode); }

 private:
  CallLog& log_;
  mutable RecordingSurface surface_;
};

class RecordingPointer : public Pointer {
 public:
  ~RecordingPointer() override;
  explicit RecordingPointer(CallLog& log) : log_(log) {}

  int MousePointer() const override { return shape_; }
  void setMousePointer(int shape) override {
    shape_ = shape;
    log_.add("MousePointer " + std::to_string(shape));
  }
  void setMouseIcon(const std::string& path) override { log_.add("MouseIcon " + path); }
  void warp(int pixelX, int pixelY) override { log_.add("warp " + recordedPoint(pixelX, pixelY)); }
  bool isOverSurface() const override { return overSurface; }
  void releaseCapture() override { log_.add("releaseCapture"); }
  void focusSurface() override { log_.add("focusSurface"); }

  bool overSurface = true;

 private:
  CallLog& log_;
  int shape_ = kDefaultShape;
};

class LoggingSurroundings : public RecordingSurroundings {
 public:
  ~LoggingSurroundings() override;
  explicit LoggingSurroundings(CallLog& log) : log_(log) {}

  void serveEvents() override {
    RecordingSurroundings::serveEvents();
    log_.add("events");
    if (onEvents) onEvents();
  }

  std::function<void()> onEvents;  // what happens while events are served

 private:
  CallLog& log_;
};

class LoggingPrompts : public RecordingPrompts {
 public:
  ~LoggingPrompts() override;
  explicit LoggingPrompts(CallLog& log) : log_(log) {}

  Answer showMessage(const Message& message) override {
    log_.add("message \"" + message.text + "\"");
    return RecordingPrompts::showMessage(message);
  }

 private:
  CallLog& log_;
};

}  // namespace tess::testing
