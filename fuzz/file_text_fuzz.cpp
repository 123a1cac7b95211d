// Shows any bytes in the viewer's area, and searches, marks and copies there. Lines and places
// agree, and every line can be shown.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "cnc/file_text.h"
#include "core/form.h"

namespace {

void requireThat(bool holds) {
  if (!holds) std::abort();
}

void checkLines(const tess::FileText& text) {
  const tess::TextLines& lines = text.lines();
  std::size_t bytes = 0;
  for (int line = 0; line < lines.count(); ++line) {
    const std::size_t place = lines.placeOf(line);
    requireThat(lines.lineAt(place) == line);
    requireThat(lines.line(line).find_first_of("\r\n") == std::string_view::npos);
    requireThat(text.matchesIn(line).size() <= text.shownLine(line).size());
    bytes += lines.line(line).size();
  }
  requireThat(bytes <= lines.text().size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string content(reinterpret_cast<const char*>(data), size);
  tess::Form form("frmFuzz");
  tess::FileText text(form, "txtFile");
  text.showLines(tess::TextLines(content));
  // The beginning is what is looked for in all of it.
  const std::string words = content.substr(0, size % 4);
  for (const bool backwards : {false, true, true, false}) {
    if (text.find(words, backwards)) requireThat(text.match().line < text.lines().count());
  }
  checkLines(text);
  text.choose(static_cast<int>(size % 7), static_cast<int>(size % 3));
  text.mark({text.chosen()});
  requireThat(text.text().size() <= 4 * size);
  text.copiedText();
  return 0;
}
