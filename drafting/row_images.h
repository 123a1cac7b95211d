// Images of drawing rows, mirrored or turned, in the place of the rows or beside them.
// Owns: RowImage, ImageRequest, makeImage, imagesOf, addImages.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "drafting/change.h"
#include "drafting/row_mapping.h"

namespace tess {

// Makes each row its image.
using RowImage = std::function<void(std::span<SegmentRow> rows)>;

struct ImageRequest {
  bool selectedOnly = false;  // of the selected ordinary rows alone
  bool copies = false;        // the rows themselves stay
};

// Makes a row its image, whose points are mapped. Kinds without shape have one point, all the
// others two ends, and what is round its centre.
template <class Map>
void makeImage(SegmentRow& row, const Map& map) {
  constexpr int kLastShape = 79;
  if (row.type == kPoint || row.type > kLastShape) {
    mapPoint(row.x0, row.y0, map);
  } else {
    mapRow(row, map);
  }
}

// The images that addImages would add.
std::vector<SegmentRow> imagesOf(const DrawingStore& store, bool selectedOnly,
                                 const RowImage& image);

// Adds the images at the end of the table as one step; their attributes are those of their rows.
// Unless they are copies, for each image the row goes that findSegment finds for its original: of
// rows that lie on one another the last one, be it an image that has just come. Raises Overflow for
// a full table or number, and then nothing has happened. False when the operator would not have it.
bool addImages(Changes& changes, const ImageRequest& request, const RowImage& image);

}  // namespace tess
