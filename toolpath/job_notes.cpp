// Jobs of the groups that placing commands have placed.
#include "toolpath/job_notes.h"

#include "core/drawing_store.h"

namespace tess {
namespace {

JobWall jobWall(const Curve& curve) {
  return {.x0 = curve.start.x,
          .y0 = curve.start.y,
          .x1 = curve.end.x,
          .y1 = curve.end.y,
          .xc = curve.isArc() ? curve.center.x : 0,
          .yc = curve.isArc() ? curve.center.y : 0,
          .turn = curve.turn};
}

bool hasRows(const DrawingStore& store, int group) {
  for (int ps = store.NumPathSegments; ps >= 1; --ps) {
    if (groupCutOff(store.pscode[ps]) == group) return true;
  }
  return false;
}

}  // namespace

std::vector<JobLoop> jobLoops(const JobWalls& walls) {
  std::vector<JobLoop> loops;
  for (const std::vector<Curve>& loop : walls.loops) {
    JobLoop& noted = loops.emplace_back();
    noted.isClosed = walls.isClosed;
    for (const Curve& curve : loop) noted.walls.push_back(jobWall(curve));
  }
  return loops;
}

void noteJob(CamContext& cam, JobKind kind, double distance, const JobWalls& walls,
             const JobIntents& intents) {
  const DrawingStore& store = cam.store;
  const bool needsWalls = kind != JobKind::OnTheLine && kind != JobKind::None;
  if (needsWalls && walls.loops.empty()) return;
  if (!hasRows(store, store.currentpathgroup)) return;
  const bool turns = kind == JobKind::Lathe;
  cam.context.session.pathJobs.note(
      store, {.group = store.currentpathgroup,
              .kind = kind,
              .toolRadius = turns ? 0 : static_cast<double>(store.toolradius[store.selectedtool]),
              .distance = distance,
              .isUnbounded = walls.isUnbounded,
              .loops = jobLoops(walls),
              .tabs = intents.tabs,
              .overcuts = intents.overcuts});
}

}  // namespace tess
