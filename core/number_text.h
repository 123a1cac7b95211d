// The one home of numbers as text, for files, programs and the screen. No locale plays a part, and
// no text written here is anything but a plain decimal: no exponent, no "-0", no NaN or infinity.
// Owns: plainText, exactText, kLongestNumber, fileText, writeFileText, appendFileText,
//       signBlankText, NumberPattern, formatNumber, Val, parseFloat, parseInteger, numericValue.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tess {

// The shortest decimal text that reads back as the same 32-bit value: "0.25", "-3", "12.7".
// Raises Invalid procedure call for a value that is no number or infinite; so do all writers here.
std::string plainText(float value);

// The same for a 64-bit value.
std::string exactText(double value);

// Room enough for the text of any 32-bit number.
inline constexpr std::size_t kLongestNumber = 64;

// The same without the zero before the point, as the drawing files have it: ".25", "-.5".
std::string fileText(float value);
char* writeFileText(char* out, float value);  // to `out`; where the text ends
char* writeFileText(char* out, int value);
void appendFileText(std::string& out, float value);
void appendFileText(std::string& out, int value);

// fileText with a blank in front of a value that is not negative: " .25".
std::string signBlankText(float value);
std::string signBlankText(int value);

// How numbers are to look: "0" is a digit that is always written, "#" one that is written when
// significant, "." the decimal point; other characters of the pattern are passed over. The shortest
// decimal text of a value is rounded to the pattern's decimals, halves away from zero; a result of
// zero has no sign. An empty pattern gives the plain text; "####" gives "" for zero.
// Sections "positive;negative;zero" are patterns of their own: the negative one gets the value
// without its sign and writes a "-" that stands in it, the last one also what the first rounds to
// nothing. An empty section writes nothing; without the last two the first serves all.
// Read once, then used for as many numbers as come: appending needs no memory but `out`.
class NumberPattern {
 public:
  explicit NumberPattern(std::string_view text = {});
  void append(std::string& out, float value) const;

 private:
  struct Section {
    explicit Section(std::string_view text = {});
    void append(std::string& out, float value) const;
    void appendUnits(std::string& out, unsigned units, bool negative) const;
    bool roundsToNothing(float value) const;

    std::size_t leadingDigits = 0;    // before the point, always written
    std::size_t minimumDecimals = 0;  // always written
    std::size_t decimals = 0;         // written at most
    double scale = 1;                 // ten to the power of the decimals
    bool hasPoint = false;
    bool hasDigits = false;
    bool hasSign = false;
    bool isEmpty = false;
  };
  const Section* sectionOf(float value) const;  // null: nothing is written

  Section positive_, negative_, zero_;
  int sections_ = 1;  // as many as the pattern has
};

// One value through a pattern.
std::string formatNumber(float value, std::string_view pattern);

// Lenient parse: the number that the text begins with after leading blanks, 0 when there is none.
// A value too large for the 64-bit range gives infinity.
double Val(std::string_view text);

// The same narrowed to a 32-bit float, correctly rounded from the text; raises Overflow.
float parseFloat(std::string_view text);

// The same as a whole number, ties to even; raises Overflow outside the 32-bit range.
int parseInteger(std::string_view text);

// Strict parse: the number that the whole text is, but for blanks at both ends; nothing for any
// other text. A value too large for the 64-bit range gives infinity.
std::optional<double> numericValue(std::string_view text);

}  // namespace tess
