// Blanks, letter case and encodings of texts.
#include "core/text.h"

#include "gtest/gtest.h"

namespace tess {
namespace {

TEST(Text, TrimmedTakesBlanksAndTabsFromBothEnds) {
  EXPECT_EQ(trimmed(" \t a b\t "), "a b");
  EXPECT_EQ(trimmed(" \t"), "");
  EXPECT_EQ(trimmed(""), "");
}

TEST(Text, LetterCaseCoversLatinOne) {
  EXPECT_EQ(upperCased("fräse ÷ ß 9z"), "FRÄSE ÷ ß 9Z");
  EXPECT_EQ(lowerCased("FRÄSE × 9Z"), "fräse × 9z");
  EXPECT_TRUE(equalIgnoringCase("Ähre", "äHRE"));
  EXPECT_FALSE(equalIgnoringCase("a", "ab"));
  EXPECT_EQ(findIgnoringCase("Main Color", "COL"), 5U);
  EXPECT_EQ(findIgnoringCase("Main", "x"), std::string::npos);
}

TEST(Text, OnOneLineHasBlanksForLineEnds) {
  EXPECT_EQ(onOneLine("a\r\nb\nc\rd"), "a  b c d");
  EXPECT_EQ(onOneLine("a,b"), "a,b");
}

TEST(Text, BytesThatAreNoUtf8AreLatinOne) {
  EXPECT_EQ(toUtf8("Fr\xE4se"), "Fräse");
  EXPECT_EQ(toUtf8("Fräse"), "Fräse");
  EXPECT_EQ(toUtf8("\xC0\x80"), "\xC3\x80\xC2\x80") << "an overlong form is none";
  EXPECT_EQ(toUtf8("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xC2\x80") << "nor is half a pair";
  EXPECT_EQ(toUtf8("\xE2\x82"), "\xC3\xA2\xC2\x82") << "nor one cut off";
  EXPECT_EQ(toUtf8("€\xF0\x9F\x94\xA7"), "€\xF0\x9F\x94\xA7");
}

TEST(Text, CharactersAreCountedNotBytes) {
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_EQ(characterCount("Fräse"), 5U);
  EXPECT_EQ(characterCount("\xE2\x82\xAC\xF0\x9F\x94\xA7"), 2U);
  EXPECT_EQ(firstCharacters("Fräse", 3), "Frä");
  EXPECT_EQ(firstCharacters("Fräse", 2), "Fr");
  EXPECT_EQ(firstCharacters("abc", 3), "abc");
  EXPECT_EQ(firstCharacters("abc", 9), "abc");
  EXPECT_EQ(firstCharacters("abc", 0), "");
}

TEST(Text, CodePointsAreReadAsTheTextIs) {
  EXPECT_EQ(codePoints(""), U"");
  EXPECT_EQ(codePoints("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA7z"), U"a\u00E4\u20AC\U0001F527z");
  EXPECT_EQ(codePoints("\xE4\xFF\xC3"), U"\u00E4\u00FF\u00C3");
}

TEST(Text, ACodePointComesBackAsItWasWritten) {
  for (const char32_t code : {0x41U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xFFFDU, 0x10000U, 0x10FFFFU}) {
    std::string text = "x";
    appendCharacter(text, code);
    EXPECT_EQ(codePoints(text), (std::u32string{U'x', code}));
    EXPECT_EQ(toUtf8(text), text);
  }
}

}  // namespace
}  // namespace tess
