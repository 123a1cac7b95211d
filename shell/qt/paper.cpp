// Documents of the toolkit.
#include "shell/qt/paper.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

#include "core/version.h"
#include "shell/qt/paper_sheets.h"
#include "shell/qt/raster_surface.h"
#include "shell/qt/spoken_names.h"
#include "shell/qt/toolkit.h"

namespace tess {
namespace {

constexpr double kTwipsPerMillimetre = kTwipsPerInch / 25.4;
constexpr double kLetterHeight = 180;   // twips: nine points
constexpr double kLongestLabel = 1080;  // twips that the longest label of the title block may take
constexpr double kPenWidth = 10;        // twips
constexpr int kBytesPerPixel = 3;       // of a bitmap file: blue, green, red

// Small enough for the longest label of the title block, whatever the font.
QFont pageFont() {
  QFont font("sans-serif");
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(static_cast<int>(kLetterHeight));
  const double label = QFontMetricsF(font).horizontalAdvance("Dimensions: ");
  if (label > kLongestLabel) {
    font.setPixelSize(static_cast<int>(kLetterHeight * kLongestLabel / label));
  }
  return font;
}

QColor inkOf(Rgb color) {
  return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF};
}

QPen penOf(Rgb color) {
  return {inkOf(color), kPenWidth, Qt::SolidLine, Qt::RoundCap};
}

QPageLayout layoutOf(const PageSides& sides) {
  const QPageSize size(
      QSizeF(std::min(sides.width, sides.height), std::max(sides.width, sides.height)),
      QPageSize::Millimeter);
  const bool lies = sides.width > sides.height;
  return {size, lies ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)};
}

QImage imageOf(const std::string& path) {
  QImage image;
  if (!image.load(QString::fromStdString(path)))
    throw RuntimeFailure(FailureNumber::DeviceInputOutput, path);
  return image;
}

// Of a bitmap file of three bytes for each pixel.
std::string bitmapHeader(const QImage& image, std::size_t pixelBytes) {
  constexpr std::uint32_t kFileHeader = 14, kInfoHeader = 40;
  constexpr std::uint32_t kOnePlane = 1, kBits = kBytesPerPixel * 8;
  std::string header = "BM";
  const auto add = [&header](auto value) {
    const auto number = static_cast<std::uint32_t>(value);
    for (unsigned byte = 0; byte < 4; ++byte) header += static_cast<char>(number >> 8 * byte);
  };
  add(kFileHeader + kInfoHeader + pixelBytes);
  add(0);
  add(kFileHeader + kInfoHeader);
  add(kInfoHeader);
  add(image.width());
  add(image.height());
  add(kOnePlane | kBits << 16U);
  add(0);  // not compressed
  add(pixelBytes);
  add(image.dotsPerMeterX());
  add(image.dotsPerMeterY());
  add(0);  // no palette
  add(0);
  return header;
}

}  // namespace

// Put together at once: the toolkit's writer grows a buffer row by row, in twice the time.
std::string bitmapFile(const QImage& image) {
  if (image.isNull()) throw RuntimeFailure(FailureNumber::DeviceInputOutput, "bitmap");
  const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
  const auto rowBytes = static_cast<std::size_t>(opaque.width() * kBytesPerPixel + 3) / 4 * 4;
  const std::size_t pixelBytes = rowBytes * static_cast<std::size_t>(opaque.height());
  std::string file = bitmapHeader(opaque, pixelBytes);
  std::size_t at = file.size();
  file.resize(at + pixelBytes);
  for (int y = opaque.height() - 1; y >= 0; --y, at += rowBytes) {
    char* byte = file.data() + at;
    const auto* const row = reinterpret_cast<const QRgb*>(opaque.constScanLine(y));
    for (const QRgb pixel : std::span(row, static_cast<std::size_t>(opaque.width()))) {
      *byte++ = static_cast<char>(qBlue(pixel));
      *byte++ = static_cast<char>(qGreen(pixel));
      *byte++ = static_cast<char>(qRed(pixel));
    }
  }
  return file;
}

QtPaper::QtPaper() : toolkit_(std::make_unique<OffscreenToolkit>()) {}
QtPaper::~QtPaper() = default;

void QtPaper::setPage(const PageSides& sides, double margin) {
  sides_ = sides;
  margin_ = margin;
}

void QtPaper::begin(PrintOutput output) {
  toolkit_->start();
  output_ = output;
  documentSides_ = sides_;
  title_.clear();
  pages_.assign(1, [](QPainter&) {});
}

void QtPaper::compose(const SheetPrint& print) {
  toolkit_->start();
  documentSides_ = print.plan.sides;
  title_ = print.title;
  pages_.clear();
  const auto shared = std::make_shared<SheetPrint>(print);
  for (std::size_t number = 0; number < print.plan.sheets.size(); ++number) {
    pages_.push_back([shared, number](QPainter& painter) {
      painter.scale(kTwipsPerMillimetre, kTwipsPerMillimetre);
      paintSheet(*shared, number, painter);
    });
  }
}

void QtPaper::add(Page part) {
  pages_.back() = [before = std::move(pages_.back()), part = std::move(part)](QPainter& painter) {
    before(painter);
    part(painter);
  };
}

// In twips, whatever the device.
void QtPaper::paint(QPagedPaintDevice& device) const {
  QPainter painter(&device);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::LosslessImageRendering);
  for (std::size_t number = 0; number < pages_.size(); ++number) {
    if (number > 0) device.newPage();
    painter.save();
    painter.scale(device.logicalDpiX() / double{kTwipsPerInch},
                  device.logicalDpiY() / double{kTwipsPerInch});
    pages_[number](painter);
    painter.restore();
  }
}

std::string QtPaper::pdf() {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QBuffer::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(static_cast<int>(kTwipsPerInch));
    writer.setPageLayout(layoutOf(documentSides_));
    writer.setCreator(QString::fromUtf8(kProductName));
    writer.setTitle(QString::fromStdString(title_));
    paint(writer);
  }
  return bytes.toStdString();
}

bool QtPaper::sendToPrinter() {
  if (window_ == nullptr || QPrinterInfo::availablePrinters().isEmpty()) return false;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageLayout(layoutOf(documentSides_));
  printer.setFullPage(true);
  printer.setDocName(QString::fromStdString(title_));
  if (QPrintDialog(&printer, window_).exec() == QDialog::Accepted) paint(printer);
  return true;
}

bool QtPaper::showPreview() {
  if (window_ == nullptr) return false;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageLayout(layoutOf(documentSides_));
  printer.setFullPage(true);
  printer.setDocName(QString::fromStdString(title_));
  QPrintPreviewDialog dialog(&printer, window_);
  namePreviewForReaders(dialog);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [this](QPrinter* page) { paint(*page); });
  dialog.exec();
  return true;
}

float QtPaper::pageWidth() const {
  return static_cast<float>(documentSides_.width * kTwipsPerMillimetre);
}

float QtPaper::pageHeight() const {
  return static_cast<float>(documentSides_.height * kTwipsPerMillimetre);
}

float QtPaper::leftMargin() const {
  return static_cast<float>(margin_ * kTwipsPerMillimetre);
}

float QtPaper::topMargin() const {
  return leftMargin();
}

float QtPaper::textWidth(const std::string& text) const {
  return static_cast<float>(
      QFontMetricsF(pageFont()).horizontalAdvance(QString::fromStdString(text)));
}

float QtPaper::textHeight(const std::string& /*text*/) const {
  return static_cast<float>(QFontMetricsF(pageFont()).height());
}

void QtPaper::setCurrent(float x, float y) {
  currentX_ = x;
  currentY_ = y;
}

void QtPaper::print(const std::string& text, float room) {
  const QFont font = pageFont();
  const double base = currentY_ + QFontMetricsF(font).ascent();
  const double factor = std::min(1.0F, room / std::max(textWidth(text), 1.0F));
  add([=, x = currentX_](QPainter& painter) {
    painter.save();
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.translate(x, base);
    painter.scale(factor, factor);
    painter.drawText(QPointF(0, 0), QString::fromStdString(text));
    painter.restore();
  });
}

void QtPaper::line(const WorldBox& ends, Rgb color) {
  add([=](QPainter& painter) {
    painter.setPen(penOf(color));
    painter.drawLine(QPointF(ends.x0, ends.y0), QPointF(ends.x1, ends.y1));
  });
}

void QtPaper::box(const WorldBox& corners, Rgb color, bool filled) {
  add([=](QPainter& painter) {
    painter.setPen(penOf(color));
    painter.setBrush(filled ? QBrush(inkOf(color)) : QBrush(Qt::NoBrush));
    painter.drawRect(
        QRectF(QPointF(corners.x0, corners.y0), QPointF(corners.x1, corners.y1)).normalized());
  });
}

void QtPaper::arc(const WorldArc& arc, Rgb color) {
  add([=](QPainter& painter) {
    painter.setPen(penOf(color));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(arcPath({arc.x, arc.y}, arc.radius, arc));
  });
}

PictureSize QtPaper::pictureSize(const std::string& path) const {
  const QSize size = QImageReader(QString::fromStdString(path)).size();  // without its pixels
  if (!size.isValid()) throw RuntimeFailure(FailureNumber::DeviceInputOutput, path);
  return {static_cast<float>(size.width()), static_cast<float>(size.height())};
}

void QtPaper::picture(const std::string& path, const PageBox& place) {
  add([=, image = imageOf(path)](QPainter& painter) {
    painter.drawImage(QRectF(QPointF(place.left, place.top), QPointF(place.right, place.bottom)),
                      image);
  });
}

std::string QtPaper::bitmapOf(const PictureSize& size,
                              const std::function<void(DrawingSurface&)>& paint) {
  toolkit_->start();
  RasterSurface surface({0, 0, size.width, size.height});
  paint(surface);
  return bitmapFile(surface.picture());
}

}  // namespace tess
