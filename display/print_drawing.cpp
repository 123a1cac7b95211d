// The printed page.
#include "display/print_drawing.h"

#include <string_view>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/number_text.h"

namespace tess {
namespace {

constexpr float kPitch = 1.125F;      // of the rows of the block, in heights of a letter
constexpr int kRows = 6;              // of the block
constexpr float kFrameIndent = 180;   // twips that the frame begins left of the text
constexpr float kColumn = 1080;       // twips from one column of the block to the next
constexpr double kSettleTime = 100;   // milliseconds until the picture file is read
constexpr int kPictureNumbers = 100;  // of the disk, from 0

struct BlockRow {
  std::string label;
  std::vector<std::string> values;
};

BlockRow blockRow(const Session& session, int row) {
  const DrawingStore& store = session.store;
  const std::string& format = session.formats.dimfmt;
  switch (row) {
    case 1:
      return {"Title: ", {store.drawingtitle}};
    case 2:
      return {"Dimensions: ",
              {formatNumber(store.partdimx, format), formatNumber(store.partdimy, format),
               formatNumber(store.partdimz, format)}};
    case 3:
      return {"Material: ", {store.partmaterial}};
    case 4:
      return {"Filename: ", {std::string(fileNameOf(store.drawingname))}};
    case 5:
      return {"Revision: ", {store.drawingrevision}};
    default:
      return {store.designername, {store.creationdate}};
  }
}

}  // namespace

float DrawingPrinter::lineHeight() const {
  return control_->textHeight("E");
}

float DrawingPrinter::blockTop() const {
  return control_->pageHeight() - control_->topMargin() - lineHeight() * kPitch * kRows;
}

void DrawingPrinter::PrintDrawing(RedrawSequence& redraw, PrintOutput Output) {
  const Procedure here("frmMain.PrintDrawing(Output)");
  try {
    control_->begin(Output);
    composeBlock();
    PrintPreviewProxy page(*control_);
    redraw.redrawscreen(&page, /*ShowGrid=*/true, /*FillPartTemplate=*/true,
                        /*DisableEvents=*/true);
    control_->EndDoc();
  } catch (...) {
    removeTemporary();
    throw;
  }
  removeTemporary();
}

void DrawingPrinter::composeBlock() {
  const float right = control_->pageWidth() - control_->leftMargin();
  const float bottom = control_->pageHeight() - control_->topMargin();
  control_->box({right / 2 - kFrameIndent, blockTop(), right, bottom}, /*color=*/0,
                /*filled=*/false);
  for (int row = 1; row <= kRows; ++row) {
    const float middle = bottom - (static_cast<float>(kRows - row) + 0.5F) * kPitch * lineHeight();
    composeRow(row, middle - lineHeight() / 2);
  }
}

void DrawingPrinter::composeRow(int row, float y) {
  const float right = control_->pageWidth() - control_->leftMargin();
  const float left = right / 2;
  const BlockRow texts = blockRow(session_, row);
  control_->setCurrent(left, y);
  control_->print(texts.label, kColumn);
  for (std::size_t i = 0; i < texts.values.size(); ++i) {
    const float column = left + kColumn * static_cast<float>(i + 1);
    const bool last = i + 1 == texts.values.size();
    control_->setCurrent(column, y);
    control_->print(texts.values[i], last ? right - column : kColumn);
  }
}

void DrawingPrinter::PrintPreviewScreenShotWorkAround(DrawingTarget& target) {
  auto* const page = dynamic_cast<PrintPreviewProxy*>(&target);
  if (page == nullptr) return;
  Surroundings& surroundings = session_.host.surroundings;
  surroundings.serveEvents();
  screen_.surface().Refresh();
  surroundings.serveEvents();
  removeTemporary();
  temporary_ = writeTemporaryFile("TMP", ".bmp", control_->screenShot());
  session_.host.clock.sleep(kSettleTime);
  surroundings.serveEvents();
  page->PreviewBMP(temporary_, blockTop());
}

void DrawingPrinter::removeTemporary() {
  if (!temporary_.empty()) removeTemporaryFile(std::exchange(temporary_, {}));
}

void PictureDisk::store_Picture(StatusBar& status) {
  const std::string name = "CAMPIC" + std::to_string(number_ / 10) + std::to_string(number_ % 10);
  status.setText("Picture saved to disk as: " + name + ".PCX");
  number_ = (number_ + 1) % kPictureNumbers;
}

}  // namespace tess
