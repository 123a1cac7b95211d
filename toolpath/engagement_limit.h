// The limit of the cutter's engagement as the setup has it, and what is told about it.
// Owns: isEngagementLimited, engagementLimitIsPossible, limitedStep, limitRules, limitTold,
//       tellExcess, tellTooManyLoops.
#pragma once

#include <string>

#include "toolpath/cam_context.h"
#include "toolpath/engagement.h"
#include "toolpath/limited_way.h"

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

// The share of the width above which a path that has been made for the limit is told.
double limitTold(const DrawingStore& store);

// The messages: where the limit is not kept, if anywhere, and that the table has no room.
void tellExcess(CamContext& cam, const std::string& command, const EngagementExcess& excess);
void tellTooManyLoops(CamContext& cam, const std::string& command);

}  // namespace tess
