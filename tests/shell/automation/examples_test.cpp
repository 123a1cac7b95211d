// The sample part: its script still writes the committed drawing, for other sizes as well, and the
// program made from it is safe to run.
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/file_system.h"
#include "core/number_text.h"
#include "shell/automation/file_jobs.h"
#include "shell/automation/script_runner.h"
#include "tests/support/bare_definitions.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::TempFolder;

const std::string kExamples = TESSIMO_SOURCE_DIR "/examples/";
constexpr float kRetract = 0.5F;      // "z start pos" of the part
constexpr float kWasteBoard = 0.26F;  // how deep the end mill goes

class BracketExample : public ::testing::Test {
 protected:
  BracketExample() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
    testing::useBareDefinitions(home);
    std::filesystem::create_directory(home("CNC"));
    std::filesystem::copy(kExamples + "bracket.lua", folder("bracket.lua"));
  }

  ExitStatus draw(const std::vector<std::string>& sizes) {
    const ScriptJob job{.path = folder("bracket.lua"),
                        .arguments = sizes,
                        .appfolder = home(),
                        .folders = {},
                        .fileAccess = false,
                        .size = {},
                        .date = {},
                        .limits = {}};
    return runScript(job, {}, out, err);
  }

  // The lines of the program without its comments.
  std::vector<std::string> program() {
    const CncJob job{.drawing = folder("bracket.cdm"),
                     .mode = CncMode::Mill,
                     .output = folder("bracket.cnc"),
                     .appfolder = home(),
                     .date = {}};
    EXPECT_EQ(makeCncFile(job, out, err), ExitStatus::Done) << err.str();
    std::istringstream text(folder.read("bracket.cnc"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
      line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
      if (!line.starts_with(';')) lines.push_back(line);
    }
    return lines;
  }

  TempFolder home;
  TempFolder folder;
  std::ostringstream out;
  std::ostringstream err;
};

bool hasWord(const std::string& line, char letter) {
  return line.find(std::string(" ") + letter) != std::string::npos;
}

float wordOf(const std::string& line, char letter) {
  return parseFloat(line.substr(line.find(std::string(" ") + letter) + 2));
}

TEST_F(BracketExample, ScriptWritesTheCommittedPair) {
  ASSERT_EQ(draw({}), ExitStatus::Done) << err.str();
  for (const char* name : {"bracket.cdm", "BRACKET.TPM"}) {
    EXPECT_EQ(folder.read(name), readFile(kExamples + name)) << name;
  }
}

TEST_F(BracketExample, ToolsRunFromSpotDrillToEndMillAndBack) {
  ASSERT_EQ(draw({}), ExitStatus::Done) << err.str();
  std::vector<std::string> changes;
  for (const std::string& line : program()) {
    if (line.starts_with('M')) changes.push_back(line);
  }
  EXPECT_EQ(changes,
            (std::vector<std::string>{"M06 T1", "M03 S3050", "M06 T13", "M03 S3800", "M06 T2",
                                      "M03 S3820", "M05", "M06 T1", "M05", "M30"}));
}

// Whatever the legs, rapids keep the retract height, cuts stay above the waste board, and feeds
// stay within what the tool chest gives.
TEST_F(BracketExample, ProgramsAreSafeForEverySize) {
  for (const std::vector<std::string>& sizes :
       {std::vector<std::string>{}, {"5", "3.5"}, {"3.75", "2.75"}, {"9.5", "8"}}) {
    ASSERT_EQ(draw(sizes), ExitStatus::Done) << err.str();
    float z = 0;
    int cuts = 0;
    for (const std::string& line : program()) {
      if (!line.starts_with('G')) continue;
      const bool rapid = line.starts_with("G00");
      const bool cycle = line.starts_with("G8");
      if (rapid && (hasWord(line, 'X') || hasWord(line, 'Y'))) {
        EXPECT_GE(z, kRetract) << line;
      }
      if (hasWord(line, 'Z') && !cycle) z = wordOf(line, 'Z');
      if (rapid) {
        EXPECT_GE(z, kRetract) << line;
      }
      EXPECT_GE(z, -kWasteBoard) << line;
      if (!hasWord(line, 'F')) continue;
      ++cuts;
      EXPECT_GE(wordOf(line, 'F'), 40) << line;
      EXPECT_LE(wordOf(line, 'F'), 120) << line;
    }
    EXPECT_GT(cuts, 20);
  }
}

TEST_F(BracketExample, RefusesLegsTooShortForTheHoles) {
  EXPECT_EQ(draw({"3", "3"}), ExitStatus::JobFailed);
  EXPECT_NE(err.str().find("the legs are too short for holes and slot"), std::string::npos)
      << err.str();
}

// What ships shows how it is done: nothing is cut into, nothing is left, no way goes straight down,
// and its program is written without a question.
TEST_F(BracketExample, EveryShippedDrawingIsAGoodOne) {
  folder.write(
      "judge.lua",
      "open(arg[1])\n"
      "local found = proof()\n"
      "local share = 0\n"
      "for _, job in ipairs(found.jobs) do share = math.max(share, job.engagement.share) end\n"
      "print(found.clean, #found.plunges, #found.rapids, share > 0)\n");
  int drawings = 0;
  for (const std::string& name : listFolder(kExamples).files) {
    if (!name.ends_with(".cdm")) continue;
    SCOPED_TRACE(name);
    ++drawings;
    const bool lathe = name.starts_with("lathe");
    out.str("");
    ScriptJob job;
    job.path = folder("judge.lua");
    job.arguments = {kExamples + name};
    job.appfolder = home();
    EXPECT_EQ(runScript(job, {}, out, err), ExitStatus::Done) << err.str();
    EXPECT_EQ(out.str(), lathe ? "true\t0\t0\tfalse\n" : "true\t0\t0\ttrue\n");
    const CncJob program{.drawing = kExamples + name,
                         .mode = lathe ? CncMode::Lathe : CncMode::Mill,
                         .output = folder(name + ".CNC"),
                         .setup = lathe ? "lathe.msu" : "mill_inch.msu",
                         .appfolder = home(),
                         .date = {}};
    EXPECT_EQ(makeCncFile(program, out, err), ExitStatus::Done) << err.str();
    EXPECT_EQ(err.str(), "");
  }
  EXPECT_GE(drawings, 10);
}

TEST(PlateExample, DrawsByHandAndWritesDrawingAndPicture) {
  const TempFolder home;
  const TempFolder folder;
  std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
  std::filesystem::create_directory(home("CNC"));
  std::filesystem::copy(kExamples + "plate_drawing.lua", folder("plate_drawing.lua"));
  std::string picture;
  const PictureWriter noteName = [&picture](Application&, const std::string& path,
                                            const PixelSize&) { picture = path; };
  ScriptJob job;
  job.path = folder("plate_drawing.lua");
  job.appfolder = home();
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(runScript(job, noteName, out, err), ExitStatus::Done) << err.str();
  EXPECT_EQ(out.str(), "10 segments; 0.0 0.0 6.0 4.0\n");
  EXPECT_TRUE(folder.has("plate_drawing.cdm"));
  EXPECT_EQ(picture, folder("plate_drawing.png"));
}

}  // namespace
}  // namespace tess
