// Leads that cut into the path they belong to: finding them and shortening them.
// Owns: checkLeadGouge, leadQuestion, LeadEnd, fitLeadLength.
#pragma once

#include <optional>

#include "core/host.h"

namespace tess {

class Changes;
struct DrawingStore;

// Where the lead-in `first` or the lead-out `last` meets a row between them: the shortest distance
// from the path to such a place. None where they meet no row.
std::optional<float> checkLeadGouge(const DrawingStore& store, int first, int last);

// Whether leads of that length are welcome, when those asked for cut into something.
Message leadQuestion(float length);

// Shortens a line lead to `length` by moving one of its ends. Other rows stay.
enum class LeadEnd { Start, End };
void fitLeadLength(Changes& changes, int ps, float length, LeadEnd moved);

}  // namespace tess
