// The rows that Cut, Copy and Delete keep for Paste. The program keeps them to itself: other
// programs see nothing of them.
// Owns: PasteBuffer, offerPaste, fillPasteBuffer.
#pragma once

#include <vector>

#include "drafting/change_log.h"

namespace tess {

struct DraftingContext;

struct PasteBuffer {
  std::vector<clsSegment> pastebuffer;   // in the order of the table
  bool pasteavailable = false;           // miPaste is enabled
  float pastebasex = 0, pastebasey = 0;  // the marker when they were kept
};

// The marker becomes the base of what is in the buffer, and miPaste is enabled.
void offerPaste(DraftingContext& context);

// The same with these rows in the place of what was there before.
void fillPasteBuffer(DraftingContext& context, std::vector<clsSegment> rows);

}  // namespace tess
