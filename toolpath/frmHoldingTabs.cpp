// Holding Tabs.
#include "toolpath/frmHoldingTabs.h"

#include <cmath>
#include <utility>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "display/view_transform.h"
#include "drafting/form_preview.h"
#include "drafting/number_fields.h"
#include "geometry/entity.h"

namespace tess {
namespace {

constexpr int kByNumber = 1;
constexpr int kBySpacing = 2;
constexpr int kOutlineWidth = 2;
// What a fresh setup is offered.
constexpr int kNumber = 4;
constexpr double kWidthInch = 0.25, kHeightInch = 0.06;
constexpr double kWidthMm = 6, kHeightMm = 1.5;

float valueOf(const TextBox& box) {
  return numberIn(box).value_or(0);
}

Point pointOf(PlanePoint at) {
  return {narrow(at.x), narrow(at.y)};
}

// What stays of a tab: between the edges of the cutter at either end.
void appendShape(const TabPlan::Bridge& bridge, double radius, std::vector<SegmentRow>& rows) {
  const PlanePoint along = bridge.to - bridge.from;
  const PlanePoint side = (radius / normOf(along)) * leftOf(along);
  const auto line = [&](PlanePoint from, PlanePoint to) {
    rows.push_back(segmentRowOf(lineEntity(pointOf(from), pointOf(to))));
  };
  const auto half = [&](PlanePoint from, PlanePoint to, PlanePoint center) {
    rows.push_back(
        segmentRowOf({kCounterClockwiseArc, pointOf(from), pointOf(to), pointOf(center)}));
  };
  line(bridge.from - side, bridge.to - side);
  half(bridge.to + side, bridge.to - side, bridge.to);
  line(bridge.to + side, bridge.from + side);
  half(bridge.from - side, bridge.from + side, bridge.from);
}

}  // namespace

frmHoldingTabs::frmHoldingTabs(CamContext& cam, std::vector<TabPass> passes, float floor)
    : Form("frmHoldingTabs", "Holding Tabs"), cam_(cam), passes_(std::move(passes)), floor_(floor) {
  optTabs[kByNumber].setCaption("&Number :");
  optTabs[kBySpacing].setCaption("&Spacing :");
  lblTabWidth.setCaption("&Width :");
  lblTabHeight.setCaption("&Height above the Floor :");
  cmdOK.setCaption("&OK");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdOK);
  setCancelButton(cmdCancel);
  leavesDrawingInReach = true;
  onLoad = [this] { fill(); };
  onClose = [this] { leave(); };
  onAccept = [this] { takeOver(); };
  for (TextBox* const box : {&txtTabNumber, &txtTabSpacing, &txtTabWidth, &txtTabHeight}) {
    box->onChange = [this] { changed(); };
  }
  optTabs.onClick = [this](int) { changed(); };
  cmdOK.onClick = [this] { confirm(); };
  cmdCancel.onClick = [this] { close(); };
}

frmHoldingTabs::~frmHoldingTabs() {
  leave();
}

void frmHoldingTabs::leave() {
  cam_.context.onFormClick = nullptr;
  cam_.context.onFormDrag = nullptr;
  endPreview(cam_.context);
}

void frmHoldingTabs::fill() {
  const DrawingStore& store = cam_.store;
  const bool metric = isMetric(store);
  const auto textOf = [](float setting, double otherwise) {
    return plainText(setting > 0 ? setting : static_cast<float>(otherwise));
  };
  txtTabNumber.setText(
      std::to_string(store.cfg_tab_number > 0 ? int{store.cfg_tab_number} : kNumber));
  txtTabSpacing.setText(textOf(store.cfg_tab_spacing, metric ? 10 * kWidthMm : 10 * kWidthInch));
  txtTabWidth.setText(textOf(store.cfg_tab_width, metric ? kWidthMm : kWidthInch));
  txtTabHeight.setText(textOf(store.cfg_tab_height, metric ? kHeightMm : kHeightInch));
  optTabs[store.cfg_tab_spacing > 0 ? kBySpacing : kByNumber].setValue(true);
  cam_.context.onFormClick = [this](Point at) { grab(at); };
  cam_.context.onFormDrag = [this](Point to) { drag(to); };
  spread();
}

// ---- Where they are

void frmHoldingTabs::changed() {
  if (plan_) spread();
}

// What was dragged before is spread anew.
void frmHoldingTabs::spread() {
  const bool bySpacing = optTabs[kBySpacing].value();
  txtTabNumber.setEnabled(!bySpacing);
  txtTabSpacing.setEnabled(bySpacing);
  rules_ = {.number = roundHalfEven(std::min<double>(valueOf(txtTabNumber), TabPlan::kMost)),
            .spacing = bySpacing ? std::max<double>(valueOf(txtTabSpacing), 0) : 0,
            .width = std::max<double>(valueOf(txtTabWidth), 0),
            .height = std::max<double>(valueOf(txtTabHeight), 0)};
  plan_ = std::make_unique<TabPlan>(passes_, rules_.width);
  if (rules_.width > 0) plan_->place(plan_->wanted(rules_));
  grabbed_ = -1;
  show();
}

void frmHoldingTabs::show() {
  const int count = plan_->count();
  lblTabs.setCaption(count == 0   ? "No tab fits."
                     : count == 1 ? "1 tab. Drag it along the outline."
                                  : std::to_string(count) + " tabs. Drag them along the outline.");
  std::vector<SegmentRow> rows;
  const std::size_t finished = passes_.size() - 1;
  for (const TabPlan::Bridge& bridge : plan_->bridges(finished)) {
    appendShape(bridge, passes_[finished].toolRadius, rows);
  }
  previewRows(cam_.context, std::move(rows), kOutlineWidth);
}

void frmHoldingTabs::grab(Point at) {
  const PlanePoint place{at.x, at.y};
  grabbed_ = plan_->nearestTab(place);
  if (grabbed_ < 0) return;
  const double reach = rules_.width / 2 + 2 * passes_.back().toolRadius;
  if (normOf(plan_->placeOf(grabbed_) - place) > reach) grabbed_ = -1;
}

void frmHoldingTabs::drag(Point to) {
  if (grabbed_ < 0) return;
  plan_->move(grabbed_, {to.x, to.y});
  show();
}

// ---- OK

// Why there can be no tabs; empty when there can.
std::string frmHoldingTabs::complaint() const {
  const float width = valueOf(txtTabWidth);
  const float height = valueOf(txtTabHeight);
  const bool bySpacing = rules_.spacing > 0;
  if (!bySpacing && rules_.number < 1) return "There must be at least one tab.";
  if (!(width > 0)) return "The width of the tabs must be above 0.";
  if (!(height > 0)) return "The height of the tabs must be above 0.";
  if (!(tabTop(rules_, floor_) < 0)) {
    return "Tabs " + plainText(height) + " high are higher than the part: it is cut " +
           plainText(-floor_) + " deep.";
  }
  if (plan_->count() > 0) return {};
  return "Tabs " + plainText(width) +
         " wide fit nowhere on the outline: beside corners and leads no row is long enough.";
}

void frmHoldingTabs::confirm() {
  const std::string fault = complaint();
  const int wanted = plan_->wanted(rules_);
  Prompts& prompts = cam_.context.session.host.prompts;
  if (!fault.empty()) {
    prompts.showMessage({.text = fault, .title = caption(), .icon = MessageIcon::Warning});
    return;
  }
  if (plan_->count() < wanted) {
    prompts.showMessage({.text = "Only " + std::to_string(plan_->count()) + " of " +
                                 std::to_string(wanted) + " tabs fit on the outline.",
                         .title = caption(),
                         .icon = MessageIcon::Warning});
  }
  accept();
}

void frmHoldingTabs::takeOver() {
  DrawingStore& store = cam_.store;
  store.cfg_tab_number = rules_.number;
  store.cfg_tab_spacing = narrow(rules_.spacing);
  store.cfg_tab_width = narrow(rules_.width);
  store.cfg_tab_height = narrow(rules_.height);
}

}  // namespace tess
