// Print to Scale.
#include "shell/frmPrintScale.h"

#include "core/number_text.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

constexpr char kNoScale[] = "The scale must be a number above 0 or a ratio, as 1, 0.5, 1:2 or 2:1.";
constexpr char kNoPaper[] = "Please choose a paper.";
constexpr char kNoOverlap[] = "The overlap must be a number of millimetres, 0 or more.";

std::string sheetsText(const SheetPlan& plan) {
  const std::size_t count = plan.sheets.size();
  if (count == 1) return "One sheet";
  return std::to_string(count) + " sheets, " + std::to_string(plan.columns) + " across and " +
         std::to_string(plan.rows) + " down";
}

std::optional<double> overlapIn(const TextBox& field) {
  const std::optional<double> overlap = numericValue(field.text());
  return overlap && *overlap >= 0 ? overlap : std::nullopt;
}

}  // namespace

frmPrintScale::frmPrintScale(Session& session, const Box& bounds, ScaledPrint& print)
    : Form("frmPrintScale", "Print to Scale"), session_(session), bounds_(bounds), print_(print) {
  lblScale.setCaption("&Scale, paper to part");
  lblPaper.setCaption("&Paper");
  lblOverlap.setCaption("&Overlap of sheets, mm");
  cmdPrint.setCaption("P&rint...");
  cmdPreview.setCaption("Pre&view...");
  cmdFile.setCaption("To &File...");
  cmdClose.setCaption("Close");
  setDefaultButton(cmdPrint);
  setCancelButton(cmdClose);
  cmbScale.setItems({"1:1", "2:1", "5:1", "10:1", "1:2", "1:5", "1:10"});
  for (const PaperSize& size : paperSizes()) cmbPaper.addItem(size.name);
  onLoad = [this] {
    cmbScale.setText(scaleText(print_.scale));
    cmbPaper.setText(print_.page.paper);
    txtOverlap.setText(plainText(static_cast<float>(print_.overlap)));
    showSheets();
  };
  for (Control* const field : std::initializer_list<Control*>{&cmbScale, &cmbPaper, &txtOverlap}) {
    field->onChange = [this] { showSheets(); };
    field->onClick = [this] { showSheets(); };
  }
  cmdPrint.onClick = [this] { printFor(Purpose::Printer); };
  cmdPreview.onClick = [this] { printFor(Purpose::Preview); };
  cmdFile.onClick = [this] { printFor(Purpose::File); };
  cmdClose.onClick = [this] { close(); };
}

std::optional<ScaledPrint> frmPrintScale::fields() const {
  const std::optional<double> scale = readPrintScale(cmbScale.text());
  const std::optional<double> overlap = overlapIn(txtOverlap);
  if (!scale || !overlap || cmbPaper.index() < 0) return std::nullopt;
  ScaledPrint print = print_;
  print.scale = *scale;
  print.overlap = *overlap;
  print.page.paper = cmbPaper.text();
  return print;
}

const char* frmPrintScale::wrongField() const {
  if (!readPrintScale(cmbScale.text())) return kNoScale;
  return cmbPaper.index() < 0 ? kNoPaper : kNoOverlap;
}

void frmPrintScale::showSheets() {
  std::string told;
  bool possible = false;
  if (const std::optional<ScaledPrint> print = fields()) {
    try {
      told = sheetsText(planSheets(session_.store, bounds_, *print));
      possible = true;
    } catch (const RuntimeFailure& failure) {
      told = failure.description();
    }
  } else {
    told = wrongField();
  }
  lblSheets.setCaption(told);
  for (Button* const button : {&cmdPrint, &cmdPreview, &cmdFile}) button->setEnabled(possible);
}

void frmPrintScale::printFor(Purpose purpose) {
  const std::optional<ScaledPrint> print = fields();
  if (!print) return;
  print_ = *print;
  if (onPrint) onPrint(purpose);
}

}  // namespace tess
