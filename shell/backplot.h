// Runs the cutter along the path in the time that the machine takes, or faster, while the panel of
// it is open.
// Owns: CutterPlace, Backplot.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "cnc/tool_walk.h"
#include "core/timers.h"
#include "drafting/change.h"
#include "shell/frmBackplot.h"

namespace tess {

struct PostDefinition;
struct Session;

struct CutterPlace {
  Point at;
  float radius = 0;
  bool isRapid = false;
  friend bool operator==(const CutterPlace&, const CutterPlace&) = default;
};

class Backplot : public ChangeListener {
 public:
  // All must outlive it.
  Backplot(const Session& session, const PostDefinition& definition, Changes& changes,
           Timers& timers, frmBackplot& panel);

  // The motions are worked out anew when the panel is looked at next.
  void markStale() { stale_ = true; }
  // Ends every entry point: the panel may have come or gone, and the path may be another.
  void settle();

  // Where the cutter is shown; nothing while it is not.
  std::function<void(const std::optional<CutterPlace>&)> onCutter;

 private:
  void changed(const KeptChange& change) override;
  void rewritten() override { markStale(); }

  void renew();
  void goTo(double seconds);
  void goToRow(int row);
  void step(int rows);
  void play(bool on);
  void tick();
  void nextSpeed();
  void show();
  void tell(const std::optional<CutterPlace>& place);

  const Session& session_;
  const PostDefinition& definition_;
  frmBackplot& panel_;
  Subscription subscription_;
  std::unique_ptr<Timer> tmrBackplot_;
  ToolWalk walk_;
  std::optional<CutterPlace> shown_;
  double seconds_ = 0;
  std::size_t speed_ = 1;  // index of the speeds
  bool stale_ = true;
  bool following_ = false;  // the slider is being set, not moved
};

}  // namespace tess
