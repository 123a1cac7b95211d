// Images of drawing rows.
#include "drafting/row_images.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "drafting/row_finder.h"
#include "drafting/selection.h"

namespace tess {
namespace {

bool takesPart(const SegmentRow& row, bool selectedOnly) {
  return !selectedOnly || isSelectedOrdinary(row.attr);
}

bool addCopies(Change& change, const DrawingStore& store, bool selectedOnly,
               const RowImage& image) {
  std::vector<RowInsertion<SegmentRow>> insertions;
  const int end = change.segments.count() + 1;
  for (const SegmentRow& row : imagesOf(store, selectedOnly, image)) {
    insertions.push_back({end, row});
  }
  change.segments.insert(insertions);
  return change.keep();
}

// The table while rows give way to their images one by one: the rows that there were, then the
// images as they came.
class Exchange {
 public:
  Exchange(const DrawingStore& store, const ImageRequest& request, const RowImage& image)
      : selectedOnly_(request.selectedOnly),
        image_(image),
        originals_(static_cast<std::size_t>(store.NumSegments)),
        finder_(store.cfg_tolerance, 2 * originals_) {
    rows_.reserve(2 * originals_);
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      rows_.push_back(segmentRow(store, sg));
      finder_.add(rows_.size() - 1, rows_.back());
    }
    gone_.resize(originals_);
  }

  void run() {
    for (std::size_t at = 0; at < originals_; ++at) {
      if (takesPart(rows_[at], selectedOnly_)) exchange(at);
    }
  }

  bool isGone(std::size_t place) const { return gone_[place]; }

  // The images that have not gone again.
  std::vector<SegmentRow> images() const {
    std::vector<SegmentRow> left;
    for (std::size_t place = originals_; place < rows_.size(); ++place) {
      if (!gone_[place]) left.push_back(rows_[place]);
    }
    return left;
  }

 private:
  // A row in whose place another one went stands for that from then on: it has its turn again when
  // the other one had yet to have its own, and else has had it.
  void exchange(std::size_t at) {
    while (!gone_[at]) {
      const std::size_t went = takeMatch(at);
      gone_[went] = true;
      gone_.push_back(false);
      rows_.push_back(image_(rows_[at]));
      finder_.add(rows_.size() - 1, rows_.back());
      const bool hadYetItsTurn = went < originals_ && takesPart(rows_[went], selectedOnly_);
      if (!hadYetItsTurn) return;
    }
  }

  // A row that is no number matches nothing, not even itself.
  std::size_t takeMatch(std::size_t at) {
    clsSegment record;
    record.SetSegment(rows_[at], "D", /*start=*/false);
    const auto rowAt = [this](std::size_t place) -> const SegmentRow& { return rows_[place]; };
    const std::size_t match = finder_.takeLast(record, rowAt);
    return match == RowFinder::kNone ? at : match;
  }

  const bool selectedOnly_;
  const RowImage& image_;
  const std::size_t originals_;
  RowFinder finder_;
  std::vector<SegmentRow> rows_;
  std::vector<bool> gone_;
};

bool replaceByImages(Change& change, const DrawingStore& store, const ImageRequest& request,
                     const RowImage& image) {
  Exchange exchange(store, request, image);
  exchange.run();
  // As many images are left as rows have gone, since each step took one and gave one.
  const std::vector<SegmentRow> images = exchange.images();
  auto next = images.begin();
  change.segments.replaceAtEnd([&](int sg, SegmentRow& row) {
    if (!exchange.isGone(static_cast<std::size_t>(sg) - 1)) return false;
    row = *next++;
    return true;
  });
  return change.keep();
}

}  // namespace

std::vector<SegmentRow> imagesOf(const DrawingStore& store, bool selectedOnly,
                                 const RowImage& image) {
  std::vector<SegmentRow> images;
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const SegmentRow row = segmentRow(store, sg);
    if (takesPart(row, selectedOnly)) images.push_back(image(row));
  }
  return images;
}

bool addImages(Changes& changes, const ImageRequest& request, const RowImage& image) {
  Change change(changes);
  return request.copies ? addCopies(change, changes.store, request.selectedOnly, image)
                        : replaceByImages(change, changes.store, request, image);
}

}  // namespace tess
