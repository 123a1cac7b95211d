// The limit of the cutter's engagement as the setup has it, and what is told about it.
// Owns: isEngagementLimited, engagementLimitIsPossible, limitedStep, limitRules, EngagementExcess,
//       excessOf, tellExcess, tellTooManyLoops.
#pragma once

#include <string>

#include "toolpath/cam_context.h"
#include "toolpath/limited_way.h"
#include "toolpath/path_levels.h"

namespace tess {

// True paths with a limit below the whole width.
bool isEngagementLimited(const DrawingStore& store);

// False, after a message titled `command`, when the setup's limit is no possible one.
bool engagementLimitIsPossible(CamContext& cam, const std::string& command);

// The step between rings at which straight rings keep the limit, and round ones that are not small:
// never above `step`.
double limitedStep(const DrawingStore& store, double step);

// For a path of so many levels in the rest of the table, by the selected tool.
LimitRules limitRules(const DrawingStore& store, std::size_t levels, bool reversed);

// Where a limit is not kept.
struct EngagementExcess {
  double share = 0;  // of the width, the largest; 0: nowhere
  PlanePoint at{};   // of the tool's centre
  int places = 0;    // stretches of the path
};

// Of a level as it is going to be placed, with its ways in, by the same measure as the path proof;
// what ways in leave of their floor within `step` does not count.
EngagementExcess excessOf(const LevelRows& level, double step, const EngagementLimiter& limiter,
                          const Breathing& breathing);

// The messages: where the limit is not kept, if anywhere, and that the table has no room.
void tellExcess(CamContext& cam, const std::string& command, const EngagementExcess& excess);
void tellTooManyLoops(CamContext& cam, const std::string& command);

}  // namespace tess
