// Numbers as text: shortest texts, the pattern language and the lenient parser.
#include "core/number_text.h"

#include <cmath>
#include <limits>
#include <string>

#include "gtest/gtest.h"

#include "core/runtime_failure.h"

namespace tess {
namespace {

struct TextCase {
  float value;
  const char* plain;
  const char* file;
  const char* signBlank;
};

TEST(NumberText, ShortestTextsOfThirtyTwoBitValues) {
  const TextCase cases[] = {
      {0.0F, "0", "0", " 0"},
      {-0.0F, "0", "0", " 0"},
      {0.25F, "0.25", ".25", " .25"},
      {-0.25F, "-0.25", "-.25", "-.25"},
      {2.0F, "2", "2", " 2"},
      {-3.5F, "-3.5", "-3.5", "-3.5"},
      {0.1F, "0.1", ".1", " .1"},
      {16777216.0F, "16777216", "16777216", " 16777216"},
      {1e-6F, "0.000001", ".000001", " .000001"},
      {1e10F, "10000000000", "10000000000", " 10000000000"},
  };
  for (const TextCase& c : cases) {
    EXPECT_EQ(plainText(c.value), c.plain);
    EXPECT_EQ(fileText(c.value), c.file);
    EXPECT_EQ(signBlankText(c.value), c.signBlank);
  }
}

TEST(NumberText, ExtremeValuesReadBackEqual) {
  for (const float value :
       {std::numeric_limits<float>::max(), std::numeric_limits<float>::min(),
        std::numeric_limits<float>::denorm_min(), -std::numeric_limits<float>::max()}) {
    EXPECT_EQ(parseFloat(fileText(value)), value);
  }
}

TEST(NumberText, WritersRefuseWhatIsNoNumber) {
  for (const float value :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    EXPECT_THROW(plainText(value), RuntimeFailure);
    EXPECT_THROW(fileText(value), RuntimeFailure);
    EXPECT_THROW(formatNumber(value, "0.0"), RuntimeFailure);
  }
}

struct PatternCase {
  float value;
  const char* pattern;
  const char* text;
};

TEST(NumberText, PatternsRoundTheShortestTextHalvesAwayFromZero) {
  const PatternCase cases[] = {
      {2.0F, "##0.0####", "2.0"},
      {0.25F, "##0.0####", "0.25"},
      {1234.5F, "##0.0000", "1234.5000"},
      {0.00005F, "##0.0###", "0.0001"},
      {-0.00004F, "##0.0###", "0.0"},
      {1.00005F, "##0.0###", "1.0001"},
      {-1.00005F, "##0.0###", "-1.0001"},
      {9.99999F, "##0.0###", "10.0"},
      {0.0F, "####", ""},
      {125.0F, "####", "125"},
      {125.4F, "####", "125"},
      {0.5F, "####", "1"},
      {0.4F, "####", ""},
      {-0.4F, "####", ""},
      {7.0F, "000.0", "007.0"},
      {0.5F, "#.##", ".5"},
      {2.0F, "0.###", "2."},
      {0.0F, "#.#", "0."},
      {3.25F, "", "3.25"},
      {0.99996F, "##0.0###", "1.0"},
      {-999.96F, "##0.0", "-1000.0"},
      {99.5F, "##0", "100"},
      {-9.5F, "0", "-10"},
      {0.95F, "#.#", "1."},
      {0.04F, "#.#", "0."},
      {-0.04F, "#.#", "0."},
      {12.0F, "#", "12"},
      {1.5F, "x0.0y", "1.5"},
      {1.5F, "xy", "1.5"},
      {-2.25F, "000.000", "-002.250"},
      {16777216.0F, "0.0", "16777216.0"},
      {1e-6F, "##0.0####", "0.0"},
  };
  for (const PatternCase& c : cases) {
    EXPECT_EQ(formatNumber(c.value, c.pattern), c.text) << c.value << " through " << c.pattern;
  }
}

TEST(NumberText, SectionsArePatternsForPositiveNegativeAndZero) {
  const PatternCase cases[] = {
      {45.5F, "###.####;;0", "45.5"},
      {45.0F, "###.####;;0", "45."},
      {0.0F, "###.####;;0", "0"},
      {-0.0F, "###.####;;0", "0"},
      {-45.5F, "###.####;;0", ""},
      {0.00001F, "###.####;;0", "0"},
      {-0.00001F, "###.####;;0", ""},
      {2.25F, "0.0;0.00", "2.3"},
      {-2.25F, "0.0;0.00", "2.25"},
      {-2.25F, "0.0;-0.00", "-2.25"},
      {0.0F, "0.0;-0.00", "0.0"},
      {-0.001F, "0.0;-0.00", "0.00"},
      {-0.001F, "0.0;-0.00;000", "000"},
      {0.0F, "0.0;;", ""},
      {1.5F, ";0;0.0", ""},
      {0.0F, ";0;0.0", "0.0"},
      {0.0F, "0;0;0.00;0.0", "0.00"},
      {-7.5F, "0;x", "7.5"},
  };
  for (const PatternCase& c : cases) {
    EXPECT_EQ(formatNumber(c.value, c.pattern), c.text) << c.value << " through " << c.pattern;
  }
}

TEST(NumberText, OnePatternServesManyNumbersBehindWhatStandsThere) {
  const NumberPattern pattern("##0.0###");
  std::string text = "X";
  pattern.append(text, 1.25F);
  text += " Y";
  pattern.append(text, -0.5F);
  EXPECT_EQ(text, "X1.25 Y-0.5");
}

TEST(NumberText, LongestNumberPassesThroughAPatternUnharmed) {
  const float largest = std::numeric_limits<float>::max();
  const float smallest = std::numeric_limits<float>::denorm_min();
  EXPECT_EQ(formatNumber(-largest, "##0.0"), plainText(-largest) + ".0");
  EXPECT_EQ(formatNumber(smallest, "0." + std::string(60, '#')), plainText(smallest));
  EXPECT_EQ(formatNumber(smallest, "0." + std::string(60, '0')).size(), 62U);
}

// The plain text of a value as the pattern "0.0####" has it, which must not cut it short.
std::string withOneDecimalAtLeast(float value) {
  const std::string plain = plainText(value);
  return plain.find('.') == std::string::npos ? plain + ".0" : plain;
}

TEST(NumberText, FiveDecimalsOfEveryMagnitudeAgreeWithTheShortestText) {
  const NumberPattern pattern("0.0####");
  for (int units = 0; units < 20000000; units += 13) {
    const auto value = static_cast<float>(units / 1e5);
    const std::string expected = withOneDecimalAtLeast(value);
    if (expected.size() - expected.find('.') > 6) {
      ASSERT_GT(units, 1 << 23) << "below, five decimals tell every value apart";
      continue;
    }
    std::string text;
    pattern.append(text, value);
    ASSERT_EQ(text, expected) << units;
  }
}

TEST(NumberText, NeighboursOfFiveDecimalsAreRoundedToThem) {
  const NumberPattern pattern("0.0####");
  for (int units = 1; units < 800000; units += 7) {
    const auto value = static_cast<float>(units / 1e5);
    for (const float aside : {std::nextafter(value, 0.0F), std::nextafter(value, 100.0F)}) {
      std::string text;
      pattern.append(text, aside);
      ASSERT_EQ(text, withOneDecimalAtLeast(value)) << units;
    }
  }
}

struct ParseCase {
  const char* text;
  double value;
};

TEST(NumberText, LenientParseTakesTheLeadingNumber) {
  const ParseCase cases[] = {
      {"", 0},       {"abc", 0},  {"12", 12},      {"  12", 12},  {"+5", 5},
      {"-.5", -0.5}, {"5.", 5},   {"1.0 beta", 1}, {"1e2", 100},  {"1E-2x", 0.01},
      {"1e", 1},     {"inf", 0},  {"nan", 0},      {"-inf", 0},   {"+-5", 0},
      {"--5", 0},    {"0x10", 0}, {".", 0},        {"1e-400", 0}, {"-", 0},
  };
  for (const ParseCase& c : cases) EXPECT_EQ(Val(c.text), c.value) << c.text;
  EXPECT_TRUE(std::isinf(Val("1e400")));
}

TEST(NumberText, NumbersThatDoNotFitOverflow) {
  EXPECT_THROW(parseFloat("1e39"), RuntimeFailure);
  EXPECT_EQ(parseFloat("1e-60"), 0.0F);
  EXPECT_EQ(parseFloat("0." + std::string(60, '0') + "1"), 0.0F);
  EXPECT_THROW(parseFloat(std::string(60, '9')), RuntimeFailure);
  EXPECT_THROW(parseInteger("99999999999"), RuntimeFailure);
  EXPECT_EQ(parseInteger("2147483647"), 2147483647);
}

TEST(NumberText, IntegersRoundTiesToEven) {
  const ParseCase cases[] = {{"2.5", 2}, {"3.5", 4}, {"-2.5", -2}, {"2.6", 3}, {"1e2", 100},
                             {"7", 7},   {" 7,", 7}, {"", 0},      {"x", 0}};
  for (const ParseCase& c : cases) EXPECT_EQ(parseInteger(c.text), c.value) << c.text;
}

TEST(NumberText, StrictParseTakesTheWholeText) {
  const std::pair<const char*, double> numbers[] = {
      {"2", 2}, {" 2.5\t", 2.5}, {"+.5", 0.5}, {"-3", -3}, {"1e3", 1000}, {"0", 0}, {"1e-999", 0}};
  for (const auto& [text, value] : numbers) EXPECT_EQ(numericValue(text), value) << text;
  for (const char* text : {"", " ", "2 in", "x", "1,5", "1/2", "nan", "--2", "+", "."}) {
    EXPECT_EQ(numericValue(text), std::nullopt) << text;
  }
  EXPECT_EQ(numericValue("-1e999"), -std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace tess
