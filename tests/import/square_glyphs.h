// Fonts and a glyph service that are known by heart, for tests of what works on them.
// Owns: SquareFace, SquareFonts, LateGlyphs.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "import/glyph_service.h"

namespace tess::testing {

// Every letter is a square of half an em on the baseline, and a blank has no outline; both advance
// by one em, and so do the lines. "^" overlaps the letter before it. "!" is damaged.
class SquareFace : public FontFace {
 public:
  const GlyphShape& glyph(char32_t character) override {
    if (character == U'!') throw FontError("damaged", 0x14);
    shape_ = {};
    shape_.advance = 1;
    if (character == U' ') return shape_;
    const double left = character == U'^' ? -0.75 : 0;
    const auto line = [left](double x, double y) { return OutlineCurve{1, {}, {}, {left + x, y}}; };
    shape_.outline.contours.push_back(
        {{left, 0}, {line(0.5, 0), line(0.5, 0.5), line(0, 0.5), line(0, 0)}, true});
    shape_.missing = character == U'?';
    return shape_;
  }
  double kerning(char32_t left, char32_t right) override {
    return left == U'A' && right == U'V' ? -0.25 : 0;
  }
  double lineHeight() const override { return 1; }

 private:
  GlyphShape shape_;
};

class SquareFonts : public FontLibrary {
 public:
  std::vector<std::string> families() override { return names; }
  bool hasFamily(const std::string& name) override {
    return std::find(names.begin(), names.end(), name) != names.end();
  }
  std::string monospaceFamily() override { return "Square Mono"; }
  std::shared_ptr<FontFace> open(const FontRequest& request) override {
    opened.push_back(request);
    if (!hasFamily(request.name) && request.name != "Square Mono") {
      throw FontError("The font is not installed: " + request.name, 0);
    }
    return std::make_shared<SquareFace>();
  }

  std::vector<std::string> names{"square", "Round", "Aslant"};
  std::vector<FontRequest> opened;
};

// Reports nothing by itself: the test says when a character comes out.
class LateGlyphs : public GlyphService {
 public:
  void begin(const GlyphRun& run) override { runs.push_back(run); }
  void DrawCharAsync(const GlyphRequest& request, GlyphClient& client, ICanvas& /*canvas*/,
                     Pen& pen) override {
    requests.push_back(request);
    client_ = &client;
    pen_ = pen;
  }

  void addLine(int id, double x0, double y0, double x1, double y1) {
    client_->Glyph_AddLine(id, x0, y0, x1, y1);
  }
  // The pen moves by this along the x axis.
  void finish(int advance) { client_->Glyph_DrawCharAsyncDone(pen_.x + advance, pen_.y, advance); }

  std::vector<GlyphRun> runs;
  std::vector<GlyphRequest> requests;

 private:
  GlyphClient* client_ = nullptr;
  Pen pen_;
};

}  // namespace tess::testing
