// Programs by the look of their text.
#include "cnc/program_target.h"

#include <algorithm>

#include "cnc/program_letters.h"
#include "core/drawing_format.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

// Enough to see the heading behind the header of any definition, or lines of other programs.
constexpr std::size_t kBeginning = 1 << 16;
// A line of every heading that this program writes.
constexpr std::string_view kHeading = "RS 274-D CNC CODE";
// Of the headings of either kind.
constexpr std::string_view kMillHeading = "Created for GantrixPro";
constexpr std::string_view kLatheHeading = "Created for Lathrix Pro";

void dropBlanks(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
}

// Takes a number off the front; false when there is none.
bool takeNumber(std::string_view& rest) {
  dropBlanks(rest);
  if (!rest.empty() && (rest[0] == '-' || rest[0] == '+')) rest.remove_prefix(1);
  dropBlanks(rest);
  const std::size_t length = std::min(rest.find_first_not_of("0123456789."), rest.size());
  const bool found =
      std::any_of(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(length), isDigit);
  rest.remove_prefix(length);
  return found;
}

// Takes a comment in brackets, or one that reaches to the end of the line.
bool takeComment(std::string_view& rest) {
  if (rest[0] == ';') rest = {};
  if (rest.empty()) return true;
  const std::size_t end = rest[0] == '(' ? rest.find(')') : std::string_view::npos;
  if (end == std::string_view::npos) return false;
  rest.remove_prefix(end + 1);
  return true;
}

// Takes one address with its number, as in "X-1.5"; notes a preparatory or miscellaneous one.
bool takeAddress(std::string_view& rest, bool& commands) {
  const char address = upperCased(rest[0]);
  if (address != ':' && (address < 'A' || address > 'Z')) return false;
  rest.remove_prefix(1);
  if (!takeNumber(rest)) return false;
  commands = commands || address == 'G' || address == 'M';
  return true;
}

// Whether a line is one of a program; notes whether it commands anything.
bool isBlock(std::string_view line, bool& commands) {
  dropBlanks(line);
  if (line.starts_with('%')) return true;  // the tape's ends, with a name or without
  if (line.starts_with('/')) line.remove_prefix(1);
  for (dropBlanks(line); !line.empty(); dropBlanks(line)) {
    if (!takeComment(line) && !takeAddress(line, commands)) return false;
  }
  return true;
}

// The next line; the rest begins behind it.
std::string_view takeLine(std::string_view& rest) {
  const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return line;
}

// The axes that a block names.
struct Axes {
  bool x = false, y = false, z = false;
};

void noteAxes(std::string_view block, Axes& axes) {
  bool commands = false;
  dropBlanks(block);
  if (block.starts_with('/')) block.remove_prefix(1);
  for (dropBlanks(block); !block.empty(); dropBlanks(block)) {
    const char address = upperCased(block[0]);
    if (!takeComment(block) && !takeAddress(block, commands)) return;
    axes.x = axes.x || address == 'X';
    axes.y = axes.y || address == 'Y';
    axes.z = axes.z || address == 'Z';
  }
}

}  // namespace

bool isCncProgram(std::string_view text) {
  const bool whole = text.size() < kBeginning;
  text = text.substr(0, kBeginning);
  const bool empty = text.find_first_not_of(" \t\r\n") == std::string_view::npos;
  if (empty || text.find(kHeading) != std::string_view::npos) return true;
  bool commands = false;
  while (!text.empty()) {
    const std::string_view line = takeLine(text);
    // The last line of a beginning may be cut anywhere.
    const bool complete = whole || !text.empty();
    if (complete && !isBlock(line, commands)) return false;
  }
  return commands;
}

bool isOfDrawing(const DrawingStore& store, const std::string& file) {
  const std::string paths = pathFileName(store.drawingname);
  return isSameFile(file, store.drawingpath + store.drawingname) ||
         (!paths.empty() && isSameFile(file, store.drawingpath + paths));
}

std::optional<std::string> keptAt(const DrawingStore& store, const std::string& file) {
  if (isOfDrawing(store, file)) return "is a file of the drawing itself";
  if (!fileExists(file) || isCncProgram(readBeginning(file, kBeginning))) return std::nullopt;
  return "is no CNC program";
}

std::optional<CncMode> kindOfProgram(std::string_view text) {
  if (text.find(kMillHeading) != std::string_view::npos) return CncMode::Mill;
  if (text.find(kLatheHeading) != std::string_view::npos) return CncMode::Lathe;
  Axes axes;
  bool commands = false;
  while (!text.empty()) {
    const std::string_view line = takeLine(text);
    if (isBlock(line, commands)) noteAxes(line, axes);
  }
  if (axes.y) return CncMode::Mill;
  return axes.x && axes.z ? std::optional(CncMode::Lathe) : std::nullopt;
}

std::optional<CncMode> kindOfProgramAt(const std::string& file) {
  if (!fileExists(file)) return std::nullopt;
  try {
    return kindOfProgram(readBeginning(file, kBeginning));
  } catch (const RuntimeFailure&) {
    takeCallChain();  // writing over it tells what is the matter with it
    return std::nullopt;
  }
}

}  // namespace tess
