// The complete jobs among the examples: each still writes the committed drawing and the reviewed
// program, a control that reads the program moves along the rows of the drawing, and the parts come
// out whole.
#include <filesystem>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/path_job_file.h"
#include "core/text.h"
#include "shell/application.h"
#include "shell/automation/script_runner.h"
#include "tests/support/bare_definitions.h"
#include "tests/support/gcode_reader.h"
#include "tests/support/golden.h"
#include "tests/support/path_checker.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::Curve;
using testing::GcodeDialect;
using testing::PartShape;
using testing::TempFolder;

const std::string kExamples = TESSIMO_SOURCE_DIR "/examples/";

// The day that the golden programs bear; their time of day is left out.
constexpr DateTime kDayOfTheGoldens{.year = 2026, .month = 11, .day = 21};

constexpr double kResolution = 0.6e-5;  // of the programs, in units

// A script of the examples, run in a folder of its own. The drawings are copies, made when their
// pictures were.
struct ExampleRun {
  explicit ExampleRun(const std::string& name) {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
    testing::useBareDefinitions(home);
    std::filesystem::create_directory(home("CNC"));
    std::filesystem::copy(kExamples + name + ".lua", folder(name + ".lua"));
    if (fileExists(kExamples + name + ".dxf")) {
      std::filesystem::copy(kExamples + name + ".dxf", folder(name + ".dxf"));
    }
    ScriptJob job;
    job.path = folder(name + ".lua");
    job.appfolder = home();
    job.date = kDayOfTheGoldens;
    const PictureWriter note = [this](Application& application, const std::string& path,
                                      const PixelSize&) {
      pictures.push_back(path);
      drawings.push_back(std::make_unique<DrawingStore>(application.store));
      proofs.push_back(proofText(application.proofWatch.prove()));
      clean = clean && !application.proofWatch.prove().isBeyondLimits();
    };
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(runScript(job, note, out, err), ExitStatus::Done) << err.str();
  }

  TempFolder home;
  TempFolder folder;
  std::vector<std::string> pictures;
  std::vector<std::unique_ptr<DrawingStore>> drawings;
  std::vector<std::string> proofs;
  bool clean = true;
};

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
    {"plate", {"plate"}},
    {"flange", {"flange"}},
    {"clamp", {"clamp"}},
    {"islands", {"islands_horizontal", "islands_vertical", "islands_spiral"}},
    {"name_plate", {"name_plate"}},
    {"text_plate", {"text_plate"}},
    {"lathe_profile", {"lathe_profile"}, /*lathe=*/true},
};

// The path file's name is the drawing's in capitals.
std::string pathFile(const std::string& drawing) {
  return upperCased(drawing) + ".TPM";
}

// The heading says when the program was made: here always as in the golden files.
std::string madeThen(const std::string& program) {
  const std::string mark = "{Creation Date}: ";
  const std::size_t at = program.find(mark);
  if (at == std::string::npos) return program;
  const std::size_t made = at + mark.size();
  return program.substr(0, made) + "11/21/2026   {Creation Time}: --:--:--" +
         program.substr(program.find('\r', made));
}

class ExampleJobs : public ::testing::TestWithParam<ExampleJob> {
 protected:
  static GcodeDialect dialect() { return {.lathe = GetParam().lathe}; }

  ExampleRun run{GetParam().script};
};

TEST_P(ExampleJobs, WritesTheCommittedDrawing) {
  for (const std::string& drawing : GetParam().drawings) {
    for (const std::string& name :
         {drawing + ".cdm", pathFile(drawing), jobFileName(drawing + ".cdm")}) {
      EXPECT_EQ(run.folder.read(name), readFile(kExamples + name)) << name;
    }
  }
}

TEST_P(ExampleJobs, WritesTheGoldenProgramAndAPicture) {
  std::vector<std::string> expectedPictures;
  for (const std::string& drawing : GetParam().drawings) {
    expectedPictures.push_back(run.folder(drawing + ".png"));
    testing::expectGolden("shell/automation/golden/" + drawing + ".CNC",
                          madeThen(run.folder.read(drawing + ".CNC")));
  }
  EXPECT_EQ(run.pictures, expectedPictures);
}

TEST_P(ExampleJobs, TheProofFindsNothing) {
  ASSERT_EQ(run.proofs.size(), GetParam().drawings.size());
  EXPECT_TRUE(run.clean) << ::testing::PrintToString(run.proofs);
}

TEST_P(ExampleJobs, ProgramReadBackGivesThePathRows) {
  ASSERT_EQ(run.drawings.size(), GetParam().drawings.size());
  for (std::size_t k = 0; k < run.drawings.size(); ++k) {
    const std::string text = run.folder.read(GetParam().drawings[k] + ".CNC");
    const std::vector<PathRow> read =
        testing::readCuts(testing::readProgram(text, dialect()), dialect());
    const std::vector<PathRow> placed =
        testing::placedCuts(*run.drawings[k], kResolution, dialect());
    EXPECT_FALSE(read.empty());
    EXPECT_EQ(testing::firstDifference(placed, read, {.resolution = kResolution, .joints = 1e-4}),
              "")
        << GetParam().drawings[k];
  }
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleJobs, ::testing::ValuesIn(kJobs),
                         [](const auto& job) { return std::string(job.param.script); });

// ---- The parts themselves

constexpr double kHair = 1e-4;  // what 32-bit coordinates of crossings leave, and the steep lines

std::vector<SegmentRow> rowsOf(const DrawingStore& store, int first, int last) {
  std::vector<SegmentRow> rows;
  for (int sg = first; sg <= last; ++sg) rows.push_back(segmentRow(store, sg));
  return rows;
}

// The feed moves of some path groups.
std::vector<Curve> pathOf(const DrawingStore& store, int firstGroup, int lastGroup) {
  std::vector<Curve> path;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    const int group = groupCutOff(store.pscode[ps]);
    if (group < firstGroup || group > lastGroup) continue;
    const std::vector<Curve> rows = testing::toolPath(store, ps, ps);
    path.insert(path.end(), rows.begin(), rows.end());
  }
  return path;
}

double depthIn(const PartShape& part, const std::vector<Curve>& path, double radius) {
  EXPECT_FALSE(path.empty());
  return testing::deepestGouge(part, path, radius).depth;
}

// Round what is cut free there is air as far as the stock goes.
std::vector<SegmentRow> stockEdge(const DrawingStore& store) {
  const float x = store.partdimx;
  const float y = store.partdimy;
  return {{.type = kLine, .x1 = x},
          {.type = kLine, .x0 = x, .x1 = x, .y1 = y},
          {.type = kLine, .x0 = x, .y0 = y, .y1 = y},
          {.type = kLine, .y0 = y}};
}

TEST(ExampleParts, IslandsAndWallsStayWhole) {
  const ExampleRun run("islands");
  ASSERT_EQ(run.drawings.size(), 3U);
  constexpr int kRoughing = 2, kLastGroup = 8;
  for (std::size_t style = 0; style < 3; ++style) {
    const DrawingStore& store = *run.drawings[style];
    const PartShape part = testing::partOf(
        rowsOf(store, 1, 8), {rowsOf(store, 9, 16), rowsOf(store, 17, 19), rowsOf(store, 20, 20)});
    const double large = store.toolradius[6], small = store.toolradius[3];
    const std::vector<Curve> rough = pathOf(store, kRoughing, kRoughing);
    const std::vector<Curve> rest = pathOf(store, kRoughing + 1, kLastGroup);
    EXPECT_LE(depthIn(part, rough, large), kHair) << style;
    EXPECT_LE(depthIn(part, rest, small), kHair) << style;
    const testing::ReachableArea area(part, small);
    EXPECT_GE(area.coverageOf({{rough, large}, {rest, small}}).share, 0.9999) << style;
    EXPECT_LT(area.coverageOf({{rough, large}}).share, 0.99) << "there is a rest";
  }
}

TEST(ExampleParts, ThePlateKeepsItsPocketItsIslandsAndItsOutline) {
  const ExampleRun run("plate");
  const DrawingStore& store = *run.drawings.at(0);
  const PartShape pocket =
      testing::partOf(rowsOf(store, 9, 16), {rowsOf(store, 17, 24), rowsOf(store, 25, 25)});
  const double radius = store.toolradius[3];
  EXPECT_LE(depthIn(pocket, pathOf(store, 4, 7), radius), kHair);
  EXPECT_GE(testing::ReachableArea(pocket, radius).coverageOf(pathOf(store, 4, 7)).share, 0.9999);
  const PartShape outline = testing::partOf(stockEdge(store), {rowsOf(store, 1, 8)});
  EXPECT_LE(depthIn(outline, pathOf(store, 9, 9), store.toolradius[5]), kHair);
}

TEST(ExampleParts, TheFlangeKeepsItsBoreAndItsRim) {
  const ExampleRun run("flange");
  const DrawingStore& store = *run.drawings.at(0);
  const double radius = store.toolradius[5];
  const PartShape bore = testing::partOf(rowsOf(store, 2, 2));
  EXPECT_LE(depthIn(bore, pathOf(store, 4, 5), radius), kHair);
  EXPECT_GE(testing::ReachableArea(bore, radius).coverageOf(pathOf(store, 4, 5)).share, 0.9999);
  const PartShape rim = testing::partOf(stockEdge(store), {rowsOf(store, 1, 1)});
  EXPECT_LE(depthIn(rim, pathOf(store, 6, 7), radius), kHair);
}

TEST(ExampleParts, TheClampKeepsItsSlotAndItsOutline) {
  const ExampleRun run("clamp");
  const DrawingStore& store = *run.drawings.at(0);
  const PartShape slot = testing::partOf(rowsOf(store, 7, 10));
  EXPECT_LE(depthIn(slot, pathOf(store, 2, 3), store.toolradius[4]), kHair);
  EXPECT_GE(testing::ReachableArea(slot, store.toolradius[4]).coverageOf(pathOf(store, 2, 3)).share,
            0.9999);
  const PartShape outline = testing::partOf(stockEdge(store), {rowsOf(store, 1, 6)});
  EXPECT_LE(depthIn(outline, pathOf(store, 5, 6), store.toolradius[5]), kHair);
}

}  // namespace
}  // namespace tess
