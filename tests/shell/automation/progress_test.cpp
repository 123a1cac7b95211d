// The status line of a long job on a terminal.
#include "shell/automation/progress.h"

#include <sstream>

#include "gtest/gtest.h"

#include "tests/support/script_run.h"

namespace tess {
namespace {

struct Watched {
  double time = 1000;
  std::ostringstream terminal;
};

TEST(Progress, SaysNothingOfAShortJob) {
  Watched w;
  {
    Progress progress(w.terminal, [&w] { return w.time; });
    w.time += 499;
    progress.show("Collecting");
  }
  EXPECT_EQ(w.terminal.str(), "");
}

TEST(Progress, ShowsTheLatestTextTwiceASecondAndWipesItAtTheEnd) {
  Watched w;
  {
    Progress progress(w.terminal, [&w] { return w.time; });
    for (const char* text : {"1:2", "2:4", "2:4", "", "3:6"}) {
      w.time += 300;
      progress.show(text);
    }
  }
  EXPECT_EQ(w.terminal.str(), "\r\x1b[K2:4\r\x1b[K3:6\r\x1b[K");
}

TEST(Progress, OfAScriptGoesToStandardErrorOnlyWhenAskedFor) {
  const std::string script =
      "add_segment{type=1, x1=2} tool('miMeasureDist') "
      "local stop = os.clock() + 0.8 while os.clock() < stop do tool('miReDraw') end";
  for (const bool asked : {false, true}) {
    testing::ScriptRun run;
    run.job.fileAccess = true;
    run.job.showProgress = asked;
    run.run(script);
    EXPECT_EQ(run.status, ExitStatus::Done) << run.err;
    const bool shown = run.err.find("\r\x1b[KClick on start-point") != std::string::npos;
    EXPECT_EQ(shown, asked) << run.err;
  }
}

}  // namespace
}  // namespace tess
