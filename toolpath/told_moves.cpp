// Rapids and plunges of a program.
#include "toolpath/told_moves.h"

#include <variant>

#include "core/runtime_failure.h"

namespace tess {
namespace {

// Collects the moves, each with where it began.
class MoveCollector : public MotionReader {
 public:
  void read(const MotionEvent& event) override {
    std::visit([this](const auto& told) { note(told); }, event);
  }

  std::vector<ToldMove> moves;

 private:
  void note(const RowStart& start) { row_ = start.row; }
  void note(const RapidMove& move) { add(move.reason, move.to); }
  void note(const PlungeMove& move) { add({}, move.to); }
  void note(const FeedMove& move) { at_ = move.to; }
  void note(const ArcMove& move) { at_ = move.to; }
  void note(const CycleRun& cycle) { at_ = cycle.place; }
  void note(const Dwell&) {}
  void note(const SpindleStop&) {}
  void note(const SpindleStart&) {}
  void note(const ProgramStart&) {}
  void note(const ToolChange&) {}
  void note(const ProgramEnd&) {}

  void add(std::optional<MoveReason> rapid, ToolPlace to) {
    moves.push_back({row_, rapid, at_.value_or(to), to});
    at_ = to;
  }

  int row_ = 0;
  std::optional<ToolPlace> at_;  // nothing while the tool may be anywhere
};

}  // namespace

std::vector<ToldMove> toldMoves(const std::function<void(MotionReader&)>& tell) {
  MoveCollector collector;
  try {
    tell(collector);
  } catch (const RuntimeFailure&) {
    takeCallChain();
  }
  return std::move(collector.moves);
}

}  // namespace tess
