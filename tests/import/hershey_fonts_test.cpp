// Single strokes: the reader, and the faces that are installed.
#include "import/hershey_fonts.h"

#include <algorithm>

#include "gtest/gtest.h"

#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::TempFolder;

std::string troubleOf(std::string_view bytes) {
  try {
    readHershey("bad.jhf", bytes);
  } catch (const FontError& error) {
    return error.what();
  }
  return "";
}

// An "L" of the height of a capital, and a blank before it.
constexpr char kBlank[] = "    1  1JZ\n";
constexpr char kCorner[] = "    2  6MWNFN[ RN[T[\n";

TEST(Hershey, StrokesAreOpenAndStandOnTheBaseline) {
  const HersheyFont font = readHershey("small.jhf", std::string(kBlank) + kCorner);
  ASSERT_EQ(font.glyphs.size(), 2U);
  const GlyphShape& blank = font.glyphs.at(U' ');
  EXPECT_EQ(blank.advance, 0.5);
  EXPECT_TRUE(blank.outline.contours.empty());
  const GlyphShape& corner = font.glyphs.at(U'!');
  EXPECT_EQ(corner.advance, 10.0 / 32);
  ASSERT_EQ(corner.outline.contours.size(), 2U);
  const OutlineContour& down = corner.outline.contours[0];
  EXPECT_FALSE(down.closed);
  EXPECT_EQ(down.start, (PlanePoint{1.0 / 32, 21.0 / 32}));
  ASSERT_EQ(down.curves.size(), 1U);
  EXPECT_EQ(down.curves[0].end, (PlanePoint{1.0 / 32, 0}));
  EXPECT_EQ(corner.outline.contours[1].curves[0].end, (PlanePoint{7.0 / 32, 0}));
}

TEST(Hershey, LinesMayBeBrokenAndEndInAnyWay) {
  const HersheyFont whole = readHershey("a.jhf", kCorner);
  for (const char* const broken : {"    2  6MWNFN\n[ RN[T[\n", "    2  6MWNFN[\r\n RN[T[\r\n\x1A",
                                   "\n\n    2  6MWNFN[ RN[T["}) {
    const HersheyFont font = readHershey("b.jhf", broken);
    ASSERT_EQ(font.glyphs.size(), 1U);
    const GlyphShape& shape = font.glyphs.at(U' ');
    ASSERT_EQ(shape.outline.contours.size(), 2U) << broken;
    EXPECT_EQ(shape.outline.contours[1].curves[0].end,
              whole.glyphs.at(U' ').outline.contours[1].curves[0].end);
  }
}

TEST(Hershey, WhatComesAfterTheFirstRunStandsAmongTheLatinLetters) {
  std::string bytes;
  for (int glyph = 0; glyph < 98; ++glyph) bytes += kBlank;
  const HersheyFont font = readHershey("long.jhf", bytes);
  EXPECT_EQ(font.glyphs.count(0x7F), 1U);
  EXPECT_EQ(font.glyphs.count(0x80), 0U);
  EXPECT_EQ(font.glyphs.count(0xA0), 1U);
  EXPECT_EQ(font.glyphs.count(0xA1), 1U);
}

TEST(Hershey, DamageIsNamedWithItsLine) {
  EXPECT_EQ(troubleOf(""), "bad.jhf line 1: there are no characters");
  EXPECT_EQ(troubleOf("    1"), "bad.jhf line 1: the count is cut off or no number");
  EXPECT_EQ(troubleOf("   "), "bad.jhf line 1: the number is cut off or no number");
  EXPECT_EQ(troubleOf(std::string(kBlank) + "    x  1JZ"),
            "bad.jhf line 2: the number is cut off or no number");
  EXPECT_EQ(troubleOf("    1 -1JZ"), "bad.jhf line 1: the count is cut off or no number");
  EXPECT_EQ(troubleOf("    1  0JZ"), "bad.jhf line 1: the count is not above 0");
  EXPECT_EQ(troubleOf("    1  3JZAB"), "bad.jhf line 1: the strokes are cut off");
  std::string many;
  for (int glyph = 0; glyph <= 4096; ++glyph) many += kBlank;
  EXPECT_EQ(troubleOf(many), "bad.jhf line 4097: there are too many characters");
}

TEST(Hershey, AllThirtyTwoFacesAreReadWhole) {
  HersheyFonts fonts;
  const std::vector<std::string> families = fonts.families();
  EXPECT_EQ(families.size(), 32U);
  for (const std::string& family : families) {
    const auto face = fonts.open({family, false, false});
    int strokes = 0;
    for (char32_t character = U' '; character < 0x7F; ++character) {
      const GlyphShape& shape = face->glyph(character);
      EXPECT_FALSE(shape.missing) << family << " " << static_cast<int>(character);
      EXPECT_GE(shape.advance, 0) << family;
      for (const OutlineContour& stroke : shape.outline.contours) {
        EXPECT_FALSE(stroke.closed);
        strokes += static_cast<int>(stroke.curves.size());
      }
    }
    EXPECT_GT(strokes, 200) << family;
  }
}

TEST(Hershey, EveryInstalledFaceHasANameForPeople) {
  HersheyFonts fonts;
  for (const std::string& family : fonts.families()) {
    EXPECT_TRUE(family.starts_with("Hershey ") && family[8] >= 'A' && family[8] <= 'Z') << family;
  }
  EXPECT_TRUE(fonts.hasFamily("hershey roman simplex"));
}

TEST(Hershey, AFaceThatNobodyKnowsHasTheNameOfItsFile) {
  TempFolder folder;
  folder.write("Mine.JHF", kBlank);
  folder.write("readme.txt", "no font");
  HersheyFonts fonts(folder());
  EXPECT_EQ(fonts.families(), std::vector<std::string>{"Hershey mine"});
}

TEST(Hershey, ASlantIsMadeAndAWeightIsNot) {
  TempFolder folder;
  folder.write("mine.jhf", std::string(kBlank) + kCorner);
  HersheyFonts fonts(folder());
  const auto plain = fonts.open({"Hershey mine", false, false});
  const PlanePoint top = plain->glyph(U'!').outline.contours[0].start;
  const auto bold = fonts.open({"Hershey mine", true, false});
  EXPECT_EQ(bold->glyph(U'!').outline.contours[0].start, top);
  const auto italic = fonts.open({"Hershey mine", false, true});
  EXPECT_NEAR(italic->glyph(U'!').outline.contours[0].start.x, top.x + 0.2126 * top.y, 1e-4);
}

TEST(Hershey, AMissingCharacterLeavesABlank) {
  TempFolder folder;
  folder.write("mine.jhf", std::string(kBlank) + kCorner);
  HersheyFonts fonts(folder());
  const auto face = fonts.open({"Hershey mine", false, false});
  const GlyphShape& shape = face->glyph(U'z');
  EXPECT_TRUE(shape.missing);
  EXPECT_TRUE(shape.substitute.empty());
  EXPECT_TRUE(shape.outline.contours.empty());
  EXPECT_EQ(shape.advance, 0.5);
}

TEST(Hershey, AFileThatIsGoneIsAnError) {
  TempFolder folder;
  const std::string file = folder.write("mine.jhf", kBlank);
  HersheyFonts fonts(folder());
  EXPECT_TRUE(fonts.hasFamily("Hershey mine"));
  std::filesystem::remove(file);
  try {
    fonts.open({"Hershey mine", false, false});
    ADD_FAILURE() << "nothing was raised";
  } catch (const FontError& error) {
    EXPECT_EQ(std::string(error.what()),
              "The font file cannot be read: " + file + ": File not found");
  }
}

}  // namespace
}  // namespace tess
