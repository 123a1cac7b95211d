// What a round tool sweeps of a level, as it moves along lines and arcs: exact stretches of x.
// Owns: Span, SweptCurve, appendSwept, unite, rest, SweepByLevel.
#pragma once

#include <vector>

#include "geometry/curve.h"

namespace tess {

// Of one level, from a lower to a higher x.
struct Span {
  double from = 0, to = 0;
  double length() const { return to - from; }
};

// A way of the centre of a tool.
struct SweptCurve {
  Curve curve;
  double radius = 0;
};

// Appends what is swept at the level `y`: one stretch of a line, up to four of an arc, which may
// overlap.
void appendSwept(const SweptCurve& swept, double y, std::vector<Span>& spans);

// Puts them in order and joins those that overlap or touch.
void unite(std::vector<Span>& spans);

// Appends to `left` what the second takes from nothing of the first; both are united.
void rest(const std::vector<Span>& spans, const std::vector<Span>& taken, std::vector<Span>& left);

// Many ways, asked level by level upward.
class SweepByLevel {
 public:
  explicit SweepByLevel(std::vector<SweptCurve> curves);

  // The united stretches at `y`, which never falls from call to call. Replaces `spans`.
  void spansAt(double y, std::vector<Span>& spans);

 private:
  struct Way {
    SweptCurve swept;
    double low, high;  // the levels that it reaches
  };
  std::vector<Way> ways_;  // by their lowest levels
  std::vector<std::size_t> active_;
  std::size_t next_ = 0;
};

}  // namespace tess
