// Holding tabs: bridges that a finish path round a part leaves, so that the part stays in place.
//
// Along a tab the path rises. Its width is measured between the two ends of what is cut deeper: the
// centre of the cutter stays up by a diameter more.
// Owns: TabRules, TabRamp, TabPass, RaisedRange, RaisedRun, raisedRuns, TabTrack, TabPlan, tabTop.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "geometry/curve_index.h"
#include "toolpath/way_by_length.h"

namespace tess {

struct TabRules {
  int number = 0;
  double spacing = 0;  // above 0: no two are farther apart along the path, whatever the number is
  double width = 0;    // of the bridge where it is narrowest
  double height = 0;   // above the deepest level
};

// How the path comes up on a tab and down again.
struct TabRamp {
  double angle = 0;  // in degrees; 0 is upright
  double step = 0;   // in Z, of the rows that make the ramp
};

// The way of a pass round the part, and what else tells where tabs may stand on it.
struct TabPass {
  std::vector<Curve> way;  // closed, begun where the pass begins
  double distance = 0;     // from the outline
  double toolRadius = 0;
  double startRoom = 0;  // beside the start of the way that leads need
  bool freeLeft = true;
};

// A stretch of a way that stays above a height.
struct RaisedRange {
  double from = 0, to = 0;  // by the length from the start of the way
  double top = 0;           // Z
};

// A piece of a way, cut at one Z.
struct RaisedRun {
  std::vector<Curve> curves;
  double z = 0;
};
// The way at a level, raised where a range is above it.
std::vector<RaisedRun> raisedRuns(const WayByLength& way, std::span<const RaisedRange> ranges,
                                  double z);

// Where tabs of one width may stand along one pass: on rows without a corner, away from where the
// pass begins and from all else that it cuts.
class TabTrack {
 public:
  TabTrack(TabPass pass, double width);

  // Where the middle of a tab may lie, by length; and whether all of it is straight.
  struct Zone {
    double from = 0, to = 0;
    bool isStraight = true;
    double length() const { return to - from; }
  };
  const std::vector<Zone>& straightZones() const { return straight_; }
  // Those on rows that turn but little; a straight row has one too.
  std::vector<Zone> smoothZones() const;

  const WayByLength& way() const { return way_; }
  // Between the centres at both ends of what is raised.
  double chord() const { return chord_; }
  // The nearest place of the way.
  double nearestTo(PlanePoint at) const;

  // What a tab in the middle of which the length is raises of the way; nothing where none can
  // stand.
  struct Lift {
    double from = 0, to = 0;
  };
  std::optional<Lift> liftAt(double middle) const;

 private:
  struct Run {
    double from = 0, to = 0;
    bool isStraight = true;
  };
  // What is longer to find out is found when it is first asked for.
  struct SmoothRun {
    Run run;
    bool isKnown = false;
    std::optional<Zone> zone = {};
  };
  std::vector<Run> runs() const;
  std::optional<Zone> zoneOf(const Run& run) const;
  const std::optional<Zone>& zoneOf(SmoothRun& smooth) const;
  bool isInZone(double middle) const;
  std::optional<Lift> symmetricLift(double middle) const;
  bool standsFree(const Lift& lift) const;
  bool isSharp(const Curve& curve) const;

  TabPass pass_;
  double width_;
  double chord_;
  WayByLength way_;
  CurveIndex index_;
  std::vector<Zone> straight_;
  mutable std::vector<SmoothRun> smooth_;
};

// The tabs of all passes round a part, placed on the innermost.
class TabPlan {
 public:
  // The passes from the outermost to the finished size, at least one.
  TabPlan(const std::vector<TabPass>& passes, double width);

  // How many the rules ask for; never more than kMost.
  static constexpr int kMost = 500;
  int wanted(const TabRules& rules) const;
  // Puts up to so many on the outline, on straight rows as far as these have room; how many it is.
  int place(int number);

  int count() const { return static_cast<int>(middles_.size()); }
  // The tab nearest to a place, from 0; -1 for none.
  int nearestTab(PlanePoint at) const;
  PlanePoint placeOf(int tab) const;
  // Takes a tab as near to a place as it may stand, or leaves it.
  void move(int tab, PlanePoint toward);

  // The ends of what the tabs raise of a pass, from 0.
  struct Bridge {
    PlanePoint from, to;
  };
  std::vector<Bridge> bridges(std::size_t pass) const;
  const WayByLength& way(std::size_t pass) const { return tracks_[pass].way(); }
  // For tabs whose top is at `top`, above a path whose deepest level is `floor`.
  std::vector<RaisedRange> ranges(std::size_t pass, double floor, double top,
                                  const TabRamp& ramp) const;

 private:
  std::vector<TabTrack::Lift> lifts(std::size_t pass) const;
  bool fits(double middle, int besides) const;
  std::optional<double> settled(const TabTrack::Zone& zone, double middle) const;
  int placeIn(const std::vector<TabTrack::Zone>& zones, int number);
  const TabTrack& guide() const { return tracks_.back(); }
  double apart() const;

  std::vector<TabTrack> tracks_;
  double width_;
  double toolRadius_;
  std::vector<double> middles_;  // on the guide
};

// Z of the top of tabs, as the table holds it.
double tabTop(const TabRules& rules, float floor);

}  // namespace tess
