// Bolt Circle.
#include "toolpath/BoltCircle.h"

#include <utility>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "drafting/entity_creation.h"
#include "drafting/form_preview.h"
#include "drafting/number_fields.h"
#include "toolpath/cycles.h"
#include "toolpath/dlgSelectCycle.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

constexpr int kDistanceDecimals = 6;
constexpr float kMaxHoles = 999;
constexpr float kMaxDegrees = 360;

bool liesIn(const std::optional<float>& value, float least, float most) {
  return !value || (*value >= least && *value <= most);
}

std::string distanceText(double distance) {
  return plainText(roundTo(narrow(distance), kDistanceDecimals));
}

}  // namespace

void BoltPreview::show(std::vector<BoltMark> marks) {
  marks_ = std::move(marks);
  invalidate();
}

BoltCircle::BoltCircle(CamContext& cam) : Form("BoltCircle", "Bolt Circle"), cam_(cam) {
  chkDisplayCoordinates.setCaption("&Display coordinates");
  cmdCompute.setCaption("&Compute");
  cmdClear.setCaption("C&lear");
  cmdCreateSegments.setCaption("Create &Segments...");
  cmdCancel.setCaption("Cancel");
  setDefaultButton(cmdCompute);
  setCancelButton(cmdCancel);
  onLoad = [this] { clear(); };
  onClose = [this] { endPreview(cam_.context); };
  cmdCompute.onClick = [this] { compute(); };
  cmdClear.onClick = [this] { clear(); };
  cmdCreateSegments.onClick = [this] { createSegments(); };
  cmdCancel.onClick = [this] { close(); };
  chkDisplayCoordinates.onClick = [this] { showPreview(); };
  lstBoltHoleResults.onClick = [this] { lblCoordinates.setCaption(lstBoltHoleResults.text()); };
}

// As it opens: nothing is computed, and the circle is to lie round the marker.
void BoltCircle::clear() {
  const std::string x = plainText(cam_.store.markerx), y = plainText(cam_.store.markery);
  txtNumberOfHoles.setText({});
  txtDegreesOffset.setText("0");
  txtBoltCircleDiameter.setText({});
  txtBoltHoleDiameter.setText({});
  lblOrigin.setCaption("Origin (marker: X=" + x + ", Y=" + y + ")");
  txtOrigX.setText(x);
  txtOrigY.setText(y);
  holes_.clear();
  lstBoltHoleResults.clear();
  lblCoordinates.setCaption({});
  showDistances();
  showPreview();
  hoverHoles();
}

// One line for each fault, in the order of the fields. What is compared has to be a number first.
std::string BoltCircle::complaints() const {
  const std::optional<float> holes = numberIn(txtNumberOfHoles);
  const std::optional<float> offset = numberIn(txtDegreesOffset);
  const std::optional<float> circle = numberIn(txtBoltCircleDiameter);
  const std::optional<float> hole = numberIn(txtBoltHoleDiameter);
  const std::pair<bool, const char*> rules[] = {
      {holes.has_value(), "Number of Bolt Holes is required and must be numeric."},
      {liesIn(holes, 1, kMaxHoles), "Number of Bolt Holes must be between 1 and 999."},
      {offset.has_value(), "Degrees Offset must be numeric."},
      // Fixed: the offset's range is told in these words; scripts compare messages word for word.
      {liesIn(offset, 0, kMaxDegrees), "Number of Bolt Holes must be between 0 and 360."},
      {circle.has_value(), "Bolt Circle Diameter is required and must be numeric."},
      {!circle || *circle > 0, "Bolt Circle diameter must be between greater than 0."},
      {hole.has_value(), "Bolt Hole Diameter is required and must be numeric."},
      {!hole || !circle || *hole < *circle,
       "Bolt Hole Diameter must be less than Bolt Circle Diameter."},
      {numberIn(txtOrigX) && numberIn(txtOrigY),
       "Initial X and Y coordinates are required and must be numeric."},
  };
  std::string complaints;
  for (const auto& [holds, text] : rules) {
    if (!holds) complaints += std::string(text) + "\n";
  }
  return complaints;
}

std::optional<BoltPattern> BoltCircle::pattern() const {
  const std::optional<float> holes = numberIn(txtNumberOfHoles);
  const std::optional<float> offset = numberIn(txtDegreesOffset);
  const std::optional<float> circle = numberIn(txtBoltCircleDiameter);
  const std::optional<float> hole = numberIn(txtBoltHoleDiameter);
  const std::optional<float> x = numberIn(txtOrigX), y = numberIn(txtOrigY);
  if (!holes || !offset || !circle || !hole || !x || !y) return std::nullopt;
  return BoltPattern{.holes = roundHalfEven(*holes),
                     .degreesOffset = *offset,
                     .circleDiameter = *circle,
                     .holeDiameter = *hole,
                     .origin = {*x, *y}};
}

void BoltCircle::compute() {
  const Procedure here("BoltCircle.cmdCompute_Click()");
  const std::string faults = complaints();
  const std::optional<BoltPattern> wanted = faults.empty() ? pattern() : std::nullopt;
  if (!wanted) {
    cam_.context.session.host.prompts.showMessage(
        {.text = faults, .title = caption(), .icon = MessageIcon::Warning});
    return;
  }
  pattern_ = *wanted;
  holes_ = boltHoles(pattern_);
  std::vector<std::string> items;
  items.reserve(holes_.size());
  for (const BoltHole& hole : holes_) {
    items.push_back(boltHoleItem(static_cast<int>(items.size()) + 1, hole.place));
  }
  lstBoltHoleResults.setItems(std::move(items));
  lblCoordinates.setCaption({});
  showDistances();
  showPreview();
  hoverHoles();
}

void BoltCircle::showDistances() {
  const bool any = holes_.size() >= 2;
  const double distance = any ? boltHoleDistance(holes_) : 0;
  lblDistanceBetweenHoleCenters.setCaption(any ? distanceText(distance) : std::string());
  lblDistanceBetweenHoleEdges.setCaption(any ? distanceText(distance - pattern_.holeDiameter)
                                             : std::string());
}

void BoltCircle::showPreview() {
  const double ratio = static_cast<double>(pattern_.holeDiameter) / pattern_.circleDiameter;
  std::vector<BoltMark> marks;
  marks.reserve(holes_.size());
  for (const BoltHole& hole : holes_) {
    BoltMark mark{.x = hole.px, .y = hole.py, .radius = ratio * kBoltFrame, .text = {}};
    if (chkDisplayCoordinates.isChecked()) {
      mark.text = plainText(hole.place.x) + ", " + plainText(hole.place.y);
    }
    marks.push_back(std::move(mark));
  }
  Picture1.show(std::move(marks));
}

void BoltCircle::hoverHoles() {
  std::vector<SegmentRow> circles;
  circles.reserve(holes_.size());
  for (const BoltHole& hole : holes_) {
    circles.push_back(segmentRowOf(circleEntity(hole.place, pattern_.holeDiameter / 2)));
  }
  previewRows(cam_.context, std::move(circles));
}

std::vector<Point> BoltCircle::listedPlaces() const {
  std::vector<Point> places;
  places.reserve(static_cast<std::size_t>(lstBoltHoleResults.count()));
  for (const std::string& item : lstBoltHoleResults.items()) {
    places.push_back({parseFloat(fieldOfItem("X", item)), parseFloat(fieldOfItem("Y", item))});
  }
  return places;
}

// Fixed: path rows in spite of the button's name; jobs of shops drill what it places.
void BoltCircle::createSegments() {
  const Procedure here("BoltCircle.cmdCreateSegments_Click()");
  const std::vector<Point> places = listedPlaces();
  if (places.empty()) return;
  const std::optional<int> cycle = chooseCycle(cam_);
  if (!cycle) return;
  placeCyclesAt(cam_, *cycle, places);
  cam_.context.redraw.redrawscreen();
}

void mnuDrawBoltCircle_Click(CamContext& cam) {
  const Procedure here("frmMain.mnuDrawBoltCircle_Click()");
  BoltCircle form(cam);
  cam.context.session.host.prompts.showModal(form);
}

// ---- Descriptors

constexpr CamCommand kBoltCircleCommand{
    .info = {.tool = "miBoltCircle",
             .caption = "&Bolt Circle...",
             .menu = {"miDraw", 210},
             .bar = {"barDraw", 270}},
    .run = mnuDrawBoltCircle_Click,
};

}  // namespace tess
