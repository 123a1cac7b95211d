// Ways of a tool into the material: what comes in front of each piece of a true path that does not
// begin on cleared ground.
//
// A piece whose start a row before it has cleared needs nothing. One that begins beside cleared
// ground is entered from there, by one row. The others get what the setup asks for: a ramp to and
// fro along the first row, a helix through the start, or the way from a drilled hole.
// Owns: entryStep, wantsEntries, EntryField, EntryPlacing.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "toolpath/cam_context.h"
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
};

// Places rows at levels, each piece of them with its way in.
class EntryPlacing {
 public:
  EntryPlacing(CamContext& cam, std::string command, EntryField field);

  // False, after a message, when the setup's numbers make no entry.
  bool isPossible() const;

  // The same rows at all levels, as placeLevels puts them; without entries nothing else. False,
  // after a message and with nothing placed, when the table cannot hold the rows.
  bool place(Change& change, int index, std::span<const Entity> rows,
             std::span<const PathLevel> levels);

  // Tells where another way in was taken than the one asked for.
  void tell() const;

 private:
  bool refuse(const std::string& text) const;

  CamContext& cam_;
  std::string command_;
  EntryField field_;
  std::vector<std::string> notes_;  // each once
};

}  // namespace tess
