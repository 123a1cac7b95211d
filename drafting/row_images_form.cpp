// What the forms of mirroring and turning have in common.
#include "drafting/row_images_form.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "drafting/drafting_context.h"
#include "drafting/entity_creation.h"
#include "drafting/number_fields.h"
#include "drafting/selection.h"

namespace tess {
namespace {

constexpr char kCoordinateFormat[] = "0.0###";

}  // namespace

RowImagesForm::RowImagesForm(DraftingContext& context, std::string name, std::string caption)
    : Form(std::move(name), std::move(caption)), context_(context) {
  onLoad = [this] { load(); };
  onClose = [this] { endPreview(context_); };
}

void RowImagesForm::wire(const Parts& parts) {
  parts_ = parts;
  parts.move->setCaption("&Move");
  parts.copy->setCaption("&Copy");
  parts.selectedOnly->setCaption("&Selected segments only");
  parts.ok->setCaption("&OK");
  parts.cancel->setCaption("Cancel");
  setDefaultButton(*parts.ok);
  setCancelButton(*parts.cancel);
  hoversWith(*parts.x);
  hoversWith(*parts.y);
  parts.selectedOnly->onClick = [this] { hover(); };
  parts.ok->onClick = [this] {
    if (takeOver()) accept();
  };
  parts.cancel->onClick = [this] { close(); };
}

void RowImagesForm::hoversWith(TextBox& box) {
  box.onChange = [this] { hover(); };
}

void RowImagesForm::hoversWith(Option& option) {
  option.onClick = [this] { hover(); };
}

void RowImagesForm::load() {
  const Point marker = markerOf(context_);
  const std::string x = formatNumber(marker.x, kCoordinateFormat);
  const std::string y = formatNumber(marker.y, kCoordinateFormat);
  parts_.x->setText(x);
  parts_.y->setText(y);
  parts_.marker->setCaption("Marker: X=" + x + ", Y=" + y);
  parts_.move->setValue(true);
  parts_.selectedOnly->setChecked(true);
  parts_.selectedOnly->setEnabled(selectedCount(context_.store) > 0);
  loaded_ = true;
  hover();
}

// Out of reach, the box does not count.
bool RowImagesForm::selectedOnly() const {
  return parts_.selectedOnly->isEnabled() && parts_.selectedOnly->isChecked();
}

// Images beyond the largest number do not hover; OK tells of them.
std::vector<SegmentRow> RowImagesForm::images() const {
  const std::optional<RowImage> image = this->image();
  if (!image) return {};
  try {
    return imagesOf(context_.store, selectedOnly(), *image);
  } catch (const RuntimeFailure& failure) {
    if (failure.number() != FailureNumber::Overflow) throw;
    return {};
  }
}

void RowImagesForm::hover() {
  if (loaded_) previewRows(context_, images());
}

std::optional<Point> RowImagesForm::point() const {
  const std::optional<float> x = numberIn(*parts_.x), y = numberIn(*parts_.y);
  if (!x || !y) return std::nullopt;
  return Point{*x, *y};
}

void RowImagesForm::refusePoint(const std::string& text) {
  TextBox& box = numberIn(*parts_.x) ? *parts_.y : *parts_.x;
  refuseField(context_.session.host.prompts, box, text);
}

void RowImagesForm::ask() {
  context_.session.host.prompts.showModal(*this);
}

void RowImagesForm::addImages(const RowImage& image) {
  const ImageRequest request{.selectedOnly = selectedOnly(), .copies = parts_.copy->value()};
  if (!tess::addImages(context_.changes, request, image)) return;
  collectSelected(context_);
  context_.state.updateProperties = true;
  context_.listener.UpdatePropertyWindow();
}

}  // namespace tess
