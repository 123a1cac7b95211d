// A drawing of others from import to program in one script, with a path proof that finds nothing:
// four pockets, seven islands, in all clearing styles.
#include <filesystem>
#include <sstream>
#include <string>

#include "gtest/gtest.h"

#include "shell/automation/script_runner.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

// Without the folder that holds them there is nothing here.
#ifdef TESSIMO_DXF_FILES

namespace tess {
namespace {

constexpr char kJob[] = R"lua(
on_message(function(text, title) print(title, text) return "No" end)
store.cursorgridf = 0
setting["true paths"] = true
setting["z start pos"] = 0.5
import_dxf(arg[1], { exact_geometry = true, auto_align = true })
local x0, y0, x1, y1 = extents()
view { x0, y0, x1, y1 }
setting["part dim x"], setting["part dim y"] = x1, y1
local function accept(kind, row)
  tool("miSelectContiguous")
  click((store.x0[row] + store.x1[row]) / 2, (store.y0[row] + store.y1[row]) / 2)
  key("Esc")
  tool("miVerify/Accept" .. kind)
end
for _, row in ipairs { 264, 376, 314, 350 } do accept("Pocket", row) end
for _, row in ipairs { 252, 268, 288, 296, 302, 330, 334 } do accept("Island", row) end
store.toolradius[store.selectedtool] = 0.125
setting["start depth"], setting["final depth"] = 0, 0.25
setting["z cut per pass"], setting["minimum z finish"] = 0.125, 0
setting["tool spacing"], setting["minimum roughing clearance"] = 60, 0
setting["lathe style pocketing"] = false
setting["connect pocketing paths"] = true
for _, style in ipairs { 1, 2, 3 } do
  setting["pocketing style"] = style
  tool("miClearAllPaths")
  tool("miRoughCutPocket")
  if style == 3 then click(17.2, 10) end
  local p = proof()
  print(style, store.NumPathSegments > 1000, p.clean, p.gouge.depth < 0.0001,
    p.missed[1].share < 0.001, #p.rapids, #p.unjudged)
end
save("job.cdm")
make_cnc("mill")
)lua";

TEST(DxfProof, PocketsAndIslandsOfOthersAreClearedWithoutAFinding) {
  const testing::TempFolder home;
  std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
  std::filesystem::create_directory(home("CNC"));
  ScriptJob job;
  job.path = home("job.lua");
  job.arguments = {TESSIMO_DXF_FILES "/ezdxf__forms.dxf"};
  job.appfolder = home();
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(runScriptText(job, kJob, {}, out, err), ExitStatus::Done) << err.str();
  const std::string found = "\ttrue\ttrue\ttrue\ttrue\t0\t0\n";
  EXPECT_EQ(out.str(), "1" + found + "2" + found + "3" + found);
  EXPECT_TRUE(home.has("CNC/job.CNC"));
}

}  // namespace
}  // namespace tess

#endif
