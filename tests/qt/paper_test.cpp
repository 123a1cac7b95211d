// Documents as PDF: measured from the operators that stand in the file.
#include "shell/qt/paper.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPdfDocument>
#include <QTransform>
#include <QtEndian>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "core/drawing_store.h"
#include "shell/printing.h"
#include "shell/virtual_screen.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/support/failure_of.h"
#include "tests/support/running_program.h"

namespace tess {
namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;

// What a stream of the file holds; empty where it is not packed.
std::string unpacked(std::string_view stream) {
  QByteArray packed(4, '\0');
  qToBigEndian<quint32>(1U << 24U, packed.data());  // room enough
  packed.append(stream.data(), static_cast<qsizetype>(stream.size()));
  return qUncompress(packed).toStdString();
}

// The contents of all pages, one after the other.
std::vector<std::string> pagesOf(const std::string& pdf) {
  std::vector<std::string> pages;
  std::size_t at = 0;
  while ((at = pdf.find("stream\n", at)) != std::string::npos) {
    const std::size_t begin = at + 7;
    const std::size_t end = pdf.find("\nendstream", begin);
    const std::string content = unpacked(std::string_view(pdf).substr(begin, end - begin));
    if (content.find(" cm\n") != std::string::npos) pages.push_back(content);
    at = end + 10;
  }
  return pages;
}

struct Curve {
  std::vector<QPointF> points;  // two of a line, four of a curve
};

// What is stroked on a page, in millimetres from its lower left corner.
class Strokes {
 public:
  explicit Strokes(const std::string& content) {
    std::istringstream words(content);
    for (std::string word; words >> word;) take(word);
  }
  std::vector<Curve> curves;
  double pageHeight = 0;  // millimetres, by the matrix that turns the page over

 private:
  void take(const std::string& word) {
    char* end = nullptr;
    const double number = std::strtod(word.c_str(), &end);
    if (*end == '\0') {
      numbers_.push_back(number);
      return;
    }
    act(word);
    numbers_.clear();
  }
  void act(const std::string& word) {
    if (word == "q") saved_.push_back(matrix_);
    if (word == "Q") {
      matrix_ = saved_.back();
      saved_.pop_back();
    }
    if (word == "cm" && pageHeight == 0) pageHeight = n(1) * kMillimetresPerPoint;
    if (word == "cm") matrix_ = QTransform(n(6), n(5), n(4), n(3), n(2), n(1)) * matrix_;
    if (word == "m") last_ = point(2);
    if (word == "l") add({last_, point(2)});
    if (word == "c") add({last_, point(6), point(4), point(2)});
    if (word == "h" || word == "n") path_.clear();
    if (word == "S") {
      curves.insert(curves.end(), path_.begin(), path_.end());
      path_.clear();
    }
  }
  double n(std::size_t fromEnd) const { return numbers_.at(numbers_.size() - fromEnd); }
  QPointF point(std::size_t fromEnd) const {
    return matrix_.map(QPointF(n(fromEnd), n(fromEnd - 1))) * kMillimetresPerPoint;
  }
  void add(std::vector<QPointF> points) {
    last_ = points.back();
    path_.push_back({std::move(points)});
  }

  std::vector<double> numbers_;
  std::vector<QTransform> saved_;
  QTransform matrix_;
  QPointF last_;
  std::vector<Curve> path_;
};

QPointF along(const Curve& curve, double t) {
  if (curve.points.size() == 2) return curve.points[0] * (1 - t) + curve.points[1] * t;
  const auto& p = curve.points;
  const double u = 1 - t;
  return p[0] * (u * u * u) + p[1] * (3 * u * u * t) + p[2] * (3 * u * t * t) + p[3] * (t * t * t);
}

struct PaperTest : ::testing::Test {
  PaperTest() { testing::toolkit(); }
  QtPaper paper;
  testing::RunningProgram program{&paper};
  Application& application = program.application;
  DrawingStore& store = application.store;

  void add(const SegmentRow& row) { AddSeg(store, row, nullptr); }
  std::string scaledPdf(const ScaledPrint& print) {
    document = scaledDocument(application.session, print);
    paper.compose(document);
    return paper.pdf();
  }
  // A place of the drawing on a page, in millimetres from the page's lower left corner.
  QPointF placeOf(double x, double y, std::size_t sheet = 0) const {
    const SheetPlan& plan = document.plan;
    return {x * plan.millimetres - plan.sheets[sheet].left + plan.margin,
            y * plan.millimetres - plan.sheets[sheet].bottom + plan.margin + plan.foot};
  }

  SheetPrint document;
};

double distanceOf(QPointF a, QPointF b) {
  return std::hypot(a.x() - b.x(), a.y() - b.y());
}

bool holds(const std::vector<Curve>& curves, QPointF from, QPointF to) {
  return std::any_of(curves.begin(), curves.end(), [&](const Curve& curve) {
    return curve.points.size() == 2 && distanceOf(curve.points[0], from) < 0.01 &&
           distanceOf(curve.points[1], to) < 0.01;
  });
}

// The page of the file is a whole number of points high, up to half a point more than the sheet.
QPointF raisedBy(const Strokes& strokes, const SheetPlan& plan) {
  return {0, strokes.pageHeight - plan.sides.height};
}

TEST_F(PaperTest, LinesToScaleLieWithinAHundredthOfAMillimetre) {
  store.units = "I";
  store.endmarkers = 0;
  add({.type = 1, .x0 = 0, .y0 = 0, .x1 = 3.3333F, .y1 = 1.7F});
  add({.type = 1, .x0 = 3.3333F, .y0 = 1.7F, .x1 = -0.5F, .y1 = 2});
  const std::string pdf = scaledPdf({.scale = 1.5, .overlap = 10, .page = {}});
  const std::vector<std::string> pages = pagesOf(pdf);
  ASSERT_EQ(pages.size(), 1U);
  const Strokes strokes(pages[0]);
  const QPointF raised = raisedBy(strokes, document.plan);
  EXPECT_LT(std::abs(raised.y()), 0.2);
  EXPECT_TRUE(holds(strokes.curves, placeOf(0, 0) + raised, placeOf(3.3333, 1.7) + raised));
  EXPECT_TRUE(holds(strokes.curves, placeOf(3.3333, 1.7) + raised, placeOf(-0.5, 2) + raised));
}

TEST_F(PaperTest, ArcsToScaleKeepTheirRadius) {
  store.units = "M";
  store.endmarkers = 0;
  add({.type = 3, .x0 = 80, .y0 = 0, .x1 = 0, .y1 = -80});
  const std::vector<std::string> pages =
      pagesOf(scaledPdf({.scale = 1, .overlap = 10, .page = {}}));
  ASSERT_EQ(pages.size(), 1U);
  const Strokes strokes(pages[0]);
  const QPointF center = placeOf(0, 0) + raisedBy(strokes, document.plan);
  int pieces = 0;
  double swept = 0;
  for (const Curve& curve : strokes.curves) {
    if (curve.points.size() != 4) continue;
    ++pieces;
    for (const double t : {0.0, 0.25, 0.5, 0.75, 1.0})
      EXPECT_NEAR(distanceOf(along(curve, t), center), 80, 0.01);
    swept += distanceOf(curve.points[0], curve.points[3]);
  }
  EXPECT_GE(pieces, 9);
  EXPECT_NEAR(swept, 80 * 1.5 * 3.14159265, 5);
}

TEST_F(PaperTest, ADrawingOverSeveralSheetsIsWholeOnThemTogether) {
  store.units = "M";
  store.endmarkers = 0;
  add({.type = 1, .x0 = 0, .y0 = 0, .x1 = 400, .y1 = 0});
  const ScaledPrint print{.scale = 1, .overlap = 10, .page = {"A4", PageOrientation::Portrait, 10}};
  const std::vector<std::string> pages = pagesOf(scaledPdf(print));
  ASSERT_EQ(document.plan.columns, 3);
  ASSERT_EQ(pages.size(), 3U);
  for (std::size_t sheet = 0; sheet < 3; ++sheet) {
    const Strokes strokes(pages[sheet]);
    const QPointF raised = raisedBy(strokes, document.plan);
    EXPECT_TRUE(
        holds(strokes.curves, placeOf(0, 0, sheet) + raised, placeOf(400, 0, sheet) + raised))
        << sheet;
  }
}

TEST_F(PaperTest, ThePageOfTheScreenKeepsThePictureWithoutLoss) {
  add({.type = 1, .x0 = 0, .y0 = 0, .x1 = 3, .y1 = 2});
  program.platform.prompts.files = {program.home("page.pdf")};
  mnuFilePrint_Click(application);
  const std::string pdf = program.home.read("page.pdf");
  EXPECT_TRUE(pdf.starts_with("%PDF"));
  EXPECT_EQ(pdf.find("/DCTDecode"), std::string::npos);
  EXPECT_NE(pdf.find("/Image"), std::string::npos);
}

TEST_F(PaperTest, ABitmapFileIsThatOfTheToolkit) {
  EXPECT_EQ(testing::numberOfFailure([] { bitmapFile(QImage()); }),
            FailureNumber::DeviceInputOutput);
  for (const QSize size : {QSize(1, 1), QSize(2, 3), QSize(3, 2), QSize(5, 4), QSize(64, 7)}) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) image.setPixel(x, y, qRgb(x * 3, y * 30, x + y));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(image.save(&buffer, "BMP"));
    EXPECT_EQ(bitmapFile(image), bytes.toStdString()) << size.width();
    EXPECT_EQ(bitmapFile(image.convertToFormat(QImage::Format_ARGB32_Premultiplied)),
              bytes.toStdString())
        << size.width();
  }
}

TEST_F(PaperTest, ThePageOfTheScreenCanBeRead) {
  store.drawingtitle = "Bracket";
  program.platform.prompts.files = {program.home("page.pdf")};
  mnuFilePrint_Click(application);
  QPdfDocument document_;
  ASSERT_EQ(document_.load(QString::fromStdString(program.home("page.pdf"))),
            QPdfDocument::Error::None);
  EXPECT_EQ(document_.pageCount(), 1);
  const QString text = document_.getAllText(0).text();
  EXPECT_TRUE(text.contains("Bracket")) << text.toStdString();
  EXPECT_TRUE(text.contains("Dimensions:")) << text.toStdString();
}

TEST_F(PaperTest, TheLongestLabelFitsItsColumn) {
  paper.begin(PrintOutput::Printer);
  EXPECT_LE(paper.textWidth("Dimensions: "), 1080);
  EXPECT_GT(paper.textWidth("Dimensions: "), 500);
}

TEST_F(PaperTest, APictureThatIsNoneIsAFailure) {
  paper.begin(PrintOutput::Printer);
  EXPECT_THROW(static_cast<void>(paper.pictureSize(program.home("none.bmp"))), RuntimeFailure);
  takeCallChain();
}

// Which tells the operator where the toolkit's own writing would stop without a word.
TEST_F(PaperTest, WhatAPreviewPrintsToAFileIsHandedOverOnce) {
  QWidget window;
  paper.setWindow(&window);
  paper.begin(PrintOutput::Printer);
  paper.line({0, 0, 1000, 1000}, 0);
  std::vector<std::string> paths;
  std::string content;
  paper.onFile = [&](const std::string& path, const std::string& pdf) {
    paths.push_back(path);
    content = pdf;
  };
  testing::whenModal([&](QWidget& dialog) {
    auto& preview = dynamic_cast<QPrintPreviewDialog&>(dialog);
    EXPECT_TRUE(paths.empty()) << "it shows the pages alone";
    preview.printer()->setOutputFileName("/nowhere/part.pdf");
    emit preview.paintRequested(preview.printer());
    preview.close();
  });
  EXPECT_TRUE(paper.showPreview());
  EXPECT_EQ(paths, std::vector<std::string>{"/nowhere/part.pdf"});
  EXPECT_TRUE(content.starts_with("%PDF"));
}

TEST_F(PaperTest, WithoutAWindowThereIsNoPrinter) {
  EXPECT_FALSE(paper.sendToPrinter());
  EXPECT_FALSE(paper.showPreview());
}

}  // namespace
}  // namespace tess
