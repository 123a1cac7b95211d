// What the passes of a finish path go along, and what they must keep clear of.
// Owns: FinishWay, FinishField, finishFieldOf.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/cancellable_work.h"
#include "toolpath/cam_context.h"
#include "toolpath/corner_overcut.h"
#include "toolpath/finish_chain.h"

namespace tess {

// A path of one pass: curves without a gap.
struct FinishWay {
  std::vector<Curve> curves;
  bool closed = false;
  bool freeLeft = true;
};

// What a pass goes along, and what it must keep clear of.
class FinishField {
 public:
  virtual ~FinishField() = default;
  virtual std::vector<FinishWay> waysAt(double distance, const Breathing& breathing) const = 0;
  virtual bool isClear(const Curve& curve, double distance) const = 0;
  // Beside these ways, which keep the radius from the walls.
  virtual InsideCorners cornersBeside(const std::vector<FinishWay>& ways, double radius,
                                      double least) const = 0;
  // Its ways run round a part, which they would cut free.
  virtual bool runsRoundPart() const = 0;
};

// Of a chain that outlives it, begun at `start`, with the path on the side of `reference`. Null
// after a message, under this title, about an outline that is not sound.
std::unique_ptr<FinishField> finishFieldOf(CamContext& cam, const std::string& title,
                                           const FinishChain& chain, Point start, Point reference);

}  // namespace tess
