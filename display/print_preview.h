// Paper: the port to the platform's print preview, and the target that gives it the shape of the
// drawing surface.
// Owns: PrintOutput, kTwipsPerInch, PageBox, PictureSize, PrintPreviewControl, PrintPreviewProxy.
#pragma once

#include <string>

#include "display/drawing_target.h"

namespace tess {

// The numbers are those of the control's output mode.
enum class PrintOutput { Printer = 0, Preview = 1 };

inline constexpr float kTwipsPerInch = 1440;

// A rectangle of a page, in twips from its upper left corner.
struct PageBox {
  float left = 0, top = 0, right = 0, bottom = 0;
};

struct PictureSize {
  float width = 0, height = 0;  // pixels
};

// `PrintPreview1`: one document at a time, page by page. Lengths are twips, y grows downward.
class PrintPreviewControl {
 public:
  virtual ~PrintPreviewControl() = default;

  // Begins a document of one empty page.
  virtual void begin(PrintOutput output) = 0;
  virtual float pageWidth() const = 0;  // of the whole sheet
  virtual float pageHeight() const = 0;
  virtual float leftMargin() const = 0;  // the right one is the same
  virtual float topMargin() const = 0;   // the lower one is the same
  virtual float textWidth(const std::string& text) const = 0;
  virtual float textHeight(const std::string& text) const = 0;

  // Where the next text has its upper left corner.
  virtual void setCurrent(float x, float y) = 0;
  // A text wider than `room` is written smaller, on the same base line.
  virtual void print(const std::string& text, float room) = 0;
  virtual void line(const WorldBox& ends, Rgb color) = 0;
  virtual void box(const WorldBox& corners, Rgb color, bool filled) = 0;
  virtual void arc(const WorldArc& arc, Rgb color) = 0;
  // The size of a picture file. Raises Device I/O error for what is none.
  virtual PictureSize pictureSize(const std::string& path) const = 0;
  // The picture file stretched to `place`. Raises the same.
  virtual void picture(const std::string& path, const PageBox& place) = 0;
  // `picDrawing` as it stands, as the content of a bitmap file.
  virtual std::string screenShot() = 0;
  // The document goes to the printer or is shown, as `begin` has it.
  virtual void EndDoc() = 0;
};

// The control as a target, with a user scale of its own that spans the page between its margins.
class PrintPreviewProxy : public DrawingTarget {
 public:
  explicit PrintPreviewProxy(PrintPreviewControl& control) : control_(control) {}

  void Cls() override {}
  // A pixel of paper is a twip.
  float ScaleX(float width, ScaleUnit from, ScaleUnit to) const override;
  float ScaleY(float height, ScaleUnit from, ScaleUnit to) const override;
  PenMode DrawMode() const override { return PenMode::Copy; }
  void setDrawMode(PenMode /*mode*/) override {}
  PenStyle DrawStyle() const override { return PenStyle::Solid; }
  void setDrawStyle(PenStyle /*style*/) override {}
  void TraceLine(const WorldBox& ends, std::optional<Rgb> color = {},
                 std::optional<int> Box = {}) override;
  void TraceCircle(float x, float y, float radius, std::optional<Rgb> color = {},
                   std::optional<float> Start = {}, std::optional<float> End = {},
                   std::optional<float> Aspect = {}) override;

  float Width() const override { return control_.pageWidth(); }
  void setWidth(float /*width*/) override {}
  float Height() const override { return control_.pageHeight(); }
  void setHeight(float /*height*/) override {}
  float ScaleHeight() const override { return scaleHeight_; }
  void setScaleHeight(float height) override { scaleHeight_ = height; }
  float ScaleWidth() const override { return scaleWidth_; }
  void setScaleWidth(float width) override { scaleWidth_ = width; }
  float ScaleLeft() const override { return scaleLeft_; }
  void setScaleLeft(float left) override { scaleLeft_ = left; }
  float ScaleTop() const override { return scaleTop_; }
  void setScaleTop(float top) override { scaleTop_ = top; }
  ScaleUnit ScaleMode() const override { return ScaleUnit::User; }
  void setScaleMode(ScaleUnit /*mode*/) override {}

  // Places of the page, in twips.
  float MapX(float x) const;
  float MapY(float y) const;

  // The picture file between the margins, in its proportions; narrower only where it would reach
  // below `lowest`, in twips from the top of the page. Raises what the control's picture does.
  void PreviewBMP(const std::string& path, float lowest);

 private:
  float printedWidth() const;  // between the margins
  float printedHeight() const;
  WorldBox mapped(const WorldBox& ends) const;

  PrintPreviewControl& control_;
  float scaleLeft_ = 0, scaleTop_ = 0;
  float scaleWidth_ = 1, scaleHeight_ = 1;
};

}  // namespace tess
