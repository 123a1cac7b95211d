// The rows that Cut, Copy and Delete keep for Paste.
#include "drafting/paste_buffer.h"

#include <utility>

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/drafting_context.h"

namespace tess {

void offerPaste(DraftingContext& context) {
  context.paste.pastebasex = context.store.markerx;
  context.paste.pastebasey = context.store.markery;
  context.paste.pasteavailable = true;
  context.tools.setEnabled(kPasteCommand.info.tool, true);
}

void fillPasteBuffer(DraftingContext& context, std::vector<clsSegment> rows) {
  context.paste.pastebuffer = std::move(rows);
  offerPaste(context);
}

}  // namespace tess
