// What the rows of each path group are judged by: what their placing noted, or else what their own
// run beside the outlines of the drawing tells.
// Owns: ProofGroup, proofGroups, closedOutlines, feedCurves, radiusOfRow, CycleCuts, groundCuts,
//       isTurned.
#pragma once

#include <vector>

#include "core/cancellable_work.h"
#include "core/path_jobs.h"
#include "toolpath/cleared_ground.h"
#include "toolpath/pocket_region.h"
#include "toolpath/row_depth.h"

namespace tess {

struct DrawingStore;

struct ProofGroup {
  int group = 0;
  JobKind kind = JobKind::None;
  bool byRecord = false;
  // The walls; none on the line, and none of a job that nothing is known about.
  PocketRegion region;
  bool isClosed = true;
  bool isInside = false;  // of a lathe, cut by a tool that works from the axis outward
  double toolRadius = 0;  // this and the distance as the job has them; 0 by the rows
  double distance = 0;
  // What its job says was meant; where the rows do otherwise that counts for nothing.
  std::vector<JobTab> tabs;
  std::vector<JobOvercut> overcuts;
  std::vector<int> rows;  // of the group, ascending

  bool hasWalls() const { return !region.isEmpty(); }
  FreeSpace freeSpace() const;
};

// All groups that have rows, by ascending numbers.
std::vector<ProofGroup> proofGroups(const DrawingStore& store, const PathJobs& jobs,
                                    const Breathing& breathing = {});

// The closed outlines among the ordinary rows of a drawing, each counter-clockwise. What is open,
// or branches, is passed over.
std::vector<RegionLoop> closedOutlines(const DrawingStore& store);

// The curves of a row that feeds below Z 0, or of any feed row of a lathe; else none.
std::vector<Curve> feedCurves(const DrawingStore& store, int ps, JobKind kind);
std::vector<Curve> feedCurves(const PathRow& row, JobKind kind);

// The radius with which a row is cut: that of its tool as the program names it; where the chest has
// none, that which the job had. A turning tool has none.
double radiusOfRow(const DrawingStore& store, int ps, const ProofGroup& group);

// What all rows of the groups take, by their numbers; machine cycles take nothing, or their holes.
enum class CycleCuts { Nothing, Holes };
std::vector<GroundCut> groundCuts(const DrawingStore& store, const std::vector<ProofGroup>& groups,
                                  CycleCuts cycles);

// Whether all of it is done on a lathe, and judged by its motions.
bool isTurned(const DrawingStore& store, const std::vector<ProofGroup>& groups);

}  // namespace tess
