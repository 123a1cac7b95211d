// Fonts of the machine: which face is taken, what is made where one is missing, and fonts that are
// damaged or gone.
#include "import/outline_fonts.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "import/QLGlyph.h"
#include "import/installed_fonts.h"
#include "tests/import/installed_font_file.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::installedFontFile;
using testing::TempFolder;

// A folder with the regular face of one family and nothing else.
struct LoneFont {
  explicit LoneFont(const char* family)
      : file(folder.write(
            "font" + std::filesystem::path(installedFontFile(family)).extension().string(),
            readFile(installedFontFile(family)))),
        fonts({folder()}) {}

  TempFolder folder;
  std::string file;
  OutlineFonts fonts;
};

struct Extent {
  double left = 1e9, right = -1e9, bottom = 1e9, top = -1e9;
};

Extent extentOf(const GlyphShape& shape) {
  Extent extent;
  for (const FlatContour& contour : flattened(shape.outline, 1e-4)) {
    for (const PlanePoint corner : contour.corners) {
      extent.left = std::min(extent.left, corner.x);
      extent.right = std::max(extent.right, corner.x);
      extent.bottom = std::min(extent.bottom, corner.y);
      extent.top = std::max(extent.top, corner.y);
    }
  }
  return extent;
}

// Above 0 for an area that lies to the left of its contours.
double areaOf(const GlyphShape& shape) {
  double area = 0;
  for (const FlatContour& contour : flattened(shape.outline, 1e-4)) {
    for (std::size_t at = 0; at < contour.corners.size(); ++at) {
      area += cross(contour.corners[at], contour.corners[(at + 1) % contour.corners.size()]) / 2;
    }
  }
  return area;
}

std::string troubleWith(OutlineFonts& fonts, const FontRequest& request) {
  try {
    fonts.open(request)->glyph(U'A');
  } catch (const FontError& error) {
    return error.what();
  }
  return "";
}

TEST(OutlineFonts, EachFamilyIsListedOnce) {
  OutlineFonts fonts;
  std::vector<std::string> families = fonts.families();
  std::sort(families.begin(), families.end());
  EXPECT_EQ(std::adjacent_find(families.begin(), families.end()), families.end());
  for (const char* const family : {"DejaVu Sans", "DejaVu Serif", "Cantarell"}) {
    EXPECT_TRUE(std::binary_search(families.begin(), families.end(), family)) << family;
    EXPECT_TRUE(fonts.hasFamily(family)) << family;
  }
  EXPECT_FALSE(fonts.hasFamily("No Such Family"));
}

TEST(OutlineFonts, ThereIsAFamilyOfFixedPitch) {
  OutlineFonts fonts;
  const auto face = fonts.open({fonts.monospaceFamily(), false, false});
  const double narrow = face->glyph(U'i').advance;
  EXPECT_EQ(face->glyph(U'W').advance, narrow);
  EXPECT_GT(narrow, 0);
}

TEST(OutlineFonts, ContoursRunCounterClockwiseWhateverTheFormat) {
  OutlineFonts fonts;
  for (const char* const family : {"DejaVu Sans", "Cantarell"}) {
    EXPECT_GT(areaOf(fonts.open({family, false, false})->glyph(U'O')), 0) << family;
  }
}

TEST(OutlineFonts, TheBoldFaceOfAFamilyIsTaken) {
  OutlineFonts fonts;
  const double regular = areaOf(fonts.open({"Cantarell", false, false})->glyph(U'H'));
  const double bold = areaOf(fonts.open({"Cantarell", true, false})->glyph(U'H'));
  EXPECT_GT(bold, regular * 1.2);
  // Its own face has stems of its own, the made one those of the regular face all round.
  LoneFont lone("Cantarell");
  EXPECT_NE(areaOf(lone.fonts.open({"Cantarell", true, false})->glyph(U'H')), bold);
}

TEST(OutlineFonts, AMissingBoldFaceIsMade) {
  LoneFont lone("DejaVu Sans");
  const GlyphShape regular = lone.fonts.open({"DejaVu Sans", false, false})->glyph(U'H');
  const GlyphShape bold = lone.fonts.open({"DejaVu Sans", true, false})->glyph(U'H');
  EXPECT_GT(areaOf(bold), areaOf(regular) * 1.2);
  EXPECT_NEAR(bold.advance, regular.advance + 1.0 / 24, 1e-9);
}

TEST(OutlineFonts, AMissingItalicFaceIsMade) {
  OutlineFonts fonts;
  const GlyphShape upright = fonts.open({"Cantarell", false, false})->glyph(U'I');
  const GlyphShape leaning = fonts.open({"Cantarell", false, true})->glyph(U'I');
  const Extent extent = extentOf(upright);
  EXPECT_NEAR(extentOf(leaning).right, extent.right + 0.2126 * extent.top, 0.001);
  EXPECT_EQ(leaning.advance, upright.advance);
}

TEST(OutlineFonts, AMissingCharacterComesFromAnotherFont) {
  OutlineFonts fonts;
  const GlyphShape shape = fonts.open({"Cantarell", false, false})->glyph(0x2588);  // full block
  EXPECT_TRUE(shape.missing);
  EXPECT_FALSE(shape.substitute.empty());
  EXPECT_NE(shape.substitute, "Cantarell");
  EXPECT_FALSE(shape.outline.contours.empty());
}

TEST(OutlineFonts, ACharacterThatNoFontHasOnlyAdvances) {
  LoneFont lone("Cantarell");
  const GlyphShape shape = lone.fonts.open({"Cantarell", false, false})->glyph(0x2588);
  EXPECT_TRUE(shape.missing);
  EXPECT_EQ(shape.substitute, "");
  EXPECT_TRUE(shape.outline.contours.empty());
  EXPECT_GT(shape.advance, 0);
}

TEST(OutlineFonts, ABlankHasAnAdvanceAndNoOutline) {
  OutlineFonts fonts;
  const GlyphShape shape = fonts.open({"DejaVu Sans", false, false})->glyph(U' ');
  EXPECT_FALSE(shape.missing);
  EXPECT_TRUE(shape.outline.contours.empty());
  EXPECT_GT(shape.advance, 0);
}

TEST(OutlineFonts, PairsAreMovedTogetherAsTheFontSays) {
  OutlineFonts fonts;
  const auto face = fonts.open({"DejaVu Sans", false, false});
  EXPECT_LT(face->kerning(U'A', U'V'), -0.01);
  EXPECT_EQ(face->kerning(U'H', U'H'), 0);
  EXPECT_EQ(face->kerning(U'A', 0x10FFFF), 0);
}

TEST(OutlineFonts, AFontWithoutPairsMovesNone) {
  OutlineFonts fonts;
  EXPECT_EQ(fonts.open({"Cantarell", false, false})->kerning(U'A', U'V'), 0);
}

TEST(OutlineFonts, LigaturesAreNoKerning) {
  OutlineFonts fonts;
  const auto face = fonts.open({"DejaVu Sans", false, false});
  EXPECT_NEAR(face->kerning(U'f', U'i'), 0, 0.05);
}

TEST(OutlineFonts, AFamilyThatIsNotInstalledIsAnError) {
  OutlineFonts fonts;
  EXPECT_EQ(troubleWith(fonts, {"No Such Family", false, false}),
            "The font is not installed: No Such Family");
}

TEST(OutlineFonts, AFileThatIsGoneIsAnError) {
  LoneFont lone("DejaVu Sans");
  EXPECT_EQ(lone.fonts.families(), std::vector<std::string>{"DejaVu Sans"});
  std::filesystem::remove(lone.file);
  EXPECT_EQ(troubleWith(lone.fonts, {"DejaVu Sans", false, false}),
            "The font file cannot be read: " + lone.file);
}

TEST(OutlineFonts, APipeInTheFilesPlaceIsAnErrorAndNoWait) {
  LoneFont lone("DejaVu Sans");
  EXPECT_TRUE(lone.fonts.hasFamily("DejaVu Sans"));
  std::filesystem::remove(lone.file);
  ASSERT_EQ(::mkfifo(lone.file.c_str(), 0600), 0);
  EXPECT_EQ(troubleWith(lone.fonts, {"DejaVu Sans", false, false}),
            "The font file cannot be read: " + lone.file);
}

TEST(OutlineFonts, AFileThatIsDamagedIsAnError) {
  LoneFont lone("DejaVu Sans");
  EXPECT_TRUE(lone.fonts.hasFamily("DejaVu Sans"));
  lone.folder.write("font.ttf", std::string(5000, '\xFF'));
  EXPECT_EQ(troubleWith(lone.fonts, {"DejaVu Sans", false, false}),
            "The font file cannot be read: " + lone.file);
}

TEST(OutlineFonts, AFileThatIsCutOffWhileItIsOpenIsAnErrorAndNoMore) {
  LoneFont lone("DejaVu Sans");
  const auto face = lone.fonts.open({"DejaVu Sans", false, false});
  std::filesystem::resize_file(lone.file, 20000);
  int failed = 0;
  for (char32_t character = 0x21; character < 0x250; ++character) {
    try {
      face->glyph(character);
    } catch (const FontError&) {
      ++failed;
    }
  }
  EXPECT_GT(failed, 0);
}

TEST(OutlineFonts, AFontOfPixelsIsNotListedAndCannotBeOpened) {
  TempFolder folder;
  folder.write("pixels.bdf",
               "STARTFONT 2.1\nFONT -misc-pixels-medium-r-normal--8-80-75-75-c-80-iso10646-1\n"
               "SIZE 8 75 75\nFONTBOUNDINGBOX 8 8 0 0\nSTARTPROPERTIES 4\nFONT_ASCENT 8\n"
               "FONT_DESCENT 0\nFAMILY_NAME \"pixels\"\nPIXEL_SIZE 8\nENDPROPERTIES\nCHARS 1\n"
               "STARTCHAR A\nENCODING 65\nSWIDTH 1000 0\nDWIDTH 8 0\nBBX 8 8 0 0\nBITMAP\n"
               "18\n24\n42\n42\n7E\n42\n42\n00\nENDCHAR\nENDFONT\n");
  OutlineFonts fonts({folder()});
  EXPECT_TRUE(fonts.families().empty());
  EXPECT_EQ(troubleWith(fonts, {"pixels", false, false}), "The font is not installed: pixels");
  EXPECT_THROW(openFontBytes(folder.read("pixels.bdf"), false, false), FontError);
}

TEST(InstalledFonts, HoldsOutlinesAndStrokes) {
  InstalledFonts fonts;
  const std::vector<std::string> families = fonts.families();
  for (const char* const family : {"DejaVu Sans", "Hershey Roman Simplex"}) {
    EXPECT_EQ(std::count(families.begin(), families.end(), family), 1) << family;
    EXPECT_TRUE(fonts.hasFamily(family)) << family;
    EXPECT_FALSE(fonts.open({family, false, false})->glyph(U'A').outline.contours.empty());
  }
  EXPECT_FALSE(
      fonts.open({"Hershey Roman Simplex", false, false})->glyph(U'A').outline.contours[0].closed);
  EXPECT_FALSE(fonts.monospaceFamily().empty());
}

}  // namespace
}  // namespace tess
