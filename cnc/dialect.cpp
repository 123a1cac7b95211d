// The words of a dialect that no definition has set.
#include "cnc/dialect.h"

namespace tess {
namespace {

// The cycles that controls of the ISO kind know.
constexpr int kFirstIsoCycle = 80;
constexpr int kLastIsoCycle = 89;

CycleNumbers isoCycles() {
  CycleNumbers numbers;
  for (int number = kFirstIsoCycle; number <= kLastIsoCycle; ++number) {
    numbers.set(static_cast<std::size_t>(number));
  }
  return numbers;
}

CycleNumbers keptBy(const Dialect& dialect) {
  if (dialect.cycles == CycleStyle::Expand) return {};
  if (dialect.cycleKeep) return *dialect.cycleKeep;
  return dialect.cycles == CycleStyle::Iso ? isoCycles() : CycleNumbers().set();
}

}  // namespace

Dialect::Dialect()
    : unitsInch("G70"),
      unitsMetric("G71"),
      startText{"G90", "G75"},
      toolText{"M06 T{TOOL}"},
      spindleText{"M03 S{SPEED}"},
      resetText{"M05", "M06 T{TOOL}"} {}

MotionRules motionRules(const Dialect& dialect) {
  return {.safeChange = dialect.safeChange || dialect.changePos,
          .changePos = dialect.changePos,
          .endLift = dialect.endLift,
          .returnsTool = !dialect.resetText.empty(),
          .plungeFrom = dialect.plungeFrom,
          .latheClear = dialect.latheClear,
          .keptCycles = keptBy(dialect),
          .cyclesReturn = dialect.cycles == CycleStyle::Iso};
}

}  // namespace tess
