// What an operator waits for at the tool chest, the title block and the property window: opening
// with the database read anew or in memory already, a key in the chest, a long category, and the
// window that follows a full drawing.
#include <filesystem>
#include <string>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "tests/support/feeds_samples.h"
#include "tests/support/running_program.h"
#include "tools/dlgTitleBlock.h"
#include "tools/dlgToolPrms.h"

namespace tess {
namespace {

constexpr int kRows = 32767;

struct FeedsProgram : testing::RunningProgram {
  FeedsProgram() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/data/SpeedsFeeds.MDB", home(kSpeedsFeedsName));
    store.materialcategory = "Carbon Steels";
    store.partmaterial = "1030-1055 (1045)";
  }
  ToolChest chest(SpeedsFeeds& feeds) { return {application.session, feeds, application.colors}; }
  TitleBlock block(SpeedsFeeds& feeds) {
    return {application.session, feeds, application.interaction.viewCommands, context().changes};
  }

  DrawingStore& store = application.store;
};

// A dialog that opens on a database that was read before, or on one that was not.
template <class Open>
void opens(benchmark::State& state, bool readBefore, Open open) {
  FeedsProgram program;
  SpeedsFeeds kept;
  open(program, kept);
  for (auto _ : state) {
    SpeedsFeeds fresh;
    open(program, readBefore ? kept : fresh);
  }
}

void chestOpens(benchmark::State& state, bool readBefore) {
  opens(state, readBefore, [](FeedsProgram& program, SpeedsFeeds& feeds) {
    mnuCAMSelectTool_Click(program.chest(feeds));
  });
}

void titleBlockOpens(benchmark::State& state, bool readBefore) {
  opens(state, readBefore, [](FeedsProgram& program, SpeedsFeeds& feeds) {
    mnuOptionsDrawTitleBlock_Click(program.block(feeds));
  });
}

void keyInTheChest(benchmark::State& state) {
  FeedsProgram program;
  SpeedsFeeds feeds;
  dlgToolPrms chest(program.chest(feeds), 0);
  chest.open(Modality::Modal);
  int key = 0;
  for (auto _ : state) chest.txtNumberFlutes.type(std::to_string(1 + key++ % 9));
}

void categoryOfThousand(benchmark::State& state) {
  FeedsProgram program;
  std::string rows;
  for (int i = 0; i < 1000; ++i) {
    rows += "INSERT INTO Plastics (Material) VALUES ('m" + std::to_string(i) + "');";
  }
  testing::smallFeeds(program.home, rows);
  SpeedsFeeds feeds;
  dlgTitleBlock block(program.block(feeds));
  block.open(Modality::Modal);
  block.optStockMaterial.setValue(true);
  for (auto _ : state) block.cmbMaterialCategory.pick(block.cmbMaterialCategory.count() - 1);
  if (block.cmbMaterial.count() < 1000) state.SkipWithError("the list was not filled");
}

struct SelectedProgram : testing::RunningProgram {
  SelectedProgram() {
    Change change(context().changes);
    for (int n = 0; n < kRows; ++n) {
      const auto x = static_cast<float>(n % 181);
      const auto y = static_cast<float>(n / 181);
      change.segments.append({.type = kLine, .x0 = x, .y0 = y, .x1 = x + 0.5F, .y1 = y},
                             Entry::Unmarked);
    }
    change.keep({.redraws = false});
    application.interaction.forms.show(form);
    select(kRows);
  }
  void select(int rows) {
    context().state.Selected.fill(rows);
    context().state.updateProperties = true;
    form.UpdatePropertyWindow();
  }
  frmProperties& form = application.interaction.properties;
};

void propertyWindowFollows(benchmark::State& state, bool changed) {
  SelectedProgram program;
  for (auto _ : state) {
    state.PauseTiming();
    if (changed) program.select(0);
    state.ResumeTiming();
    if (changed) program.select(kRows);
    program.form.UpdatePropertyWindow();
  }
}

void propertiesOfAll(benchmark::State& state) {
  SelectedProgram program;
  for (auto _ : state) {
    program.form.cboObject.setIndex(kRows);
    state.PauseTiming();
    program.form.cboObject.setIndex(0);
    state.ResumeTiming();
  }
}

BENCHMARK_CAPTURE(chestOpens, first, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(chestOpens, again, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(titleBlockOpens, first, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(titleBlockOpens, again, true)->Unit(benchmark::kMillisecond);
BENCHMARK(keyInTheChest)->Unit(benchmark::kMillisecond);
BENCHMARK(categoryOfThousand)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(propertyWindowFollows, another_selection, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(propertyWindowFollows, the_same_selection, false)->Unit(benchmark::kMillisecond);
BENCHMARK(propertiesOfAll)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
