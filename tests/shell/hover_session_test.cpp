// Sessions with the hover preview are those without it: no row differs.
#include <algorithm>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "drafting/dlgEditRadius.h"
#include "drafting/dlgSetGrids.h"
#include "drafting/drafting_commands.h"
#include "tests/geometry/scenes.h"
#include "tests/support/edit_checks.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

using testing::Dice;
using testing::RunningProgram;
using Rows = std::vector<SegmentRow>;

constexpr int kSteps = 1200;

// The same hand for either program: what it does depends on the seed alone.
class Hand {
 public:
  Hand(RunningProgram& program, std::uint32_t seed) : program_(program), dice_(seed) {
    program.platform.prompts.onForm = [this](Form& form) { fillIn(form); };
    program.pass(1000);
    for (const DraftingCommand* const command : draftingCommands()) {
      const std::string tool = command->info.tool;
      if (tool != "miCleanupDrawing") tools_.push_back(tool);
      if (command->mode.number != kNoMode) tools_.insert(tools_.end(), 3, tool);
    }
  }

  void step() {
    switch (dice_.below(10)) {
      case 0:
        return void(program_.application.clickTool(
            tools_[static_cast<std::size_t>(dice_.below(static_cast<int>(tools_.size())))]));
      case 1:
        return drag();
      case 2:
        return click(kRightButton);
      case 3:
        return void(program_.application.clickTool("OSnap"));
      case 4:
        return program_.pass(25 << dice_.below(5));
      case 5:
        return program_.type(SpecialKey::Enter);
      default:
        return click(kLeftButton);
    }
  }

 private:
  Point somewhere() {
    return {0.5F * static_cast<float>(dice_.below(9) - 4) + narrow(0.1 * dice_.unit()),
            0.5F * static_cast<float>(dice_.below(9) - 4) + narrow(0.1 * dice_.unit())};
  }

  // As a hand clicks: the pointer comes along, and rests while the button is down.
  void click(int button) {
    const Point at = somewhere();
    const int shift = dice_.below(6) == 0 ? kShiftKey : 0;
    program_.application.move({.Shift = shift, .X = at.x - 0.01F, .Y = at.y});
    program_.application.move({.Shift = shift, .X = at.x, .Y = at.y});
    program_.application.press({button, shift, at.x, at.y});
    program_.application.move({button, shift, at.x, at.y});
    program_.application.release({button, shift, at.x, at.y});
  }

  void drag() {
    const Point from = somewhere(), to = somewhere();
    program_.application.move({.X = from.x, .Y = from.y});
    program_.application.press({kLeftButton, 0, from.x, from.y});
    program_.application.move({kLeftButton, 0, to.x, to.y});
    program_.application.release({kLeftButton, 0, to.x, to.y});
  }

  void fillIn(Form& form) {
    if (auto* const radius = dynamic_cast<dlgEditRadius*>(&form)) radius->txtradius.setText("0.25");
    if (auto* const grids = dynamic_cast<dlgSetGrids*>(&form)) {
      grids->chkOSnapFeatures[1 + dice_.below(5)].setChecked(dice_.below(2) == 0);
    }
    if (dice_.below(3) != 0) form.pressDefault();
  }

  RunningProgram& program_;
  Dice dice_;
  std::vector<std::string> tools_;
};

Rows rowsOf(const DrawingStore& store) {
  Rows rows;
  for (int sg = 1; sg <= store.NumSegments; ++sg) rows.push_back(segmentRow(store, sg));
  return rows;
}

class HoverSession : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(HoverSession, NoRowDiffers) {
  RunningProgram without, with;
  with.application.store.hoverpreview = true;
  Hand plain(without, GetParam()), previewed(with, GetParam());
  int most = 0;
  for (int n = 0; n < kSteps; ++n) {
    plain.step();
    previewed.step();
    const DrawingStore& a = without.application.store;
    const DrawingStore& b = with.application.store;
    most = std::max<int>(most, a.NumSegments);
    ASSERT_EQ(rowsOf(a), rowsOf(b)) << "after step " << n;
    ASSERT_EQ((Point{a.markerx, a.markery}), (Point{b.markerx, b.markery})) << "after step " << n;
    ASSERT_EQ(without.pendingaction(), with.pendingaction()) << "after step " << n;
    ASSERT_EQ(without.DrawMode(), with.DrawMode()) << "after step " << n;
  }
  EXPECT_GT(most, 20) << "a session that draws nothing shows nothing";
}

INSTANTIATE_TEST_SUITE_P(Seeds, HoverSession, ::testing::Range(1U, 5U));

}  // namespace
}  // namespace tess
