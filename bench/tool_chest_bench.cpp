// What an operator waits for at the tool chest, the title block and the property window: opening
// with the database read anew or in memory already, a key in the chest, a long category, and the
// window that follows a full drawing; and what all of them add to the start of the program.
#include <filesystem>
#include <string>
#include <sys/resource.h>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "tests/support/feeds_samples.h"
#include "tests/support/running_program.h"
#include "tools/dlgColor.h"
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

#ifdef TESSIMO_JET_FEEDS

// Processor time of this process and of those that it has waited for, in seconds.
double processorTime() {
  double seconds = 0;
  for (const int whose : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
    rusage used{};
    getrusage(whose, &used);
    for (const timeval& time : {used.ru_utime, used.ru_stime}) {
      seconds += static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    }
  }
  return seconds;
}

// The same on a Jet file, with the process that reads it.
template <class Open>
void opensOnJet(benchmark::State& state, bool readBefore, Open open) {
  FeedsProgram program;
  std::filesystem::copy(TESSIMO_JET_FEEDS, program.home(kSpeedsFeedsName),
                        std::filesystem::copy_options::overwrite_existing);
  SpeedsFeeds kept(TESSIMO_JET_READER);
  open(program, kept);
  for (auto _ : state) {
    SpeedsFeeds fresh(TESSIMO_JET_READER);
    const double begin = processorTime();
    open(program, readBefore ? kept : fresh);
    state.SetIterationTime(processorTime() - begin);
  }
  if (materialCategories(kept).empty()) state.SkipWithError("the Jet file was not read");
}

void chestOpensOnJet(benchmark::State& state, bool readBefore) {
  opensOnJet(state, readBefore, [](FeedsProgram& program, SpeedsFeeds& feeds) {
    mnuCAMSelectTool_Click(program.chest(feeds));
  });
}

void titleBlockOpensOnJet(benchmark::State& state, bool readBefore) {
  opensOnJet(state, readBefore, [](FeedsProgram& program, SpeedsFeeds& feeds) {
    mnuOptionsDrawTitleBlock_Click(program.block(feeds));
  });
}

#endif

void programStarts(benchmark::State& state) {
  for (auto _ : state) testing::RunningProgram program;
}

// What the program makes of chest, colours and panels as it starts, its property window open.
void chestAndPanelsAtStart(benchmark::State& state) {
  testing::RunningProgram program;
  for (auto _ : state) {
    SpeedsFeeds feeds;
    FormColorDialog colors(program.platform.prompts);
    frmProperties properties(program.context());
    class frmStatistics statistics;
    program.application.interaction.forms.show(properties);
    program.application.interaction.forms.show(statistics);
    properties.close();
    statistics.close();
    benchmark::DoNotOptimize(&colors);
  }
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
#ifdef TESSIMO_JET_FEEDS
BENCHMARK_CAPTURE(chestOpensOnJet, first, false)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(chestOpensOnJet, again, true)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(titleBlockOpensOnJet, first, false)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(titleBlockOpensOnJet, again, true)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
#endif
BENCHMARK(programStarts)->Unit(benchmark::kMillisecond);
BENCHMARK(chestAndPanelsAtStart)->Unit(benchmark::kMillisecond);
BENCHMARK(keyInTheChest)->Unit(benchmark::kMillisecond);
BENCHMARK(categoryOfThousand)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(propertyWindowFollows, another_selection, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(propertyWindowFollows, the_same_selection, false)->Unit(benchmark::kMillisecond);
BENCHMARK(propertiesOfAll)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
