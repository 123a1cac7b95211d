// The rows that Cut, Copy and Delete keep for Paste.
#include "drafting/paste_buffer.h"

#include <utility>

#include "core/drawing_store.h"
#include "drafting/desk.h"
#include "drafting/drafting_commands.h"

namespace tess {

void offerPaste(Desk& desk) {
  desk.paste.pastebasex = desk.store.markerx;
  desk.paste.pastebasey = desk.store.markery;
  desk.paste.pasteavailable = true;
  desk.tools.setEnabled(kPasteCommand.info.tool, true);
}

void fillPasteBuffer(Desk& desk, std::vector<clsSegment> rows) {
  desk.paste.pastebuffer = std::move(rows);
  offerPaste(desk);
}

}  // namespace tess
