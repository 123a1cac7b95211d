// The text area of the viewer: what is chosen, found, marked and copied.
#include "cnc/file_text.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/form.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileTextTest : public ::testing::Test {
 protected:
  void show(const std::string& text) { text_.showLines(TextLines(text)); }
  int found() const { return text_.match().line; }

  Form form{"frmTest"};
  FileText text_{form, "txtFile"};
};

TEST_F(FileTextTest, ItsTextIsThatOfTheLinesJoinedByCrLf) {
  show("a\nb\rc");
  EXPECT_EQ(text_.text(), "a\r\nb\r\nc");
  show("a\r\n");
  EXPECT_EQ(text_.text(), "a");
  show("");
  EXPECT_EQ(text_.text(), "");
}

TEST_F(FileTextTest, OddBytesAreShownAsLatin1) {
  show(
      "\xD8"
      "5\n\xC3\x98 6");
  EXPECT_EQ(text_.shownLine(0),
            "\xC3\x98"
            "5");
  EXPECT_EQ(text_.shownLine(1), "\xC3\x98 6");
}

TEST_F(FileTextTest, OfAnEndlessLineTheBeginningIsShownAndAllIsCopied) {
  const std::string line(100000, 'x');
  show(line);
  EXPECT_EQ(text_.shownLine(0).size(), 4096U);
  EXPECT_EQ(text_.longestShown(), 4096U);
  EXPECT_EQ(text_.copiedText(), line + "\n");
  EXPECT_EQ(text_.text(), line);
}

TEST_F(FileTextTest, NobodyTypesIntoIt) {
  show("a");
  EXPECT_FALSE(text_.type("b"));
  EXPECT_EQ(text_.text(), "a");
}

TEST_F(FileTextTest, AScriptMaySetItsText) {
  text_.set("text", std::string("a\nb"));
  EXPECT_EQ(std::get<std::string>(text_.get("text")), "a\r\nb");
}

TEST_F(FileTextTest, ChosenLinesReachFromTheAnchorToTheLast) {
  show("a\nb\nc\nd");
  EXPECT_EQ(text_.chosen().count, 0);
  text_.choose(2, 1);
  EXPECT_EQ(text_.chosen(), (LineSpan{1, 2}));
  EXPECT_EQ(text_.copiedText(), "b\nc\n");
  text_.choose(-3, 99);
  EXPECT_EQ(text_.chosen(), (LineSpan{0, 4}));
  show("x");
  EXPECT_EQ(text_.chosen().count, 0) << "another text, another choice";
  EXPECT_EQ(text_.copiedText(), "x\n");
}

TEST_F(FileTextTest, AnEmptyTextHasNothingToChooseFindOrCopy) {
  show("");
  text_.choose(0, 0);
  text_.pickLine(0);
  EXPECT_EQ(text_.anchor(), -1);
  EXPECT_FALSE(text_.find("a", /*backwards=*/false));
  EXPECT_FALSE(text_.find("a", /*backwards=*/true));
  EXPECT_EQ(text_.copiedText(), "");
}

TEST_F(FileTextTest, APickedLineIsTold) {
  show("a\nb");
  int picked = 0;
  text_.onPickLine = [&] { ++picked; };
  text_.choose(0, 0);
  EXPECT_EQ(picked, 0);
  text_.pickLine(1);
  EXPECT_EQ(picked, 1);
  EXPECT_EQ(text_.chosen(), (LineSpan{1, 1}));
}

TEST_F(FileTextTest, SearchGoesOnAndRoundTheEnd) {
  show("G01 X1\nG01 x2 x3\nM30");
  ASSERT_TRUE(text_.find("X", false));
  EXPECT_EQ(found(), 0);
  ASSERT_TRUE(text_.find("X", false));
  EXPECT_EQ(found(), 1);
  EXPECT_EQ(text_.match().begin, 4U);
  ASSERT_TRUE(text_.find("x", false));
  EXPECT_EQ(found(), 1);
  EXPECT_EQ(text_.match().begin, 7U);
  ASSERT_TRUE(text_.find("x", false));
  EXPECT_EQ(found(), 0) << "from the top again";
  ASSERT_TRUE(text_.find("x", true));
  EXPECT_EQ(found(), 1);
  EXPECT_EQ(text_.match().begin, 7U);
  ASSERT_TRUE(text_.find("x", true));
  EXPECT_EQ(text_.match().begin, 4U);
}

TEST_F(FileTextTest, TheOnlyMatchIsFoundAgain) {
  show("a\nX\nb");
  for (const bool backwards : {false, true, true, false}) {
    ASSERT_TRUE(text_.find("x", backwards));
    EXPECT_EQ(found(), 1);
  }
}

TEST_F(FileTextTest, SearchBeginsAtTheChosenLine) {
  show("x\nx\nx");
  text_.choose(1, 1);
  ASSERT_TRUE(text_.find("x", false));
  EXPECT_EQ(found(), 1);
  text_.choose(1, 1);
  ASSERT_TRUE(text_.find("x", true));
  EXPECT_EQ(found(), 0);
}

TEST_F(FileTextTest, WhatIsNowhereIsNotFoundAndTheLineStays) {
  show("a\nb");
  text_.choose(1, 1);
  EXPECT_FALSE(text_.find("q", false));
  EXPECT_FALSE(text_.find("q", true));
  EXPECT_EQ(found(), -1);
  EXPECT_EQ(text_.chosen(), (LineSpan{1, 1}));
  EXPECT_FALSE(text_.find("", false));
}

TEST_F(FileTextTest, TypingOnStaysAtTheMatchWhileItMatches) {
  show("G0\nG01\nG012");
  text_.findOn("G");
  EXPECT_EQ(found(), 0);
  text_.findOn("G01");
  EXPECT_EQ(found(), 1);
  text_.findOn("G012");
  EXPECT_EQ(found(), 2);
  EXPECT_FALSE(text_.findOn("G0123"));
  EXPECT_FALSE(text_.findOn(""));
}

TEST_F(FileTextTest, LettersOutsideAsciiAreFoundInEitherEncoding) {
  show("\xD6l\n\xC3\xB6l");
  ASSERT_TRUE(text_.find("\xC3\x96L", false));
  EXPECT_EQ(found(), 0);
  ASSERT_TRUE(text_.find("\xC3\x96L", false));
  EXPECT_EQ(found(), 1);
}

TEST_F(FileTextTest, MatchesOfALineAreKnownForPainting) {
  show("aXbxX");
  text_.find("x", false);
  std::vector<std::size_t> begins;
  for (const TextMatch& match : text_.matchesIn(0)) begins.push_back(match.begin);
  EXPECT_THAT(begins, ElementsAre(1, 3, 4));
  text_.find("", false);
  EXPECT_THAT(text_.matchesIn(0), IsEmpty());
}

TEST_F(FileTextTest, MarkedLinesThatTouchBecomeOne) {
  show("0\n1\n2\n3\n4\n5\n6");
  text_.mark({{1, 1}, {2, 2}, {5, 0}, {5, 1}});
  EXPECT_THAT(text_.marked(), ElementsAre(LineSpan{1, 3}, LineSpan{5, 1}));
  std::string marks;
  for (int line = 0; line < 7; ++line) marks.push_back(text_.isMarked(line) ? 'x' : '.');
  EXPECT_EQ(marks, ".xxx.x.");
  EXPECT_EQ(text_.revealed(), 1);
}

TEST_F(FileTextTest, TheSameMarksMoveNothing) {
  show("0\n1");
  text_.mark({{1, 1}});
  const int reveals = text_.reveals();
  text_.mark({{1, 1}});
  EXPECT_EQ(text_.reveals(), reveals);
  text_.mark({});
  EXPECT_EQ(text_.reveals(), reveals);
  EXPECT_FALSE(text_.isMarked(1));
}

}  // namespace
}  // namespace tess
