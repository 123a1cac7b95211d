// What path rows were placed for: with which tool, beside which walls. Placing commands note it for
// their group of rows, and the path proof judges the rows by it, whatever has become of them since.
// It is no part of the tables: undo and redo pass it over.
// Owns: JobKind, JobWall, JobLoop, JobTab, JobOvercut, PathJob, PathJobs.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace tess {

struct DrawingStore;

enum class JobKind {
  Clearing,   // all that the tool can reach is to be cut
  Contour,    // along walls, at a distance of the tool's radius or more
  OnTheLine,  // on the profile itself: there are no walls
  Lathe,      // a turning tool, which has no radius
  None,       // nothing can be said about the rows
};

// A line, or an arc of half a turn at most about a centre, in 64 bits.
struct JobWall {
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
  double xc = 0, yc = 0;  // of an arc only
  int turn = 0;           // 0 a line, 1 an arc counter-clockwise, -1 one clockwise
  friend bool operator==(const JobWall&, const JobWall&) = default;
};

// Walls in a row, with free space on their left.
struct JobLoop {
  std::vector<JobWall> walls;
  bool isClosed = true;
  friend bool operator==(const JobLoop&, const JobLoop&) = default;
};

// A bridge that is left on purpose: the rows between two places of the path stay above `top`.
struct JobTab {
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;  // the ends of the way that is lifted, for the centre
  double top = 0;                         // its Z
  friend bool operator==(const JobTab&, const JobTab&) = default;
};

// A corner of the walls into which the path drops on purpose.
struct JobOvercut {
  double x = 0, y = 0;
  friend bool operator==(const JobOvercut&, const JobOvercut&) = default;
};

struct PathJob {
  int group = 0;
  JobKind kind = JobKind::None;
  double toolRadius = 0;     // this and the distance in drawing units
  double distance = 0;       // of the rows from the walls: the radius and what is left for later
  bool isUnbounded = false;  // beyond all loops is free space too
  std::vector<JobLoop> loops = {};
  // What the operator meant: neither is taken at its word, rows count only where they do just that.
  std::vector<JobTab> tabs = {};
  std::vector<JobOvercut> overcuts = {};
  // Some of the rows as they were placed, by which the job is known again among several of one
  // group number; none of a job that was read from a file.
  std::vector<std::uint64_t> rowMarks = {};
  friend bool operator==(const PathJob&, const PathJob&) = default;
};

class PathJobs {
 public:
  // The job of the rows that its group has now. Earlier jobs of that number stay, since their rows
  // may come back.
  void note(const DrawingStore& store, PathJob job);
  void add(PathJob job) {
    ++notes_;
    jobs_.push_back(std::move(job));
  }
  void clear() {
    ++notes_;
    jobs_.clear();
  }
  // Grows with every job that comes and whenever they are cleared.
  int notes() const { return notes_; }

  // Of each group that has rows and a job, that job, by ascending groups. A number that several
  // jobs had is that of the job most of whose rows are there, of equals the last.
  std::vector<const PathJob*> inForce(const DrawingStore& store) const;

 private:
  std::vector<PathJob> jobs_;  // in the order in which they came
  int notes_ = 0;
};

}  // namespace tess
