// Edit Radius.
#include "drafting/dlgEditRadius.h"

#include <cmath>

#include "core/number_text.h"
#include "core/rounding.h"

namespace tess {
namespace {

constexpr int kMinimumDecimals = 6;
constexpr double kMinimumNoise = 1e-6;

// Rounded, unless it is so close to that already that rounding would only blur it.
float shownMinimum(float minimum) {
  const float rounded = roundTo(minimum, kMinimumDecimals);
  const bool differs = std::abs(static_cast<double>(rounded) - minimum) > kMinimumNoise;
  return differs ? rounded : minimum;
}

}  // namespace

dlgEditRadius::dlgEditRadius(DraftingContext& context, float radius, float minimum)
    : Form("dlgEditRadius", "Edit Radius"), radius_(radius) {
  lblradius.setCaption("&Radius");
  lblminradius.setCaption("Minimum radius");
  txtminradius.readOnly = true;
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this, &context, minimum = shownMinimum(minimum)] {
    const std::string& pattern = context.session.formats.coordfmt;
    txtradius.setText(formatNumber(radius_, pattern));
    txtminradius.setText(minimum > 0 ? formatNumber(minimum, pattern) : std::string());
  };
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
  // A text left as it was stands for the radius itself, which has more digits than it shows.
  onAccept = [this, &context] {
    const bool typed = txtradius.text() != formatNumber(radius_, context.session.formats.coordfmt);
    if (typed) radius_ = parseFloat(txtradius.text());
  };
}

}  // namespace tess
