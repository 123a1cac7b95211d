// The lines of a program that are no motions.
#include "cnc/program_text.h"

#include "cnc/program_letters.h"
#include "core/number_text.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr std::size_t kBarLength = 75;
// Controls read line numbers of five digits; a longer program begins again.
constexpr int kLargestLineNumber = 99999;

}  // namespace

std::string cleanedRemark(const Dialect& dialect, std::string_view text) {
  std::string cleaned = dialect.commentUpper ? upperCased(text) : std::string(text);
  for (std::size_t at = 0;
       (at = cleaned.find_first_of(dialect.commentClean, at)) != cleaned.npos;) {
    cleaned[at] = ' ';
  }
  return cleaned;
}

void WriteRemLine(std::string& out, const PostDefinition& definition, std::string_view line) {
  out.append(definition.cnccomment).append(cleanedRemark(definition.dialect, line));
  out.append(definition.dialect.commentEnd).append(kLineEnd);
}

void ProgramText::bar(char mark) {
  remark(std::string(kBarLength, mark));
}

void ProgramText::appendNumber() {
  char word[kLongestNumber + 2] = {'N'};
  char* const end = writeFileText(word + 1, number_);
  *end = ' ';
  numberBegin_ = out_.size();
  out_.append(word, end + 1);
}

void ProgramText::settleNumber(std::size_t begin) {
  if (begin >= out_.size() || !isLetter(out_[begin])) {
    out_.erase(numberBegin_, begin - numberBegin_);
    return;
  }
  const LineNumbers& numbers = definition_.dialect.lineNumbers;
  number_ += numbers.step;
  if (number_ > kLargestLineNumber) number_ = numbers.start;
}

void ProgramText::title(std::string_view heading) {
  bar('-');
  remark(heading);
  bar('-');
}

}  // namespace tess
