// Jobs of path rows, and which of them the rows of a group belong to.
#include "core/path_jobs.h"

#include <algorithm>
#include <bit>
#include <map>
#include <unordered_set>
#include <utility>

#include "core/drawing_store.h"

namespace tess {
namespace {

constexpr std::size_t kMarks = 8;           // rows by which a job is known again
constexpr std::size_t kMaxJobsOfGroup = 8;  // of one number; the oldest gives way

using RowMarks = std::unordered_set<std::uint64_t>;

// The same for the row at any depth, in any group and at any feed.
std::uint64_t markOf(const DrawingStore& store, int ps) {
  std::uint64_t mark = static_cast<std::uint64_t>(store.pstype[ps]);
  for (const float value : {store.psx0[ps], store.psy0[ps], store.psx1[ps], store.psy1[ps],
                            store.psxc[ps], store.psyc[ps]}) {
    constexpr std::uint64_t kPrime = 0x9E3779B97F4A7C15;
    mark = (mark ^ std::bit_cast<std::uint32_t>(value)) * kPrime;
    mark ^= mark >> 29;
  }
  return mark;
}

std::map<int, std::vector<int>> rowsByGroup(const DrawingStore& store) {
  std::map<int, std::vector<int>> rows;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    rows[groupCutOff(store.pscode[ps])].push_back(ps);
  }
  return rows;
}

// Evenly from the whole group.
std::vector<std::uint64_t> someMarks(const DrawingStore& store, int group) {
  std::vector<std::uint64_t> marks;
  const auto groups = rowsByGroup(store);
  const auto found = groups.find(group);
  if (found == groups.end()) return marks;
  const std::vector<int>& rows = found->second;
  const std::size_t count = std::min(kMarks, rows.size());
  for (std::size_t k = 0; k < count; ++k) {
    marks.push_back(markOf(store, rows[k * rows.size() / count]));
  }
  return marks;
}

std::ptrdiff_t presentMarks(const PathJob& job, const RowMarks& present) {
  return std::count_if(job.rowMarks.begin(), job.rowMarks.end(),
                       [&](std::uint64_t mark) { return present.contains(mark); });
}

// Of the jobs of one group number, given in their order, which are not none.
const PathJob* bestOf(const DrawingStore& store, const std::vector<int>& rows,
                      const std::vector<const PathJob*>& jobs) {
  if (jobs.size() == 1) return jobs.front();
  RowMarks present;
  for (const int ps : rows) present.insert(markOf(store, ps));
  const PathJob* best = jobs.front();
  for (const PathJob* const job : jobs) {
    if (presentMarks(*job, present) >= presentMarks(*best, present)) best = job;
  }
  return best;
}

}  // namespace

void PathJobs::note(const DrawingStore& store, PathJob job) {
  const auto isOfGroup = [&](const PathJob& other) { return other.group == job.group; };
  const auto count = std::count_if(jobs_.begin(), jobs_.end(), isOfGroup);
  if (count >= static_cast<std::ptrdiff_t>(kMaxJobsOfGroup)) {
    jobs_.erase(std::find_if(jobs_.begin(), jobs_.end(), isOfGroup));
  }
  job.rowMarks = someMarks(store, job.group);
  add(std::move(job));
}

std::vector<const PathJob*> PathJobs::inForce(const DrawingStore& store) const {
  std::map<int, std::vector<const PathJob*>> jobs;
  for (const PathJob& job : jobs_) jobs[job.group].push_back(&job);
  std::vector<const PathJob*> found;
  if (jobs.empty()) return found;
  for (const auto& [group, rows] : rowsByGroup(store)) {
    const auto ofGroup = jobs.find(group);
    if (ofGroup != jobs.end()) found.push_back(bestOf(store, rows, ofGroup->second));
  }
  return found;
}

}  // namespace tess
