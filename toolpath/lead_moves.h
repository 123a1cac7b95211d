// Lead-in and lead-out: the moves by which the tool comes to a finish path and leaves it.
// Owns: LeadOrder, addLeadInOut, checkLeadGouge, kFitStart, kFitEnd, fitLeadLength.
#pragma once

#include <optional>

#include "toolpath/cam_desk.h"

namespace tess {

struct LeadOrder {
  bool closed = false;      // the path returns to its start
  int first = 0, last = 0;  // path rows of the path
  float z = 0, feed = 0;
};

// Inserts both leads; a closed path that begins with a line is made to begin at its midpoint. Not
// logged: the rows belong to the placement that asks for them.
void addLeadInOut(CamDesk& cam, const LeadOrder& order);

// Where the lead-in `first` or the lead-out `last` meets a row between them: the shortest way from
// the path to such a place. None where they meet no row.
std::optional<float> checkLeadGouge(const DrawingStore& store, int first, int last);

// Shortens a line lead to `length`: mode 1 moves its start, mode 2 its end. Other rows stay.
inline constexpr int kFitStart = 1;
inline constexpr int kFitEnd = 2;
void fitLeadLength(Changes& changes, int ps, float length, int mode);

}  // namespace tess
