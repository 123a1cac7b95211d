// The tool chest as a file of its own: CSV, and the tool table of LinuxCNC.
// Owns: kLongestToolName, ToolLibraryFormat, toolLibraryFormat, ToolImport, toolCsv, toolTable,
//       isToolCsv, importToolCsv, importToolTable, exportedTools, importTools.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tess {

struct DrawingStore;

// What the chest shows of a name.
inline constexpr std::size_t kLongestToolName = 20;

enum class ToolLibraryFormat { Csv, LinuxCnc };

// By the ending of the name, .csv or .tbl; nothing for another one.
std::optional<ToolLibraryFormat> toolLibraryFormat(std::string_view path);

// What came of an import.
struct ToolImport {
  int tools = 0;                      // taken over
  std::vector<std::string> problems;  // "FILE:LINE: WHAT", as far as an operator will read them
};

// All tools that a setup holds, one line each under a line of column names.
std::string toolCsv(const DrawingStore& store);

// The tools as a tool table: number, pocket, diameter, and the name as the remark. Lines of a table
// that is there already stay in their order with all their other words, since these are measured at
// the machine; a tool that it lacks comes at its end.
std::string toolTable(const DrawingStore& store, std::string_view existing = {});

// Take over the tools of a file into the rows of their numbers; what a line does not tell stays,
// and so do tools that the file lacks. A diameter in the other unit is converted. Lines that cannot
// be taken are passed over and reported under `name`. Marks the setup as changed.
// Whether a CSV text has the columns that tools need.
bool isToolCsv(std::string_view text);

ToolImport importToolCsv(DrawingStore& store, std::string_view text, const std::string& name);
ToolImport importToolTable(DrawingStore& store, std::string_view text, const std::string& name);

// The text that exporting to a file gives, which may be there already; the file itself is written
// by others. Both raise Invalid procedure call for a name of another ending, and what reading the
// file raises. The step-over follows a tool in use that has changed.
std::string exportedTools(const DrawingStore& store, const std::string& path);
ToolImport importTools(DrawingStore& store, const std::string& path);

}  // namespace tess
