// Paper as the toolkit makes it: pages as lists of what is painted, so that the same document can
// be shown, printed, or written as PDF. This header knows nothing of the toolkit.
// Owns: bitmapFile, QtPaper.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "display/paper.h"

class QImage;
class QPageLayout;
class QPainter;
class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace tess {

class OffscreenToolkit;

// The image as the content of a bitmap file. Raises Device I/O error.
std::string bitmapFile(const QImage& image);

class QtPaper : public Paper {
 public:
  QtPaper();
  ~QtPaper() override;

  // The window that the dialogs of printing stand over; without one there are neither printers nor
  // previews.
  void setWindow(QWidget* window) { window_ = window; }
  // Writes what is printed to a file that was chosen in a dialog of the toolkit.
  std::function<void(const std::string& path, const std::string& content)> onFile;

  void setPage(const PageSides& sides, double margin) override;
  void compose(const SheetPrint& print) override;
  std::string pdf() override;
  bool sendToPrinter() override;
  bool showPreview() override;
  std::string bitmapOf(const PictureSize& size,
                       const std::function<void(DrawingSurface&)>& paint) override;

  void begin(PrintOutput output) override;
  float pageWidth() const override;
  float pageHeight() const override;
  float leftMargin() const override;
  float topMargin() const override;
  float textWidth(const std::string& text) const override;
  float textHeight(const std::string& text) const override;
  void setCurrent(float x, float y) override;
  void print(const std::string& text, float room) override;
  void line(const WorldBox& ends, Rgb color) override;
  void box(const WorldBox& corners, Rgb color, bool filled) override;
  void arc(const WorldArc& arc, Rgb color) override;
  PictureSize pictureSize(const std::string& path) const override;
  void picture(const std::string& path, const PageBox& place) override;

 private:
  // Paints a page, in twips from its upper left corner.
  using Page = std::function<void(QPainter&)>;

  void add(Page part);
  void paint(QPagedPaintDevice& device) const;
  std::string pdfOn(const QPageLayout& layout) const;
  void deliver(QPrinter& printer) const;

  std::unique_ptr<OffscreenToolkit> toolkit_;
  QWidget* window_ = nullptr;
  PageSides sides_{210, 297};  // millimetres, as the margin
  double margin_ = 0;
  PageSides documentSides_ = sides_;
  std::string title_;
  std::vector<Page> pages_;
  float currentX_ = 0, currentY_ = 0;
};

}  // namespace tess
