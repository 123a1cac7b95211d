// Turning.
#include "drafting/rotate.h"

#include <array>
#include <cmath>
#include <limits>

#include "drafting/drafting_commands.h"
#include "drafting/frmRotate.h"
#include "drafting/row_images.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

// Turns points. Rows that follow one another share ends, and arcs about one centre share that: a
// point is turned once while it is among the last that were.
class TurnedPoints {
 public:
  explicit TurnedPoints(const Turn& turn) : turn_(turn) {}

  Point operator()(Point p) const {
    for (const Turned& turned : last_) {
      if (turned.from.x == p.x && turned.from.y == p.y) return turned.to;
    }
    const Point to = rotatePoint(turn_.about, p, turn_.degrees);
    last_[next_] = {p, to};
    next_ = (next_ + 1) % last_.size();
    return to;
  }

 private:
  struct Turned {
    Point from{std::numeric_limits<float>::quiet_NaN(), 0}, to;  // at first equal to none
  };

  Turn turn_;
  mutable std::array<Turned, 4> last_;
  mutable std::size_t next_ = 0;
};

}  // namespace

// Fixed: angle and length are rounded first; drawings were turned so, and drift by it.
Point rotatePoint(Point center, Point p, float degrees) {
  const Polar polar = polarOf(center, p);
  const double angle = (static_cast<double>(polar.degrees) + degrees) * kPi / 180;
  return {narrow(center.x + polar.length * std::cos(angle)),
          narrow(center.y + polar.length * std::sin(angle))};
}

void turnRows(std::span<SegmentRow> rows, const Turn& turn) {
  TurnedPoints points(turn);
  for (SegmentRow& row : rows) makeImage(row, points);
}

void mnuEditRotate_Click(DraftingContext& context) {
  const Procedure here("frmMain.mnuEditRotate_Click()");
  frmRotate form(context);
  form.ask();
  const std::optional<Turn> turn = form.taken();
  if (!turn) return;
  form.addImages([&](std::span<SegmentRow> rows) { turnRows(rows, *turn); });
}

// ---- Descriptors

constexpr DraftingCommand kRotateCommand{
    .info = {.tool = "miRotate", .caption = "Rota&te...", .menu = {"miEdit", 540}},
    .run = mnuEditRotate_Click,
};

}  // namespace tess
