// Sums in a text: what they come to, and what is wrong with others and where.
#include "core/arithmetic.h"

#include "gtest/gtest.h"

#include "tests/support/foreign_locale.h"

namespace tess {
namespace {

using testing::ForeignLocale;

double valueOf(const std::string& text) {
  SumReader reader(text);
  const double value = reader.sum();
  EXPECT_TRUE(reader.atEnd()) << text;
  return value;
}

std::string troubleOf(const std::string& text) {
  try {
    SumReader reader(text);
    reader.sum();
  } catch (const SumTrouble& trouble) {
    return trouble.what();
  }
  return "none";
}

TEST(Arithmetic, ProductsComeBeforeSumsAndBracketsBeforeBoth) {
  EXPECT_EQ(valueOf("25.4/2"), 12.7);
  EXPECT_EQ(valueOf("1+2*3"), 7);
  EXPECT_EQ(valueOf("(1+2)*3"), 9);
  EXPECT_EQ(valueOf("10-4-3"), 3);
  EXPECT_EQ(valueOf("16/4/2"), 2);
  EXPECT_EQ(valueOf("((2))"), 2);
}

TEST(Arithmetic, SignsStandBeforeAnyFactor) {
  EXPECT_EQ(valueOf("-3"), -3);
  EXPECT_EQ(valueOf("-(1+2)"), -3);
  EXPECT_EQ(valueOf("2--3"), 5);
  EXPECT_EQ(valueOf("2*-3"), -6);
  EXPECT_EQ(valueOf("+-+4"), -4);
}

TEST(Arithmetic, NumbersAreWrittenInTheUsualWays) {
  EXPECT_EQ(valueOf(" 1 + 1 "), 2);
  EXPECT_EQ(valueOf(".5"), 0.5);
  EXPECT_EQ(valueOf("5."), 5);
  EXPECT_EQ(valueOf("1e3"), 1000);
  EXPECT_EQ(valueOf("2.5e-1"), 0.25);
}

TEST(Arithmetic, ACommaEndsASum) {
  SumReader reader("1+1,2.5");
  EXPECT_EQ(reader.sum(), 2);
  EXPECT_TRUE(reader.take(','));
  EXPECT_EQ(reader.sum(), 2.5);
  EXPECT_TRUE(reader.atEnd());
}

TEST(Arithmetic, TheLocaleMakesNoDifference) {
  const ForeignLocale german("de_DE");
  EXPECT_EQ(valueOf("1.5"), 1.5);
}

TEST(Arithmetic, WhatIsMissingIsToldWithItsPlace) {
  EXPECT_EQ(troubleOf(""), "A number is missing at the end.");
  EXPECT_EQ(troubleOf("2+"), "A number is missing at the end.");
  EXPECT_EQ(troubleOf("2*/3"), "A number is missing at character 3.");
  EXPECT_EQ(troubleOf("(2+3"), "A closing bracket is missing at the end.");
  EXPECT_EQ(troubleOf("(2,3)"), "A closing bracket is missing at character 3.");
  EXPECT_EQ(troubleOf("()"), "A number is missing at character 2.");
}

TEST(Arithmetic, WordsAreNoNumbers) {
  EXPECT_EQ(troubleOf("inf"), "A number is missing at character 1.");
  EXPECT_EQ(troubleOf("nan"), "A number is missing at character 1.");
  EXPECT_EQ(troubleOf("1+x"), "A number is missing at character 3.");
  EXPECT_EQ(troubleOf("."), "A number is missing at character 1.");
}

TEST(Arithmetic, DivisionByZeroIsTold) {
  EXPECT_EQ(troubleOf("1/0"), "The division at character 2 is by zero.");
  EXPECT_EQ(troubleOf("1/(2-2)+1"), "The division at character 2 is by zero.");
}

TEST(Arithmetic, FiguresStayFinite) {
  EXPECT_EQ(troubleOf("1e400"), "A figure is too large or too small at character 1.");
  EXPECT_EQ(troubleOf("1e300*1e300"), "A figure is too large at the end.");
}

TEST(Arithmetic, DepthIsBounded) {
  const auto brackets = [](int depth) {
    return std::string(static_cast<std::size_t>(depth), '(') + "1" +
           std::string(static_cast<std::size_t>(depth), ')');
  };
  EXPECT_EQ(valueOf(brackets(kMostNested)), 1);
  EXPECT_EQ(troubleOf(brackets(kMostNested + 1)),
            "There are too many brackets within brackets at character 34.");
  EXPECT_EQ(troubleOf(std::string(100000, '(')),
            "There are too many brackets within brackets at character 34.");
  EXPECT_EQ(troubleOf(std::string(100000, '-') + "1"), "There are too many signs at character 34.");
}

}  // namespace
}  // namespace tess
