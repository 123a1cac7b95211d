// The status line of a long job on a terminal.
#include "shell/automation/progress.h"

#include <ostream>
#include <utility>

namespace tess {
namespace {

constexpr double kInterval = 500;                 // milliseconds
constexpr const char* kStartOfLine = "\r\x1b[K";  // to the left, and what stands there is wiped

}  // namespace

Progress::Progress(std::ostream& terminal, std::function<double()> now)
    : terminal_(terminal), now_(std::move(now)), lastTime_(now_()) {}

Progress::~Progress() {
  if (!shown_.empty()) terminal_ << kStartOfLine << std::flush;
}

void Progress::show(const std::string& text) {
  if (text.empty() || text == shown_) return;
  const double time = now_();
  if (time - lastTime_ < kInterval) return;
  lastTime_ = time;
  shown_ = text;
  terminal_ << kStartOfLine << text << std::flush;
}

}  // namespace tess
