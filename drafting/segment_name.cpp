// Names of rows.
#include "drafting/segment_name.h"

#include "core/number_text.h"
#include "core/row_words.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kNamePrefix[] = "Entity ";

}  // namespace

std::string segmentName(int sg, int segtype) {
  return kNamePrefix + std::to_string(sg) + "-" + segmentTypeWord(segtype);
}

int segmentNumberIn(std::string_view name) {
  const std::string upper = upperCased(name);
  const std::string prefix = upperCased(kNamePrefix);
  return upper.starts_with(prefix) ? parseInteger(upper.substr(prefix.size())) : 0;
}

}  // namespace tess
