// A folder that lives as long as a test.
#include "tests/support/temp_folder.h"

#include <cstdlib>
#include <stdexcept>
#include <system_error>

#include "core/file_system.h"
#include "tests/support/write_file.h"

namespace tess::testing {

TempFolder::TempFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tessimo-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::operator()(std::string_view name) const {
  return withSeparator(path_).append(name);
}

std::string TempFolder::write(std::string_view name, std::string_view content) const {
  writeFile((*this)(name), content);
  return (*this)(name);
}

std::string TempFolder::read(std::string_view name) const {
  return readFile((*this)(name));
}

bool TempFolder::has(std::string_view name) const {
  return std::filesystem::exists((*this)(name));
}

}  // namespace tess::testing
