// Corner Overcut.
#include "toolpath/frmCornerOvercut.h"

#include <algorithm>
#include <utility>

#include "core/drawing_store.h"
#include "core/pocketing_choices.h"
#include "drafting/form_preview.h"
#include "geometry/entity.h"

namespace tess {
namespace {

constexpr int kAll = choiceNumber(CornerOvercut::AllCorners);
constexpr int kPicked = choiceNumber(CornerOvercut::PickedCorners);
constexpr int kOutlineWidth = 2;

// The cutter at the bottom of a drop.
void appendCutter(const CornerDrop& drop, double share, std::vector<SegmentRow>& rows) {
  const double radius = share * normOf(drop.bottom - drop.corner);
  const PlanePoint center = drop.corner + share * (drop.bottom - drop.corner);
  const auto at = [&](double aside) { return Point{narrow(center.x + aside), narrow(center.y)}; };
  rows.push_back(segmentRowOf({kCounterClockwiseArc, at(radius), at(radius), at(0)}));
}

}  // namespace

frmCornerOvercut::frmCornerOvercut(CamContext& cam, InsideCorners corners)
    : Form("frmCornerOvercut", "Corner Overcut"),
      cam_(cam),
      corners_(std::move(corners)),
      isPicked_(corners_.drops.size(), false) {
  optCorners[kAll].setCaption("&All Inside Corners");
  optCorners[kPicked].setCaption("&Picked Corners");
  cmdOK.setCaption("&OK");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdOK);
  setCancelButton(cmdCancel);
  leavesDrawingInReach = true;
  onLoad = [this] { fill(); };
  onClose = [this] { leave(); };
  onAccept = [this] {
    const int chosen = optCorners[kAll].value() ? kAll : kPicked;
    cam_.store.cfg_corner_overcut = static_cast<std::int16_t>(chosen);
  };
  optCorners.onClick = [this](int which) { pickAll(which == kAll); };
  cmdOK.onClick = [this] { confirm(); };
  cmdCancel.onClick = [this] { close(); };
}

frmCornerOvercut::~frmCornerOvercut() {
  leave();
}

void frmCornerOvercut::leave() {
  cam_.context.onFormClick = nullptr;
  endPreview(cam_.context);
}

void frmCornerOvercut::fill() {
  cam_.context.onFormClick = [this](Point at) { toggle(at); };
  const bool picks = cornerOvercut(cam_.store) == CornerOvercut::PickedCorners;
  optCorners[picks ? kPicked : kAll].setValue(true);
  pickAll(!picks);
}

void frmCornerOvercut::pickAll(bool picks) {
  isPicked_.assign(corners_.drops.size(), picks);
  show();
}

// Of all corners one is left out, too.
void frmCornerOvercut::toggle(Point at) {
  const PlanePoint place{at.x, at.y};
  const auto& drops = corners_.drops;
  const auto nearest =
      std::min_element(drops.begin(), drops.end(), [place](const auto& a, const auto& b) {
        return normOf(a.corner - place) < normOf(b.corner - place);
      });
  std::vector<bool> picked = isPicked_;
  const auto corner = static_cast<std::size_t>(nearest - drops.begin());
  picked[corner] = !picked[corner];
  optCorners[kPicked].setValue(true);
  isPicked_ = std::move(picked);
  show();
}

// Round each corner that is picked the cutter, round each other a small circle.
void frmCornerOvercut::show() {
  constexpr double kUnpicked = 0.25;
  const auto count = std::count(isPicked_.begin(), isPicked_.end(), true);
  std::string text = std::to_string(count) + " of " + std::to_string(isPicked_.size()) +
                     " corners. Click one in the drawing to pick it, or to leave it out.";
  if (corners_.blocked > 0) {
    text += "\nIn " + std::to_string(corners_.blocked) +
            " more the cutter would cut another wall, or cannot touch both walls.";
  }
  lblCorners.setCaption(std::move(text));
  std::vector<SegmentRow> rows;
  for (std::size_t k = 0; k < isPicked_.size(); ++k) {
    appendCutter(corners_.drops[k], isPicked_[k] ? 1 : kUnpicked, rows);
  }
  previewRows(cam_.context, std::move(rows), kOutlineWidth);
}

void frmCornerOvercut::confirm() {
  Prompts& prompts = cam_.context.session.host.prompts;
  if (picked().empty()) {
    prompts.showMessage({.text = "No corner is picked. Click one in the drawing, or choose All "
                                 "Inside Corners.",
                         .title = caption(),
                         .icon = MessageIcon::Warning});
    return;
  }
  if (optCorners[kAll].value()) tellBlockedCorners(prompts, caption(), corners_);
  accept();
}

std::vector<CornerDrop> frmCornerOvercut::picked() const {
  std::vector<CornerDrop> drops;
  for (std::size_t k = 0; k < isPicked_.size(); ++k) {
    if (isPicked_[k]) drops.push_back(corners_.drops[k]);
  }
  return drops;
}

void tellBlockedCorners(Prompts& prompts, const std::string& title, const InsideCorners& corners) {
  if (corners.blocked == 0) return;
  const std::size_t drops = corners.drops.size();
  const std::string all = std::to_string(drops + static_cast<std::size_t>(corners.blocked));
  const std::string some = drops == 0 ? "None" : "Only " + std::to_string(drops);
  prompts.showMessage({.text = some + " of " + all +
                               " inside corners can be cut over. In the others the cutter would "
                               "cut another wall, or cannot touch both walls.",
                       .title = title,
                       .icon = MessageIcon::Warning});
}

}  // namespace tess
