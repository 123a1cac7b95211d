// Examples.
#include "shell/frmExamples.h"

namespace tess {
namespace {

constexpr char kExplanation[] =
    "A copy is put into your drawing folder and opened; the example itself stays as it is.";

}  // namespace

frmExamples::frmExamples(const std::vector<Example>& examples)
    : Form("frmExamples", "Examples"), examples_(examples) {
  lblExplanation.setCaption(kExplanation);
  cmdOpen.setCaption("&Open");
  cmdCancel.setCaption("&Cancel");
  setDefaultButton(cmdOpen);
  setCancelButton(cmdCancel);
  onLoad = [this] {
    for (const Example& example : examples_) lstExamples.addItem(example.title);
    lstExamples.setIndex(0);
  };
  lstExamples.onOpen = [this] { accept(); };
  cmdOpen.onClick = [this] { accept(); };
  cmdCancel.onClick = [this] { close(); };
}

const Example& frmExamples::chosen() const {
  return examples_.at(static_cast<std::size_t>(lstExamples.index()));
}

}  // namespace tess
