// A whole turned part by the shipped setups: faced, roughed, finished, grooved, drilled, bored and
// parted, in inches and millimetres. The path proof finds nothing, and what would break a tool is
// found.
#include <filesystem>
#include <sstream>
#include <string>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/file_system.h"
#include "shell/automation/script_runner.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr char kJob[] = R"lua(
on_file(function() return arg[1] end)
tool("miLoadSetup")
on_message(function(text) print(text) return "No" end)
local unit = store.units == "M" and 25 or 1
setting["part dim x"], setting["part dim y"] = 2 * unit, 0.5 * unit
setting["z cut per pass"], setting["final depth"] = 0, 0
store.cursorgridf = 0
view { -2.5 * unit, -unit, unit, 1.5 * unit }
local function chain(points)
  local first = store.NumSegments + 1
  for k = 2, #points do
    local a, b = points[k - 1], points[k]
    add_segment { type = b.cw and 2 or 1, x0 = a[1] * unit, y0 = a[2] * unit, x1 = b[1] * unit,
      y1 = b[2] * unit, xc = b.cw and b.cw[1] * unit or 0, yc = b.cw and b.cw[2] * unit or 0 }
  end
  return first
end
local function pick(first, last)
  tool("miUnselectAll") tool("miSelect")
  for row = first, last do
    click((store.x0[row] + store.x1[row]) / 2, (store.y0[row] + store.y1[row]) / 2)
  end
  key("Esc")
end
local function use(name)
  for k = 0, 30 do if store.toolname[k]:find(name) then store.selectedtool = k return end end
  error("no tool " .. name)
end
local function follow(first, last) pick(first, last) tool("miQuickPlace") tool("miUnselectAll") end
local function clear(first, last)
  pick(first, last)
  tool("miVerify/AcceptPocket") tool("miRoughCutPocket") tool("miUnselectAll")
end

use("facing")
follow(chain { { 0, .55 }, { 0, -.02 } }, store.NumSegments)
local outside = chain { { .05, .2 }, { -.03, .2 }, { -.06, .23 }, { -.5, .23 },
  { -.56, .29, cw = { -.5, .29 } }, { -.56, .35 }, { -.9, .42 }, { -1.2, .42 }, { -1.2, .5 },
  { .05, .5 }, { .05, .2 } }
use("rh turning")
clear(outside, outside + 9)
use("finishing")
follow(outside, outside + 7)
use("grooving")
follow(chain { { -.7, .55 }, { -.7, .3 } }, chain { { -1, .55 }, { -1, .3 } })
use(unit == 1 and "3/8 drill" or "10 drill")
follow(chain { { .1, 0 }, { -1, 0 } }, store.NumSegments)
local hole = unit == 1 and .1875 or .2
local inside = chain { { .07, hole }, { -.8, hole }, { -.8, .2 }, { -.5, .25 }, { -.2, .25 },
  { -.2, .3 }, { 0, .3 }, { .07, .37 }, { .07, hole } }
use("boring")
store.toolinside[store.selectedtool] = tonumber(arg[2])
clear(inside, inside + 7)
follow(inside + 1, inside + 6)
use("parting")
follow(chain { { -1.3, .55 }, { -1.3, -.01 } }, store.NumSegments)
local p = proof()
print(p.clean, #p.rapids, #p.unjudged)
save("turned.cdm")
print(make_cnc("lathe"))
print(make_cnc("mill"))
)lua";

class LatheJob : public ::testing::Test {
 protected:
  LatheJob() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
    std::filesystem::create_directory(home("CNC"));
    home.write("job.lua", kJob);
  }

  std::string outputWith(const std::string& setup, const std::string& inside) {
    ScriptJob job;
    job.path = home("job.lua");
    job.arguments = {setup, inside};
    job.appfolder = home();
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(runScript(job, {}, out, err), ExitStatus::Done) << err.str();
    return out.str();
  }
  std::string program() const { return readFile(home("CNC/turned.CNC")); }

  testing::TempFolder home;
};

constexpr char kClean[] =
    "true\t0\t0\n"
    "true\n"
    "The path was made for a lathe: its rapids would go down to Z -99 on a mill.\n"
    "Do you want to write the program anyway ?\n"
    "false\n";

TEST_F(LatheJob, InInchesIsCleanAndNoProgramForAMill) {
  EXPECT_EQ(outputWith("lathe.msu", "1"), kClean);
  EXPECT_THAT(program(), AllOf(HasSubstr("G70\r\n"), HasSubstr("G02 X0.29 Z-0.56 I0.06\r\n")));
}

TEST_F(LatheJob, InMillimetresIsCleanToo) {
  EXPECT_EQ(outputWith("lathe_mm.msu", "1"), kClean);
  EXPECT_THAT(program(), AllOf(HasSubstr("G71\r\n"), HasSubstr("G02 X7.25 Z-14.0 I1.5\r\n")));
}

TEST_F(LatheJob, WithDiametersIsCleanToo) {
  EXPECT_EQ(outputWith("linuxcnc_diameter_lathe_mm.msu", "1"), kClean);
  EXPECT_THAT(program(), AllOf(HasSubstr("G7\r\n"), HasSubstr("G02 X14.5 Z-14.0 I1.5\r\n")));
}

// As if it worked from outside: from the top of the bar down to the bore.
TEST_F(LatheJob, ABoringBarThatIsNotKnownToWorkInsideIsFound) {
  EXPECT_THAT(outputWith("lathe.msu", "0"),
              AllOf(HasSubstr("false\t"), HasSubstr("goes through material")));
}

}  // namespace
}  // namespace tess
