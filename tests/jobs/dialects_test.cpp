// Every example and every small job, written in the words of the controls that somebody else can
// judge: LinuxCNC's own interpreter and the rules of GRBL. What they make of a program is held
// against the path rows.
#include <filesystem>
#include <functional>
#include <set>
#include <sstream>
#include <string>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/text.h"
#include "core/units.h"
#include "shell/application.h"
#include "shell/automation/script_runner.h"
#include "tests/support/grbl_reader.h"
#include "tests/support/row_follower.h"
#include "tests/support/rs274.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess::testing {
namespace {

const std::string kSources = TESSIMO_SOURCE_DIR "/";
constexpr double kInchTolerance = 0.00005;
constexpr double kMetricTolerance = 0.001;

// One drawing with a path, as the script left it when it asked for a picture.
struct JobDone {
  std::string name;
  Application& application;
  const DrawingStore& store;
  bool lathe;
};

using Judge = std::function<void(const JobDone&)>;

std::string nameOf(const std::string& picture) {
  return std::filesystem::path(picture).stem().string();
}

bool isTurned(const std::string& name) {
  return name.starts_with("turn_") || name.starts_with("lathe_");
}

struct ScriptToJudge {
  std::string folder, name;              // in the sources
  std::string home;                      // of the program
  std::vector<std::string> arguments{};  // in the work folder
  std::string more{};                    // lines behind the script's own
};

// Runs a script in a folder of its own, and hands on each drawing with a path that it pictures.
void runAndJudge(const ScriptToJudge& script, const Judge& judge) {
  const TempFolder work;
  std::filesystem::copy(kSources + script.home, work("home/"),
                        std::filesystem::copy_options::recursive);
  std::filesystem::create_directory(work("home/CNC"));
  std::filesystem::copy(kSources + script.folder, work("job/"));
  work.write("job/" + script.name, work.read("job/" + script.name) + script.more);
  std::filesystem::create_directory(work("pictures"));
  ScriptJob job;
  job.path = work("job/" + script.name);
  for (const std::string& argument : script.arguments) job.arguments.push_back(work(argument));
  job.appfolder = work("home/");
  job.fileAccess = true;
  const PictureWriter look = [&](Application& application, const std::string& path,
                                 const PixelSize&) {
    if (application.store.NumPathSegments == 0) return;
    judge({nameOf(path), application, application.store, isTurned(nameOf(path))});
  };
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(runScript(job, look, out, err), ExitStatus::Done) << err.str();
}

// Those that make a path. One of them draws no picture by itself.
void judgeExamples(const Judge& judge) {
  for (const std::string& name : listFolder(kSources + "examples/").files) {
    if (!name.ends_with(".lua")) continue;
    const std::string picture = "\nplot((arg[0]:match('^.*/')) .. 'bracket.png', 100, 100)\n";
    runAndJudge({.folder = "examples/",
                 .name = name,
                 .home = "data/",
                 .more = name == "bracket.lua" ? picture : ""},
                judge);
  }
}

void judgeSmallJobs(const Judge& judge) {
  runAndJudge({"tests/jobs/", "run_jobs.lua", "tests/scripts/home/", {"pictures"}}, judge);
}

// The program of the job by a shipped definition.
std::string programOf(const JobDone& job, const std::string& definition) {
  Session& session = job.application.session;
  const NumberFormats before = session.formats;
  PostDefinition post;
  FieldReader reader = FieldReader::open(kSources + "data/" + definition);
  readPostDefinition(session, post, reader);
  set_num_formats(session);
  CncState state;
  state.cncfilename = "part.CNC";
  std::string program =
      programText(session, post, state, job.lathe ? CncMode::Lathe : CncMode::Mill);
  session.formats = before;
  return program;
}

bool isMetric(const JobDone& job) {
  return job.store.units == "M";
}

FollowRules rulesFor(const JobDone& job) {
  FollowRules rules;
  rules.radiusWords = job.store.userparamforarcs;
  rules.lathe = rules.latheClear = job.lathe;
  rules.resolution = isMetric(job) ? kMetricTolerance : kInchTolerance;
  return rules;
}

// A control's dialect, and who reads its programs.
struct Control {
  std::string mill, lathe;  // beginnings of the definitions' names; none: it mills or turns nothing
  std::function<GcodeProgram(const std::string& program, bool lathe)> read;
};

// Holds every job against what the control makes of its program.
class Judgement {
 public:
  explicit Judgement(const Control& control, bool radiusWords = false)
      : control_(control), radiusWords_(radiusWords) {}

  void operator()(const JobDone& job) {
    if ((job.lathe ? control_.lathe : control_.mill).empty()) return;
    const std::string mill = control_.mill + (isMetric(job) ? "_mm.msx" : "_inch.msx");
    const std::string lathe = control_.lathe + (isMetric(job) ? "_mm.msx" : ".msx");
    jobs.insert(job.name);
    job.application.store.userparamforarcs = radiusWords_;
    try {
      const std::string program = programOf(job, job.lathe ? lathe : mill);
      EXPECT_EQ(firstDetour(job.store, control_.read(program, job.lathe), rulesFor(job)), "")
          << job.name;
    } catch (const RuntimeFailure& failure) {
      refused += job.name + ": " + failure.description() + ", " + failure.source() + "\n";
    } catch (const GcodeError& error) {
      ADD_FAILURE() << job.name << ": " << error.what();
    }
  }

  std::set<std::string> jobs;
  std::string refused;  // before there was a program

 private:
  const Control& control_;
  bool radiusWords_;  // arcs by their radius, where that tells the centre well enough
};

const Control kLinuxCnc{"linuxcnc_mill", "linuxcnc_lathe", interpreted};
const Control kLinuxCncDiameters{"", "linuxcnc_diameter_lathe", interpreted};
const Control kGrbl{"grbl_mill", "",
                    [](const std::string& program, bool) { return readGrblProgram(program); }};

// A row that gouge avoidance has left without its arc.
std::string untrueArcs(const std::string& tolerance) {
  return "gouge_round_notch: The two radii of the arc differ by 0.22169913, and the "
         "post-processor definition allows " +
         tolerance + ", path row 6\n";
}

TEST(LinuxCncDialect, EveryExampleDoesWhatItsRowsAskFor) {
  if (const auto reason = whyNoInterpreter()) GTEST_SKIP() << *reason;
  Judgement judgement(kLinuxCnc);
  judgeExamples(std::ref(judgement));
  EXPECT_GE(judgement.jobs.size(), 10U);
  EXPECT_EQ(judgement.refused, "");
}

TEST(LinuxCncDialect, EveryExampleWithRadiusWords) {
  if (const auto reason = whyNoInterpreter()) GTEST_SKIP() << *reason;
  Judgement judgement(kLinuxCnc, /*radiusWords=*/true);
  judgeExamples(std::ref(judgement));
  EXPECT_GE(judgement.jobs.size(), 10U);
  EXPECT_EQ(judgement.refused, "");
}

TEST(LinuxCncDialect, EverySmallJobDoesWhatItsRowsAskFor) {
  if (const auto reason = whyNoInterpreter()) GTEST_SKIP() << *reason;
  Judgement judgement(kLinuxCnc);
  judgeSmallJobs(std::ref(judgement));
  EXPECT_GT(judgement.jobs.size(), 90U);
  EXPECT_EQ(judgement.refused, untrueArcs("0.0005"));
}

TEST(LinuxCncDialect, EverySmallJobOfALatheWithDiameters) {
  if (const auto reason = whyNoInterpreter()) GTEST_SKIP() << *reason;
  Judgement judgement(kLinuxCncDiameters);
  judgeSmallJobs(std::ref(judgement));
  EXPECT_GE(judgement.jobs.size(), 9U);
  EXPECT_EQ(judgement.refused, "");
}

TEST(GrblDialect, EveryExampleDoesWhatItsRowsAskFor) {
  Judgement judgement(kGrbl);
  judgeExamples(std::ref(judgement));
  EXPECT_GE(judgement.jobs.size(), 9U);
  EXPECT_EQ(judgement.refused, "");
}

TEST(GrblDialect, EveryExampleWithRadiusWords) {
  Judgement judgement(kGrbl, /*radiusWords=*/true);
  judgeExamples(std::ref(judgement));
  EXPECT_GE(judgement.jobs.size(), 9U);
  EXPECT_EQ(judgement.refused, "");
}

TEST(GrblDialect, EverySmallJobDoesWhatItsRowsAskFor) {
  Judgement judgement(kGrbl);
  judgeSmallJobs(std::ref(judgement));
  EXPECT_GT(judgement.jobs.size(), 90U);
  EXPECT_EQ(judgement.refused, untrueArcs("0.00019"));
}

}  // namespace
}  // namespace tess::testing
