// A CNC program that is cut off at each of its system calls: the file is the old program or the new
// one, whole, and the next program leaves nothing lying about.
#include <filesystem>

#include "core/file_system.h"
#include "tests/cnc/cnc_fixture.h"
#include "tests/support/interrupted_process.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::Interruption;
using testing::lineRow;
using testing::TempFolder;
using testing::writeFile;

class InterruptedProgram : public testing::CncFixture {
 protected:
  InterruptedProgram() {
    for (int row = 0; row < 300; ++row) {
      const auto x = static_cast<float>(row);
      place(lineRow({x, 0}, {x + 1, 1}, -0.25F, 12));
    }
    make();
    new_ = folder_.read("part.CNC");
  }

  void make() {
    make_cnc(session, definition, state, CncMode::Mill, {.path = folder_("part.CNC")});
  }

  void prepare() {
    for (const auto& entry : fs::directory_iterator(folder_())) fs::remove(entry);
    if (!old_.empty()) writeFile(folder_("part.CNC"), old_);
  }

  void check() {
    const std::string now = folder_.has("part.CNC") ? folder_.read("part.CNC") : "";
    EXPECT_TRUE(now == old_ || now == new_) << "cut in the middle";
    // The next program in this folder clears away what the dead process has left.
    make_cnc(session, definition, state, CncMode::Mill, {.path = folder_("next.CNC")});
    fs::remove(folder_("next.CNC"));
    fs::remove(folder_("part.CNC"));
    EXPECT_TRUE(fs::is_empty(folder_()));
  }

  void interrupt(const std::string& old) {
    old_ = old;
    int points = 0;
    for (const Interruption how : {Interruption::Killed, Interruption::KilledInMidWrite,
                                   Interruption::NoSpace, Interruption::InputOutputError}) {
      points += pointsWithin(how, {.prepare = [this] { prepare(); },
                                   .work = [this] { make(); },
                                   .check = [this] { check(); }});
    }
    EXPECT_GT(points, 50);
    RecordProperty("points", points);
  }

  TempFolder folder_;
  std::string old_, new_;
};

TEST_F(InterruptedProgram, OverAnOldOneLeavesTheOldOneOrTheNew) {
  interrupt("G70\r\nG1X1F5\r\nM30\r\n");
}

TEST_F(InterruptedProgram, WhereThereWasNoneLeavesNoneOrTheNew) {
  interrupt("");
}

}  // namespace
}  // namespace tess
