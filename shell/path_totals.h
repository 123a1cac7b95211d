// What the path of the drawing amounts to, in the window's status area: rows, length of cut, and
// the time that a program of it takes on the machine; and as a result after each change.
// Owns: PathTotals.
#pragma once

#include <string>

#include "drafting/change.h"

namespace tess {

struct PostDefinition;
struct Session;
class StatusBar;

class PathTotals : public ChangeListener {
 public:
  // All must outlive it.
  PathTotals(Session& session, const PostDefinition& definition, Changes& changes,
             StatusBar& statusBar);

  // What the time depends on besides the rows may have changed.
  void markStale() { stale_ = true; }
  // Every entry point ends with it: the text is made anew where the path, or what its time depends
  // on, has changed.
  void settle();

  // "412 path rows, 83.2 in, 12.5 min"; "No path" without rows. A path that no program can be made
  // of has rows alone.
  std::string text() const;

 private:
  void changed(const KeptChange& change) override;
  void rewritten() override { markStale(); }

  struct Figures {
    std::string rows, length, minutes;  // the later two with a comma before them
  };
  Figures figures() const;

  Session& session_;
  const PostDefinition& definition_;
  StatusBar& statusBar_;
  bool stale_ = true;
  bool worked_ = false;  // a command has changed the path: its figures are a result
  Subscription subscription_;
};

}  // namespace tess
