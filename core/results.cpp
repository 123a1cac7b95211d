// What commands came to.
#include "core/results.h"

#include <utility>

#include "core/date_text.h"

namespace tess {

void Results::tell(std::string text) {
  told_.push_back({clock_.now(), std::move(text)});
  ++count_;
  if (told_.size() > kMostResults) told_.pop_front();
  if (onTold) onTold();
}

std::string Results::log() const {
  std::string lines;
  for (const Result& result : told_) lines += timeText(result.at) + "  " + result.text + "\n";
  return lines;
}

}  // namespace tess
