// The path proof: the tool is swept along the rows as they stand, whatever made them, and it is
// told how deep it cuts into the part, how much it leaves of what it could reach, which rapid goes
// through material, and where it goes straight down into it.
// Owns: GougeFinding, MissedFinding, RapidFinding, PlungeFinding, JudgedJob, ProofLimits,
//       proofLimits, PathProof, ProofMotions, provePaths.
#pragma once

#include <functional>
#include <vector>

#include "core/cancellable_work.h"
#include "core/motion_stream.h"
#include "core/path_jobs.h"
#include "toolpath/engagement.h"
#include "toolpath/missed_area.h"
#include "toolpath/overcut_findings.h"
#include "toolpath/tab_findings.h"

namespace tess {

struct DrawingStore;

struct GougeFinding {
  double depth = 0;  // of the edge of the tool in the part
  int row = 0;       // from 1; 0: no row is in
  int group = 0;
  double x = 0, y = 0;  // of the tool's centre
};

// What a clearing job leaves.
struct MissedFinding {
  int group = 0;
  MissedArea atClearance;  // of what can be reached at the job's distance from the walls
  MissedArea atWall;       // of what its tool can reach at all
  double leftByTabs = 0;   // an area, no part of what is missed
};

struct RapidFinding {
  int row = 0;  // for which the move is made
  int group = 0;
  double x = 0, y = 0;
};

// A tool that goes straight down into material by more than entryStep.
struct PlungeFinding {
  int row = 0;  // for which it goes down
  int group = 0;
  double x = 0, y = 0;
  double depth = 0;  // of the material below it
};

struct JudgedJob {
  int group = 0;
  JobKind kind = JobKind::None;
  bool byRecord = false;  // else by its rows
  // The radius that it was placed with, and that which the tool has now; 0 where nobody knows.
  double placedRadius = 0, presentRadius = 0;
  Engagement engagement{};
};

// What may be in, and be left, before an operator should be asked.
struct ProofLimits {
  double depth = 0;  // in drawing units
  double share = 0;  // of what can be reached
};
ProofLimits proofLimits(const DrawingStore& store);

struct PathProof {
  GougeFinding gouge;  // the deepest
  std::vector<MissedFinding> missed;
  std::vector<RapidFinding> rapids;
  std::vector<TabFinding> tabs;          // left on purpose
  std::vector<OvercutFinding> overcuts;  // cut on purpose
  std::vector<PlungeFinding> plunges;
  bool forbidsPlunges = false;  // the setup asks for entries
  std::vector<JudgedJob> jobs;
  std::vector<int> unjudged;        // rows about which nothing can be said
  std::vector<LevelStrip> tooDeep;  // what is cut of the part beyond the limit
  ProofLimits limits;
  bool isCancelled = false;  // by the operator: nothing was judged

  double share() const;  // the largest that a job leaves at its clearance
  bool isBeyondLimits() const;
};

// Tell the reader all motions of the rows as a mill or a lathe makes them.
struct ProofMotions {
  std::function<void(MotionReader&)> mill, lathe;
};

PathProof provePaths(const DrawingStore& store, const PathJobs& jobs, const ProofMotions& motions,
                     const Breathing& breathing = {});

}  // namespace tess
