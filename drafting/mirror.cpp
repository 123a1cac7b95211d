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

void mirrorRows(std::span<SegmentRow> rows, const Mirroring& mirroring) {
  const auto [about, horizontally, vertically] = mirroring;
  const bool turnsOver = horizontally != vertically;
  for (SegmentRow& row : rows) {
    makeImage(row, [&](Point p) {
      return Point{horizontally ? mirrorCoord(p.x, about.x) : p.x,
                   vertically ? mirrorCoord(p.y, about.y) : p.y};
    });
    if (turnsOver && isArc(row.type)) row.type = kSensesOfArcs - row.type;
  }
}

void mnuEditMirror_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuEditMirror_Click()");
  frmMirror form(context);
  form.ask();
  const std::optional<Mirroring> mirroring = form.taken();
  if (!mirroring) return;
  form.addImages([&](std::span<SegmentRow> rows) { mirrorRows(rows, *mirroring); });
}

// ---- Descriptors

constexpr DraftingCommand kMirrorCommand{
    .info = {.tool = "miMirror", .caption = "Mirr&or...", .menu = {"miEdit", 530}},
    .run = mnuEditMirror_Click,
};

}  // namespace tess
