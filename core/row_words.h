// The words by which the operator knows the kinds of drawing rows.
// Owns: segmentTypeWord.
#pragma once

namespace tess {

// "" for a kind that has none.
const char* segmentTypeWord(int segtype);

}  // namespace tess
