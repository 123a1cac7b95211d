// The platform's paper: documents that are composed page by page and then printed, shown, or made
// into a file.
// Owns: SheetPrint, Paper.
#pragma once

#include <functional>
#include <string>

#include "display/page_setup.h"
#include "display/print_preview.h"
#include "display/scaled_print.h"
#include "display/vector_picture.h"

namespace tess {

// All sheets of a drawing to scale.
struct SheetPrint {
  SheetPlan plan;
  VectorPicture picture;
  std::string title;    // what the document is of
  std::string caption;  // on each sheet, before its number
};

class Paper : public PrintPreviewControl {
 public:
  // Of the documents that begin from now on. `margin` in millimetres.
  virtual void setPage(const PageSides& sides, double margin) = 0;
  // A document of sheets takes the place of the one before.
  virtual void compose(const SheetPrint& print) = 0;

  // Of the document composed last.
  virtual std::string pdf() = 0;
  // False where there is no printer, and nothing was sent.
  virtual bool sendToPrinter() = 0;
  // False where there is no window for it, and nothing was shown.
  virtual bool showPreview() = 0;

  // What is painted on a surface of that size, as the content of a bitmap file.
  virtual std::string bitmapOf(const PictureSize& size,
                               const std::function<void(DrawingSurface&)>& paint) = 0;

  // Told by EndDoc.
  std::function<void(PrintOutput)> onDocument;
  // Gives `picDrawing` as it stands, as the content of a bitmap file.
  std::function<std::string()> takeScreenShot;

  std::string screenShot() override { return takeScreenShot ? takeScreenShot() : std::string(); }
  void EndDoc() override {
    if (onDocument) onDocument(output_);
  }

 protected:
  PrintOutput output_ = PrintOutput::Printer;  // of the document that began last
};

}  // namespace tess
