// The numbers in the fields of the drafting forms.
#include "drafting/number_fields.h"

#include <cmath>
#include <limits>

#include "core/form.h"
#include "core/number_text.h"

namespace tess {

std::optional<float> numberIn(const TextBox& box) {
  const std::optional<double> value = numericValue(box.text());
  if (!value || !(std::abs(*value) <= std::numeric_limits<float>::max())) return std::nullopt;
  return static_cast<float>(*value);
}

void refuseField(Prompts& prompts, TextBox& box, const std::string& text) {
  prompts.showMessage({.text = text, .title = box.form().caption(), .icon = MessageIcon::Warning});
  box.focus();
}

}  // namespace tess
