// DXF files that others drew: each must come in with the rows that an independent count of its
// entities predicts. The build says where they are (TESSIMO_DXF_FILES); without them there are the
// repository's own small files.
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <set>
#include <sstream>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/text.h"
#include "import/frmDXF.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/source_folder.h"

namespace tess {
namespace {

using testing::RecordedDrafting;

constexpr char kOwnFiles[] = TESSIMO_SOURCE_DIR "/tests/import/files";
constexpr char kCount[] = TESSIMO_SOURCE_DIR "/tests/import/count_dxf.py";

struct Expected {
  int rows = 0;
  std::set<std::string> types;
  std::string file;
};

std::vector<std::string> dxfFilesIn(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (upperCased(entry.path().string()).ends_with(".DXF")) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string outputOf(const std::string& command) {
  std::string output;
  std::array<char, 4096> block{};
  FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return {};
  while (const std::size_t got = std::fread(block.data(), 1, block.size(), pipe)) {
    output.append(block.data(), got);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

// "LINE=3 ARC=1"
std::set<std::string> typesIn(const std::string& counts) {
  std::set<std::string> types;
  std::istringstream in(counts);
  for (std::string item; in >> item;) types.insert(item.substr(0, item.find('=')));
  return types;
}

std::vector<Expected> countedIn(const std::string& folder) {
  std::string command = std::string("python3 '") + kCount + "'";
  for (const std::string& file : dxfFilesIn(folder)) command += " '" + file + "'";
  std::vector<Expected> counted;
  std::istringstream lines(outputOf(command));
  for (std::string rows, types, file; std::getline(lines, rows, '\t') &&
                                      std::getline(lines, types, '\t') &&
                                      std::getline(lines, file);) {
    counted.push_back({std::stoi(rows), typesIn(types), file});
  }
  return counted;
}

std::set<std::string> withoutConverted(std::set<std::string> types) {
  for (const char* const type : {"LINE", "ARC", "CIRCLE", "POINT", "LWPOLYLINE", "POLYLINE"}) {
    types.erase(type);
  }
  return types;
}

// The types that the operator is told of.
std::set<std::string> typesNamed(const std::vector<Message>& messages) {
  std::set<std::string> types;
  for (const Message& message : messages) {
    if (message.title != "DXF Conversion Error") continue;
    const std::size_t begin = message.text.find("\n\n") + 2;
    const std::size_t end = message.text.find("\n\n", begin);
    std::istringstream list(message.text.substr(begin, end - begin));
    for (std::string type; std::getline(list, type);) types.insert(type);
  }
  return types;
}

void expectRowsOf(const std::string& folder) {
  const std::vector<Expected> counted = countedIn(folder);
  ASSERT_EQ(counted.size(), dxfFilesIn(folder).size());
  ASSERT_FALSE(counted.empty()) << folder;
  for (const Expected& expected : counted) {
    RecordedDrafting context;
    frmDXF form(context.context);
    form.OpenDXFFile_From_DragDrop(expected.file);
    form.cmdImport2TESS_Click();
    EXPECT_EQ(static_cast<int>(context.store.NumSegments), expected.rows) << expected.file;
    EXPECT_EQ(typesNamed(context.messages()), withoutConverted(expected.types)) << expected.file;
    EXPECT_TRUE(isConsistent(context.store));
  }
}

TEST(DxfCorpus, TheOwnFilesComeInWithTheCountedRows) {
  expectRowsOf(kOwnFiles);
}

#ifdef TESSIMO_DXF_FILES
TEST(DxfCorpus, FilesOfOthersComeInWithTheCountedRows) {
  expectRowsOf(TESSIMO_DXF_FILES);
}
#endif

}  // namespace
}  // namespace tess
