// Outlines of real fonts held against a second reading of the same files, by another library and
// with curves divided in another way: no point of either lies further from the other than the
// resolution.
#include <algorithm>
#include <cmath>
#include <hb-ot.h>
#include <hb.h>
#include <limits>

#include "gtest/gtest.h"

#include "import/QLGlyph.h"
#include "import/frmCanvas.h"
#include "import/outline_fonts.h"
#include "tests/import/installed_font_file.h"
#include "tests/support/recording_session.h"

namespace tess {
namespace {

using testing::installedFontFile;
using testing::TestSession;

constexpr double kResolution = 0.001;
constexpr double kPixelsPerInch = 262144;
constexpr char32_t kCharacters[] = U"AQg8@";
constexpr int kSteps = 200;  // of a curve of the second reading

// Lines and curves as a list of points so near to one another that none between them matters.
class SecondReading {
 public:
  SecondReading(const std::string& file, double inchesPerEm) {
    hb_blob_t* const blob = hb_blob_create_from_file(file.c_str());
    hb_face_t* const face = hb_face_create(blob, 0);
    font_ = hb_font_create(face);
    scale_ = inchesPerEm / hb_face_get_upem(face);
    hb_face_destroy(face);
    hb_blob_destroy(blob);
    draw_ = hb_draw_funcs_create();
    hb_draw_funcs_set_move_to_func(draw_, moveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(draw_, lineTo, nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(draw_, quadraticTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(draw_, cubicTo, nullptr, nullptr);
  }
  ~SecondReading() {
    hb_draw_funcs_destroy(draw_);
    hb_font_destroy(font_);
  }
  SecondReading(const SecondReading&) = delete;
  SecondReading& operator=(const SecondReading&) = delete;

  void read(char32_t character) {
    points.clear();
    quadratic = cubic = 0;
    hb_codepoint_t glyph = 0;
    ASSERT_TRUE(hb_font_get_nominal_glyph(font_, character, &glyph));
    hb_font_get_glyph_shape(font_, glyph, draw_, this);
    advance = hb_font_get_glyph_h_advance(font_, glyph) * scale_;
  }

  std::vector<PlanePoint> points;
  double advance = 0;
  int quadratic = 0, cubic = 0;  // curves

 private:
  // De Casteljau's construction, at steps that have nothing to do with how the curve bends.
  void walk(std::vector<PlanePoint> control) {
    for (int step = 1; step <= kSteps; ++step) {
      const double t = static_cast<double>(step) / kSteps;
      std::vector<PlanePoint> level = control;
      while (level.size() > 1) {
        for (std::size_t at = 0; at + 1 < level.size(); ++at) {
          level[at] = level[at] + t * (level[at + 1] - level[at]);
        }
        level.pop_back();
      }
      points.push_back(level[0]);
    }
    at_ = control.back();
  }
  PlanePoint scaled(float x, float y) const { return {x * scale_, y * scale_}; }
  static SecondReading& self(void* user) { return *static_cast<SecondReading*>(user); }

  static void moveTo(hb_draw_funcs_t*, void* user, hb_draw_state_t*, float x, float y, void*) {
    self(user).at_ = self(user).scaled(x, y);
    self(user).points.push_back(self(user).at_);
  }
  static void lineTo(hb_draw_funcs_t*, void* user, hb_draw_state_t*, float x, float y, void*) {
    self(user).walk({self(user).at_, self(user).scaled(x, y)});
  }
  static void quadraticTo(hb_draw_funcs_t*, void* user, hb_draw_state_t*, float cx, float cy,
                          float x, float y, void*) {
    ++self(user).quadratic;
    self(user).walk({self(user).at_, self(user).scaled(cx, cy), self(user).scaled(x, y)});
  }
  static void cubicTo(hb_draw_funcs_t*, void* user, hb_draw_state_t*, float ax, float ay, float bx,
                      float by, float x, float y, void*) {
    ++self(user).cubic;
    self(user).walk({self(user).at_, self(user).scaled(ax, ay), self(user).scaled(bx, by),
                     self(user).scaled(x, y)});
  }

  hb_font_t* font_ = nullptr;
  hb_draw_funcs_t* draw_ = nullptr;
  double scale_ = 1;
  PlanePoint at_;
};

double distanceToLine(PlanePoint p, const clsLineCoordinates& line) {
  const PlanePoint from{line.x0, line.y0};
  const PlanePoint along{line.x1 - line.x0, line.y1 - line.y0};
  const double t = std::clamp(dot(p - from, along) / dot(along, along), 0.0, 1.0);
  return lengthOf(p - (from + t * along));
}

template <class Item, class Distance>
double nearest(const std::vector<Item>& items, Distance distance) {
  double best = std::numeric_limits<double>::infinity();
  for (const Item& item : items) best = std::min(best, distance(item));
  return best;
}

struct RealFont {
  const char* family;
  bool cubic;
};

void PrintTo(const RealFont& font, std::ostream* out) {
  *out << font.family;
}

class Agreement : public ::testing::TestWithParam<RealFont> {
 protected:
  std::vector<clsLineCoordinates> lettered(const std::u32string& text, double points) {
    TextRun run;
    for (const char32_t character : text) run.text += static_cast<char>(character);
    run.Resolution = kResolution;
    run.FontName = GetParam().family;
    run.FontSize = points;
    run.PixelsPerInchX = run.PixelsPerInchY = kPixelsPerInch;
    canvas.DrawText(run);
    return canvas.GetLines(0, 0);
  }

  TestSession session;
  OutlineFonts fonts;
  QLGlyph glyphs;
  frmCanvas canvas{session.session, fonts, glyphs, nullptr};
};

TEST_P(Agreement, NeitherReadingStraysFromTheOther) {
  int curves[2] = {0, 0};
  for (const double points : {12.0, 288.0}) {
    SecondReading second(installedFontFile(GetParam().family), points / 72);
    for (const char32_t* at = kCharacters; *at != 0; ++at) {
      second.read(*at);
      const auto lines = lettered({*at}, points);
      ASSERT_FALSE(lines.empty());
      curves[0] += second.quadratic;
      curves[1] += second.cubic;
      double worst = 0;
      for (const PlanePoint point : second.points) {
        worst = std::max(worst, nearest(lines, [point](const clsLineCoordinates& line) {
                           return distanceToLine(point, line);
                         }));
      }
      EXPECT_LE(worst, kResolution) << points << " points, character " << static_cast<int>(*at);
      worst = 0;
      for (const clsLineCoordinates& line : lines) {
        for (const double part : {0.0, 0.25, 0.5, 0.75}) {
          const PlanePoint on{line.x0 + part * (line.x1 - line.x0),
                              line.y0 + part * (line.y1 - line.y0)};
          worst = std::max(worst, nearest(second.points,
                                          [on](PlanePoint point) { return lengthOf(point - on); }));
        }
      }
      // Half of what lies between two points of the second reading at most.
      const double between = points / 72 / kSteps;
      EXPECT_LE(worst, kResolution + between / 2)
          << points << " points, character " << static_cast<int>(*at);
    }
  }
  EXPECT_GT(curves[GetParam().cubic ? 1 : 0], 50);
  EXPECT_EQ(curves[GetParam().cubic ? 0 : 1], 0);
}

TEST_P(Agreement, AdvancesAreThoseOfTheFont) {
  SecondReading second(installedFontFile(GetParam().family), 1);
  for (const char32_t* at = kCharacters; *at != 0; ++at) {
    second.read(*at);
    const auto alone = lettered({U'H'}, 72);
    const auto after = lettered({*at, U'H'}, 72);
    EXPECT_NEAR(after[after.size() - 1].x0 - alone.back().x0, second.advance, 1e-5);
  }
}

INSTANTIATE_TEST_SUITE_P(Fonts, Agreement,
                         ::testing::Values(RealFont{"DejaVu Sans", false},
                                           RealFont{"DejaVu Serif", false},
                                           RealFont{"Cantarell", true}),
                         [](const auto& font) {
                           std::string name = font.param.family;
                           std::erase(name, ' ');
                           return name;
                         });

}  // namespace
}  // namespace tess
