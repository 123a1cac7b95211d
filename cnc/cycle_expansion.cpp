// The moves of each machine cycle.
#include "cnc/cycle_expansion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "core/runtime_failure.h"

namespace tess {
namespace {

// A damaged peck would fill the disk.
constexpr int kMostPecks = 10000;
// A depth of five pecks is not six because of the last digit of the increment.
constexpr float kPeckSlack = 1e-4F;

struct Kind {
  int number;
  void (*run)(const ExpandedCycle&, MotionReader&);
};

[[noreturn]] void refuse(const std::string& why) {
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {}, why);
}

ToolPlace atHeight(ToolPlace place, float z) {
  return {place.x, place.y, z};
}

float bottomOf(const ExpandedCycle& hole) {
  return -hole.cycle.depth;
}

void lift(const ExpandedCycle& hole, ToolPlace place, MotionReader& reader) {
  reader.read(RapidMove{atHeight(place, hole.cycle.place.z), MoveReason::Lift, MovedAxes::Height});
}

void feed(ToolPlace from, float z, float rate, MotionReader& reader) {
  reader.read(FeedMove{.from = from, .to = atHeight(from, z), .feed = rate});
}

// Across at the safe height, and down as far as rapid speed may go; where the tool stands then.
ToolPlace approach(const ExpandedCycle& hole, ToolPlace place, MotionReader& reader) {
  reader.read(RapidMove{place, MoveReason::Travel, MovedAxes::Place});
  if (!hole.plungeFrom || *hole.plungeFrom >= place.z) return place;
  const ToolPlace near = atHeight(place, *hole.plungeFrom);
  reader.read(RapidMove{near, MoveReason::Descent});
  return near;
}

void dwell(const ExpandedCycle& hole, MotionReader& reader) {
  if (hole.cycle.dwell > 0) reader.read(Dwell{hole.cycle.dwell});
}

// How many steps of the increment lead to the depth; without an increment it is one.
int stepsOf(const ExpandedCycle& hole) {
  const float increment = std::abs(hole.cycle.increment);
  if (!(increment > 0)) return 1;
  const float steps = std::ceil(hole.cycle.depth / increment - kPeckSlack);
  if (!(steps <= kMostPecks)) {
    refuse("A cycle of more than " + std::to_string(kMostPecks) + " pecks");
  }
  return std::max(1, static_cast<int>(steps));
}

// The depth of a step, from 1; the last one is the bottom.
float depthOf(const ExpandedCycle& hole, int step, int steps) {
  if (step == steps) return bottomOf(hole);
  return -std::abs(hole.cycle.increment) * static_cast<float>(step);
}

void feedDown(const ExpandedCycle& hole, MotionReader& reader) {
  const ToolPlace top = approach(hole, hole.cycle.place, reader);
  feed(top, bottomOf(hole), hole.cycle.feed, reader);
  dwell(hole, reader);
}

void drill(const ExpandedCycle& hole, MotionReader& reader) {
  feedDown(hole, reader);
  lift(hole, hole.cycle.place, reader);
}

void ream(const ExpandedCycle& hole, MotionReader& reader) {
  feedDown(hole, reader);
  feed(atHeight(hole.cycle.place, bottomOf(hole)), hole.cycle.place.z, hole.cycle.feed, reader);
}

void bore(const ExpandedCycle& hole, MotionReader& reader) {
  if (!(hole.spindlespeed > 0)) {
    refuse("The cycle stops the spindle, and tool " + std::to_string(hole.tool) +
           " has no speed to start it again");
  }
  feedDown(hole, reader);
  reader.read(SpindleStop{});
  lift(hole, hole.cycle.place, reader);
  reader.read(SpindleStart{hole.tool});
}

void peck(const ExpandedCycle& hole, MotionReader& reader) {
  const ToolPlace place = hole.cycle.place;
  const int steps = stepsOf(hole);
  ToolPlace top = approach(hole, place, reader);
  for (int step = 1; step <= steps; ++step) {
    const float z = depthOf(hole, step, steps);
    feed(top, z, hole.cycle.feed, reader);
    if (step == steps) dwell(hole, reader);
    lift(hole, place, reader);
    if (step == steps) return;
    top = atHeight(place, std::min(z + hole.clearance, place.z));
    reader.read(RapidMove{top, MoveReason::Descent});
  }
}

// To and fro, a step deeper at each end.
void mill(const ExpandedCycle& slot, MotionReader& reader) {
  const ToolPlace finish = slot.cycle.place;
  const int steps = stepsOf(slot);
  ToolPlace from = slot.start;
  ToolPlace to = finish;
  ToolPlace at = approach(slot, from, reader);
  for (int step = 1; step <= steps; ++step) {
    const float z = depthOf(slot, step, steps);
    const float rate = slot.plungerate > 0 ? slot.plungerate : slot.cycle.feed;
    reader.read(PlungeMove{atHeight(at, z), rate});
    at = atHeight(to, z);
    reader.read(FeedMove{.from = atHeight(from, z), .to = at, .feed = slot.cycle.feed});
    std::swap(from, to);
  }
  lift(slot, at, reader);
  if (steps % 2 == 0) reader.read(RapidMove{finish, MoveReason::Travel});
}

constexpr std::array kKinds{Kind{79, mill}, Kind{81, drill}, Kind{82, drill}, Kind{83, peck},
                            Kind{85, ream}, Kind{86, bore},  Kind{89, ream}};

const Kind* kindOf(int number) {
  const auto kind = std::ranges::find(kKinds, number, &Kind::number);
  return kind == kKinds.end() ? nullptr : &*kind;
}

}  // namespace

bool isExpandable(int number) {
  return kindOf(number) != nullptr;
}

void expandCycle(const ExpandedCycle& hole, MotionReader& reader) {
  const Kind* const kind = kindOf(hole.cycle.number);
  if (kind == nullptr) {
    refuse("Cycle " + std::to_string(hole.cycle.number) +
           " cannot be written as moves, and the post-processor definition does not keep it");
  }
  kind->run(hole, reader);
}

}  // namespace tess
