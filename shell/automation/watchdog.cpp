// The thread that waits, and the end of the process.
#include "shell/automation/watchdog.h"

#include <array>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tess {
namespace {

// For a script that can end in order: longer than any step of it takes to notice.
constexpr double kGraceSeconds = 0.5;
// For output that nobody takes.
constexpr unsigned kLastSeconds = 2;
constexpr int kFailed = 1;

}  // namespace

Watchdog::Watchdog(double seconds, std::function<void()> onHang)
    : seconds_(seconds), onHang_(std::move(onHang)) {}

void Watchdog::start() {
  if (seconds_ <= 0) return;
  try {
    thread_ = std::thread([this] { watch(); });
  } catch (const std::system_error&) {
    throw std::runtime_error(kNoThread);
  }
}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  wakeUp_.notify_one();
  if (thread_.joinable()) thread_.join();
}

std::string Watchdog::complaint() const {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), seconds_).ptr;
  return "the script has run longer than " + std::string(digits.data(), end) + " s";
}

void Watchdog::watch() {
  if (!pass(seconds_)) return;
  over_ = true;
  if (pass(kGraceSeconds)) onHang_();
}

bool Watchdog::pass(double seconds) {
  std::unique_lock lock(mutex_);
  return !wakeUp_.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return ended_; });
}

void exitAtOnce(const std::string& line) {
  std::signal(SIGALRM, [](int) { ::_exit(kFailed); });
  ::alarm(kLastSeconds);
  const std::string text = line + "\n";
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
  std::fflush(stdout);
  ::_exit(kFailed);
}

}  // namespace tess
