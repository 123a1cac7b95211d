// The lines of a program that are no motions.
#include "cnc/program_text.h"

namespace tess {
namespace {

constexpr std::size_t kBarLength = 75;

}  // namespace

void WriteRemLine(std::string& out, const PostDefinition& definition, std::string_view line) {
  out.append(definition.cnccomment).append(line).append(kLineEnd);
}

void ProgramText::bar(char mark) {
  remark(std::string(kBarLength, mark));
}

void ProgramText::title(std::string_view heading) {
  bar('-');
  remark(heading);
  bar('-');
}

}  // namespace tess
