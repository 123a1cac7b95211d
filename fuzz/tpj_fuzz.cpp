// Feeds any bytes to the reader of path jobs, which believes that it has the files that they name.
// What it takes in is written and read again, which must give the same jobs.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/path_job_file.h"
#include "core/runtime_failure.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

std::optional<std::vector<tess::PathJob>> read(std::string content) {
  tess::FieldReader fields("fuzz.tpj", std::move(content));
  return tess::readJobFile(fields, {});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::optional<std::vector<tess::PathJob>> jobs;
  try {
    jobs = read(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const tess::RuntimeFailure&) {
    return 0;
  }
  if (!jobs) return 0;
  std::vector<const tess::PathJob*> all;
  for (const tess::PathJob& job : *jobs) all.push_back(&job);
  require(read(tess::jobFileText(all, {})) == jobs);
  return 0;
}
