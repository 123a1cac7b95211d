// Rough pocketing by the true rules: the tool goes only where no wall is nearer than it may be, and
// everywhere there.
// Owns: verifiedOutlines, stepOverDistance, outlineIsSound, tellRadius, tellWhatFailed,
//       tellNothingLeft, roughTruePocket, ringTruePocket, roughTrueRest.
#pragma once

#include <string>
#include <vector>

#include "toolpath/cam_context.h"
#include "toolpath/pocket_region.h"

namespace tess {

// All verified rows, ascending.
std::vector<Entity> verifiedOutlines(const DrawingStore& store);

// What the parameters say, by percent or distance; for a mill never above the tool's diameter.
double stepOverDistance(const DrawingStore& store, bool turning);

// False after a message titled `command` that names the place of what is wrong.
bool outlineIsSound(CamContext& cam, const std::string& command, const OutlineRegion& outline);

// What a tool without a radius, and rows that could not be placed, are told by.
void tellRadius(CamContext& cam, const std::string& command, float radius);
void tellWhatFailed(CamContext& cam, const std::string& command, bool failed);

// What is told when rows of before have taken all that the tool in use can reach.
void tellNothingLeft(CamContext& cam, const std::string& command, bool isLarger);

// Clears all verified outlines by lines, or by the lathe's lines. One step of the log; a failure or
// a message leaves no row.
void roughTruePocket(CamContext& cam);

// The same by rings, those of the room next to `click` first.
void ringTruePocket(CamContext& cam, Point click);

// Clears, in the style that is set, only what rows of before have left; messages are titled
// `command`. Not for the style of a lathe.
void roughTrueRest(CamContext& cam, const char* command);

}  // namespace tess
