// Feeds any bytes as a font to the engine: as the file of an outline font, and as one of single
// strokes. What comes of it is lines that run head to tail, each with a length, and no more than a
// drawing holds; anything else that the font has to say is an error.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "import/QLGlyph.h"
#include "import/frmCanvas.h"
#include "import/hershey_fonts.h"
#include "import/outline_fonts.h"
#include "tests/support/recording_session.h"

namespace {

using namespace tess;

void require(bool condition) {
  if (!condition) std::abort();
}

class StrokesOf : public FontFace {
 public:
  explicit StrokesOf(std::string_view bytes) : font_(readHershey("fuzz", bytes)) {}
  const GlyphShape& glyph(char32_t character) override {
    const auto found = font_.glyphs.find(character);
    return found == font_.glyphs.end() ? none_ : found->second;
  }
  double kerning(char32_t /*left*/, char32_t /*right*/) override { return 0; }
  double lineHeight() const override { return 1; }

 private:
  HersheyFont font_;
  GlyphShape none_;
};

// One font, whatever is asked for.
class FontOf : public FontLibrary {
 public:
  FontOf(std::string_view bytes, bool strokes) : bytes_(bytes), strokes_(strokes) {}
  std::vector<std::string> families() override { return {"fuzz"}; }
  bool hasFamily(const std::string& /*name*/) override { return true; }
  std::string monospaceFamily() override { return "fuzz"; }
  std::shared_ptr<FontFace> open(const FontRequest& request) override {
    if (strokes_) return std::make_shared<StrokesOf>(bytes_);
    return openFontBytes(bytes_, request.bold, request.italic);
  }

 private:
  std::string_view bytes_;
  bool strokes_;
};

void requireLines(const std::vector<clsLineCoordinates>& lines) {
  require(lines.size() <= kMostLines);
  for (const clsLineCoordinates& line : lines) {
    require(std::isfinite(line.x0) && std::isfinite(line.y0));
    require(std::isfinite(line.x1) && std::isfinite(line.y1));
    require(line.x0 != line.x1 || line.y0 != line.y1);
  }
}

void requireContours(const std::vector<FlatContour>& contours) {
  for (const FlatContour& contour : contours) {
    require(contour.corners.size() >= (contour.closed ? 3U : 2U));
    for (std::size_t at = 1; at < contour.corners.size(); ++at) {
      require(!(contour.corners[at] == contour.corners[at - 1]));
    }
  }
}

void layOut(std::string_view bytes, bool strokes, bool styled) {
  FontOf fonts(bytes, strokes);
  testing::TestSession session;
  QLGlyph glyphs;
  frmCanvas canvas(session.session, fonts, glyphs, nullptr);
  TextRun run;
  run.text = "AB g\n\xC3\xA4V";
  run.Resolution = 0.01;
  run.FontName = "fuzz";
  run.FontSize = 72;
  run.Bold = run.Italic = run.Kerning = styled;
  run.Unite = styled;
  run.Curvature = styled ? 3 : 0;
  run.PixelsPerInchX = run.PixelsPerInchY = 262144;
  canvas.DrawText(run);
  requireLines(canvas.GetLines(0, 0));
  try {
    requireContours(flattened(fonts.open({"fuzz", styled, styled})->glyph(U'A').outline, 0.001));
  } catch (const FontError&) {
    // A font that is no font says so.
  }
}

}  // namespace

// The first byte chooses the reader and the style.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  layOut(bytes, (data[0] & 1U) != 0, (data[0] & 2U) != 0);
  return 0;
}
