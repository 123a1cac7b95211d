// Runs scripts in process, each on a program folder of its own.
// Owns: ScriptRun.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "gtest/gtest.h"

#include "shell/automation/script_runner.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {

// The program's folder is `home`, with the setup of tests/scripts/home; scripts lie in `folder`
// under the name "test.lua".
class ScriptRun {
 public:
  ScriptRun() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/tests/scripts/home", home());
    std::filesystem::create_directory(home("CNC"));
    job.path = folder("test.lua");
    job.appfolder = home();
  }

  ExitStatus run(std::string_view script) {
    std::ostringstream outStream;
    std::ostringstream errStream;
    status = runScriptText(job, script, writePicture, outStream, errStream);
    out = outStream.str();
    err = errStream.str();
    return status;
  }

  // The output of a script that goes through.
  std::string outputOf(std::string_view script) {
    EXPECT_EQ(run(script), ExitStatus::Done) << err;
    return out;
  }

  // The line of a script that fails, without the program's name and the script's folder.
  std::string failureOf(std::string_view script) {
    EXPECT_EQ(run(script), ExitStatus::JobFailed) << out;
    const std::string begin = "tessimo: ";
    EXPECT_TRUE(err.starts_with(begin)) << err;
    EXPECT_EQ(err.find('\n'), err.size() - 1) << "one line, and nothing else: " << err;
    std::string line = err.substr(begin.size(), err.size() - begin.size() - 1);
    const std::size_t at = line.find(folder());
    return at == std::string::npos ? line : line.erase(at, folder().size());
  }

  // What an expression, or several, gives, as print shows it.
  std::string valueOf(std::string_view expression) {
    std::string shown = outputOf("print(" + std::string(expression) + ")");
    if (shown.ends_with('\n')) shown.pop_back();
    return shown;
  }

  // The error of a statement, behind the place.
  std::string errorOf(std::string_view statement) {
    const std::string line = failureOf(statement);
    const std::string place = "test.lua:1: ";
    EXPECT_TRUE(line.starts_with(place)) << line;
    return line.substr(std::min(place.size(), line.size()));
  }

  TempFolder home;
  TempFolder folder;
  ScriptJob job;
  PictureWriter writePicture;
  ExitStatus status = ExitStatus::Done;
  std::string out;
  std::string err;
};

}  // namespace tess::testing
