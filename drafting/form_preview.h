// Rows that hover over the drawing while a form asks where they are to go. They are drawn in the
// inverting pen, so that drawing them again removes them.
// Owns: FormPreview, kMaxHovering, traceHovering, previewRows, showPreview, endPreview.
#pragma once

#include <vector>

#include "core/drawing_rows.h"

namespace tess {

struct DraftingContext;

struct FormPreview {
  std::vector<SegmentRow> rows;
  int width = 1;       // of the pen, in pixels
  bool shown = false;  // on the screen: a redraw wipes them, and shows them again at its end
};

// Of more rows than these the box of their ends hovers, so that it keeps up with the hand.
inline constexpr int kMaxHovering = 5000;

// Paints rows as they hover, in the pen that is set.
void traceHovering(DraftingContext& context, const std::vector<SegmentRow>& rows);

// These rows hover in the place of those that did before, in a pen of so many pixels.
void previewRows(DraftingContext& context, std::vector<SegmentRow> rows, int width = 1);
// Shows them, unless the picture under them is not complete.
void showPreview(DraftingContext& context);
void endPreview(DraftingContext& context);

}  // namespace tess
