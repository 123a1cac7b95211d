// Images of drawing rows.
#include "drafting/row_images.h"

#include <algorithm>

#include "core/drawing_store.h"
#include "core/row_columns.h"
#include "drafting/row_finder.h"
#include "drafting/selection.h"
#include "drafting/twin_search.h"

namespace tess {
namespace {

bool takesPart(const SegmentRow& row, bool selectedOnly) {
  return !selectedOnly || isSelectedOrdinary(row.attr);
}

template <class Takes>
std::vector<SegmentRow> rowsOf(const DrawingStore& store, const Takes& takes) {
  std::vector<SegmentRow> rows;
  const SegmentColumns columns(store);
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const SegmentRow row = columns.row(sg);
    if (!takes(row)) continue;
    if (rows.empty()) rows.reserve(static_cast<std::size_t>(store.NumSegments));
    rows.push_back(row);
  }
  return rows;
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

// The rows of a table that give way to their images, and those that do not.
struct Parties {
  Parties(const DrawingStore& store, bool selectedOnly, const RowImage& image)
      : taking(rowsOf(store, [&](const SegmentRow& row) { return takesPart(row, selectedOnly); })),
        others(rowsOf(store, [&](const SegmentRow& row) { return !takesPart(row, selectedOnly); })),
        images(taking) {
    image(images);
    TwinSearch twins(store.cfg_tolerance, taking);
    imageMayMatch = twins.meet(images);
    otherMayMatch = twins.meet(others);
    mayMatch = twins.matched();
  }

  std::vector<SegmentRow> taking, others, images;
  std::vector<bool> mayMatch, otherMayMatch, imageMayMatch;
};

// The table while rows give way to their images one by one: the rows that there were, then the
// images as they came.
class Exchange {
 public:
  Exchange(const DrawingStore& store, bool selectedOnly, const Parties& parties)
      : parties_(parties),
        originals_(static_cast<std::size_t>(store.NumSegments)),
        finder_(store.cfg_tolerance, 2 * originals_) {
    std::size_t other = 0;
    const SegmentColumns columns(store);
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      const SegmentRow row = columns.row(sg);
      const bool takes = takesPart(row, selectedOnly);
      places_.push_back(
          {.takes = takes,
           .mayMatch = takes ? parties.mayMatch[taking_.size()] : parties.otherMayMatch[other++]});
      if (takes) taking_.push_back(rows_.size());
      add(row, places_.back().mayMatch);
    }
  }

  void run() {
    for (std::size_t image = 0; image < taking_.size(); ++image) exchange(taking_[image], image);
  }

  bool isGone(std::size_t place) const { return places_[place].gone; }

  // The images that have not gone again.
  std::vector<SegmentRow> images() const {
    std::vector<SegmentRow> left;
    for (std::size_t place = originals_; place < rows_.size(); ++place) {
      if (!isGone(place)) left.push_back(rows_[place]);
    }
    return left;
  }

 private:
  struct Place {
    bool takes = false;     // part, and gives way in its turn
    bool mayMatch = false;  // another one
    bool gone = false;
  };

  void add(const SegmentRow& row, bool mayMatch) {
    rows_.push_back(row);
    if (mayMatch) finder_.add(rows_.size() - 1, row);
  }

  // A row in whose place another one went stands for that from then on: it has its turn again when
  // the other one had yet to have its own, and else has had it.
  void exchange(std::size_t at, std::size_t image) {
    while (!isGone(at)) {
      const std::size_t went = places_[at].mayMatch ? takeMatch(at) : at;
      places_[went].gone = true;
      places_.emplace_back();
      add(parties_.images[image], parties_.imageMayMatch[image]);
      const bool hadYetItsTurn = places_[went].takes;
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

  const Parties& parties_;
  const std::size_t originals_;
  RowFinder finder_;  // of the rows that may match
  std::vector<SegmentRow> rows_;
  std::vector<Place> places_;
  std::vector<std::size_t> taking_;  // the places of those that take part
};

template <class Goes>
bool replaceAtEnd(Change& change, std::span<const SegmentRow> images, const Goes& goes) {
  auto next = images.begin();
  change.segments.replaceAtEnd([&](int sg, SegmentRow& row) {
    if (!goes(sg, row)) return false;
    row = *next++;
    return true;
  });
  return change.keep();
}

bool replaceByImages(Change& change, const DrawingStore& store, bool selectedOnly,
                     const RowImage& image) {
  const Parties parties(store, selectedOnly, image);
  const auto& may = parties.mayMatch;
  if (std::find(may.begin(), may.end(), true) == may.end()) {
    return replaceAtEnd(change, parties.images, [&](int /*sg*/, const SegmentRow& row) {
      return takesPart(row, selectedOnly);
    });
  }
  Exchange exchange(store, selectedOnly, parties);
  exchange.run();
  // As many images are left as rows have gone, since each step took one and gave one.
  return replaceAtEnd(change, exchange.images(), [&](int sg, const SegmentRow& /*row*/) {
    return exchange.isGone(static_cast<std::size_t>(sg) - 1);
  });
}

}  // namespace

std::vector<SegmentRow> imagesOf(const DrawingStore& store, bool selectedOnly,
                                 const RowImage& image) {
  std::vector<SegmentRow> images =
      rowsOf(store, [&](const SegmentRow& row) { return takesPart(row, selectedOnly); });
  image(images);
  return images;
}

bool addImages(Changes& changes, const ImageRequest& request, const RowImage& image) {
  Change change(changes);
  return request.copies ? addCopies(change, changes.store, request.selectedOnly, image)
                        : replaceByImages(change, changes.store, request.selectedOnly, image);
}

}  // namespace tess
