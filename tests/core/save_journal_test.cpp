// The text of a journal and the names that go with it.
#include "core/save_journal.h"

#include <string>

#include "gtest/gtest.h"

namespace tess {
namespace {

const SaveJournal kJournal{.name = "PART one.CDM",
                           .keepsOld = true,
                           .files = {{.before = Checksum{1, 2}, .after = Checksum{3, 4}},
                                     {.before = std::nullopt, .after = Checksum{5, 6}},
                                     {.before = Checksum{7, 8}, .after = std::nullopt}}};

TEST(SaveJournal, TextReadsBack) {
  EXPECT_EQ(parseJournal(journalText(kJournal)), kJournal);
  SaveJournal other = kJournal;
  other.keepsOld = false;
  other.files.pop_back();
  EXPECT_EQ(parseJournal(journalText(other)), other);
}

TEST(SaveJournal, SaysWhatItIsToAReader) {
  EXPECT_TRUE(
      journalText(kJournal).starts_with("Tessimo save 2\n"
                                        "PART one.CDM\n"
                                        "renews backup\n"
                                        "xxh3-0000000000000001-2 xxh3-0000000000000003-4\n"
                                        "none xxh3-0000000000000005-6\n"
                                        "xxh3-0000000000000007-8 none\n"));
}

TEST(SaveJournal, TextThatIsCutOrChangedAnywhereIsNone) {
  const std::string text = journalText(kJournal);
  for (std::size_t at = 0; at < text.size(); ++at) {
    EXPECT_EQ(parseJournal(text.substr(0, at)), std::nullopt) << at;
    std::string changed = text;
    changed[at] = static_cast<char>(changed[at] ^ 1);
    EXPECT_EQ(parseJournal(changed), std::nullopt) << at;
  }
}

// With a checksum of its own, as somebody might forge one.
std::string proven(const std::string& body) {
  return body + checksumText(checksumOf(body)) + "\n";
}

TEST(SaveJournal, LinesThatMeanNothingMakeItNone) {
  const std::string head = "Tessimo save 2\nPART.CDM\nrenews backup\n";
  EXPECT_TRUE(parseJournal(proven(head + "none none\n")));
  for (const char* body : {"", "Tessimo save 2\n", "Tessimo save 3\nPART.CDM\nrenews backup\n",
                           "Tessimo save 2\nPART.CDM\nrenews backup\nnone\n",
                           "Tessimo save 2\nPART.CDM\nrenews backup\nnone 12\n",
                           "Tessimo save 2\nPART.CDM\nrenews backup\n12 none\n",
                           "Tessimo save 2\nPART.CDM\nburns backup\nnone none\n"}) {
    EXPECT_FALSE(parseJournal(proven(body))) << body;
  }
  std::string many = head;
  for (std::size_t file = 0; file <= SaveJournal::kMaxFiles; ++file) many += "none none\n";
  EXPECT_FALSE(parseJournal(proven(many)));
}

TEST(SaveJournal, AnotherVersionIsKnownByItsTitle) {
  for (const char* text : {"Tessimo save 1\n", "Tessimo save 3\nwhatever follows"}) {
    EXPECT_TRUE(isOfAnotherVersion(text)) << text;
  }
  for (const std::string text :
       {"", "Tessimo sa", "Tessimo save 1", "Tessimo save 2\nPART.CDM", "x\n"}) {
    EXPECT_FALSE(isOfAnotherVersion(text)) << text;
  }
}

TEST(SaveJournal, NamesAreTheSameInAnyCaseAndShortForLongNames) {
  const std::string stem = journalStem("Part.cdm");
  EXPECT_EQ(stem, journalStem("PART.CDM"));
  EXPECT_NE(stem, journalStem("PART2.CDM"));
  EXPECT_TRUE(stem.starts_with(".tessimo-"));
  EXPECT_LT(freshName(journalStem(std::string(255, 'x')), 1).size(), 64U);
  EXPECT_EQ(freshName(stem, 1), stem + "-1.new");
  EXPECT_EQ(spareName(stem, 0), stem + "-0.old");
  EXPECT_EQ(stemOfJournal(journalName(stem)), stem);
  EXPECT_EQ(stemOfJournal(freshName(stem, 0)), std::nullopt);
  EXPECT_EQ(stemOfJournal("part.journal"), std::nullopt);
}

}  // namespace
}  // namespace tess
