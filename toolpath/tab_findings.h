// Tabs as they stand: measured between what is cut at their floor.
// Owns: TabFinding, findTabs.
#pragma once

#include <vector>

namespace tess {

struct DrawingStore;
struct ProofGroup;

struct TabFinding {
  int group = 0;
  double x = 0, y = 0;           // its middle
  double width = 0, height = 0;  // as it stands; 0 for one that is cut away
  double askedWidth = 0, askedHeight = 0;

  bool standsAsAsked() const;
};

// Those of all jobs. Of very many on one another only the first are measured.
std::vector<TabFinding> findTabs(const DrawingStore& store, const std::vector<ProofGroup>& groups);

}  // namespace tess
