// The names by which drawing rows are referred to: "Entity 5-Clockwise Arc".
// Owns: segmentName, segmentNumberIn.
#pragma once

#include <string>
#include <string_view>

namespace tess {

std::string segmentName(int sg, int segtype);
// The row that a name means, in any case; 0 for any other text.
int segmentNumberIn(std::string_view name);

}  // namespace tess
