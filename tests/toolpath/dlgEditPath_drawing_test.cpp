// View/Edit Path Segments: what stands out in the drawing, clicks there, the map, and many rows.
#include "gtest/gtest.h"

#include "tests/support/edit_checks.h"
#include "tests/support/edit_path_fixture.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/frmPathMap.h"

namespace tess {
namespace {

using testing::EditPath;
using testing::expectNoStep;
using testing::expectOneStep;

// ---- In the drawing

TEST_F(EditPath, TheRowOrItsGroupStandsOutUntilTheFormCloses) {
  addRows({100, 200, 200});
  open();
  const auto shown = [this] { return context.formPreview.rows.size(); };
  EXPECT_EQ(context.formPreview.rows, (std::vector<SegmentRow>{{.type = kLine, .x1 = 1}}));
  EXPECT_EQ(context.formPreview.width, 3);
  goTo(2);
  EXPECT_EQ(context.formPreview.rows, (std::vector<SegmentRow>{{.type = kLine, .x0 = 1, .x1 = 2}}));
  form.optApplyToGroup.setValue(true);
  EXPECT_EQ(shown(), 2U);
  form.optApplyToAll.setValue(true);
  EXPECT_EQ(shown(), 1U);
  form.cmdExit.press();
  EXPECT_EQ(shown(), 0U);
}

TEST_F(EditPath, WhatStandsOutIsThereAfterASaveToo) {
  addRows({100, 200});
  open();
  form.txtpsx1.setText("4");
  form.cmdRefresh.press();
  EXPECT_EQ(context.formPreview.rows, (std::vector<SegmentRow>{{.type = kLine, .x1 = 4}}));
  EXPECT_TRUE(context.formPreview.shown);
}

TEST_F(EditPath, ASaveThatLooksTheSamePaintsNothingAnew) {
  addRows({100, 200});
  open();
  log.take();
  form.txtpsz.setText("-2");
  form.txtpsfeed.setText("7");
  form.cmdRefresh.press();
  EXPECT_EQ(log.take().find("Cls"), std::string::npos);
  form.chkVisible.setChecked(false);
  form.cmdRefresh.press();
  EXPECT_NE(log.take().find("Cls"), std::string::npos);
}

TEST_F(EditPath, ManySavesOfOneEventPaintTheDrawingOnce) {
  addRows({100, 200, 300});
  open();
  store.showpaths = 1;
  surface.hasFrames = true;
  log.take();
  for (const char* const end : {"4", "5"}) {
    form.txtpsx1.setText(end);
    form.cmdNext.press();
  }
  EXPECT_EQ(log.count("Cls"), 0);
  EXPECT_EQ(log.count("frame requested"), 1);
  redraw.paintFrame();
  EXPECT_EQ(log.count("Cls"), 1);
  EXPECT_GT(log.count("line (0, 0)-(4, 0)"), 0);
  EXPECT_GT(log.count("line (1, 0)-(5, 0)"), 0);
  EXPECT_TRUE(context.formPreview.shown);
}

TEST_F(EditPath, AClickInTheDrawingGoesToTheRow) {
  addRows({100, 200, 300});
  open();
  form.txtpsz.setText("-2");
  expectNoStep(*this, [this] { click(2.5F, 0.25F); });
  EXPECT_EQ(form.txtps.text(), "3");
  EXPECT_EQ(form.lstRows.index(), 2);
  EXPECT_EQ(marker(), (Point{0, 0})) << "it is no click of drafting";
  rightClick(0.5F, 0.25F);
  EXPECT_EQ(form.txtps.text(), "3");
  for (int ps = 1; ps <= 3; ++ps) hide(ps);
  click(0.5F, 0.25F);
  EXPECT_EQ(beeps(), 1) << "there is no row to be seen";
  form.cmdExit.press();
  const Point before = mouse();
  click(0.5F, 0.25F);
  EXPECT_NE(mouse(), before) << "the drawing is the operator's again";
}

TEST_F(EditPath, TheReleaseOfAClickThatTheFormTookIsNoneAfterItHasClosed) {
  addRows({100, 200});
  open();
  press(kLeftButton, 1.5F, 0.25F);
  EXPECT_EQ(form.txtps.text(), "2");
  form.pressCancel();
  const Point before = mouse();
  release(kLeftButton, 3, 3);
  EXPECT_EQ(mouse(), before);
  click(3, 3);
  EXPECT_NE(mouse(), before);
}

TEST_F(EditPath, AFormThatGoesWhileItIsOpenLeavesTheDrawingAlone) {
  addRows({100, 200});
  {
    dlgEditPath gone(cam);
    gone.open(Modality::Modal);
  }
  click(1.5F, 0.25F);
  EXPECT_NE(mouse(), Point{});
}

TEST_F(EditPath, TheDrawingIsOutOfReachOfTheMap) {
  addRows({100, 200});
  open();
  test.recording.prompts.onForm = [this](Form&) { click(1.5F, 0.25F); };
  form.cmdOrderPaths.press();
  EXPECT_EQ(form.txtps.text(), "1");
  click(1.5F, 0.25F);
  EXPECT_EQ(form.txtps.text(), "2");
}

// ---- The map

TEST_F(EditPath, OrderPathsShowsTheMapAndTheRowAgain) {
  addRows({100, 200});
  open();
  test.recording.prompts.onForm = [](Form& shown) {
    auto& map = dynamic_cast<frmPathMap&>(shown);
    map.lstPathSegments.pick(2);
    map.cmdPromote.press();
    map.cmdApply.press();
  };
  expectOneStep(*this, [this] { form.cmdOrderPaths.press(); });
  EXPECT_EQ(codes(), (std::vector{200, 100}));
  EXPECT_EQ(form.txtPathGroup.text(), "2");
}

// ---- Many rows

TEST_F(EditPath, EditsReordersAndUndoes30000Rows) {
  std::vector<int> many;
  for (int ps = 0; ps < 30000; ++ps) many.push_back(100 + 100 * (ps / 200));
  addRows(many);
  open();
  std::vector<testing::TableBits> steps{testing::TableBits(store)};
  const auto step = [&](const auto& edit) {
    expectOneStep(*this, edit);
    steps.emplace_back(store);
  };
  goTo(15000);
  form.optApplyToGroup.setValue(true);
  form.txtpsz.setText("-2");
  step([this] { form.cmdRefresh.press(); });
  EXPECT_EQ(context.changelog.changecount, 400);
  test.recording.prompts.onForm = [](Form& shown) {
    auto& map = dynamic_cast<frmPathMap&>(shown);
    map.lstPathSegments.pick(201);
    map.cmdPromote.press();
    map.cmdApply.press();
  };
  step([this] { form.cmdOrderPaths.press(); });
  EXPECT_EQ(store.pscode[1], 200);
  EXPECT_EQ(store.psx0[1], 200);
  form.optApplyToSegment.setValue(true);
  step([this] { form.cmdDel.press(); });
  goTo(1);
  form.txtPathGroup.setText("299");
  step([this] { form.cmdRefresh.press(); });
  EXPECT_EQ(store.pscode[1], 29900);
  step([this] { form.cmdIns.press(); });
  EXPECT_EQ(store.NumPathSegments, 30000);
  answer({Answer::Ok});
  goTo(2);
  step([this] { form.cmdDeletePathGroup.press(); });
  EXPECT_EQ(store.NumPathSegments, 29998);
  EXPECT_EQ(form.lstRows.count(), 29998);
  for (std::size_t back = steps.size() - 1; back-- > 0;) {
    Undo_Last_Change(context);
    EXPECT_TRUE(testing::TableBits(store) == steps[back]) << back;
  }
  EXPECT_EQ(context.changelog.changecount, 0);
  for (std::size_t on = 1; on < steps.size(); ++on) {
    RedoLastChange(context);
    EXPECT_TRUE(testing::TableBits(store) == steps[on]) << on;
  }
}

}  // namespace
}  // namespace tess
