// How well one colour shows on another, as the eye sees it.
// Owns: linear, luminance, contrast, bestContrast.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <algorithm>
#include <cmath>

namespace tess::testing {

namespace seen {

inline double linear(int channel) {
  const double part = channel / 255.0;
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

inline double luminance(QRgb color) {
  return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
         0.0722 * linear(qBlue(color));
}

}  // namespace seen

// From 1 to 21; letters want 4.5, edges and signs 3.
inline double contrast(QRgb one, QRgb other) {
  const auto [dark, light] = std::minmax({seen::luminance(one), seen::luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

// That of the pixel of a part of a picture that stands out most.
inline double bestContrast(const QImage& picture, const QRect& part, QRgb ground) {
  double best = 1;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      if (!picture.valid(x, y) || qAlpha(picture.pixel(x, y)) < 255) continue;
      best = std::max(best, contrast(picture.pixel(x, y), ground));
    }
  }
  return best;
}

}  // namespace tess::testing
