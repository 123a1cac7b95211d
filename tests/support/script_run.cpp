// Scripts in process, each on a program folder of its own.
#include "tests/support/script_run.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "gtest/gtest.h"

#include "tests/support/source_folder.h"

namespace tess::testing {

ScriptRun::ScriptRun() {
  std::filesystem::copy(TESSIMO_SOURCE_DIR "/tests/scripts/home", home());
  std::filesystem::create_directory(home("CNC"));
  job.path = folder("test.lua");
  job.appfolder = home();
}

ScriptRun::~ScriptRun() = default;

ExitStatus ScriptRun::run(std::string_view script) {
  std::ostringstream outStream;
  std::ostringstream errStream;
  status = runScriptText(job, script, writePicture, outStream, errStream);
  out = outStream.str();
  err = errStream.str();
  return status;
}

std::string ScriptRun::outputOf(std::string_view script) {
  EXPECT_EQ(run(script), ExitStatus::Done) << err;
  return out;
}

std::string ScriptRun::failureOf(std::string_view script) {
  EXPECT_EQ(run(script), ExitStatus::JobFailed) << out;
  const std::string begin = "tessimo: ";
  EXPECT_TRUE(err.starts_with(begin)) << err;
  EXPECT_EQ(err.find('\n'), err.size() - 1) << "one line, and nothing else: " << err;
  std::string line = err.substr(begin.size(), err.size() - begin.size() - 1);
  const std::size_t at = line.find(folder());
  return at == std::string::npos ? line : line.erase(at, folder().size());
}

std::string ScriptRun::valueOf(std::string_view expression) {
  std::string shown = outputOf("print(" + std::string(expression) + ")");
  if (shown.ends_with('\n')) shown.pop_back();
  return shown;
}

std::string ScriptRun::errorOf(std::string_view statement) {
  const std::string line = failureOf(statement);
  const std::string place = "test.lua:1: ";
  EXPECT_TRUE(line.starts_with(place)) << line;
  return line.substr(std::min(place.size(), line.size()));
}

}  // namespace tess::testing
