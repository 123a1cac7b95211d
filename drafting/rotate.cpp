// Turning.
#include "drafting/rotate.h"

#include <cmath>

#include "drafting/drafting_commands.h"
#include "drafting/frmRotate.h"
#include "drafting/row_images.h"
#include "geometry/float_angles.h"

namespace tess {

// Fixed: angle and length are rounded first; drawings were turned so, and drift by it.
Point rotatePoint(Point center, Point p, float degrees) {
  const Polar polar = polarOf(center, p);
  const double angle = (static_cast<double>(polar.degrees) + degrees) * kPi / 180;
  return {narrow(center.x + polar.length * std::cos(angle)),
          narrow(center.y + polar.length * std::sin(angle))};
}

SegmentRow rotated(const SegmentRow& row, const Turn& turn) {
  return imageOf(row, [&](Point p) { return rotatePoint(turn.about, p, turn.degrees); });
}

void mnuEditRotate_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuEditRotate_Click()");
  frmRotate form(context);
  form.ask();
  const std::optional<Turn> turn = form.taken();
  if (!turn) return;
  const auto image = [&](const SegmentRow& row) { return rotated(row, *turn); };
  form.addImages(image);
}

// ---- Descriptors

constexpr DraftingCommand kRotateCommand{
    .info = {.tool = "miRotate", .caption = "Rota&te...", .menu = {"miEdit", 540}},
    .run = mnuEditRotate_Click,
};

}  // namespace tess
