// The colour dialog.
#include "tools/dlgColor.h"

#include <algorithm>

#include "core/number_text.h"

namespace tess {
namespace {

constexpr int kBrightest = 255;

int channelIn(const TextBox& box) {
  return static_cast<int>(std::clamp(Val(box.text()), 0.0, static_cast<double>(kBrightest)));
}

}  // namespace

dlgColor::dlgColor(Rgb present) : Form("dlgColor", "Color") {
  lblRed.setCaption("&Red:");
  lblGreen.setCaption("&Green:");
  lblBlue.setCaption("&Blue:");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this, present] { show(present); };
  for (TextBox* const box : {&txtRed, &txtGreen, &txtBlue}) {
    box->onChange = [this] { picColor.setColor(color()); };
  }
  cmdAccept.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
}

Rgb dlgColor::color() const {
  return channelIn(txtRed) | channelIn(txtGreen) << 8 | channelIn(txtBlue) << 16;
}

void dlgColor::show(Rgb color) {
  txtRed.setText(std::to_string(color & kBrightest));
  txtGreen.setText(std::to_string(color >> 8 & kBrightest));
  txtBlue.setText(std::to_string(color >> 16 & kBrightest));
  picColor.setColor(this->color());
}

std::optional<Rgb> FormColorDialog::chooseColor(Rgb present) {
  dlgColor dialog(present);
  prompts_.showModal(dialog);
  return dialog.accepted() ? std::optional(dialog.color()) : std::nullopt;
}

}  // namespace tess
