// Images of drawing rows.
#include "drafting/row_images.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

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
  Parties(const DrawingStore& store, bool selectedOnly, const RowImage& image) {
    const auto rows = static_cast<std::size_t>(store.NumSegments);
    numbers.reserve(rows);
    taking.reserve(rows);
    others.reserve(rows);
    const SegmentColumns columns(store);
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      const SegmentRow row = columns.row(sg);
      const bool takes = takesPart(row, selectedOnly);
      (takes ? taking : others).push_back(row);
      if (takes) numbers.push_back(Int16(sg));
    }
    images = taking;
    image(images);
    const std::array<std::span<const SegmentRow>, 3> lists{taking, images, others};
    auto may = rowsThatMayMatch(store.cfg_tolerance, lists);
    mayMatch = std::move(may[0]);
    imageMayMatch = std::move(may[1]);
    otherMayMatch = std::move(may[2]);
  }

  std::vector<std::int16_t> numbers;  // of those that give way
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

  // The rows that there were and that have gone.
  std::vector<std::int16_t> gone() const {
    std::vector<std::int16_t> numbers;
    for (std::size_t place = 0; place < originals_; ++place) {
      if (isGone(place)) numbers.push_back(Int16(place + 1));
    }
    return numbers;
  }

  // The images that have not gone again.
  std::vector<SegmentRow> images() const {
    std::vector<SegmentRow> left;
    for (std::size_t place = originals_; place < rows_.size(); ++place) {
      if (!isGone(place)) left.push_back(rows_[place]);
    }
    return left;
  }

 private:
  bool isGone(std::size_t place) const { return places_[place].gone; }
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

bool replaceByImages(Change& change, const DrawingStore& store, bool selectedOnly,
                     const RowImage& image) {
  const Parties parties(store, selectedOnly, image);
  const auto& may = parties.mayMatch;
  if (std::find(may.begin(), may.end(), true) == may.end()) {
    change.segments.replaceAtEnd(parties.numbers, parties.images);
    return change.keep();
  }
  Exchange exchange(store, selectedOnly, parties);
  exchange.run();
  // As many images are left as rows have gone, since each step took one and gave one.
  change.segments.replaceAtEnd(exchange.gone(), exchange.images());
  return change.keep();
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
