// The limit of the engagement: its setting, and messages.
#include "toolpath/engagement_limit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "toolpath/path_placement.h"

namespace tess {
namespace {

constexpr float kSmallestLimit = 10;  // percent
constexpr float kWholeWidth = 100;
// Of the limit: round rings engage more of the cutter than straight ones at the same step.
constexpr double kStepShare = 0.7;
constexpr double kMostRows = std::numeric_limits<std::int16_t>::max();
constexpr int kDecimals = 5;
constexpr double kHairOfShare = 1e-6;  // 40 % is 0.4 in 32 bits

void tell(CamContext& cam, const std::string& command, const std::string& text) {
  cam.context.session.host.prompts.showMessage(
      {.text = text, .title = command, .icon = MessageIcon::Warning});
}

// Scripts can set what no form takes.
std::string limitText(const DrawingStore& store) {
  const float limit = store.cfg_engagement_limit;
  return std::isnan(limit) ? "not a number" : plainText(limit) + " %";
}

double limitShare(const DrawingStore& store) {
  return static_cast<double>(store.cfg_engagement_limit) / kWholeWidth;
}

}  // namespace

bool isEngagementLimited(const DrawingStore& store) {
  const float limit = store.cfg_engagement_limit;
  return store.cfg_true_paths && limit != 0 && limit != kWholeWidth;
}

bool engagementLimitIsPossible(CamContext& cam, const std::string& command) {
  const float limit = cam.store.cfg_engagement_limit;
  if (!isEngagementLimited(cam.store)) return true;
  if (limit >= kSmallestLimit && limit <= kWholeWidth) return true;
  tell(cam, command,
       "The Engagement Limit is " + limitText(cam.store) +
           ".  It must be from 10 to 100 %, or 0 for none.\n\nNothing was placed.  It is set in "
           "Pocketing & Profiling Parameters.");
  return false;
}

double limitedStep(const DrawingStore& store, double step) {
  if (!isEngagementLimited(store)) return step;
  const double width = 2.0 * store.toolradius[store.selectedtool];
  const double share = std::max(limitShare(store), double{kSmallestLimit / kWholeWidth});
  return std::min(step, kStepShare * share * width);
}

LimitRules limitRules(const DrawingStore& store, std::size_t levels, bool reversed) {
  const double room = kMostRows - store.NumPathSegments;
  return {.radius = static_cast<double>(store.toolradius[store.selectedtool]),
          .share = limitShare(store),
          .turn = reversed ? -1 : 1,
          .mostCurves = static_cast<std::size_t>(room) / std::max<std::size_t>(levels, 1)};
}

double limitTold(const DrawingStore& store) {
  return limitShare(store) + kHairOfShare;
}

void tellExcess(CamContext& cam, const std::string& command, const EngagementExcess& excess) {
  if (excess.places == 0) return;
  const std::string percent = formatNumber(static_cast<float>(100 * excess.most.share), "0");
  const std::string place = "X = " + plainText(roundTo(narrow(excess.most.x), kDecimals)) +
                            ", Y = " + plainText(roundTo(narrow(excess.most.y), kDecimals));
  const std::string more =
      excess.places == 1 ? "" : ", the most of " + std::to_string(excess.places) + " places";
  tell(cam, command,
       "The Engagement Limit of " + limitText(cam.store) + " cannot be kept everywhere:  " +
           percent + " % of the cutter's width is in material at " + place + more + ".");
}

void tellTooManyLoops(CamContext& cam, const std::string& command) {
  tell(cam, command,
       "The path has too many rows with an Engagement Limit of " + limitText(cam.store) +
           ".\n\nNothing was placed.  A larger limit, or fewer levels, needs fewer.");
}

}  // namespace tess
