// Rows of a DXF file on their way into the tables.
#include "import/dxf_rows.h"

#include <cstdint>
#include <limits>

#include "core/runtime_failure.h"
#include "core/text.h"
#include "geometry/float_points.h"

namespace tess {
namespace {

constexpr int kMaxRows = std::numeric_limits<std::int16_t>::max();

SegmentRow narrowed(const DxfRow& row) {
  return {.type = row.type,
          .attr = kOrdinaryClass,
          .x0 = narrow(row.x0),
          .y0 = narrow(row.y0),
          .x1 = narrow(row.x1),
          .y1 = narrow(row.y1),
          .xc = narrow(row.xc),
          .yc = narrow(row.yc)};
}

}  // namespace

int DxfRows::count() const {
  return change_ != nullptr ? change_->segments.count()
                            : first_ - 1 + static_cast<int>(seen_->size());
}

void DxfRows::append(const SegmentRow& row) {
  if (change_ != nullptr) {
    change_->segments.append(row, Entry::Unlogged);
  } else {
    seen_->push_back(row);
  }
}

bool DxfRows::add(const DxfRow& row) {
  if (stopped_) return false;
  if (count() == kMaxRows) {
    ++lost_;
    return false;
  }
  try {
    append(narrowed(row));
    return true;
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    stopped_ = !askToGoOn(failure);
    return false;
  }
}

void DxfRows::addUnconverted(std::string_view type) {
  const auto [name, isNew] = known_.insert(upperCased(type));
  if (isNew) unconverted_.push_back(*name);
}

std::string DxfRows::troubleOf(const RuntimeFailure& failure) const {
  if (entity_ == nullptr) return failure.description();
  return failure.description() + " (" + std::string(entity_->EntityType) + ", " + document_.file +
         " " + dxfPlace(document_, entity_->place) + ")";
}

bool DxfRows::askToGoOn(const RuntimeFailure& failure) {
  if (prompts_ == nullptr) {
    ++lost_;
    return true;
  }
  const Answer answer =
      prompts_->showMessage({.text = "Error Importing DXF File:  " + troubleOf(failure) +
                                     "\n\nWould you like to continue importing this file?",
                             .title = {},
                             .icon = MessageIcon::Question,
                             .buttons = MessageButtons::YesNo});
  return answer == Answer::Yes;
}

}  // namespace tess
