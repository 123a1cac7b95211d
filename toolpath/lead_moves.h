// Lead-in and lead-out: the moves by which the tool comes to a finish path and leaves it.
// Owns: LeadRequest, addLeadInOut.
#pragma once

#include "toolpath/cam_context.h"

namespace tess {

struct LeadRequest {
  bool closed = false;      // the path returns to its start
  int first = 0, last = 0;  // path rows of the path
  float z = 0, feed = 0;
};

// Inserts both leads; a closed path that begins with a line is made to begin at its midpoint. Not
// logged: the rows belong to the placement that asks for them.
void addLeadInOut(CamContext& cam, const LeadRequest& request);

}  // namespace tess
