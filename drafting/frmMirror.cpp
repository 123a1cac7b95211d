// Mirror.
#include "drafting/frmMirror.h"

namespace tess {

frmMirror::frmMirror(DraftingContext& context) : RowImagesForm(context, "frmMirror", "Mirror") {
  fraDirection.setCaption("Direction");
  optHorizontally.setCaption("&Horizontally");
  optVertically.setCaption("&Vertically");
  optBoth.setCaption("&Both");
  fraAction.setCaption("Action");
  wire({&txtMirrorX, &txtMirrorY, &lblMarkerXY, &optMove, &optCopy, &chkSelectedSegments, &cmdOK,
        &cmdCancel});
  optHorizontally.setValue(true);
  for (Option* const option : {&optHorizontally, &optVertically, &optBoth}) hoversWith(*option);
}

std::optional<Mirroring> frmMirror::mirroring() const {
  const std::optional<Point> about = point();
  if (!about) return std::nullopt;
  return Mirroring{*about, optHorizontally.value() || optBoth.value(),
                   optVertically.value() || optBoth.value()};
}

std::optional<RowImage> frmMirror::image() const {
  const std::optional<Mirroring> mirroring = this->mirroring();
  if (!mirroring) return std::nullopt;
  return [mirroring = *mirroring](std::span<SegmentRow> rows) { mirrorRows(rows, mirroring); };
}

bool frmMirror::takeOver() {
  taken_ = mirroring();
  if (!taken_) refusePoint("Mirror Point X, Y coordinates must be numeric.");
  return taken_.has_value();
}

}  // namespace tess
