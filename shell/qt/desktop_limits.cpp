// The limits and the scale of a process against what a window takes.
#include "shell/qt/desktop_limits.h"

#include <QtGlobal>
#include <sys/resource.h>

namespace tess {

namespace {

constexpr std::uint64_t kMegabyte = 1000000;
// Starting, drawing and saving were seen to work with these, and not with a quarter less.
constexpr std::uint64_t kOpenFiles = 20;
constexpr std::uint64_t kMemory = 200 * kMegabyte;

constexpr char kScale[] = "QT_SCALE_FACTOR";
// At less than 1 only parts of the windows are painted; far above it, they ask for gigabytes.
constexpr double kSmallestScale = 1;
constexpr double kLargestScale = 8;

std::uint64_t limitOf(__rlimit_resource resource) {
  rlimit limit{};
  const bool known = ::getrlimit(resource, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY;
  return known ? limit.rlim_cur : UINT64_MAX;
}

std::string tooLittle(std::uint64_t least, std::uint64_t limit, const std::string& unit) {
  return "the window needs " + std::to_string(least) + unit + ", and the limit is " +
         std::to_string(limit);
}

}  // namespace

ProcessLimits processLimits() {
  return {.openFiles = limitOf(RLIMIT_NOFILE), .memory = limitOf(RLIMIT_AS)};
}

std::string troubleWith(const ProcessLimits& limits) {
  if (limits.openFiles < kOpenFiles) {
    return tooLittle(kOpenFiles, limits.openFiles, " open files (ulimit -n)");
  }
  if (limits.memory < kMemory) {
    return tooLittle(kMemory / kMegabyte, limits.memory / kMegabyte,
                     " MB of address space (ulimit -v)");
  }
  return {};
}

void keepUsableScale() {
  bool isNumber = false;
  const double scale = qgetenv(kScale).toDouble(&isNumber);
  const bool usable = scale >= kSmallestScale && scale <= kLargestScale;
  if (isNumber && !usable) qunsetenv(kScale);
}

}  // namespace tess
