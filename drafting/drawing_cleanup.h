// Zero-length lines and duplicate rows: counting them and taking them out. Nothing of it is logged.
// Owns: areDuplicates, ArcHalves, countDuplicates, countZeroLength, removeDuplicates,
//       removeZeroLength.
#pragma once

#include "core/host.h"
#include "drafting/change.h"

namespace tess {

// True when two rows of one kind have exactly equal centres and exactly equal or exchanged ends.
// No tolerance applies.
bool areDuplicates(const SegmentRow& a, const SegmentRow& b);

// Two arcs of one sense between the same ends the other way round are the two parts of a circle.
enum class ArcHalves { AreDuplicates, AreApart };

// The rows that removeDuplicates would take out.
int countDuplicates(const DrawingStore& store);
// Lines whose length is exactly 0.
int countZeroLength(const DrawingStore& store);

// Removes of each pair the later row. Unless `deleteSilently`, the first pair asks the operator
// once; after No nothing is removed.
void removeDuplicates(Changes& changes, Prompts& prompts, bool deleteSilently,
                      ArcHalves halves = ArcHalves::AreDuplicates);
// The number of rows removed.
int removeZeroLength(Changes& changes);

}  // namespace tess
