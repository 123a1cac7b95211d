// Paper that keeps, as one line of text each, what was put on it: a page of 12000 by 16000 twips
// whose letters are 100 wide and 200 high.
// Owns: RecordedPaper.
#pragma once

#include <string>
#include <vector>

#include "core/file_system.h"
#include "display/paper.h"
#include "tests/support/recording_target.h"

namespace tess::testing {

class RecordedPaper : public Paper {
 public:
  CallLog log;
  bool hasPrinter = false;
  bool hasPreview = false;
  PictureSize pictures{1000, 800};    // of every picture file
  std::vector<std::string> files;     // paths of the pictures that were drawn
  std::vector<std::string> contents;  // and what the files held
  std::vector<SheetPrint> composed;
  std::function<void()> onEnd;  // before the document is delivered

  void setPage(const PageSides& sides, double margin) override {
    log.add("page " + recorded(sides.width) + " x " + recorded(sides.height) + " margin " +
            recorded(margin));
  }
  void compose(const SheetPrint& print) override { composed.push_back(print); }
  std::string pdf() override { return "%PDF-recorded"; }
  bool sendToPrinter() override {
    if (hasPrinter) log.add("to the printer");
    return hasPrinter;
  }
  bool showPreview() override {
    if (hasPreview) log.add("on show");
    return hasPreview;
  }
  std::string bitmapOf(const PictureSize& size,
                       const std::function<void(DrawingSurface&)>& paint) override {
    CallLog painted;
    RecordingSurface surface(painted);
    surface.Move({0, 0, size.width, size.height});
    paint(surface);
    return "bitmap " + recorded(size.width) + " x " + recorded(size.height) + "\n" + painted.take();
  }

  void begin(PrintOutput output) override {
    output_ = output;
    log.add("begin " + std::to_string(static_cast<int>(output)));
  }
  float pageWidth() const override { return 12000; }
  float pageHeight() const override { return 16000; }
  float leftMargin() const override { return 720; }
  float topMargin() const override { return 720; }
  float textWidth(const std::string& text) const override {
    return 100 * static_cast<float>(text.size());
  }
  float textHeight(const std::string& /*text*/) const override { return 200; }
  void setCurrent(float x, float y) override { log.add("at " + recordedPoint(x, y)); }
  void print(const std::string& text, float room) override {
    log.add("text '" + text + "' in " + recorded(room));
  }
  void line(const WorldBox& ends, Rgb color) override {
    log.add("line " + recordedLine(ends) + " " + recordedColor(color));
  }
  void box(const WorldBox& corners, Rgb color, bool filled) override {
    log.add((filled ? "filled box " : "box ") + recordedLine(corners) + " " + recordedColor(color));
  }
  void arc(const WorldArc& arc, Rgb color) override {
    log.add((arc.whole ? "circle " : "arc ") + recordedPoint(arc.x, arc.y) + " r " +
            recorded(arc.radius) + " " + recordedColor(color));
  }
  PictureSize pictureSize(const std::string& /*path*/) const override { return pictures; }
  void picture(const std::string& path, const PageBox& place) override {
    files.push_back(path);
    contents.push_back(readFile(path));
    log.add("picture " + recordedPoint(place.left, place.top) + "-" +
            recordedPoint(place.right, place.bottom));
  }
  void EndDoc() override {
    log.add("end");
    if (onEnd) onEnd();
    Paper::EndDoc();
  }
};

}  // namespace tess::testing
