// The complete jobs among the examples: each still writes the committed drawing and the reviewed
// program, and a control that reads the program moves along the rows of the drawing.
#include <filesystem>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "core/text.h"
#include "shell/application.h"
#include "shell/automation/script_runner.h"
#include "tests/support/gcode_reader.h"
#include "tests/support/golden.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::GcodeDialect;
using testing::TempFolder;

const std::string kExamples = TESSIMO_SOURCE_DIR "/examples/";

constexpr double kResolution = 0.6e-5;  // of the programs, in units

// A script with the names of the drawings that it makes.
struct ExampleJob {
  const char* script;
  std::vector<std::string> drawings;
  bool lathe = false;
};

std::ostream& operator<<(std::ostream& out, const ExampleJob& job) {
  return out << job.script;
}

const ExampleJob kJobs[] = {
    {"flange", {"flange"}},
    {"clamp", {"clamp"}},
    {"islands", {"islands_horizontal", "islands_vertical", "islands_spiral"}},
    {"name_plate", {"name_plate"}},
    {"lathe_profile", {"lathe_profile"}, /*lathe=*/true},
};

// The path file's name is the drawing's in capitals.
std::string pathFile(const std::string& drawing) {
  return upperCased(drawing) + ".TPM";
}

// The heading says when the program was made.
std::string withoutTime(const std::string& program) {
  const std::string mark = "{Creation Time}: ";
  const std::size_t at = program.find(mark);
  if (at == std::string::npos) return program;
  const std::size_t time = at + mark.size();
  return program.substr(0, time) + "--:--:--" + program.substr(program.find('\r', time));
}

class ExampleJobs : public ::testing::TestWithParam<ExampleJob> {
 protected:
  ExampleJobs() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
    std::filesystem::create_directory(home("CNC"));
    const std::string script = std::string(GetParam().script) + ".lua";
    std::filesystem::copy(kExamples + script, folder(script));
    ScriptJob job;
    job.path = folder(script);
    job.appfolder = home();
    const PictureWriter note = [this](Application& application, const std::string& path,
                                      const PixelSize&) {
      pictures.push_back(path);
      cuts.push_back(testing::placedCuts(application.store, kResolution, dialect()));
    };
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(runScript(job, note, out, err), ExitStatus::Done) << err.str();
  }

  static GcodeDialect dialect() { return {.lathe = GetParam().lathe}; }

  TempFolder home;
  TempFolder folder;
  std::vector<std::string> pictures;
  std::vector<std::vector<PathRow>> cuts;  // of each drawing when its picture was made
};

TEST_P(ExampleJobs, WritesTheCommittedDrawing) {
  for (const std::string& drawing : GetParam().drawings) {
    for (const std::string& name : {drawing + ".cdm", pathFile(drawing)}) {
      EXPECT_EQ(folder.read(name), readFile(kExamples + name)) << name;
    }
  }
}

TEST_P(ExampleJobs, WritesTheGoldenProgramAndAPicture) {
  std::vector<std::string> expectedPictures;
  for (const std::string& drawing : GetParam().drawings) {
    expectedPictures.push_back(folder(drawing + ".png"));
    testing::expectGolden("shell/automation/golden/" + drawing + ".CNC",
                          withoutTime(folder.read(drawing + ".CNC")));
  }
  EXPECT_EQ(pictures, expectedPictures);
}

TEST_P(ExampleJobs, ProgramReadBackGivesThePathRows) {
  ASSERT_EQ(cuts.size(), GetParam().drawings.size());
  for (std::size_t k = 0; k < cuts.size(); ++k) {
    const std::string text = folder.read(GetParam().drawings[k] + ".CNC");
    const std::vector<PathRow> read =
        testing::readCuts(testing::readProgram(text, dialect()), dialect());
    EXPECT_FALSE(read.empty());
    EXPECT_EQ(testing::firstDifference(cuts[k], read, {.resolution = kResolution, .joints = 1e-4}),
              "")
        << GetParam().drawings[k];
  }
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleJobs, ::testing::ValuesIn(kJobs),
                         [](const auto& job) { return std::string(job.param.script); });

}  // namespace
}  // namespace tess
