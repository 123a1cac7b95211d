// Mirroring.
#include "drafting/mirror.h"

#include "drafting/drafting_commands.h"
#include "drafting/frmMirror.h"
#include "drafting/row_images.h"

namespace tess {
namespace {

constexpr int kSensesOfArcs = kClockwiseArc + kCounterClockwiseArc;

}  // namespace

float mirrorCoord(float c, float m) {
  return narrow(m - (static_cast<double>(c) - m));
}

SegmentRow mirrored(const SegmentRow& row, const Mirroring& mirroring) {
  const Point about = mirroring.about;
  SegmentRow image = imageOf(row, [&](Point p) {
    return Point{mirroring.horizontally ? mirrorCoord(p.x, about.x) : p.x,
                 mirroring.vertically ? mirrorCoord(p.y, about.y) : p.y};
  });
  const bool turnsOver = mirroring.horizontally != mirroring.vertically;
  if (turnsOver && isArc(row.type)) image.type = kSensesOfArcs - row.type;
  return image;
}

void mnuEditMirror_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuEditMirror_Click()");
  frmMirror form(context);
  form.ask();
  const std::optional<Mirroring> mirroring = form.taken();
  if (!mirroring) return;
  const auto image = [&](const SegmentRow& row) { return mirrored(row, *mirroring); };
  form.addImages(image);
}

// ---- Descriptors

constexpr DraftingCommand kMirrorCommand{
    .info = {.tool = "miMirror", .caption = "Mirr&or...", .menu = {"miEdit", 530}},
    .run = mnuEditMirror_Click,
};

}  // namespace tess
