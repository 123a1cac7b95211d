// A finish path round a part with true paths, and what holding tabs, a ramp and drops into its
// corners add to the command; forms are accepted at once. The goal of each is a tenth. The part is
// a wavy star whose rows turn little, with a notch every twenty rows, or a rack: teeth with four
// square corners each, two of which the path drops into, which is the hardest.
#include <vector>

#include "benchmark/benchmark.h"

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "tests/support/outlines.h"
#include "tests/support/silent_surface.h"
#include "toolpath/true_finish.h"

namespace tess {
namespace {

enum Part { kStar, kRack };
enum Added { kNothing, kTabs, kRamp, kOvercut };

std::vector<Entity> polygon(const std::vector<Point>& corners) {
  std::vector<Entity> rows;
  for (std::size_t k = 0; k < corners.size(); ++k) {
    rows.push_back(lineEntity(corners[k], corners[(k + 1) % corners.size()]));
  }
  return rows;
}

// Every twentieth corner lies so far inside that a square corner is there.
std::vector<Entity> notchedStar(int rows) {
  constexpr std::size_t kApart = 20;
  std::vector<Entity> star = testing::wavyStar({.rows = rows, .depth = 0.2});
  for (std::size_t k = kApart / 2; k + 1 < star.size(); k += kApart) {
    const Point a = star[k].start;
    const Point b = star[k + 1].end;
    const Point in{(a.x + b.x - (b.y - a.y)) / 2, (a.y + b.y + (b.x - a.x)) / 2};
    star[k].end = star[k + 1].start = in;
  }
  return star;
}

std::vector<Entity> rack(int rows) {
  const int teeth = rows / 4;
  std::vector<Point> corners{{static_cast<float>(teeth), -1}};
  for (int tooth = teeth - 1; tooth >= 0; --tooth) {
    const auto x = static_cast<float>(tooth);
    for (const Point corner :
         {Point{x + 1, 0.5F}, Point{x + 0.5F, 0.5F}, Point{x + 0.5F, 0}, Point{x, 0}}) {
      corners.push_back(corner);
    }
  }
  corners.push_back({0, -1});
  return polygon(corners);
}

struct PartJob : testing::SilentDrafting {
  explicit PartJob(const benchmark::State& run) {
    const auto rows = static_cast<int>(run.range(1));
    testing::addOutline(store, run.range(0) == kStar ? notchedStar(rows) : rack(rows));
    store.cfg_true_paths = true;
    store.cfg_final_depth = 0.4F;
    store.cfg_z_cut_per_pass = 0.2F;
    store.toolradius[0] = run.range(0) == kStar ? 0.02F : 0.1F;
    store.selectedtool = 0;
    store.cfg_holding_tabs = run.range(2) == kTabs;
    store.cfg_tab_number = 4;
    store.cfg_tab_width = 0.02F;
    store.cfg_tab_height = 0.1F;
    store.cfg_entry_kind =
        choiceNumber(run.range(2) == kRamp ? EntryKind::Ramp : EntryKind::Plunge);
    store.cfg_entry_angle = 3;
    store.cfg_corner_overcut = run.range(2) == kOvercut ? 1 : 0;
    test.recording.prompts.onForm = [](Form& form) { form.pressDefault(); };
  }

  CamContext cam{context};
};

void FinishRoundPart(benchmark::State& state) {
  PartJob job(state);
  const Point start{job.store.x0[1], job.store.y0[1]};
  for (auto _ : state) {
    job.store.NumPathSegments = 0;
    job.context.session.pathJobs.clear();
    placeTrueFinish(job.cam, {.sg = 1, .start = start, .reference = {1e4F, 1e4F}});
  }
  state.counters["rows"] = int{job.store.NumPathSegments};
}
BENCHMARK(FinishRoundPart)
    ->ArgsProduct({{kStar, kRack}, {100, 1000}, {kNothing, kTabs, kRamp, kOvercut}})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tess
