// Printer Options.
#include "shell/frmPageSetup.h"

#include "core/number_text.h"
#include "drafting/number_fields.h"

namespace tess {

frmPageSetup::frmPageSetup(PageSetup& setup, Prompts& prompts)
    : Form("frmPageSetup", "Printer Options"), setup_(setup), prompts_(prompts) {
  lblPaper.setCaption("&Paper");
  fraOrientation.setCaption("Orientation");
  optAutomatic.setCaption("&Automatic");
  optPortrait.setCaption("P&ortrait");
  optLandscape.setCaption("&Landscape");
  lblMargin.setCaption("&Margin, mm");
  cmdAccept.setCaption("A&ccept");
  cmdCancel.setCaption("Cancel");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] { fill(); };
  cmdAccept.onClick = [this] { take(); };
  cmdCancel.onClick = [this] { close(); };
}

void frmPageSetup::fill() {
  for (const PaperSize& size : paperSizes()) cmbPaper.addItem(size.name);
  cmbPaper.setText(setup_.paper);
  optAutomatic.setValue(setup_.orientation == PageOrientation::Automatic);
  optPortrait.setValue(setup_.orientation == PageOrientation::Portrait);
  optLandscape.setValue(setup_.orientation == PageOrientation::Landscape);
  txtMargin.setText(plainText(static_cast<float>(setup_.margin)));
}

void frmPageSetup::take() {
  if (cmbPaper.index() < 0) cmbPaper.setText(setup_.paper);
  const std::optional<double> margin = numericValue(txtMargin.text());
  const double most = largestMargin(cmbPaper.text());
  if (!margin || *margin < 0 || *margin > most) {
    return refuseField(
        prompts_, txtMargin,
        "The margin must be a number from 0 to " + plainText(static_cast<float>(most)) + " mm.");
  }
  setup_.paper = cmbPaper.text();
  setup_.margin = *margin;
  setup_.orientation = optPortrait.value()    ? PageOrientation::Portrait
                       : optLandscape.value() ? PageOrientation::Landscape
                                              : PageOrientation::Automatic;
  accept();
}

}  // namespace tess
