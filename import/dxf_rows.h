// Where drawing rows go that are made of a DXF file's entities, and what could not be made into
// rows. A row that fails is a question to the operator; a full drawing keeps what it can hold.
// Owns: DxfRow, DxfRows.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/host.h"
#include "drafting/change.h"
#include "import/dxf_document.h"

namespace tess {

// A drawing row before it is narrowed to the 32 bits of the tables; centre 0 for a line.
struct DxfRow {
  int type = kLine;
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0, xc = 0, yc = 0;
};

class DxfRows {
 public:
  // The rows become part of `change`.
  DxfRows(Change& change, Prompts& prompts, const DxfDocument& document)
      : change_(&change),
        prompts_(&prompts),
        document_(document),
        first_(change.segments.count() + 1) {}

  // For a look beforehand: the rows go to `seen`, as if behind `before` others. Nothing is asked;
  // what fails counts as lost.
  DxfRows(std::vector<SegmentRow>& seen, int before, const DxfDocument& document)
      : seen_(&seen), document_(document), first_(before + 1) {}

  // The entity that the following rows come from, for messages.
  void begin(const DxfEntity& entity) { entity_ = &entity; }
  // Appends a row of class 8, unlogged; false when it could not. A coordinate that is no 32-bit
  // number asks whether to go on; a No stops: from then on nothing is added. Rows that the drawing
  // has no room for are counted.
  bool add(const DxfRow& row);
  // Takes note that there would be more rows than are going to be added.
  void addMore() { more_ = true; }
  // Takes note of an entity type that makes no rows.
  void addUnconverted(std::string_view type);

  bool stopped() const { return stopped_; }
  int lost() const { return lost_; }    // rows without room
  bool more() const { return more_; }   // beyond those
  int first() const { return first_; }  // the first new row
  // Upper-cased, each once, in the order of their appearance.
  const std::vector<std::string>& unconverted() const { return unconverted_; }

 private:
  bool askToGoOn(const RuntimeFailure& failure);
  std::string troubleOf(const RuntimeFailure& failure) const;

  int count() const;
  void append(const SegmentRow& row);

  Change* change_ = nullptr;  // or
  std::vector<SegmentRow>* seen_ = nullptr;
  Prompts* prompts_ = nullptr;  // with a change
  const DxfDocument& document_;
  const int first_;
  const DxfEntity* entity_ = nullptr;
  bool stopped_ = false;
  int lost_ = 0;
  bool more_ = false;
  std::vector<std::string> unconverted_;
  std::set<std::string> known_;  // the same, to be found among however many
};

}  // namespace tess
