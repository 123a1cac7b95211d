// Texts line by line.
#include "cnc/text_lines.h"

#include <random>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "tests/support/failure_of.h"

namespace tess {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::numberOfFailure;

std::vector<std::string> linesOf(const TextLines& lines) {
  std::vector<std::string> texts;
  for (int line = 0; line < lines.count(); ++line) texts.emplace_back(lines.line(line));
  return texts;
}

std::vector<std::string> linesOf(const std::string& text) {
  return linesOf(TextLines(text));
}

TEST(TextLines, EveryKindOfLineEndCounts) {
  EXPECT_THAT(linesOf("a\r\nb\nc\rd"), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(linesOf("a\r\r\n\n"), ElementsAre("a", "", ""));
}

TEST(TextLines, NoByteIsNoLineAndAnEmptyLineIsOne) {
  EXPECT_THAT(linesOf(""), IsEmpty());
  EXPECT_THAT(linesOf("\r\n"), ElementsAre(""));
  EXPECT_THAT(linesOf("\n\n"), ElementsAre("", ""));
}

TEST(TextLines, TheLastLineNeedsNoEnd) {
  EXPECT_THAT(linesOf("G90\r\nM30"), ElementsAre("G90", "M30"));
  EXPECT_FALSE(TextLines("G90\r\nM30").lastLineEnds());
  EXPECT_TRUE(TextLines("G90\r\nM30\r\n").lastLineEnds());
  EXPECT_TRUE(TextLines("G90\r").lastLineEnds());
  EXPECT_TRUE(TextLines("").lastLineEnds());
}

TEST(TextLines, AnyByteButALineEndIsOfItsLine) {
  const std::string odd("a\0b\x1A\xFF", 5);
  EXPECT_THAT(linesOf(odd + "\n"), ElementsAre(odd));
}

TEST(TextLines, ALineThatThereIsNotIsOutOfRange) {
  const TextLines lines("a\nb");
  EXPECT_EQ(numberOfFailure([&] { lines.line(2); }), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { lines.line(-1); }), FailureNumber::SubscriptOutOfRange);
  EXPECT_EQ(numberOfFailure([&] { lines.placeOf(2); }), FailureNumber::SubscriptOutOfRange);
}

TEST(TextLines, TheLongestLineIsKnown) {
  EXPECT_EQ(TextLines("a\r\nabc\r\nab").longest(), 3U);
  EXPECT_EQ(TextLines("").longest(), 0U);
}

// The plain way: each byte in turn.
std::vector<std::size_t> beginsOf(const std::string& text) {
  std::vector<std::size_t> begins;
  bool begins_here = true;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (begins_here) begins.push_back(at);
    const bool ends = text[at] == '\n' || text[at] == '\r';
    const bool pairFollows = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
    begins_here = ends && !pairFollows;
  }
  return begins;
}

TEST(TextLines, PlacesAndLinesAgreeWithAPlainScan) {
  std::mt19937 random(3);  // NOLINT: the same texts on every run
  for (int round = 0; round < 40; ++round) {
    std::string text;
    for (int i = 0; i < round * 13; ++i) text.push_back("ab\r\n"[random() % 4]);
    const TextLines lines(text);
    const std::vector<std::size_t> begins = beginsOf(text);
    ASSERT_EQ(lines.count(), static_cast<int>(begins.size())) << round;
    for (int line = 0; line < lines.count(); ++line) {
      const std::size_t begin = begins[static_cast<std::size_t>(line)];
      EXPECT_EQ(lines.placeOf(line), begin);
      const bool last = line + 1 == lines.count();
      const std::size_t end = last ? text.size() : begins[static_cast<std::size_t>(line) + 1];
      for (std::size_t place = begin; place < end; ++place) EXPECT_EQ(lines.lineAt(place), line);
    }
    EXPECT_EQ(lines.lineAt(text.size() + 5), std::max(lines.count() - 1, 0));
  }
}

}  // namespace
}  // namespace tess
