// The cutter's way through the path, by slider, by buttons and by time.
#include "shell/backplot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "cnc/post_definition.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/runtime_failure.h"
#include "core/session.h"

namespace tess {
namespace {

constexpr int kTick = 40;  // milliseconds
constexpr std::array kSpeeds = {1, 10, 100};
constexpr char kPlaceFigure[] = "####0.0###";

// Rows that no program can be made of have no motions; making the program tells why.
ToolWalk walkOrNothing(const DrawingStore& store, const MotionRules& rules) {
  try {
    return toolWalk(store, rules);
  } catch (const RuntimeFailure&) {
    takeCallChain();
    return {};
  }
}

std::string twoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

// "4:07.5", or "1:02:07.5" from an hour on.
std::string timeText(double seconds) {
  const auto tenths = static_cast<long long>(std::floor(std::min(seconds, 3.6e9) * 10));
  const long long minutes = tenths / 600;
  const std::string rest =
      twoDigits(static_cast<int>(tenths / 10 % 60)) + "." + std::to_string(tenths % 10);
  if (minutes < 60) return std::to_string(minutes) + ":" + rest;
  return std::to_string(minutes / 60) + ":" + twoDigits(static_cast<int>(minutes % 60)) + ":" +
         rest;
}

std::string speedText(std::size_t speed) {
  return "&Speed: " + std::to_string(kSpeeds[speed]) + " x";
}

}  // namespace

Backplot::Backplot(const Session& session, const PostDefinition& definition, Changes& changes,
                   Timers& timers, frmBackplot& panel)
    : session_(session),
      definition_(definition),
      panel_(panel),
      subscription_(changes.listen(*this)),
      tmrBackplot_(timers.create({"tmrBackplot", kTick}, [this] { tick(); })) {
  panel_.sldTime.onChange = [this] {
    if (!following_) goTo(panel_.sldTime.value() / frmBackplot::kSteps * walk_.seconds());
  };
  panel_.cmdPlay.onClick = [this] { play(!tmrBackplot_->enabled()); };
  panel_.cmdPrevious.onClick = [this] { step(-1); };
  panel_.cmdNext.onClick = [this] { step(1); };
  panel_.cmdSpeed.onClick = [this] { nextSpeed(); };
  panel_.cmdRow.onClick = [this] {
    goToRow(static_cast<int>(std::clamp(Val(panel_.txtRow.text()), 1.0, 32767.0)));
  };
  panel_.cmdSpeed.setCaption(speedText(speed_));
}

void Backplot::changed(const KeptChange& change) {
  if (!change.paths.empty()) markStale();
}

void Backplot::settle() {
  if (!panel_.isLoaded()) {
    if (tmrBackplot_->enabled()) play(false);
    return tell({});
  }
  if (stale_) renew();
  show();
}

void Backplot::renew() {
  stale_ = false;
  walk_ = walkOrNothing(session_.store, motionRules(definition_.dialect));
  seconds_ = std::clamp(seconds_, 0.0, walk_.seconds());
  if (walk_.steps.empty()) play(false);
}

void Backplot::goTo(double seconds) {
  seconds_ = std::clamp(seconds, 0.0, walk_.seconds());
  show();
}

void Backplot::goToRow(int row) {
  goTo(walk_.beginOf(row));
}

// The row before begins where it begins; in the middle of a row that is its own beginning.
void Backplot::step(int rows) {
  if (walk_.steps.empty()) return;
  const int row = walk_.steps[walk_.stepAt(seconds_)].row;
  const bool inside = rows < 0 && seconds_ > walk_.beginOf(row);
  const int next = inside ? row : row + rows;
  if (next > walk_.steps.back().row) return goTo(walk_.seconds());
  goToRow(std::max(next, 1));
}

void Backplot::play(bool on) {
  const bool plays = on && !walk_.steps.empty();
  if (plays && seconds_ >= walk_.seconds()) seconds_ = 0;
  tmrBackplot_->setEnabled(plays);
  panel_.cmdPlay.setCaption(plays ? "&Pause" : "&Play");
}

void Backplot::tick() {
  goTo(seconds_ + kTick / 1000.0 * kSpeeds[speed_]);
  if (seconds_ >= walk_.seconds()) play(false);
}

void Backplot::nextSpeed() {
  speed_ = (speed_ + 1) % kSpeeds.size();
  panel_.cmdSpeed.setCaption(speedText(speed_));
}

void Backplot::show() {
  const bool empty = walk_.steps.empty();
  const double whole = walk_.seconds();
  following_ = true;
  panel_.sldTime.setValue(empty ? 0 : std::floor(seconds_ / whole * frmBackplot::kSteps + 0.5));
  following_ = false;
  panel_.lblTime.setCaption(timeText(seconds_) + " of " + timeText(whole));
  if (empty) {
    panel_.lblPlace.setCaption("No path");
    return tell({});
  }
  const ToolStep& step = walk_.steps[walk_.stepAt(seconds_)];
  const ToolPlace at = walk_.placeAt(seconds_);
  const std::string depth = walk_.hasHeights ? "   Z " + formatNumber(at.z, kPlaceFigure) : "";
  panel_.lblPlace.setCaption("Row " + std::to_string(step.row) + " of " +
                             std::to_string(session_.store.NumPathSegments) + depth +
                             (step.isRapid ? "   rapid" : ""));
  tell(CutterPlace{{at.x, at.y}, session_.store.toolradius[step.tool], step.isRapid});
}

void Backplot::tell(const std::optional<CutterPlace>& place) {
  if (std::exchange(shown_, place) != place && onCutter) onCutter(place);
}

}  // namespace tess
