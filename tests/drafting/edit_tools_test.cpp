// What holds for every edit tool, whatever rows it is used on: a click makes one step that undo
// takes back bit by bit, or nothing at all, also where the numbers leave what the tables can hold.
#include <gtest/gtest.h>

#include "drafting/break_segment.h"
#include "drafting/change_radius.h"
#include "drafting/delete_rows.h"
#include "drafting/dlgEditRadius.h"
#include "drafting/entity_info.h"
#include "drafting/fillet.h"
#include "drafting/flip_arc.h"
#include "drafting/join_ends.h"
#include "drafting/move_end_points.h"
#include "drafting/remove_vertex.h"
#include "drafting/trim.h"
#include "tests/geometry/rows.h"
#include "tests/geometry/scenes.h"
#include "tests/support/back_and_forth.h"
#include "tests/support/drafting_test_context.h"

namespace tess {
namespace {

using testing::Dice;
using testing::Marks;
using testing::RecordedDrafting;
using testing::SceneKind;
using testing::TableBits;

constexpr void (*kTools[])(DraftingContext&) = {
    mnuEditDelete_Click,  mnuEditBreakSeg_Click, mnuEditTrimEntity_Click, mnuEditFlipArc_Click,
    mnuEditRevArc_Click,  mnuChangeRad_Click,    mnuAddFillet_Click,      mnuEditJoinEnd_Click,
    mnuEditJoinEndPtsArc, mnuEditMoveEnd_Click,  mnuDeleteVertex_Click,   mnuEditEntityInfo_Click,
};

constexpr std::size_t kMaxRows = 30;

SceneKind sceneKind(int scene) {
  return static_cast<SceneKind>(scene % testing::kSceneKinds);
}

struct SceneContext : RecordedDrafting {
  explicit SceneContext(int scene)
      : kind(sceneKind(scene)), dice(static_cast<std::uint32_t>(scene)) {
    std::vector<Entity> entities = testing::sceneOf(scene).entities;
    if (entities.size() > kMaxRows) entities.resize(kMaxRows);
    for (const Entity& entity : entities) {
      testing::addSegment(store, entity);
      testing::addPath(store, entity);
    }
    test.recording.prompts.onForm = [this](Form& form) {
      static constexpr const char* kRadii[] = {"0.01", "1", "3", "400", "1e6", "1e30", "0", "-2"};
      auto& dialog = dynamic_cast<dlgEditRadius&>(form);
      dialog.txtradius.setText(kRadii[dice.below(8)]);
      dialog.cmdAccept.click();
    };
  }

  // On an end of a row, so that rows meet there, or anywhere.
  Point place() {
    const int sg = 1 + dice.below(std::max<int>(store.NumSegments, 1));
    if (dice.below(3) == 0 || sg > store.NumSegments) return testing::scenePoint(kind, dice);
    return {store.x0[sg], store.y0[sg]};
  }

  // False when it failed.
  bool clickAt(Point at) {
    try {
      click(at.x, at.y);
      return true;
    } catch (const RuntimeFailure&) {
      takeCallChain();
      context.state.setPendingaction(0);
      context.pointer.LeftDown = false;
      return false;
    }
  }

  void useTool() {
    kTools[dice.below(static_cast<int>(std::size(kTools)))](context);
    log.take();
    for (int clicks = 0; clicks < 3 && pending() != 0; ++clicks) {
      const TableBits before(store, Marks::Ignore);
      const int records = context.changelog.changecount;
      const bool done = clickAt(place());
      const bool logged = context.changelog.changecount != records;
      EXPECT_TRUE(done || !logged);
      if (!logged) {
        EXPECT_TRUE(TableBits(store, Marks::Ignore) == before);
        continue;
      }
      ++steps;
      testing::expectBackAndForth(*this, before, /*steps=*/1, Marks::Ignore);
    }
    if (pending() != 0) Handle_esc(context);
  }

  SceneKind kind;
  Dice dice;
  int steps = 0;
};

class EditTools : public ::testing::TestWithParam<int> {};

TEST_P(EditTools, MakeOneStepOrNone) {
  for (const bool paths : {false, true}) {
    int steps = 0;
    for (int seed = 0; seed < 6; ++seed) {
      SceneContext d(GetParam() + seed * testing::kSceneKinds);
      d.context.command.EditPaths = paths;
      for (int n = 0; n < 40 && !HasFailure(); ++n) d.useTool();
      if (HasFailure()) FAIL() << "seed " << seed << (paths ? ", paths" : "");
      steps += d.steps;
    }
    EXPECT_EQ(steps > 0, sceneKind(GetParam()) != SceneKind::Empty);
  }
}

INSTANTIATE_TEST_SUITE_P(Scenes, EditTools, ::testing::Range(0, testing::kSceneKinds));

}  // namespace
}  // namespace tess
