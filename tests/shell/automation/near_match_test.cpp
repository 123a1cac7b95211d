// What a misspelled name was meant to be.
#include "shell/automation/near_match.h"

#include <vector>

#include "gtest/gtest.h"

namespace tess {
namespace {

const std::vector<std::string> kNames = {"NumSegments", "NumPathSegments", "x0", "final depth"};

TEST(NearMatch, FindsTheNameThatFewLettersPart) {
  struct Case {
    const char* word;
    const char* meant;  // "" for none
  };
  const Case cases[] = {
      {"NumSegmets", "NumSegments"},   // a letter missing
      {"NumSegmenst", "NumSegments"},  // two swapped
      {"numsegments", "NumSegments"},  // another case
      {"NumPathSegmnts", "NumPathSegments"},
      {"fnal dpth", "final depth"},
      {"x00", "x0"},
      {"selectedtool", ""},
      {"q", ""},
      {"", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(nearMatch(c.word, kNames).value_or(""), c.meant) << c.word;
  }
}

TEST(NearMatch, TheEarlierOfTwoEquallyCloseNamesWins) {
  const std::vector<std::string> names = {"psx1", "psx0"};
  EXPECT_EQ(nearMatch("psx2", names), "psx1");
}

TEST(NearMatch, AnEndlessWordIsNoMisspelling) {
  EXPECT_EQ(nearMatch(std::string(100000, 'x'), kNames), std::nullopt);
}

TEST(NearMatch, TheHintIsAQuestionOrNothing) {
  EXPECT_EQ(didYouMean("NumSegment", kNames), " (did you mean 'NumSegments'?)");
  EXPECT_EQ(didYouMean("surface", kNames), "");
}

}  // namespace
}  // namespace tess
