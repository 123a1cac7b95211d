// Programs that stand in for those of others: they write down what they were started with.
// Owns: StandInProgram.
#pragma once

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/temp_folder.h"
#include "tests/support/write_file.h"

namespace tess::testing {

// A program in a folder whose name a shell would take apart.
class StandInProgram {
 public:
  // The lines of the program; what they print is what is told.
  explicit StandInProgram(const std::string& lines = "printf '%s\\0' \"$@\"") {
    std::filesystem::create_directory(folder_(kFolder));
    writeFile(path(),
              "#!/bin/sh\ncd \"${0%/*}\"\n{ " + lines + "\n} > told.part\nmv told.part told\n");
    std::filesystem::permissions(path(), std::filesystem::perms::owner_all);
  }

  std::string path() const { return folder_(std::string(kFolder) + "/receiver"); }
  bool wasStarted() const { return folder_.has(toldFile()); }

  // What it has printed, once it has. Raises std::runtime_error when it never does.
  std::string told() const {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::minutes kPatience(5);  // only a hang takes longer
    const auto end = Clock::now() + kPatience;
    while (!wasStarted()) {
      if (Clock::now() > end) throw std::runtime_error("the stand-in was not started");
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return folder_.read(toldFile());
  }

  // Its arguments, each as it came.
  std::vector<std::string> arguments() const {
    std::vector<std::string> texts;
    const std::string all = told();
    for (std::size_t at = 0; at < all.size();) {
      const std::size_t end = all.find('\0', at);
      texts.push_back(all.substr(at, end - at));
      at = end + 1;
    }
    return texts;
  }

 private:
  static constexpr const char* kFolder = "it's a \"$(touch x)\" `place`; ok";
  std::string toldFile() const { return std::string(kFolder) + "/told"; }

  TempFolder folder_;
};

}  // namespace tess::testing
