// Text against bare work on the same fonts: laying out a thousand letters against loading and
// decomposing each with FreeType and dividing its curves into the same steps, the list of fonts
// against Fontconfig's own, and ten letters of a collection of 65535 glyphs against loading these.
// Placing: the engine's lines to rows, log and one redraw, against the same rows, log and redraw by
// hand.
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fontconfig/fontconfig.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "drafting/entity_creation.h"
#include "drafting/undo.h"
#include "import/free_type_face.h"
#include "import/frmText.h"
#include "import/installed_fonts.h"
#include "tests/support/silent_surface.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::SilentDrafting;
using testing::TempFolder;

constexpr char kFamily[] = "DejaVu Sans";
constexpr char kPangram[] = "The quick brown fox jumps over the lazy dog, 0123456789. ";
constexpr double kResolution = 0.001;
constexpr double kPixelsPerInch = 262144;

std::string lettersOf(std::size_t count) {
  std::string text;
  while (text.size() < count) text += kPangram;
  text.resize(count);
  return text;
}

std::string regularFile() {
  FcPattern* const pattern = FcNameParse(reinterpret_cast<const FcChar8*>("DejaVu Sans:regular"));
  FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  FcPattern* const match = FcFontMatch(nullptr, pattern, &result);
  FcChar8* file = nullptr;
  FcPatternGetString(match, FC_FILE, 0, &file);
  std::string path = reinterpret_cast<const char*>(file);
  FcPatternDestroy(match);
  FcPatternDestroy(pattern);
  return path;
}

TextRun runOf(std::string text, const char* family) {
  TextRun run;
  run.text = std::move(text);
  run.Resolution = kResolution;
  run.FontName = family;
  run.FontSize = 72;
  run.PixelsPerInchX = run.PixelsPerInchY = kPixelsPerInch;
  return run;
}

void expectLines(std::size_t lines, std::size_t least) {
  if (lines < least) throw std::logic_error("too few lines: " + std::to_string(lines));
}

// ---- Laying out

// 1000 letters make more lines than a drawing holds at this resolution, so they come in halves.
void LayOutThousandLetters(benchmark::State& state) {
  SilentDrafting d;
  InstalledFonts fonts;
  const TextRun run = runOf(lettersOf(500), kFamily);
  for (auto _ : state) {
    for (int half = 0; half < 2; ++half) {
      QLGlyph glyphs;
      frmCanvas canvas(d.test.session, fonts, glyphs, nullptr);
      canvas.DrawText(run);
      expectLines(canvas.GetLines(1, 1).size(), 5000);
    }
  }
}
BENCHMARK(LayOutThousandLetters);

// Every curve in the steps that the resolution asks for, by the textbook's formulas.
struct Walker {
  std::vector<clsLineCoordinates>& lines;
  double scale;
  PlanePoint at{};

  static PlanePoint plain(const FT_Vector& point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
  }
  void lineTo(PlanePoint from, PlanePoint to) {
    lines.push_back({from.x * scale, from.y * scale, to.x * scale, to.y * scale});
  }
  void conic(PlanePoint c, PlanePoint to) {
    const double bend = std::hypot(at.x - 2.0 * c.x + to.x, at.y - 2.0 * c.y + to.y) / 4 * scale;
    const int steps = std::max(1, static_cast<int>(std::ceil(std::sqrt(bend / kResolution))));
    PlanePoint from = at;
    for (int step = 1; step <= steps; ++step) {
      const double t = static_cast<double>(step) / steps;
      const double s = 1 - t;
      const PlanePoint next{s * s * at.x + 2 * s * t * c.x + t * t * to.x,
                            s * s * at.y + 2 * s * t * c.y + t * t * to.y};
      lineTo(from, next);
      from = next;
    }
    at = to;
  }
};

Walker& walker(void* user) {
  return *static_cast<Walker*>(user);
}

constexpr FT_Outline_Funcs kWalk{
    [](const FT_Vector* to, void* user) {
      walker(user).at = Walker::plain(*to);
      return 0;
    },
    [](const FT_Vector* to, void* user) {
      walker(user).lineTo(walker(user).at, Walker::plain(*to));
      walker(user).at = Walker::plain(*to);
      return 0;
    },
    [](const FT_Vector* control, const FT_Vector* to, void* user) {
      walker(user).conic(Walker::plain(*control), Walker::plain(*to));
      return 0;
    },
    [](const FT_Vector*, const FT_Vector*, const FT_Vector*, void*) { return 1; },
    0,
    0};

void BareThousandLetters(benchmark::State& state) {
  FT_Library library = nullptr;
  FT_Init_FreeType(&library);
  FT_Face face = nullptr;
  if (FT_New_Face(library, regularFile().c_str(), 0, &face) != 0) throw std::logic_error("no font");
  FT_Set_Pixel_Sizes(face, 0, face->units_per_EM);
  const std::string text = lettersOf(500);
  for (auto _ : state) {
    for (int half = 0; half < 2; ++half) {
      std::vector<clsLineCoordinates> lines;
      Walker pen{lines, 1.0 / 64 / face->units_per_EM};
      for (const char letter : text) {
        FT_Load_Char(face, static_cast<FT_ULong>(letter), FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
        FT_Outline_Decompose(&face->glyph->outline, &kWalk, &pen);
      }
      expectLines(lines.size(), 5000);
    }
  }
  FT_Done_Face(face);
  FT_Done_FreeType(library);
}
BENCHMARK(BareThousandLetters);

// ---- Placing

void takeBack(benchmark::State& state, SilentDrafting& d) {
  state.PauseTiming();
  Undo_Last_Change(d.context);
  state.ResumeTiming();
}

// The click of the panel, from its lines to the redraw.
void PlaceLetters(benchmark::State& state) {
  struct Placing : SilentDrafting {
    void textPlacementEnded() override {
      if (panel != nullptr) panel->placementEnded();
    }
    frmText* panel = nullptr;
  } d;
  InstalledFonts fonts;
  frmText panel(d.context, fonts);
  d.panel = &panel;
  panel.load();
  panel.cboFont.setText(kFamily);
  panel.cboResolution.setText("0.002");
  panel.txtText.setText(lettersOf(static_cast<std::size_t>(state.range(0))));
  for (auto _ : state) {
    state.PauseTiming();
    panel.Update();
    state.ResumeTiming();
    panel.Drawing_MouseUp(kLeftButton, 0, 1, 1);
    expectLines(static_cast<std::size_t>(d.store.NumSegments), 1000);
    takeBack(state, d);
  }
}
BENCHMARK(PlaceLetters)->Arg(450)->Arg(900);

void BarePlaceLetters(benchmark::State& state) {
  SilentDrafting d;
  const std::vector<BatchLine> batch = [&] {
    InstalledFonts fonts;
    QLGlyph glyphs;
    frmCanvas canvas(d.test.session, fonts, glyphs, nullptr);
    TextRun run = runOf(lettersOf(static_cast<std::size_t>(state.range(0))), kFamily);
    run.Resolution = 0.002;
    canvas.DrawText(run);
    std::vector<BatchLine> lines;
    for (const clsLineCoordinates& line : canvas.GetLines(1, 1)) {
      lines.push_back({static_cast<float>(line.x0), static_cast<float>(line.y0),
                       static_cast<float>(line.x1), static_cast<float>(line.y1)});
    }
    return lines;
  }();
  for (auto _ : state) {
    BatchAddLines(d.context, batch);
    d.redraw.redrawscreen();
    takeBack(state, d);
  }
}
BENCHMARK(BarePlaceLetters)->Arg(450)->Arg(900);

// ---- The list of fonts

// A configuration of 500 faces, each a file of its own, for as long as it lives.
class FiveHundredFaces {
 public:
  FiveHundredFaces() {
    const std::string bytes = readFile(regularFile());
    folder_.write("face.ttf", bytes);
    for (int face = 1; face < 500; ++face) {
      std::filesystem::create_hard_link(folder_("face.ttf"),
                                        folder_("face" + std::to_string(face) + ".ttf"));
    }
    folder_.write("fonts.conf", "<?xml version=\"1.0\"?><fontconfig><dir>" + folder_() +
                                    "</dir><cachedir>" + folder_("cache") +
                                    "</cachedir></fontconfig>");
    setenv("FONTCONFIG_FILE", folder_("fonts.conf").c_str(), 1);
    FcConfigDestroy(FcInitLoadConfigAndFonts());  // the cache is made once
  }
  ~FiveHundredFaces() { unsetenv("FONTCONFIG_FILE"); }
  FiveHundredFaces(const FiveHundredFaces&) = delete;
  FiveHundredFaces& operator=(const FiveHundredFaces&) = delete;

 private:
  TempFolder folder_;
};

void OpenPanel(benchmark::State& state) {
  const FiveHundredFaces faces;
  SilentDrafting d;
  for (auto _ : state) {
    InstalledFonts fonts;
    frmText panel(d.context, fonts);
    panel.open(Modality::Modeless);
    expectLines(static_cast<std::size_t>(panel.cboFont.count()), 1);
    panel.close();
  }
}
BENCHMARK(OpenPanel);

void BareFontList(benchmark::State& state) {
  const FiveHundredFaces faces;
  for (auto _ : state) {
    FcConfig* const config = FcInitLoadConfigAndFonts();
    FcPattern* const all = FcPatternCreate();
    FcObjectSet* const fields = FcObjectSetBuild(FC_FAMILY, FC_FILE, nullptr);
    FcFontSet* const set = FcFontList(config, all, fields);
    expectLines(static_cast<std::size_t>(set->nfont), 500);
    FcFontSetDestroy(set);
    FcObjectSetDestroy(fields);
    FcPatternDestroy(all);
    FcConfigDestroy(config);
  }
}
BENCHMARK(BareFontList);

// ---- A collection

// The bytes of a collection with one font, whose every glyph is a triangle of its own.
class LargeCollection {
 public:
  LargeCollection() {
    table("cmap", cmap());
    table("glyf", glyf());
    table("head", head());
    table("hhea", hhea());
    table("hmtx", words({1000, 0}) + std::string(2 * (kGlyphs - 1), '\0'));
    table("loca", loca());
    table("maxp", words({0, 0x5000, kGlyphs}).replace(0, 4, std::string("\0\0\x50\0", 4)));
    const std::size_t directory = 16;
    std::size_t place = directory + 12 + 16 * tables_.size();
    bytes = "ttcf" + words({1, 0, 0, 1, 0, static_cast<int>(directory)}) +
            std::string("\0\1\0\0", 4) + words({static_cast<int>(tables_.size()), 0, 0, 0});
    std::string content;
    for (const auto& [tag, data] : tables_) {
      bytes += tag + longs({0, place + content.size(), data.size()});
      content += data + std::string((4 - data.size() % 4) % 4, '\0');
    }
    bytes += content;
  }

  std::string bytes;

 private:
  static constexpr int kGlyphs = 65535;
  static constexpr std::size_t kGlyphBytes = 24;

  static std::string words(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values) {
      text += static_cast<char>(value >> 8 & 0xFF);
      text += static_cast<char>(value & 0xFF);
    }
    return text;
  }
  static std::string longs(std::initializer_list<std::size_t> values) {
    std::string text;
    for (const std::size_t value : values) {
      text += words({static_cast<int>(value >> 16U & 0xFFFFU), static_cast<int>(value & 0xFFFFU)});
    }
    return text;
  }
  void table(const char* tag, std::string data) { tables_.emplace_back(tag, std::move(data)); }

  // Code point n is glyph n.
  static std::string cmap() {
    return words({0, 1, 3, 10}) + longs({12}) + words({12, 0}) +
           longs({28, 0, 1, 1, kGlyphs - 1, 1});
  }
  static std::string glyf() {
    const std::string one = words({1, 0, 0, 500, 700, 2, 0}) + std::string("\1\1\1", 3);
    std::string all;
    for (int glyph = 0; glyph < kGlyphs; ++glyph) {
      std::string shape = one + words({0, 500, -250 - glyph % 100}) + words({0, 0, 700});
      shape.resize(kGlyphBytes + 8, '\0');
      all += shape;
    }
    return all;
  }
  static std::string loca() {
    std::string all;
    for (std::size_t glyph = 0; glyph <= kGlyphs; ++glyph)
      all += longs({glyph * (kGlyphBytes + 8)});
    return all;
  }
  static std::string head() {
    return longs({0x00010000, 0x00010000, 0, 0x5F0F3CF5}) + words({0, 1000}) + longs({0, 0, 0, 0}) +
           words({0, 0, 500, 700, 0, 8, 2, 1, 0});
  }
  static std::string hhea() {
    return longs({0x00010000}) + words({800, -200, 0, 1000, 0, 0, 500, 1, 0, 0, 0, 0, 0, 0, 0, 1});
  }

  std::vector<std::pair<std::string, std::string>> tables_;
};

constexpr char32_t kFarGlyphs[] = {60000, 1, 30000, 65000, 12345, 54321, 100, 20000, 40000, 50000};

void TenLettersOfACollection(benchmark::State& state) {
  TempFolder folder;
  folder.write("large.ttc", LargeCollection().bytes);
  for (auto _ : state) {
    const auto library = std::make_shared<FreeTypeLibrary>();
    FreeTypeFace face(library, {folder("large.ttc"), 0}, {});
    std::size_t pieces = 0;
    for (const char32_t character : kFarGlyphs) {
      for (const FlatContour& contour : flattened(face.shape(character).outline, kResolution)) {
        pieces += contour.corners.size();
      }
    }
    expectLines(pieces, 30);
  }
}
BENCHMARK(TenLettersOfACollection);

void BareTenGlyphs(benchmark::State& state) {
  TempFolder folder;
  folder.write("large.ttc", LargeCollection().bytes);
  for (auto _ : state) {
    FT_Library library = nullptr;
    FT_Init_FreeType(&library);
    FT_Face face = nullptr;
    if (FT_New_Face(library, folder("large.ttc").c_str(), 0, &face) != 0) {
      throw std::logic_error("no collection");
    }
    FT_Set_Pixel_Sizes(face, 0, face->units_per_EM);
    std::size_t points = 0;
    for (const char32_t character : kFarGlyphs) {
      FT_Load_Char(face, character, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
      points += static_cast<std::size_t>(face->glyph->outline.n_points);
    }
    expectLines(points, 30);
    FT_Done_Face(face);
    FT_Done_FreeType(library);
  }
}
BENCHMARK(BareTenGlyphs);

}  // namespace
}  // namespace tess
