// The tool in use in words, for the status bar and for forms that cut with it.
// Owns: isFreeTool, diameterShown, toolInUseText.
#pragma once

#include <string>

namespace tess {

struct DrawingStore;
struct Session;

// Whether the chest has nothing at this index, from 0: a place without a name.
bool isFreeTool(const DrawingStore& store, int tool);

// The diameter of the tool at this index, from 0, in drawing units; 0 where it cannot be told.
float diameterShown(const DrawingStore& store, int tool);

// Number from 1, name and diameter of the tool in use, in one line; "No tool" without one.
std::string toolInUseText(const Session& session);

}  // namespace tess
