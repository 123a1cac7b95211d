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
    added_.startX[count_] = static_cast<float>(line.x1());
    added_.startY[count_] = static_cast<float>(line.y1());
    added_.endX[count_] = static_cast<float>(line.x2());
    added_.endY[count_] = static_cast<float>(line.y2());
    added_.width[count_] = static_cast<float>(width);
    added_.ink[count_] = ink;
    if (++count_ == kMost) step();
  }
  // Blends what waits, in the order in which it was added. Before the picture is read, painted on
  // by others, copied or replaced.
  void finish();

 private:
  static constexpr std::size_t kMost = 16;
  template <typename T>
  using Each = std::array<T, kMost>;

  // One array for each figure, since the processor works out several lines at once.
  struct Lines {
    Each<float> startX{}, startY{}, endX{}, endY{}, width{};
    Each<QRgb> ink{};
  };
  // Along the axis in which it is longer a line crosses column after column. Positions are in
  // 65536ths of a pixel, shares of a column's width in 256ths.
  struct Columns {
    Each<std::int32_t> isSteep{};                 // its columns are the picture's rows
    Each<std::int32_t> first{}, last{};           // none where the last is the lesser one
    Each<std::int32_t> low{}, slope{}, length{};  // the stretch in the first, and its rise
    Each<std::int32_t> firstShare{}, lastShare{};
    Each<std::int32_t> isInner{};  // all that the line may touch lies in the picture
    Each<QRgb> ink{};
  };
  struct Pixels;
  using Ways = std::array<Pixels, 2>;  // level, steep
  Ways waysOf() const;
  static Columns columnsOf(const Lines& lines, const QSize& picture);
  static void fetch(const Ways& ways, const Columns& columns, std::size_t at);
  static void blend(const Ways& ways, const Columns& columns, std::size_t at);
  void step();

  QImage& picture_;
  Lines added_;
  std::size_t count_ = 0;
  Columns fetched_;
  std::size_t fetchedCount_ = 0;
};

}  // namespace tess
