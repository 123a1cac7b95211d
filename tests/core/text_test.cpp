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

}  // namespace
}  // namespace tess
