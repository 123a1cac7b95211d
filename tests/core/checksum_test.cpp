// Checksums: what they tell apart, and their texts.
#include "core/checksum.h"

#include <set>

#include "gtest/gtest.h"

namespace tess {
namespace {

TEST(Checksum, TellsEveryCutAndEveryChangedByteApart) {
  const std::string text = "1,8,0,0,1.5,2.25\r\n2,8,0,0,1,1,.5,.5\r\n";
  std::set<std::uint64_t> sums{checksumOf(text).sum};
  std::size_t texts = 1;
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::string changed = text;
    changed[at] = static_cast<char>(changed[at] ^ 1);
    sums.insert(checksumOf(changed).sum);
    sums.insert(checksumOf(text.substr(0, at)).sum);
    texts += 2;
  }
  EXPECT_EQ(sums.size(), texts);
}

TEST(Checksum, ZerosAtTheEndCount) {
  EXPECT_NE(checksumOf(std::string(8, '\0')).sum, checksumOf(std::string(9, '\0')).sum);
  EXPECT_NE(checksumOf("").sum, checksumOf(std::string(1, '\0')).sum);
}

// Files of last year are read by them. The first is the published one of no bytes.
TEST(Checksum, IsTheSameOnEveryRun) {
  EXPECT_EQ(checksumText(checksumOf("")), "xxh3-2d06800538d394c2-0");
  EXPECT_EQ(checksumText(checksumOf("Tessimo Mill")), "xxh3-b61f27d7806ce3c2-12");
}

TEST(Checksum, TextReadsBack) {
  std::optional<Checksum> read;
  for (const Checksum& checksum : {Checksum{0, 0}, Checksum{0xffffffffffffffffU, 1234567890123}}) {
    EXPECT_TRUE(parseChecksum(checksumText(checksum), read));
    EXPECT_EQ(read, checksum);
  }
  EXPECT_EQ(checksumText(Checksum{.sum = 0xab, .size = 7}), "xxh3-00000000000000ab-7");
  EXPECT_TRUE(parseChecksum("none", read));
  EXPECT_EQ(read, std::nullopt);
}

TEST(Checksum, OtherTextsAreNone) {
  std::optional<Checksum> read;
  for (const char* text :
       {"", "nothing", "xxh3-", "xxh3-none", "xxh3-00000000000000ab", "xxh3-00000000000000ab-",
        "xxh3-ab-7", "xxh3-00000000000000ag-7", "xxh3-00000000000000ab-7x",
        "xxh3-00000000000000ab-99999999999999999999999", "00000000000000ab-7",
        "sha1-00000000000000ab-7"}) {
    EXPECT_FALSE(parseChecksum(text, read)) << text;
    EXPECT_EQ(read, std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tess
