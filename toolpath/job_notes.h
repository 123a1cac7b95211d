// What placing commands note about the rows that they have placed, for the path proof.
// Owns: JobWalls, JobIntents, noteJob, jobLoops.
#pragma once

#include <vector>

#include "core/path_jobs.h"
#include "geometry/curve.h"
#include "toolpath/cam_context.h"

namespace tess {

// Loops with free space on their left, or the one chain of an open outline.
struct JobWalls {
  std::vector<std::vector<Curve>> loops = {};
  bool isClosed = true;
  bool isUnbounded = false;  // beyond all loops is free space too
};

// What the operator meant by rows that would else be a fault or leave a rest.
struct JobIntents {
  std::vector<JobTab> tabs = {};
  std::vector<JobOvercut> overcuts = {};
};

// Notes the job of the current path group, cut by the tool in use. To be called when its rows are
// in the table; a group without rows has no job, and neither has one whose walls are not known.
// `distance` is that of the rows from the walls.
void noteJob(CamContext& cam, JobKind kind, double distance, const JobWalls& walls = {},
             const JobIntents& intents = {});

std::vector<JobLoop> jobLoops(const JobWalls& walls);

}  // namespace tess
