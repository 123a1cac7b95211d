// Paper against what the toolkit takes for the same by itself: a page with the screen's picture,
// and 30000 lines to scale. Goals: one and a half times.
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <vector>

#include "benchmark/benchmark.h"

#include "bench/qt/desktop_bench_support.h"
#include "core/drawing_store.h"
#include "shell/printing.h"
#include "shell/qt/paper.h"

namespace tess {
namespace {

constexpr int kRows = 30000;
constexpr int kDotsPerInch = 1440;

// A PDF of one page with what `paint` puts on it, kept in memory.
template <typename Paint>
void writeBare(const Paint& paint) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QBuffer::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kDotsPerInch);
  QPainter painter(&writer);
  painter.setRenderHint(QPainter::LosslessImageRendering);
  paint(painter);
}

QImage screenPicture(BenchProgram& program) {
  return program.surface().drawing().picture().scaled(1000, 800);
}

void BarePage(benchmark::State& state) {
  BenchProgram program;
  scatterLines(program, kRows / 10, 12);
  const QImage picture = screenPicture(program);
  for (auto _ : state) {
    writeBare([&](QPainter& painter) { painter.drawImage(QRectF(0, 0, 10000, 8000), picture); });
  }
}

void ScreenPage(benchmark::State& state) {
  BenchProgram program;
  scatterLines(program, kRows / 10, 12);
  const QImage picture = screenPicture(program);
  Application& application = program.application();
  QtPaper paper;
  paper.takeScreenShot = [&] { return bitmapFile(picture); };
  DrawingPrinter printer(application.session, application.interaction.ScreenProxy, &paper);
  application.interaction.redraw.redrawscreen();
  for (auto _ : state) {
    paper.begin(PrintOutput::Printer);
    PrintPreviewProxy page(paper);
    printer.PrintPreviewScreenShotWorkAround(page);
    benchmark::DoNotOptimize(paper.pdf());
  }
}

void BareLines(benchmark::State& state) {
  BenchProgram program;
  scatterLines(program, kRows, 12);
  const DrawingStore& store = program.store();
  for (auto _ : state) {
    writeBare([&](QPainter& painter) {
      painter.setPen(QPen(Qt::black, 10, Qt::SolidLine, Qt::RoundCap));
      QList<QLineF> lines;
      for (int sg = 1; sg <= store.NumSegments; ++sg) {
        lines.append(QLineF(store.x0[sg] * kDotsPerInch, store.y0[sg] * kDotsPerInch,
                            store.x1[sg] * kDotsPerInch, store.y1[sg] * kDotsPerInch));
      }
      painter.drawLines(lines);
    });
  }
}

void ScaledLines(benchmark::State& state) {
  BenchProgram program;
  scatterLines(program, kRows, 12);
  program.store().endmarkers = 0;
  QtPaper paper;
  const ScaledPrint print{.scale = 1, .overlap = 10, .page = {.paper = "A0"}};
  for (auto _ : state) {
    paper.compose(scaledDocument(program.application().session, print));
    benchmark::DoNotOptimize(paper.pdf());
  }
}

BENCHMARK(BarePage)->Unit(benchmark::kMillisecond);
BENCHMARK(ScreenPage)->Unit(benchmark::kMillisecond);
BENCHMARK(BareLines)->Unit(benchmark::kMillisecond);
BENCHMARK(ScaledLines)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tess
