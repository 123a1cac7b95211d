// Scan-line roughing by plain passes over all rows and by exchange sorts: what the quick way must
// give, row for row. Indices run from 1.
// Owns: PlainScan.
#pragma once

#include <cmath>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "core/rounding.h"
#include "geometry/entity.h"
#include "geometry/float_angles.h"
#include "geometry/float_circles.h"
#include "geometry/row_entity.h"

namespace tess::testing {

struct PlainScan {
  enum class Style { Horizontal, Vertical, Lathe };

  const DrawingStore& store;
  Style style = Style::Horizontal;
  float spacing = 0;

  // Entry 0 is the bound.
  std::vector<float> fixed = {0}, along = {0};
  int pointcount = 0;
  int exchanges = 0;  // of all sorts

  // ---- Collecting and sorting

  bool collect() {
    if (!findBound()) return false;
    float scan = narrow(fixed[0] - spacing / 2.0);
    for (int scans = 1;; ++scans) {
      scan = narrow(static_cast<double>(scan) + spacing);
      const int before = pointcount;
      for (int sg = 1; sg <= store.NumSegments; ++sg) scanRow(sg, scan);
      if (pointcount % 2 != 0) drop();
      if (pointcount == before && (pointcount > 0 || scans == 1000)) return true;
    }
  }

  void sort() {
    for (bool again = true; again;) {
      again = false;
      for (int i = 1; i < pointcount; ++i) {
        if (f(i) != f(i + 1) || !(a(i) > a(i + 1))) continue;
        std::swap(a(i), a(i + 1));
        again = noted();
      }
    }
  }

  // ---- Placing: the cuts of the horizontal and the vertical style, in entries i and i + 1

  template <typename Place>
  void place(int mode, Place placeSpan) {
    const int forward = style == Style::Vertical ? -1 : 1;
    int direction = mode == 2 ? -forward : forward;
    float last = fixed[0];
    for (int i = 1; i < pointcount; i += 2) {
      if (i == 1 || f(i) != last) {
        if (mode == 1) direction = forward;
        if (mode == 2) direction = -forward;
        if (mode == 3 && f(i) != last && i >= 2) direction = -direction;
        orderUpward(i, direction);
        orientUpward(i, direction);
      }
      placeSpan(i);
      last = f(i + 1);
    }
  }

  // The cuts of the lathe style alone, without the ways between them.
  template <typename Place>
  void placeDownward(int mode, Place placeSpan) {
    int direction = mode == 2 ? -1 : 1;
    float last = fixed[0];
    for (int i = pointcount - 1; i >= 1; i -= 2) {
      if (i == 1 || f(i) != last) {
        if (mode == 1) direction = 1;
        if (mode == 2) direction = -1;
        if (mode == 3 && f(i) != last && i >= 2) direction = -direction;
        orderDownward(i, direction);
        orientDownward(i, direction);
      }
      placeSpan(i);
      last = f(i + 1);
    }
  }

  Point point(int i) const {
    const auto k = static_cast<std::size_t>(i);
    return style == Style::Vertical ? Point{fixed[k], along[k]} : Point{along[k], fixed[k]};
  }

 private:
  float& f(int i) { return fixed[static_cast<std::size_t>(i)]; }
  float& a(int i) { return along[static_cast<std::size_t>(i)]; }
  bool noted() { return ++exchanges > 0; }

  float fixedOf(Point p) const { return style == Style::Vertical ? p.x : p.y; }
  float alongOf(Point p) const { return style == Style::Vertical ? p.y : p.x; }

  bool isWorking(int sg) const {
    const int kind = store.segattr[sg] % 100;
    return kind == 10 || kind == 12;
  }

  bool findBound() {
    float best = 1e6F;
    const auto tryPoint = [&](float at, float other) {
      if (!(at < best)) return;
      best = fixed[0] = at;
      along[0] = other;
    };
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      if (!isWorking(sg)) continue;
      const Entity row = segmentEntity(store, sg);
      if (row.type == 1) {
        tryPoint(fixedOf(row.start), alongOf(row.start));
        tryPoint(fixedOf(row.end), alongOf(row.end));
      } else if (row.type == 2 || row.type == 3) {
        const float radius = distance(row.start, row.center);
        tryPoint(narrow(static_cast<double>(fixedOf(row.center)) - radius), alongOf(row.center));
      }
    }
    return best != 1e6F;
  }

  void add(float scan, float at) {
    ++pointcount;
    fixed.push_back(scan);
    along.push_back(at);
  }
  void drop() {
    --pointcount;
    fixed.pop_back();
    along.pop_back();
  }

  void scanRow(int sg, float scan) {
    if (!isWorking(sg)) return;
    const Entity row = segmentEntity(store, sg);
    const double test = style == Style::Horizontal ? scan : roundTo(scan, 6) + 0.000073;
    if (row.type == 1) scanLine(row, scan, test);
    if (row.type == 2 || row.type == 3) scanArc(row, scan, test);
  }

  void scanLine(const Entity& row, float scan, double test) {
    const float first = fixedOf(row.start);
    const float second = fixedOf(row.end);
    const bool between = (test > first && test < second) || (test > second && test < first);
    if (!between) return;
    if (alongOf(row.start) == alongOf(row.end)) return add(scan, alongOf(row.start));
    const double m = chordSlope(row.start, row.end);
    const double b = row.start.y - m * row.start.x;
    add(scan, narrow(style == Style::Vertical ? m * scan + b : (scan - b) / nonZero(m)));
  }

  void scanArc(const Entity& row, float scan, double test) {
    const ArcAngles angles = arcRadiusAndAngles(row.start, row.end, row.center);
    const Circle circle{row.center, angles.radius};
    const float tol = store.cfg_tolerance;
    const bool vertical = style == Style::Vertical;
    const AxisHits hits =
        vertical ? verticalCircle(test, circle, tol) : horizontalCircle(test, circle, tol);
    if (!hits) return;
    float first = hits.first;
    float second = hits.second;
    const auto hit = [&](float at) {
      return vertical ? Point{narrow(test), at} : Point{at, narrow(test)};
    };
    const auto on = [&](float at) {
      return angleInSweep(vectorAngle(row.center, hit(at)), vectorAngle(row.center, row.start),
                          vectorAngle(row.center, row.end), row.type);
    };
    const int value = (on(first) ? 1 : 0) + (on(second) ? 2 : 0);
    if (value == 1) add(scan, first);
    if (value == 2) add(scan, second);
    if (value != 3) return;
    const bool touch = std::abs(static_cast<double>(first) - second) <= tol;
    if (touch && !vertical) return;
    if (distance(row.start, hit(second)) < distance(row.start, hit(first))) {
      std::swap(first, second);
    }
    add(scan, first);
    if (!touch) add(scan, second);
  }

  static int sign(double value) { return value > 0 ? 1 : value < 0 ? -1 : 0; }
  double middle(int i) { return (static_cast<double>(a(i)) + a(i + 1)) / 2; }
  // The spans at i and j stand the wrong way round.
  bool misplaced(int i, int j, int direction) { return sign(middle(j) - middle(i)) == -direction; }
  void exchangeSpans(int i, int j) {
    std::swap(a(i), a(j));
    std::swap(a(i + 1), a(j + 1));
  }
  bool orient(int i, int direction) {
    if (sign(static_cast<double>(a(i + 1)) - a(i)) != -direction) return false;
    std::swap(a(i), a(i + 1));
    return noted();
  }

  void orderUpward(int i, int direction) {
    for (bool again = true; again;) {
      again = false;
      for (int j = i; j + 2 < pointcount && f(j + 2) == f(i); j += 2) {
        if (!misplaced(j, j + 2, direction)) continue;
        exchangeSpans(j, j + 2);
        again = noted();
      }
    }
  }
  void orientUpward(int i, int direction) {
    for (bool again = true; again;) {
      again = false;
      for (int j = i; j < pointcount && f(j) == f(i); j += 2) again |= orient(j, direction);
    }
  }
  void orderDownward(int i, int direction) {
    for (bool again = true; again;) {
      again = false;
      for (int j = i; j >= 3 && f(j - 2) == f(i); j -= 2) {
        if (!misplaced(j, j - 2, direction)) continue;
        exchangeSpans(j, j - 2);
        again = noted();
      }
    }
  }
  void orientDownward(int i, int direction) {
    for (bool again = true; again;) {
      again = false;
      for (int j = i; j >= 3 && f(j) == f(i); j -= 2) again |= orient(j, direction);
    }
  }
};

}  // namespace tess::testing
