// The path editor and the map of the path as models, on 30000 rows in 150 groups: opening them,
// going from row to row, applying to a group, moving rows and groups. All but the painting of
// pixels; the redraw of the surface's next frame, where rows look otherwise, stands beside it.
#include <stdexcept>

#include "benchmark/benchmark.h"

#include "tests/support/silent_surface.h"
#include "toolpath/dlgEditPath.h"
#include "toolpath/frmPathMap.h"

namespace tess {
namespace {

constexpr int kRows = 30000;
constexpr int kRowsInGroup = 200;
constexpr int kMiddle = kRows / 2;

// Short lines in layers of groups, one after the other.
struct Paths : testing::SilentDrafting {
  Paths() {
    store.showpaths = 1;
    for (int ps = 0; ps < kRows; ++ps) {
      const auto x = static_cast<float>(ps % kRowsInGroup) / 20 - 5;
      const auto y = static_cast<float>(ps / kRowsInGroup) / 20 - 4;
      addPathSegment(store, {.type = kLine,
                             .x0 = x,
                             .y0 = y,
                             .x1 = x + 0.04F,
                             .y1 = y,
                             .z = -0.5F,
                             .feed = 10,
                             .code = pathCode(1 + ps / kRowsInGroup, 0)});
    }
  }

  CamContext cam{context};
};

void check(bool holds) {
  if (!holds) throw std::logic_error("the form does something else");
}

struct OpenEditor : Paths {
  OpenEditor() {
    form.open(Modality::Modal);
    goTo(kMiddle);
  }
  void goTo(int row) {
    form.txtps.setText(std::to_string(row));
    form.txtps.onLeave();
  }

  dlgEditPath form{cam};
};

void openEditor(benchmark::State& state) {
  Paths d;
  for (auto _ : state) {
    dlgEditPath form(d.cam);
    form.open(Modality::Modal);
    state.PauseTiming();
    form.close();
    state.ResumeTiming();
  }
}

// To and fro, so that there always is one.
void nextRow(benchmark::State& state) {
  OpenEditor d;
  bool down = false;
  for (auto _ : state) {
    down = !down;
    (down ? d.form.cmdNext : d.form.cmdPrev).press();
    check(d.form.lstRows.index() == kMiddle - (down ? 0 : 1));
  }
}

// The depth was edited: another step of undo.
void nextRowWithAnEdit(benchmark::State& state) {
  OpenEditor d;
  bool down = false;
  int depth = 0;
  for (auto _ : state) {
    down = !down;
    d.form.txtpsz.setText(std::to_string(--depth % 100));
    (down ? d.form.cmdNext : d.form.cmdPrev).press();
    check(d.store.psz[down ? kMiddle : kMiddle + 1] == static_cast<float>(depth % 100));
  }
}

// The end of the row was edited: the drawing is painted anew when the press is over.
void nextRowWithAMove(benchmark::State& state) {
  OpenEditor d;
  d.surface.hasFrames = true;
  bool down = false;
  int place = 0;
  for (auto _ : state) {
    down = !down;
    d.form.txtpsx1.setText(std::to_string(1 + ++place % 100));
    (down ? d.form.cmdNext : d.form.cmdPrev).press();
    check(d.form.lstRows.index() == kMiddle - (down ? 0 : 1));
    state.PauseTiming();
    check(d.surface.Enabled());
    d.redraw.paintFrame();
    check(!d.surface.Enabled());
    d.pass(1000);
    state.ResumeTiming();
  }
}

void applyToGroup(benchmark::State& state) {
  OpenEditor d;
  d.form.optApplyToGroup.setValue(true);
  int depth = 0;
  for (auto _ : state) {
    d.form.txtpsz.setText(std::to_string(--depth % 100));
    d.form.cmdRefresh.press();
    check(d.store.psz[kMiddle] == static_cast<float>(depth % 100));
  }
}

void findLastRow(benchmark::State& state) {
  OpenEditor d;
  d.store.psz[kMiddle] = -1;
  d.form.cmbFind.setIndex(2);
  d.form.txtFind.setText("-1");
  for (auto _ : state) {
    state.PauseTiming();
    d.goTo(kMiddle + 1);
    state.ResumeTiming();
    d.form.cmdFindNext.press();
    check(d.form.lstRows.index() == kMiddle - 1);
  }
}

void clickInTheDrawing(benchmark::State& state) {
  OpenEditor d;
  bool left = false;
  for (auto _ : state) {
    left = !left;
    const int before = d.form.lstRows.index();
    d.press(kLeftButton, left ? -2.0F : 2.0F, 0);
    check(d.form.lstRows.index() != before);
  }
}

void openMap(benchmark::State& state) {
  Paths d;
  for (auto _ : state) {
    frmPathMap form(d.cam);
    form.open(Modality::Modal);
  }
}

struct OpenMap : Paths {
  OpenMap() { form.open(Modality::Modal); }
  frmPathMap form{cam};
};

void promoteAndDemoteRow(benchmark::State& state) {
  OpenMap d;
  d.form.lstPathSegments.pick(kMiddle);
  bool up = false;
  for (auto _ : state) {
    up = !up;
    (up ? d.form.cmdPromote : d.form.cmdDemote).press();
  }
}

void promoteAndDemoteGroup(benchmark::State& state) {
  OpenMap d;
  d.form.lstPathSegments.pick(75 * (kRowsInGroup + 1));
  bool up = false;
  for (auto _ : state) {
    up = !up;
    (up ? d.form.cmdPromote : d.form.cmdDemote).press();
  }
}

void proposeOrder(benchmark::State& state) {
  OpenMap d;
  for (auto _ : state) d.form.cmdPropose.press();
}

void redraw(benchmark::State& state) {
  Paths d;
  for (auto _ : state) d.redraw.redrawscreen();
}

BENCHMARK(openEditor)->Name("PathEditor/open")->Unit(benchmark::kMicrosecond);
BENCHMARK(nextRow)->Name("PathEditor/next row")->Unit(benchmark::kMicrosecond);
BENCHMARK(nextRowWithAnEdit)
    ->Name("PathEditor/next row with an edit")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(nextRowWithAMove)->Name("PathEditor/next row with a move")->Unit(benchmark::kMicrosecond);
BENCHMARK(applyToGroup)->Name("PathEditor/apply to a group")->Unit(benchmark::kMicrosecond);
BENCHMARK(findLastRow)->Name("PathEditor/find")->Unit(benchmark::kMicrosecond);
BENCHMARK(clickInTheDrawing)->Name("PathEditor/click")->Unit(benchmark::kMicrosecond);
BENCHMARK(openMap)->Name("PathMap/open")->Unit(benchmark::kMicrosecond);
BENCHMARK(promoteAndDemoteRow)->Name("PathMap/row moved")->Unit(benchmark::kMicrosecond);
BENCHMARK(promoteAndDemoteGroup)->Name("PathMap/group moved")->Unit(benchmark::kMicrosecond);
BENCHMARK(proposeOrder)->Name("PathMap/proposal")->Unit(benchmark::kMicrosecond);
BENCHMARK(redraw)->Name("PathEditor/redraw")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tess
