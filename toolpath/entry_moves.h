// Ways of a tool into the material: what comes in front of each piece of a true path that does not
// begin on cleared ground.
//
// A piece whose start a row before it has cleared needs nothing. One that begins beside cleared
// ground is entered from there, by one row. The others get what the setup asks for: a ramp to and
// fro along the first row, a helix through the start, or the way from a drilled hole.
// Owns: entryStep, wantsEntries, EntryField, entriesArePossible, EntryPlanner, tellEntries.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/cancellable_work.h"
#include "toolpath/cam_context.h"
#include "toolpath/cleared_ground.h"
#include "toolpath/path_levels.h"
#include "toolpath/pocket_region.h"

namespace tess {

// The most that a tool goes straight down into material without its being a plunge: 0.01 inch, 0.25
// mm. In drawing units.
double entryStep(const DrawingStore& store);

// True paths, with a kind of entry that is not the plunge.
bool wantsEntries(const DrawingStore& store);

// What the ways may not touch.
struct EntryField {
  // True for a curve that lies free and keeps the distance from the walls.
  std::function<bool(const Curve&, double distance)> isClear;
  double distance = 0;                   // that ways off the path keep
  const PocketRegion* tracks = nullptr;  // of a pocket: loops along which a way may lead
  // The path was made for an engagement limit: it has its own ways from cleared ground, and begins
  // with a loop that a helix goes down round.
  bool isLimited = false;
};

// False, after a message titled `command`, when the setup's numbers make no entry.
bool entriesArePossible(CamContext& cam, const std::string& command);

// Puts the ways in between the rows of a command; without entries it puts none.
class EntryPlanner {
 public:
  // The rows will come in front of row `index` of the table.
  EntryPlanner(CamContext& cam, std::string command, EntryField field, int index,
               const Breathing& breathing);

  // The rows of a path, level by level in the order of cutting, with the ways in. What was planned
  // before is cleared then. Nothing, after a message, when the table cannot hold them.
  std::optional<std::vector<LevelRows>> entered(std::vector<LevelRows> levels);

  // Where another way in was taken than the one asked for: each once.
  const std::vector<std::string>& notes() const { return notes_; }

 private:
  CamContext& cam_;
  std::string command_;
  EntryField field_;
  int index_;
  const Breathing& breathing_;
  std::vector<PathRow> planned_;
  std::vector<std::string> notes_;
};

void tellEntries(CamContext& cam, const std::string& command,
                 const std::vector<std::string>& notes);

}  // namespace tess
