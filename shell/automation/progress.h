// The status line of a long job, on the terminal that watches it.
// Owns: Progress.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace tess {

// Writes to one line of the terminal, again and again, and leaves it empty. `now` is the time in
// milliseconds. Nothing is written in the first half second, nor sooner than that after the line
// before: a short job says nothing.
class Progress {
 public:
  Progress(std::ostream& terminal, std::function<double()> now);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void show(const std::string& text);

 private:
  std::ostream& terminal_;
  std::function<double()> now_;
  double lastTime_;
  std::string shown_;
};

}  // namespace tess
