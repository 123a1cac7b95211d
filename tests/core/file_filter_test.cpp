// Filters and patterns of file dialogs.
#include "core/file_filter.h"

#include "gtest/gtest.h"

namespace tess {
namespace {

std::vector<std::string> joined(const std::string& text) {
  std::vector<std::string> lines;
  for (const FileFilter& filter : filtersOf(text)) {
    lines.push_back(filter.title + " -> " + filter.pattern);
  }
  return lines;
}

using Lines = std::vector<std::string>;

TEST(FileFilter, APatternAloneIsItsOwnTitle) {
  EXPECT_EQ(joined("*.CDM"), Lines{"*.CDM -> *.CDM"});
}

TEST(FileFilter, TitlesAndPatternsComeInPairs) {
  EXPECT_EQ(joined("Layout Files (*.tb3)|*.tb3|All Files (*.*)|*.*"),
            (Lines{"Layout Files (*.tb3) -> *.tb3", "All Files (*.*) -> *.*"}));
  EXPECT_EQ(joined("Layout Files|*.tb3|All Files"), Lines{"Layout Files -> *.tb3"})
      << "a title without a pattern has nothing to show";
}

TEST(FileFilter, NoPatternIsEveryFile) {
  EXPECT_EQ(joined(""), Lines{"All Files (*.*) -> *.*"});
}

struct MatchCase {
  const char* name;
  const char* pattern;
  bool matches;
};

TEST(FileFilter, NamesFitInEitherCase) {
  const MatchCase cases[] = {
      {"part.cdm", "*.CDM", true},
      {"PART.CDM", "*.cdm", true},
      {"part.tpm", "*.cdm", false},
      {"README", "*.*", true},
      {"README", "*", true},
      {"part.cdm.bak", "*.cdm", false},
      {"a.tb3", "*.cdm; *.tb3", true},
      {"part1.cdm", "part?.cdm", true},
      {"part12.cdm", "part?.cdm", false},
      {"aXbXc.cdm", "a*x*c.cdm", true},
      {"aab", "*ab", true},
      {"abab", "*ab", true},
      {"ab", "ab*", true},
      {"", "*", true},
      {"part", "", false},
  };
  for (const MatchCase& row : cases) {
    EXPECT_EQ(matchesPattern(row.name, row.pattern), row.matches)
        << row.name << " as " << row.pattern;
  }
}

TEST(FileFilter, TheEndingIsThatOfTheFirstPattern) {
  EXPECT_EQ(endingOf("*.cdm"), ".cdm");
  EXPECT_EQ(endingOf("*.tb3;*.cdm"), ".tb3");
  EXPECT_EQ(endingOf("*.*"), "");
  EXPECT_EQ(endingOf("*"), "");
  EXPECT_EQ(endingOf(""), "");
}

}  // namespace
}  // namespace tess
