// Rotate.
#include "drafting/frmRotate.h"

#include "core/number_text.h"
#include "drafting/drafting_context.h"
#include "drafting/number_fields.h"

namespace tess {
namespace {

constexpr float kFirstDegrees = 45;
constexpr float kMaxDegrees = 360;

}  // namespace

frmRotate::frmRotate(DraftingContext& context) : RowImagesForm(context, "frmRotate", "Rotate") {
  fraDirection.setCaption("Direction");
  optClockwise.setCaption("C&lockwise");
  optCounterClockwise.setCaption("Counter-clock&wise");
  fraAction.setCaption("Action");
  wire({&txtRotateX, &txtRotateY, &lblMarkerXY, &optMove, &optCopy, &chkSelectedSegments, &cmdOK,
        &cmdCancel});
  const float kept = context.command.rotateDegrees;
  txtDegrees.setText(plainText(kept > 0 ? kept : kFirstDegrees));
  optCounterClockwise.setValue(true);
  hoversWith(txtDegrees);
  for (Option* const option : {&optClockwise, &optCounterClockwise}) hoversWith(*option);
}

std::optional<float> frmRotate::degrees() const {
  const std::optional<float> degrees = numberIn(txtDegrees);
  return degrees && *degrees >= 0 && *degrees <= kMaxDegrees ? degrees : std::nullopt;
}

std::optional<Turn> frmRotate::turn() const {
  const std::optional<float> degrees = this->degrees();
  const std::optional<Point> about = point();
  if (!degrees || !about) return std::nullopt;
  return Turn{*about, optClockwise.value() ? -*degrees : *degrees};
}

std::optional<RowImage> frmRotate::image() const {
  const std::optional<Turn> turn = this->turn();
  if (!turn) return std::nullopt;
  return [turn = *turn](std::span<SegmentRow> rows) { turnRows(rows, turn); };
}

bool frmRotate::takeOver() {
  Prompts& prompts = context_.session.host.prompts;
  taken_ = turn();
  if (taken_) {
    context_.command.rotateDegrees = *degrees();
  } else if (!numberIn(txtDegrees)) {
    refuseField(prompts, txtDegrees, "Degrees must be numeric.");
  } else if (!degrees()) {
    refuseField(prompts, txtDegrees, "Degrees must be between 0 and 360.");
  } else {
    refusePoint("Rotation Point X, Y coordinates must be numeric.");
  }
  return taken_.has_value();
}

}  // namespace tess
