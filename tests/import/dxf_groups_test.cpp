// Groups of text and binary files, and what their failures say.
#include "import/dxf_groups.h"

#include <vector>

#include "gtest/gtest.h"

#include "tests/import/dxf_content.h"
#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::BinaryForm;
using testing::failureOf;
using testing::inBinaryForm;
using testing::inTextForm;

constexpr char kSample[] = "0 SECTION, 999 a note, 2 HEADER, 10 1.5, 70 -3, 1071 7, 0 EOF";

// Codes and texts, as "0=SECTION".
std::vector<std::string> textsOf(const std::string& content) {
  std::vector<std::string> texts;
  DxfGroups groups(content, "part.dxf");
  while (groups.next()) {
    texts.push_back(std::to_string(groups.code()) + "=" + std::string(groups.text()));
  }
  return texts;
}

std::string descriptionOfFailure(const std::string& content) {
  return failureOf([&] { textsOf(content); }).description();
}

TEST(DxfGroups, EveryLineEndReadsAlikeAndCommentsArePassedOver) {
  const std::vector<std::string> expected{"0=SECTION", "2=HEADER", "10=1.5",
                                          "70=-3",     "1071=7",   "0=EOF"};
  for (const char* const lineEnd : {"\n", "\r\n", "\r", "\r\r\n"}) {
    EXPECT_EQ(textsOf(inTextForm(kSample, lineEnd)), expected) << lineEnd;
  }
}

TEST(DxfGroups, CodesAndValuesMayStandAmongBlanks) {
  EXPECT_EQ(textsOf("  0\n SECTION \t\n+2\n\tX Y\n"),
            (std::vector<std::string>{"0=SECTION", "2=X Y"}));
}

TEST(DxfGroups, AByteOrderMarkIsPassedOver) {
  EXPECT_EQ(textsOf("\xEF\xBB\xBF"
                    "0\nEOF\n"),
            (std::vector<std::string>{"0=EOF"}));
}

TEST(DxfGroups, TheLastLineNeedsNoEndAndBlankLinesBehindItAreNothing) {
  EXPECT_EQ(textsOf("0\nEOF"), (std::vector<std::string>{"0=EOF"}));
  EXPECT_EQ(textsOf("0\nEOF\n \n"), (std::vector<std::string>{"0=EOF"}));
}

TEST(DxfGroups, AFileThatIsNoDxfSaysSo) {
  EXPECT_EQ(descriptionOfFailure("\x89PNG\r\n\x1A\n...."),
            "part.dxf line 1: this is not a DXF file");
  EXPECT_EQ(descriptionOfFailure("Hello\nWorld\n"), "part.dxf line 1: this is not a DXF file");
}

TEST(DxfGroups, ABadCodeNamesItsLine) {
  EXPECT_EQ(descriptionOfFailure("0\nSECTION\n2x\nHEADER\n"),
            "part.dxf line 3: \"2x\" stands where a group code belongs");
  EXPECT_EQ(descriptionOfFailure("0\nSECTION\n99999999999\nHEADER\n"),
            "part.dxf line 3: \"99999999999\" stands where a group code belongs");
}

TEST(DxfGroups, AGroupWithoutItsValueNamesItsLine) {
  EXPECT_EQ(descriptionOfFailure("0\nSECTION\n  10\n"),
            "part.dxf line 3: the file is cut off: group 10 has no value");
}

struct NumberCase {
  const char* text;
  double value;
};

TEST(DxfGroups, NumbersAreReadInEveryForm) {
  for (const NumberCase& each : {NumberCase{"1.5", 1.5},
                                 {" +1.5 ", 1.5},
                                 {"-.25", -0.25},
                                 {"1E3", 1000},
                                 {"7", 7},
                                 {"1e-400", 0}}) {
    const std::string content = std::string("10\n") + each.text + "\n";
    DxfGroups groups(content, "part.dxf");
    ASSERT_TRUE(groups.next());
    EXPECT_EQ(groups.real(), each.value) << each.text;
  }
}

struct BadNumber {
  const char* text;
  const char* trouble;
};

TEST(DxfGroups, WhatIsNoNumberNamesItsLine) {
  for (const BadNumber& each : {BadNumber{"abc", "\"abc\" is no number"},
                                {"", "\"\" is no number"},
                                {"1,5", "\"1,5\" is no number"},
                                {"+-1", "\"+-1\" is no number"},
                                {"1e400", "\"1e400\" is out of range"},
                                {"nan", "\"nan\" is out of range"},
                                {"-inf", "\"-inf\" is out of range"}}) {
    const std::string content = std::string("0\nLINE\n10\n") + each.text + "\n";
    DxfGroups groups(content, "part.dxf");
    groups.next();
    ASSERT_TRUE(groups.next());
    EXPECT_EQ(failureOf([&] { groups.real(); }).description(),
              std::string("part.dxf line 3: ") + each.trouble);
  }
}

TEST(DxfGroups, ALongBadValueIsShortenedAndMadeReadable) {
  const std::string content = "10\n" + std::string(60, 'x') +
                              "\n10\na\x01"
                              "b\n";
  DxfGroups groups(content, "part.dxf");
  groups.next();
  EXPECT_EQ(failureOf([&] { groups.real(); }).description(),
            "part.dxf line 1: \"" + std::string(40, 'x') + "...\" is no number");
  groups.next();
  EXPECT_EQ(failureOf([&] { groups.real(); }).description(),
            "part.dxf line 3: \"a?b\" is no number");
}

TEST(DxfGroups, WholeNumbersMayHaveAPointButNoFraction) {
  const std::string content = "70\n 3\n70\n3.0\n70\n3.5\n70\n99999999999\n";
  DxfGroups groups(content, "part.dxf");
  groups.next();
  EXPECT_EQ(groups.integer(), 3);
  groups.next();
  EXPECT_EQ(groups.integer(), 3);
  for (const char* const text : {"line 5: \"3.5\"", "line 7: \"99999999999\""}) {
    groups.next();
    EXPECT_EQ(failureOf([&] { groups.integer(); }).description(),
              "part.dxf " + std::string(text) + " is no whole number in range");
  }
}

TEST(DxfGroups, APutBackGroupComesAgain) {
  const std::string content = "0\nA\n0\nB\n";
  DxfGroups groups(content, "part.dxf");
  groups.next();
  groups.putBack();
  ASSERT_TRUE(groups.next());
  EXPECT_EQ(groups.text(), "A");
  ASSERT_TRUE(groups.next());
  EXPECT_EQ(groups.text(), "B");
}

TEST(DxfGroups, BothBinaryFormsGiveTheValuesOfTheText) {
  for (const BinaryForm form : {BinaryForm::ShortCodes, BinaryForm::LongCodes}) {
    const std::string content =
        inBinaryForm("0 SECTION, 999 a note, 2 HEADER, 10 1.5, 70 -3, 90 70000, 0 EOF", form);
    DxfGroups groups(content, "part.dxf");
    ASSERT_TRUE(groups.isBinary());
    const auto expectNext = [&groups](int code) {
      ASSERT_TRUE(groups.next());
      EXPECT_EQ(groups.code(), code);
    };
    expectNext(0);
    EXPECT_EQ(groups.text(), "SECTION");
    expectNext(2);
    EXPECT_EQ(groups.text(), "HEADER");
    expectNext(10);
    EXPECT_EQ(groups.real(), 1.5);
    EXPECT_EQ(groups.text(), "");
    expectNext(70);
    EXPECT_EQ(groups.integer(), -3);
    EXPECT_EQ(groups.real(), -3);
    expectNext(90);
    EXPECT_EQ(groups.integer(), 70000);
    expectNext(0);
    EXPECT_EQ(groups.text(), "EOF");
    EXPECT_FALSE(groups.next());
  }
}

TEST(DxfGroups, ACommentMayOpenABinaryFile) {
  for (const BinaryForm form : {BinaryForm::ShortCodes, BinaryForm::LongCodes}) {
    EXPECT_EQ(textsOf(inBinaryForm("999 written by hand, 0 EOF", form)),
              (std::vector<std::string>{"0=EOF"}));
  }
}

TEST(DxfGroups, EveryKindOfBinaryValueIsSteppedOver) {
  std::string content = inBinaryForm("0 SECTION", BinaryForm::LongCodes);
  const auto add = [&content](int code, int bytes) {
    testing::appendBinaryCode(content, code, BinaryForm::LongCodes);
    content.append(static_cast<std::size_t>(bytes), '\0');
  };
  add(290, 1);
  add(170, 2);
  add(420, 4);
  add(160, 8);
  add(140, 8);
  add(330, 1);  // an empty text
  add(310, 1);  // a chunk of no bytes
  add(1071, 4);
  add(480, 1);
  testing::appendBinaryCode(content, 1004, BinaryForm::LongCodes);
  content += std::string(
      "\x03"
      "abc",
      4);
  content += inBinaryForm("0 EOF", BinaryForm::LongCodes).substr(22);
  EXPECT_EQ(textsOf(content),
            (std::vector<std::string>{"0=SECTION", "290=", "170=", "420=", "160=", "140=", "330=",
                                      "310=", "1071=", "480=", "1004=abc", "0=EOF"}));
}

TEST(DxfGroups, ABinaryFileThatIsCutOffNamesItsByte) {
  const std::string whole = inBinaryForm("0 SECTION, 10 1.5", BinaryForm::LongCodes);
  EXPECT_EQ(descriptionOfFailure(whole.substr(0, whole.size() - 3)),
            "part.dxf byte 32: the file is cut off within a group");
  EXPECT_EQ(descriptionOfFailure(whole.substr(0, 28)),
            "part.dxf byte 22: the file is cut off within a group");
}

TEST(DxfGroups, AnUnknownBinaryCodeNamesItsByte) {
  std::string content = inBinaryForm("0 SECTION", BinaryForm::LongCodes);
  testing::appendBinaryCode(content, 85, BinaryForm::LongCodes);
  EXPECT_EQ(descriptionOfFailure(content),
            "part.dxf byte 32: group code 85 is not known in binary files");
}

TEST(DxfGroups, ABinaryNumberThatIsNoneNamesItsByte) {
  std::string content = inBinaryForm("0 SECTION", BinaryForm::LongCodes);
  testing::appendBinaryCode(content, 10, BinaryForm::LongCodes);
  testing::appendBytes(content, 0x7FF8000000000000, 8);
  DxfGroups groups(content, "part.dxf");
  groups.next();
  groups.next();
  EXPECT_EQ(failureOf([&] { groups.real(); }).description(),
            "part.dxf byte 32: a value is no number");
}

}  // namespace
}  // namespace tess
