// Lines for standard error.
#include "shell/automation/reports.h"

#include <ostream>

#include "core/text.h"

namespace tess {

std::string oneLine(std::string_view text) {
  std::string line;
  for (const char letter : text) {
    const bool breaks = letter == '\n' || letter == '\r';
    if (!breaks) line.push_back(letter);
    if (breaks && !line.empty() && line.back() != ' ') line.push_back(' ');
  }
  return std::string(trimmed(line));
}

std::string describe(const RuntimeFailure& failure) {
  if (failure.source().empty()) return failure.description();
  return failure.description() + ": " + failure.source();
}

void say(std::ostream& err, std::string_view text) {
  err << "tessimo: " << oneLine(text) << '\n';
}

}  // namespace tess
