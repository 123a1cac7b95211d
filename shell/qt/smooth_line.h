// Solid lines with smooth edges, straight into the pixels of a picture. The toolkit's own way takes
// many times as long for the short lines that drawings are made of.
// Owns: SmoothLines.
#pragma once

#include <QImage>
#include <QLineF>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tess {

// Solid lines with smooth edges for one picture. Its pixels come from afar where it is large, and
// lines are quicker worked out side by side: each waits until some others were added, and its own
// pixels have arrived meanwhile.
class SmoothLines {
 public:
  // The picture has the format RGB32 whenever lines are added.
  explicit SmoothLines(QImage& picture) : picture_(picture) {}
  SmoothLines(const SmoothLines&) = delete;
  SmoothLines& operator=(const SmoothLines&) = delete;

  // Blends an opaque line of so many pixels' width into the picture. Ends are square and reach out
  // by half of the width; 0.5 is the middle of the first pixel. What lies outside the picture is
  // cut off. The line must not lead far outside.
  void add(const QLineF& line, double width, QRgb ink) {
    added_[count_] = {line, width, ink};
    if (++count_ == kMost) step();
  }
  // Blends what waits, in the order in which it was added. Before the picture is read, painted on
  // by others, copied or replaced.
  void finish();

 private:
  struct Line {
    QLineF ends;
    double width = 0;
    QRgb ink = 0;
  };
  // Along the axis in which it is longer a line crosses column after column. Positions are in
  // 65536ths of a pixel, shares of a column's width in 256ths.
  struct Columns {
    QRgb* first = nullptr;                         // the pixel of the first column in row 0
    std::ptrdiff_t alongStep = 0, acrossStep = 0;  // from a pixel to its neighbour
    int count = 0, rows = 0;
    std::int32_t low = 0, slope = 0, length = 0;  // the stretch in the first column, and its rise
    std::uint32_t firstShare = 0, lastShare = 0;
    QRgb ink = 0;
    bool isInner = false;  // all that the line may touch lies in the picture
  };
  struct Pixels;
  using Ways = std::array<Pixels, 2>;  // level, steep
  Ways waysOf() const;
  static Columns columnsOf(const Ways& ways, const Line& line);
  static void fetch(const Columns& line);
  static void blend(const Columns& line);
  void step();

  static constexpr std::size_t kMost = 16;
  QImage& picture_;
  std::array<Line, kMost> added_;
  std::size_t count_ = 0;
  std::array<Columns, kMost> fetched_;
  std::size_t fetchedCount_ = 0;
};

}  // namespace tess
