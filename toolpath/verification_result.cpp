// What a verification came to.
#include "toolpath/verification_result.h"

#include "core/count_text.h"
#include "core/drawing_store.h"

namespace tess {

int verifiedRows(const DrawingStore& store) {
  int rows = 0;
  for (int sg = 1; sg <= store.NumSegments; ++sg) rows += store.segattr[sg] == kVerifiedRow ? 1 : 0;
  return rows;
}

std::string verificationResult(const std::string& what, int rows) {
  if (rows > 0) return what + " verified, " + countText(rows, "row");
  return what + " not verified: the outline does not close";
}

std::string nothingToRough() {
  return "Nothing to rough: Select Contiguous takes an outline, then Verify/Accept Pocket";
}

std::string nothingToVerify() {
  return "Nothing to verify: select the rows of one outline first";
}

}  // namespace tess
