// Drawings of others all the way to a program: imported, verified, roughed and finished by a
// script, and the program read back.
#include <algorithm>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "shell/application.h"
#include "shell/automation/script_runner.h"
#include "tests/support/gcode_reader.h"
#include "tests/support/path_checker.h"
#include "tests/support/source_folder.h"
#include "tests/support/temp_folder.h"

// Without the folder that holds them there is nothing here.
#ifdef TESSIMO_DXF_FILES

namespace tess {
namespace {

using testing::TempFolder;

// The outline through (arg[2], arg[3]) is cleared with a tool of radius arg[4] and finished.
constexpr char kJob[] = R"(
local px, py, radius = tonumber(arg[2]), tonumber(arg[3]), tonumber(arg[4])
on_message(function(text) print(text) return "No" end)
store.cursorgridf = 0
import_dxf(arg[1], {exact_geometry = true, auto_align = true})
local x0, y0, x1, y1 = extents()
setting["part dim x"], setting["part dim y"] = x1, y1
view { x0, y0, x1, y1 }
store.toolradius[store.selectedtool] = radius
setting["final depth"], setting["z cut per pass"], setting["minimum z finish"] = 0.1, 0.1, 0
setting["tool spacing"], setting["minimum roughing clearance"] = 60, 0
setting["lead in path"], setting["lead in arc"] = false, false
setting["pocketing style"] = 1
setting["connect pocketing paths"] = false -- links run straight across notches
tool("miSelectContiguous") click(px, py) key("Esc")
tool("miVerify/AcceptPocket")
tool("miRoughCutPocket")
on_form("frmFinishPath", function(form) form.txtNumPasses.text = 1 form.cmdOK:click() end)
tool("miPlaceFinishPath")
local row
for sg = 1, store.NumSegments do
  if store.segattr[sg] == 30108 and store.segtype[sg] == 1 then row = row or sg end
end
click(store.x0[row], store.y0[row])
click((store.x0[row] + store.x1[row]) / 2, (store.y0[row] + store.y1[row]) / 2)
click((x0 + x1) / 2, (y0 + y1) / 2)
save("job.cdm")
make_cnc("mill", "job.CNC")
plot("job.png", 800, 600)
)";

// Every closed outline of the drawing is verified and all are cleared at once, by rings with a
// finish path: which of them are pockets and which islands follows from what lies in what.
constexpr char kWholeDrawing[] = R"(
on_message(function(text) print(text) return "No" end)
store.cursorgridf = 0
import_dxf(arg[1], {exact_geometry = true, auto_align = true})
local x0, y0, x1, y1 = extents()
setting["part dim x"], setting["part dim y"] = x1, y1
view { x0, y0, x1, y1 }
store.toolradius[store.selectedtool] = tonumber(arg[2])
setting["true paths"] = true
setting["final depth"], setting["z cut per pass"], setting["minimum z finish"] = 0.1, 0.1, 0
setting["tool spacing"], setting["minimum roughing clearance"] = 60, 0.02
setting["pocketing style"], setting["auto place finish path"] = 3, true
setting["connect pocketing paths"] = true
for row = 1, store.NumSegments do
  if store.segattr[row] == 8 then
    tool("miSelectContiguous")
    click((store.x0[row] + store.x1[row]) / 2, (store.y0[row] + store.y1[row]) / 2)
    key("Esc")
    local rows = {}
    for sg = 1, store.NumSegments do
      if store.segattr[sg] == 30008 then rows[#rows + 1] = sg end
    end
    print("outline " .. table.concat(rows, " "))
    tool("miVerify/AcceptPocket")
  end
end
tool("miRoughCutPocket")
click(x0, y0)
save("job.cdm")
make_cnc("mill", "job.CNC")
plot("job.png", 800, 600)
)";

// Half of the last decimal, and what 32-bit numbers of a hundred units add.
constexpr double kResolution = 1.2e-5;

struct DxfJob {
  const char* file;
  const char* x;
  const char* y;
  const char* radius;
};

std::ostream& operator<<(std::ostream& out, const DxfJob& job) {
  return out << job.file;
}

struct End {
  float x = 0, y = 0;
  friend bool operator==(const End&, const End&) = default;
};

std::vector<SegmentRow> inLoopOrder(std::vector<SegmentRow> rows) {
  End at{rows.at(0).x1, rows.at(0).y1};
  for (auto next = rows.begin() + 1; next != rows.end(); ++next) {
    const auto found = std::find_if(next, rows.end(), [&at](const SegmentRow& row) {
      return End{row.x0, row.y0} == at || End{row.x1, row.y1} == at;
    });
    if (found == rows.end()) break;
    std::iter_swap(next, found);
    const bool forward = End{next->x0, next->y0} == at;
    at = forward ? End{next->x1, next->y1} : End{next->x0, next->y0};
  }
  return rows;
}

// A script at work on a drawing in a folder of its own.
struct DxfScript {
  void run(const char* text, const std::vector<std::string>& arguments) {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data", home());
    std::filesystem::create_directory(home("CNC"));
    ScriptJob job;
    job.path = home("job.lua");
    job.arguments = arguments;
    job.appfolder = home();
    const PictureWriter keep = [this](Application& application, const std::string&,
                                      const PixelSize&) {
      drawing = std::make_unique<DrawingStore>(application.store);
    };
    std::ostringstream err;
    ASSERT_EQ(runScriptText(job, text, keep, out, err), ExitStatus::Done) << err.str();
    ASSERT_NE(drawing, nullptr);
  }

  void expectProgramReadsBack() {
    const std::vector<PathRow> placed = testing::placedCuts(*drawing, kResolution);
    const std::vector<PathRow> read =
        testing::readCuts(testing::readProgram(readFile(home("CNC/job.CNC"))));
    EXPECT_EQ(testing::firstDifference(placed, read, {.resolution = kResolution, .joints = 2e-4}),
              "");
  }

  TempFolder home;
  std::ostringstream out;
  std::unique_ptr<DrawingStore> drawing;
};

class DxfJobs : public ::testing::TestWithParam<DxfJob>, protected DxfScript {
 protected:
  // The verified outline, row by row along the loop.
  std::vector<SegmentRow> outline() const {
    std::vector<SegmentRow> rows;
    for (int sg = 1; sg <= drawing->NumSegments; ++sg) {
      if (drawing->segattr[sg] == kVerifiedRow) rows.push_back(segmentRow(*drawing, sg));
    }
    return inLoopOrder(rows);
  }
};

TEST_P(DxfJobs, GoFromTheFileToAProgramThatReadsBack) {
  run(kJob, {std::string(TESSIMO_DXF_FILES) + "/" + GetParam().file, GetParam().x, GetParam().y,
             GetParam().radius});
  const testing::PartShape part = testing::partOf(outline());
  const std::vector<testing::Curve> path = testing::toolPath(*drawing);
  const double radius = std::stod(GetParam().radius);
  EXPECT_LE(testing::deepestGouge(part, path, radius).depth, 2e-4);
  EXPECT_GE(testing::ReachableArea(part, radius).coverageOf(path).share, 0.999);
  expectProgramReadsBack();
  EXPECT_EQ(out.str().find("discontinuous"), std::string::npos) << out.str();
}

// The outlines that the script has told, row by row along each.
std::vector<std::vector<SegmentRow>> outlinesOf(const DxfScript& script) {
  std::vector<std::vector<SegmentRow>> outlines;
  std::istringstream lines(script.out.str());
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string first;
    words >> first;
    if (first != "outline") continue;
    std::vector<SegmentRow> rows;
    for (int sg = 0; words >> sg;) rows.push_back(segmentRow(*script.drawing, sg));
    outlines.push_back(inLoopOrder(rows));
  }
  return outlines;
}

// Each outline that lies in no other, with those that lie in it.
std::vector<testing::PartShape> partsOf(const std::vector<std::vector<SegmentRow>>& outlines) {
  std::vector<testing::Loop> loops;
  for (const auto& rows : outlines) loops.push_back(testing::partOf(rows).pocket);
  const auto holds = [&](std::size_t outer, std::size_t inner) {
    return outer != inner && testing::encloses(loops[outer], loops[inner].front().start);
  };
  std::vector<testing::PartShape> parts;
  for (std::size_t k = 0; k < loops.size(); ++k) {
    testing::PartShape part{loops[k], {}};
    bool inside = false;
    for (std::size_t other = 0; other < loops.size(); ++other) {
      inside |= holds(other, k);
      if (holds(k, other)) part.islands.push_back(loops[other]);
    }
    if (!inside) parts.push_back(part);
  }
  return parts;
}

// A word of letters, some with islands.
TEST(WholeDxfDrawings, GoToAProgramInOneScript) {
  constexpr double kRadius = 0.3;
  DxfScript script;
  script.run(kWholeDrawing, {std::string(TESSIMO_DXF_FILES) + "/camotics__camotics.dxf", "0.3"});
  const std::vector<testing::PartShape> parts = partsOf(outlinesOf(script));
  const std::vector<testing::Curve> path = testing::toolPath(*script.drawing);
  std::size_t islands = 0;
  std::size_t judged = 0;
  for (const testing::PartShape& part : parts) {
    islands += part.islands.size();
    std::vector<testing::Curve> own;
    for (const testing::Curve& row : path) {
      if (testing::encloses(part.pocket, testing::pointOn(row, 0.5))) own.push_back(row);
    }
    judged += own.size();
    EXPECT_LE(testing::deepestGouge(part, own, kRadius).depth, 1e-4);
    EXPECT_GE(testing::ReachableArea(part, kRadius, 6).coverageOf(own).share, 0.999);
  }
  EXPECT_GE(parts.size(), 3U);
  EXPECT_GE(islands, 1U);
  EXPECT_EQ(judged, path.size()) << "no row lies in the part";
  script.expectProgramReadsBack();
  EXPECT_EQ(script.out.str().find("discontinuous"), std::string::npos) << script.out.str();
}

// A place on the outline for each, once the drawing's lower left lies at zero.
INSTANTIATE_TEST_SUITE_P(FilesOfOthers, DxfJobs,
                         ::testing::Values(DxfJob{"camotics__border.dxf", "51", "0", "2"},
                                           DxfJob{"voron-0__Bottom_Panel.dxf", "4", "0", "0.25"},
                                           DxfJob{"voron-0__Mid_Panel.dxf", "4", "0", "0.25"}),
                         [](const auto& job) {
                           std::string name = job.param.file;
                           for (char& c : name) {
                             if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
                           }
                           return name;
                         });

}  // namespace
}  // namespace tess

#endif
